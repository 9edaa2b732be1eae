// Every writer of files, each of its calls failing in turn, in the program itself: the file is the
// old one or the new one, and a run that wrote nothing did not end as if it had.
#include "support/write_faults.h"
#include "writer_world.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace {

constexpr int mostCalls = 60;

class EveryWriter : public ::testing::TestWithParam<Writer> {
protected:
    FaultRun run(int at)
    {
        world_.layOld(GetParam().file);
        return runWithFault(WriterWorld::program(), world_.arguments(), world_.out(), at, ENOSPC);
    }
    QByteArray content() const { return world_.content(GetParam().file); }

    WriterWorld world_{GetParam().scenario, GetParam().script};
};

} // namespace

TEST_P(EveryWriter, KeepsTheOldFileWhicheverCallFails)
{
    ASSERT_TRUE(TestServer::isKnown());
    ASSERT_EQ(run(mostCalls).exitCode, 0) << "undisturbed";
    const int whole = content().size();
    ASSERT_GT(whole, 30);
    int at = 0;
    for (bool reached = true; reached;) {
        ASSERT_LT(++at, mostCalls) << "it never ends";
        const FaultRun failed = run(at);
        reached = failed.reached;
        const QByteArray found = content();
        EXPECT_TRUE(found == "old" || found.size() > whole * 9 / 10) << "call " << at << ": " << found.size();
        EXPECT_TRUE(found != "old" || failed.exitCode != 0) << "call " << at << " is not told";
        EXPECT_EQ(world_.results(), QStringList(GetParam().file)) << "call " << at << " leaves something beside";
    }
    EXPECT_GE(at, 4);
}

INSTANTIATE_TEST_SUITE_P(All, EveryWriter, ::testing::ValuesIn(writers()),
                         [](const auto& writer) { return std::string(writer.param.name); });
