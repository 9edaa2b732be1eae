#include "host_commands.h"

namespace {

bool findLayer(NcDbDatabase& drawing, const QString& name, NcDbObjectId& id)
{
    NcDbLayerTable* table = nullptr;
    if (!isOk(drawing.getSymbolTable(table, kForRead)))
        return false;
    const NcStatus status = table->getAt(name, id);
    table->close();
    return isOk(status);
}

bool makeLayer(NcDbDatabase& drawing, const QString& name, NcDbObjectId& id)
{
    NcDbLayerTable* table = nullptr;
    if (!isOk(drawing.getSymbolTable(table, kForWrite)))
        return false;
    auto layer = std::make_unique<NcDbLayerTableRecord>();
    layer->setName(name);
    layer->setColor(NcCmColor::fromIndex(7));
    const bool added = isOk(table->add(id, layer.get()));
    if (added)
        layer.release()->close();
    table->close();
    return added;
}

void changeLayer(NcDbObjectId id, const QString& word)
{
    NcDbLayerTableRecord* layer = nullptr;
    if (!isOk(ncdbOpenObject(layer, id, kForWrite)))
        return;
    if (word == QLatin1String("On") || word == QLatin1String("Off"))
        layer->setIsOff(word == QLatin1String("Off"));
    if (word == QLatin1String("Lock") || word == QLatin1String("Unlock"))
        layer->setIsLocked(word == QLatin1String("Lock"));
    int index = 7;
    if (word == QLatin1String("Paint")
        && ncedGetInt(QStringLiteral("\nНомер цвета (1-255): "), index) == kPromptNormal) {
        if (index >= 1 && index <= 255)
            layer->setColor(NcCmColor::fromIndex(index));
        else
            sayLine(QStringLiteral("Номер цвета должен быть от 1 до 255."));
    }
    layer->close();
}

void layer()
{
    NcDbDatabase* drawing = currentDrawing();
    const QString word = drawing
        ? askKeyword(
            QStringLiteral("\nСлой [Создать/Текущий/Вкл/Откл/Запереть/Отпереть/Цвет]: "),
            QStringLiteral("Создать Текущий Вкл Откл Запереть Отпереть Цвет _ Make Current On Off Lock Unlock Paint"))
        : QString();
    QString name;
    if (word.isEmpty() || !askText(QStringLiteral("\nИмя слоя: "), name))
        return;
    NcDbObjectId id;
    const bool there = findLayer(*drawing, name, id);
    if (word == QLatin1String("Make")) {
        if (!there && !makeLayer(*drawing, name, id))
            sayLine(QStringLiteral("Слой не создан: ") + name);
    } else if (!there) {
        sayLine(QStringLiteral("Нет слоя ") + name);
    } else if (word == QLatin1String("Current")) {
        drawing->setClayer(id);
    } else {
        changeLayer(id, word);
    }
}

} // namespace

const std::vector<HostCommandRow>& layerCommands()
{
    static const std::vector<HostCommandRow> rows = {{"LAYER", layer}};
    return rows;
}
