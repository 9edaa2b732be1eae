// The row of an element: what is read, what is written, which names are free.
#include "elements/passports/passport_row.h"

#include "elements/passports/passport_elements.h"
#include "support/statement_relay.h"

#include <QAbstractItemModel>

namespace {

class EveryPassport : public PassportElements, public ::testing::WithParamInterface<FamilyKey> {
protected:
    EveryPassport() : row(passportFamily(GetParam())) { fillElements(GetParam()); }
    const Family& tables() const { return family(GetParam()); }

    PassportRow row;
};

class PassportRows : public PassportElements {
protected:
    // What the server is asked meanwhile, behind the opening of the connection.
    template <class Work>
    QStringList asked(const Work& work)
    {
        StatementRelay relay;
        session().sqlPort = relay.port();
        EXPECT_TRUE(session().connection.open(session().buildConnInfo()));
        relay.refuse(-1);
        work();
        const QStringList texts = relay.texts();
        session().connection.finish();
        database.connect();
        return texts;
    }
};

const FamilyKey allFamilies[] = {FamilyKey::Dm,  FamilyKey::Ts,  FamilyKey::Rp, FamilyKey::Ggs,
                                 FamilyKey::Igs, FamilyKey::Tss, FamilyKey::Tsg};

} // namespace

TEST_P(EveryPassport, ReadsTheRowInTheOrderOfItsStatements)
{
    ASSERT_TRUE(row.read(1));
    EXPECT_EQ(row.id(), 1);
    QStringList expected = {cell("type_id", tables(), 1), "Т-10", "exist", "7", "101", "201", "50", "1.5"};
    if (tables().hasProfile)
        expected << "12"
                 << "10.5";
    if (tables().hasDepth)
        expected << "6.5"
                 << "4";
    EXPECT_EQ(row.values(), expected);
    EXPECT_EQ(row.values().size(), FirstExtra + row.family().extraCount());
    ASSERT_TRUE(row.readForInspector(1));
    EXPECT_EQ(row.values(), expected);
}

TEST_P(EveryPassport, ARowThatIsNotThereLeavesNothing)
{
    ASSERT_TRUE(row.read(1));
    EXPECT_FALSE(row.read(99));
    EXPECT_EQ(row.id(), -1);
    EXPECT_TRUE(row.values().isEmpty());
    database.disconnect();
    EXPECT_FALSE(row.read(1));
}

TEST_P(EveryPassport, WritesTheRowFromBothSides)
{
    ASSERT_TRUE(row.read(1));
    QStringList values = row.values();
    values[ElementName] = "Новое";
    values[StateId] = "broken";
    values[PositionId] = "8";
    values[PlaceX] = "+1.5";
    values[PlaceY] = "-2";
    values[PlaceZ] = "3.";
    values[Height] = "0";
    for (int extra = FirstExtra; extra < values.size(); ++extra)
        values[extra] = "5";
    ASSERT_TRUE(row.update(values));
    PassportRow again(passportFamily(GetParam()));
    ASSERT_TRUE(again.read(1));
    QStringList expected = values;
    expected[PlaceX] = "1.5";
    expected[PlaceZ] = "3";
    EXPECT_EQ(again.values(), expected);

    values[ElementName] = "Ещё";
    values[PlaceX] = "7.25";
    if (values.size() > FirstExtra)
        values[FirstExtra] = "4";
    ASSERT_TRUE(again.updateFromInspector(values));
    ASSERT_TRUE(row.readForInspector(1));
    values[PlaceZ] = "3";
    EXPECT_EQ(row.values(), values);
}

TEST_P(EveryPassport, WhatTheServerRefusesChangesNothing)
{
    ASSERT_TRUE(row.read(1));
    const QStringList before = row.values();
    for (const int column : {int(ElementName), int(StateId), int(PlaceX), int(Height)}) {
        QStringList values = before;
        values[column] = column == ElementName ? "д'Арк" : column == StateId ? "unknown" : "";
        EXPECT_FALSE(row.update(values)) << column;
        EXPECT_FALSE(row.updateFromInspector(values)) << column;
        EXPECT_EQ(row.values(), before);
        PassportRow again(passportFamily(GetParam()));
        ASSERT_TRUE(again.read(1));
        EXPECT_EQ(again.values(), before);
    }
    database.disconnect();
    EXPECT_FALSE(row.update(before));
}

