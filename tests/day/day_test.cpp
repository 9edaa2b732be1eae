// A day of work as an engineer has it: by key and mouse, in the real program on a
// screen with a window manager, on a real database. What came of it is read by others: from the
// database, by an independent library from the saved drawing, from the printed page.
#include "desk.h"
#include "scenario.h"
#include "support/test_database.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QSettings>
#include <gtest/gtest.h>

namespace {

const QString common() { return scenarioFolder(QStringLiteral("common")); }

class Day : public ::testing::Test {
protected:
    static void SetUpTestSuite() { screen_ = new Screen(QSize(1366, 768)); }
    static void TearDownTestSuite() { delete screen_; }

    void SetUp() override
    {
        ASSERT_TRUE(TestServer::isKnown());
        ASSERT_FALSE(screen_->display().isEmpty()) << "Xvfb and openbox are wanted: tools/setup test";
        database_.exec(readText(common() + "/base.sql", {}) + readText(common() + "/wells.sql", {}));
        const Variables variables = {
            {"HOST", TestServer::host()},
            {"PORT", TestServer::port()},
            {"USER", TestServer::user()},
            {"PASSWORD64", QString::fromLatin1(TestServer::password().toUtf8().toBase64())},
            {"DATABASE", database_.name()},
            {"FOLDER", folder_.path()},
            {"PROJECT", path("project.terva")},
        };
        ASSERT_TRUE(layFiles("common", folder_.path(), variables));
        QSettings settings(path("settings.ini"), QSettings::IniFormat);
        settings.setValue("keepSeconds", 1);
        settings.sync();
        desk_ = std::make_unique<Desk>(*screen_, folder_.path());
    }

    void TearDown() override { EXPECT_EQ(desk_->missed(), QStringList()); }

    QString path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    QString drawingPath() const { return path("temp/positionID1.dwg"); }

    /// The program with the project open and all wells on the drawing.
    void openSample()
    {
        ASSERT_TRUE(desk_->start({path("project.terva")}));
        ASSERT_TRUE(desk_->waitFor("title", "Позиция 1"));
        ASSERT_TRUE(desk_->waitFor("content commandHistory", "Успешная загрузка проекта"));
        desk_->choose({"Чертёж", "TERVA_SYNC_DB_DWG"});
        waitForPrompt("Команда:");
        showAll();
    }
    void showAll() { desk_->keys({"F4"}); }
    void waitForPrompt(const char* text)
    {
        EXPECT_TRUE(desk_->waitFor("content commandPrompt", QString::fromUtf8(text)));
    }
    void clickWorld(double x, double y) { desk_->click(QStringLiteral("world %1 %2").arg(x).arg(y)); }
    QJsonObject saved()
    {
        desk_->keys({"ctrl+s"});
        EXPECT_TRUE(desk_->waitFor("content commandHistory", "Сохранён чертёж " + drawingPath()));
        const QJsonObject drawing = readDrawing(drawingPath());
        EXPECT_FALSE(drawing.isEmpty()) << "the library reads it";
        EXPECT_EQ(drawing["faults"].toArray().size(), 0);
        return drawing;
    }
    static QJsonObject block(const QJsonObject& drawing, const QString& name)
    {
        for (const QJsonValue& each : drawing["blocks"].toArray())
            if (each.toObject()["name"].toString() == name)
                return each.toObject();
        ADD_FAILURE() << name << " is not on the drawing";
        return {};
    }
    static int count(const QJsonObject& drawing, const char* kind)
    {
        return drawing["kinds"].toObject()[QLatin1String(kind)].toInt();
    }

    static Screen* screen_;
    TestDatabase database_;
    QTemporaryDir folder_;
    std::unique_ptr<Desk> desk_;
};

Screen* Day::screen_ = nullptr;

} // namespace

