// The order of names of elements, and that it follows every change of the names.
#include "elements/list/name_order.h"

#include <QStandardItemModel>
#include <gtest/gtest.h>

namespace {

class NameOrder : public ::testing::Test {
protected:
    void SetUp() override
    {
        order_.setSourceModel(&names_);
        order_.setDynamicSortFilter(true);
        for (const char* name : {"М-10", "М-2", "А-1"})
            add(name, "z");
        order_.sort(0);
    }
    void add(const QString& name, const QString& second)
    {
        names_.appendRow({new QStandardItem(name), new QStandardItem(second)});
    }
    QStringList shown() const
    {
        QStringList texts;
        for (int row = 0; row < order_.rowCount(); ++row)
            texts << order_.index(row, 0).data().toString();
        return texts;
    }

    QStandardItemModel names_;
    ElementListProxyFilterModel order_;
};

} // namespace

TEST_F(NameOrder, TakesNumbersAsNumbers) { EXPECT_EQ(shown(), QStringList({"А-1", "М-2", "М-10"})); }

TEST_F(NameOrder, FollowsAnEditedName)
{
    names_.item(1)->setText("М-11");
    EXPECT_EQ(shown(), QStringList({"А-1", "М-10", "М-11"}));
}

TEST_F(NameOrder, FollowsRowsThatComeAndGo)
{
    names_.insertRow(0, {new QStandardItem("М-3"), new QStandardItem("a")});
    EXPECT_EQ(shown(), QStringList({"А-1", "М-2", "М-3", "М-10"}));
    names_.removeRow(1);
    add("М-1", "b");
    EXPECT_EQ(shown(), QStringList({"А-1", "М-1", "М-2", "М-3"}));
}

TEST_F(NameOrder, FollowsAChangeOfColumn)
{
    for (int row = 0; row < 3; ++row)
        names_.item(row, 1)->setText(QString::number(3 - row));
    order_.sort(1);
    EXPECT_EQ(shown(), QStringList({"А-1", "М-2", "М-10"}));
    names_.item(0, 1)->setText("0");
    EXPECT_EQ(shown(), QStringList({"М-10", "А-1", "М-2"}));
    order_.sort(0);
    EXPECT_EQ(shown(), QStringList({"А-1", "М-2", "М-10"}));
}

TEST_F(NameOrder, FollowsAColumnThatIsPutBeforeIt)
{
    names_.insertColumn(0, {new QStandardItem("3"), new QStandardItem("2"), new QStandardItem("1")});
    order_.sort(0);
    EXPECT_EQ(shown(), QStringList({"1", "2", "3"}));
}

TEST_F(NameOrder, FollowsAModelThatBeginsAnew)
{
    names_.clear();
    EXPECT_EQ(shown(), QStringList());
    for (const char* name : {"Я-2", "Я-10", "Я-1"})
        add(name, "");
    order_.sort(0);
    EXPECT_EQ(shown(), QStringList({"Я-1", "Я-2", "Я-10"}));
}

TEST_F(NameOrder, FollowsAnotherModel)
{
    QStandardItemModel others;
    for (const char* name : {"Ю-2", "Ю-1", "Ю-30", "Ю-4"})
        others.appendRow(new QStandardItem(name));
    order_.setSourceModel(&others);
    order_.sort(0);
    EXPECT_EQ(shown(), QStringList({"Ю-1", "Ю-2", "Ю-4", "Ю-30"}));
    names_.clear();
    EXPECT_EQ(order_.rowCount(), 4);
    order_.setSourceModel(nullptr);
}

TEST_F(NameOrder, WidensAFilterInOrder)
{
    order_.setFilterRegExp(QRegExp("10"));
    EXPECT_EQ(shown(), QStringList({"М-10"}));
    order_.setFilterRegExp(QRegExp(".+"));
    EXPECT_EQ(shown(), QStringList({"А-1", "М-2", "М-10"}));
}
