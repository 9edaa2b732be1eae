#include "elements/passports/forms/element_fields.h"

#include "elements/forms/construction_choices.h"

#include <QComboBox>

using namespace formkit;

namespace {

const QString keyField = QStringLiteral("ID_Label");
// No choice has it: a value that is not stored must not become the first one offered.
const QString noChoice = QStringLiteral("--");

constexpr int kChoiceLength = 10; // characters

bool isChoice(PassportFieldKind kind) { return kind != PassportFieldKind::Text && kind != PassportFieldKind::Number; }

Field fieldOf(const PassportField& field, const PassportRecord& record)
{
    const QByteArray caption = field.caption.toUtf8();
    switch (field.kind) {
    case PassportFieldKind::Text: return Field::text(field.name, caption);
    case PassportFieldKind::Number: return Field::number(field.name, caption).in("м"); // places, heights, depths
    case PassportFieldKind::Type: return Field::choice(field.name, caption, [&record] { return record.lists.types; });
    case PassportFieldKind::State: return Field::choice(field.name, caption, [] { return session().stateEntries(); });
    case PassportFieldKind::Position:
        return Field::choice(field.name, caption, [&record] { return record.lists.positions; });
    case PassportFieldKind::Construction: break;
    }
    return Field::choice(field.name, caption, [] {
        return Choices{{QStringLiteral("Не установлено"), -1}} + constructionChoices();
    });
}

} // namespace

ElementFields::ElementFields(const PassportRecord& record)
    : record_(record),
      panes_{makePane(PassportGroup::Plain), makePane(PassportGroup::Survey), makePane(PassportGroup::Place)}
{ }

FieldPane* ElementFields::makePane(PassportGroup group) const
{
    FieldList fields;
    if (group == PassportGroup::Plain)
        fields.push_back(Field::shown(keyField.toLatin1(), "ID:"));
    for (const PassportField& field : record_.family().fields) {
        if (field.group == group)
            fields.push_back(fieldOf(field, record_));
    }
    if (fields.empty())
        return nullptr;
    auto* made = new FieldPane(fields);
    // Long names of types and positions do not widen a palette.
    for (QComboBox* box : made->findChildren<QComboBox*>()) {
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(kChoiceLength);
    }
    return made;
}

void ElementFields::showRow()
{
    pane(PassportGroup::Plain)->setText(keyField, record_.row.isRead() ? QString::number(record_.id()) : QString());
    for (const PassportField& field : record_.family().fields) {
        // A construction that is not told is none.
        const bool told = !record_.row.value(field.column).isEmpty();
        setValue(field.column,
                 told || field.kind != PassportFieldKind::Construction ? record_.row.value(field.column) : "-1");
    }
}

QStringList ElementFields::values() const
{
    QMap<int, QString> byColumn;
    for (const PassportField& field : record_.family().fields)
        byColumn.insert(field.column, pane(field.group)->text(QString::fromLatin1(field.name)));
    return byColumn.values();
}

void ElementFields::setValue(int column, const QString& value)
{
    for (const PassportField& field : record_.family().fields) {
        if (field.column == column)
            pane(field.group)
                ->setText(QString::fromLatin1(field.name), value.isEmpty() && isChoice(field.kind) ? noChoice : value);
    }
}
