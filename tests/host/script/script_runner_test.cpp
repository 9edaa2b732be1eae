// What a script does, and where it stops when things do not go as written.
#include <script/script_runner.h>

#include <commands/host_commands.h>
#include <drawing/application.h>
#include <render/active_view.h>
#include <script/watchdog.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QFile>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

// Commands of the test: each asks and prints as modules do.
void askKeywordCommand(const QStringList&)
{
    QString answer;
    ncedInitGet(0, QStringLiteral("Да Нет _ Yes No"));
    const int status = ncedGetKword(QStringLiteral("Выполнять вставку [Да/Нет] <Да>"), answer);
    ncutPrintf(L"\nСтатус %d '%ls'", status, answer.toStdWString().c_str());
}

void askAllCommand(const QStringList&)
{
    NcGePoint3d point;
    double real = 0.0;
    int integer = 0;
    QString text;
    ncedGetPoint(nullptr, QStringLiteral("\nТочка: "), point);
    ncedGetReal(QStringLiteral("\nВысота <1.0>: "), real);
    ncedGetInt(QStringLiteral("\nНомер: "), integer);
    ncedGetString(true, QStringLiteral("\nИмя: "), text);
    ncutPrintf(L"\n%.1f %.1f %.2f %d %ls\n", point.x, point.y, real, integer, text.toStdWString().c_str());
}

void boxCommand(const QStringList&)
{
    const auto pressed = QMessageBox::question(nullptr, QStringLiteral("Внимание"), QStringLiteral("Удалить элемент?"));
    ncutPrintf(pressed == QMessageBox::Yes ? L"\nудалён" : L"\nоставлен");
}

// A form whose button asks before it closes.
void formCommand(const QStringList&)
{
    QDialog form;
    form.setWindowTitle(QStringLiteral("Параметры"));
    QVBoxLayout column(&form);
    auto* name = new QLineEdit;
    name->setObjectName(QStringLiteral("NameEdit"));
    auto* on = new QCheckBox(QStringLiteral("Включено"));
    on->setObjectName(QStringLiteral("OnBox"));
    auto* ok = new QPushButton(QStringLiteral("&Принять"));
    ok->setObjectName(QStringLiteral("OkBTN"));
    for (QWidget* widget : std::initializer_list<QWidget*>{name, on, ok})
        column.addWidget(widget);
    QObject::connect(ok, &QPushButton::clicked, &form, [&] {
        if (QMessageBox::question(&form, QStringLiteral("Вопрос"), QStringLiteral("Точно?")) == QMessageBox::Yes)
            form.accept();
    });
    const bool accepted = form.exec() == QDialog::Accepted;
    ncutPrintf(accepted ? L"\nпринято %ls %d" : L"\nотменено %ls %d", name->text().toStdWString().c_str(),
               int(on->isChecked()));
}

void inputCommand(const QStringList&)
{
    bool ok = false;
    const QString text = QInputDialog::getText(nullptr, QStringLiteral("Ввод"), QStringLiteral("Имя слоя"),
                                               QLineEdit::Normal, QStringLiteral("0"), &ok);
    ncutPrintf(L"\nслой %ls %d", text.toStdWString().c_str(), int(ok));
}

class ScriptRunnerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        registerHostCommands();
        closeAllDocuments();
        openStartDocument();
        addHostCommand(QStringLiteral("ASK"), askKeywordCommand);
        addHostCommand(QStringLiteral("ASKALL"), askAllCommand);
        addHostCommand(QStringLiteral("BOX"), boxCommand);
        addHostCommand(QStringLiteral("FORM"), formCommand);
        addHostCommand(QStringLiteral("INPUT"), inputCommand);
        runner.setStepTimeout(1.0);
    }

    void plays(const char* text)
    {
        const bool good = runner.playText(QString::fromUtf8(text), QStringLiteral("t.txt"));
        EXPECT_TRUE(good) << (runner.failure() ? runner.failure()->toString().toStdString() : std::string());
    }

    // Stops at the line, for a reason that holds the text.
    void stops(const char* text, int line, const char* reason)
    {
        EXPECT_FALSE(runner.playText(QString::fromUtf8(text), QStringLiteral("t.txt")));
        ASSERT_TRUE(runner.failure().has_value());
        EXPECT_EQ(runner.failure()->line, line) << runner.failure()->toString().toStdString();
        EXPECT_TRUE(runner.failure()->text.contains(QString::fromUtf8(reason)))
            << runner.failure()->toString().toStdString();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }

    ScriptRunner runner;
};

} // namespace

