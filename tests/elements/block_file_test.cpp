// What is said of a block file that the host does not let be read.
#include "base/placeholders.h"
#include "elements/block_definitions.h"
#include "session/project_session.h"
#include "support/element_drawing.h"
#include "support/scripted_prompts.h"

#include <drawing/host_faults.h>
#include <gtest/gtest.h>

namespace {

struct Fault {
    bool HostFaults::*fault;
    const char* message;
};

class BlockFile : public ::testing::TestWithParam<Fault> {
protected:
    BlockFile() { hostFaults().*GetParam().fault = true; }
    ~BlockFile() override { hostFaults() = HostFaults(); }

    ElementDrawing drawing;
    ScriptedPrompts host;
};

} // namespace

TEST_P(BlockFile, IsToldAndPassedOver)
{
    EXPECT_TRUE(ensureBlockDefinitions());
    hostFaults() = HostFaults();
    const QString path = session().moduleDir + "blocks/dm.dwg";
    const QString told = fill(GetParam().message, path) + fill("Ошибка загрузки %1 \n", path);
    EXPECT_TRUE(host.console.startsWith(told)) << host.console.left(400);
    EXPECT_EQ(host.console.count("Ошибка загрузки "),
              QString(GetParam().message).startsWith("Ошибка загрузки") ? 38 : 19);
    EXPECT_FALSE(host.console.contains("завершена"));
    EXPECT_EQ(drawing.faults(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Faults, BlockFile,
                         ::testing::Values(Fault{&HostFaults::sideTables, "Ошибка открытия BlockTable %1\n"},
                                           Fault{&HostFaults::tableIterators,
                                                 "Ошибка получения итератора BlockTable %1\n"},
                                           Fault{&HostFaults::cloning, "Ошибка загрузки %1\n"}));
