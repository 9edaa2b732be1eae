// Points of an entity by which it is pulled into shape: ends, corners, centres,
// the place of a block and each parameter of a dynamic one.
#pragma once

#include <nrx/tables.h>

#include <QStringList>

struct Grip {
    enum Kind {
        Place,  // the whole entity follows
        Vertex, // a corner or an end: `index`
        Radius, // of a circle
        Pair,   // two parameters, the X and Y of a point in the block
        Angle,  // a parameter that turns parts of the block
        Length, // a parameter along a line of the block
        Flip,   // a parameter that is 0 or 1: a click turns it over
        Choice  // a parameter of several values: a click offers them
    };

    Kind kind = Place;
    NcGePoint3d at; // in the world
    int index = 0;
    QString parameter, second;
    // Of an Angle its centre, of a Length where it begins; both in the world.
    NcGePoint3d from;
};

// In the order in which they are drawn; of a point that several share the last
// one is meant.
NRX_API std::vector<Grip> gripsOf(const NcDbEntity& entity);
// Pulls a grip to a point in the world. False when nothing came of it: the entity
// is locked or held open, or the grip is none to be pulled.
NRX_API bool pullGrip(NcDbObjectId entity, const Grip& grip, const NcGePoint3d& to);
// A click on a Flip.
NRX_API bool turnGrip(NcDbObjectId entity, const Grip& grip);
// Values of a Choice, and the one in force.
NRX_API QStringList gripChoices(NcDbObjectId entity, const Grip& grip, QString& present);
NRX_API bool chooseGrip(NcDbObjectId entity, const Grip& grip, const QString& value);
