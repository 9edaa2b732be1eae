#include "open_drawings.h"

namespace {

std::set<const NcDbDatabase*>& known()
{
    // Never destroyed: drawings that end with the program still ask it.
    static auto* drawings = new std::set<const NcDbDatabase*>;
    return *drawings;
}

} // namespace

const std::set<const NcDbDatabase*>& drawingsAlive() { return known(); }

bool isDrawingAlive(const NcDbDatabase* database) { return known().count(database) > 0; }

void noteDrawing(const NcDbDatabase* database, bool alive)
{
    if (alive)
        known().insert(database);
    else
        known().erase(database);
}
