// Memory that runs out: the program itself, of whose allocations one fails, alone or with all that
// follow. It may die of it, and does not hang; files and rows are those of before or those of a whole
// run. A run has tens of thousands of allocations, so a spread of them is played, closest where the
// file is written.
#include "command_scripts.h"
#include "kept_tables.h"
#include "support/allocation_faults.h"
#include "writer_world.h"

#include <QRegularExpression>
#include <QThread>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

// While they are being run out of memory, the sanitizers' own runtime dies first.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

// `count` places behind `first` up to `last`, as far from each other as can be.
QVector<int> spread(int first, int last, int count)
{
    QVector<int> places;
    for (int i = 1; i <= count; ++i)
        places << first + int(qint64(last - first) * i / count);
    return places;
}

// Of the run's allocations: a few before the writing, more while it lasts, one behind.
QVector<int> placesOf(const AllocationRun& run)
{
    QVector<int> places = {1};
    places += spread(1, run.firstWrite, 2);
    places += spread(run.firstWrite, run.lastMove, 7);
    places += spread(run.lastMove, run.calls, 2).mid(0, 1);
    return places;
}

class ShortOfMemory {
protected:
    ShortOfMemory(const QString& scenario, const QString& script) : world_(scenario, script), tables_(world_.database())
    { }

    AllocationRun run(AllocationFault fault)
    {
        const AllocationRun run =
            runShortOfMemory(WriterWorld::program(), world_.arguments(), world_.start(), world_.out(), fault);
        EXPECT_FALSE(run.hung) << "allocation " << fault.at;
        EXPECT_TRUE(run.died || run.exitCode == 0 || !run.told.trimmed().isEmpty()) << "allocation " << fault.at;
        waitForServer();
        return run;
    }

    WriterWorld world_;
    KeptTables tables_;

private:
    // What a program that died has asked may still be under way.
    void waitForServer()
    {
        const QString others = "select count(*) from pg_stat_activity where datname = current_database() and pid <> "
                               "pg_backend_pid() and backend_type = 'client backend'";
        for (int i = 0; i < 500 && world_.database().value(others) != "0"; ++i)
            QThread::msleep(20);
    }
};

// Moments and sizes that follow from them differ from run to run.
QByteArray withoutMoments(QByteArray bytes)
{
    std::replace_if(
        bytes.begin(), bytes.end(), [](char letter) { return letter >= '0' && letter <= '9'; }, '0');
    return bytes;
}

// A file of text is equal but for its digits; one that is packed has about the size, and its end.
bool isWhole(const QByteArray& found, const QByteArray& whole)
{
    if (withoutMoments(found) == withoutMoments(whole))
        return true;
    constexpr int directory = 22; // bytes of a package's end; its first say what it is
    const bool packed = whole.startsWith("PK") || whole.startsWith("\x1f\x8b") || whole.startsWith("\x89PNG");
    return packed && qAbs(found.size() - whole.size()) < 64
        && (!whole.startsWith("PK") || found.right(directory).startsWith("PK\x05\x06"));
}

class WritersShortOfMemory : public ::testing::TestWithParam<Writer>, protected ShortOfMemory {
protected:
    WritersShortOfMemory() : ShortOfMemory(GetParam().scenario, GetParam().script) { }
};

// Those that write rows.
std::vector<CommandScript> changes()
{
    const QSet<QString> names = {"insertion", "measure_import", "element_import", "tree", "grounds"};
    std::vector<CommandScript> chosen;
    std::copy_if(commandScripts().begin(), commandScripts().end(), std::back_inserter(chosen),
                 [&](const CommandScript& script) { return names.contains(script.name); });
    return chosen;
}

class ChangesShortOfMemory : public ::testing::TestWithParam<CommandScript>, protected ShortOfMemory {
protected:
    ChangesShortOfMemory() : ShortOfMemory(GetParam().scenario, GetParam().script) { }
};

} // namespace

TEST_P(WritersShortOfMemory, KeepTheOldFileOrWriteTheWhole)
{
    ASSERT_TRUE(TestServer::isKnown());
    if (isSanitized)
        GTEST_SKIP() << "the sanitizer does not live without memory";
    const char* file = GetParam().file;
    world_.layOld(file);
    const AllocationRun undisturbed = run({});
    ASSERT_EQ(undisturbed.exitCode, 0) << undisturbed.told.toStdString();
    const QByteArray whole = world_.content(file);
    ASSERT_NE(whole, "old");
    ASSERT_GT(undisturbed.firstWrite, 0);
    ASSERT_GT(undisturbed.lastMove, undisturbed.firstWrite);
    int harmed = 0;
    bool onAndOn = false;
    for (const int place : placesOf(undisturbed)) {
        onAndOn = !onAndOn;
        world_.layOld(file);
        const AllocationRun failed = run({place, onAndOn});
        const QByteArray found = world_.content(file);
        EXPECT_TRUE(found == "old" || isWhole(found, whole))
            << "allocation " << place << (onAndOn ? " and on: " : ": ") << found.size() << " of " << whole.size();
        EXPECT_TRUE(found != "old" || failed.died || failed.exitCode != 0) << "allocation " << place << " is not told";
        harmed += failed.died || failed.exitCode != 0;
    }
    EXPECT_GT(harmed, 0) << "memory did run out";
    EXPECT_EQ(tables_.rows(), tables_.beginning()) << "who writes files changes no row";
    std::printf("%s: %d allocations, %d of %d runs harmed\n", GetParam().name, undisturbed.calls, harmed,
                placesOf(undisturbed).size());
}

INSTANTIATE_TEST_SUITE_P(All, WritersShortOfMemory, ::testing::ValuesIn(writers()),
                         [](const auto& writer) { return std::string(writer.param.name); });

TEST_P(ChangesShortOfMemory, LeaveRowsThatAreWhole)
{
    ASSERT_TRUE(TestServer::isKnown());
    if (isSanitized)
        GTEST_SKIP() << "the sanitizer does not live without memory";
    world_.layOld();
    const AllocationRun undisturbed = run({});
    ASSERT_EQ(undisturbed.exitCode, 0) << undisturbed.told.toStdString();
    ASSERT_GT(undisturbed.calls, 1000);
    QStringList found = tables_.rows();
    const QSet<QString> before = setOf(tables_.beginning());
    const QSet<QString> after = setOf(found);
    ASSERT_NE(before, after);
    const QSet<QString> known = before | after | setOf(GetParam().alsoLeft);
    bool onAndOn = false;
    for (const int place : spread(0, undisturbed.calls, 9)) {
        onAndOn = !onAndOn;
        world_.layOld();
        tables_.layBack(found);
        run({place, onAndOn});
        found = tables_.rows();
        EXPECT_EQ(QStringList(((before & after) - setOf(found)).values()), QStringList()) << "lost at " << place;
        EXPECT_EQ(QStringList((setOf(found) - known).values()), QStringList()) << "by halves at " << place;
    }
}

INSTANTIATE_TEST_SUITE_P(All, ChangesShortOfMemory, ::testing::ValuesIn(changes()),
                         [](const auto& command) { return std::string(command.param.name); });
