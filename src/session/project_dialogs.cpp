#include "session/project_dialogs.h"

namespace {

ProjectDialogs* installed = nullptr;

} // namespace

ProjectDialogs* projectDialogs() { return installed; }

void setProjectDialogs(ProjectDialogs* dialogs) { installed = dialogs; }
