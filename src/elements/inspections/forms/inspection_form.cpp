#include "elements/inspections/forms/inspection_form.h"

#include "base/placeholders.h"
#include "elements/forms/image_uploader.h"
#include "elements/forms/label_clickable.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"
#include "session/project_session.h"

using namespace formkit;

namespace {

Choices cycleChoices()
{
    Choices choices;
    for (int id : qAsConst(session().cycleOrder)) {
        const QStringList cycle = session().cycles.value(id);
        choices.append({fill("Цикл %1 от %2 до %3 (%4) ", cycle.mid(0, 4)), id});
    }
    return choices;
}

Field fieldOf(const InspectionColumn& column)
{
    const QByteArray name = column.name.toLatin1(), caption = column.caption.toUtf8();
    switch (column.kind) {
    case InspectionKind::Number: return Field::number(name, caption);
    case InspectionKind::Note: return Field::lines("Note", caption);
    case InspectionKind::State: return Field::choice("StateCombo", caption, [] { return session().stateEntries(); });
    case InspectionKind::Finding: break;
    }
    return Field::check(name, caption);
}

// As a form shows the columns: what is seen first, then what is concluded.
constexpr InspectionKind shownOrder[] = {InspectionKind::Finding, InspectionKind::Number, InspectionKind::State,
                                         InspectionKind::Note};

FieldList fieldsOf(const InspectionFamily& family)
{
    FieldList fields = {
        Field::shown("InspectionID", "ID обследования"),
        Field::shown("ElementName", family.nameCaption.toUtf8()),
        Field::choice("CycleCombo", "Цикл измерений", cycleChoices),
    };
    for (InspectionKind kind : shownOrder) {
        for (const InspectionColumn& column : family.columns) {
            if (column.kind == kind)
                fields.push_back(fieldOf(column));
        }
    }
    return fields;
}

QString fieldName(const InspectionColumn& column) { return fieldOf(column).name; }

} // namespace

InspectionForm::InspectionForm(FamilyKey family, QWidget* parent)
    : FieldsDialog(inspectionFamily(family)->formName, inspectionFamily(family)->title,
                   fieldsOf(*inspectionFamily(family)),
                   {accepts("ApplyBTN", "Сохранить"), rejects("CancelBTN", "Отмена")}, parent),
      record_(*inspectionFamily(family)),
      photo_(named<QLabelClickable>("PhotoLabel", "Двойной клик для загрузки"))
{
    auto* below = static_cast<QBoxLayout*>(layout());
    below->insertLayout(0, row({&fields(), growing(group("Фото").column({growing(photo_)}))}), 1);
    photo_->setWordWrap(true); // the words are wider than the frame
    connect(photo_, &QLabelClickable::doubleClicked, this, &InspectionForm::choosePhoto);
}

bool InspectionForm::load(int inspectId)
{
    if (!record_.load(inspectId))
        return false;
    cycleBefore_ = record_.cycleId;
    showRecord(QString::number(inspectId));
    return true;
}

void InspectionForm::startNew(int elementId, int cycleId)
{
    record_ = InspectionRecord(record_.family());
    record_.setElement(elementId);
    record_.cycleId = cycleId;
    showRecord(QStringLiteral("--"));
}

bool InspectionForm::startCopy(int inspectId)
{
    if (!record_.load(inspectId))
        return false;
    record_.inspectId = -1;
    showRecord(QStringLiteral("--"));
    return true;
}

void InspectionForm::startPattern(int cycleId)
{
    record_ = InspectionRecord(record_.family());
    record_.cycleId = cycleId;
    pattern_ = true;
    showRecord(QStringLiteral("--"));
}

void InspectionForm::showRecord(const QString& id)
{
    fields().setText("InspectionID", id);
    fields().setText("ElementName", record_.elementName);
    fields().setText("CycleCombo", QString::number(record_.cycleId));
    for (int i = 0; i < record_.values.size(); ++i)
        fields().setText(fieldName(record_.family().columns[i]), record_.values[i]);
    fields().setClean();
    photo_->setPhoto(record_.photo());
}

InspectionRecord InspectionForm::typed() const
{
    InspectionRecord record = record_;
    record.cycleId = fields().text("CycleCombo").toInt();
    for (int i = 0; i < record.values.size(); ++i)
        record.values[i] = fields().text(fieldName(record.family().columns[i]));
    return record;
}

QString InspectionForm::fault() const
{
    const InspectionRecord record = typed();
    const bool moved = record.inspectId == -1 || record.cycleId != cycleBefore_;
    return !pattern_ && moved && record.storedIn(record.cycleId) != -1
        ? QStringLiteral("Выбранный  выбранный цикл уже содержит ведомость обследования")
        : QString();
}

bool InspectionForm::store()
{
    record_ = typed();
    return pattern_ || (record_.inspectId == -1 ? record_.insert() : record_.update());
}

void InspectionForm::choosePhoto()
{
    const std::optional<QPixmap> chosen = askForPicture(photo_);
    if (!chosen)
        return;
    record_.setPhoto(*chosen);
    photo_->setPhoto(*chosen);
}
