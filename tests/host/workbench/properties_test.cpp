// The panel of properties in the window.
#include "window_fixture.h"

#include <workbench/properties_panel.h>
#include <workbench/shown_number.h>

#include <drawing/host_access.h>

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QTreeWidget>

namespace {

class PropertiesPanelTest : public MainWindowTest {
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        QApplication::setActiveWindow(window.get());
        QTest::keyClick(window.get(), Qt::Key_1, Qt::ControlModifier);
        QTest::qWait(60);
    }
    PropertiesPanel* panel() { return window->findChild<PropertiesPanel*>(); }
    QDockWidget* dock() { return window->findChild<QDockWidget*>(QStringLiteral("propertiesDock")); }
    QComboBox* kinds() { return panel()->findChild<QComboBox*>(QStringLiteral("propertyKinds")); }
    template <class Widget>
    Widget* editor(const char* key)
    {
        return panel()->findChild<Widget*>(QStringLiteral("property:") + QString::fromUtf8(key));
    }
    void select(const NcDbObjectIdArray& ids)
    {
        setPickfirst(ids);
        EXPECT_TRUE(QTest::qWaitFor([this] { return editor<QWidget>("layer") != nullptr; }, 5000));
    }
    void enter(QLineEdit* field, const QString& text)
    {
        field->selectAll();
        field->insert(text);
        QTest::keyClick(field, Qt::Key_Return);
        QTest::qWait(80);
    }
    NcDbObjectIdArray all() { return livingEntities(*view()->document().database()); }
    const NcDbCircle& circle(size_t index) { return *HostAccess::objectAs<NcDbCircle>(all()[index]); }
};

} // namespace

TEST_F(PropertiesPanelTest, ItsKeyShowsAndHidesIt)
{
    EXPECT_TRUE(dock()->isVisible());
    QTest::keyClick(window.get(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_FALSE(dock()->isVisible());
}

TEST_F(PropertiesPanelTest, AValueIsTypedAndUndoneAsOneStep)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    window->runLine(QStringLiteral("CIRCLE 20,0 6"));
    select(all());
    EXPECT_EQ(kinds()->currentText(), QStringLiteral("Окружность (2)"));
    EXPECT_EQ(editor<QLineEdit>("radius")->placeholderText(), QStringLiteral("разные"));
    enter(editor<QLineEdit>("radius"), QStringLiteral("7,5"));
    EXPECT_EQ(circle(0).radius(), 7.5);
    EXPECT_EQ(circle(1).radius(), 7.5);
    EXPECT_EQ(editor<QLineEdit>("radius")->text(), shownExact(7.5));
    window->runLine(QStringLiteral("U"));
    EXPECT_EQ(circle(0).radius(), 5.0);
    EXPECT_EQ(circle(1).radius(), 6.0);
    EXPECT_TRUE(history().contains(QStringLiteral("Отменено: СВОЙСТВА")));
}

TEST_F(PropertiesPanelTest, WhatIsNoNumberIsRefusedInWords)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    select(all());
    enter(editor<QLineEdit>("radius"), QStringLiteral("много"));
    EXPECT_EQ(circle(0).radius(), 5.0);
    EXPECT_TRUE(history().contains(QStringLiteral("Радиус: нужно число, а не «много»."))) << history().toStdString();
    const auto restored = [this] { return editor<QLineEdit>("radius")->text() == QStringLiteral("5"); };
    EXPECT_TRUE(QTest::qWaitFor(restored)) << editor<QLineEdit>("radius")->text();
    enter(editor<QLineEdit>("radius"), QStringLiteral("-1"));
    EXPECT_EQ(circle(0).radius(), 5.0);
    EXPECT_TRUE(history().contains(QStringLiteral("значение приняли 0 из 1")));
}

TEST_F(PropertiesPanelTest, OneKindOfSeveralIsChosen)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    window->runLine(QStringLiteral("LINE 0,0 20,0 \"\""));
    select(all());
    EXPECT_EQ(kinds()->itemText(0), QStringLiteral("Все (2)"));
    EXPECT_EQ(editor<QLineEdit>("radius"), nullptr);
    ASSERT_NE(editor<QComboBox>("layer"), nullptr);
    kinds()->setCurrentIndex(kinds()->findData(QStringLiteral("Окружность")));
    emit kinds()->activated(kinds()->currentIndex());
    ASSERT_NE(editor<QLineEdit>("radius"), nullptr);
    EXPECT_EQ(panel()->shown().size(), 1u);
}

TEST_F(PropertiesPanelTest, ALayerIsChosenFromTheDrawings)
{
    window->runLine(QStringLiteral("LAYER Создать Карта"));
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    select(all());
    auto* layers = editor<QComboBox>("layer");
    ASSERT_NE(layers, nullptr);
    EXPECT_EQ(layers->currentText(), QStringLiteral("0"));
    layers->setCurrentText(QStringLiteral("Карта"));
    emit layers->textActivated(QStringLiteral("Карта"));
    EXPECT_EQ(circle(0).layer(), QStringLiteral("Карта"));
}

TEST_F(PropertiesPanelTest, WithoutASelectionItTellsOfTheDrawing)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    QTest::qWait(80);
    EXPECT_EQ(kinds()->currentText(), QStringLiteral("Ничего не выбрано"));
    const auto* tree = panel()->findChild<QTreeWidget*>(QStringLiteral("propertyTree"));
    ASSERT_EQ(tree->topLevelItemCount(), 1);
    const QTreeWidgetItem* group = tree->topLevelItem(0);
    EXPECT_EQ(group->child(group->childCount() - 1)->text(0), QStringLiteral("Объектов"));
    EXPECT_EQ(group->child(group->childCount() - 1)->text(1), QStringLiteral("1"));
    closeAllDocuments();
    EXPECT_EQ(kinds()->currentText(), QStringLiteral("Чертёж не открыт"));
}

TEST(ShownNumber, IsReadWithAPointOrAComma)
{
    double value = 0.0;
    EXPECT_TRUE(readNumber(QStringLiteral(" 12,5 "), value));
    EXPECT_EQ(value, 12.5);
    EXPECT_TRUE(readNumber(QStringLiteral("-0.25"), value));
    EXPECT_EQ(value, -0.25);
    for (const char* text : {"", "1,2,3", "пять", "1e999", "nan"})
        EXPECT_FALSE(readNumber(QString::fromUtf8(text), value)) << text;
    EXPECT_EQ(value, -0.25);
    EXPECT_EQ(shownExact(5.0), QStringLiteral("5"));
    EXPECT_EQ(shownExact(-0.0), QStringLiteral("0"));
}
