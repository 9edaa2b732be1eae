// Where the elements of a map are taken from.
#pragma once

#include "base/statement.h"
#include "geometry/point3.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

struct MapPlace {
    bool byPosition = true; // all of the position, else those inside the border
    int positionId = -1;
    geometry::PointList border; // corners in plan, for the whole database
    QStringList states;         // state_id; none takes every state

    // Without a border the box would be infinite, and there is nothing inside.
    bool isNowhere() const { return !byPosition && border.empty(); }
    // Whether an element that the server found in the border's box is taken.
    bool contains(double x, double y) const;
};

// " and (...) " with the chosen states, or nothing for none.
Statement stateCondition(const QStringList& states);

// The place in a statement: %1 is the position, or %1 to %4 are the limits of
// the border's box in x and y; then the states.
struct PlaceStatements {
    const char* ofPosition;
    const char* insideBox;
};
Statement placeStatement(const MapPlace& place, const PlaceStatements& statements);

struct MapElement {
    int id = -1;
    QString name;
    double x = 0.0, y = 0.0, z = 0.0, h = 0.0;
};
// The elements of the place; nothing when the server refuses. The statements
// read element_id, element_name, x, y, z, h.
std::optional<std::vector<MapElement>> elementsOf(const MapPlace& place, const PlaceStatements& statements);

// How reading a map's elements ended.
enum class Loaded { All, Refused, Stopped };

// Told after every element; false stops.
using MapProgress = std::function<bool(int done, int total)>;

// "Измерены в цикле не один раз: ..." with the names; nothing for none.
QString repeatedNote(const QStringList& names, const QString& consequence);
