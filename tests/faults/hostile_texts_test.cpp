// A text that would end its statement, in fields whose text goes into one: it is refused before the
// server hears of it, or stored as the text it is; no other row goes or changes.
#include "command_scripts.h"
#include "fault_world.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

// A field, by the honest text that a script puts there.
struct HostileField {
    const char* name;
    const char* script;
    const char* honest;
    enum Fate { Refused, Whole, WithBlanks } fate = Refused; ///< stored as it is, or without apostrophes
};

const HostileField fields[] = {
    {"device", "catalogues", "Нивелир"},
    {"position", "tree", "Ось А"},
    {"project", "settings", "Новое место"},
    {"state", "settings", "Утрачен"},
    {"state_key", "settings", "lost"},
    {"ground", "grounds", "Глина", HostileField::Whole},
    {"color_map", "color_map", "Моя"},
    {"coordinate_system", "coordinate_systems", "По оси", HostileField::WithBlanks},
    {"inserted_element", "insertion", "Т-1"},
    {"inspected_element", "inspector", "ДМ-7"},
    {"norm", "position_passport", "\"10\""},
};

void PrintTo(const HostileField& field, std::ostream* stream) { *stream << field.name; }

class HostileTexts : public ::testing::TestWithParam<HostileField> {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(TestServer::isKnown());
        command_ = &*std::find_if(commandScripts().begin(), commandScripts().end(),
                                  [](const auto& script) { return QString(script.name) == GetParam().script; });
        ASSERT_TRUE(QString(command_->script).contains(GetParam().honest));
        world_ = std::make_unique<FaultWorld>(command_->scenario);
        honest_ = world_->play(command_->script);
        ASSERT_EQ(honest_.stopped, "");
    }

    // The command with the text in the field.
    void take(const QString& hostile)
    {
        QString script = command_->script;
        const bool quoted = QString(GetParam().honest).startsWith('"');
        script.replace(GetParam().honest, quoted ? '"' + hostile + '"' : hostile);
        // Patience as for a fault that never comes: boxes of success may not.
        const Outcome outcome = world_->play(script, {Fault::Refused, mostStatements});
        const QSet<QString> before = setOf(world_->beginning()), after = setOf(honest_.rows);
        const QSet<QString> left = setOf(outcome.rows);
        const QSet<QString> made = left - (before | after | setOf(command_->alsoLeft));
        EXPECT_EQ(QStringList(((before & after) - left).values()), QStringList()) << "lost: " << hostile;
        QString stored = hostile;
        if (GetParam().fate == HostileField::WithBlanks)
            stored.replace('\'', ' ');
        for (const QString& row : made)
            EXPECT_TRUE(GetParam().fate != HostileField::Refused && row.contains(stored)) << "made: " << row;
        EXPECT_TRUE(GetParam().fate == HostileField::Refused || made.size() == 1) << hostile;
        EXPECT_EQ(outcome.statements.filter(hostile), QStringList()) << "sent";
        EXPECT_FALSE(outcome.isSame(honest_)) << hostile << " was taken for an honest one";
    }

private:
    const CommandScript* command_ = nullptr;
    std::unique_ptr<FaultWorld> world_;
    Outcome honest_;
};

} // namespace

TEST_P(HostileTexts, ChangeNothingAndAreNotSent)
{
    take("x'; DELETE FROM dm_meas; --");
    take("O'Neil");
}

INSTANTIATE_TEST_SUITE_P(All, HostileTexts, ::testing::ValuesIn(fields),
                         [](const auto& field) { return std::string(field.param.name); });
