// The forms of maps on a server that refuses a statement, and on a link that is
// cut after one: for every statement. Nothing is shown by halves, and it is said.
#include "analysis/maps/forms/deformation_map_form.h"
#include "analysis/maps/forms/temperature_diff_map_form.h"
#include "analysis/maps/map_form_fixture.h"
#include "support/statement_relay.h"

#include <QLabel>

namespace {

// The same site for both: five wells and three marks, measured in both cycles.
template <class Form>
class MapFaults : public MapFormFixture {
protected:
    void SetUp() override
    {
        MapFixture::SetUp();
        addSquare();
        for (int well = 1; well <= 5; ++well)
            addLog(well, 1, "1.00:-2.00|3.00:-3.00");
        for (int mark = 1; mark <= 3; ++mark) {
            addMark(mark, "М", 30.0 * mark, 10.0 * mark * mark);
            addElevation(mark, 1, "100");
            addElevation(mark, 2, "99.99");
        }
        session().sqlPort = relay.port();
        connect();
        relay.cutAfter(-1);
        Form form;
        statements = relay.texts();
        rows = child<QTableWidget>(form, "PointData")->rowCount();
        used = form.usedPoints().size();
    }
    void TearDown() override
    {
        session().connection.finish();
        MapFormFixture::TearDown();
    }
    void connect() { ASSERT_TRUE(session().connection.open(session().buildConnInfo())); }
    // Contours are offered beside what the map needs.
    bool isNeeded(int statement) const { return !statements.value(statement - 1).contains("contours"); }
    static void expectNothing(const Form& form, const QString& statement)
    {
        EXPECT_EQ(child<QLabel>(form, "StatusLabel")->text(), QStringLiteral("Ошибка соединения с базой данных"))
            << statement.toStdString();
        EXPECT_EQ(child<QTableWidget>(form, "PointData")->rowCount(), 0) << statement.toStdString();
        EXPECT_TRUE(form.usedPoints().empty()) << statement.toStdString();
    }
    void expectAll(const Form& form) const
    {
        EXPECT_EQ(child<QTableWidget>(form, "PointData")->rowCount(), rows);
        EXPECT_EQ(form.usedPoints().size(), used);
    }

    StatementRelay relay;
    QStringList statements;
    int rows = 0;
    size_t used = 0;
};

using Forms = ::testing::Types<TemperatureDiffMapForm, DeformationMapForm>;
TYPED_TEST_SUITE(MapFaults, Forms);

} // namespace

TYPED_TEST(MapFaults, ARefusedStatementLeavesNothingByHalves)
{
    ASSERT_GE(this->statements.size(), 4) << "contours, elements, the measures of two cycles";
    ASSERT_GE(this->used, 3u);
    for (int n = 1; n <= this->statements.size(); ++n) {
        this->relay.refuse(n);
        const TypeParam form;
        ASSERT_TRUE(this->relay.hasRefused()) << n;
        if (this->isNeeded(n))
            this->expectNothing(form, this->statements[n - 1]);
        else
            this->expectAll(form);
    }
    this->relay.refuse(-1);
    this->expectAll(TypeParam());
}

TYPED_TEST(MapFaults, ACutLinkIsSaidAndTheNextMapIsWhole)
{
    for (int n = 1; n < this->statements.size(); ++n) {
        this->relay.cutAfter(n);
        const TypeParam form;
        ASSERT_TRUE(this->relay.hasCut()) << n;
        this->expectNothing(form, this->statements[n]);
        this->connect();
        this->relay.cutAfter(-1);
        this->expectAll(TypeParam());
    }
}
