// A reference seen as a dynamic block: its properties and their values.
#include "host_access.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace {

const NcDbBlockReference* referenceOf(NcDbObjectId id) { return HostAccess::objectAs<NcDbBlockReference>(id); }

const DynamicDefinition* definitionOf(const NcDbBlockReference* reference)
{
    const auto* record =
        reference ? HostAccess::objectAs<NcDbBlockTableRecord>(reference->blockTableRecord()) : nullptr;
    return record ? HostAccess::dynamic(*record).get() : nullptr;
}

const DynamicParameter* parameterOf(const NcDbBlockReference* reference, const QString& name)
{
    const DynamicDefinition* definition = definitionOf(reference);
    return definition ? definition->parameter(name) : nullptr;
}

// As it stands among the values; reals so that they read back exactly.
QString printed(const NcDbEvalVariant& value)
{
    switch (value.restype()) {
    case 40: return QString::number(value.real(), 'g', QLocale::FloatingPointShortest);
    case 70:
    case 90: return QString::number(value.integer());
    default: return value.text();
    }
}

bool sameValue(const NcDbEvalVariant& a, const NcDbEvalVariant& b)
{
    return a.restype() == b.restype() && a.real() == b.real() && a.integer() == b.integer() && a.text() == b.text();
}

bool isAllowed(const DynamicParameter& parameter, const NcDbEvalVariant& value)
{
    return parameter.allowed.isEmpty()
        || std::any_of(parameter.allowed.begin(), parameter.allowed.end(), [&](const QString& allowed) {
               return sameValue(HostAccess::evalVariant(parameter.type, allowed), value);
           });
}

// A value equal to the default is not kept.
void storeValue(NcDbBlockReference& reference, const DynamicParameter& parameter, const NcDbEvalVariant& value)
{
    auto& values = HostAccess::dynamicValues(reference);
    values.erase(
        std::remove_if(values.begin(), values.end(), [&](const auto& entry) { return entry.first == parameter.name; }),
        values.end());
    if (!sameValue(value, HostAccess::evalVariant(parameter.type, parameter.defaultValue)))
        values.emplace_back(parameter.name, printed(value));
}

} // namespace

const DynamicParameter* DynamicDefinition::parameter(const QString& name) const
{
    const auto found =
        std::find_if(parameters.begin(), parameters.end(), [&](const auto& entry) { return entry.name == name; });
    return found == parameters.end() ? nullptr : &*found;
}

QString dynamicValue(const NcDbBlockReference& reference, const QString& name)
{
    for (const auto& entry : HostAccess::dynamicValues(reference))
        if (entry.first == name)
            return entry.second;
    const DynamicParameter* parameter = parameterOf(&reference, name);
    return parameter ? parameter->defaultValue : QString();
}

NcDbEvalVariant NcDbDynBlockReferenceProperty::value() const
{
    const NcDbBlockReference* reference = referenceOf(reference_);
    return reference ? HostAccess::evalVariant(type_, dynamicValue(*reference, name_)) : NcDbEvalVariant();
}

NcStatus NcDbDynBlockReferenceProperty::setValue(const NcDbEvalVariant& value)
{
    auto* reference = HostAccess::objectAs<NcDbBlockReference>(reference_);
    const DynamicParameter* parameter = parameterOf(reference, name_);
    if (!parameter)
        return NcStatus::NotFound;
    if (reference->isErased())
        return NcStatus::WasErased;
    if (value.restype() != parameter->type || !std::isfinite(value.real()) || !isAllowed(*parameter, value))
        return NcStatus::InvalidInput;
    HostAccess::noteChange(*reference);
    storeValue(*reference, *parameter, value);
    placeAttributes(*reference);
    HostAccess::touch(*reference);
    return NcStatus::Ok;
}

std::vector<NcDbEvalVariant> NcDbDynBlockReferenceProperty::getAllowedValues() const
{
    std::vector<NcDbEvalVariant> values;
    if (const DynamicParameter* parameter = parameterOf(referenceOf(reference_), name_))
        for (const QString& allowed : parameter->allowed)
            values.push_back(HostAccess::evalVariant(parameter->type, allowed));
    return values;
}

bool NcDbDynBlockReference::isDynamicBlock() const
{
    const DynamicDefinition* definition = definitionOf(referenceOf(reference_));
    return definition && !definition->parameters.empty();
}

NcDbObjectId NcDbDynBlockReference::dynamicBlockTableRecord() const
{
    const NcDbBlockReference* reference = referenceOf(reference_);
    return reference ? reference->blockTableRecord() : NcDbObjectId();
}

std::vector<NcDbDynBlockReferenceProperty> NcDbDynBlockReference::getBlockProperties() const
{
    std::vector<NcDbDynBlockReferenceProperty> properties;
    const DynamicDefinition* definition = definitionOf(referenceOf(reference_));
    if (!definition)
        return properties;
    for (const DynamicParameter& parameter : definition->parameters) {
        NcDbDynBlockReferenceProperty property;
        property.reference_ = reference_;
        property.name_ = parameter.name;
        property.type_ = parameter.type;
        properties.push_back(property);
    }
    return properties;
}