TEST_P(EveryPassport, ANameOfAnotherPositionIsFreeForThePassportAlone)
{
    ASSERT_TRUE(row.read(1));
    QStringList values = row.values();
    values[ElementName] = "Д-1"; // of position 8
    EXPECT_EQ(row.passportFault(values), "");
    const QString refused = GetParam() == FamilyKey::Rp ? QString("Изменяемое имя уже есть в базе")
                                                        : QString("Изменяемое имя 'Д-1' уже есть в базе");
    EXPECT_EQ(row.inspectorFault(row.name(), values), refused);
    values[ElementName] = "Т-2"; // of its own
    EXPECT_EQ(row.passportFault(values), "Имя \"Т-2\" уже есть в базе данных");
    values[PositionId] = "8";
    EXPECT_EQ(row.passportFault(values), "") << "the position that is chosen counts";
    values[ElementName] = "Т-10";
    EXPECT_EQ(row.passportFault(values), "") << "its own name";
    EXPECT_EQ(row.inspectorFault("Т-10", values), "");
    EXPECT_NE(row.inspectorFault("другое", values), "") << "another than the block's is looked for, and it is there";
}

INSTANTIATE_TEST_SUITE_P(Families, EveryPassport, ::testing::ValuesIn(allFamilies));

TEST_F(PassportRows, StatementsGoToTheLetter)
{
    fillElements(FamilyKey::Dm);
    const QStringList marks = asked([] {
        PassportRow row(passportFamily(FamilyKey::Dm));
        row.read(1);
        row.readForInspector(1);
        QStringList values = row.values();
        row.update(values);
        row.updateFromInspector(values);
        values[ElementName] = "новое";
        row.passportFault(values);
        row.inspectorFault("Т-10", values);
    });
    EXPECT_EQ(marks,
              (QStringList{
                  "select element_id, type_id, element_name, state_id, position_id, x,y,z,h from dm_elements where "
                  "element_id=1",
                  "select type_id, element_name, state_id, position_id, x,y,z,h from dm_elements where element_id=1",
                  "update dm_elements set (type_id, element_name, state_id, position_id, x, y, z, h) = "
                  "('dm','Т-10','exist',7,101,201,50,1.5) where element_id=1",
                  "update dm_elements set(type_id, element_name, state_id, position_id , x, y, z, h) = ('dm', 'Т-10', "
                  "'exist',7, 101, 201, 50, 1.5) where element_id = 1",
                  "select element_name from dm_elements where position_id=7",
                  "select element_name from dm_elements ",
              }));
    fillElements(FamilyKey::Ts);
    const QStringList wells = asked([] {
        PassportRow row(passportFamily(FamilyKey::Ts));
        row.read(1);
        row.update(row.values());
        row.updateFromInspector(row.values());
    });
    EXPECT_EQ(
        wells,
        (QStringList{
            "select element_id, type_id, element_name, state_id, position_id, x,y,z,h,depth_proj,depth from "
            "ts_elements where element_id=1",
            "update ts_elements set (type_id, element_name, state_id, position_id, x, y, z, h,depth_proj,depth) = "
            "('ts','Т-10','exist',7,101,201,50,1.5,'12','10.5') where element_id=1",
            "update ts_elements set(type_id, element_name, state_id, position_id , x, y, z, h) = ('ts', 'Т-10', "
            "'exist',7, 101, 201, 50, 1.5) where element_id = 1",
            "update ts_elements set(depth_proj, depth) = ('12', '10.5') where element_id = 1",
        }));
    fillElements(FamilyKey::Rp);
    const QStringList benchmarks = asked([] {
        PassportRow row(passportFamily(FamilyKey::Rp));
        row.read(1);
        row.updateFromInspector(row.values());
    });
    EXPECT_EQ(benchmarks.value(1),
              "update rp_elements set(type_id, element_name, state_id,position_id , x, y, z, h) = ('rp_gl', 'Т-10', "
              "'exist',7, 101, 201, 50, 1.5) where element_id = 1")
        << "no blank before position_id";
}

TEST_F(PassportRows, AnEmptyDepthOfAThermalWellIsRefusedInSilence)
{
    fillElements(FamilyKey::Ts);
    PassportRow row(passportFamily(FamilyKey::Ts));
    ASSERT_TRUE(row.read(1));
    QStringList values = row.values();
    values[FirstExtra + 1].clear();
    EXPECT_FALSE(row.update(values));
    EXPECT_EQ(console.text(), "");
    EXPECT_EQ(cell("depth", family(FamilyKey::Ts), 1), "10.5");
}
