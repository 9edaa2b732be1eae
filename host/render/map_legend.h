// The maps of coloured bands in a drawing: groups of hatches whose description tells
// what they show. Its lines are the title, words with values ("цикл: 3"), and for
// each band its colour and the bounds of its range ("#a1c2f0 -2.4 -2.2").
#pragma once

#include "sheet.h"

#include <set>

struct DrawnMap {
    struct Band {
        QColor color;
        QString range; // "-2,4 … -2,2"; "вне шкалы" without bounds
    };

    QString title;
    QStringList notes; // "цикл: 3", in the order in which they stand
    std::vector<Band> bands;
    std::set<NcDbObjectId> hatches;

    // The value of a note by its word; empty when it is not told.
    QString note(const QString& word) const;
};

// The maps that show in the window, each with the bands that do.
NRX_API std::vector<DrawnMap> mapsIn(const NcDbDatabase& drawing, const DisplayList& list, const QRectF& window);
// What the sheet's legend holds: the maps in its field with their bands, then the
// layers of what else shows.
NRX_API std::vector<Sheet::Sign> legendOf(const NcDbDatabase& drawing, const DisplayList& list, const Sheet& sheet);
// Cycle and depth of the only map in the field, where it tells them and the sheet
// does not.
NRX_API void tellMap(const NcDbDatabase& drawing, const DisplayList& list, Sheet& sheet);
