// The text of the project file and what is read from it.
#include "session/project_file.h"
#include "support/full_disk.h"

#include "session_fixture.h"

#include <QBuffer>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>

namespace {

std::optional<ProjectFile> read(const QString& text, const ProjectSession& defaults = ProjectSession())
{
    QByteArray bytes = text.toUtf8();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return readProjectFile(buffer, defaults);
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));
    return file.readAll();
}

/// Names of all elements in document order, children behind their parent.
QStringList namesOf(const QDomElement& element)
{
    QStringList names{element.tagName()};
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        names += namesOf(child);
    return names;
}

void fillSession(ProjectSession& session)
{
    session.projectName = "Имя \"<&>'";
    session.projectCode = "Ш";
    session.projectOwner = "О";
    session.projectLocation = "Л";
    session.projectFile = "/tmp/п.terva";
    session.workDir = "/w";
    session.tempDir = "/t";
    session.templateDir = "/s";
    session.sqlType = 2;
    session.sqlHost = "1.2.3.4";
    session.sqlPort = "5433";
    session.sqlDatabase = "db";
    session.sqlUser = "u";
    session.sqlPass = "пароль";
    session.currentPositionId = 12;
    session.baseCycleId = 3;
    session.currentCycleId = 4;
    session.temperatureColormapId = 5;
    session.dynamicTemperatureColormapId = 6;
    session.deformationColormapId = 7;
    session.exportPath = "/e";
    session.stateFilter = {{"b", "Бэ"}, {"a", "А"}};
    int number = 10;
    for (Enumerator ProjectSession::*numbering : enumeratorsInUse)
        session.*numbering = {"N" + QString::number(number) + ".", number, 2}, ++number;
}

TEST(ProjectFileText, HasNoDeclarationAndIndentsByOneBlank)
{
    const QString text = QString::fromUtf8(projectFileText(ProjectSession()));
    EXPECT_TRUE(text.startsWith("<TervaProject>\n <Meta>\n  <ProjectName Value=\"\"/>\n")) << text;
    EXPECT_TRUE(text.endsWith(" <StateFilter/>\n</TervaProject>\n")) << text;
}

TEST(ProjectFileText, HoldsTheElementsInTheirOrder)
{
    ProjectSession session;
    fillSession(session);
    QDomDocument document;
    ASSERT_TRUE(document.setContent(projectFileText(session)));
    EXPECT_EQ(namesOf(document.documentElement()).join(' '),
              QString("TervaProject Meta ProjectName ProjectCode ProjectOwner ProjectLocation "
                      "Path Filename WorkDir TempDir TemplateDir "
                      "Database SQLType SQLHost SQLPort SQLDatabase SQLUser SQLPass "
                      "Current PositionID BaseCycleID CurrentCycleID TemperatureColormapID "
                      "DynamicTemperatureColormapID DeformationColormapID CurrentExportPath "
                      "DmEnumerator TsEnumerator TssEnumerator GgsEnumerator TsgEnumerator RpEnumerator IgsEnumerator "
                      "StateFilter State State"));
}

