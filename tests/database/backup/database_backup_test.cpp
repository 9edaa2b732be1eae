// Which utility is tried when, what is told, and that a backup is one.
#include "database/backup/database_backup.h"

#include "stand_in.h"
#include "support/console_capture.h"
#include "support/test_database.h"

#include <QProcess>
#include <QSet>

namespace {

class ToldDialogs final : public BackupDialogs {
public:
    void tell(const BackupMessage& message) override { told << message.title + "|" + message.text; }
    QString chooseUtility() override
    {
        told << "choose";
        return chosen;
    }
    bool goOn(int, int) override { return goesOn; }

    QStringList titles() const
    {
        QStringList list;
        for (const QString& text : told)
            list << text.section('|', 0, 0);
        return list;
    }

    QStringList told;
    QString chosen;
    bool goesOn = true;
};

class Backup : public StandIns {
protected:
    QString good(const QString& name = "good") { return standIn(name, "printf " + name); }
    QString mismatched(const QString& name = "old")
    {
        return standIn(name, "echo 'server version mismatch' >&2; exit 1");
    }
    QString missing() const { return folder_.filePath("missing"); }
    bool run(DatabaseBackup& backup) { return backup.run({{"h", "1", "city", "u", "secret"}, target()}, dialogs_); }

    ToldDialogs dialogs_;
    ConsoleCapture console_;
};

TEST_F(Backup, TheFirstThatSucceedsEndsTheSearchAndIsRemembered)
{
    DatabaseBackup backup({missing(), good("first"), good("second")});
    EXPECT_TRUE(run(backup));
    EXPECT_EQ(written(), QByteArray("first"));
    EXPECT_EQ(backup.remembered(), folder_.filePath("first"));
    EXPECT_EQ(dialogs_.told, QStringList("Успех|Резервное копирование успешно завершено.\nФайл: " + target()));
    EXPECT_EQ(console_.text(),
              "\nВыполняется резервное копирование базы данных 'city'...\n\nБэкап создан: " + target() + "\n");
}

TEST_F(Backup, AWrongVersionShowsItsBoxAndTheNextOneRuns)
{
    DatabaseBackup backup({mismatched(), good()});
    EXPECT_TRUE(run(backup));
    EXPECT_EQ(
        dialogs_.told.value(0),
        QString("Конфликт версий|Версия pg_dump не подходит для этого сервера.\n\nДетали:\nserver version mismatch\n"));
    EXPECT_EQ(dialogs_.titles(), (QStringList{"Конфликт версий", "Успех"}));
    EXPECT_EQ(written(), QByteArray("good"));
}

TEST_F(Backup, EveryFailureMovesOnAndTheUserIsAskedAtTheEnd)
{
    DumpLimits limits;
    limits.finish = 300;
    DatabaseBackup backup({missing(), mismatched(), standIn("broken", "echo Беда >&2; exit 1"),
                           standIn("killed", "kill -9 $$"), standIn("slow", "exec sleep 60")},
                          limits);
    dialogs_.chosen = good("chosen");
    EXPECT_TRUE(run(backup));
    EXPECT_EQ(dialogs_.titles(),
              (QStringList{"Конфликт версий", "Ошибка pg_dump", "Ошибка pg_dump", "Ошибка", "Настройка pg_dump",
                           "choose", "Успех"}));
    EXPECT_EQ(dialogs_.told.value(1), QString("Ошибка pg_dump|Не удалось создать бэкап.\n\nДетали:\nБеда\n"));
    EXPECT_EQ(dialogs_.told.value(3), QString("Ошибка|Превышено время ожидания (60 сек)."));
    EXPECT_EQ(dialogs_.told.value(4),
              QString("Настройка pg_dump|Не удалось найти подходящую версию утилиты pg_dump автоматически.\n"
                      "Пожалуйста, выберите файл pg_dump.exe вручную из папки 'bin' вашей версии PostgreSQL "
                      "(рекомендуется v15 или v16)."));
    EXPECT_EQ(backup.remembered(), folder_.filePath("chosen"));
}

TEST_F(Backup, AChoiceThatFailsOrIsLeftEndsIt)
{
    DatabaseBackup backup({missing()});
    EXPECT_FALSE(run(backup));
    EXPECT_EQ(dialogs_.titles(), (QStringList{"Настройка pg_dump", "choose"}));
    EXPECT_TRUE(console_.take().endsWith("\nРезервная копия не создана.\n"));
    dialogs_.told.clear();
    dialogs_.chosen = mismatched();
    EXPECT_FALSE(run(backup));
    EXPECT_EQ(dialogs_.titles(), (QStringList{"Настройка pg_dump", "choose", "Конфликт версий"}));
    EXPECT_EQ(backup.remembered(), QString());
}

TEST_F(Backup, TheRememberedOneIsTriedFirstAndKeptUntilAnotherSucceeds)
{
    DatabaseBackup backup({missing()});
    dialogs_.chosen = good("chosen");
    EXPECT_TRUE(run(backup));
    dialogs_.told.clear();
    EXPECT_TRUE(run(backup));
    EXPECT_EQ(dialogs_.titles(), QStringList("Успех")) << "no search";

    dialogs_.told.clear();
    mismatched("chosen");
    dialogs_.chosen.clear();
    EXPECT_FALSE(run(backup));
    EXPECT_EQ(dialogs_.titles(), (QStringList{"Конфликт версий", "Настройка pg_dump", "choose"}));
    EXPECT_EQ(backup.remembered(), folder_.filePath("chosen"));
    dialogs_.chosen = good("other");
    EXPECT_TRUE(run(backup));
    EXPECT_EQ(backup.remembered(), folder_.filePath("other"));
}

TEST_F(Backup, AStoppedBackupAsksForNothingMore)
{
    dialogs_.goesOn = false;
    DatabaseBackup backup({standIn("slow", "exec sleep 60"), good()});
    EXPECT_FALSE(run(backup));
    EXPECT_EQ(dialogs_.told, QStringList());
    EXPECT_TRUE(console_.text().endsWith("\nРезервная копия не создана.\n"));
}

TEST_F(Backup, APlaceThatCannotBeWrittenIsToldOnce)
{
    DatabaseBackup backup({good(), good("second")});
    EXPECT_FALSE(backup.run({{"h", "1", "city", "u", "p"}, "/no/such/folder/a.sql"}, dialogs_));
    EXPECT_EQ(dialogs_.told, QStringList("Ошибка|Не удалось записать файл /no/such/folder/a.sql"));
}

TEST_F(Backup, CandidatesBeginWithThePathAndTheInstallersPlace)
{
    const QStringList candidates = dumpUtilityCandidates();
    EXPECT_EQ(candidates.mid(0, 2), (QStringList{"pg_dump", "C:\\Program Files\\PostgreSQL\\16\\bin\\pg_dump.exe"}));
    for (const QString& further : candidates.mid(2))
        EXPECT_TRUE(further.endsWith("/bin/pg_dump")) << further;
    EXPECT_EQ(QSet<QString>(candidates.begin(), candidates.end()).size(), candidates.size());
}

// --- a backup is one -------------------------------------------------------------------

// Everything that a database of ours consists of, a line a fact.
QStringList contentsOf(TestDatabase& database)
{
    QStringList facts;
    const auto add = [&](const QString& query) {
        for (const QStringList& row : database.rows(query))
            facts << row.join('|');
    };
    for (const QStringList& table : database.rows(
             "select relname from pg_class where relnamespace = 'public'::regnamespace and relkind in ('r', 'v') "
             "and relname not in ('geometry_columns', 'geography_columns') order by 1")) {
        add(fill("select '%1', count(*), md5(string_agg(t::text, chr(10) order by t::text)) from %1 t", table[0]));
    }
    add("select 'sequence', sequencename, last_value from pg_sequences order by 2");
    add("select 'constraint', conrelid::regclass::text, conname, pg_get_constraintdef(oid) from pg_constraint "
        "where connamespace = 'public'::regnamespace order by 2, 3");
    add("select 'index', indexdef from pg_indexes where schemaname = 'public' order by 2");
    add("select 'function', pg_get_functiondef(p.oid) from pg_proc p where pronamespace = 'public'::regnamespace "
        "and prokind = 'f' and not exists (select 1 from pg_depend d where d.objid = p.oid and d.deptype = 'e') "
        "order by 2");
    add("select 'column', table_name, column_name, data_type, column_default, is_nullable, identity_generation from "
        "information_schema.columns where table_schema = 'public' order by 2, 3");
    add("select 'comment', objoid::regclass::text, objsubid, description from pg_description where classoid = "
        "'pg_class'::regclass and objoid in (select oid from pg_class where relnamespace = 'public'::regnamespace) "
        "order by 2, 3");
    add("select 'extension', extname from pg_extension order by 2");
    return facts;
}

QStringList triggersOf(TestDatabase& database)
{
    QStringList triggers;
    for (const QStringList& row : database.rows("select pg_get_triggerdef(oid) from pg_trigger where not tgisinternal "
                                                "order by tgrelid::regclass::text, tgname"))
        triggers << row[0];
    return triggers;
}

class Restored : public Backup {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(original_.exec(QString::fromUtf8(read(TERVA_SOURCE_DIR "/tests/database/sample.sql"))));
        // Texts that a careless dump would spoil, and bytes of every value.
        original_.exec("insert into performers (fullname, post) values (E'О''Генри \\\\ \"кавычки\"\\n\\tстрока', "
                       "'$1 %1 ;--'), (null, '');"
                       "update positions_files set content = (select string_agg(set_byte('\\x00', 0, i), '' order by "
                       "i) from generate_series(0, 255) i);"
                       "update dm_elements set x = 0.1 + 0.2, y = 1e-300, h = 'NaN'");
    }
    ConnectionParameters parameters(const QString& database) const
    {
        return {TestServer::host(), TestServer::port(), database, TestServer::user(), TestServer::password()};
    }
    QString restore(TestDatabase& database)
    {
        QProcess psql;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("PGPASSWORD", TestServer::password());
        psql.setProcessEnvironment(environment);
        psql.start("psql",
                   {"-X", "-q", "-v", "ON_ERROR_STOP=1", "-h", TestServer::host(), "-p", TestServer::port(), "-U",
                    TestServer::user(), "-d", database.name(), "-f", target()});
        if (!psql.waitForFinished(120000) || psql.exitCode() != 0)
            return "psql: " + QString::fromUtf8(psql.readAllStandardError());
        return {};
    }

