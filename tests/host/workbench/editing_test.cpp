// Editing the drawing in the window, as a user does all day.
#include "window_fixture.h"

#include <workbench/completion.h>

#include <drawing/edit_operations.h>
#include <drawing/grips.h>
#include <drawing/host_access.h>
#include <drawing/undo.h>

#include <QAction>
#include <QDialog>
#include <QPushButton>
#include <QSpinBox>

namespace {

class Editing : public MainWindowTest {
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        QApplication::setActiveWindow(window.get());
        showHundred();
    }

    // Dots about a point that differ, without the lines of the cursor which cross there.
    int changedAbout(double x, double y, const QImage& before, const QImage& during)
    {
        const QPoint middle = pixel(x, y);
        const QRect around(pixel(x - 6, y + 6), pixel(x + 6, y - 6));
        int changed = 0;
        for (int px = around.left(); px <= around.right(); ++px)
            for (int py = around.top(); py <= around.bottom(); ++py)
                if (std::abs(px - middle.x()) > 2 && std::abs(py - middle.y()) > 2)
                    changed += before.pixel(px, py) != during.pixel(px, py);
        return changed;
    }

    NcDbDatabase& drawing() { return *view()->document().database(); }
    NcDbObjectIdArray all() { return livingEntities(drawing()); }
    template <class T>
    const T& entity(size_t index)
    {
        return *HostAccess::objectAs<T>(all().at(index));
    }

    void drag(double x1, double y1, double x2, double y2, Qt::KeyboardModifiers keys = {})
    {
        move(x1, y1);
        QTest::mousePress(view(), Qt::LeftButton, keys, pixel(x1, y1));
        move(x2, y2, Qt::LeftButton);
        QTest::mouseRelease(view(), Qt::LeftButton, keys, pixel(x2, y2));
    }

    void trigger(const char* command)
    {
        auto* action = window->findChild<QAction*>(QString::fromLatin1(command));
        ASSERT_NE(action, nullptr) << command;
        action->trigger();
        QTest::qWait(50);
    }
};

} // namespace

TEST_F(Editing, AGripIsDraggedAndTheStepIsUndoneByItsKey)
{
    window->runLine(QStringLiteral("LINE 0,0 20,0 \"\""));
    view()->grab();
    click(10, 0);
    view()->grab();
    ASSERT_EQ(view()->document().pickfirst().size(), 1u);
    drag(20, 0, 20, 15);
    EXPECT_NEAR(entity<NcDbLine>(0).endPoint().y, 15.0, 0.3);
    QTest::keyClick(edit(), Qt::Key_Z, Qt::ControlModifier);
    QTest::qWait(50);
    EXPECT_EQ(entity<NcDbLine>(0).endPoint().y, 0.0);
    EXPECT_TRUE(history().contains(QStringLiteral("Отменено: РУЧКА"))) << history().toStdString();
    QTest::keyClick(edit(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::qWait(50);
    EXPECT_NEAR(entity<NcDbLine>(0).endPoint().y, 15.0, 0.3);
}

TEST_F(Editing, AGripIsPulledByTwoClicksAndLetGoByEsc)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 10"));
    view()->grab();
    click(10, 0);
    view()->grab();
    click(0, 0);
    click(-20, 5);
    EXPECT_NEAR(entity<NcDbCircle>(0).center().x, -20.0, 0.3);
    view()->grab();
    click(-20, 5);
    QTest::keyClick(view(), Qt::Key_Escape);
    move(30, 30);
    EXPECT_NEAR(entity<NcDbCircle>(0).center().x, -20.0, 0.3);
    EXPECT_EQ(view()->document().pickfirst().size(), 1u) << "Esc let go of the grip alone";
}

TEST_F(Editing, DelErasesAndTheClipboardBringsBack)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 10"));
    setPickfirst(all());
    QTest::keyClick(edit(), Qt::Key_C, Qt::ControlModifier);
    QTest::qWait(50);
    setPickfirst(all());
    QTest::keyClick(edit(), Qt::Key_Delete);
    QTest::qWait(50);
    EXPECT_TRUE(all().empty());
    trigger("PASTEORIG");
    ASSERT_EQ(all().size(), 1u);
    EXPECT_EQ(entity<NcDbCircle>(0).center(), NcGePoint3d(0, 0, 0));
    QTest::keyClick(edit(), Qt::Key_A, Qt::ControlModifier);
    QTest::qWait(50);
    EXPECT_EQ(view()->document().pickfirst().size(), 1u);
}

