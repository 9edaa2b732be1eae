#include "elements/families/families.h"
#include "elements/families/kinds.h"

#include <QSet>
#include <gtest/gtest.h>

namespace {

struct KindRow {
    int number;
    const char* blockName;
    const char* typeId;
    const char* layer;
    const char* table;
};

void PrintTo(const KindRow& row, std::ostream* out) { *out << "kind " << row.number; }

const KindRow registry[] = {
    {0, "dm_def", "dm", "GMN_DM", "dm_elements"},
    {1, "", "", "0", ""},
    {2, "ts_def", "ts", "GMN_TS", "ts_elements"},
    {3, "ggs_def", "ggs", "GMN_GGS", "ggs_elements"},
    {4, "", "", "0", ""},
    {5, "tsg_def", "tsg", "GMN_TSG", "tsg_elements"},
    {6, "sv_def", "sv", "0", ""},
    {7, "", "", "0", ""},
    {8, "rp_gl_def", "rp_gl", "GMN_RP", "rp_elements"},
    {9, "rp_gr_def", "rp_gr", "GMN_RP", "rp_elements"},
    {10, "rp_st_def", "rp_st", "GMN_RP", "rp_elements"},
    {11, "dm_t_def", "dm_t", "GMN_DM", "dm_elements"},
    {12, "dm_gl_def", "dm_gl", "GMN_DM", "dm_elements"},
    {13, "dm_pv_def", "dm_pv", "GMN_DM", "dm_elements"},
    {14, "tt_def", "tt", "GMN_TS", "ts_elements"},
    {15, "tss_p_def", "tss_p", "GMN_TSS", "tss_elements"},
    {16, "pk_def", "pk", "0", ""},
    {17, "skv_def", "skv", "GMN_GEO", "igs_elements"},
    {18, "tsg_g_def", "tsg_g", "GMN_TSG", "tsg_elements"},
    {19, "tsg_vs_def", "tsg_vs", "GMN_TSG", "tsg_elements"},
    {20, "tss_h_def", "tss_h", "GMN_TSS", "tss_elements"},
    {21, "rp_vr_def", "rp_vr", "GMN_RP", "rp_elements"},
};

class Registry : public ::testing::TestWithParam<KindRow> { };

} // namespace

TEST_P(Registry, RowSaysBlockTypeLayerAndTable)
{
    const KindRow& row = GetParam();
    const Kind& kind = kinds()[size_t(row.number)];
    EXPECT_EQ(kind.blockName, row.blockName);
    EXPECT_EQ(kind.typeId, row.typeId);
    EXPECT_EQ(kind.layer, row.layer);
    EXPECT_EQ(kind.elementTable, row.table);
}

TEST_P(Registry, LookupsFindTheFirstRowOfTheText)
{
    const KindRow& row = GetParam();
    const int first = *row.blockName ? row.number : 1;
    EXPECT_EQ(kindByBlockName(row.blockName), first);
    EXPECT_EQ(kindByTypeId(row.typeId), first);
    EXPECT_EQ(blockNameByTypeId(row.typeId), row.blockName);
}

