// Each command, each of its statements refused in turn, and the link cut behind each: nothing that
// stood is lost, nothing stands that no whole run leaves, and what is left undone is not left undone
// in silence.
#include "command_scripts.h"
#include "entry/command_table.h"
#include "fault_world.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

class EveryCommand : public ::testing::TestWithParam<CommandScript> { };
class QuietCommand : public ::testing::TestWithParam<CommandScript> { };

std::string nameOf(const ::testing::TestParamInfo<CommandScript>& command) { return command.param.name; }

// A command's world, and what undisturbed runs of it leave.
class Trial {
public:
    explicit Trial(const CommandScript& command) : command_(command), world_(command.scenario)
    {
        whole_ = world_.play(command.script);
        EXPECT_EQ(whole_.stopped, "") << whole_.said;
        EXPECT_FALSE(whole_.statements.isEmpty());
        EXPECT_TRUE(world_.play(command.script).isSame(whole_)) << "two undisturbed runs leave the same";
        stays_ = setOf(world_.beginning()) & setOf(whole_.rows);
        known_ = setOf(world_.beginning()) | setOf(whole_.rows) | setOf(command.alsoLeft);
    }

    /// False when the run has no such statement.
    bool take(Fault fault)
    {
        const Outcome outcome = world_.play(command_.script, fault);
        if (!outcome.met)
            return false;
        const char* place = fault.kind == Fault::Cut ? "cut behind statement " : "refused statement ";
        const QSet<QString> left = setOf(outcome.rows);
        EXPECT_EQ(QStringList((stays_ - left).values()), QStringList()) << "lost: " << place << fault.statement;
        EXPECT_EQ(QStringList((left - known_).values()), QStringList()) << "by halves: " << place << fault.statement;
        const bool silent = !outcome.isSame(whole_) && outcome.said == whole_.said;
        const QString failed = failedStatement(fault);
        EXPECT_FALSE(silent && !mayBeSilent(failed)) << "not a word: " << place << fault.statement << "\n" << failed;
        return true;
    }

private:
    // The one that got no answer, as an undisturbed run asks.
    QString failedStatement(Fault fault) const
    {
        return whole_.statements.value(fault.kind == Fault::Cut ? fault.statement : fault.statement - 1);
    }
    bool mayBeSilent(const QString& statement) const
    {
        return std::any_of(command_.silent.begin(), command_.silent.end(),
                           [&](const QString& beginning) { return statement.startsWith(beginning); });
    }

    CommandScript command_;
    FaultWorld world_;
    Outcome whole_;
    QSet<QString> stays_, known_;
};

void takeEvery(Fault::Kind kind)
{
    ASSERT_TRUE(TestServer::isKnown());
    const CommandScript& command = EveryCommand::GetParam();
    Trial trial(command);
    if (::testing::Test::HasFailure())
        return;
    int statement = 1;
    while (trial.take({kind, statement})) {
        ASSERT_LT(statement, mostStatements) << "it never ends";
        ++statement;
    }
    EXPECT_GT(statement, 1);
    std::printf("%s: %d statements\n", command.name, statement - 1);
}

// Of each "command NAME" in the scripts.
QSet<QString> commandsOf(const std::vector<CommandScript>& scripts)
{
    static const QRegularExpression line("^command (\\w+)$", QRegularExpression::MultilineOption);
    QSet<QString> names;
    for (const CommandScript& script : scripts) {
        for (auto found = line.globalMatch(script.script); found.hasNext();)
            names << found.next().captured(1);
    }
    return names;
}

// "Suite.Name" of every test in the tree.
QSet<QString> testsOfTheTree()
{
    static const QRegularExpression macro("\\bTEST(?:_F|_P)?\\((\\w+),\\s*(\\w+)\\)|TYPED_TEST\\((\\w+),\\s*(\\w+)\\)");
    QSet<QString> names;
    QDirIterator sources(TERVA_SOURCE_DIR "/tests", {"*_test.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (sources.hasNext()) {
        QFile source(sources.next());
        EXPECT_TRUE(source.open(QIODevice::ReadOnly)) << source.fileName();
        for (auto found = macro.globalMatch(QString::fromUtf8(source.readAll())); found.hasNext();) {
            const QRegularExpressionMatch test = found.next();
            names << test.captured(1) + test.captured(3) + '.' + test.captured(2) + test.captured(4);
        }
    }
    return names;
}

} // namespace

void PrintTo(const CommandScript& command, std::ostream* stream) { *stream << command.name; }

TEST_P(EveryCommand, LosesNothingWhicheverStatementIsRefused) { takeEvery(Fault::Refused); }

TEST_P(EveryCommand, LosesNothingWhereverTheLinkIsCut) { takeEvery(Fault::Cut); }

INSTANTIATE_TEST_SUITE_P(All, EveryCommand, ::testing::ValuesIn(commandScripts()), nameOf);

TEST_P(QuietCommand, AsksTheServerNothing)
{
    ASSERT_TRUE(TestServer::isKnown());
    FaultWorld world(GetParam().scenario);
    const Outcome outcome = world.play(GetParam().script);
    EXPECT_EQ(outcome.stopped, "") << outcome.said;
    EXPECT_EQ(outcome.statements, QStringList());
}

INSTANTIATE_TEST_SUITE_P(All, QuietCommand, ::testing::ValuesIn(quietScripts()), nameOf);

// A new command gets its script, or says here who looks after it.
TEST(CommandFaults, NoCommandIsForgotten)
{
    const QSet<QString> tests = testsOfTheTree();
    QSet<QString> held = commandsOf(commandScripts());
    for (const SameCommand& same : sameCommands()) {
        EXPECT_TRUE(held.contains(same.like)) << same.name << " is like " << same.like << ", which has no script";
        EXPECT_FALSE(held.contains(same.name)) << same.name << " has a script of its own";
    }
    for (const SameCommand& same : sameCommands())
        held << same.name;
    for (const HeldElsewhere& elsewhere : commandsHeldElsewhere()) {
        held << elsewhere.name;
        EXPECT_FALSE(elsewhere.tests.isEmpty()) << elsewhere.name;
        for (const QString& test : elsewhere.tests)
            EXPECT_TRUE(tests.contains(test)) << elsewhere.name << ": there is no test " << test;
    }
    held |= commandsOf(quietScripts());
    QStringList forgotten;
    QSet<QString> known;
    for (const Command& command : commandTable()) {
        known << command.name;
        if (!held.contains(command.name))
            forgotten << command.name;
    }
    EXPECT_EQ(forgotten, QStringList());
    for (const SameCommand& same : sameCommands())
        EXPECT_TRUE(known.contains(same.name)) << same.name << " is no command";
    for (const HeldElsewhere& elsewhere : commandsHeldElsewhere())
        EXPECT_TRUE(known.contains(elsewhere.name)) << elsewhere.name << " is no command";
}
