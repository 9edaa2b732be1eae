#include "formkit/unit.h"

#include <QAbstractSpinBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QRegularExpression>
#include <QVariant>

namespace formkit {

namespace {

const char* const kProperty = "unit";
const QString kWords = QStringLiteral("Единица измерения: ");

QString withoutUnitLine(const QString& tip)
{
    const int at = tip.indexOf(kWords);
    return at < 0 ? tip : tip.left(at).trimmed();
}

bool takesNumbers(const QWidget* widget)
{
    const auto* line = qobject_cast<const QLineEdit*>(widget);
    return (line && line->validator())
        || (qobject_cast<const QAbstractSpinBox*>(widget) && !qobject_cast<const QDateTimeEdit*>(widget));
}

} // namespace

void sayUnit(QWidget* field, const QString& unit)
{
    field->setProperty(kProperty, unit.isNull() ? QStringLiteral("") : unit);
    const QString own = withoutUnitLine(field->toolTip());
    const QString told = unit.isEmpty() ? QString() : kWords + unit;
    field->setToolTip(own.isEmpty() || told.isEmpty() ? own + told : own + QLatin1Char('\n') + told);
    field->setStatusTip(told);
    field->setWhatsThis(field->toolTip());
    field->setAccessibleDescription(told);
}

QString unitIn(const QString& caption)
{
    static const QRegularExpression behindComma(QStringLiteral(",\\s*([^,]*[^,:\\s])\\s*:?$"));
    static const QRegularExpression inBrackets(QStringLiteral("\\s\\(([^()]+)\\)\\s*:?$"));
    const auto comma = behindComma.match(caption);
    return comma.hasMatch() ? comma.captured(1) : inBrackets.match(caption).captured(1);
}

void takeUnitFrom(const QString& caption, QWidget* field)
{
    const QString unit = unitIn(caption);
    if (!unit.isEmpty() && takesNumbers(field) && !field->property(kProperty).isValid())
        sayUnit(field, unit);
}

} // namespace formkit
