// The statements of an element's row, to the letter, as the server got them.
#include "elements/element_block.h"

#include "support/position_session.h"
#include "support/scripted_prompts.h"
#include "support/statement_relay.h"

#include <gtest/gtest.h>

namespace {

class Statements : public ::testing::Test {
protected:
    Statements() { backend_ = session().run("select pg_backend_pid()").getvalue(0, 0); }

    QString lastStatement() { return database->value("select query from pg_stat_activity where pid = " + backend_); }
    // A row that exists, with numbers that tell the columns apart.
    ElementBlock stored(int kind)
    {
        ElementBlock element(kind);
        element.setAttribute("name", "Э");
        element.x = 1;
        element.y = 2;
        element.z = 3;
        element.h = 4;
        element.e = 5;
        element.catalogId = 6;
        element.blockRotation = 0.5;
        element.scale = 7;
        element.setDynProp("Угол1", "0.25");
        element.insertRow(PositionSession::position);
        element.positionId = -1;
        return element;
    }
    // The element's own statement of a full update, refused by the server. The
    // properties are written all the same.
    QString fullUpdate(const ElementBlock& element)
    {
        StatementRelay relay;
        session().sqlPort = relay.port();
        EXPECT_TRUE(session().connection.open(session().buildConnInfo()));
        relay.refuse(1);
        EXPECT_FALSE(element.updateRowFull());
        EXPECT_EQ(relay.texts().size(), 2);
        EXPECT_EQ(relay.texts().value(1),
                  "UPDATE " + element.family()->dynprops + " SET props = '" + element.propsText()
                      + "'WHERE element_id = " + QString::number(element.elementId()));
        session().connection.finish();
        return relay.texts().value(0);
    }

    PositionSession database;
    ScriptedPrompts host;

private:
    QString backend_;
};

} // namespace

TEST_F(Statements, PropertiesOfANewRow)
{
    const ElementBlock element = stored(5);
    EXPECT_EQ(lastStatement(),
              "INSERT INTO tsg_dynprops (element_id,props) VALUES (" + QString::number(element.elementId()) + ",'"
                  + element.propsText() + "')");
}

TEST_F(Statements, PropertiesOfAnUpdatedRowHaveNoBlankBeforeTheCondition)
{
    const ElementBlock element = stored(0);
    ASSERT_TRUE(element.updateRow());
    EXPECT_EQ(lastStatement(),
              "UPDATE dm_dynprops SET props = '" + element.propsText()
                  + "'WHERE element_id = " + QString::number(element.elementId()));
}

TEST_F(Statements, ShortUpdate)
{
    const ElementBlock element = stored(8);
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    relay.refuse(1);
    EXPECT_FALSE(element.updateRow());
    const QString id = QString::number(element.elementId());
    EXPECT_EQ(relay.texts(),
              (QStringList{"UPDATE rp_elements SET (type_id, element_name, x, y, block_rotation, marker_rotation,scale)"
                           " = ('rp_gl','Э',1.000000000,2.000000000,0.500000000,0.500000000,7.000000000) WHERE "
                           "element_id = "
                               + id,
                           "UPDATE rp_dynprops SET props = '" + element.propsText() + "'WHERE element_id = " + id}))
        << "the properties follow a refused row too";
    session().connection.finish();
}

TEST_F(Statements, FullUpdate)
{
    ElementBlock element = stored(0);
    const QString id = QString::number(element.elementId());
    EXPECT_EQ(fullUpdate(element),
              "UPDATE dm_elements SET (type_id, element_name, x, y, z , h ,block_rotation, marker_rotation,scale) = "
              "('dm','Э',1.000000000,2.000000000,3.000000000,4.000000000,0.500000000,0.750000000,7.000000000) "
              "WHERE element_id = "
                  + id);
    element.positionId = 8;
    EXPECT_EQ(fullUpdate(element),
              "UPDATE dm_elements SET (type_id, element_name,position_id, x, y, z , h ,block_rotation, "
              "marker_rotation,scale) = ('dm','Э',8,1.000000000,2.000000000,3.000000000,4.000000000,0.500000000,"
              "0.750000000,7.000000000) WHERE element_id = "
                  + id);
}

TEST_F(Statements, FullUpdateOfAThermostabiliser)
{
    ElementBlock element = stored(18);
    const QString id = QString::number(element.elementId());
    EXPECT_EQ(fullUpdate(element),
              "UPDATE tsg_elements SET (type_id, element_name, x,  y,  z , h , e, catalog_id ,block_rotation, "
              "marker_rotation,scale) =('tsg_g','Э', 1.000000000, 2.000000000, 3.000000000, 4.000000000, "
              "5.000000000,6, 0.500000000, 0.500000000, 7.000000000) WHERE element_id = "
                  + id);
    element.positionId = 8;
    EXPECT_EQ(fullUpdate(element),
              "UPDATE tsg_elements SET (type_id, element_name,position_id, x,  y,  z , h , e, catalog_id ,"
              "block_rotation, marker_rotation,scale) = ('tsg_g','Э',8,1.000000000,2.000000000,3.000000000,"
              "4.000000000,5.000000000,6,0.500000000,0.500000000,7.000000000) WHERE element_id = "
                  + id);
}

TEST_F(Statements, SelectOfTheFamilies)
{
    ElementBlock well(2);
    well.loadFromDatabase(15);
    EXPECT_EQ(lastStatement(),
              "select element_id, element_name, state_id,(select colorindex from states where states.state_id = "
              "ts_elements.state_id) as ci,x, y, z, h, block_rotation, marker_rotation, scale, props, position_id  "
              "from ts_elements left join ts_dynprops using (element_id) where element_id = 15");
    ElementBlock stabiliser(19);
    stabiliser.loadFromDatabase(16);
    EXPECT_EQ(lastStatement(),
              "select element_id, element_name, state_id,(select colorindex from states where states.state_id = "
              "tsg_elements.state_id) as ci,x, y, z, h, block_rotation, marker_rotation, scale, props, position_id,e,"
              "catalog_id from tsg_elements left join tsg_dynprops using (element_id) where element_id = 16");
}

TEST_F(Statements, FreshElementReadsTheStatesOnceAndNotWithReadyColours)
{
    const ElementBlock element(0);
    EXPECT_EQ(lastStatement(), "select state_id, colorindex from states");
    session().run("select 1");
    const ElementBlock quick(0, element.stateColors);
    EXPECT_EQ(lastStatement(), "select 1");
    EXPECT_EQ(quick.stateColors, element.stateColors);
}
