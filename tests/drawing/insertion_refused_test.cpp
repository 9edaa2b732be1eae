// What the insertion says when a row is refused, an answer is no number or the
// numbering has come to its end.
#include "hostkit/error_markers.h"
#include "hostkit/layers.h"
#include "hostkit/model_space.h"
#include "insertion_fixture.h"

#include <cmath>
#include <limits>

namespace {

class InsertionRefused : public Insertion {
protected:
    static QString withoutRow(const QString& name)
    {
        return "\nОшибка: элемент " + name + " не записан в базу данных, его блок вставлен с element_id=1001\n";
    }
    // Lines of the error layer; a cross has two.
    static int crossLines()
    {
        int lines = 0;
        for (const NcDbObjectId& id : entitiesOfModelSpace().value_or(NcDbObjectIdArray()))
            lines += layerOf(id) == errorLayerName() && HostAccess::objectAs<NcDbLine>(id) ? 1 : 0;
        return lines;
    }
    void refuse(const QString& table)
    {
        database->exec("create function refuse() returns trigger language plpgsql as $$ begin raise exception 'no'; "
                       "end $$; create trigger refusal before insert on "
                       + table + " for each row execute function refuse()");
    }
    void letPass() { database->exec("drop function refuse cascade"); }
};

} // namespace

TEST_F(InsertionRefused, ARefusedRowIsToldAndItsBlockMarked)
{
    refuse("dm_elements");
    host.keyword("Yes").enter().point(10, 20).point(30, 40).cancel();
    run(0);
    letPass();
    EXPECT_TRUE(host.console.contains(withoutRow("ЭЛ007"))) << host.console;
    EXPECT_TRUE(host.console.contains(withoutRow("ЭЛ008")));
    EXPECT_EQ(crossLines(), 4);
    EXPECT_EQ(drawing.references().size(), 2);
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(InsertionRefused, ARowThatWasTakenIsNotMentioned)
{
    host.keyword("Yes").enter().point(10, 20).cancel();
    run(0);
    EXPECT_FALSE(host.console.contains("Ошибка")) << host.console;
    EXPECT_EQ(crossLines(), 0);
}

TEST_F(InsertionRefused, RefusedPropertiesLeaveARowAndSaySo)
{
    refuse("dm_dynprops");
    host.keyword("No").point(10, 20).enter().enter();
    run(0);
    letPass();
    EXPECT_TRUE(host.console.endsWith("\nОшибка: свойства элемента ЭЛ007 не записаны в базу данных\n")) << host.console;
    EXPECT_EQ(crossLines(), 0);
    ASSERT_EQ(drawing.references().size(), 1);
    EXPECT_EQ(ElementDrawing::attributes(drawing.references()[0]).value("element_id"),
              database->value("select element_id from dm_elements"));
}

TEST_F(InsertionRefused, KeysOfEveryFamilyBeginBehindThePlaceholder)
{
    for (const Family& family : families())
        EXPECT_EQ(database->value("select seqstart > 1001 from pg_sequence where seqrelid = pg_get_serial_sequence('"
                                  + family.elements + "', 'element_id')::regclass"),
                  "t")
            << family.elements;
}

TEST_F(InsertionRefused, AnAnswerThatIsNoNumberEndsTheCommand)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double answer : {std::nan(""), infinity, -infinity}) {
        host.keyword("Yes").real(answer).point(1, 1);
        run(0);
        host.dropUnused();
        host.keyword("No").point(1, 1).text("М").real(answer);
        run(0);
    }
    EXPECT_EQ(database->value("select count(*) from dm_elements"), "0");
    EXPECT_TRUE(drawing.references().isEmpty());
}

TEST_F(InsertionRefused, TheLastNumberIsTold)
{
    enumeratorOf(FamilyKey::Dm) = {"М", 2147483646, 1};
    host.keyword("Yes").enter().point(1, 1).point(2, 2).point(3, 3).cancel();
    run(0);
    EXPECT_EQ(rowsOf(family(FamilyKey::Dm), "element_name"),
              (QVector<QStringList>{{"М2147483646"}, {"М2147483647"}, {"М2147483647"}}));
    EXPECT_EQ(host.console.count("\nСчетчик дошел до 2147483647 и дальше не растет: имена повторяются\n"), 2);
    EXPECT_EQ(enumeratorOf(FamilyKey::Dm).counter, 2147483647);
}