TEST_F(ScriptRunnerTest, AnswersAreGivenInOrderAndEchoed)
{
    plays("command ASK\n"
          "prompt \"Выполнять вставку\"\n"
          "keyword Нет\n"
          "expect \"Статус 5100 'No'\"\n");
    EXPECT_TRUE(runner.console().text().contains(QStringLiteral("Команда: ASK\nВыполнять вставку [Да/Нет] <Да> Нет\n")))
        << runner.console().text().toStdString();
}

TEST_F(ScriptRunnerTest, EnterIsAnEmptyAnswerAndEscACancel)
{
    plays("command ASK\nenter\nexpect \"Статус 5000\"\ncommand ASK\nesc\nexpect \"Статус -5002\"");
}

TEST_F(ScriptRunnerTest, EveryKindOfPromptHasItsVerb)
{
    plays("command ASKALL\npoint 10,20\nreal 2.5\ninteger 7\nstring \"ТС 1\"\nexpect line \"10.0 20.0 2.50 7 ТС 1\"");
    plays("command ASKALL\nanswer 1,2\nanswer 3\nanswer 4\nanswer имя\nexpect \"1.0 2.0 3.00 4 имя\"");
}

TEST_F(ScriptRunnerTest, AMessageBoxIsReadAndAnswered)
{
    plays("command BOX\ndialog \"Внимание\"\ntext \"Удалить элемент?\"\npress \"Да\"\nexpect \"удалён\"");
    plays("command BOX\ndialog \"Внимание\"\ntext contains элемент\npress No\nexpect оставлен\nexpect no удалён");
}

TEST_F(ScriptRunnerTest, AFormIsFilledAndANestedBoxAnswered)
{
    plays("command FORM\n"
          "dialog Параметры\n"
          "set NameEdit \"ТС.1\"\n"
          "check NameEdit ТС.1\n"
          "set OnBox on\n"
          "press OkBTN\n"
          "dialog Вопрос\n"
          "press Нет\n"
          "state OkBTN enabled\n"
          "press Принять\n"
          "dialog Вопрос\n"
          "press Да\n"
          "expect \"принято ТС.1 1\"\n");
}

TEST_F(ScriptRunnerTest, AFormCanBeClosed) { plays("command FORM\ndialog *\nclose\nexpect \"отменено  0\""); }

TEST_F(ScriptRunnerTest, AnInputDialogHasItsField)
{
    plays("command INPUT\ndialog Ввод\ntext \"Имя слоя\"\ncheck input 0\nset input Карта\npress ОК\nexpect \"слой "
          "Карта 1\"");
}

TEST_F(ScriptRunnerTest, VariablesComeFromTheCallerTheScriptAndTheEnvironment)
{
    runner.setVariable(QStringLiteral("WORD"), QStringLiteral("раз"));
    qputenv("TERVA_TEST_WORD", "три");
    plays("let NEXT два\necho ${WORD} ${NEXT} ${TERVA_TEST_WORD}\nexpect \"раз два три\"");
}