TEST_F(Day, AWellIsInsertedItsLabelMovedAllSynchronisedAndUndone)
{
    openSample();
    // Inserted by a click between the others.
    desk_->choose({"Элементы", "Вставить", "TERVA_INSERT_TS"});
    waitForPrompt("циклическую");
    desk_->enter("Yes"); // the keyword's name that is no Cyrillic
    waitForPrompt("Высота");
    desk_->enter("0.75");
    waitForPrompt("очка");
    clickWorld(300, 300);
    desk_->keys({"Escape"});
    waitForPrompt("Команда:");
    const QVector<QStringList> row =
        database_.rows("select x, y, position_id, h from ts_elements where element_id > 8");
    ASSERT_EQ(row.size(), 1);
    EXPECT_NEAR(row[0][0].toDouble(), 300.0, 2.0) << "where it was clicked, to a dot or two";
    EXPECT_NEAR(row[0][1].toDouble(), 300.0, 2.0);
    EXPECT_EQ(row[0][2], QString("1"));
    EXPECT_EQ(row[0][3].toDouble(), 0.75);
    const QString name = database_.value("select element_name from ts_elements where element_id > 8");

    // Its label is pulled by its grip, from so near that the grips stand apart.
    desk_->enter("ZOOM");
    waitForPrompt("Показать");
    desk_->enter("Center");
    waitForPrompt("ентр");
    desk_->enter(row[0][0] + "," + row[0][1]);
    waitForPrompt("ысота");
    desk_->enter("60");
    waitForPrompt("Команда:");
    clickWorld(row[0][0].toDouble(), row[0][1].toDouble());
    ASSERT_TRUE(desk_->waitFor("picked", "NcDbBlockReference"));
    const QJsonObject before = block(saved(), name);
    const QPoint grip = desk_->find("grip Положение1 X").center();
    desk_->drag(grip, grip + QPoint(60, -80));
    const QJsonObject pulled = block(saved(), name);
    EXPECT_GT(pulled["labelX"].toDouble(), before["labelX"].toDouble() + 5.0);
    EXPECT_GT(pulled["labelY"].toDouble(), before["labelY"].toDouble() + 5.0);
    EXPECT_EQ(pulled["x"].toDouble(), before["x"].toDouble()) << "the well stays";

    // A well itself is moved, and the drawing carried into the database.
    desk_->keys({"Escape"});
    showAll();
    clickWorld(500, 500);
    ASSERT_TRUE(desk_->waitFor("picked", "NcDbBlockReference"));
    desk_->enter("MOVE");
    waitForPrompt("азовая");
    desk_->enter("0,0");
    waitForPrompt("еренести");
    desk_->enter("-25,40");
    waitForPrompt("Команда:");
    desk_->choose({"Чертёж", "TERVA_SYNC_DWG_DB"});
    waitForPrompt("Синхронизировать");
    desk_->enter("Position");
    waitForPrompt("Команда:");
    EXPECT_EQ(database_.value("select x || ' ' || y from ts_elements where element_id = 8"), QString("475 540"));
    EXPECT_EQ(database_.value("select count(*) from ts_elements where position_id = 1"), QString("8"));

    // Undone back to before the move: the drawing alone, the rows stay.
    EXPECT_EQ(block(saved(), "Т8")["x"].toDouble(), 475.0);
    desk_->enter("U");
    desk_->keys({"ctrl+z"});
    waitForPrompt("Команда:");
    EXPECT_EQ(block(saved(), "Т8")["x"].toDouble(), 500.0);
    EXPECT_EQ(database_.value("select x from ts_elements where element_id = 8"), QString("475"));
    EXPECT_TRUE(desk_->ask("content commandHistory").contains("Отменено: "));
}

