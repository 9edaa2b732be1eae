// The questions of an import as boxes.
#pragma once

#include "exchange/measure_import.h"

class QWidget;

/// The box "Внимание" with its four buttons; closing it answers "Нет".
ImportAnswer askImport(const QString& text, QWidget* parent);

/// The same with the shorter words of imports of elements and instruments.
ImportAnswer askUpdate(const QString& text, QWidget* parent);