TEST_P(Registry, TableIsThatOfTheFamily)
{
    const KindRow& row = GetParam();
    const Family* family = familyOfKind(row.number);
    EXPECT_EQ(family != nullptr, *row.table != 0);
    if (family) {
        EXPECT_EQ(family->elements, row.table);
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Registry, ::testing::ValuesIn(registry));

TEST(Kinds, UnknownNamesHaveNoKind)
{
    EXPECT_EQ(kindByBlockName("no_def"), noKind);
    EXPECT_EQ(kindByBlockName("DM_DEF"), noKind);
    EXPECT_EQ(kindByBlockName("dm"), noKind);
    EXPECT_EQ(kindByTypeId("dm_def"), noKind);
    EXPECT_EQ(blockNameByTypeId("nothing"), QString());
    EXPECT_EQ(noKind, 9999);
}

TEST(Kinds, EmptyNamesFindTheFirstUnusedRow)
{
    EXPECT_EQ(kindByBlockName(""), 1);
    EXPECT_EQ(kindByTypeId(""), 1);
}

TEST(Kinds, OnlyIndexesOfTheRegistryAreKinds)
{
    EXPECT_TRUE(isKind(0));
    EXPECT_TRUE(isKind(21));
    EXPECT_FALSE(isKind(22));
    EXPECT_FALSE(isKind(-1));
    EXPECT_FALSE(isKind(noKind));
}

TEST(Kinds, LayersAreMadeInTheirOrder)
{
    EXPECT_EQ(elementLayers(), (QStringList{"GMN_DM", "GMN_TS", "GMN_TSS", "GMN_RP", "GMN_GGS", "GMN_TSG", "GMN_GEO"}));
}

namespace {

struct FamilyRow {
    FamilyKey key;
    const char* shortKey;
    const char* name;
    QVector<int> searchOrder;
    const char* prefix;
    unsigned mask;
    bool measured;
};

void PrintTo(const FamilyRow& row, std::ostream* out) { *out << row.shortKey; }

class Families : public ::testing::TestWithParam<FamilyRow> { };

} // namespace

TEST_P(Families, RowSaysKeyNameKindsAndMask)
{
    const FamilyRow& row = GetParam();
    const Family& f = family(row.key);
    EXPECT_EQ(f.key, row.key);
    EXPECT_EQ(f.shortKey, row.shortKey);
    EXPECT_EQ(f.listName, QString::fromUtf8(row.name));
    EXPECT_EQ(f.kinds, row.searchOrder);
    EXPECT_EQ(f.mask, row.mask);
    EXPECT_EQ(familyByShortKey(row.shortKey), &f);
    for (const int kind : row.searchOrder)
        EXPECT_EQ(familyOfKind(kind), &f);
}

TEST_P(Families, TablesGoByThePrefix)
{
    const FamilyRow& row = GetParam();
    const Family& f = family(row.key);
    const QString prefix = row.prefix;
    EXPECT_EQ(f.elements, prefix + "_elements");
    EXPECT_EQ(f.dynprops, prefix + "_dynprops");
    EXPECT_EQ(f.types, prefix + "_types");
    EXPECT_EQ(f.measures, row.measured ? prefix + "_meas" : QString());
    EXPECT_EQ(f.inspections, row.measured ? prefix + "_inspection" : QString());
    EXPECT_EQ(f.files, row.measured ? prefix + "_files" : QString());
}

INSTANTIATE_TEST_SUITE_P(
    Seven, Families,
    ::testing::Values(FamilyRow{FamilyKey::Dm, "DM", "Деформационные марки", {0, 12, 13, 11}, "dm", 1, true},
                      FamilyRow{FamilyKey::Ts, "TS", "Термоскважины", {2, 14}, "ts", 2, true},
                      FamilyRow{FamilyKey::Rp, "RP", "Репера", {8, 9, 10, 21}, "rp", 4, true},
                      FamilyRow{FamilyKey::Ggs, "GGS", "Гидрогеологические скважины", {3}, "ggs", 8, true},
                      FamilyRow{FamilyKey::Igs, "IGS", "Инженерно-геологические скважины", {17}, "igs", 16, false},
                      FamilyRow{FamilyKey::Tss, "TSS", "Точки снегомерной съемки", {20, 15}, "tss", 32, true},
                      FamilyRow{
                          FamilyKey::Tsg, "TSG", "Термостабилизационные элементы", {5, 18, 19}, "tsg", 64, true}));

TEST(FamilyTable, UnusedRowsPilesAndMarkersBelongToNone)
{
    for (const int kind : {1, 4, 6, 7, 16, noKind, -1})
        EXPECT_EQ(familyOfKind(kind), nullptr) << kind;
}

TEST(FamilyTable, EveryOtherKindBelongsToExactlyOne)
{
    QSet<int> seen;
    for (const Family& f : families()) {
        for (const int kind : f.kinds) {
            EXPECT_FALSE(seen.contains(kind)) << kind;
            seen.insert(kind);
        }
    }
    EXPECT_EQ(seen.size(), 17);
}

TEST(FamilyTable, OnlyThermostabilisersHaveADepthAndOnlyThermalWellsAProfile)
{
    for (const Family& f : families()) {
        EXPECT_EQ(f.hasDepth, f.shortKey == "TSG") << f.shortKey;
        EXPECT_EQ(f.hasProfile, f.shortKey == "TS") << f.shortKey;
    }
}

namespace {

struct Sign {
    FamilyKey family;
    int number;
};

} // namespace

TEST(FamilyTable, RowsAreFoundByKeyAndWalkedInTheirOwnOrder)
{
    const FamilyTable<Sign, 2> signs = {{FamilyKey::Tsg, 5}, {FamilyKey::Dm, 3}};
    ASSERT_NE(signs.find(FamilyKey::Dm), nullptr);
    EXPECT_EQ(signs.find(FamilyKey::Dm)->number, 3);
    EXPECT_EQ(signs.find(FamilyKey::Tsg)->number, 5);
    EXPECT_EQ(signs.find(FamilyKey::Rp), nullptr);
    EXPECT_EQ(signs.begin()->number, 5);
    EXPECT_EQ(signs.size(), 2);
    int place = 0;
    for (const Family& f : families())
        EXPECT_EQ(int(f.key), place++);
}

TEST(FamilyTable, OneThatForgetsAFamilyOrNamesItTwiceIsNeverMade)
{
    using Two = FamilyTable<Sign, 2>;
    EXPECT_DEATH((Two{{FamilyKey::Dm, 1}}), "has 1 rows in place of 2");
    EXPECT_DEATH((Two{{FamilyKey::Dm, 1}, {FamilyKey::Ts, 2}, {FamilyKey::Rp, 3}}), "has 3 rows in place of 2");
    EXPECT_DEATH((Two{{FamilyKey::Ts, 1}, {FamilyKey::Ts, 2}}), "two rows of the family 1");
}

TEST(FamilyTable, AllIsAnEntryOfTheListAndNoFamily)
{
    EXPECT_EQ(allFamiliesKey(), "ALL");
    EXPECT_EQ(allFamiliesName(), "Все");
    EXPECT_EQ(familyByShortKey("ALL"), nullptr);
    EXPECT_EQ(familyByShortKey("dm"), nullptr);
}
