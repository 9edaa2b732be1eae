// TERVA_ALIGN_BY_UCS and TERVA_ALIGN_LABELS_BY_UCS from the prompt to the blocks.
#include "alignment_fixture.h"
#include "hostkit/layers.h"

namespace {

const QString scopePrompt = "Обрабатывать элементы по [Позиции/Чертежу]  <Позиции>";

struct UcsCommand {
    const char* name;
    bool keepsMarker;
};

void PrintTo(const UcsCommand& command, std::ostream* out) { *out << command.name; }

class AlignByUcs : public AlignmentFixture, public ::testing::WithParamInterface<UcsCommand> {
protected:
    void run() { AlignmentFixture::run(GetParam().name); }
    void addRow(const QString& table, const QString& type, int id, int position)
    {
        database->exec(QString("insert into %1 (element_id, type_id, element_name, state_id, position_id, x, y, z, h, "
                               "block_rotation, marker_rotation, scale) overriding system value values "
                               "(%3, '%2', 'Э', 'exist', %4, 0, 0, 0, 0, 0, 0, 1)")
                           .arg(table, type)
                           .arg(id)
                           .arg(position));
    }
};

} // namespace

TEST_P(AlignByUcs, TurnsEveryBlockOfTheDrawing)
{
    const NcDbObjectId mark =
        insert(0, 1, {10, 20, 0.0, 2.0}, {{"Положение1 X", "3"}, {"Положение1 Y", "4"}, {"Угол1", "0.5"}});
    const NcDbObjectId stabiliser =
        insert(18, 2, {30, 40, quarterTurn},
               {{"Положение1 X", "1"}, {"Положение1 Y", "0"}, {"Положение2 X", "0"}, {"Положение2 Y", "5"}});
    const QStringList definitions = {"dm_def", "tsg_g_def"};
    turnUcs(quarterTurn, {1000, 2000, 0});
    host.keyword("Drawing");
    run();

    EXPECT_EQ(host.asked, QStringList{scopePrompt});
    EXPECT_EQ(host.words, QStringList{"Позиции/Position Чертежу/Drawing"});
    EXPECT_EQ(host.console, "\n Выбор 'Drawing'");
    EXPECT_NEAR(rotation(mark), quarterTurn, 1e-12);
    expectVector(mark, "Положение1", 4, -3);
    EXPECT_NEAR(property(mark, "Угол1"), GetParam().keepsMarker ? 0.5 - quarterTurn : 0.0, 1e-6);
    // This one stood along the axis already.
    EXPECT_NEAR(rotation(stabiliser), quarterTurn, 1e-12);
    expectVector(stabiliser, "Положение1", 1, 0);
    expectVector(stabiliser, "Положение2", 0, 5);

    const ElementBlock after = elementOf(mark);
    EXPECT_EQ(after.x, 10.0);
    EXPECT_EQ(after.y, 20.0);
    EXPECT_EQ(after.z, 1.5);
    EXPECT_NEAR(after.scale, 2.0, 1e-12);
    EXPECT_EQ(after.attributes.value("element_id"), "1");
    EXPECT_EQ(after.dynProps.value("Длина полки"), "12.0461");
    EXPECT_EQ(faults(), QStringList());
}

TEST_P(AlignByUcs, TheLabelKeepsItsPlaceInTheWorld)
{
    const double before = 0.7;
    const NcDbObjectId id = insert(2, 1, {0, 0, before}, {{"Положение1 X", "3"}, {"Положение1 Y", "4"}});
    const auto inWorld = [&] {
        const double r = rotation(id), x = property(id, "Положение1 X"), y = property(id, "Положение1 Y");
        return NcGePoint2d(x * std::cos(r) - y * std::sin(r), x * std::sin(r) + y * std::cos(r));
    };
    const NcGePoint2d old = inWorld();
    turnUcs(-2.1);
    host.keyword("Drawing");
    run();
    EXPECT_NEAR(inWorld().x, old.x, 1e-4);
    EXPECT_NEAR(inWorld().y, old.y, 1e-4);
}

