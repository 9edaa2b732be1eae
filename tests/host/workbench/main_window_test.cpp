// The window, worked by mouse and keyboard.
#include "window_fixture.h"

#include <workbench/command_table.h>
#include <workbench/layers_panel.h>

#include <script/modal_driver.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QDockWidget>
#include <QMenuBar>
#include <QTabWidget>
#include <gtest/gtest.h>

TEST_F(MainWindowTest, PointsArePickedInTheDrawing)
{
    showHundred();
    run(QStringLiteral("LINE"),
        {[&] { click(-20, 10); }, [&] { click(20, 10); }, [&] { QTest::mouseClick(view(), Qt::RightButton); }});
    EXPECT_EQ(count("NcDbLine"), 1);
    EXPECT_TRUE(history().contains(QStringLiteral("Команда: LINE\nПервая точка: -"))) << history().toStdString();
    EXPECT_EQ(prompt(), QStringLiteral("Команда:"));
}

TEST_F(MainWindowTest, AnswersAreTypedAndRefusedWhenTheyDoNotFit)
{
    run(QStringLiteral("circle"),
        {[&] { type(QStringLiteral("5,5")); }, [&] { type(QStringLiteral("много")); },
         [&] { type(QStringLiteral("2.5")); }});
    EXPECT_EQ(count("NcDbCircle"), 1);
    EXPECT_TRUE(history().contains(QStringLiteral("Нужно число.")));
}

TEST_F(MainWindowTest, WordsBehindACommandAnswerItsPrompts)
{
    window->runLine(QStringLiteral("CIRCLE 1,1 3"));
    EXPECT_EQ(count("NcDbCircle"), 1);
}

TEST_F(MainWindowTest, EscEndsACommand)
{
    run(QStringLiteral("LINE"), {[&] { QTest::keyClick(view(), Qt::Key_Escape); }});
    run(QStringLiteral("LINE"), {[&] { QTest::keyClick(edit(), Qt::Key_Escape); }});
    EXPECT_EQ(count("NcDbLine"), 0);
    EXPECT_TRUE(history().contains(QStringLiteral("*Отмена*")));
}

TEST_F(MainWindowTest, AnUnknownCommandIsSaid)
{
    window->runLine(QStringLiteral("NOSUCH"));
    EXPECT_TRUE(history().contains(QStringLiteral("Неизвестная команда: NOSUCH")));
}

TEST_F(MainWindowTest, AClickPicksAndEscForgets)
{
    showHundred();
    window->runLine(QStringLiteral("CIRCLE 0,0 20"));
    window->runLine(QStringLiteral("CIRCLE 30,0 5"));
    view()->grab();
    click(20, 0);
    EXPECT_EQ(view()->document().pickfirst().size(), 1u);
    click(35, 0);
    EXPECT_EQ(view()->document().pickfirst().size(), 2u);
    click(20, 0, Qt::ShiftModifier);
    EXPECT_EQ(view()->document().pickfirst().size(), 1u);
    QTest::keyClick(view(), Qt::Key_Escape);
    EXPECT_TRUE(view()->document().pickfirst().empty());
}

TEST_F(MainWindowTest, AWindowPicksWhatLiesInsideOrWhatItTouches)
{
    showHundred();
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    window->runLine(QStringLiteral("CIRCLE 10,0 15"));
    view()->grab();
    const auto drag = [&](double x1, double y1, double x2, double y2) {
        setPickfirst({});
        QTest::mousePress(view(), Qt::LeftButton, {}, pixel(x1, y1));
        move(x2, y2, Qt::LeftButton);
        QTest::mouseRelease(view(), Qt::LeftButton, {}, pixel(x2, y2));
        return view()->document().pickfirst().size();
    };
    EXPECT_EQ(drag(-8, 8, 8, -8), 1u);
    EXPECT_EQ(drag(8, -8, -8, 8), 2u);
}

TEST_F(MainWindowTest, ASelectionIsGatheredUntilEnter)
{
    showHundred();
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    window->runLine(QStringLiteral("CIRCLE 20,0 5"));
    view()->grab();
    run(QStringLiteral("ERASE"), {[&] {
            click(5, 0);
            click(25, 0);
            QTest::keyClick(view(), Qt::Key_Return);
        }});
    EXPECT_EQ(count("NcDbCircle"), 0);
    EXPECT_TRUE(history().contains(QStringLiteral("Удалено объектов: 2")));
}

