// The table of all elements: what it shows, editing in place, changes of many.
#include "elements/list/listed_elements.h"

#include "elements/list/list_statement.h"

#include <QSignalSpy>
#include <algorithm>

namespace {

using Model = ElementListModel;

class ListTable : public ListedElementsTest {
protected:
    ListTable()
    {
        model.readChoices();
        load("DM");
    }
    void load(const QString& key, const HierarchyPlace& place = {}, int cycle = -1) { model.load({key, place, cycle}); }
    QStringList texts(int row) const
    {
        QStringList met;
        for (int column = 0; column < model.columnCount(); ++column)
            met.append(model.index(row, column).data().toString());
        return met;
    }
    QStringList column(int column) const
    {
        QStringList met;
        for (int row = 0; row < model.rowCount(); ++row)
            met.append(model.index(row, column).data().toString());
        return met;
    }
    int rowOf(const QString& name) const { return column(Model::Name).indexOf(name); }
    QStandardItem& item(const QString& name, int column) { return *model.item(rowOf(name), column); }
    // As the delegate of positions does.
    void move(const QString& name, int position)
    {
        QStandardItem& cell = item(name, Model::Position);
        const QVariant before = cell.data(Model::KeyRole);
        {
            const QSignalBlocker quiet(&model);
            cell.setText(model.positions().textOf(position));
            cell.setData(position, Model::KeyRole);
        }
        cell.setData(before, Model::OldPositionRole);
    }
    ListedElements all() const
    {
        ListedElements elements;
        for (int row = 0; row < model.rowCount(); ++row)
            elements.append(model.elementAt(row));
        // The server gives the rows of a position as it likes.
        std::sort(elements.begin(), elements.end(),
                  [](const ListedElement& a, const ListedElement& b) { return a.id < b.id; });
        return elements;
    }

    const Family& marks = family(FamilyKey::Dm);
    ElementListModel model;
};

} // namespace

TEST_F(ListTable, HasThirteenColumns)
{
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column)
        titles.append(model.headerData(column, Qt::Horizontal).toString());
    EXPECT_EQ(titles,
              (QStringList{"Id", "Имя", "Тип", "Состояние", "Позиция(Проект)", "X", "Y", "Абс.Отм.", "Высота",
                           "Измерения", "Фото", "Абрис", "Колонка"}));
}

TEST_F(ListTable, ShowsWhatTheKeysMean)
{
    EXPECT_EQ(texts(rowOf("DM-1")),
              (QStringList{"1", "DM-1", "Деформационная марка", "Существующий", "Позиция", "1.5", "2.25", "10", "0",
                           "Цикл: 12,11", "загр.", "загр.", "нет"}));
    EXPECT_EQ(texts(rowOf("DM-10")).mid(9), (QStringList{"Нет", "нет", "нет", "нет"}));
    EXPECT_EQ(item("DM-2", Model::State).text(), "Разрушена");
    EXPECT_EQ(item("DM-1", Model::Type).data(Model::KeyRole).toString(), "dm");
    EXPECT_EQ(item("DM-1", Model::Type).data(Model::ChoicesRole).value<StringMap>().size(), 4);
    EXPECT_EQ(item("DM-1", Model::State).data(Model::ChoicesRole).value<StringMap>(),
              (StringMap{{"broken", "Разрушена"}, {"exist", "Существующий"}}));
    EXPECT_EQ(item("DM-1", Model::Position).data(Model::KeyRole).toInt(), 7);
    EXPECT_EQ(item("DM-1", Model::Position).data(Model::ChoicesRole).value<ComboData>().entries.size(), 2);
    EXPECT_EQ(item("DM-1", Model::Name).data(Model::KeyRole).toString(), "DM-1");
    EXPECT_EQ(item("DM-1", Model::Name).data(Model::ChoicesRole).toString(), "DM-1");
    EXPECT_EQ(item("DM-1", Model::Sketch).data(Model::KeyRole).toInt(), 2);
    for (int column = 0; column < Model::ColumnCount; ++column) {
        const bool edited = column >= Model::Name && column <= Model::H;
        EXPECT_EQ(item("DM-1", column).isEditable(), edited) << column;
        const bool right = column >= Model::X;
        EXPECT_EQ(bool(item("DM-1", column).textAlignment() & Qt::AlignRight), right) << column;
        EXPECT_EQ(item("DM-1", column).data(Model::TableRole).toString(), "dm_elements");
    }
}

