// Documents, commands and modules.
#include "drawing_fixture.h"

#include <drawing/application.h>
#include <drawing/module_host.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QVariant>
#include <QWidget>

namespace {

QStringList g_log;

class Recorder : public PromptBackend {
public:
    PromptReply ask(const PromptRequest&) override { return PromptReply(); }
    void print(const QString& text) override { printed += text; }
    QString printed;
};

class Application : public ::testing::Test {
protected:
    void SetUp() override
    {
        g_log.clear();
        before = setPromptBackend(&backend);
    }
    void TearDown() override
    {
        GetCommandStack()->removeGroup(QStringLiteral("TEST"));
        closeAllDocuments();
        setPromptBackend(before);
        EXPECT_EQ(HostAccess::openObjectCount(), 0);
    }
    NcStatus addCommand(const QString& name, NcCommandHandler handler, int flags = 0)
    {
        return GetCommandStack()->addCommand(QStringLiteral("TEST"), QLatin1Char('_') + name, name, flags, handler,
                                             nullptr, -1, nullptr, nullptr);
    }
    NcApDocument* newDocument()
    {
        EXPECT_EQ(ncDocManagerPtr()->appContextNewDocument(QString()), NcStatus::Ok);
        return ncDocManagerPtr()->curDocument();
    }
    static NcDbObjectId addPoint(NcDbDatabase& database)
    {
        NcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(ncdbOpenObject(space, database.currentSpaceId(), kForWrite), NcStatus::Ok);
        auto* point = new NcDbPoint;
        NcDbObjectId id;
        EXPECT_EQ(space->appendNcDbEntity(id, point), NcStatus::Ok);
        point->close();
        space->close();
        return id;
    }

    Recorder backend;
    PromptBackend* before = nullptr;
};

class Documents_ : public Application { };
class CommandsTest : public Application { };
class Modules : public Application { };
class Editor : public Application { };

TEST_F(Documents_, ANewOneIsCurrentAndItsDrawingTheWorkingOne)
{
    EXPECT_EQ(ncDocManagerPtr()->curDocument(), nullptr);
    NcApDocument* first = newDocument();
    NcApDocument* second = newDocument();
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 2);
    EXPECT_EQ(ncDocManagerPtr()->document(0), first);
    EXPECT_EQ(ncDocManagerPtr()->document(2), nullptr);
    EXPECT_EQ(ncDocManagerPtr()->document(-1), nullptr);
    EXPECT_EQ(ncdbHostApplicationServices()->workingDatabase(), second->database());
    EXPECT_NE(first->fileName(), second->fileName());
    EXPECT_TRUE(static_cast<Document*>(second)->isUntitled());
}

TEST_F(Documents_, ActivatingAndClosingChangeTheCurrentOne)
{
    NcApDocument* first = newDocument();
    NcApDocument* second = newDocument();
    EXPECT_EQ(ncDocManagerPtr()->activateDocument(first), NcStatus::Ok);
    EXPECT_EQ(ncDocManagerPtr()->curDocument(), first);
    EXPECT_EQ(ncDocManagerPtr()->closeDocument(first), NcStatus::Ok);
    EXPECT_EQ(ncDocManagerPtr()->curDocument(), second);
    EXPECT_EQ(ncDocManagerPtr()->activateDocument(first), NcStatus::NotFound);
    EXPECT_EQ(ncDocManagerPtr()->closeDocument(nullptr), NcStatus::NotFound);
    EXPECT_EQ(ncDocManagerPtr()->closeDocument(second), NcStatus::Ok);
    EXPECT_EQ(ncDocManagerPtr()->curDocument(), nullptr);
    EXPECT_EQ(ncdbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST_F(Documents_, SavingGivesTheNameAndFindsIt)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("план.dwg"));
    NcApDocument* document = newDocument();
    addPoint(*document->database());
    EXPECT_TRUE(static_cast<Document*>(document)->isModified());
    EXPECT_EQ(ncDocManagerPtr()->saveDocumentAs(document, path), NcStatus::Ok);
    EXPECT_FALSE(static_cast<Document*>(document)->isModified());
    EXPECT_FALSE(static_cast<Document*>(document)->isUntitled());
    EXPECT_EQ(document->fileName(), QDir::cleanPath(path));
    EXPECT_EQ(ncDocManagerPtr()->findByFileName(folder.path() + QStringLiteral("/./план.dwg")), document);
    EXPECT_EQ(ncDocManagerPtr()->findByFileName(QString()), nullptr);
    NcApDocument* other = newDocument();
    EXPECT_EQ(ncDocManagerPtr()->saveDocumentAs(other, path), NcStatus::Duplicate) << "another document has the file";
    EXPECT_EQ(ncDocManagerPtr()->saveDocumentAs(other, QString()), NcStatus::InvalidInput);
    EXPECT_EQ(ncDocManagerPtr()->saveDocumentAs(other, folder.filePath(QStringLiteral("no/folder/x.dwg"))),
              NcStatus::FileAccess);
    EXPECT_TRUE(static_cast<Document*>(other)->isUntitled());
}

