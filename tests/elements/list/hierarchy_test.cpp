// The places where lists look, and the order in which they show names.
#include "elements/list/hierarchy.h"

#include "elements/list/name_order.h"
#include "support/position_session.h"

#include <QStandardItemModel>
#include <gtest/gtest.h>

TEST(HierarchyPlaces, AskByTheirLevelAndNothingForEverywhere)
{
    EXPECT_EQ(scopeClause({}).text(), "");
    EXPECT_EQ(scopeClause({0, 5}).text(), " where project_id=5 ");
    EXPECT_EQ(scopeClause({1, 5}).text(), " where object_id=5 ");
    EXPECT_EQ(scopeClause({2, 5}).text(), " where subobject_id=5 ");
    EXPECT_EQ(scopeClause({3, 5}).text(), " where position_id=5 ");
}

TEST(HierarchyPlaces, GoThroughATextAndBack)
{
    EXPECT_EQ(placeText({3, 17}), "3:17");
    EXPECT_EQ(placeOf("3:17").level, 3);
    EXPECT_EQ(placeOf("3:17").id, 17);
    for (const char* bad : {"", "3", "4:1", "-1:2", "x:1", "1:x"})
        EXPECT_EQ(placeOf(bad).level, -1) << bad;
    EXPECT_EQ(placeText({}), "");
}

TEST(Hierarchy, IsReadDepthFirstInTheOrderOfItsSiblings)
{
    PositionSession database;
    database->exec("update positions set appearence = 2 where position_id = 7;"
                   "update positions set appearence = 1 where position_id = 8;"
                   "insert into subobjects (subobject_id, object_id, subobject, appearence) overriding system value "
                   "values (2, 1, 'Пустой', 9)");
    QStringList met;
    for (const HierarchyNode& node : readHierarchy())
        met.append(placeText(node.place) + " " + node.name);
    EXPECT_EQ(met,
              (QStringList{"0:1 Проект", "1:1 Объект", "2:1 Подобъект", "3:8 Другая", "3:7 Позиция", "2:2 Пустой"}));
    database.disconnect();
    EXPECT_TRUE(readHierarchy().isEmpty());
}

TEST(ElementListProxyFilterModel, NumbersInNamesCountAsNumbers)
{
    QStandardItemModel names(0, 1);
    for (const char* name : {"ТС-10", "ТС-2", "ДМ-1", "тс-3", "ТС-02а", ""})
        names.appendRow(new QStandardItem(QString(name)));
    ElementListProxyFilterModel order;
    order.setSourceModel(&names);
    order.sort(0);
    QStringList met;
    for (int row = 0; row < order.rowCount(); ++row)
        met.append(order.index(row, 0).data().toString());
    EXPECT_EQ(met, (QStringList{"", "ДМ-1", "ТС-2", "ТС-02а", "тс-3", "ТС-10"}));
}
