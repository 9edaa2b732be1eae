// What a panel of properties shows of entities, and how it changes them.
// Lengths and coordinates are those of the world, angles are degrees.
#pragma once

#include <nrx/database.h>

#include <QStringList>
#include <QVariant>

struct EntityProperty {
    enum Kind { Text, Lines, Number, Angle, Count, Flag, Choice, Layer, LineType, Color };

    QString key; // the same for entities that share the property: "layer", "attribute:NAME"
    QString group, caption;
    Kind kind = Text;
    bool fixed = false;  // told, not changed
    bool varies = false; // the entities differ; the value is that of the first
    QVariant value;      // Color: a text as colorName gives it; Flag: bool
    QStringList choices; // of a Choice
};

// "Отрезок", "Блок ts": what a user calls the entity.
NRX_API QString entityName(const NcDbEntity& entity);

// What all of them have, in the order of the first one's.
NRX_API std::vector<EntityProperty> propertiesOf(const NcDbObjectIdArray& ids);
// The number of entities that took the value. What is locked, or refuses the
// value, is left as it is.
NRX_API int setProperty(const NcDbObjectIdArray& ids, const QString& key, const QVariant& value);

// A colour in words: "По слою", "По блоку", an index, or "red,green,blue"; read
// back by the other, which gives nothing for a text that is no colour.
NRX_API QString colorName(const NcCmColor& color);
NRX_API std::optional<NcCmColor> colorOfName(const QString& name);

// Names of the layers, and of the line types that a drawing knows, in order.
NRX_API QStringList layerNames(const NcDbDatabase& database);
NRX_API QStringList lineTypeNames(const NcDbDatabase& database);
// What a user calls a line type, "По слою" for "ByLayer"; and back.
NRX_API QString lineTypeCaption(const QString& name);
NRX_API QString lineTypeOfCaption(const QString& caption);