TEST_F(Documents_, OpeningTwiceActivates)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.dwg"));
    NcApDocument* document = newDocument();
    addPoint(*document->database());
    ASSERT_EQ(ncDocManagerPtr()->saveDocumentAs(document, path), NcStatus::Ok);
    newDocument();
    EXPECT_EQ(ncDocManagerPtr()->appContextOpenDocument(path), NcStatus::Ok);
    EXPECT_EQ(ncDocManagerPtr()->curDocument(), document);
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 2);
    ncDocManagerPtr()->closeDocument(document);
    EXPECT_EQ(ncDocManagerPtr()->appContextOpenDocument(path), NcStatus::Ok);
    EXPECT_FALSE(static_cast<Document*>(ncDocManagerPtr()->curDocument())->isModified());
    NcSelectionSet set;
    EXPECT_EQ(ncedSSGet(QStringLiteral("X"), {}, set), kPromptNormal);
    EXPECT_EQ(ncedSSLength(set), 1);
    EXPECT_TRUE(audit(*ncDocManagerPtr()->curDocument()->database()).empty());
    EXPECT_EQ(ncDocManagerPtr()->appContextOpenDocument(folder.filePath(QStringLiteral("none.dwg"))),
              NcStatus::FileAccess);
}

TEST_F(Documents_, TemplatesAreFoundByPathAndInTheFolders)
{
    QTemporaryDir folder;
    NcApDocument* document = newDocument();
    addPoint(*document->database());
    ASSERT_EQ(ncDocManagerPtr()->saveDocumentAs(document, folder.filePath(QStringLiteral("Образец.dwt"))),
              NcStatus::Ok);
    EXPECT_EQ(ncDocManagerPtr()->appContextNewDocument(QStringLiteral("Образец.dwt")), NcStatus::FileAccess);
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 1);
    addTemplateFolder(folder.path());
    EXPECT_EQ(ncDocManagerPtr()->appContextNewDocument(QStringLiteral("Образец.dwt")), NcStatus::Ok);
    EXPECT_TRUE(static_cast<Document*>(ncDocManagerPtr()->curDocument())->isUntitled());
    NcSelectionSet set;
    EXPECT_EQ(ncedSSGet(QStringLiteral("X"), {}, set), kPromptNormal);
}

TEST_F(Documents_, OneWithOpenObjectsIsNotClosed)
{
    NcApDocument* document = newDocument();
    NcDbLayerTable* table = nullptr;
    ASSERT_EQ(document->database()->getSymbolTable(table, kForRead), NcStatus::Ok);
    EXPECT_EQ(ncDocManagerPtr()->closeDocument(document), NcStatus::WasOpenForWrite);
    table->close();
    EXPECT_EQ(ncDocManagerPtr()->closeDocument(document), NcStatus::Ok);
}

TEST_F(Documents_, FunctionsRunInTheApplicationContextAtOnce)
{
    int runs = 0;
    ncDocManagerPtr()->executeInApplicationContext([&] { ++runs; });
    ncDocManagerPtr()->executeInApplicationContext(nullptr);
    EXPECT_EQ(runs, 1);
}

