// Opening a project file: every message in its order, what stays and what is
// taken over.
#include "session_fixture.h"

#include "session/project_file.h"

#include <drawing/application.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

class LoadingAProject : public SessionTest {
protected:
    void SetUp() override
    {
        SessionTest::SetUp();
        closeAllDocuments();
        NcDbDatabase().saveAs(folder_.filePath("Default.dwt"));
        addTemplateFolder(folder_.path());
        makeHierarchy();
        path_ = folder_.filePath("project.terva");
        for (const char* name : {"work", "temp", "templates"})
            QDir(folder_.path()).mkdir(name);
        // What the file is to hold.
        pointAt(saved_, database_.name());
        saved_.projectFile = path_;
        saved_.workDir = folder_.filePath("work");
        saved_.tempDir = folder_.filePath("temp");
        saved_.templateDir = folder_.filePath("templates");
        saved_.projectName = "имя из файла";
        saved_.projectCode = "шифр из файла";
        saved_.projectOwner = "владелец из файла";
        saved_.projectLocation = "место из файла";
        saved_.currentPositionId = 1;
        // What is open before.
        session_.sqlHost = session_.sqlPort = session_.sqlDatabase = session_.sqlUser = session_.sqlPass = "до";
        session_.workDir = "/до";
        session_.projectName = "до";
    }
    void TearDown() override { closeAllDocuments(); }

    void load()
    {
        saved_.saveProject();
        session_.loadProject(path_);
    }

    void expectUntouched()
    {
        EXPECT_EQ(session_.projectFile, QString());
        EXPECT_EQ(session_.workDir, QString("/до"));
        EXPECT_EQ(session_.tempDir, QString());
        EXPECT_EQ(session_.buildConnInfo(), QString("hostaddr=до port=до dbname=до user=до password=до "));
        EXPECT_EQ(session_.sqlType, 0);
        EXPECT_EQ(session_.currentPositionId, -1);
    }

    QString troubleText() const
    {
        return "trouble:При открытии проекта '" + path_
            + "' возникли ошибки\n Проверьте командную строку для информации.";
    }
    static QString troubleMessage() { return "\nЧто-то пошло не так! Проект не открыт.\n"; }
    static QString foldersGood()
    {
        return "\nПроверка путей проекта\nРабочая папка проекта:   Ок\nВременная папка проекта :   Ок\n"
               "Шаблоны проекта :   Ок\n";
    }
    QString loaded() const { return "\nУспешная загрузка проекта " + path_ + " \n"; }

    QString path_;
    ProjectSession saved_;
    ScriptedDialogs dialogs_;
};

TEST_F(LoadingAProject, GoesItsWholeRoad)
{
    saved_.baseCycleId = 3;
    saved_.currentCycleId = 4;
    saved_.deformationColormapId = 11;
    saved_.temperatureColormapId = 12;
    saved_.dynamicTemperatureColormapId = 13;
    saved_.exportPath = "/export";
    saved_.igsEnumerator = {"Ф.", 5, 6};
    saved_.dmEnumerator = {"ДФ.", 5, 6};
    load();
    EXPECT_EQ(console_.take(),
              foldersGood()
                  + "Соединение с БД: Успешно \n"
                    "\nУстановлена текущая позичия проекта ID: 1 'Позиция 1'\n"
                  + loaded());
    EXPECT_EQ(dialogs_.asked, QStringList());
    EXPECT_EQ(session_.projectFile, path_);
    EXPECT_EQ(session_.workDir, saved_.workDir);
    EXPECT_EQ(session_.tempDir, saved_.tempDir);
    EXPECT_EQ(session_.templateDir, saved_.templateDir);
    EXPECT_EQ(session_.buildConnInfo(), saved_.buildConnInfo());
    EXPECT_EQ(session_.projectName, QString("Город")) << "from the database";
    EXPECT_EQ(session_.projectCode, QString("шифр из файла")) << "the other three stay as in the file";
    EXPECT_EQ(session_.projectOwner, QString("владелец из файла"));
    EXPECT_EQ(session_.projectLocation, QString("место из файла"));
    EXPECT_EQ(session_.igsEnumerator, (Enumerator{"Ф.", 5, 6}));
    EXPECT_EQ(session_.dmEnumerator, (Enumerator{"ДМ.", 100, 3})) << "continued from the position";
    EXPECT_EQ(session_.baseCycleId, 3);
    EXPECT_EQ(session_.currentCycleId, 4);
    EXPECT_EQ(session_.deformationColormapId, 11);
    EXPECT_EQ(session_.temperatureColormapId, 12);
    EXPECT_EQ(session_.dynamicTemperatureColormapId, 13);
    EXPECT_EQ(session_.exportPath, QString("/export"));
    EXPECT_EQ(session_.states.keys(), QStringList{"exist"});
    EXPECT_TRUE(session_.connected);
    EXPECT_TRUE(ncDocManagerPtr()->findByFileName(session_.drawingPath(1)));
}