TEST(ProjectFileText, HoldsTheSessionsValues)
{
    ProjectSession session;
    fillSession(session);
    QDomDocument document;
    ASSERT_TRUE(document.setContent(projectFileText(session)));
    const QDomElement root = document.documentElement();
    const auto value = [&root](const char* group, const char* name) {
        return root.firstChildElement(group).firstChildElement(name).attribute("Value");
    };
    EXPECT_EQ(value("Meta", "ProjectName"), QString("Имя \"<&>'"));
    EXPECT_EQ(value("Path", "Filename"), QString("/tmp/п.terva"));
    EXPECT_EQ(value("Database", "SQLType"), QString("2"));
    EXPECT_EQ(value("Database", "SQLPass"), QString("0L/QsNGA0L7Qu9GM")) << "UTF-8 in Base64";
    EXPECT_EQ(value("Current", "PositionID"), QString("12"));
    EXPECT_EQ(value("Current", "TemperatureColormapID"), QString("5"));
    EXPECT_EQ(value("Current", "DynamicTemperatureColormapID"), QString("6"));
    EXPECT_EQ(value("Current", "DeformationColormapID"), QString("7"));
    const QDomElement tss = root.firstChildElement("Current").firstChildElement("TssEnumerator");
    EXPECT_EQ(tss.attribute("Prefix"), session.tssEnumerator.prefix);
    EXPECT_EQ(tss.attribute("Counter"), QString::number(session.tssEnumerator.counter));
    EXPECT_EQ(tss.attribute("Trailing"), QString("2"));
    const QDomElement state = root.firstChildElement("StateFilter").firstChildElement();
    EXPECT_EQ(state.attribute("Name"), QString("a")) << "in key order";
    EXPECT_EQ(state.attribute("Description"), QString("А"));
}

TEST(ProjectFileReading, GivesBackWhatWasWritten)
{
    ProjectSession session;
    fillSession(session);
    const auto file = read(QString::fromUtf8(projectFileText(session)));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->projectName, session.projectName);
    EXPECT_EQ(file->projectCode, session.projectCode);
    EXPECT_EQ(file->projectOwner, session.projectOwner);
    EXPECT_EQ(file->projectLocation, session.projectLocation);
    EXPECT_EQ(file->workDir, session.workDir);
    EXPECT_EQ(file->tempDir, session.tempDir);
    EXPECT_EQ(file->templateDir, session.templateDir);
    EXPECT_EQ(file->sqlType, 2);
    EXPECT_EQ(mainConnInfo(file->database), session.buildConnInfo());
    EXPECT_EQ(file->positionId, 12);
    EXPECT_EQ(file->baseCycleId, 3);
    EXPECT_EQ(file->currentCycleId, 4);
    EXPECT_EQ(file->temperatureColormapId, 5);
    EXPECT_EQ(file->dynamicTemperatureColormapId, 6);
    EXPECT_EQ(file->deformationColormapId, 7);
    EXPECT_EQ(file->exportPath, session.exportPath);
    for (int i = 0; i < enumeratorCount; ++i)
        EXPECT_EQ(file->enumerators[size_t(i)], session.*enumeratorsInUse[i]) << i;
    EXPECT_EQ(file->stateFilter, session.stateFilter);
}

TEST(ProjectFileReading, KeepsLineBreaksAndSurvivesWhatXmlCannotHold)
{
    ProjectSession session;
    session.projectName = "две\nстроки\tи\r\nеще 𝄞";
    session.projectOwner = QString("мягкий") + QChar(0x0b) + "перенос" + QChar(0x1f) + QChar(0xfffe);
    session.stateFilter = {{QString("a") + QChar(0x01), "А"}};
    session.dmEnumerator.prefix = QString("Д") + QChar(0xd800);
    const auto file = read(QString::fromUtf8(projectFileText(session)));
    ASSERT_TRUE(file) << "a file that we wrote can be opened";
    EXPECT_EQ(file->projectName, session.projectName);
    EXPECT_EQ(file->projectOwner, QString("мягкийперенос"));
    EXPECT_EQ(file->stateFilter.keys(), QStringList{"a"});
    EXPECT_EQ(file->enumerators[0].prefix, QString("Д"));
}

TEST(ProjectFileReading, MissingElementsGiveDefaults)
{
    const auto file = read("<anything/>");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->projectName, QString());
    EXPECT_EQ(file->tempDir, QString());
    EXPECT_EQ(file->sqlType, 0);
    EXPECT_EQ(file->database.password, QString());
    EXPECT_EQ(file->positionId, -1);
    EXPECT_EQ(file->baseCycleId, -1);
    EXPECT_EQ(file->currentCycleId, -1);
    EXPECT_EQ(file->temperatureColormapId, -3);
    EXPECT_EQ(file->dynamicTemperatureColormapId, -3);
    EXPECT_EQ(file->deformationColormapId, -2);
    EXPECT_EQ(file->enumerators[4], (Enumerator{" ГГС", 1, 1}));
    EXPECT_TRUE(file->stateFilter.isEmpty());
}