TEST_F(Documents_, VariablesTellOfTheCurrentDrawing)
{
    QString value;
    EXPECT_FALSE(ncedGetVar(QStringLiteral("CLAYER"), value)) << "no drawing";
    newDocument();
    EXPECT_TRUE(ncedGetVar(QStringLiteral("clayer"), value));
    EXPECT_EQ(value, QStringLiteral("0"));
    EXPECT_TRUE(ncedGetVar(QStringLiteral("DIMTXT"), value));
    EXPECT_EQ(value, QStringLiteral("2.5"));
    EXPECT_TRUE(ncedGetVar(QStringLiteral("DWGNAME"), value));
    EXPECT_EQ(value, ncDocManagerPtr()->curDocument()->fileName());
    EXPECT_TRUE(ncedGetVar(QStringLiteral("TILEMODE"), value));
    EXPECT_EQ(value, QStringLiteral("1"));
    EXPECT_FALSE(ncedGetVar(QStringLiteral("NOSUCHTHING"), value));
    setSystemVariable(QStringLiteral("NoSuchThing"), QStringLiteral("5"));
    EXPECT_TRUE(ncedGetVar(QStringLiteral("NOSUCHTHING"), value));
    EXPECT_EQ(value, QStringLiteral("5"));
    HostAccess::data(*ncDocManagerPtr()->curDocument()->database())
        .header.push_back({QStringLiteral("$INSBASE"),
                           {{10, QStringLiteral("1.0")}, {20, QStringLiteral("2.0")}, {30, QStringLiteral("0.0")}}});
    EXPECT_TRUE(ncedGetVar(QStringLiteral("INSBASE"), value));
    EXPECT_EQ(value, QStringLiteral("1.0,2.0,0.0"));
}

TEST_F(CommandsTest, AreFoundByBothNamesIgnoringCase)
{
    EXPECT_EQ(addCommand(QStringLiteral("TERVA_X"), [] { g_log << QStringLiteral("x"); }), NcStatus::Ok);
    for (const char* name : {"TERVA_X", "terva_x", "_TERVA_X", "._terva_X", ".TERVA_X"})
        EXPECT_EQ(runCommand(QLatin1String(name)), CommandOutcome::Done) << name;
    EXPECT_EQ(g_log.size(), 5);
    EXPECT_EQ(runCommand(QStringLiteral("TERVA_Y")), CommandOutcome::Unknown);
    EXPECT_EQ(runCommandWords({}), CommandOutcome::Unknown);
    EXPECT_TRUE(hasCommand(QStringLiteral("terva_x")));
}

TEST_F(CommandsTest, ANameIsTakenOnceAGroupAndNeedsAHandler)
{
    const auto nothing = [] {};
    EXPECT_EQ(addCommand(QStringLiteral("A"), nothing), NcStatus::Ok);
    EXPECT_EQ(addCommand(QStringLiteral("a"), nothing), NcStatus::Duplicate);
    EXPECT_EQ(addCommand(QStringLiteral("B"), nullptr), NcStatus::InvalidInput);
    EXPECT_EQ(GetCommandStack()->removeGroup(QStringLiteral("test")), NcStatus::Ok);
    EXPECT_EQ(GetCommandStack()->removeGroup(QStringLiteral("test")), NcStatus::NotFound);
    EXPECT_FALSE(hasCommand(QStringLiteral("A")));
}

TEST_F(CommandsTest, AreListedInTheOrderOfTheirRegistration)
{
    const auto nothing = [] {};
    for (const char* name : {"Z", "M", "A"})
        addCommand(QLatin1String(name), nothing, 1);
    QStringList names;
    for (const CommandInfo& info : registeredCommands())
        if (info.group == QLatin1String("TEST"))
            names << info.localName;
    EXPECT_EQ(names, (QStringList{"Z", "M", "A"}));
}

TEST_F(CommandsTest, OnlyTransparentOnesRunInsideAnother)
{
    addCommand(
        QStringLiteral("INNER"), [] { g_log << QStringLiteral("inner"); }, kTransparent);
    addCommand(QStringLiteral("OTHER"), [] { g_log << QStringLiteral("other"); });
    addCommand(QStringLiteral("OUTER"), [] {
        g_log << activeCommand();
        EXPECT_EQ(runCommand(QStringLiteral("OTHER")), CommandOutcome::Busy);
        EXPECT_EQ(runCommand(QStringLiteral("INNER")), CommandOutcome::Done);
        QString names;
        EXPECT_TRUE(ncedGetVar(QStringLiteral("CMDNAMES"), names));
        EXPECT_EQ(names, QStringLiteral("_OUTER"));
    });
    EXPECT_EQ(runCommand(QStringLiteral("OUTER")), CommandOutcome::Done);
    EXPECT_EQ(g_log, (QStringList{"_OUTER", "inner"}));
    EXPECT_TRUE(activeCommand().isEmpty());
}