TEST_P(AlignByUcs, PositionTakesItsOwnElementsAlone)
{
    struct Row {
        int kind;
        const char* table;
        const char* type;
    };
    const Row rows[] = {{0, "dm_elements", "dm"},      {2, "ts_elements", "ts"},   {8, "rp_elements", "rp_gl"},
                        {20, "tss_elements", "tss_h"}, {3, "ggs_elements", "ggs"}, {5, "tsg_elements", "tsg"},
                        {17, "igs_elements", "skv"}};
    QVector<NcDbObjectId> own, foreign;
    int id = 10;
    for (const Row& row : rows) {
        addRow(row.table, row.type, ++id, PositionSession::position);
        own.append(insert(row.kind, id, {double(id), 0}));
        addRow(row.table, row.type, ++id, PositionSession::otherPosition);
        foreign.append(insert(row.kind, id, {double(id), 0}));
    }
    const NcDbObjectId unknown = insert(0, 999, {5, 5});
    turnUcs(1.0);
    host.keyword("Position");
    run();
    EXPECT_EQ(host.console, "\n Выбор 'Position'");
    for (int i = 0; i < own.size(); ++i) {
        const bool geology = rows[i].kind == 17;
        EXPECT_NEAR(rotation(own[i]), geology ? 0.0 : 1.0, 1e-12) << rows[i].table;
        EXPECT_NEAR(rotation(foreign[i]), 0.0, 1e-12) << rows[i].table;
    }
    EXPECT_NEAR(rotation(unknown), 0.0, 1e-12);
}

TEST_P(AlignByUcs, AKeyOfAnotherFamilyIsNotTheElements)
{
    addRow("dm_elements", "dm", 5, PositionSession::position);
    const NcDbObjectId mark = insert(0, 5, {0, 0});
    const NcDbObjectId well = insert(2, 5, {1, 0});
    turnUcs(1.0);
    host.keyword("Position");
    run();
    EXPECT_NEAR(rotation(mark), 1.0, 1e-12);
    EXPECT_NEAR(rotation(well), 0.0, 1e-12);
}

TEST_P(AlignByUcs, DrawingTakesKindsOfNoFamilyAndLeavesForeignBlocks)
{
    const NcDbObjectId pile = insert(6, 1, {0, 0});
    ElementDrawing::addDefinition(drawing(), "дом", {"element_id"});
    auto house = std::make_unique<NcDbBlockReference>();
    NcDbObjectId definition = HostAccess::recordId(drawing(), drawing().blockTableId(), "дом");
    house->setBlockTableRecord(definition);
    const NcDbObjectId plain = appendToModelSpace(std::move(house));
    const NcDbObjectId line = add(std::make_unique<NcDbLine>(NcGePoint3d(0, 0, 0), NcGePoint3d(1, 0, 0)));
    turnUcs(1.0);
    host.keyword("Drawing");
    run();
    EXPECT_NEAR(rotation(pile), 1.0, 1e-12);
    EXPECT_NEAR(rotation(plain), 0.0, 1e-12);
    EXPECT_EQ(HostAccess::objectAs<NcDbLine>(line)->endPoint(), NcGePoint3d(1, 0, 0));
}

TEST_P(AlignByUcs, TheDatabaseIsNotTouched)
{
    addRow("dm_elements", "dm", 1, PositionSession::position);
    database->exec("insert into dm_dynprops (element_id, props) values (1, 'Угол1:0.5')");
    insert(0, 1, {10, 20});
    const auto rows = database->rows("select * from dm_elements join dm_dynprops using (element_id)");
    turnUcs(1.0);
    host.keyword("Position");
    run();
    EXPECT_EQ(database->rows("select * from dm_elements join dm_dynprops using (element_id)"), rows);
}

TEST_P(AlignByUcs, OnlyATypedKeywordGoesOn)
{
    const NcDbObjectId id = insert(0, 1, {10, 20});
    const QStringList before = state(id);
    turnUcs(1.0);
    host.enter().cancel();
    run();
    run();
    EXPECT_EQ(state(id), before);
    EXPECT_EQ(host.console, "");
    EXPECT_TRUE(host.allAnswersUsed());
}

TEST_P(AlignByUcs, ThePositionIsAskedForOnlyAsTheScope)
{
    const NcDbObjectId id = insert(0, 1, {10, 20});
    turnUcs(1.0);
    session().currentPositionId = -1;
    host.keyword("Position").keyword("Drawing");
    run();
    EXPECT_EQ(host.console, QString("\n Выбор 'Position'") + guardMessage(Guard::P4));
    EXPECT_NEAR(rotation(id), 0.0, 1e-12);
    run();
    EXPECT_NEAR(rotation(id), 1.0, 1e-12);
}

TEST_P(AlignByUcs, NeedsAConnection)
{
    const NcDbObjectId id = insert(0, 1, {10, 20});
    turnUcs(1.0);
    database.disconnect();
    host.keyword("Drawing");
    run();
    EXPECT_EQ(host.asked, QStringList());
    EXPECT_EQ(host.console, "Не установлено соединение с базой данных");
    EXPECT_NEAR(rotation(id), 0.0, 1e-12);
}

