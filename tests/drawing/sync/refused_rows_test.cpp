// Elements that the server does not take: the line at the end tells how many and why.
#include "support/statement_relay.h"
#include "sync_fixture.h"

namespace {

const Family& marks = family(FamilyKey::Dm);
const QString head = "\nАнализ чертежа:\nОбрабатываем блок 1 \nОбрабатываем блок 2 \nОбрабатываем блок 3 \n";

QString told(int count, const QString& reasons)
{
    return QString("\nНе записано в базу данных элементов: %1 (%2)\n").arg(count).arg(reasons);
}

class RefusedRowsTest : public SyncFixture {
protected:
    // Three rows and their blocks, with session settings of the server's.
    void SetUp() override
    {
        for (int id = 1; id <= 3; ++id) {
            addRow(marks, id, QString::number(id));
            addBlock(0, id, QString::number(id), 10 * id, 5);
        }
    }
    QString xs() { return database->value("select string_agg(x::text, ' ' order by element_id) from dm_elements"); }
};

} // namespace

TEST_F(RefusedRowsTest, AreNotMentionedWhenThereAreNone)
{
    toDatabase("Drawing");
    EXPECT_EQ(host.console, head);
    EXPECT_EQ(xs(), "10 20 30");
}

TEST_F(RefusedRowsTest, OfAReadOnlyServer)
{
    session().run("set default_transaction_read_only = on");
    toDatabase("Drawing");
    EXPECT_EQ(host.console, head + told(3, "только чтение: 3"));
    EXPECT_EQ(xs(), "100 100 100");
}

TEST_F(RefusedRowsTest, ThatSomeoneElseHolds)
{
    session().run("set lock_timeout = '100ms'");
    database->exec("begin");
    database->exec("select 1 from dm_elements where element_id = 2 for update");
    toDatabase("Drawing");
    database->exec("rollback");
    EXPECT_EQ(host.console, head + told(1, "блокировка: 1"));
    EXPECT_EQ(xs(), "10 100 30");
}

TEST_F(RefusedRowsTest, ThatTookTooLong)
{
    database->exec("create function wait() returns trigger language plpgsql as $$ begin perform pg_sleep(5); return "
                   "new; end $$; create trigger waiting before update on dm_elements for each row when "
                   "(new.element_id = 2) execute function wait()");
    session().run("set statement_timeout = '300ms'");
    toDatabase("Drawing");
    database->exec("drop function wait cascade");
    EXPECT_EQ(host.console, head + told(1, "время ожидания: 1"));
    EXPECT_EQ(xs(), "10 100 30");
}

TEST_F(RefusedRowsTest, OfALostLinkAreAllThatFollow)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    // The check, the lists, the colours; the first block; the second's row and update.
    relay.cutAfter(1 + 2 * familyCount + 1 + 3 + 2);
    toDatabase("Drawing");
    ASSERT_TRUE(relay.hasCut());
    EXPECT_EQ(host.console, head + told(2, "связь: 2"));
    EXPECT_EQ(xs(), "10 20 100") << "of the second only the label is missing";
    session().connection.finish();
}

TEST_F(RefusedRowsTest, AreCountedByTheirReasons)
{
    session().run("set lock_timeout = '100ms'");
    database->exec(
        "create function refuse() returns trigger language plpgsql as $$ begin raise exception 'no'; end $$;"
        "create trigger refusal before update on dm_dynprops for each row when (new.element_id <> 2) execute "
        "function refuse()");
    database->exec("begin");
    database->exec("select 1 from dm_elements where element_id = 2 for update");
    toDatabase("Drawing");
    database->exec("rollback");
    database->exec("drop function refuse cascade");
    EXPECT_EQ(host.console, head + told(3, "блокировка: 1, другая причина: 2"));
}

TEST_F(RefusedRowsTest, AreToldThoughTheRunEndsEarly)
{
    addBlock(0, "нет", "4");
    session().run("set default_transaction_read_only = on");
    toDatabase("Position");
    EXPECT_TRUE(host.console.endsWith(told(3, "только чтение: 3"))) << host.console;
    EXPECT_TRUE(host.console.contains("блок без числового element_id"));
}