TEST_F(CommandsTest, WhatIsQueuedRunsAfterTheCommandInOrder)
{
    addHostCommand(QStringLiteral("zoom"), [](const QStringList& words) { g_log << words.join(QLatin1Char(' ')); });
    addCommand(QStringLiteral("SECOND"), [] { g_log << QStringLiteral("second"); });
    addCommand(QStringLiteral("FIRST"), [] {
        EXPECT_EQ(ncedCommand({QStringLiteral("_.zoom"), QStringLiteral("_Center"), QStringLiteral("1,2"),
                               QStringLiteral("50")}),
                  kPromptNormal);
        EXPECT_EQ(ncDocManagerPtr()->sendStringToExecute(ncDocManagerPtr()->curDocument(), QStringLiteral("SECOND\n")),
                  NcStatus::Ok);
        g_log << QStringLiteral("first ends");
    });
    newDocument();
    runCommand(QStringLiteral("FIRST"));
    EXPECT_EQ(g_log, (QStringList{"first ends", "_Center 1,2 50", "second"}));
    EXPECT_EQ(ncedCommand({}), kPromptError);
    EXPECT_EQ(ncDocManagerPtr()->sendStringToExecute(nullptr, QStringLiteral("SECOND")), NcStatus::NotFound);
}

TEST_F(CommandsTest, AQueuedCommandThatNobodyKnowsIsTold)
{
    newDocument();
    ncedCommand({QStringLiteral("_.nothing")});
    EXPECT_TRUE(backend.printed.contains(QStringLiteral("Неизвестная команда \"_.nothing\".")));
}

TEST_F(CommandsTest, WordsTypedBehindACommandAnswerItsPrompts)
{
    addCommand(QStringLiteral("ASKS"), [] {
        int integer = 0;
        ncedGetInt(QStringLiteral("n"), integer);
        ncedInitGet(0, QStringLiteral("Да Нет _ Yes No"));
        QString word, text;
        ncedGetKword(QStringLiteral("k"), word);
        ncedGetString(true, QStringLiteral("s"), text);
        double real = -1.0;
        EXPECT_EQ(ncedGetReal(QStringLiteral("r"), real), kPromptCancel) << "no more words: the back end is asked";
        g_log << QString::number(integer) << word << text;
    });
    NcApDocument* document = newDocument();
    ncDocManagerPtr()->sendStringToExecute(document, QStringLiteral("ASKS 17 нет \"два слова\"\n"));
    EXPECT_EQ(g_log, (QStringList{"17", "No", "два слова"}));
}

TEST_F(CommandsTest, ACommandMayTakeItsGroupAway)
{
    addCommand(QStringLiteral("LAST"), [] { GetCommandStack()->removeGroup(QStringLiteral("TEST")); });
    EXPECT_EQ(runCommand(QStringLiteral("LAST")), CommandOutcome::Done);
    EXPECT_FALSE(hasCommand(QStringLiteral("LAST")));
}

TEST_F(Editor, ReactorsHearOfCommandsAndPickedEntities)
{
    struct Reactor : NcEditorReactor2 {
        void commandWillStart(const QString& name) override { g_log << QStringLiteral("start ") + name; }
        void commandEnded(const QString& name) override { g_log << QStringLiteral("end ") + name; }
        void pickfirstModified() override { g_log << QStringLiteral("picked"); }
    } reactor;
    newDocument();
    const NcDbObjectId point = addPoint(*ncDocManagerPtr()->curDocument()->database());
    NcEditor::instance()->addReactor(&reactor);
    NcEditor_instance()->addReactor(&reactor);
    setPickfirst({point});
    addCommand(QStringLiteral("PLAIN"), [] {
        NcSelectionSet set;
        g_log << QString::number(ncedSSGet(QStringLiteral("_I"), {}, set));
    });
    addCommand(
        QStringLiteral("PICKS"),
        [] {
            NcSelectionSet set;
            g_log << QString::number(ncedSSGet(QStringLiteral("_I"), {}, set));
        },
        kUsePickSet | kRedraw);
    runCommand(QStringLiteral("PICKS"));
    EXPECT_EQ(g_log, (QStringList{"picked", "start _PICKS", "5100", "end _PICKS"}));
    g_log.clear();
    runCommand(QStringLiteral("PLAIN"));
    EXPECT_EQ(g_log, (QStringList{"picked", "start _PLAIN", "-5001", "end _PLAIN"}))
        << "it does not use the picked set";
    NcEditor::instance()->removeReactor(&reactor);
    g_log.clear();
    NcSelectionSet set;
    set.ids = {point};
    EXPECT_EQ(ncedSSSetFirst(set), kPromptNormal);
    EXPECT_TRUE(g_log.isEmpty());
    EXPECT_EQ(ncedSSGet(QStringLiteral("_I"), {}, set), kPromptNormal);
    EXPECT_EQ(set.ids, NcDbObjectIdArray{point});
}