TEST_F(ListTable, ACycleThatIsUnknownIsAnEmptyNumber)
{
    session().cycles.remove(1);
    load("DM");
    EXPECT_EQ(texts(rowOf("DM-1"))[9], "Цикл: 12,");
}

TEST_F(ListTable, AllLeavesTheGeologicalWellsOut)
{
    load("ALL");
    QStringList firsts;
    for (const QString& name : column(Model::Name)) {
        if (name.endsWith("-1"))
            firsts.append(name);
    }
    EXPECT_EQ(firsts, (QStringList{"RP-1", "DM-1", "TS-1", "TSS-1", "GGS-1", "TSG-1"}));
    EXPECT_EQ(model.rowCount(), 18);
    load("IGS");
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(texts(rowOf("IGS-1")).mid(9), (QStringList{"Нет", "-", "-", "-"}));
    load("XX");
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(ListTable, LooksWhereItIsTold)
{
    for (const Family& family : families()) {
        load(family.shortKey, {3, 8});
        EXPECT_EQ(column(Model::Name), QStringList(family.shortKey + "-2")) << family.elements;
        for (int level = 0; level < 3; ++level) {
            load(family.shortKey, {level, 1});
            EXPECT_EQ(model.rowCount(), 3) << family.elements << level;
            load(family.shortKey, {level, 2});
            EXPECT_EQ(model.rowCount(), 0) << family.elements << level;
        }
    }
}

TEST_F(ListTable, AChosenCycleLeavesElementsWithoutIt)
{
    load("DM", {}, 2);
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(texts(rowOf("DM-1"))[9], "Цикл: 12");
    EXPECT_EQ(texts(rowOf("DM-10"))[9], "Нет");
}

TEST_F(ListTable, ANewNameIsWrittenUnlessItIsTaken)
{
    QSignalSpy refusals(&model, &Model::nameTaken);
    item("DM-1", Model::Name).setText("DM-10");
    EXPECT_EQ(refusals.size(), 1);
    EXPECT_EQ(stored(marks, "element_name", 1), "DM-1");
    EXPECT_GE(rowOf("DM-1"), 0);
    item("DM-1", Model::Name).setText("DM-2");
    EXPECT_EQ(refusals.size(), 1) << "another position";
    EXPECT_EQ(stored(marks, "element_name", 1), "DM-2");
    int renamed = 0;
    while (model.item(renamed, Model::Id)->text() != "1")
        ++renamed;
    model.item(renamed, Model::Name)->setText("DM-10");
    EXPECT_EQ(refusals.size(), 2);
    EXPECT_EQ(model.item(renamed, Model::Name)->text(), "DM-2") << "the last name that was accepted";
    EXPECT_EQ(stored(marks, "element_name", 1), "DM-2");
}

TEST_F(ListTable, TypeStateAndNumbersAreWritten)
{
    item("DM-1", Model::Type).setData("dm_gl", Model::KeyRole);
    item("DM-1", Model::State).setData("broken", Model::KeyRole);
    item("DM-1", Model::X).setText("-7.125");
    item("DM-1", Model::H).setText("");
    EXPECT_EQ(database
                  ->rows("select type_id, element_name, state_id, position_id, x, y, z, h from dm_elements where "
                         "element_id = 1")
                  .value(0),
              (QStringList{"dm_gl", "DM-1", "broken", "7", "-7.125", "2.25", "10", QString()}));
    EXPECT_EQ(stored(marks, "state_id", 2), "exist");
}

TEST_F(ListTable, APositionIsWrittenUnlessANamesakeIsThere)
{
    QSignalSpy refusals(&model, &Model::nameTaken);
    move("DM-1", 8);
    EXPECT_EQ(stored(marks, "position_id", 1), "8");
    database->exec("update dm_elements set element_name = 'DM-10' where element_id = 3");
    for (int attempt = 1; attempt <= 2; ++attempt) {
        move("DM-10", 8);
        EXPECT_EQ(refusals.size(), attempt);
        EXPECT_EQ(item("DM-10", Model::Position).text(), "Позиция");
        EXPECT_EQ(item("DM-10", Model::Position).data(Model::KeyRole).toInt(), 7);
        EXPECT_EQ(stored(marks, "position_id", 2), "7");
    }
    EXPECT_EQ(item("DM-1", Model::Position).data(Model::ChoicesRole).value<ComboData>().entries.size(), 2)
        << "the choices stay";
}

TEST_F(ListTable, TheOwnPositionIsNotWrittenASecondTime)
{
    QSignalSpy refusals(&model, &Model::nameTaken);
    database->exec("update dm_elements set x = 99 where element_id = 1");
    move("DM-1", 7);
    EXPECT_EQ(refusals.size(), 0);
    EXPECT_EQ(stored(marks, "x", 1), "99") << "another session's change stands";
}

TEST_F(ListTable, TwoSessionsThatEditOneMarkBothStandInTheLog)
{
    database->exec("truncate audit_log; update dm_elements set element_name = 'Чужая' where element_id = 1");
    item("DM-1", Model::Name).setText("Своя");
    EXPECT_EQ(stored(marks, "element_name", 1), "Своя") << "the later one wins";
    EXPECT_EQ(database->rows("select old_data ->> 'element_name', new_data ->> 'element_name' from audit_log "
                             "where table_name = 'dm_elements' order by audit_id"),
              (QVector<QStringList>{{"DM-1", "Чужая"}, {"Чужая", "Своя"}}));
    database->exec("update dm_elements set element_name = 'Снова' where element_id = 1");
    load("DM");
    EXPECT_TRUE(column(Model::Name).contains("Снова")) << "read anew, it is shown";
}

TEST_F(ListTable, AnEndlessNameOfOddLettersIsStoredWhole)
{
    const QString name = QString::fromUtf8("и\u0306 \U0001F9CA e\u0301 ").repeated(1000);
    ASSERT_GE(name.size(), 9000);
    item("DM-1", Model::Name).setText(name);
    EXPECT_EQ(stored(marks, "element_name", 1), name);
    load("DM");
    EXPECT_TRUE(column(Model::Name).contains(name));
}

TEST_F(ListTable, ANameWithAnApostropheIsRefusedByTheServer)
{
    item("DM-1", Model::Name).setText("Д'1");
    EXPECT_EQ(stored(marks, "element_name", 1), "DM-1");
}

TEST_F(ListTable, WithoutAServerNothingIsLost)
{
    database.disconnect();
    model.readChoices();
    EXPECT_EQ(model.states().size(), 2) << "a failed look-up leaves its map as it was";
    item("DM-1", Model::X).setText("5");
    EXPECT_EQ(item("DM-1", Model::X).text(), "5");
    load("DM");
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(ListTable, TypesAndStatesOfManyAreChanged)
{
    changeType(all(), "dm_t");
    changeState(all().mid(0, 2), "broken");
    EXPECT_EQ(database->value("select string_agg(type_id || state_id, ',' order by element_id) from dm_elements"),
              "dm_tbroken,dm_tbroken,dm_tbroken");
    EXPECT_EQ(console.take(),
              "Тип элемента DM-1 обновленТип элемента DM-10 обновленТип элемента DM-2 обновлен"
              "Состояние элемента DM-1 обновленоСостояние элемента DM-10 обновлено");
    changeType(all().mid(0, 1), "нет такого");
    changeState(all().mid(0, 1), "нет такого");
    EXPECT_EQ(console.take(), "Ошибка обновления типа элемента DM-1Ошибка обновления состояния элемента DM-1");
}

TEST_F(ListTable, ElementsOfOneFamilyHaveIt)
{
    EXPECT_EQ(commonFamily(all())->family, FamilyKey::Dm);
    load("ALL");
    EXPECT_EQ(commonFamily(all()), nullptr);
    EXPECT_EQ(commonFamily({}), nullptr);
    QStringList labels;
    for (const ListFamily& family : listFamilies())
        labels.append(family.tables().elements + " " + family.typeLabel);
    EXPECT_EQ(labels,
              (QStringList{"rp_elements Тип PR", "dm_elements Тип ДМ", "ts_elements Тип ТС", "tss_elements Тип ТCС",
                           "ggs_elements Тип ГГС", "tsg_elements Тип ТСГ", "igs_elements Тип ИГС"}));
}

TEST_F(ListTable, NamesakesStayBehindWhenManyAreMoved)
{
    database->exec("update dm_elements set element_name = 'DM-10' where element_id = 3");
    moveToPosition(all(), 8);
    EXPECT_EQ(stored(marks, "position_id", 1), "8");
    EXPECT_EQ(stored(marks, "position_id", 2), "7");
    EXPECT_EQ(console.take(),
              "Позиция элемента DM-1 обновленаЭлемент с именем 'DM-10' уже есть в позиции и будет пропущен"
              "Позиция элемента DM-2 обновлена");
    moveToPosition(all().mid(1, 1), 99);
    EXPECT_EQ(console.take(), "Ну удалось обновить позицию элемента DM-10");
}

TEST_F(ListTable, EveryFamilysElementsAreDeletedWithWhatTheyHold)
{
    for (const Family& family : families()) {
        load(family.shortKey);
        EXPECT_EQ(deletionQuestion(all().mid(0, 2)),
                  fill("Будет выполнено удаление следующих елементов: \n %1-1, %1-10 \n Продолжить?", family.shortKey));
        QStringList asked;
        deleteElements(all(), [&](const QString& text) {
            asked.append(text);
            return true;
        });
        EXPECT_EQ(database->value(fill("select count(*) from %1", family.elements)), "0");
    }
    EXPECT_TRUE(console.text().startsWith("Удален элемент DM-1Удален элемент DM-10Удален элемент DM-2"));
}

TEST_F(ListTable, WhatIsHeldIsClearedOnConsentAlone)
{
    // A database whose measures do not go with their elements.
    database->exec("alter table dm_meas drop constraint dm_meas_element_id_fkey;"
                   "alter table dm_meas add constraint kept foreign key (element_id) references dm_elements");
    QStringList asked;
    deleteElements(all().mid(0, 1), [&](const QString& text) {
        asked.append(text);
        return false;
    });
    EXPECT_EQ(
        asked,
        QStringList("Не удалось удалить DM-1\n  Возможно, элемент DM-1 содержит файлы, измерения, и другие данные. "
                    "\n Очистить их и повторить."));
    EXPECT_EQ(console.take(), "");
    EXPECT_EQ(stored(marks, "count(*)", 1), "1");
    deleteElements(all().mid(0, 1), [](const QString&) { return true; });
    EXPECT_EQ(console.take(), "Удален элемент DM-1");
    EXPECT_EQ(stored(marks, "count(*)", 1), "0");
    database->exec("alter table dm_meas drop constraint kept;"
                   "alter table dm_meas add constraint dm_meas_element_id_fkey foreign key (element_id) references "
                   "dm_elements on delete cascade");
    const ListedElements left = all();
    database.disconnect();
    deleteElements(left.mid(1, 1), [](const QString&) { return true; });
    EXPECT_EQ(console.take(), "Ошибка очистки данных для элемента DM-10Ошибка удаления элемента DM-10");
}

TEST(ListFamilies, ClearTheirTablesInOrder)
{
    for (const ListFamily& family : listFamilies()) {
        const QString prefix = family.tables().elements.section('_', 0, 0);
        QStringList expected = {prefix + "_dynprops"};
        if (!family.measureId.isEmpty())
            expected << prefix + "_files" << prefix + "_inspection" << prefix + "_meas";
        EXPECT_EQ(family.dependants(), expected);
    }
}
