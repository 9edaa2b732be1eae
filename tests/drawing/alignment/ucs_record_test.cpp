#include "drawing/alignment/ucs_record.h"
#include "support/printing.h"

#include <gtest/gtest.h>

TEST(UcsRecord, IsTenFieldsOfOneText)
{
    const UcsRecord ucs("Юг", {1.5, -2, 0.125}, {0, 1, 0}, {-1, 0, 0});
    EXPECT_EQ(ucs.text(), "Юг&1.500000&-2.000000&0.125000&0.000000&1.000000&0.000000&-1.000000&0.000000&0.000000");
    const auto numbers = ucsNumbers(ucs.text());
    ASSERT_TRUE(numbers);
    EXPECT_EQ(*numbers, ucs.numbers);
    EXPECT_EQ(ucs.origin(), NcGePoint3d(1.5, -2, 0.125));
    EXPECT_EQ(ucs.xAxis(), NcGeVector3d(0, 1, 0));
    EXPECT_EQ(ucs.yAxis(), NcGeVector3d(-1, 0, 0));
}

TEST(UcsRecord, AnotherTextHoldsNoNumbers)
{
    EXPECT_FALSE(ucsNumbers(""));
    EXPECT_FALSE(ucsNumbers("Юг&1&2&3&4&5&6&7&8"));
    EXPECT_FALSE(ucsNumbers("Юг&север&1&2&3&4&5&6&7&8&9"));
    EXPECT_FALSE(ucsNumbers("Юг&1&2&3&4&x&6&7&8&9"));
    EXPECT_FALSE(ucsNumbers("Юг&1&2&3&4&&6&7&8&9"));
    EXPECT_FALSE(ucsNumbers("Юг&1&2&3&4&inf&6&7&8&9"));
    EXPECT_TRUE(ucsNumbers("&1&2&3&4&5&6&7&8&9"));
}

TEST(UcsName, RefusedCharactersBecomeBlanks)
{
    EXPECT_EQ(cleanUcsName("a<b>c\\d/e\"f'g:h?i*j|k,l=m"), "a b c d e f g h i j k l m");
    EXPECT_EQ(cleanUcsName("Поз. 1 & (2)-[3];4"), "Поз. 1 & (2)-[3];4");
    EXPECT_EQ(storableUcsName("Поз.=1&2"), "Поз. 1 2");
}