TEST_F(LoadingAProject, WithoutAPositionTheNumberingOfTheFileStands)
{
    saved_.currentPositionId = -1;
    int counter = 20;
    for (Enumerator ProjectSession::*numbering : enumeratorsInUse) {
        saved_.*numbering = {QString::number(counter) + "/", counter, 4};
        ++counter;
    }
    load();
    EXPECT_TRUE(console_.text().endsWith(loaded())) << console_.text();
    for (int i = 0; i < enumeratorCount; ++i)
        EXPECT_EQ(session_.*enumeratorsInUse[i], saved_.*enumeratorsInUse[i]) << i;
}

TEST_F(LoadingAProject, AChangedSchemaIsNamedOnce)
{
    database_.exec("alter table devices drop column serial cascade; drop table performers cascade");
    load();
    const QString told = console_.take();
    EXPECT_EQ(told.count("Не найдено: столбец devices.serial, таблица performers\n"), 1) << told;
    EXPECT_TRUE(told.endsWith(loaded())) << "it opens all the same";
    session_.setCurrentPosition(1);
    EXPECT_FALSE(console_.take().contains("Не найдено"));
}

TEST_F(LoadingAProject, AnEmptyPathDoesNothing)
{
    session_.loadProject(QString());
    EXPECT_EQ(console_.text(), QString());
    expectUntouched();
}

TEST_F(LoadingAProject, AMissingFileIsTold)
{
    session_.loadProject(folder_.filePath("нет %1.terva"));
    EXPECT_EQ(console_.text(), "Ошибка загрузки файла " + folder_.filePath("нет %1.terva"));
    expectUntouched();
}

TEST_F(LoadingAProject, ACutFileIsTold)
{
    saved_.saveProject();
    QFile file(path_);
    ASSERT_TRUE(file.resize(file.size() / 2));
    session_.loadProject(path_);
    EXPECT_EQ(console_.text(), "Ошибка разбора файла " + path_);
    EXPECT_EQ(dialogs_.asked, QStringList());
    expectUntouched();
}

TEST_F(LoadingAProject, ThePathThatWasOpenedIsTheTruth)
{
    saved_.saveProject();
    const QString copy = folder_.filePath("copy.terva");
    ASSERT_TRUE(QFile::copy(path_, copy));
    session_.loadProject(copy);
    EXPECT_EQ(session_.projectFile, copy);
}