    TestDatabase original_;
    TestDatabase copy_{TestDatabase::Content::Empty};
};

TEST_F(Restored, TheDumpEqualsTheOriginalTableByTable)
{
    DatabaseBackup backup;
    ASSERT_TRUE(backup.run({parameters(original_.name()), target()}, dialogs_)) << dialogs_.told.join('\n');
    const QByteArray dump = written();
    EXPECT_TRUE(dump.contains("INSERT INTO public.performers"));
    EXPECT_FALSE(dump.contains(TestServer::password().toUtf8()));
    EXPECT_EQ(restore(copy_), QString());

    const QStringList before = contentsOf(original_);
    const QStringList after = contentsOf(copy_);
    EXPECT_GT(before.size(), 300);
    EXPECT_EQ(before.size(), after.size());
    for (int i = 0; i < qMin(before.size(), after.size()); ++i)
        EXPECT_EQ(before[i], after[i]);
}

// A trigger on a table of the extension is no part of a dump; the guide tells
// how to bring it back.
TEST_F(Restored, TheAuditGoesOnButForTheCoordinateSystem)
{
    DatabaseBackup backup;
    ASSERT_TRUE(backup.run({parameters(original_.name()), target()}, dialogs_)) << dialogs_.told.join('\n');
    ASSERT_EQ(restore(copy_), QString());
    QStringList lost = triggersOf(original_);
    EXPECT_GT(lost.size(), 40);
    for (const QString& trigger : triggersOf(copy_))
        EXPECT_TRUE(lost.removeOne(trigger)) << trigger;
    ASSERT_EQ(lost.size(), 1) << lost.join('\n');
    EXPECT_TRUE(lost[0].contains(" ON public.spatial_ref_sys ")) << lost[0];

    const QString guide = QString::fromUtf8(read(TERVA_SOURCE_DIR "/docs/guide/administration.md"));
    const QString remedy = guide.section("```sql\n", 1).section("```", 0, 0);
    EXPECT_TRUE(copy_.exec(remedy)) << remedy;
    EXPECT_EQ(triggersOf(copy_), triggersOf(original_));
    copy_.exec("truncate audit_log; update devices set name = 'После'; delete from spatial_ref_sys where srid = 9999");
    EXPECT_EQ(copy_.value("select string_agg(distinct table_name, ',' order by table_name) from audit_log"),
              QString("devices,spatial_ref_sys"));
}

} // namespace
