//   PLOT path [A4|A3|A2|A1|A0] scale centre title: a sheet to scale, as a PDF
#pragma once

#include "host_commands.h"

const std::vector<HostCommandRow>& plotCommands();
