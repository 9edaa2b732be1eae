// Whatever cuts a run short, the next one ends where an undisturbed one would.
#include "drawing/renumber.h"
#include "drawing/sync/stored_drawing.h"
#include "support/statement_relay.h"
#include "sync_fixture.h"

#include <functional>

namespace {

constexpr int mostStatements = 500;

// A position with something of everything in all families.
class World {
public:
    explicit World(StatementRelay& relay)
    {
        drawing.addAllKinds();
        for (const Family& family : families())
            fillFamily(family);
        database->exec(rows_);
        session().sqlPort = relay.port();
        session().connection.open(session().buildConnInfo());
        relay.cutAfter(-1);
    }

    void toDatabase(const QString& keyword)
    {
        host.keyword(keyword);
        const auto yes = [](const QString&) { return true; };
        syncDrawingToDatabase({yes, yes});
        host.dropUnused();
    }
    void renumber()
    {
        host.entity(third).integer(1);
        renumberElements();
        host.dropUnused();
    }
    // Rows and blocks; markers tell of one run and are left out. The statements
    // leave the order of rows to the server, and so that of inserted blocks.
    QStringList state()
    {
        QStringList lines;
        for (const Family& family : families()) {
            for (const QStringList& row : database->rows("select * from " + family.elements + " left join "
                                                         + family.dynprops + " using (element_id) order by 1"))
                lines << row.join(" | ");
        }
        for (const NcDbObjectId& id : drawing.references())
            lines << blockText(id);
        lines.sort();
        return lines;
    }
    // Rows of the position that have a block which says the same, out of so many.
    void expectInLine(int statement)
    {
        for (const Family& family : families()) {
            for (const QStringList& row : database->rows(
                     fill("select element_id, type_id, element_name, x, y from %1 join %2 using (element_id) "
                          "where position_id = 7",
                          family.elements, family.dynprops))) {
                const NcDbObjectId id = firstBlock(family, row[0].toInt());
                ASSERT_FALSE(id.isNull()) << family.elements << row[0] << ", cut at " << statement;
                const ElementBlock block(id, StateColors());
                EXPECT_EQ(block.blockName, blockNameByTypeId(row[1])) << family.elements << row[0] << statement;
                EXPECT_EQ(block.attributes.value("name"), row[2]) << family.elements << row[0] << statement;
                EXPECT_NEAR(block.x, row[3].toDouble(), 1e-9) << family.elements << row[0] << statement;
                EXPECT_NEAR(block.y, row[4].toDouble(), 1e-9) << family.elements << row[0] << statement;
            }
        }
    }
    QStringList rowNames()
    {
        QStringList names;
        for (const QStringList& row : database->rows("select element_name from dm_elements order by element_id"))
            names << row;
        return names;
    }

    PositionSession database;
    ElementDrawing drawing;
    ScriptedPrompts host;
    NcDbObjectId third;

private:
    NcDbObjectId firstBlock(const Family& family, int id)
    {
        for (const NcDbObjectId& reference : drawing.references()) {
            const ElementBlock block(reference, StateColors());
            if (block.family() == &family && block.elementId() == id)
                return reference;
        }
        return {};
    }
    void fillFamily(const Family& family)
    {
        const int kind = family.kinds.first();
        const QString prefix = family.elements;
        const bool full = family.key == FamilyKey::Dm || family.key == FamilyKey::Ts;
        for (int id = 1; id <= (full ? 3 : 1); ++id) {
            addRow(family, id, prefix + QString::number(id), 7);
            // The second and the third well bear each other's name.
            const int named = family.key == FamilyKey::Ts && id > 1 ? 5 - id : id;
            addBlock(kind, id, prefix + QString::number(named), 10 * id);
            third = family.key == FamilyKey::Dm ? drawing.references().last() : third;
        }
        if (family.key == FamilyKey::Dm)
            return; // marks are in step, for renumbering
        addRow(family, 4, "без блока", 7);
        if (!full)
            return;
        addRow(family, 5, "чужая", 8);
        addBlock(kind, 5, "чужая", 50);
        addBlock(kind, 2, "копия", 60);
        addBlock(kind, 77, "без строки", 70);
    }
    void addRow(const Family& family, int id, const QString& name, int position)
    {
        // The first block is of another kind than its row.
        const int kind = id == 1 ? family.kinds.last() : family.kinds.first();
        rows_ += fill("insert into %1 (element_id, type_id, element_name, state_id, position_id, x, y, z, h, "
                      "block_rotation, scale) values (%2, '%3', '%4', 'exist', %5, 1, 2, 3, 4, 0.25, 2);"
                      "insert into %6 (element_id, props) values (%2, '%7');",
                      family.elements, id, kinds()[size_t(kind)].typeId, name, position, family.dynprops,
                      ElementBlock(kind, StateColors()).propsText());
    }
    // Turned and scaled as the rows are: a replaced block keeps both from the
    // drawing, so that only a second run would bring the row's.
    static void addBlock(int kind, int id, const QString& name, double x)
    {
        ElementBlock block(kind, StateColors());
        block.setAttribute("element_id", QString::number(id));
        block.setAttribute("name", name);
        block.x = x;
        block.blockRotation = 0.25;
        block.scale = 2;
        EXPECT_TRUE(block.insertBlock());
    }
    static QString blockText(NcDbObjectId id)
    {
        const ElementBlock block(id, StateColors());
        const auto& reference = ElementDrawing::reference(id);
        QStringList words{block.blockName,
                          fixed(block.x, 6),
                          fixed(block.y, 6),
                          fixed(block.z, 6),
                          fixed(block.blockRotation, 6),
                          fixed(block.scale, 6),
                          QString::number(reference.colorIndex()),
                          reference.layer(),
                          block.propsText()};
        for (auto it = block.attributes.begin(); it != block.attributes.end(); ++it)
            words << it.key() + "=" + it.value();
        return words.join(" | ");
    }

