#pragma once
// The passport of one thermal well as a Word document.

#include <QString>

class QWidget;

/// Asks for the template where there are several, and for the folder, and before a
/// file is replaced; what came of it is told.
void exportPassportDocument(QWidget* parent, int wellId, const QString& wellName);
