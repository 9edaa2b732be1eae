#include "drawings.h"

#include <random>

namespace {

NcDbObjectId addMark(NcDbDatabase& drawing)
{
    NcDbBlockTable* table = nullptr;
    drawing.getSymbolTable(table, kForWrite);
    auto* block = new NcDbBlockTableRecord;
    block->setName(QStringLiteral("mark"));
    NcDbObjectId definition;
    table->add(definition, block);
    auto* disc = new NcDbCircle({0, 0, 0}, NcGeVector3d::kZAxis, 1.0);
    block->appendNcDbEntity(disc);
    disc->close();
    block->close();
    table->close();
    return definition;
}

} // namespace

void fillDrawing(NcDbDatabase& drawing, int count)
{
    std::mt19937 random(3);
    const auto coordinate = [&] { return double(random() % 1000000) / 1000.0; };
    const NcDbObjectId definition = addMark(drawing);
    NcDbBlockTableRecord* space = nullptr;
    ncdbOpenObject(space, drawing.currentSpaceId(), kForWrite);
    for (int i = 0; i < count; ++i) {
        const NcGePoint3d at(coordinate(), coordinate(), 0);
        NcDbEntity* entity = nullptr;
        switch (i % 4) {
        case 0: entity = new NcDbLine(at, {at.x + 3, at.y + 2, 0}); break;
        case 1: entity = new NcDbText(at, QString::number(at.x, 'f', 2), 1.0); break;
        case 2: entity = new NcDbCircle(at, NcGeVector3d::kZAxis, 1.0); break;
        default: entity = new NcDbBlockReference(at, definition); break;
        }
        space->appendNcDbEntity(entity);
        entity->close();
    }
    space->close();
}