    QString rows_;
};

using Action = std::function<void(World&)>;

struct Disturbance {
    std::function<void(StatementRelay&, int)> set; ///< at the n-th statement; -1: never
    std::function<bool(const StatementRelay&)> happened;
};

const Disturbance cut{[](StatementRelay& relay, int statement) { relay.cutAfter(statement); },
                      [](const StatementRelay& relay) { return relay.hasCut(); }};
const Disturbance refusal{[](StatementRelay& relay, int statement) { relay.refuse(statement); },
                          [](const StatementRelay& relay) { return relay.hasRefused(); }};

// Runs the action disturbed at every statement in turn, and then once more.
void checkEvery(const Disturbance& disturbance, const Action& action)
{
    StatementRelay relay;
    QStringList expected;
    {
        World world(relay);
        action(world);
        expected = world.state();
    }
    int times = 0;
    for (int statement = 1; statement < mostStatements; ++statement) {
        World world(relay);
        disturbance.set(relay, statement);
        action(world);
        if (!disturbance.happened(relay))
            break;
        ++times;
        EXPECT_EQ(world.drawing.faults(), QStringList()) << statement;
        disturbance.set(relay, -1);
        action(world);
        const QStringList state = world.state();
        ASSERT_EQ(state.size(), expected.size()) << "disturbed at statement " << statement;
        for (int line = 0; line < state.size(); ++line)
            ASSERT_EQ(state[line], expected[line]) << "disturbed at statement " << statement;
    }
    EXPECT_GE(times, 9);
    EXPECT_LT(times, mostStatements - 1);
}

void bringPosition(World&)
{
    if (session().requirePosition())
        syncPositionToDrawing();
}

} // namespace

TEST(CutConnection, DrawingToDatabaseByPosition)
{
    checkEvery(cut, [](World& world) { world.toDatabase("Position"); });
}

TEST(CutConnection, DrawingToDatabaseByDrawing)
{
    checkEvery(cut, [](World& world) { world.toDatabase("Drawing"); });
}

TEST(CutConnection, DatabaseToDrawing) { checkEvery(cut, bringPosition); }

TEST(RefusedStatement, DrawingToDatabaseByPosition)
{
    checkEvery(refusal, [](World& world) { world.toDatabase("Position"); });
}

TEST(RefusedStatement, DrawingToDatabaseByDrawing)
{
    checkEvery(refusal, [](World& world) { world.toDatabase("Drawing"); });
}

TEST(RefusedStatement, DatabaseToDrawing) { checkEvery(refusal, bringPosition); }

// Who gives one direction up may put all in line by the other: the database then has the last word.
TEST(CutConnection, IsMendedByTheOtherDirection)
{
    StatementRelay relay;
    int cuts = 0;
    for (int statement = 1; statement < mostStatements; statement += 3) {
        World world(relay);
        relay.cutAfter(statement);
        world.toDatabase("Drawing");
        if (!relay.hasCut())
            break;
        ++cuts;
        relay.cutAfter(-1);
        bringPosition(world);
        world.expectInLine(statement);
    }
    EXPECT_GE(cuts, 9);
}

// Renumbering the second time would move on: either nothing happened or all.
TEST(CutConnection, RenumberingHappensWholeOrNotAtAll)
{
    StatementRelay relay;
    const QStringList before{"dm_elements1", "dm_elements2", "dm_elements3"};
    const QStringList after{"dm_elements2", "dm_elements3", "dm_elements1"};
    int cuts = 0;
    for (int statement = 1; statement < mostStatements; ++statement) {
        World world(relay);
        relay.cutAfter(statement);
        world.renumber();
        if (!relay.hasCut()) {
            EXPECT_EQ(world.rowNames(), after);
            break;
        }
        ++cuts;
        session().connection.open(session().buildConnInfo());
        const bool done = world.host.console.endsWith("\nПеренумеровано!");
        EXPECT_EQ(world.rowNames(), done ? after : before) << statement;
        if (done)
            continue;
        relay.cutAfter(-1);
        world.renumber();
        EXPECT_EQ(world.rowNames(), after) << statement << world.host.console;
    }
    EXPECT_GE(cuts, 8);
}
