// The user manual on the documentation server.
#pragma once

#include <QUrl>

QUrl manualAddress();
void openManual();