TEST_F(ScriptRunnerTest, AnIncludedFileIsPlayedInPlace)
{
    QTemporaryDir folder;
    QFile inner(folder.filePath(QStringLiteral("inner.txt")));
    ASSERT_TRUE(inner.open(QIODevice::WriteOnly));
    inner.write("command ASK\nkeyword Да\n\ncount 5\n");
    inner.close();
    QFile outer(folder.filePath(QStringLiteral("outer.txt")));
    ASSERT_TRUE(outer.open(QIODevice::WriteOnly));
    outer.write("echo начало\ninclude inner.txt\n");
    outer.close();
    EXPECT_FALSE(runner.playFile(outer.fileName()));
    EXPECT_EQ(runner.failure()->file, inner.fileName());
    EXPECT_EQ(runner.failure()->line, 4);
    EXPECT_TRUE(runner.console().text().contains(QStringLiteral("<Да> Да")));
}

TEST_F(ScriptRunnerTest, OwnVerbsAreCalledWithTheirWords)
{
    QStringList seen;
    runner.addVerb(QStringLiteral("sql"), [&](const QStringList& words) {
        seen << words;
        return words.size() == 2 ? QString() : QStringLiteral("не так");
    });
    plays("sql \"select 1\" 1");
    EXPECT_EQ(seen, (QStringList{"select 1", "1"}));
    stops("echo\nsql", 2, "не так");
}

TEST_F(ScriptRunnerTest, TheDrawingIsCounted)
{
    plays("command LINE\npoint 0,0\npoint 10,0\npoint 10,10\nenter\n"
          "command CIRCLE\npoint 5,5\nreal 2\n"
          "count 3\ncount 2 class=NcDbLine\ncount >=1 layer=0\ncount 0 class=NcDbText\n"
          "command SELECT\nselect class=NcDbLine\nexpect \"Выбрано объектов: 2\"\n"
          "command ERASE\nexpect \"Удалено объектов: 2\"\ncount 1\n"
          "command ERASE\nselect 7,5\nexpect \"Удалено объектов: 1\"\ncount 0");
}

TEST_F(ScriptRunnerTest, GroupsAreErasedByTheirNames)
{
    const auto group = [](const char* name, double x) {
        NcDbDatabase* drawing = ncdbHostApplicationServices()->workingDatabase();
        NcDbBlockTableRecord* space = nullptr;
        ncdbOpenObject(space, drawing->currentSpaceId(), kForWrite);
        auto* point = new NcDbPoint(NcGePoint3d(x, 0, 0));
        NcDbObjectId id, groupId;
        space->appendNcDbEntity(id, point);
        point->close();
        space->close();
        NcDbDictionary* groups = nullptr;
        drawing->getGroupDictionary(groups, kForWrite);
        auto* made = new NcDbGroup;
        groups->setAt(QString::fromLatin1(name), made, groupId);
        made->append(id);
        made->close();
        groups->close();
    };
    plays("command LAYER\nkeyword Make\nstring L");
    group("MAP_A", 0);
    group("MAP_B", 1);
    group("OTHER", 2);
    plays("command ERASEGROUP\nstring map_*\nexpect \"Удалено групп: 2, объектов: 2\"\ncount 1\n"
          "command ERASEGROUP\nstring map_*\nexpect \"Удалено групп: 0, объектов: 0\"\n"
          "command LAYER\nkeyword Lock\nstring 0\n"
          "command ERASEGROUP\nstring OTHER\nexpect \"Осталось групп, слой которых закрыт: 1\"\ncount 1\n"
          "command LAYER\nkeyword Unlock\nstring 0\n"
          "command ERASEGROUP\nstring *\nexpect \"Удалено групп: 1, объектов: 1\"\ncount 0");
}