TEST_F(Editor, AReactorMayLeaveWhileItIsTold)
{
    struct Leaver : NcEditorReactor2 {
        void pickfirstModified() override
        {
            g_log << QStringLiteral("leaves");
            NcEditor::instance()->removeReactor(this);
        }
    } first, second;
    newDocument();
    NcEditor::instance()->addReactor(&first);
    NcEditor::instance()->addReactor(&second);
    setPickfirst({});
    setPickfirst({});
    EXPECT_EQ(g_log.size(), 2);
}

TEST_F(Editor, PickingNeedsADocument)
{
    NcSelectionSet set;
    EXPECT_EQ(ncedSSSetFirst(set), kPromptError);
    EXPECT_EQ(ncedSSGet(QStringLiteral("_I"), {}, set), kPromptError);
}

TEST_F(Editor, TheMainWindowIsForgottenWhenItIsGone)
{
    EXPECT_EQ(ndsw_ncadMainWnd(), nullptr);
    {
        QWidget window;
        setMainWindow(&window);
        EXPECT_EQ(ndsw_ncadMainWnd(), &window);
    }
    EXPECT_EQ(ndsw_ncadMainWnd(), nullptr);
}

QString moduleFile(const QString& name) { return QStringLiteral(TEST_MODULES "/lib") + name + QStringLiteral(".so"); }

TEST_F(Modules, AreLoadedToldAndUnloaded)
{
    qApp->setProperty("sampleModule", QString());
    ModuleHost host;
    QString error;
    ASSERT_TRUE(host.load(moduleFile(QStringLiteral("sample_module")), &error)) << error.toStdString();
    EXPECT_TRUE(host.load(moduleFile(QStringLiteral("sample_module"))));
    EXPECT_EQ(host.loaded().size(), 1);
    EXPECT_EQ(qApp->property("sampleModule").toString(), QStringLiteral("message 1;"));
    EXPECT_EQ(qApp->property("sampleModulePath").toString(),
              QDir::cleanPath(moduleFile(QStringLiteral("sample_module"))));
    EXPECT_EQ(runCommand(QStringLiteral("sample_hello")), CommandOutcome::Done);
    EXPECT_TRUE(host.unload(moduleFile(QStringLiteral("sample_module"))));
    EXPECT_FALSE(host.unload(moduleFile(QStringLiteral("sample_module"))));
    EXPECT_EQ(qApp->property("sampleModule").toString(), QStringLiteral("message 1;hello;message 2;"));
    EXPECT_FALSE(hasCommand(QStringLiteral("SAMPLE_HELLO")));
}

TEST_F(Modules, AreToldWhenTheHostEnds)
{
    qApp->setProperty("sampleModule", QString());
    {
        ModuleHost host;
        ASSERT_TRUE(host.load(moduleFile(QStringLiteral("sample_module"))));
    }
    EXPECT_EQ(qApp->property("sampleModule").toString(), QStringLiteral("message 1;message 2;"));
}

TEST_F(Modules, WhatIsNoneIsRefusedWithItsCause)
{
    ModuleHost host;
    QString error;
    EXPECT_FALSE(host.load(QStringLiteral("/nowhere/module.so"), &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(host.load(moduleFile(QStringLiteral("plain_library")), &error));
    EXPECT_TRUE(error.contains(QStringLiteral("ncrxEntryPoint")));
    EXPECT_TRUE(host.loaded().isEmpty());
    EXPECT_EQ(ncModulePath(nullptr), QString());
}

} // namespace
