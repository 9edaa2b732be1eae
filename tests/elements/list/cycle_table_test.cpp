#include "elements/list/cycle_table.h"

#include "session/project_session.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

class Cycles : public ::testing::Test {
protected:
    Cycles()
    {
        session().cycles = {{4, {"1", "01.01.21", "31.01.21", "зима"}}, {2, {"2", "", "", ""}}};
        session().cycleOrder = {4, 2};
    }
    ~Cycles() override
    {
        session().cycles.clear();
        session().cycleOrder.clear();
    }
    static CycleRows rows()
    {
        CycleRow first, second;
        first.elementId = 11;
        first.name = "Т-1";
        first.state = "цел";
        first.cells[2] = {77, "05.02.2021"};
        second.elementId = 12;
        second.name = "Т-2";
        return {first, second};
    }
    static QString text(const CycleTable& table, int row, int column)
    {
        return table.index(row, column).data().toString();
    }
    static QVector<int> marks(const CycleTable& table)
    {
        QVector<int> marks;
        for (int row = 0; row < table.rowCount(); ++row)
            marks.append(table.index(row, 0).data(Qt::CheckStateRole).toInt());
        return marks;
    }
};

} // namespace

TEST_F(Cycles, AColumnACycleInTheOrderOfTheirDates)
{
    CycleTable table({"Имя"});
    table.setRows(rows(), CycleTable::Elements::Other);
    QStringList titles;
    for (int column = 0; column < table.columnCount(); ++column)
        titles.append(table.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    EXPECT_EQ(titles, (QStringList{"Имя", "Цикл 1", "Цикл 2"}));
    EXPECT_EQ(text(table, 0, 1), "--");
    EXPECT_EQ(text(table, 0, 2), "05.02.2021");
    EXPECT_EQ(table.index(0, 1).data(Qt::UserRole).toInt(), -1);
    EXPECT_EQ(table.index(0, 2).data(Qt::UserRole).toInt(), 77);
    EXPECT_EQ(table.index(0, 0).data(Qt::UserRole).toInt(), 11);
    EXPECT_EQ(table.index(0, 0).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    EXPECT_EQ(table.index(0, 2).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    EXPECT_FALSE(table.index(0, 0).flags() & Qt::ItemIsEditable);
    EXPECT_FALSE(table.index(0, 2).flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable));
}

TEST_F(Cycles, TheStateStandsBeforeTheCyclesWhereItIsShown)
{
    CycleTable table({"Имя", "Тек.состояние"});
    table.setRows(rows(), CycleTable::Elements::Other);
    EXPECT_EQ(table.columnCount(), 4);
    EXPECT_EQ(text(table, 0, 1), "цел");
    EXPECT_EQ(text(table, 0, 3), "05.02.2021");
    EXPECT_FALSE(table.index(0, 1).data(Qt::UserRole).isValid());
    EXPECT_EQ(table.index(0, 3).data(Qt::UserRole).toInt(), 77);
}

TEST_F(Cycles, AllIsMarkedAtFirstAndMarkedAtOnce)
{
    CycleTable table({"Имя"});
    table.setRows(rows(), CycleTable::Elements::Other);
    EXPECT_EQ(marks(table), (QVector<int>{Qt::Checked, Qt::Checked}));
    EXPECT_TRUE(table.setData(table.index(1, 0), Qt::Unchecked, Qt::CheckStateRole));
    QSignalSpy changes(&table, &QAbstractItemModel::dataChanged);
    table.mark(Marks::Inverse);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(marks(table), (QVector<int>{Qt::Unchecked, Qt::Checked}));
    table.mark(Marks::None);
    EXPECT_EQ(marks(table), (QVector<int>{Qt::Unchecked, Qt::Unchecked}));
    table.mark(Marks::All);
    EXPECT_EQ(marks(table), (QVector<int>{Qt::Checked, Qt::Checked}));
    EXPECT_FALSE(table.setData(table.index(0, 1), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_FALSE(table.setData(table.index(0, 0), "Т-9", Qt::EditRole));
}

TEST_F(Cycles, WhatIsUnmarkedStaysSoForTheSameElementsAlone)
{
    CycleTable table({"Имя"});
    table.setRows(rows(), CycleTable::Elements::Other);
    table.setData(table.index(1, 0), Qt::Unchecked, Qt::CheckStateRole);
    CycleRows turned = rows();
    std::swap(turned[0], turned[1]);
    table.setRows(turned, CycleTable::Elements::Same);
    EXPECT_EQ(marks(table), (QVector<int>{Qt::Unchecked, Qt::Checked}));
    table.setRows(rows(), CycleTable::Elements::Other);
    EXPECT_EQ(marks(table), (QVector<int>{Qt::Checked, Qt::Checked}));
}