TEST_P(AlignByUcs, AServerLostAtThePromptEndsTheCommand)
{
    addRow("dm_elements", "dm", 1, PositionSession::position);
    const NcDbObjectId id = insert(0, 1, {10, 20});
    const QStringList before = state(id);
    turnUcs(1.0);
    host.meanwhile([this] { database.disconnect(); }).keyword("Position");
    run();
    EXPECT_EQ(host.console, "\n Выбор 'Position'Не установлено соединение с базой данных");
    EXPECT_EQ(state(id), before);
}

TEST_P(AlignByUcs, ModelSpaceHeldElsewhereIsTold)
{
    const NcDbObjectId id = insert(0, 1, {10, 20});
    turnUcs(1.0);
    {
        const Opened<NcDbBlockTableRecord> held = openModelSpace(kForWrite);
        host.keyword("Drawing");
        run();
    }
    EXPECT_EQ(host.console, "\n Выбор 'Drawing'\nerror opening model_space");
    EXPECT_NEAR(rotation(id), 0.0, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Commands, AlignByUcs,
                         ::testing::Values(UcsCommand{"TERVA_ALIGN_BY_UCS", false},
                                           UcsCommand{"TERVA_ALIGN_LABELS_BY_UCS", true}));

class AlignTwice : public AlignmentFixture { };

TEST_F(AlignTwice, TheSecondRunOfAlignByUcsChangesNothing)
{
    // The angle of the axis is negative here, the rotation of a block is not.
    for (const double angle : {0.4, 2.5, -1.0, -3.0}) {
        const NcDbObjectId id = insert(10, 1, {10, 20, 0.3, 2.0}, {{"Угол1", "0.5"}});
        turnUcs(angle);
        host.keyword("Drawing").keyword("Drawing");
        run("TERVA_ALIGN_BY_UCS");
        const ElementBlock once = elementOf(id);
        run("TERVA_ALIGN_BY_UCS");
        const ElementBlock twice = elementOf(id);
        EXPECT_EQ(twice.propsText(), once.propsText()) << angle;
        EXPECT_NEAR(std::remainder(twice.blockRotation - once.blockRotation, 2 * M_PI), 0.0, 1e-12) << angle;
        EXPECT_EQ(twice.x, once.x);
        EXPECT_EQ(twice.y, once.y);
        EXPECT_NEAR(twice.scale, once.scale, 1e-12);
    }
}

TEST_F(AlignTwice, TheSecondRunOfAlignLabelsByUcsChangesNothing)
{
    // All directions of the axis against rotations of blocks all around.
    for (int axis = -17; axis <= 18; axis += 5) {
        for (double before = 0.1; before < 6.28; before += 0.7) {
            const NcDbObjectId id = insert(10, 1, {10, 20, before, 2.0}, {{"Угол1", "0.5"}});
            turnUcs(axis * M_PI / 18.0);
            host.keyword("Drawing").keyword("Drawing").keyword("Drawing");
            run("TERVA_ALIGN_LABELS_BY_UCS");
            const double once = property(id, "Угол1");
            EXPECT_LE(std::abs(once - 0.5), M_PI + 1e-5) << axis << " " << before;
            EXPECT_NEAR(std::remainder(once + rotation(id) - 0.5 - before, 2.0 * M_PI), 0.0, 1e-5) << axis;
            run("TERVA_ALIGN_LABELS_BY_UCS");
            run("TERVA_ALIGN_LABELS_BY_UCS");
            EXPECT_NEAR(property(id, "Угол1"), once, 1e-5) << axis << " " << before;
            Opened<NcDbBlockReference>(id, kForWrite)->erase();
        }
    }
}

TEST_F(AlignTwice, BlocksOnALockedLayerAreTurnedAndOthersTold)
{
    const NcDbObjectId locked = insert(0, 1, {10, 20});
    const NcDbObjectId held = insert(0, 2, {30, 40});
    setLayerLocked("GMN_DM", true);
    turnUcs(1.0);
    const Opened<NcDbBlockReference> reader(held, kForRead);
    host.keyword("Drawing");
    run("TERVA_ALIGN_BY_UCS");
    EXPECT_NEAR(rotation(locked), 1.0, 1e-12);
    EXPECT_EQ(host.console, "\n Выбор 'Drawing'\nОшибка: блок dm_def с ID=2 не повернут\n");
}