TEST_F(MainWindowTest, TheWheelZoomsAboutTheCursorAndTheMiddleButtonPans)
{
    showHundred();
    const auto now = [&] { return activeView(*view()->document().database()); };
    const QPoint at = pixel(20, 10);
    QWheelEvent wheel(at, view()->mapToGlobal(at), {}, QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(view(), &wheel);
    EXPECT_NEAR(now().height, 80.0, 1e-6);
    EXPECT_NEAR(now().center.x(), 4.0, 0.1);
    showHundred();
    QTest::mousePress(view(), Qt::MiddleButton, {}, pixel(0, 0));
    move(10, 0, Qt::MiddleButton);
    QTest::mouseRelease(view(), Qt::MiddleButton, {}, pixel(10, 0));
    EXPECT_NEAR(now().center.x(), -10.0, 0.2);
    EXPECT_FALSE(view()->document().isModified()) << "looking at a drawing does not change it";
}

TEST_F(MainWindowTest, AMenuEndsThePromptThatWaits)
{
    run(QStringLiteral("LINE"), {[&] { window->runCommandByName(QStringLiteral("CIRCLE")); }});
    EXPECT_TRUE(activeCommand().isEmpty());
    QTimer::singleShot(200, [&] { type(QStringLiteral("1,1")); });
    QTimer::singleShot(300, [&] { type(QStringLiteral("2")); });
    QTest::qWait(500);
    EXPECT_EQ(count("NcDbCircle"), 1);
    EXPECT_EQ(count("NcDbLine"), 0);
}

TEST_F(MainWindowTest, DrawingsStandInTabs)
{
    auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("documentTabs"));
    EXPECT_EQ(tabs->count(), 1);
    window->runLine(QStringLiteral("NEW \"\""));
    ASSERT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->currentIndex(), 1);
    tabs->setCurrentIndex(0);
    EXPECT_EQ(ncDocManagerPtr()->curDocument(), ncDocManagerPtr()->document(0));
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    EXPECT_TRUE(tabs->tabText(0).endsWith(QLatin1Char('*')));
    ModalDriver driver;
    driver.expect("Терва").textContains("Сохранить изменения чертежа").press("Отмена");
    emit tabs->tabCloseRequested(0);
    EXPECT_EQ(tabs->count(), 2);
    driver.expect("Терва").press("Не сохранять");
    emit tabs->tabCloseRequested(0);
    EXPECT_EQ(tabs->count(), 1);
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

// A drawing written without a window comes with a view of nothing.
TEST_F(MainWindowTest, ADrawingFarFromItsViewIsShownWhole)
{
    const ActiveView active = reopenedView({"CIRCLE 330000,5080000 5", "ZOOM Центр 0,0 10"});
    EXPECT_NEAR(active.center.x(), 330000.0, 1.0);
    EXPECT_NEAR(active.center.y(), 5080000.0, 1.0);
    EXPECT_LT(active.height, 30.0);
}

TEST_F(MainWindowTest, ADrawingKeepsTheViewItCameWith)
{
    const ActiveView active = reopenedView({"CIRCLE 0,0 500", "ZOOM Центр 400,300 100"});
    EXPECT_NEAR(active.center.x(), 400.0, 1e-6);
    EXPECT_NEAR(active.height, 100.0, 1e-6);
}

TEST_F(MainWindowTest, TheEmptyDrawingOfTheStartGivesWayToAFile)
{
    const QString path = folder.filePath(QStringLiteral("a.dxf"));
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    ASSERT_TRUE(isOk(ncDocManagerPtr()->saveDocumentAs(ncDocManagerPtr()->curDocument(), path)));
    closeAllDocuments();
    openStartDocument();
    ASSERT_TRUE(window->openDrawing(path));
    QTest::qWait(50);
    ASSERT_EQ(ncDocManagerPtr()->documentCount(), 1);
    EXPECT_EQ(QFileInfo(ncDocManagerPtr()->curDocument()->fileName()).fileName(), QStringLiteral("a.dxf"));
    closeAllDocuments();
    openStartDocument();
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    ASSERT_TRUE(window->openDrawing(path));
    QTest::qWait(50);
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 2) << "what was drawn on stays";
}

TEST_F(MainWindowTest, TheGroundIsLightOrDarkAndRemembered)
{
    auto* light = window->findChild<QAction*>(QStringLiteral("lightGround"));
    const auto corner = [this] { return view()->grab().toImage().pixelColor(view()->width() - 3, 3).lightness(); };
    ASSERT_TRUE(light->isChecked());
    EXPECT_GT(corner(), 200);
    light->trigger();
    EXPECT_LT(corner(), 60);
    closeAllDocuments();
    window.reset();
    window = std::make_unique<MainWindow>(folder.filePath(QStringLiteral("p.ini")));
    EXPECT_FALSE(window->findChild<QAction*>(QStringLiteral("lightGround"))->isChecked());
}

TEST_F(MainWindowTest, TheFirstLineSaysWhatToDo)
{
    window->greet();
    EXPECT_TRUE(history().contains(QStringLiteral("меню «Проект»")));
}

