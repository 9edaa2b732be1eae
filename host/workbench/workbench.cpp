#include "workbench.h"

int runWorkbench(const Options&, const std::function<bool()>& loadModules)
{
    return loadModules() ? 0 : 2;
}
