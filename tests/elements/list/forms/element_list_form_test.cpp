#include "elements/list/forms/element_list.h"

#include "elements/forms/passports.h"
#include "elements/list/forms/element_list_changer.h"
#include "elements/list/listed_elements.h"
#include "support/pictures.h"

#include <script/modal_driver.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolTip>

namespace {

using Model = ElementListModel;

class ListPage : public ListedElementsTest {
protected:
    ListPage()
    {
        page.resize(1000, 420);
        page.show();
        choose("ElementCombo", "Деформационные марки");
    }
    QTableView& view() { return *page.findChild<QTableView*>("ElementsView"); }
    QComboBox& combo(const char* name) { return *page.findChild<QComboBox*>(name); }
    void choose(const char* name, const QString& text)
    {
        ASSERT_GE(combo(name).findText(text), 0) << text;
        combo(name).setCurrentIndex(combo(name).findText(text));
    }
    QStringList items(const char* name)
    {
        QStringList texts;
        for (int i = 0; i < combo(name).count(); ++i)
            texts.append(combo(name).itemText(i));
        return texts;
    }
    QStringList names()
    {
        QStringList met;
        for (int row = 0; row < view().model()->rowCount(); ++row)
            met.append(view().model()->index(row, Model::Name).data().toString());
        return met;
    }
    QModelIndex cell(const QString& name, int column) { return view().model()->index(names().indexOf(name), column); }
    void select(const QStringList& chosen)
    {
        view().clearSelection();
        for (const QString& name : chosen)
            view().selectionModel()->select(cell(name, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    // Opens the menu on the cell and chooses; boxes that were told before answer.
    void menu(const QString& name, int column, const char* entry)
    {
        chooseInNextMenu(QString::fromUtf8(entry));
        clicked = cell(name, column);
    }
    // The same without the driver, which moves the current cell.
    void chooseInNextMenu(const QString& entry)
    {
        QTimer::singleShot(100, &page, [entry] {
            auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(open, nullptr);
            for (QAction* action : open->actions()) {
                if (action->text() == entry)
                    open->setActiveAction(action);
            }
            QTest::keyClick(open, Qt::Key_Return);
        });
    }
    void play()
    {
        if (clicked.isValid())
            emit view().customContextMenuRequested(view().visualRect(std::exchange(clicked, QModelIndex())).center());
        else
            driver.play();
        EXPECT_TRUE(driver.done()) << driver.report();
    }
    QString status() { return page.findChild<QLabel*>("StatusLabel")->text(); }

    ElementList page;
    ModalDriver driver;
    QModelIndex clicked; // where the next menu opens
};

} // namespace

TEST_F(ListPage, OffersPlacesFamiliesAndCycles)
{
    EXPECT_EQ(items("PositionCombo"), (QStringList{"Все", "Проект", "Объект", "Подобъект", "Позиция", "Другая"}));
    EXPECT_EQ(items("ElementCombo"),
              (QStringList{"Все", "Репера", "Деформационные марки", "Термоскважины", "Точки снегомерной съемки",
                           "Гидрогеологические скважины", "Термостабилизационные элементы",
                           "Инженерно-геологические скважины"}));
    EXPECT_EQ(items("CyclesCombo"),
              (QStringList{"Все", "Цикл 12: 01.02.20-28.02.20 ()", "Цикл 11: 01.01.21-31.01.21 (зима)"}));
    QStringList keys;
    for (int i = 0; i < combo("ElementCombo").count(); ++i)
        keys.append(combo("ElementCombo").itemData(i).toString());
    EXPECT_EQ(keys, (QStringList{"ALL", "RP", "DM", "TS", "TSS", "GGS", "TSG", "IGS"}));
    EXPECT_EQ(page.findChild<QPushButton*>("ReloadBtn")->text(), "Обновить");
    EXPECT_EQ(page.findChild<QPushButton*>("GisBtn")->text(), "Экспорт в ГИС");
    EXPECT_EQ(page.findChild<QLineEdit*>("filter")->text(), "");
    EXPECT_EQ(status(), "Выбрано: 0");
    for (int column = 0; column < Model::ColumnCount; ++column) {
        EXPECT_EQ(view().columnWidth(column), 90);
        EXPECT_FALSE(view().isColumnHidden(column));
    }
    EXPECT_TRUE(takePicture(page, "element-list"));
}

TEST_F(ListPage, ChoicesLoadAnew)
{
    EXPECT_EQ(names(), (QStringList{"DM-1", "DM-2", "DM-10"})) << "numbers in names count as numbers";
    choose("PositionCombo", "Другая");
    EXPECT_EQ(names(), QStringList("DM-2"));
    choose("PositionCombo", "Все");
    choose("ElementCombo", "Все");
    EXPECT_EQ(names().size(), 18);
    choose("CyclesCombo", "Цикл 11: 01.01.21-31.01.21 (зима)");
    EXPECT_EQ(cell("DM-1", Model::Measures).data().toString(), "Цикл: 11");
}

TEST_F(ListPage, ReloadingKeepsWhatIsChosenWidthsAndColumns)
{
    choose("PositionCombo", "Другая");
    choose("CyclesCombo", "Цикл 12: 01.02.20-28.02.20 ()");
    view().setColumnWidth(3, 140);
    view().setColumnHidden(5, true);
    database->exec("insert into positions (position_id, subobject_id, position, appearence) values (9, 1, 'Новая', 0);"
                   "update dm_elements set element_name = 'DM-3' where element_id = 3");
    page.findChild<QPushButton*>("ReloadBtn")->click();
    EXPECT_EQ(combo("PositionCombo").currentText(), "Другая");
    EXPECT_EQ(combo("ElementCombo").currentText(), "Деформационные марки");
    EXPECT_EQ(combo("CyclesCombo").currentText(), "Цикл 12: 01.02.20-28.02.20 ()");
    EXPECT_EQ(names(), QStringList("DM-3"));
    EXPECT_EQ(view().columnWidth(3), 140);
    EXPECT_TRUE(view().isColumnHidden(5));
}

TEST_F(ListPage, TheFilterIsAPatternThatHeedsCase)
{
    auto* filter = page.findChild<QLineEdit*>("filter");
    filter->setText("DM-1");
    EXPECT_EQ(names(), (QStringList{"DM-1", "DM-10"}));
    filter->setText("-[2-9]$");
    EXPECT_EQ(names(), QStringList("DM-2"));
    filter->setText("dm");
    EXPECT_EQ(names(), QStringList());
    database->exec("update dm_elements set element_name = '' where element_id = 3");
    filter->setText("");
    page.refresh();
    EXPECT_EQ(names(), (QStringList{"DM-1", "DM-10"})) << "a row without a name is not seen";
}

TEST_F(ListPage, WhatANarrowColumnCutsStandsInATip)
{
    const auto tipOver = [this](const QModelIndex& at) {
        QToolTip::hideText(); // the tip before goes a moment later
        for (const QDeadlineTimer end(2000); QToolTip::isVisible() && !end.hasExpired();)
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        const QPoint place = view().visualRect(at).center();
        QHelpEvent event(QEvent::ToolTip, place, view().viewport()->mapToGlobal(place));
        QApplication::sendEvent(view().viewport(), &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(view().columnWidth(Model::Type), 90);
    EXPECT_EQ(tipOver(cell("DM-1", Model::Type)), cell("DM-1", Model::Type).data().toString());
    EXPECT_EQ(tipOver(cell("DM-1", Model::Name)), QString()) << "it is seen whole";
    const QHeaderView* header = view().horizontalHeader();
    EXPECT_EQ(header->textElideMode(), Qt::ElideRight);
    for (int column = 0; column < header->count(); ++column)
        EXPECT_EQ(view().model()->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString(),
                  Model::titles().at(column));
}

TEST_F(ListPage, CountsTheRowsThatAreSelected)
{
    select({"DM-1", "DM-10"});
    EXPECT_EQ(status(), "Выбрано: 2");
    view().clearSelection();
    view().selectionModel()->select(cell("DM-1", 2), QItemSelectionModel::Select);
    view().selectionModel()->select(cell("DM-1", 5), QItemSelectionModel::Select);
    EXPECT_EQ(status(), "Выбрано: 1");
}

TEST_F(ListPage, CopiesTheSelectedCells)
{
    view().selectionModel()->select(cell("DM-1", 1), QItemSelectionModel::Select);
    view().selectionModel()->select(cell("DM-1", 6), QItemSelectionModel::Select);
    view().selectionModel()->select(cell("DM-10", 5), QItemSelectionModel::Select);
    EXPECT_EQ(view().selectionModel()->selectedIndexes().size(), 3);
    EXPECT_EQ(cell("DM-1", 1).data().toString(), "DM-1");
    QTest::keyClick(&view(), Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "DM-1\t2.25\n3");
    QApplication::clipboard()->clear();
    chooseInNextMenu("Копировать в буфер");
    emit view().customContextMenuRequested(view().visualRect(cell("DM-1", 1)).center());
    EXPECT_EQ(QApplication::clipboard()->text(), "DM-1\t2.25\n3");
}

TEST_F(ListPage, TheMenuFollowsTheColumn)
{
    const struct {
        int column;
        QStringList own;
    } cases[] = {{1, {}}, {2, {"Сменить тип"}}, {3, {"Сменить состояние"}}, {4, {"Переместить в позицию"}}};
    for (const auto& c : cases) {
        QStringList met;
        QTimer::singleShot(100, &page, [&met] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (const QAction* action : menu->actions())
                met.append(action->isSeparator() ? "-" : action->text());
            menu->close();
        });
        emit view().customContextMenuRequested(view().visualRect(cell("DM-1", c.column)).center());
        const QStringList last{"Копировать в буфер", "Паспорт элемента", "-", "Удалить"};
        EXPECT_EQ(met, QStringList("Показать в координатах") + c.own + last);
    }
}

TEST_F(ListPage, ColumnsAreHiddenAndShown)
{
    driver.expect("Выбрать столбцы")
        .step("rows", {"ColumnsList", "13"})
        .step("cell", {"ColumnsList", "X", "0", "unchecked"})
        .press("Ок");
    chooseInNextMenu("Показать/Скрыть столбцы");
    emit view().horizontalHeader()->customContextMenuRequested(QPoint(5, 5));
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(view().isColumnHidden(Model::X));
    EXPECT_FALSE(view().isColumnHidden(Model::Y));
}

TEST_F(ListPage, CellsAreEditedInTheirPlace)
{
    driver.window("ElementList")
        .step("cell", {"ElementsView", "DM-1", "Состояние", "Разрушена"})
        .step("cell", {"ElementsView", "DM-1", "Позиция(Проект)", "Другая"})
        .step("cell", {"ElementsView", "DM-1", "Тип", "Деформационная марка глубинная"});
    play();
    EXPECT_EQ(database->rows("select state_id, position_id, type_id from dm_elements where element_id = 1").value(0),
              (QStringList{"broken", "8", "dm_gl"}));
    driver.window("ElementList").step("cell", {"ElementsView", "DM-10", "Имя", "DM-1"});
    play();
    EXPECT_EQ(stored(family(FamilyKey::Dm), "element_name", 2), "DM-1") << "its namesake has moved away";
}

TEST_F(ListPage, ATakenNameIsRefusedByABox)
{
    driver.expect("Внимание").text("Такое имя уже есть в базе данных").press("OK");
    view().model()->setData(cell("DM-1", Model::Name), "DM-10");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(names(), (QStringList{"DM-1", "DM-2", "DM-10"}));
}

TEST_F(ListPage, ManyGetAnotherTypeStateAndPosition)
{
    select({"DM-1", "DM-2"});
    menu("DM-1", Model::Type, "Сменить тип");
    driver.expect("Изменить").text("Тип ДМ").set("SelectionCombo", "data:dm_pv").press("OkBtn");
    play();
    select({"DM-1", "DM-2"});
    menu("DM-1", Model::State, "Сменить состояние");
    driver.expect("Изменить").text("Состояние элемента").set("SelectionCombo", "Разрушена").press("OkBtn");
    play();
    select({"DM-1"});
    menu("DM-1", Model::Position, "Переместить в позицию");
    driver.expect("Изменить").text("Позиция").set("SelectionCombo", "Другая").press("OkBtn");
    play();
    EXPECT_EQ(database->value("select string_agg(type_id || ' ' || state_id || ' ' || position_id, ',' order by "
                              "element_id) from dm_elements"),
              "dm_pv broken 8,dm exist 7,dm_pv broken 8");
    select({"DM-1"});
    menu("DM-1", Model::Position, "Переместить в позицию");
    driver.expect("Изменить").press("CancelBtn");
    play();
}

TEST_F(ListPage, SeveralFamiliesGetNoType)
{
    choose("ElementCombo", "Все");
    select({"DM-1", "RP-1"});
    menu("DM-1", Model::Type, "Сменить тип");
    driver.expect("Внимание")
        .text("Выбрано несколько основных типов элементов.\nНужно выбрать отдельно ДМ, ТС,TCC, или RP.")
        .press("OK");
    play();
    select({"DM-1", "RP-1"});
    menu("DM-1", Model::State, "Сменить состояние");
    driver.expect("Изменить").set("SelectionCombo", "Разрушена").press("OkBtn");
    play();
    EXPECT_EQ(stored(family(FamilyKey::Rp), "state_id", 1), "broken") << "a state is common to all";
}

TEST_F(ListPage, DeletesAfterTheQuestion)
{
    for (const char* answer : {"Нет", "Да"}) {
        select({"DM-1", "DM-10"});
        menu("DM-1", 1, "Удалить");
        driver.expect("Внимание")
            .text("Будет выполнено удаление следующих елементов: \n DM-1, DM-10 \n Продолжить?")
            .press(answer);
        play();
    }
    EXPECT_EQ(names(), QStringList("DM-2"));
    EXPECT_EQ(console.text(), "Удален элемент DM-1Удален элемент DM-10");
}

TEST_F(ListPage, APassportIsOpenedForTheRow)
{
    QVector<QPair<FamilyKey, int>> opened;
    setPassportOpener([&](FamilyKey family, int id, QWidget*) { opened.append({family, id}); });
    view().setCurrentIndex(cell("DM-10", 1));
    menu("DM-10", 1, "Паспорт элемента");
    play();
    // A double click where nothing is edited does the same.
    for (const int column : {int(ElementListModel::Id), int(ElementListModel::Name)}) {
        view().setCurrentIndex(cell("DM-10", column));
        QMetaObject::invokeMethod(&view(), "doubleClicked", Q_ARG(QModelIndex, view().currentIndex()));
    }
    setPassportOpener({});
    ASSERT_EQ(opened.size(), 2);
    for (const auto& passport : qAsConst(opened)) {
        EXPECT_EQ(passport.first, FamilyKey::Dm);
        EXPECT_EQ(passport.second, 2);
    }
    view().setCurrentIndex(cell("DM-10", 1)); // the page was read anew
    menu("DM-10", 1, "Паспорт элемента");
    driver.expect("Внимание").text("Эта возможность ещё не построена").press("OK");
    play();
}

TEST_F(ListPage, WithoutAConnectionThePageIsEmptyAndSaysSo)
{
    database.disconnect();
    page.refresh();
    EXPECT_EQ(console.text(), "\n Не установлено соединение с базой данных");
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(status(), "Выбрано: 0");
}

TEST(ElementListChanger, AsksByItsLabel)
{
    const ElementListChanger form("Тип ДМ", {{"Раз", "a"}, {"Два", "b"}});
    EXPECT_EQ(form.size(), QSize(391, 94));
    EXPECT_EQ(form.findChild<QLabel*>("TextLabel")->text(), "Тип ДМ");
    EXPECT_EQ(form.findChild<QComboBox*>("SelectionCombo")->count(), 2);
    EXPECT_EQ(form.findChild<QPushButton*>("OkBtn")->text(), "OK");
    EXPECT_EQ(form.findChild<QPushButton*>("CancelBtn")->text(), "Отмена");
    EXPECT_EQ(form.chosen(), "a");
}
