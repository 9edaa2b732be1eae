// Bringing rows into the drawing, family by family.
#include "drawing/sync/element_rows.h"
#include "sync_fixture.h"

namespace {

class DatabaseToDrawing : public EveryFamily {
protected:
    unsigned mask() const { return family().mask; }
    // What a run over this family alone prints before its rows.
    QString head() const { return "Инициальзация слоев ГМН\nИнициальзация блоков ГМН\n" + texts().heading; }
};

class RowsToDrawing : public SyncFixture { };

// A default of "0.0" comes back from the drawing as the number it is.
QString asDrawn(QString props) { return props.replace(":0.0", ":0"); }

struct Attribute {
    FamilyKey family;
    const char* tag;
    const char* text;
};

// Attributes that mirror numbers, with the row's z 1.5, h 2.125 and e 1.
const Attribute mirrored[] = {
    {FamilyKey::Rp, "rp_z", "1.50"}, {FamilyKey::Tsg, "h", "2.13"}, {FamilyKey::Tsg, "de", "1.00"},
    {FamilyKey::Tsg, "z", "1.50"},   {FamilyKey::Igs, "Z", "0"},
};

} // namespace

TEST_P(DatabaseToDrawing, InsertsAMissingBlockTellsAndMarksIt)
{
    addRow(family(), 31, "М1");
    database->exec("update " + family().elements
                   + " set state_id = 'lost', z = 1.5, h = 2.125, block_rotation = 0.5, scale = 2");
    if (GetParam() == FamilyKey::Tsg)
        database->exec("update tsg_elements set e = 1");
    toDrawing(mask());

    const bool named = GetParam() == FamilyKey::Dm || GetParam() == FamilyKey::Igs;
    QString notFound = texts().notFound;
    EXPECT_EQ(notFound.contains("%s"), named);
    EXPECT_EQ(host.console, head() + told(notFound, 31, "М1"));
    EXPECT_EQ(markers(), QStringList(circle(10, 100, 200, 1.5)));
    ASSERT_EQ(drawing.references().size(), 1);
    const ElementBlock block(drawing.references()[0]);
    EXPECT_EQ(block.kind, firstKind());
    EXPECT_EQ(block.attributes.value("name"), "М1");
    EXPECT_EQ(block.attributes.value("element_id"), "31");
    EXPECT_EQ(block.stateId, "lost");
    EXPECT_NEAR(block.blockRotation, 0.5, 1e-12);
    EXPECT_NEAR(block.scale, 2, 1e-12);
    for (const Attribute& expected : mirrored) {
        if (expected.family == GetParam()) {
            EXPECT_EQ(block.attributes.value(expected.tag), expected.text) << expected.tag;
        }
    }
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(DatabaseToDrawing, WinsOnAllCountsOverAFoundBlock)
{
    addRow(family(), 31, "М1", PositionSession::position, lastKind(), 11, 22);
    ElementBlock wanted(lastKind(), StateColors());
    wanted.setDynProp("Длина полки", "8.5");
    database->exec("update " + family().dynprops + " set props = '" + wanted.propsText() + "'");
    database->exec("update " + family().elements + " set state_id = 'lost', block_rotation = 6, scale = 0.5");
    ElementBlock other(lastKind(), StateColors());
    other.setAttribute("element_id", "31");
    other.setAttribute("name", "М1");
    other.x = 500;
    other.scale = 4;
    other.blockRotation = 1;
    other.group = "0";
    other.setDynProp("Положение1 X", "44");
    ASSERT_TRUE(other.insertBlock());
    const NcDbObjectId id = drawing.references()[0];
    toDrawing(mask());

    EXPECT_EQ(host.console, head());
    EXPECT_EQ(markers(), QStringList());
    EXPECT_EQ(drawing.references(), QVector<NcDbObjectId>{id});
    const ElementBlock block(id);
    EXPECT_EQ(ElementDrawing::reference(id).position(), NcGePoint3d(11, 22, 3));
    EXPECT_NEAR(block.blockRotation, 6, 1e-12);
    EXPECT_NEAR(block.scale, 0.5, 1e-12);
    EXPECT_EQ(block.stateId, "lost");
    EXPECT_EQ(ElementDrawing::reference(id).layer(), kinds()[size_t(lastKind())].layer);
    EXPECT_EQ(block.propsText(), asDrawn(wanted.propsText()));
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(DatabaseToDrawing, TellsAndMarksADifferentNameAndKeepsTheBlock)
{
    addRow(family(), 31, "М%1");
    const NcDbObjectId id = addBlock(firstKind(), 31, "м%1", 5, 6);
    toDrawing(mask());
    EXPECT_EQ(host.console, head() + told(texts().differentNames, 31, "м%1", "М%1"));
    EXPECT_EQ(markers(), QStringList(circle(10, 100, 200, 3)));
    EXPECT_EQ(drawing.references(), QVector<NcDbObjectId>{id});
    EXPECT_EQ(attribute(id, "name"), "М%1");
}

TEST_P(DatabaseToDrawing, ReplacesABlockOfAnotherKindAndKeepsItsScaleAndRotation)
{
    if (family().kinds.size() == 1)
        return;
    for (const int drawnKind : family().kinds.mid(1)) {
        database->exec("delete from " + family().elements);
        addRow(family(), 31, "М1");
        ElementBlock other(drawnKind, StateColors());
        other.setAttribute("element_id", "31");
        other.setAttribute("name", "Другое");
        other.scale = 4;
        other.blockRotation = 1;
        ASSERT_TRUE(other.insertBlock());
        const NcDbObjectId id = drawing.references().last();
        toDrawing(mask());

        EXPECT_EQ(host.console,
                  head() + "\n Определения блоков с ID=31,не совпадают (Чертеж:" + kinds()[size_t(drawnKind)].blockName
                      + ", БД:" + kinds()[size_t(firstKind())].blockName + ") Будет выполнена замена.");
        EXPECT_EQ(markers(), sorted({circle(10, 100, 200, 3), circle(9, 100, 200, 3)}));
        EXPECT_TRUE(id.isErased());
        ASSERT_EQ(drawing.references().size(), 1);
        const ElementBlock block(drawing.references()[0]);
        EXPECT_EQ(block.kind, firstKind());
        EXPECT_EQ(block.attributes.value("name"), "М1");
        EXPECT_NEAR(block.scale, 4, 1e-12);
        EXPECT_NEAR(block.blockRotation, 1, 1e-12);
        Opened<NcDbBlockReference>(drawing.references()[0], kForWrite)->erase();
    }
}

TEST_P(DatabaseToDrawing, IsRunForItsBitOnly)
{
    addRow(family(), 31, "М1");
    toDrawing(allFamiliesMask & ~mask());
    EXPECT_EQ(drawing.references().size(), 0);
    EXPECT_FALSE(host.console.contains(texts().heading));
}

TEST_P(DatabaseToDrawing, ReadsRowsOfEveryLevel)
{
    database->exec("insert into subobjects (subobject_id, object_id, subobject) values (2, 1, 'Второй');"
                   "insert into positions (position_id, subobject_id, position) values (9, 2, 'Третья')");
    addRow(family(), 31, "А");
    addRow(family(), 32, "Б", PositionSession::otherPosition);
    addRow(family(), 33, "В", 9);
    struct {
        SyncLevel level;
        int id, found;
    } scopes[] = {{SyncLevel::Position, 7, 1}, {SyncLevel::Subobject, 1, 2}, {SyncLevel::Subobject, 2, 1},
                  {SyncLevel::Object, 1, 3},   {SyncLevel::Project, 1, 3},   {SyncLevel::Project, 2, 0}};
    for (const auto& scope : scopes) {
        EXPECT_EQ(database->rows(rowStatement(family(), scope.id, scope.level).text()).size(), scope.found)
            << int(scope.level) << " " << scope.id;
    }
    syncDatabaseToDrawing(1, SyncLevel::Project, mask());
    EXPECT_EQ(drawing.references().size(), 3) << "all rows of the scope go into the one open drawing";
}

TEST_P(DatabaseToDrawing, GivesTheKindsDefaultsForWhatThePropertiesDoNotName)
{
    addRow(family(), 31, "М1");
    database->exec("update " + family().dynprops + " set props = 'Длина полки:8.5|Неизвестное:1|Положение1 X:9'");
    toDrawing(mask());
    ASSERT_EQ(drawing.references().size(), 1);
    ElementBlock expected(firstKind(), StateColors());
    expected.setDynProp("Длина полки", "8.5");
    EXPECT_EQ(ElementBlock(drawing.references()[0]).propsText(), asDrawn(expected.propsText()));
}

TEST_P(DatabaseToDrawing, ARowWithoutPropertiesIsBroughtUnlessItIsAStabilisers)
{
    addRow(family(), 31, "М1");
    database->exec("delete from " + family().dynprops);
    toDrawing(mask());
    EXPECT_EQ(drawing.references().size(), GetParam() == FamilyKey::Tsg ? 0 : 1);
}

TEST_P(DatabaseToDrawing, SurvivesARowOfNothingButItsKey)
{
    database->exec("insert into " + family().elements
                   + " (element_id, position_id, block_rotation, marker_rotation, "
                     "scale) values (31, 7, null, null, null); insert into "
                   + family().dynprops + " (element_id) values (31)");
    addBlock(firstKind(), 31, "М1", 5, 6);
    toDrawing(mask());
    // Without a type there is no block to look for: nothing is found, nothing erased.
    EXPECT_EQ(drawing.references().size(), 1);
    EXPECT_EQ(host.console, head() + told(texts().notFound, 31, "") + "\n Block  not found in current AcDbDatabase\n");
    EXPECT_EQ(markers(), QStringList(circle(10, 0, 0)));
}

TEST_P(DatabaseToDrawing, ARowWithoutScaleAndRotationStandsUprightAtItsSize)
{
    addRow(family(), 31, "М1");
    database->exec("update " + family().elements + " set scale = null, block_rotation = null");
    toDrawing(mask());
    ASSERT_EQ(drawing.references().size(), 1);
    const ElementBlock block(drawing.references()[0]);
    EXPECT_NEAR(block.scale, 1.0, 1e-12);
    EXPECT_NEAR(block.blockRotation, 0.0, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Families, DatabaseToDrawing, allFamilyKeys, familyName<::testing::TestParamInfo<FamilyKey>>);

TEST_F(RowsToDrawing, AreReadByTheseStatements)
{
    const QString head = "select element_id, type_id, element_name, state_id, position_id, x, y,z, h,";
    const QString tail = "block_rotation,marker_rotation,scale, props from ";
    const QString positions = "left join positions using(position_id) ";
    const QString subobjects = "left join subobjects using (subobject_id) ";
    const QString objects = "left join objects using (object_id) ";
    const QString projects = "left join projects using (project_id) ";
    const struct {
        SyncLevel level;
        QString blank, scope;
    } levels[] = {
        {SyncLevel::Position, "", positions + "where position_id =12"},
        {SyncLevel::Subobject, "", positions + subobjects + "where subobject_id =12"},
        {SyncLevel::Object, " ", positions + subobjects + objects + "where object_id =12"},
        {SyncLevel::Project, " ", positions + subobjects + objects + projects + "where project_id =12"},
    };
    for (const auto& at : levels) {
        for (const char* name : {"dm", "ts", "rp", "ggs", "igs", "tss"}) {
            const Family& family = *std::find_if(families().begin(), families().end(), [name](const Family& f) {
                return f.elements == QString(name) + "_elements";
            });
            EXPECT_EQ(rowStatement(family, 12, at.level).text(),
                      head + tail + name + "_elements " + at.blank + "left join " + name
                          + "_dynprops using (element_id) " + at.scope);
        }
        EXPECT_EQ(rowStatement(family(FamilyKey::Tsg), 12, at.level).text(),
                  head + "e," + tail + "tsg_elements join tsg_dynprops using (element_id) " + at.scope);
    }
}

TEST_F(RowsToDrawing, GoThroughTheFamiliesInTheirOrder)
{
    toDrawing();
    QString expected = "Инициальзация слоев ГМН\nИнициальзация блоков ГМН\n";
    for (const FamilyKey key :
         {FamilyKey::Dm, FamilyKey::Ts, FamilyKey::Rp, FamilyKey::Tss, FamilyKey::Ggs, FamilyKey::Tsg, FamilyKey::Igs})
        expected += expectedTexts(key).heading;
    EXPECT_EQ(host.console, expected);
}

TEST_F(RowsToDrawing, OfAnUnknownTypeAreToldAndMarkedWhileTheDrawingStays)
{
    database->exec("insert into dm_types (type_id) values ('dm_new')");
    addRow(family(FamilyKey::Dm), 31, "М1");
    database->exec("update dm_elements set type_id = 'dm_new'");
    const NcDbObjectId id = addBlock(0, 31, "М1", 5, 6);
    toDrawing(1);
    database->exec("delete from dm_elements; delete from dm_types where type_id = 'dm_new'");
    EXPECT_TRUE(host.console.endsWith("\n Деформационная марка М1 с ID=31, не найдена в чертеже. Будет выполнена "
                                      "вставка\n Block  not found in current AcDbDatabase\n"))
        << host.console;
    EXPECT_EQ(markers(), QStringList(circle(10, 100, 200, 3)));
    EXPECT_EQ(drawing.references(), QVector<NcDbObjectId>{id});
    EXPECT_EQ(ElementDrawing::reference(id).position(), NcGePoint3d(5, 6, 0));
}

TEST_F(RowsToDrawing, LeaveBlocksWithoutARowAlone)
{
    const NcDbObjectId id = addBlock(0, 99, "Лишний", 5, 6);
    toDrawing();
    EXPECT_EQ(drawing.references(), QVector<NcDbObjectId>{id});
    EXPECT_EQ(attribute(id, "name"), "Лишний");
    EXPECT_EQ(markers(), QStringList());
}

TEST_F(RowsToDrawing, WithoutAConnectionMakeTheLayersOnly)
{
    database.disconnect();
    syncDatabaseToDrawing(7, SyncLevel::Position, allFamiliesMask);
    EXPECT_EQ(host.console, "Инициальзация слоев ГМН\nНе установлено соединение с базой данных\n");
    NcDbLayerTable* table = nullptr;
    drawing.database().getSymbolTable(table, kForRead);
    EXPECT_TRUE(Opened<NcDbLayerTable>(table)->has("GMN_GEO"));
}

TEST_F(RowsToDrawing, OfAFamilyThatCannotBeReadAreLeftOutSilently)
{
    addRow(family(FamilyKey::Ts), 31, "Т");
    database->exec("alter table dm_elements rename to hidden");
    toDrawing();
    database->exec("alter table hidden rename to dm_elements");
    EXPECT_EQ(drawing.references().size(), 1);
}

TEST_F(RowsToDrawing, AsACommandClearTheErrorLayerFirst)
{
    ensureErrorLayer();
    addErrorCircle({1, 1, 0}, 3);
    syncPositionToDrawing();
    EXPECT_EQ(markers(), QStringList());
}

TEST_F(RowsToDrawing, FindAPlainBlockOfTheRightNameAndReplaceIt)
{
    addRow(family(FamilyKey::Ts), 31, "Т");
    ncdbHostApplicationServices()->setWorkingDatabase(nullptr);
    NcDbDatabase plain;
    ncdbHostApplicationServices()->setWorkingDatabase(&plain);
    ElementDrawing::addDefinition(plain, "ts_def", {"element_id", "name"});
    const NcDbObjectId id = addBlock(2, 31, "Т", 5, 6);
    toDrawing(2);
    EXPECT_TRUE(host.console.endsWith("(Чертеж:, БД:ts_def) Будет выполнена замена.")) << host.console;
    EXPECT_TRUE(id.isErased());
    ncdbHostApplicationServices()->setWorkingDatabase(&drawing.database());
}