TEST_F(LoadingAProject, MissingFoldersAreAskedForAndTheFileRewritten)
{
    saved_.workDir = folder_.filePath("нет");
    saved_.tempDir = folder_.filePath("new/temp/deep");
    saved_.templateDir = QString();
    dialogs_.answers << folder_.filePath("work") << folder_.filePath("templates");
    load();
    EXPECT_EQ(console_.take(),
              "\nПроверка путей проекта\n"
              "Рабочая папка проекта:   Отсутствует\nВыбран новый путь: "
                  + folder_.filePath("work")
                  + "\n  Ок\n"
                    "Временная папка проекта :   Отсутствует. Пытаюсь создать...\n  Создана успешно\n  Ок\n"
                    "Шаблоны проекта :   Отсутствует\nВыбран новый путь: "
                  + folder_.filePath("templates")
                  + "\n  Ок\n"
                    "Соединение с БД: Успешно \n"
                    "\nУстановлена текущая позичия проекта ID: 1 'Позиция 1'\n"
                  + loaded() + "Файл проекта обновлен с новыми параметрами.\n");
    EXPECT_EQ(dialogs_.asked,
              (QStringList{"folder:Выберите рабочую папку проекта:" + folder_.filePath("нет"),
                           "folder:Выберите папку шаблонов проекта:"}));
    QFile file(path_);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto written = readProjectFile(file, session_);
    ASSERT_TRUE(written);
    EXPECT_EQ(written->workDir, folder_.filePath("work"));
    EXPECT_EQ(written->templateDir, folder_.filePath("templates"));
}

TEST_F(LoadingAProject, FoldersNotChosenStopItAfterTheConnection)
{
    saved_.workDir = folder_.filePath("нет");
    saved_.templateDir = folder_.filePath("нет");
    load();
    EXPECT_EQ(console_.take(),
              "\nПроверка путей проекта\nРабочая папка проекта:   Отсутствует\n"
              "Временная папка проекта :   Ок\nШаблоны проекта :   Отсутствует\n"
              "Загрузка проекта невозможна. Проверьте пути и права доступа."
              "Соединение с БД: "
                  + troubleMessage());
    EXPECT_EQ(dialogs_.asked.last(), troubleText());
    expectUntouched();
    EXPECT_FALSE(session_.connection.isOpen()) << "nothing was open before";
    EXPECT_FALSE(session_.connected);
    EXPECT_EQ(session_.projectId, -1);
}

TEST_F(LoadingAProject, AChosenFolderThatIsNoneIsNotChecked)
{
    saved_.workDir = QString();
    dialogs_.answers << folder_.filePath("не папка");
    load();
    EXPECT_TRUE(console_.text().startsWith("\nПроверка путей проекта\nРабочая папка проекта:   Отсутствует\n"
                                           "Выбран новый путь: "
                                           + folder_.filePath("не папка") + "\nВременная папка проекта : "));
}

TEST_F(LoadingAProject, FoldersWithoutRightsStopIt)
{
    // Not even root may write there.
    const QString folder = "/proc/sys";
    ASSERT_TRUE(QFileInfo(folder).isDir());
    ASSERT_FALSE(QFileInfo(folder).isWritable());
    saved_.workDir = saved_.tempDir = saved_.templateDir = folder;
    load();
    EXPECT_EQ(console_.take(),
              "\nПроверка путей проекта\nРабочая папка проекта:   Нет прав записи\n"
              "Временная папка проекта :   Нет прав записи\nШаблоны проекта :   Нет прав записи\n"
              "Загрузка проекта невозможна. Проверьте пути и права доступа."
              "Соединение с БД: "
                  + troubleMessage());
    EXPECT_EQ(dialogs_.asked, QStringList{troubleText()});
    expectUntouched();
}

TEST_F(LoadingAProject, AnEmptyTemporaryFolderCannotBeMade)
{
    saved_.tempDir = QString();
    load();
    EXPECT_TRUE(console_.text().contains("Временная папка проекта :   Отсутствует. Пытаюсь создать...\n"
                                         "  Ошибка создания\nШаблоны проекта : "))
        << console_.text();
    expectUntouched();
}

TEST_F(LoadingAProject, ATemporaryFolderThatCannotBeMadeStopsIt)
{
    saved_.tempDir = "/proc/terva/temp";
    load();
    EXPECT_TRUE(console_.text().contains("  Ошибка создания\nШаблоны проекта : ")) << console_.text();
    EXPECT_EQ(dialogs_.asked, QStringList{troubleText()});
}

TEST_F(LoadingAProject, AFolderBehindALinkKeepsTheLinksPath)
{
    const QString link = folder_.filePath("link");
    ASSERT_TRUE(QFile::link(folder_.filePath("work"), link));
    saved_.workDir = link;
    load();
    EXPECT_EQ(session_.workDir, link);
    EXPECT_FALSE(console_.text().contains("обновлен"));
}

