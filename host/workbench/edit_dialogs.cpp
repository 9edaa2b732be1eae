#include "edit_dialogs.h"

#include <drawing/host_access.h>
#include <drawing/undo.h>

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

bool isLocked(const NcDbEntity& entity)
{
    const NcDbLayerTableRecord* layer = HostAccess::layerOf(entity);
    return layer && layer->isLocked();
}

// The prompt of the definition says more than its tag.
QString captionOf(const NcDbBlockReference& reference, const NcDbAttribute& attribute)
{
    const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(reference.blockTableRecord());
    for (NcDbObjectId id : block ? HostAccess::entities(*block) : NcDbObjectIdArray()) {
        const auto* definition = HostAccess::objectAs<NcDbAttributeDefinition>(id);
        if (definition && !definition->isErased() && definition->tag() == attribute.tag()
            && !definition->prompt().isEmpty())
            return definition->prompt();
    }
    return attribute.tag();
}

bool runDialog(QDialog& dialog, QVBoxLayout* column)
{
    auto* ends = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    ends->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Применить"));
    ends->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));
    QObject::connect(ends, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(ends, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    column->addWidget(ends);
    return dialog.exec() == QDialog::Accepted;
}

template <class Text, class Change>
void changeText(NcDbObjectId id, const Change& change)
{
    Text* text = nullptr;
    if (!isOk(ncdbOpenObject(text, id, kForWrite)))
        return;
    change(*text);
    text->close();
}

bool editAttributes(const NcDbBlockReference& reference, QWidget* parent)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("attributesDialog"));
    dialog.setWindowTitle(QStringLiteral("Атрибуты блока"));
    auto* column = new QVBoxLayout(&dialog);
    auto* form = new QFormLayout;
    column->addLayout(form);
    std::vector<std::pair<NcDbObjectId, QLineEdit*>> fields;
    for (NcDbObjectId id : HostAccess::attributes(reference)) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
        // Hidden ones tie the block to its row: they are no business of a user's.
        if (!attribute || attribute->isErased() || attribute->isInvisible())
            continue;
        auto* field = new QLineEdit(attribute->textString());
        field->setObjectName(attribute->tag());
        field->setMinimumWidth(260);
        field->setReadOnly(isLocked(reference));
        form->addRow(captionOf(reference, *attribute), field);
        fields.emplace_back(id, field);
    }
    if (fields.empty())
        return false;
    const UndoGroup group(*reference.database(), QStringLiteral("АТРИБУТЫ"));
    if (!runDialog(dialog, column) || isLocked(reference))
        return true;
    for (const auto& field : fields)
        if (HostAccess::objectAs<NcDbAttribute>(field.first)->textString() != field.second->text())
            changeText<NcDbAttribute>(field.first,
                                      [&](NcDbAttribute& text) { text.setTextString(field.second->text()); });
    return true;
}

// Several lines stand as such and not as codes.
QString askText(const QString& present, bool locked, QWidget* parent, bool& changed)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("textDialog"));
    dialog.setWindowTitle(QStringLiteral("Текст"));
    auto* column = new QVBoxLayout(&dialog);
    auto* field = new QPlainTextEdit(present);
    field->setObjectName(QStringLiteral("text"));
    field->setReadOnly(locked);
    column->addWidget(field);
    changed = runDialog(dialog, column) && !locked && field->toPlainText() != present;
    return field->toPlainText();
}

bool editText(const NcDbText& text, QWidget* parent)
{
    bool changed = false;
    const UndoGroup group(*text.database(), QStringLiteral("ТЕКСТ"));
    const QString given = askText(text.textString(), isLocked(text), parent, changed);
    if (changed)
        changeText<NcDbText>(text.objectId(), [&](NcDbText& opened) {
            opened.setTextString(QString(given).replace(QLatin1Char('\n'), QLatin1Char(' ')));
        });
    return true;
}

bool editMText(const NcDbMText& text, QWidget* parent)
{
    bool changed = false;
    const UndoGroup group(*text.database(), QStringLiteral("ТЕКСТ"));
    QString shown = text.contents();
    shown.replace(QLatin1String("\\P"), QLatin1String("\n"));
    const QString given = askText(shown, isLocked(text), parent, changed);
    if (changed)
        changeText<NcDbMText>(text.objectId(), [&](NcDbMText& opened) {
            opened.setContents(QString(given).replace(QLatin1Char('\n'), QLatin1String("\\P")));
        });
    return true;
}

} // namespace

bool editEntity(NcDbObjectId id, QWidget* parent)
{
    const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
    if (!entity || entity->isErased())
        return false;
    if (entity->isKindOf(NcDbBlockReference::desc()))
        return editAttributes(static_cast<const NcDbBlockReference&>(*entity), parent);
    if (entity->isKindOf(NcDbText::desc()))
        return editText(static_cast<const NcDbText&>(*entity), parent);
    if (entity->isKindOf(NcDbMText::desc()))
        return editMText(static_cast<const NcDbMText&>(*entity), parent);
    return false;
}
