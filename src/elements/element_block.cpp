// The record itself: kinds, setters, the text of the properties.
#include "elements/element_block.h"

#include "elements/element_id.h"
#include "session/project_session.h"

namespace {

constexpr int defaultColor = 5;
constexpr double fullTurn = 6.283185307179586;

QString markerAngle() { return QStringLiteral("Угол1"); }

} // namespace

StateColors readStateColors()
{
    StateColors colors;
    const sql::Result rows = session().run("select state_id, colorindex from states");
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        colors.insert(rows.getvalue(row, 0), rows.toInt(row, 1));
    return colors;
}

ElementBlock::ElementBlock() : ElementBlock(readStateColors()) { }

ElementBlock::ElementBlock(const StateColors& colors) : stateColors(colors) { }

ElementBlock::ElementBlock(int kindNumber) : ElementBlock(kindNumber, readStateColors()) { }

ElementBlock::ElementBlock(int kindNumber, const StateColors& colors) : stateColors(colors) { setKind(kindNumber); }

void ElementBlock::setKind(int kindNumber)
{
    kind = isKind(kindNumber) ? kindNumber : noKind;
    blockName = isKind(kind) ? kinds()[size_t(kind)].blockName : QString();
    group = isKind(kind) ? kinds()[size_t(kind)].layer : QString();
    const KindDefaults defaults = defaultsOfKind(kind);
    attributes = defaults.attributes;
    dynProps = defaults.dynProps;
    allowedValues = defaults.allowedValues;
    colorIndex = defaultColor;
    stateId = QStringLiteral("exist");
    blockRotation = 0.0;
    scale = 1.0;
}

bool ElementBlock::changeKind(int newKind)
{
    ElementBlock fresh(newKind, stateColors);
    for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it) {
        if (!fresh.setAttribute(it.key(), it.value()))
            return false;
    }
    for (auto it = dynProps.constBegin(); it != dynProps.constEnd(); ++it)
        fresh.setDynProp(it.key(), it.value());
    kind = fresh.kind;
    blockName = fresh.blockName;
    group = fresh.group;
    attributes = fresh.attributes;
    dynProps = fresh.dynProps;
    allowedValues = fresh.allowedValues;
    return true;
}

bool ElementBlock::setAttribute(const QString& tag, const QString& text)
{
    const auto found = attributes.find(tag);
    if (found == attributes.end())
        return false;
    *found = text;
    return true;
}

bool ElementBlock::setDynProp(const QString& name, const QString& text)
{
    const auto found = dynProps.find(name);
    if (found == dynProps.end())
        return false;
    *found = text;
    return true;
}

void ElementBlock::setState(const QString& stateName)
{
    stateId = stateName;
    colorIndex = stateColors.value(stateName, defaultColor);
}

std::optional<int> ElementBlock::elementKey() const
{
    return leadingInteger(attributes.value(QStringLiteral("element_id")));
}

QString ElementBlock::propsText() const
{
    QStringList entries;
    for (auto it = dynProps.constBegin(); it != dynProps.constEnd(); ++it)
        entries.append(it.key() + QLatin1Char(':') + it.value());
    return entries.join(QLatin1Char('|'));
}

bool ElementBlock::parseProps(const QString& text)
{
    for (const QString& piece : text.split(QLatin1Char('|'))) {
        const QStringList parts = piece.split(QLatin1Char(':'));
        if (parts.size() >= 2 && !setDynProp(parts[0], parts[1]))
            return false;
    }
    return true;
}

double ElementBlock::markerRotation() const
{
    const double sum = dynProps.value(markerAngle()).toDouble() + blockRotation;
    return hasDynProp(markerAngle()) && sum > fullTurn ? sum - fullTurn : sum;
}