TEST_F(LoadingAProject, ACancelledReconnectionKeepsTheOldParameters)
{
    saved_.sqlPass = "wrong";
    load();
    EXPECT_EQ(console_.take(), foldersGood() + "Соединение с БД: Ошибка соединения \n" + troubleMessage());
    EXPECT_EQ(dialogs_.asked, (QStringList{"connection:" + saved_.buildConnInfo(), troubleText()}));
    expectUntouched();
    EXPECT_FALSE(session_.connection.isOpen()) << "nothing was open before";
}

TEST_F(LoadingAProject, AnsweringTheReconnectionTriesAgainAndRewritesTheFile)
{
    const ConnectionParameters good{saved_.sqlHost, saved_.sqlPort, saved_.sqlDatabase, saved_.sqlUser, saved_.sqlPass};
    ConnectionParameters named = good;
    named.host = "localhost";
    dialogs_.connections << named << good;
    saved_.sqlPass = "wrong";
    load();
    EXPECT_EQ(console_.take(),
              foldersGood()
                  + "Соединение с БД: Ошибка соединения \nПовторная попытка соединения...\n"
                    "Ошибка соединения \nПовторная попытка соединения...\nУспешно \n"
                    "\nУстановлена текущая позичия проекта ID: 1 'Позиция 1'\n"
                  + loaded() + "Файл проекта обновлен с новыми параметрами.\n");
    EXPECT_EQ(dialogs_.asked,
              (QStringList{"connection:" + saved_.buildConnInfo(), "connection:" + mainConnInfo(named)}));
    EXPECT_EQ(session_.buildConnInfo(), mainConnInfo(good));
    QFile file(path_);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(mainConnInfo(readProjectFile(file, session_)->database), mainConnInfo(good));
}

TEST_F(LoadingAProject, AChangedDatabaseAloneDoesNotRewriteTheFile)
{
    const ConnectionParameters good{saved_.sqlHost, saved_.sqlPort, saved_.sqlDatabase, saved_.sqlUser, saved_.sqlPass};
    dialogs_.connections << good;
    saved_.sqlDatabase = "terva_no_such_database";
    saved_.sqlPort = "5";
    load();
    EXPECT_EQ(session_.sqlDatabase, good.database);
    EXPECT_TRUE(console_.text().endsWith(loaded())) << console_.text();
    QFile file(path_);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("terva_no_such_database"));
}

TEST_F(LoadingAProject, ADatabaseWithoutProjectsAsksForAnother)
{
    TestDatabase empty(TestDatabase::Content::Empty);
    saved_.sqlDatabase = empty.name();
    load();
    const QString text = console_.take();
    EXPECT_TRUE(text.contains("Соединение с БД: Проверка прав доступа к 'projects': ОШИБКА (")) << text;
    EXPECT_TRUE(text.endsWith(")\nОшибка соединения \n" + troubleMessage())) << text;
    expectUntouched();
}

TEST_F(LoadingAProject, AnotherServerKindCannotConnect)
{
    saved_.sqlType = 1;
    load();
    EXPECT_TRUE(console_.text().contains("Ошибка соединения \n"));
    expectUntouched();
}

TEST_F(LoadingAProject, NoPositionIsReportedAsMinusOne)
{
    saved_.saveProject();
    QFile file(path_);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray text = file.readAll();
    file.close();
    text.replace("<PositionID Value=\"1\"/>", "<PositionID Value=\"\"/>");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    session_.loadProject(path_);
    EXPECT_TRUE(console_.text().contains("\nУстановлена текущая позичия проекта ID: -1 ''\n")) << console_.text();
    EXPECT_EQ(session_.currentPositionId, -1);
    EXPECT_TRUE(console_.text().endsWith(loaded()));
}