TEST_F(ScriptRunnerTest, ColoursAreChosenInTheHostsDialog)
{
    addHostCommand(QStringLiteral("INDEX"), [](const QStringList&) {
        int index = 7;
        const bool chosen = ncedSetColorDialog(index, false);
        ncutPrintf(L"\nномер %d %d", index, int(chosen));
    });
    addHostCommand(QStringLiteral("TRUECOLOR"), [](const QStringList&) {
        NcCmColor color = NcCmColor::fromIndex(3);
        const bool chosen = ncedSetColorDialogTrueColor(color);
        ncutPrintf(L"\nцвет %d,%d,%d %d", color.red(), color.green(), color.blue(), int(chosen));
    });
    plays("command INDEX\ndialog \"Выбор цвета\"\ncheck colorValue 7\ncolor 5\nexpect \"номер 5 1\"");
    plays("command INDEX\ndialog \"Выбор цвета\"\nclose\nexpect \"номер 7 0\"");
    plays("command TRUECOLOR\ndialog \"Выбор цвета\"\ncolor 10,20,30\nexpect \"цвет 10,20,30 1\"");
    plays("command TRUECOLOR\ndialog *\npress Другой…\ndialog \"Другой цвет\"\ncolor 1,2,3\npress OK\nexpect \"цвет "
          "1,2,3 1\"");
}

TEST_F(ScriptRunnerTest, CommandsThatModulesQueueAreTheHosts)
{
    addHostCommand(QStringLiteral("QUEUE"), [](const QStringList&) {
        ncedCommand(
            {QStringLiteral("_.zoom"), QStringLiteral("_Center"), QStringLiteral("10,20"), QStringLiteral("50")});
        ncDocManagerPtr()->sendStringToExecute(ncDocManagerPtr()->curDocument(), QStringLiteral("_regen\n"));
    });
    plays("command QUEUE");
    const ActiveView view = activeView(*ncDocManagerPtr()->curDocument()->database());
    EXPECT_EQ(view.center, QPointF(10, 20));
    EXPECT_EQ(view.height, 50.0);
    EXPECT_FALSE(runner.console().text().contains(QStringLiteral("Неизвестная")))
        << runner.console().text().toStdString();
}

TEST_F(ScriptRunnerTest, FilesAreChecked)
{
    QTemporaryDir folder;
    runner.setVariable(QStringLiteral("OUT"), folder.path());
    plays("missing ${OUT}/a.svg\ncommand CIRCLE\npoint 0,0\nreal 5\n"
          "command EXPORT\nstring ${OUT}/a.svg\nenter\nexists ${OUT}/a.svg\nfile-contains ${OUT}/a.svg \"<svg\"");
    stops("exists ${OUT}/b.svg", 1, "нет файла");
    stops("file-contains ${OUT}/a.svg слон", 1, "слон");
}

// --- where it stops

TEST_F(ScriptRunnerTest, StopsAtAnUnknownWord) { stops("\necho\nprees OK", 3, "неизвестное слово «prees»"); }

TEST_F(ScriptRunnerTest, StopsAtAnUnknownCommand) { stops("echo\ncommand NOSUCH", 2, "нет команды «NOSUCH»"); }

TEST_F(ScriptRunnerTest, StopsWhenAPromptIsNotAnswered)
{
    stops("command ASK\ncommand ASK", 2, "остался без ответа");
    stops("command ASK", 1, "остался без ответа");
}

TEST_F(ScriptRunnerTest, StopsAtALeftOverAnswer) { stops("command ASK\nkeyword Да\nkeyword Нет\n", 3, "без вопроса"); }

TEST_F(ScriptRunnerTest, StopsWhenThePromptIsAnother)
{
    stops("command ASK\nprompt \"Имя скважины\"\nkeyword Да", 2, "ожидался запрос «Имя скважины»");
}

TEST_F(ScriptRunnerTest, StopsWhenTheAnswerDoesNotFit)
{
    stops("command ASK\nkeyword Может", 2, "не подходит");
    stops("command ASK\npoint 1,2", 2, "спрашивают не то");
    stops("command ASKALL\npoint 1,x", 2, "не подходит");
}

TEST_F(ScriptRunnerTest, StopsWhenTheConsoleSaysElse)
{
    stops("command ASK\nkeyword Да\nexpect \"Статус 1\"", 3, "нет текста");
    stops("command ASK\nkeyword Да\nexpect no \"Статус\"", 3, "в консоли есть");
}

