#include "elements/measures/forms/button_delegate.h"
#include "elements/measures/forms/combo_box_delegate.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// A table with one cell that is a button and one that is not.
class ButtonTable : public ::testing::Test {
protected:
    ButtonTable()
    {
        model.setItem(0, 0, new QStandardItem);
        model.setData(buttonIndex(), QVariant::fromValue(&measure), Qt::DisplayRole);
        model.setData(buttonIndex(), "Просмотр", Qt::UserRole);
        model.setItem(1, 0, new QStandardItem("Нет данных"));
        model.setItem(2, 0, new QStandardItem("замок"));
        model.item(2, 0)->setEditable(false);
        view.setModel(&model);
        view.setItemDelegate(&delegate);
        view.resize(300, 200);
        view.show();
    }
    QModelIndex buttonIndex() const { return model.index(0, 0); }
    QModelIndex textIndex() const { return model.index(1, 0); }
    QPoint centre(const QModelIndex& index) const { return view.visualRect(index).center(); }
    void press(const QModelIndex& index) { QTest::mousePress(view.viewport(), Qt::LeftButton, {}, centre(index)); }
    void release(const QModelIndex& index) { QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, centre(index)); }
    QImage grab() { return view.viewport()->grab().toImage(); }

    TSMeasure measure;
    QStandardItemModel model{3, 1};
    ButtonDelegate delegate;
    QTableView view;
};

} // namespace

TEST_F(ButtonTable, PressAndReleaseOnTheButtonClickIt)
{
    QVector<TSMeasure*> clicked;
    QObject::connect(&delegate, &ButtonDelegate::btnClicked, [&](TSMeasure* m) { clicked.append(m); });
    press(buttonIndex());
    EXPECT_TRUE(clicked.isEmpty());
    release(buttonIndex());
    EXPECT_EQ(clicked, QVector<TSMeasure*>{&measure});
}

TEST_F(ButtonTable, ReleaseElsewhereClicksNothing)
{
    QSignalSpy spy(&delegate, &ButtonDelegate::btnClicked);
    press(buttonIndex());
    release(textIndex());
    release(buttonIndex());
    EXPECT_EQ(spy.count(), 0);
    press(textIndex());
    release(buttonIndex());
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(ButtonTable, ButtonShowsItsCaptionAndSinksWhilePressed)
{
    const QImage up = grab();
    press(buttonIndex());
    const QImage down = grab();
    release(buttonIndex());
    EXPECT_NE(up, down);
    EXPECT_EQ(grab(), up);
    model.setData(buttonIndex(), "", Qt::UserRole);
    EXPECT_NE(grab(), up);
}

TEST_F(ButtonTable, ButtonAndLockedCellsHaveNoEditor)
{
    const QStyleOptionViewItem option;
    EXPECT_EQ(delegate.createEditor(view.viewport(), option, buttonIndex()), nullptr);
    EXPECT_EQ(delegate.createEditor(view.viewport(), option, model.index(2, 0)), nullptr);
    const std::unique_ptr<QWidget> editor(delegate.createEditor(view.viewport(), option, textIndex()));
    EXPECT_NE(qobject_cast<QLineEdit*>(editor.get()), nullptr);
}

TEST_F(ButtonTable, LineEditKeepsBothRolesAlike)
{
    QLineEdit line;
    delegate.setEditorData(&line, textIndex());
    EXPECT_EQ(line.text(), "Нет данных");
    line.setText("12.5");
    delegate.setModelData(&line, &model, textIndex());
    EXPECT_EQ(textIndex().data(Qt::UserRole).toString(), "12.5");
    EXPECT_EQ(textIndex().data(Qt::DisplayRole).toString(), "12.5");
    model.setData(textIndex(), "7", Qt::UserRole);
    delegate.setEditorData(&line, textIndex());
    EXPECT_EQ(line.text(), "7");
}

TEST_F(ButtonTable, PointerTypeIsRegistered) { EXPECT_NE(QMetaType::type("TSMeasure*"), int(QMetaType::UnknownType)); }

namespace {

class ComboCell : public ::testing::Test {
protected:
    ComboCell()
    {
        model.setItem(0, 0, new QStandardItem("старый"));
        editor.reset(qobject_cast<QComboBox*>(delegate.createEditor(&parent, {}, index())));
    }
    QModelIndex index() const { return model.index(0, 0); }

    QStandardItemModel model{1, 1};
    ComboBoxDelegate delegate{{{"1 | весна", 11}, {"2 | осень | 2021", 12}}};
    QWidget parent;
    std::unique_ptr<QComboBox> editor;
};

} // namespace

TEST_F(ComboCell, ListStartsWithNotSetAndBarsBecomeDashes)
{
    ASSERT_NE(editor, nullptr);
    ASSERT_EQ(editor->count(), 3);
    EXPECT_EQ(editor->itemText(0), "Не установлено");
    EXPECT_EQ(editor->itemData(0).toInt(), -1);
    EXPECT_EQ(editor->itemText(1), "1 - весна");
    EXPECT_EQ(editor->itemText(2), "2 - осень - 2021");
    EXPECT_EQ(editor->itemData(2).toInt(), 12);
}

TEST_F(ComboCell, ShowsTheCellsIdOrNotSet)
{
    model.setData(index(), 12, Qt::UserRole);
    delegate.setEditorData(editor.get(), index());
    EXPECT_EQ(editor->currentIndex(), 2);
    model.setData(index(), 99, Qt::UserRole);
    delegate.setEditorData(editor.get(), index());
    EXPECT_EQ(editor->currentIndex(), 0);
    model.setData(index(), -1, Qt::UserRole);
    delegate.setEditorData(editor.get(), index());
    EXPECT_EQ(editor->currentIndex(), 0);
}

TEST_F(ComboCell, ChangeReachesTheFormOnceWithTextAndIdInPlace)
{
    editor->setCurrentIndex(1);
    QStringList seen;
    QObject::connect(&model, &QStandardItemModel::dataChanged, [&](const QModelIndex& at) {
        seen.append(at.data().toString() + "/" + at.data(Qt::UserRole).toString());
    });
    delegate.setModelData(editor.get(), &model, index());
    EXPECT_EQ(seen, QStringList{"1 - весна/11"});
}

TEST_F(ComboCell, NotSetWritesMinusOne)
{
    model.setData(index(), 12, Qt::UserRole);
    editor->setCurrentIndex(0);
    delegate.setModelData(editor.get(), &model, index());
    EXPECT_EQ(index().data(Qt::UserRole).toInt(), -1);
    EXPECT_EQ(index().data().toString(), "Не установлено");
}

TEST_F(ComboCell, EditorTakesTheCellsRectangle)
{
    QStyleOptionViewItem option;
    option.rect = QRect(3, 4, 120, 22);
    delegate.updateEditorGeometry(editor.get(), option, index());
    EXPECT_EQ(editor->geometry(), option.rect);
}
