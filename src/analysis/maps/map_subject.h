// What a map shows, told in the description of its group: the title, lines of a
// word and a value, and a line for each band: its colour and the bounds of its
// range. Printed sheets make their legends of it.
//
//   Карта температур, °С
//   цикл: 3 - 01.10.25 - 15.10.25
//   глубина: 6,00 м
//   #a1c2f0 -2.4 -2.2
#pragma once

#include "analysis/contour/iso_contour_set.h"
#include "analysis/levels/level_map.h"
#include "analysis/maps/well_logs.h"

// Empty texts are left out.
struct MapSubject {
    QString title, cycle, depth;
};

// The bands in the order in which they are given; one outside of the map's ranges
// has a colour and no bounds.
QString mapDescription(const MapSubject& subject, const std::vector<contour::HatchBand>& bands,
                       const LevelMap& levelMap);

// "6,00 м", "отметка 12,00 м", "среднее с 1,00 до 10,00 м", "у забоя".
QString samplingText(const Sampling& sampling);