TEST_F(LoadingAProject, APositionThatIsGoneIsTold)
{
    saved_.currentPositionId = 1000;
    load();
    EXPECT_TRUE(console_.text().contains("Успешно \n\nНе установлена текущая позичия проекта\n")) << console_.text();
    EXPECT_TRUE(console_.text().endsWith(loaded()));
    EXPECT_EQ(session_.currentPositionId, -1);
    EXPECT_EQ(session_.projectFile, path_);
}

TEST_F(LoadingAProject, AMissingPositionOfTheSameDatabaseLeavesThePositionBefore)
{
    load();
    ASSERT_EQ(session_.currentPositionId, 1);
    saved_.currentPositionId = 1000;
    load();
    EXPECT_EQ(session_.projectId, 7);
    EXPECT_EQ(session_.currentPositionId, 1);
}

// --- from one database to another ---------------------------------------------------

/// A project A is open, at its position 1; B lies in a database of its own.
class LoadingAnother : public LoadingAProject {
protected:
    void SetUp() override
    {
        LoadingAProject::SetUp();
        database_.exec("insert into cycles (cycle_id, number) overriding system value values (3, 1)");
        saved_.baseCycleId = 3;
        load();
        ASSERT_EQ(session_.currentPositionId, 1);
        ASSERT_EQ(session_.cycles.keys(), QList<int>{3});
        second_.exec("insert into projects (project_id, name) overriding system value values (8, 'Второй')");
        saved_.sqlDatabase = second_.name();
        saved_.tempDir = folder_.filePath("work");
        saved_.baseCycleId = -1;
        console_.take();
    }

    QString connectedTo() { return session_.run("select current_database()").getvalue(0, 0); }

    void expectFirstProject()
    {
        EXPECT_EQ(connectedTo(), database_.name());
        EXPECT_TRUE(session_.connected);
        EXPECT_EQ(session_.sqlDatabase, database_.name());
        EXPECT_EQ(session_.projectId, 7);
        EXPECT_EQ(session_.projectName, QString("Город"));
        EXPECT_EQ(session_.currentPositionId, 1);
        EXPECT_EQ(session_.tempDir, folder_.filePath("temp"));
        EXPECT_EQ(session_.cycles.keys(), QList<int>{3});
        EXPECT_TRUE(session_.checkConnection());
        EXPECT_EQ(connectedTo(), database_.name());
    }

    TestDatabase second_;
};

TEST_F(LoadingAnother, LeavesNoIdOfTheFirstBehind)
{
    const QString drawing = session_.currentDrawingPath;
    ASSERT_TRUE(ncDocManagerPtr()->findByFileName(drawing));
    saved_.currentPositionId = 1; // B has no such position
    load();
    EXPECT_TRUE(console_.text().contains("\nНе установлена текущая позичия проекта\n")) << console_.text();
    EXPECT_EQ(connectedTo(), second_.name());
    EXPECT_EQ(session_.projectId, 8);
    EXPECT_EQ(session_.currentPositionId, -1);
    EXPECT_EQ(session_.currentPositionName + session_.currentObjectName, QString());
    EXPECT_EQ(session_.currentFileId, -1);
    EXPECT_TRUE(session_.cycles.isEmpty());
    EXPECT_EQ(session_.baseCycleId, -1);
    EXPECT_EQ(ncDocManagerPtr()->findByFileName(drawing), nullptr) << "although the folder is another now";
}

TEST_F(LoadingAnother, ThatLacksAFolderEndsOnTheFirst)
{
    const QString before = session_.run("select pg_backend_pid()").getvalue(0, 0);
    saved_.workDir = folder_.filePath("нет");
    load();
    EXPECT_TRUE(console_.text().endsWith(troubleMessage())) << console_.text();
    expectFirstProject();
    EXPECT_NE(session_.run("select pg_backend_pid()").getvalue(0, 0), before) << "opened anew";
}

TEST_F(LoadingAnother, ThatDoesNotConnectEndsOnTheFirst)
{
    const ConnectionParameters other{saved_.sqlHost, "1", "db", "u", "p"};
    dialogs_.connections << other;
    saved_.sqlPass = "wrong";
    load();
    EXPECT_EQ(dialogs_.asked.value(1), "connection:" + mainConnInfo(other)) << "what was typed last is shown again";
    expectFirstProject();
}