TEST_F(Day, AMapIsDrawnTwiceABlockPickedOnItAndASheetPrinted)
{
    database_.exec("delete from ts_elements where element_id = 8"); // far away from the others
    openSample();
    desk_->enter("PLINE");
    for (const char* point : {"0,0", "100,0", "100,100", "0,100", "0,0"}) {
        waitForPrompt("очка");
        desk_->enter(point);
    }
    waitForPrompt("Команда:");
    showAll();

    const auto drawMap = [&](const char* depth) {
        desk_->choose({"Карты", "TERVA_TEMPERATURE_MAP"});
        waitForPrompt("Укажите линию границы");
        clickWorld(30, 0);
        ASSERT_TRUE(desk_->waitFor("title", "Построение карты температур"));
        desk_->click("widget MeasData");
        desk_->keys({"Home", "Return"});
        desk_->click("widget DeepSpin");
        desk_->keys({"ctrl+a"});
        desk_->enter(depth);
        ASSERT_TRUE(desk_->waitFor("title", "Построение карты температур")) << "Enter leaves the field alone";
        if (desk_->ask("content LabelsOutEnabled") == "0")
            desk_->click("widget LabelsOutEnabled");
        desk_->click("widget okButton");
        ASSERT_TRUE(desk_->waitFor("title", "Построение изоконтуров"));
        desk_->click("widget okButton");
        ASSERT_TRUE(desk_->waitFor("title", "Терва"));
        waitForPrompt("Команда:");
    };
    ASSERT_NO_FATAL_FAILURE(drawMap("1"));
    const QJsonObject first = saved();
    EXPECT_GE(count(first, "HATCH"), 4);
    const int texts = first["texts"].toArray().size();
    EXPECT_GE(texts, 5) << "a value at each well";
    EXPECT_TRUE(first["texts"].toArray().contains("+2.00")) << "of 1 m";
    EXPECT_FALSE(first["texts"].toArray().contains("+2.50"));
    ASSERT_NO_FATAL_FAILURE(drawMap("2"));
    const QJsonObject second = saved();
    EXPECT_GT(count(second, "HATCH"), count(first, "HATCH"));
    EXPECT_TRUE(second["texts"].toArray().contains("+2.50")) << "of 2 m";
    int maps = 0;
    for (const QJsonValue& group : second["groups"].toArray())
        maps += group.toString().startsWith("TERVA_HATCH_");
    EXPECT_EQ(maps, 2);

    // A block is picked where the map lies under it.
    desk_->keys({"Escape"});
    clickWorld(40, 60); // a well without a value
    EXPECT_TRUE(desk_->waitFor("picked", "NcDbBlockReference"));
    desk_->keys({"Escape"});

    // A sheet of A4, upright, 1:1000.
    desk_->keys({"ctrl+p"});
    ASSERT_TRUE(desk_->waitFor("title", "Печать"));
    desk_->click("widget printPaper"); // its list opens; Esc closes that alone
    desk_->keys({"Escape", "Home"});
    if (desk_->ask("content printPaper") != "A4")
        desk_->keys({"End"});
    EXPECT_TRUE(desk_->waitFor("content printPaper", "A4"));
    desk_->click("widget printDirection");
    desk_->keys({"Escape", "End"});
    EXPECT_TRUE(desk_->waitFor("content printDirection", "Книжный"));
    desk_->click("widget printPdf");
    ASSERT_TRUE(desk_->waitFor("title", "Лист в PDF"));
    desk_->keys({"ctrl+a"});
    desk_->enter(path("sheet.pdf"));
    ASSERT_TRUE(desk_->waitFor("content commandHistory", "Записан файл " + path("sheet.pdf")));
    const QSizeF page = pageSize(path("sheet.pdf"));
    EXPECT_NEAR(page.width(), 210.0, 0.5);
    EXPECT_NEAR(page.height(), 297.0, 0.5);
}

TEST_F(Day, EachPaletteIsShownAndHiddenByItsMenu)
{
    openSample();
    const struct {
        const char *menu, *command, *title;
    } palettes[] = {{"Проект", "TERVA_PROJECT_EXPLORER", "Состав проекта"},
                    {"Проект", "TERVA_PROJECT_SETTINGS", "Параметры проекта"},
                    {"Элементы", "TERVA_ELEMENT_LIST", "Элементы ГМН"},
                    {"Элементы", "TERVA_OBJECT_INSPECTOR", "Элемент ГМН"}};
    for (const auto& palette : palettes) {
        const QString dock = QStringLiteral("dock ") + palette.title;
        desk_->choose({palette.menu, palette.command});
        EXPECT_TRUE(desk_->waitFor(dock, "1")) << palette.title;
        const QRect screen = desk_->find("screen");
        EXPECT_TRUE(QRect(0, 0, 1366, 768).contains(screen)) << palette.title << " keeps the window on the screen";
        desk_->choose({palette.menu, palette.command});
        EXPECT_TRUE(desk_->waitFor(dock, "0")) << palette.title;
    }
}