TEST_F(MainWindowTest, LayersAreSwitchedInTheirPanel)
{
    window->runLine(QStringLiteral("LAYER Создать Карта"));
    auto* layers = window->findChild<LayersPanel*>();
    QTest::qWait(100);
    ASSERT_EQ(layers->rowCount(), 2);
    ASSERT_EQ(layers->item(1, 3)->text(), QStringLiteral("Карта"));
    layers->item(1, 0)->setCheckState(Qt::Unchecked);
    layers->item(1, 1)->setCheckState(Qt::Checked);
    NcDbLayerTable* table = nullptr;
    NcDbLayerTableRecord* layer = nullptr;
    ASSERT_TRUE(isOk(view()->document().database()->getSymbolTable(table, kForRead)));
    ASSERT_TRUE(isOk(table->getAt(QStringLiteral("Карта"), layer, kForRead)));
    EXPECT_TRUE(layer->isOff());
    EXPECT_TRUE(layer->isLocked());
    layer->close();
    table->close();
}

TEST_F(MainWindowTest, CoordinatesFollowTheCursorInTheUserSystem)
{
    showHundred();
    window->runLine(QStringLiteral("UCS Точки 10,0 10,10"));
    move(10, 20);
    const QString text = window->findChild<QLabel*>(QStringLiteral("coordinates"))->text();
    const QStringList parts = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    ASSERT_EQ(parts.size(), 4);
    EXPECT_NEAR(parts[1].toDouble(), 20.0, 0.2);
    EXPECT_NEAR(parts[3].toDouble(), 0.0, 0.2);
}

TEST_F(MainWindowTest, AScriptPlaysInTheWindow)
{
    QFile file(folder.filePath(QStringLiteral("s.txt")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("command CIRCLE\npoint 0,0\nreal 5\ncount 1\nwindow mainWindow\nset commandEdit \"слово\"\n");
    file.close();
    EXPECT_EQ(window->playScript(file.fileName(), {}, 2.0).toStdString(), "");
    EXPECT_EQ(edit()->text(), QStringLiteral("слово"));
    EXPECT_TRUE(history().contains(QStringLiteral("Радиус: 5")));
}

// The toolkit would leave it standing over the history, empty.
TEST_F(MainWindowTest, TheListOfNamesGoesWhenTheLineIsEntered)
{
    window->activateWindow();
    edit()->setFocus();
    QTest::qWait(20);
    for (const bool tab : {false, true}) {
        QTest::keyClicks(edit(), QStringLiteral("zoo"));
        EXPECT_TRUE(QTest::qWaitFor([this] { return edit()->completer()->popup()->isVisible(); }));
        if (tab)
            QTest::keyClick(edit(), Qt::Key_Tab);
        QTimer::singleShot(50, window.get(), [this] {
            EXPECT_FALSE(edit()->completer()->popup()->isVisible());
            QTest::keyClick(edit(), Qt::Key_Escape);
        });
        QTest::keyClick(edit(), Qt::Key_Return);
        QTest::qWait(80);
    }
}

TEST_F(MainWindowTest, TheWindowHasTheProgramsIcon) { EXPECT_FALSE(QApplication::windowIcon().isNull()); }

TEST(CommandTable, RowsAreReadAndNonsenseIsPassedOver)
{
    const auto rows = parseMenuTable(
        QStringLiteral("# заголовок;a;b\nПроект;TERVA_X;Открыть…\r\nПроект;-;\nбез полей\n;A;B\nПроект;;B\n"));
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].command, QStringLiteral("TERVA_X"));
    EXPECT_EQ(rows[0].caption, QStringLiteral("Открыть…"));
    EXPECT_TRUE(rows[1].command.isEmpty());
}

TEST_F(MainWindowTest, TheSpaceThatIsDrawnOnIsTold)
{
    window->runLine(QStringLiteral("SPACE Лист"));
    EXPECT_TRUE(
        history().contains(QStringLiteral("Чертите на листе; окно показывает модель, лист виден в окне печати.")));
    EXPECT_FALSE(history().contains(QStringLiteral("Чертите в модели.")));
    window->runLine(QStringLiteral("SPACE Модель"));
    EXPECT_TRUE(history().contains(QStringLiteral("Чертите в модели.")));
}

TEST_F(MainWindowTest, TheHistoryHasNoEmptyLines)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    window->runLine(QStringLiteral("SPACE Лист"));
    const QStringList lines = history().split(QLatin1Char('\n'));
    EXPECT_FALSE(lines.contains(QString())) << history().toStdString();
    EXPECT_TRUE(lines.last().startsWith(QStringLiteral("Чертите на листе")));
    EXPECT_TRUE(lines.contains(QStringLiteral("Команда: SPACE Лист"))) << history().toStdString();
}