TEST(ProjectFileReading, UnreadableNumbersTakeTheSessionsFallback)
{
    ProjectSession defaults;
    defaults.defaultPositionId = 50;
    defaults.defaultBaseCycleId = 51;
    defaults.defaultCurrentCycleId = 52;
    defaults.dmDefault = {"Д", 8, 9};
    const auto file = read("<r><Database><SQLType Value='x'/></Database>"
                           "<Current><PositionID Value=''/><BaseCycleID Value='1.5'/>"
                           "<TemperatureColormapID Value='t'/><DeformationColormapID Value='99999999999'/>"
                           "<FileID Value='17'/>"
                           "<DmEnumerator Prefix='' Counter='много' Trailing='3'/>"
                           "<TsEnumerator Prefix='Т-' Counter=' 5 '/></Current></r>",
                           defaults);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->sqlType, 0);
    EXPECT_EQ(file->positionId, 50);
    EXPECT_EQ(file->baseCycleId, 51);
    EXPECT_EQ(file->currentCycleId, 52);
    EXPECT_EQ(file->temperatureColormapId, -3);
    EXPECT_EQ(file->deformationColormapId, -2);
    EXPECT_EQ(file->enumerators[0], (Enumerator{"Д", 8, 3}));
    EXPECT_EQ(file->enumerators[1], (Enumerator{"Т-", 5, 1}));
}

TEST(ProjectFileReading, OnlyStatesCountInTheFilter)
{
    const auto file = read("<r><StateFilter><State Name='a' Description='А'/><Other Name='b' Description='Б'/>"
                           "<State Name='a' Description='Я'/></StateFilter></r>");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->stateFilter, (QMap<QString, QString>{{"a", "Я"}}));
}

// A tree of them would end the program before anybody asked it anything.
TEST(ProjectFileReading, ElementsNestedTooDeeplyAreRefused)
{
    const auto nested = [](int depth) {
        return "<TervaProject>" + QString("<a>").repeated(depth) + QString("</a>").repeated(depth) + "</TervaProject>";
    };
    EXPECT_TRUE(read(nested(200)));
    EXPECT_FALSE(read(nested(300)));
    EXPECT_FALSE(read(nested(50000)));
    EXPECT_FALSE(read("<TervaProject>" + QString("<a>").repeated(200000)));
}

TEST(ProjectFileReading, EntitiesAreNeitherExpandedWithoutEndNorFetched)
{
    QString entities = "<!ENTITY e0 'aaaaaaaaaa'>";
    for (int level = 1; level < 10; ++level)
        entities += QString("<!ENTITY e%1 '%2'>").arg(level).arg(QString("&e%1;").arg(level - 1).repeated(10));
    EXPECT_FALSE(read("<!DOCTYPE p [" + entities + "]><TervaProject><Meta>&e9;</Meta></TervaProject>"));
    const auto file = read("<!DOCTYPE p [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><TervaProject><Meta><ProjectName "
                           "Value='a'/>&e;</Meta></TervaProject>");
    if (file) {
        EXPECT_EQ(file->projectName, "a") << "nothing of another file";
    }
}

TEST(ProjectFileReading, ACutFileIsRefused)
{
    ProjectSession session;
    fillSession(session);
    const QString text = QString::fromUtf8(projectFileText(session));
    EXPECT_FALSE(read(text.left(text.size() / 2)));
    EXPECT_FALSE(read(QString()));
}