TEST_F(Day, AChangeIsAskedForAtTheEndAndComesBackAfterACrash)
{
    openSample();
    const int circles = count(saved(), "CIRCLE");
    desk_->enter("CIRCLE 300,300 20");
    waitForPrompt("Команда:");
    desk_->keys({"alt+F4"});
    ASSERT_TRUE(desk_->waitFor("box", "Сохранить изменения чертежа positionID1.dwg?"));
    desk_->click("button Отмена");
    ASSERT_TRUE(desk_->isRunning());
    desk_->keys({"alt+F4"});
    ASSERT_TRUE(desk_->waitFor("box", "Сохранить изменения"));
    desk_->click("button Сохранить");
    ASSERT_TRUE(desk_->waitFor("box", "сохранён, но не записан в базу данных"));
    desk_->click("button Закрыть");
    EXPECT_EQ(desk_->ended(), 0);
    EXPECT_EQ(count(readDrawing(drawingPath()), "CIRCLE"), circles + 1);

    // Another day the program dies with a change in hand.
    ASSERT_TRUE(desk_->start({drawingPath()}));
    ASSERT_TRUE(desk_->waitFor("title", "positionID1.dwg"));
    desk_->enter("CIRCLE 200,200 15");
    waitForPrompt("Команда:");
    const QDir copies(path("settings.ini.unsaved"));
    for (int i = 0; i < 100 && copies.entryList({"*.dxf.json"}, QDir::Files).isEmpty(); ++i)
        desk_->ask("title");
    ASSERT_TRUE(desk_->waitFor("title", "positionID1.dwg*"));
    desk_->kill();
    ASSERT_EQ(copies.entryList({"*.dxf"}, QDir::Files).size(), 1) << "what was kept meanwhile";
    EXPECT_EQ(count(readDrawing(drawingPath()), "CIRCLE"), circles + 1) << "nobody saved it";

    ASSERT_TRUE(desk_->start({}));
    ASSERT_TRUE(desk_->waitFor("box", "positionID1.dwg"));
    desk_->click("button Восстановить");
    ASSERT_TRUE(desk_->waitFor("title", "positionID1.dwg*"));
    EXPECT_EQ(count(saved(), "CIRCLE"), circles + 2);
    desk_->keys({"ctrl+q"});
    ASSERT_TRUE(desk_->waitFor("box", "не записан в базу данных"));
    desk_->click("button Закрыть");
    EXPECT_EQ(desk_->ended(), 0);
}

TEST_F(Day, WhatIsNotPossibleIsGreyWithItsReasonAndRecentFilesComeBack)
{
    // Without a project.
    ASSERT_TRUE(desk_->start({}));
    ASSERT_TRUE(desk_->waitFor("title", "Начало"));
    desk_->click("menu Элементы");
    desk_->click("item Вставить");
    EXPECT_TRUE(desk_->waitFor("item TERVA_INSERT_TS", "Не установлена рабочая позиция в проекте"));
    EXPECT_FALSE(desk_->ask("item TERVA_INSERT_RPGL").contains("grey")) << "this one needs none";
    desk_->keys({"Escape", "Escape", "Escape"});
    desk_->keys({"F1"});
    EXPECT_FALSE(desk_->find("widget manual").isEmpty()) << "the delivered manual";
    desk_->keys({"Escape"});

    desk_->enter("CIRCLE 0,0 5");
    waitForPrompt("Команда:");
    desk_->enter("SAVEAS");
    waitForPrompt("мя файла");
    desk_->enter(path("plan.dxf"));
    EXPECT_TRUE(desk_->waitFor("title", "plan.dxf"));
    desk_->keys({"ctrl+q"});
    EXPECT_EQ(desk_->ended(), 0);
    EXPECT_EQ(count(readDrawing(path("plan.dxf")), "CIRCLE"), 1);

    // By its name, then from what was open last.
    ASSERT_TRUE(desk_->start({path("plan.dxf")}));
    EXPECT_TRUE(desk_->waitFor("title", "plan.dxf"));
    desk_->keys({"ctrl+q"});
    EXPECT_EQ(desk_->ended(), 0);
    ASSERT_TRUE(desk_->start({}));
    ASSERT_TRUE(desk_->waitFor("title", "Начало"));
    desk_->choose({"Файл", "Недавние", path("plan.dxf")});
    EXPECT_TRUE(desk_->waitFor("title", "plan.dxf"));
    desk_->keys({"ctrl+q"});
    EXPECT_EQ(desk_->ended(), 0);
}