TEST_F(ScriptRunnerTest, StopsAtAWrongTitleOrText)
{
    stops("command BOX\ndialog Ошибка\npress Да", 2, "ожидалось окно «Ошибка», открылось «Внимание»");
    stops("command BOX\ndialog Внимание\ntext Стереть?\npress Да", 3, "встречено «Удалить элемент?»");
}

TEST_F(ScriptRunnerTest, StopsAtAWindowThatIsNotExpected)
{
    stops("command BOX\necho дальше", 2, "о котором в сценарии нет речи");
    stops("command FORM\ndialog Параметры\npress OkBTN\npress OkBTN", 4, "«Вопрос»");
}

TEST_F(ScriptRunnerTest, StopsWhenAWindowDoesNotCome)
{
    stops("command ASK\nkeyword Да\ndialog Внимание\npress Да", 3, "без окна");
    stops("command FORM\ndialog Параметры\nset NameEdit a\ndialog Внимание", 4, "не дождались");
}

// Whose steps are to fail waits for no clock, and misses nothing that comes.
TEST_F(ScriptRunnerTest, PatienceCountsLooksAtWhatIsAtRest)
{
    runner.setStepTimeout(3600.0);
    runner.setPatience(20);
    stops("command FORM\ndialog Параметры\nset NameEdit a\ndialog Внимание", 4, "не дождались");
    stops("press Да", 1, "без окна");
    plays("command FORM\ndialog Параметры\npress OkBTN\ndialog Вопрос\npress Да\ncommand BOX\ndialog Внимание\n"
          "press Нет");
}

TEST_F(ScriptRunnerTest, StopsWhenAWindowIsForgotten)
{
    stops("command FORM\ndialog Параметры\nset NameEdit a\n", 3, "ждёт, а сценарий о нём молчит");
}

TEST_F(ScriptRunnerTest, StopsAtAWidgetThatIsNotThereOrIsAnother)
{
    stops("command FORM\ndialog Параметры\nset Nothing a", 3, "нет поля «Nothing»");
    stops("command FORM\ndialog Параметры\ncheck NameEdit b", 3, "ожидалось «b»");
    stops("command FORM\ndialog Параметры\nset OnBox maybe", 3, "on или off");
    stops("command FORM\ndialog Параметры\npress Отмена", 3, "нет кнопки");
    stops("command FORM\ndialog Параметры\nset NameEdit", 3, "неверное число слов");
}

TEST_F(ScriptRunnerTest, StopsAtWrongCountsAndQueries)
{
    stops("count 1", 1, "ожидалось 1, встречено 0");
    stops("count много", 1, "не число");
    stops("count 0 слой", 1, "непонятное условие");
}

TEST_F(ScriptRunnerTest, StopsAtBadLines)
{
    stops("echo \"a", 1, "кавычка");
    stops("echo ${NO_SUCH_VARIABLE}", 1, "NO_SUCH_VARIABLE");
    stops("include нет.txt", 1, "не читается");
    stops("timeout сейчас", 1, "неверные слова");
}

TEST_F(ScriptRunnerTest, AFailureInsideACommandStillEndsTheCommand)
{
    stops("command ASKALL\npoint 1,2\nexpect \"такого нет\"\nreal 1", 3, "нет текста");
    EXPECT_TRUE(activeCommand().isEmpty());
    plays("command ASK\nkeyword Да");
}

TEST_F(ScriptRunnerTest, AMissingFileIsAFailureWithoutALine)
{
    EXPECT_FALSE(runner.playFile(QStringLiteral("/нет/такого.txt")));
    EXPECT_EQ(runner.failure()->line, 0);
}

TEST(Watchdog, BitesWhenTheBeatsStopAndNotBefore)
{
    std::atomic<int> bites{0};
    Watchdog watchdog([&] { ++bites; });
    watchdog.setLimit(300);
    for (int i = 0; i < 8; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        watchdog.beat();
    }
    EXPECT_EQ(bites, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(900));
    EXPECT_EQ(bites, 1);
}