TEST(SavingAProject, WritesTheFileAndReadsBack)
{
    QTemporaryDir folder;
    ProjectSession session;
    fillSession(session);
    session.projectFile = folder.filePath("проект.terva");
    session.saveProject();
    EXPECT_EQ(bytesOf(session.projectFile), projectFileText(session));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << "nothing is left beside it";
}

TEST(SavingAProject, AsksForAnExistingFileWhenNoneIsKnown)
{
    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    ProjectSession session;
    dialogs.answers << folder.filePath("a.terva");
    session.saveProject();
    EXPECT_EQ(dialogs.asked, QStringList{"open:"});
    EXPECT_EQ(session.projectFile, folder.filePath("a.terva"));
    EXPECT_TRUE(QFileInfo::exists(session.projectFile));
}

TEST(SavingAProject, ACancelledQuestionWritesAndSaysNothing)
{
    ConsoleCapture console;
    ScriptedDialogs dialogs;
    ProjectSession session;
    session.saveProject();
    EXPECT_EQ(dialogs.asked, QStringList{"open:"});
    EXPECT_EQ(session.projectFile, QString());
    EXPECT_EQ(console.text(), QString());
}

TEST(SavingAProject, AFileThatCannotBeWrittenIsPassedOver)
{
    ConsoleCapture console;
    ProjectSession session;
    session.projectFile = "/proc/no/such/folder/a.terva";
    session.saveProject();
    EXPECT_EQ(console.text(), QString());
    EXPECT_EQ(session.projectFile, QString("/proc/no/such/folder/a.terva"));
}

TEST(SavingAProject, AFullDiskLeavesTheFileAndIsTold)
{
    const QTemporaryDir folder;
    ConsoleCapture console;
    ProjectSession session;
    session.projectFile = folder.filePath("a.terva");
    session.projectName = "Прежнее имя";
    ASSERT_TRUE(session.saveProject());
    EXPECT_FALSE(QFileInfo(session.projectFile).permissions()
                 & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther));
    session.projectName = "Новое имя";
    bool saved = true;
    {
        const FileSizeLimit limit(500);
        saved = session.saveProject();
    }
    EXPECT_FALSE(saved);
    EXPECT_TRUE(console.text().startsWith("\nФайл проекта " + session.projectFile + " не записан: ")) << console.text();
    QFile file(session.projectFile);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto read = readProjectFile(file, ProjectSession());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->projectName, QString("Прежнее имя"));
}

TEST(SavingAProject, UnderANewNameAsksStartingFromTheOld)
{
    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    ProjectSession session;
    session.projectFile = folder.filePath("old.terva");
    session.saveProjectAs();
    EXPECT_EQ(session.projectFile, folder.filePath("old.terva"));
    EXPECT_FALSE(QFileInfo::exists(session.projectFile)) << "cancelled: nothing is written";
    dialogs.answers << folder.filePath("new.terva");
    session.saveProjectAs();
    EXPECT_EQ(dialogs.asked,
              (QStringList{"save:" + folder.filePath("old.terva"), "save:" + folder.filePath("old.terva")}));
    EXPECT_EQ(session.projectFile, folder.filePath("new.terva"));
    EXPECT_EQ(bytesOf(session.projectFile), projectFileText(session));
}

TEST(SavingAProject, ANameWithoutTheSuffixGetsIt)
{
    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    ProjectSession session;
    for (const char* name : {"новый", "версия.2", "Готов.TERVA"}) {
        dialogs.answers << folder.filePath(name);
        session.saveProjectAs();
        const QString typed = folder.filePath(name);
        const QString path = typed.endsWith("TERVA") ? typed : typed + ".terva";
        EXPECT_EQ(session.projectFile, path);
        EXPECT_EQ(bytesOf(path), projectFileText(session));
    }
    EXPECT_FALSE(QFileInfo::exists(folder.filePath("новый")));
    EXPECT_EQ(withProjectSuffix(QString()), QString()) << "nothing typed is nothing";
}

} // namespace