TEST_F(Editing, AWindowIsDrawnOverAMapAndAGroupIsPickedAsOne)
{
    auto* hatch = new NcDbHatch;
    hatch->appendLoop(NcDbHatch::kExternal, {{-40, -40}, {40, -40}, {40, 40}, {-40, 40}}, {0, 0, 0, 0});
    hatch->evaluateHatch();
    ASSERT_TRUE(appendToSpace(hatch));
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    window->runLine(QStringLiteral("CIRCLE 20,0 5"));
    view()->grab();
    drag(-8, 8, 8, -8);
    EXPECT_EQ(view()->document().pickfirst(), NcDbObjectIdArray{all()[1]}) << "not the map below it";
    setPickfirst({});
    click(-20, 20);
    EXPECT_EQ(view()->document().pickfirst(), NcDbObjectIdArray{all()[0]}) << "a click takes the map";

    NcDbDictionary* groups = nullptr;
    ASSERT_EQ(drawing().getGroupDictionary(groups, kForWrite), NcStatus::Ok);
    auto* group = new NcDbGroup;
    NcDbObjectId id;
    groups->setAt(QStringLiteral("G"), group, id);
    group->append({all()[1], all()[2]});
    group->close();
    groups->close();
    setPickfirst({});
    click(5, 0);
    EXPECT_EQ(view()->document().pickfirst().size(), 2u);
    setPickfirst({});
    click(5, 0, Qt::ShiftModifier);
    EXPECT_EQ(view()->document().pickfirst(), NcDbObjectIdArray{all()[1]});
}

TEST_F(Editing, TabTurnsThroughWhatLiesOnEachOther)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 10"));
    window->runLine(QStringLiteral("LINE 0,0 10,0 \"\""));
    view()->grab();
    move(10, 0);
    EXPECT_EQ(view()->hovered(), all()[1]);
    QTest::keyClick(view(), Qt::Key_Tab);
    EXPECT_EQ(view()->hovered(), all()[0]);
    QTest::mouseClick(view(), Qt::LeftButton, {}, pixel(10, 0));
    EXPECT_EQ(view()->document().pickfirst(), NcDbObjectIdArray{all()[0]});
    move(0, 30);
    EXPECT_TRUE(view()->hovered().isNull());
}

TEST_F(Editing, APointSnapsAndOrthoHolds)
{
    DrawingAids::instance().setSnaps(true);
    window->runLine(QStringLiteral("CIRCLE 20,10 3"));
    view()->grab();
    run(QStringLiteral("LINE"),
        {[&] { click(20.5, 10.4); }, [&] { type(QStringLiteral("0,0")); },
         [&] { QTest::keyClick(view(), Qt::Key_Return); }});
    EXPECT_EQ(entity<NcDbLine>(1).startPoint(), NcGePoint3d(20, 10, 0)) << "the centre of the circle";
    QTest::keyClick(window.get(), Qt::Key_F3);
    EXPECT_FALSE(DrawingAids::instance().snaps());
    QTest::keyClick(window.get(), Qt::Key_F8);
    EXPECT_TRUE(DrawingAids::instance().ortho());
    run(QStringLiteral("LINE"),
        {[&] { type(QStringLiteral("0,0")); }, [&] { click(-30, 4); },
         [&] { QTest::keyClick(view(), Qt::Key_Return); }});
    EXPECT_NEAR(entity<NcDbLine>(2).endPoint().y, 0.0, 1e-9);
    EXPECT_NEAR(entity<NcDbLine>(2).endPoint().x, -30.0, 0.3);
    QTest::keyClick(window.get(), Qt::Key_F10);
    EXPECT_TRUE(DrawingAids::instance().polar() && !DrawingAids::instance().ortho());
}

TEST_F(Editing, WhatIsMovedFollowsTheCursor)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    setPickfirst(all());
    view()->grab();
    QImage before, during;
    run(QStringLiteral("MOVE"),
        {[&] { type(QStringLiteral("0,0")); },
         [&] {
             before = view()->grab().toImage();
             move(30, 20);
             during = view()->grab().toImage();
             click(30, 20);
         }});
    EXPECT_GT(changedAbout(30, 20, before, during), 40) << "it is drawn where it would come to stand";
    EXPECT_NEAR(entity<NcDbCircle>(0).center().x, 30.0, 0.3);
}

TEST_F(Editing, WhatIsPastedFollowsTheCursor)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    setPickfirst(all());
    trigger("COPYCLIP");
    setPickfirst({});
    QImage before, during;
    run(QStringLiteral("PASTECLIP"), {[&] {
            move(-30, -30);
            before = view()->grab().toImage();
            move(25, 15);
            during = view()->grab().toImage();
            click(25, 15);
        }});
    EXPECT_GT(changedAbout(30, 20, before, during), 40) << "its lower left corner is at the cursor";
    ASSERT_EQ(all().size(), 2u);
    EXPECT_NEAR(entity<NcDbCircle>(1).center().x, 30.0, 0.3);
    EXPECT_NEAR(entity<NcDbCircle>(1).center().y, 20.0, 0.3);
}

