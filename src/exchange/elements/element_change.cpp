#include "exchange/elements/element_change.h"

#include "base/text.h"
#include "hostkit/model_space.h"

#include <cmath>

namespace {

constexpr int attributeDecimals = 2;
constexpr int propertyDecimals = 6;
const QString angle = QStringLiteral("Угол1");

// A dynamic property of two numbers; kinds without it are left alone.
class PropertyVector {
public:
    PropertyVector(ElementBlock& element, const QString& name)
        : element_(element),
          xName_(name + QStringLiteral(" X")),
          yName_(name + QStringLiteral(" Y")),
          x_(element.dynProps.value(xName_).toDouble()),
          y_(element.dynProps.value(yName_).toDouble())
    { }
    void turn(double by) { set(x_ * std::cos(by) - y_ * std::sin(by), x_ * std::sin(by) + y_ * std::cos(by)); }
    void setLength(double length)
    {
        const double present = std::hypot(x_, y_);
        if (present > 0.0)
            set(x_ * length / present, y_ * length / present);
        else
            set(0.0, length);
    }

private:
    void set(double x, double y)
    {
        element_.setDynProp(xName_, fixed(x, propertyDecimals));
        element_.setDynProp(yName_, fixed(y, propertyDecimals));
        x_ = x;
        y_ = y;
    }

    ElementBlock& element_;
    QString xName_, yName_;
    double x_, y_;
};

NcDbObjectId blockOf(const ElementBlock& element)
{
    for (const int kind : element.family()->kinds) {
        const NcDbObjectId found = findBlockReference(kinds()[size_t(kind)].blockName, QStringLiteral("element_id"),
                                                      QString::number(element.elementId()));
        if (!found.isNull())
            return found;
    }
    return {};
}

void setNumber(ElementBlock& element, const char* tag, double number)
{
    element.setAttribute(QString::fromLatin1(tag), fixed(number, attributeDecimals));
}

} // namespace

void takeRecord(ElementBlock& element, const ElementRecord& record, bool withPlace)
{
    element.setAttribute(QStringLiteral("name"), record.name);
    if (withPlace) {
        element.x = record.x.value_or(element.x);
        element.y = record.y.value_or(element.y);
    }
    if (const std::optional<double> z = record.z()) {
        element.z = *z;
        setNumber(element, "z", *z);
        setNumber(element, "rp_z", *z);
    }
    if (const std::optional<double> h = record.h()) {
        element.h = *h;
        setNumber(element, "h", *h);
    }
    if (record.burial) {
        element.e = *record.burial;
        setNumber(element, "de", *record.burial);
        PropertyVector(element, QStringLiteral("Заглубление")).setLength(*record.burial);
        PropertyVector(element, QStringLiteral("Положение2")).setLength(*record.burial);
    }
    if (record.rotation) {
        PropertyVector(element, QStringLiteral("Положение2"))
            .turn(*record.rotation - element.dynProps.value(angle).toDouble());
        element.setDynProp(angle, fixed(*record.rotation, propertyDecimals));
    }
}

bool changeElement(const QString& typeId, int id, const ElementRecord& record, bool withPlace, int positionId,
                   const StateColors& colors)
{
    ElementBlock element(kindByTypeId(typeId), colors);
    if (!element.loadFromDatabase(id))
        return false;
    if (positionId != -1)
        element.positionId = positionId;
    takeRecord(element, record, withPlace);
    const bool written = element.updateRowFull();
    const NcDbObjectId block = blockOf(element);
    if (written && !block.isNull())
        element.applyToBlock(block);
    return written;
}
