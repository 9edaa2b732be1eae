// Coordinate systems between the drawing and the database.
#pragma once

#include "drawing/alignment/ucs_record.h"

#include <QStringList>
#include <functional>

/// What the user took of the names offered: which, and how it reads now.
struct UcsChoice {
    int index = -1;
    QString name;
};
using UcsChooser = std::function<std::optional<UcsChoice>(const QStringList& offered)>;

/// TERVA_GET_UCS: lists the drawing's named systems on the command line, offers
/// their names behind that of the current position and stores the chosen one.
void storeUcsOfDrawing(const UcsChooser& choose);

/// TERVA_SET_UCS, behind its dialog: adds the system to the drawing and makes it
/// current. A system of that name which the drawing has already is taken as it
/// is. Reports on the command line.
void applyUcs(const UcsRecord& ucs);