TEST_F(Day, WhatIsCutIsPastedAKeywordIsClickedAndALargeSheetPrinted)
{
    ASSERT_TRUE(desk_->start({}));
    ASSERT_TRUE(desk_->waitFor("title", "Начало"));
    for (const char* circle : {"CIRCLE 0,0 5", "CIRCLE 100,100 5"}) {
        desk_->enter(circle);
        waitForPrompt("Команда:");
    }
    showAll();
    clickWorld(5, 0);
    ASSERT_TRUE(desk_->waitFor("picked", "NcDbCircle"));
    desk_->keys({"ctrl+x"});
    EXPECT_TRUE(desk_->waitFor("content commandHistory", "Вырезано объектов: 1"));
    desk_->keys({"ctrl+v"});
    waitForPrompt("Точка вставки");
    clickWorld(50, 20); // its lower left corner
    EXPECT_TRUE(desk_->waitFor("content commandHistory", "Вставлено объектов: 1"));
    desk_->keys({"Escape"});
    EXPECT_EQ(desk_->ask("picked"), QString());
    clickWorld(60, 25);
    EXPECT_TRUE(desk_->waitFor("picked", "NcDbCircle"));

    // The keywords of a prompt, by the mouse: the last one, then the first.
    for (const bool last : {true, false}) {
        desk_->enter("SPACE");
        waitForPrompt("Пространство");
        const QRect words = desk_->find("widget commandKeywords");
        const QPoint at(last ? words.right() - 10 : words.left() + 10, words.center().y());
        desk_->drag(at, at);
        EXPECT_TRUE(desk_->waitFor("content commandHistory", last ? "Чертите на листе" : "Чертите в модели"));
        waitForPrompt("Команда:");
    }

    desk_->enter("PLOT");
    waitForPrompt("мя файла листа");
    desk_->enter(path("large.pdf"));
    waitForPrompt("Формат");
    desk_->enter("A1");
    waitForPrompt("Масштаб");
    desk_->enter("1:500");
    waitForPrompt("ередина");
    desk_->enter("50,50");
    waitForPrompt("Название");
    desk_->enter("План");
    EXPECT_TRUE(desk_->waitFor("content commandHistory", "Записан лист A1, 1:500"));
    const QSizeF page = pageSize(path("large.pdf"));
    EXPECT_NEAR(page.width(), 594.0, 0.5); // upright, as what is drawn
    EXPECT_NEAR(page.height(), 841.0, 0.5);
}

TEST_F(Day, ALongOpeningIsCancelled)
{
    const int lines = 250000; // which no machine reads in half a second
    QFile file(path("large.dxf"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("0\nSECTION\n2\nENTITIES\n");
    for (int i = 0; i < lines; ++i)
        file.write(QStringLiteral("0\nLINE\n8\n0\n10\n%1\n20\n%2\n30\n0\n11\n%1\n21\n0\n31\n0\n")
                       .arg(i % 500)
                       .arg(1 + i / 500)
                       .toUtf8());
    file.write("0\nENDSEC\n0\nEOF\n");
    file.close();
    ASSERT_TRUE(desk_->start({}));
    ASSERT_TRUE(desk_->waitFor("title", "Начало"));
    desk_->enter("OPEN");
    waitForPrompt("мя файла");
    desk_->enter(path("large.dxf"));
    ASSERT_TRUE(desk_->waitFor("title", "Открытие чертежа"));
    desk_->click("button Отмена");
    EXPECT_TRUE(desk_->waitFor("content commandHistory", "Чтение отменено."));
    EXPECT_FALSE(desk_->ask("title").contains("large.dxf"));
    desk_->keys({"ctrl+q"});
    EXPECT_EQ(desk_->ended(), 0);
}
