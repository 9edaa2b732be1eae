#include "formkit/field_pane.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "formkit/layout.h"
#include "formkit/unit.h"
#include "formkit/widgets.h"

#include <QRegularExpressionValidator>

namespace formkit {

namespace {

using Changed = std::function<void()>;

const QString kDateFormat = QStringLiteral("yyyy-MM-dd");

// A server says "t" of a boolean, a statement takes "1".
bool isOn(const QString& value)
{
    return value == QLatin1String("1") || value == QLatin1String("t") || value == QLatin1String("true");
}

FieldEditor lineEditor(const Field& field, const Changed& changed)
{
    QLineEdit* line = field.kind == FieldKind::Password ? passwordEdit(field.name)
        : field.kind == FieldKind::Number               ? numberEdit(field.name)
                                                        : edit(field.name);
    if (field.length > 0)
        line->setMaxLength(field.length);
    if (!field.pattern.isEmpty())
        line->setValidator(new QRegularExpressionValidator(QRegularExpression(field.pattern), line));
    QObject::connect(line, &QLineEdit::textChanged, line, changed);
    const auto show = [line](const QString& value) {
        line->setText(value);
        line->setCursorPosition(0); // a long text shows its beginning
    };
    return {line, line, [line] { return line->text(); }, show, {}};
}

FieldEditor pathEditor(const Field& field, const Changed& changed)
{
    FieldEditor made = lineEditor(field, changed);
    auto* line = static_cast<QLineEdit*>(made.widget);
    QPushButton* dots = dotsButton(field.buttonName);
    QObject::connect(dots, &QPushButton::clicked, line, [line, choose = field.chooser] {
        const QString chosen = choose(line->window(), line->text());
        if (!chosen.isEmpty())
            line->setText(chosen);
    });
    made.place = pane(row({line, dots}));
    return made;
}

FieldEditor linesEditor(const Field& field, const Changed& changed)
{
    QPlainTextEdit* text = linesEdit(field.name, field.decimals);
    QObject::connect(text, &QPlainTextEdit::textChanged, text, changed);
    return {text,
            text,
            [text] { return text->toPlainText(); },
            [text](const QString& value) { text->setPlainText(value); },
            {}};
}

FieldEditor integerEditor(const Field& field, const Changed& changed)
{
    QSpinBox* box = spin(field.name, int(field.least), int(field.most));
    QObject::connect(box, qOverload<int>(&QSpinBox::valueChanged), box, changed);
    return {box,
            box,
            [box] { return QString::number(box->value()); },
            [box](const QString& value) { box->setValue(value.toInt()); },
            {}};
}

FieldEditor decimalEditor(const Field& field, const Changed& changed)
{
    QDoubleSpinBox* box = realSpin(field.name, field.least, field.most, field.singleStep, field.decimals);
    QObject::connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), box, changed);
    return {box,
            box,
            [box] { return fixed(box->value(), box->decimals()); },
            [box](const QString& value) { box->setValue(value.toDouble()); },
            {}};
}

FieldEditor dateEditor(const Field& field, const Changed& changed)
{
    QDateEdit* box = dateEdit(field.name, QDate::currentDate());
    QObject::connect(box, &QDateEdit::dateChanged, box, changed);
    return {box,
            box,
            [box] { return box->date().toString(kDateFormat); },
            [box](const QString& value) {
                const QDate date = QDate::fromString(value.left(10), kDateFormat);
                box->setDate(date.isValid() ? date : QDate::currentDate());
            },
            {}};
}

FieldEditor checkEditor(const Field& field, const Changed& changed)
{
    QCheckBox* box = check(field.name, field.caption);
    QObject::connect(box, &QCheckBox::toggled, box, changed);
    return {box,
            box,
            [box] { return QString::number(int(box->isChecked())); },
            [box](const QString& value) { box->setChecked(isOn(value)); },
            {}};
}

FieldEditor choiceEditor(const Field& field, const Changed& changed)
{
    QComboBox* box = combo(field.name, field.choices());
    QObject::connect(box, qOverload<int>(&QComboBox::currentIndexChanged), box, changed);
    return {box, box, [box] { return box->currentData().toString(); },
            [box](const QString& value) {
                for (int i = 0; i < box->count(); ++i) {
                    if (box->itemData(i).toString() == value)
                        return box->setCurrentIndex(i);
                }
                box->setCurrentIndex(value.isEmpty() ? qMin(0, box->count() - 1) : -1);
            },
            [box, choices = field.choices] { setChoices(box, choices()); }};
}

FieldEditor colourEditor(const Field& field, const Changed& changed)
{
    QPushButton* patch = button(field.name, QString());
    patch->setMinimumHeight(patch->sizeHint().height()); // the colour takes its frame away
    patch->setProperty("showsValue", true);              // no letter of it becomes a key
    const auto show = [patch, changed, wears = field.wears, sheet = field.sheet](const QString& value) {
        const bool another = patch->text() != value;
        const QColor colour = wears(value);
        patch->setText(value);
        QPalette readable = patch->palette();
        readable.setColor(QPalette::ButtonText, qGray(colour.rgb()) < 128 ? Qt::white : Qt::black);
        patch->setPalette(readable);
        patch->setStyleSheet(sheet.isEmpty() ? fill("background-color: rgb(%1, %2, %3); border: 0px;", colour.red(),
                                                    colour.green(), colour.blue())
                                             : fill(sheet, colour.name()));
        if (another)
            changed();
    };
    QObject::connect(patch, &QPushButton::clicked, patch, [patch, show, choose = field.chooser] {
        const QString chosen = choose(patch->window(), patch->text());
        if (!chosen.isEmpty())
            show(chosen);
    });
    return {patch, patch, [patch] { return patch->text(); }, show, {}};
}

FieldEditor shownEditor(const Field& field)
{
    QLabel* shown = readOut(field.name);
    return {
        shown, shown, [shown] { return shown->text(); }, [shown](const QString& value) { shown->setText(value); }, {}};
}

FieldEditor editorOf(const Field& field, const Changed& changed)
{
    switch (field.kind) {
    case FieldKind::Text:
    case FieldKind::Password:
    case FieldKind::Number: return lineEditor(field, changed);
    case FieldKind::Path: return pathEditor(field, changed);
    case FieldKind::Lines: return linesEditor(field, changed);
    case FieldKind::Integer: return integerEditor(field, changed);
    case FieldKind::Decimal: return decimalEditor(field, changed);
    case FieldKind::Date: return dateEditor(field, changed);
    case FieldKind::Check: return checkEditor(field, changed);
    case FieldKind::Choice: return choiceEditor(field, changed);
    case FieldKind::Colour: return colourEditor(field, changed);
    case FieldKind::Shown: break;
    }
    return shownEditor(field);
}

} // namespace

FieldEditor makeEditor(const Field& field, const std::function<void()>& changed)
{
    FieldEditor made = editorOf(field, changed);
    made.widget->setToolTip(field.toolTip);
    if (field.kind == FieldKind::Number || field.kind == FieldKind::Integer || field.kind == FieldKind::Decimal) {
        field.unit ? sayUnit(made.widget, *field.unit) : takeUnitFrom(field.caption, made.widget);
    }
    return made;
}

} // namespace formkit
