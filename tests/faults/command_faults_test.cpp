// Each command, each of its statements refused in turn: nothing that stood is lost, nothing stands
// that no whole run leaves, and what is left undone is not left undone in silence.
#include "command_scripts.h"
#include "fault_world.h"

#include <QSet>
#include <gtest/gtest.h>

namespace {

constexpr int mostStatements = 400;

class EveryCommand : public ::testing::TestWithParam<CommandScript> { };

QSet<QString> setOf(const QStringList& lines) { return QSet<QString>(lines.begin(), lines.end()); }

} // namespace

TEST_P(EveryCommand, LosesNothingWhicheverStatementIsRefused)
{
    ASSERT_TRUE(TestServer::isKnown());
    FaultWorld world(GetParam().scenario);
    const QString script = GetParam().script;
    const Outcome whole = world.play(script, -1);
    ASSERT_EQ(whole.stopped, "") << whole.said;
    ASSERT_GT(whole.statements, 0);
    ASSERT_TRUE(world.play(script, -1).isSame(whole)) << "two undisturbed runs leave the same";
    const QSet<QString> stays = setOf(world.beginning()) & setOf(whole.rows);
    const QSet<QString> known = setOf(world.beginning()) | setOf(whole.rows) | setOf(GetParam().alsoLeft);
    int refused = 0;
    for (int n = 1; n < mostStatements; ++n) {
        const Outcome outcome = world.play(script, n);
        if (!outcome.refused)
            break;
        ++refused;
        const QSet<QString> left = setOf(outcome.rows);
        EXPECT_EQ(QStringList((stays - left).values()), QStringList()) << "lost at statement " << n;
        EXPECT_EQ(QStringList((left - known).values()), QStringList()) << "half written at statement " << n;
        const bool silent = !outcome.isSame(whole) && outcome.said == whole.said;
        EXPECT_FALSE(silent && !GetParam().mayBeSilent) << "nothing was said of statement " << n;
    }
    EXPECT_GT(refused, 0);
    std::printf("%s: %d statements refused\n", GetParam().name, refused);
}

INSTANTIATE_TEST_SUITE_P(All, EveryCommand, ::testing::ValuesIn(commandScripts()),
                         [](const auto& command) { return std::string(command.param.name); });