TEST_F(LoadingAnother, WithoutRightsEndsOnTheFirst)
{
    PlainRole role(second_);
    saved_.sqlUser = role.name();
    saved_.sqlPass = "plain";
    load();
    EXPECT_TRUE(console_.text().contains("Проверка прав доступа к 'projects': ОШИБКА (")) << console_.text();
    expectFirstProject();
    EXPECT_TRUE(session_.superuser);
}

TEST_F(LoadingAnother, AfterAMereTestOfAThirdEndsOnTheFirstToo)
{
    session_.sqlDatabase = "tested_only";
    saved_.sqlPass = "wrong";
    load();
    EXPECT_EQ(connectedTo(), database_.name());
    EXPECT_EQ(session_.sqlDatabase, QString("tested_only")) << "the page keeps what was typed there";
}

TEST_F(LoadingAnother, EndsDisconnectedWithALineWhereTheFirstIsGone)
{
    second_.exec("alter database " + database_.name() + " allow_connections false");
    saved_.workDir = folder_.filePath("нет");
    load();
    second_.exec("alter database " + database_.name() + " allow_connections true");
    EXPECT_TRUE(console_.text().endsWith("Соединение с базой данных прежнего проекта потеряно\n" + troubleMessage()))
        << console_.text();
    EXPECT_FALSE(session_.connected);
    EXPECT_FALSE(session_.connection.isOk());
    EXPECT_EQ(session_.projectId, 7);
    EXPECT_TRUE(session_.checkConnection()) << "and heals like any lost connection";
    EXPECT_EQ(connectedTo(), database_.name());
}

TEST_F(LoadingAProject, ListsAreReadInAnOrderInWhichPredictionsKnowTheirCycles)
{
    database_.exec("insert into cycles (cycle_id, number) overriding system value values (3, 11), (4, 12);"
                   "insert into dm_predictions (prediction_id, name, prediction_date, begin_cycle_id, end_cycle_id) "
                   "overriding system value values (5, 'Прогноз', '2030-01-01', 3, 4)");
    load();
    EXPECT_EQ(session_.predictions.value(5).mid(2, 2), (QStringList{"Цикл 11", "Цикл 12"}));
}

TEST_F(LoadingAProject, StatesOfTheFileAreTakenIfTheyExist)
{
    database_.exec("insert into states (state_id, note) values ('lost', 'Утрачен')");
    saved_.stateFilter = {{"lost", "по-своему"}, {"unknown", "нет"}};
    load();
    EXPECT_EQ(session_.stateFilter, (QMap<QString, QString>{{"lost", "по-своему"}}));
}

TEST_F(LoadingAProject, AFilterOfUnknownStatesIsEmpty)
{
    saved_.stateFilter = {{"unknown", "нет"}};
    session_.stateFilter = {{"x", "y"}};
    load();
    EXPECT_TRUE(session_.stateFilter.isEmpty());
}

TEST_F(LoadingAProject, NoFilterShowsAllStates)
{
    load();
    EXPECT_EQ(session_.stateFilter, (QMap<QString, QString>{{"exist", "Существующий"}}));
}

TEST_F(LoadingAProject, ChoosingStartsFromTheProjectsFile)
{
    saved_.saveProject();
    session_.projectFile = "/до.terva";
    session_.chooseAndLoadProject();
    EXPECT_EQ(dialogs_.asked, QStringList{"open:/до.terva"});
    EXPECT_EQ(console_.text(), QString());
    dialogs_.answers << path_;
    session_.chooseAndLoadProject();
    EXPECT_EQ(session_.projectFile, path_);
}

TEST_F(LoadingAProject, WithoutDialogsEveryQuestionCountsAsCancelled)
{
    setProjectDialogs(nullptr);
    saved_.sqlPass = "wrong";
    load();
    EXPECT_TRUE(console_.text().endsWith(troubleMessage()));
    session_.chooseAndLoadProject();
    session_.saveProjectAs();
    expectUntouched();
}

} // namespace