TEST_F(Editing, ADoubleClickEditsATextAsOneStep)
{
    window->runLine(QStringLiteral("TEXT -20,0 5 0 before"));
    view()->grab();
    QTimer::singleShot(100, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QPlainTextEdit*>(QStringLiteral("text"))->setPlainText(QStringLiteral("after"));
        dialog->accept();
    });
    QTest::mouseDClick(view(), Qt::LeftButton, {}, pixel(-18, 2));
    EXPECT_EQ(entity<NcDbText>(0).textString(), QStringLiteral("after"));
    EXPECT_EQ(journalOf(drawing())->undo(), QStringLiteral("ТЕКСТ"));
    EXPECT_EQ(entity<NcDbText>(0).textString(), QStringLiteral("before"));
}

TEST_F(Editing, KeysReachTheCommandLineFromTheFirstSecondOn)
{
    EXPECT_EQ(window->focusWidget(), edit());
    QTest::keyClicks(view(), QStringLiteral("CIR"));
    EXPECT_EQ(edit()->text(), QStringLiteral("CIR"));
    QTest::keyClick(edit(), Qt::Key_Tab);
    EXPECT_EQ(edit()->text(), QStringLiteral("CIRCLE"));
    QTest::keyClick(edit(), Qt::Key_Escape);
    QTimer::singleShot(50, [&] { QTest::keyClicks(edit(), QStringLiteral("0,0 ")); });
    QTimer::singleShot(150, [&] { QTest::keyClicks(edit(), QStringLiteral("7 ")); });
    QTest::keyClicks(edit(), QStringLiteral("circle "));
    QTest::qWait(250);
    ASSERT_EQ(all().size(), 1u) << "blanks confirm as Enter does";
    EXPECT_EQ(entity<NcDbCircle>(0).radius(), 7.0);
    QTimer::singleShot(50, [&] { QTest::keyClicks(edit(), QStringLiteral("5,5 ")); });
    QTimer::singleShot(150, [&] { QTest::keyClicks(edit(), QStringLiteral("2 ")); });
    QTest::mouseClick(view(), Qt::RightButton, {}, pixel(40, 40));
    QTest::qWait(400);
    EXPECT_EQ(all().size(), 2u) << "the right button began the command anew";
}

TEST_F(Editing, KeywordsStandBesideThePromptToBeClicked)
{
    auto* words = window->findChild<QLabel*>(QStringLiteral("commandKeywords"));
    run(QStringLiteral("AREA"),
        {[&] {
             EXPECT_TRUE(words->text().contains(QStringLiteral("<a href=\"Объект\">Объект</a>")));
             edit()->setText(QStringLiteral("о"));
             QTest::keyClick(edit(), Qt::Key_Tab);
             EXPECT_EQ(edit()->text(), QStringLiteral("Объект"));
             emit words->linkActivated(QStringLiteral("Точки"));
         },
         [&] { QTest::keyClick(view(), Qt::Key_Return); }});
    EXPECT_TRUE(history().contains(QStringLiteral("Нужно не меньше трёх вершин.")));
    EXPECT_TRUE(words->text().isEmpty());
}

TEST_F(Editing, LinesAreRememberedForTheNextRun)
{
    type(QStringLiteral("ZOOM Границы"));
    window->close();
    MainWindow next(folder.filePath(QStringLiteral("p.ini")));
    QTest::keyClick(next.findChild<QLineEdit*>(QStringLiteral("commandEdit")), Qt::Key_Up);
    EXPECT_EQ(next.findChild<QLineEdit*>(QStringLiteral("commandEdit"))->text(), QStringLiteral("ZOOM Границы"));
}

TEST_F(Editing, EnterInANumberFieldLeavesTheFieldNotTheForm)
{
    QDialog form(window.get());
    QSpinBox field(&form);
    QLineEdit next(&form);
    QPushButton accept(&form);
    accept.setDefault(true);
    QObject::connect(&accept, &QPushButton::clicked, &form, &QDialog::accept);
    form.show();
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    QTest::keyClick(&next, Qt::Key_Return);
    EXPECT_FALSE(form.isVisible()) << "elsewhere it accepts";
}

TEST(Completions, TheBestMatchIsFirst)
{
    const QStringList names{"TERVA_MAP", "MAPSCALE", "MAP", "ROADMAP", "mapping"};
    EXPECT_EQ(completions("map", names), QStringList({"MAP", "mapping", "MAPSCALE", "ROADMAP", "TERVA_MAP"}));
    EXPECT_EQ(completions("", names), QStringList());
    EXPECT_EQ(completions("x", names), QStringList());
}
