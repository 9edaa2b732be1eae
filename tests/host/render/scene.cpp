#include "scene.h"

NcDbObjectId Scene::block(const QString& name)
{
    NcDbBlockTable* table = nullptr;
    NcDbObjectId id;
    drawing.getSymbolTable(table, kForWrite);
    if (!isOk(table->getAt(name, id))) {
        auto* record = new NcDbBlockTableRecord;
        record->setName(name);
        table->add(id, record);
        record->close();
    }
    table->close();
    return id;
}

NcDbObjectId Scene::addToBlock(const QString& name, NcDbEntity* entity, const QString& layer, int color)
{
    NcDbBlockTableRecord* record = nullptr;
    NcDbObjectId id;
    const NcDbObjectId owner = block(name);
    ncdbOpenObject(record, owner, kForWrite);
    record->appendNcDbEntity(id, entity);
    entity->setLayer(layer);
    entity->setColorIndex(color);
    entity->close();
    record->close();
    return id;
}

NcDbObjectId Scene::add(NcDbEntity* entity, const QString& layer, int color)
{
    return addToBlock(QStringLiteral("*Model_Space"), entity, layer, color);
}

NcDbObjectId Scene::addLayer(const QString& name, int color)
{
    NcDbLayerTable* table = nullptr;
    NcDbObjectId id;
    drawing.getSymbolTable(table, kForWrite);
    auto* record = new NcDbLayerTableRecord;
    record->setName(name);
    record->setColor(NcCmColor::fromIndex(color));
    table->add(id, record);
    record->close();
    table->close();
    return id;
}

void Scene::setLayer(const QString& name, bool off, bool frozen)
{
    NcDbLayerTable* table = nullptr;
    NcDbLayerTableRecord* record = nullptr;
    drawing.getSymbolTable(table, kForRead);
    table->getAt(name, record, kForWrite);
    record->setIsOff(off);
    record->setIsFrozen(frozen);
    record->close();
    table->close();
}

void Scene::erase(NcDbObjectId id)
{
    NcDbEntity* entity = nullptr;
    ncdbOpenObject(entity, id, kForWrite);
    entity->erase();
    entity->close();
}

NcDbObjectId Scene::insert(const QString& name, const NcGePoint3d& at, double scale, double rotation, int color)
{
    auto* reference = new NcDbBlockReference(at, block(name));
    reference->setScaleFactors({scale, scale, scale});
    reference->setRotation(rotation);
    return add(reference, QStringLiteral("0"), color);
}

void Scene::addAttribute(NcDbObjectId id, const QString& tag, const QString& text, const NcGePoint3d& at, double height,
                         bool invisible)
{
    NcDbBlockReference* reference = nullptr;
    ncdbOpenObject(reference, id, kForWrite);
    auto* attribute = new NcDbAttribute;
    attribute->setTag(tag);
    attribute->setTextString(text);
    attribute->setPosition(at);
    attribute->setHeight(height);
    attribute->setInvisible(invisible);
    reference->appendAttribute(attribute);
    attribute->close();
    reference->close();
}

NcDbHatch* square(double left, double bottom, double size)
{
    auto* hatch = new NcDbHatch;
    hatch->appendLoop(NcDbHatch::kExternal,
                      {{left, bottom}, {left + size, bottom}, {left + size, bottom + size}, {left, bottom + size}},
                      {0, 0, 0, 0});
    return hatch;
}

std::vector<Figure> figuresOf(const DisplayList& list, Figure::Kind kind)
{
    std::vector<Figure> found;
    for (const Figure& figure : list.figures())
        if (figure.kind == kind)
            found.push_back(figure);
    return found;
}

QStringList textsOf(const DisplayList& list)
{
    QStringList texts;
    for (const Figure& figure : figuresOf(list, Figure::Text))
        texts << figure.text.text;
    return texts;
}
