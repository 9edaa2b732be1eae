#include "properties_panel.h"

#include "shown_number.h"

#include <drawing/edit_operations.h>
#include <drawing/host_access.h>
#include <drawing/undo.h>
#include <render/entity_figures.h>
#include <ui/color_dialog.h>

#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Comparing more entities than this one by one would hold up the hand.
constexpr size_t kMostCompared = 2000;
const QString kVaries = QStringLiteral("разные"), kYes = QStringLiteral("Да"), kNo = QStringLiteral("Нет");

bool isNumber(EntityProperty::Kind kind)
{
    return kind == EntityProperty::Number || kind == EntityProperty::Angle || kind == EntityProperty::Count;
}

QIcon swatch(const NcCmColor& color)
{
    QPixmap picture(16, 16);
    picture.fill(Qt::gray);
    QPainter(&picture).fillRect(picture.rect().adjusted(1, 1, -1, -1), figureColor(color).color);
    return picture;
}

} // namespace

PropertiesPanel::PropertiesPanel(QWidget* parent) : QWidget(parent), kinds_(new QComboBox), tree_(new QTreeWidget)
{
    kinds_->setObjectName(QStringLiteral("propertyKinds"));
    tree_->setObjectName(QStringLiteral("propertyTree"));
    tree_->setHeaderLabels({QStringLiteral("Свойство"), QStringLiteral("Значение")});
    tree_->setColumnCount(2);
    tree_->setRootIsDecorated(true);
    tree_->setIndentation(12);
    tree_->setAlternatingRowColors(true);
    tree_->setSelectionMode(QAbstractItemView::NoSelection);
    tree_->setFocusPolicy(Qt::NoFocus);
    tree_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->addWidget(kinds_);
    column->addWidget(tree_);
    later_.setSingleShot(true);
    later_.setInterval(40);
    connect(&later_, &QTimer::timeout, this, &PropertiesPanel::fill);
    connect(kinds_, QOverload<int>::of(&QComboBox::activated), this, &PropertiesPanel::fillProperties);
    connect(HostEvents::instance(), &HostEvents::pickfirstModified, &later_, QOverload<>::of(&QTimer::start));
    fill();
}

PropertiesPanel::~PropertiesPanel() { forgetDrawing(); }

void PropertiesPanel::forgetDrawing()
{
    if (!document_)
        return;
    auto& listeners = HostAccess::data(*document_->database()).listeners;
    listeners.erase(std::remove(listeners.begin(), listeners.end(), static_cast<DrawingListener*>(this)),
                    listeners.end());
    document_ = nullptr;
}

void PropertiesPanel::setDrawing(Document* document)
{
    forgetDrawing();
    document_ = document;
    if (document_)
        HostAccess::data(*document_->database()).listeners.push_back(this);
    fill();
}

NcDbObjectIdArray PropertiesPanel::shown() const
{
    NcDbObjectIdArray ids;
    const QString kind = kinds_->currentData().toString();
    for (NcDbObjectId id : document_ ? document_->pickfirst() : NcDbObjectIdArray()) {
        const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
        if (entity && !entity->isErased() && (kind.isEmpty() || entityName(*entity) == kind))
            ids.push_back(id);
    }
    return ids;
}

// A panel that nobody sees costs nothing.
void PropertiesPanel::fill()
{
    if (!isVisible())
        return;
    fillKinds();
    fillProperties();
}

void PropertiesPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    fill();
}

void PropertiesPanel::fillKinds()
{
    const QString before = kinds_->currentData().toString();
    QMap<QString, int> counts;
    int all = 0;
    for (NcDbObjectId id : document_ ? document_->pickfirst() : NcDbObjectIdArray())
        if (const auto* entity = HostAccess::objectAs<NcDbEntity>(id); entity && !entity->isErased()) {
            ++counts[entityName(*entity)];
            ++all;
        }
    kinds_->clear();
    if (all == 0)
        kinds_->addItem(document_ ? QStringLiteral("Ничего не выбрано") : QStringLiteral("Чертёж не открыт"));
    else if (counts.size() > 1)
        kinds_->addItem(QStringLiteral("Все (%1)").arg(all));
    for (auto kind = counts.begin(); kind != counts.end(); ++kind)
        kinds_->addItem(kind.value() > 1 ? QStringLiteral("%1 (%2)").arg(kind.key()).arg(kind.value()) : kind.key(),
                        kind.key());
    const int same = before.isEmpty() ? -1 : kinds_->findData(before);
    kinds_->setCurrentIndex(qMax(0, same));
    kinds_->setEnabled(all > 0);
}

void PropertiesPanel::fillProperties()
{
    tree_->clear();
    const NcDbObjectIdArray ids = shown();
    if (ids.empty())
        return fillDrawing();
    if (ids.size() > kMostCompared) {
        addTold(groupItem(QStringLiteral("Общие")), QStringLiteral("Объектов"), QString::number(ids.size()));
        return;
    }
    for (const EntityProperty& property : propertiesOf(ids))
        addProperty(property);
}

void PropertiesPanel::fillDrawing()
{
    if (!document_)
        return;
    NcDbDatabase& drawing = *document_->database();
    QTreeWidgetItem* group = groupItem(QStringLiteral("Чертёж"));
    const auto* layer = HostAccess::objectAs<NcDbLayerTableRecord>(drawing.clayer());
    const auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(drawing.currentSpaceId());
    int living = 0;
    for (NcDbObjectId id : space ? HostAccess::entities(*space) : NcDbObjectIdArray())
        living += HostAccess::isLiving(id);
    addTold(group, QStringLiteral("Файл"), QFileInfo(document_->fileName()).fileName());
    addTold(group, QStringLiteral("Папка"),
            document_->isUntitled() ? QStringLiteral("не сохранён") : QFileInfo(document_->fileName()).path());
    addTold(group, QStringLiteral("Текущий слой"), layer ? layer->getName() : QString());
    addTold(group, QStringLiteral("Объектов"), QString::number(living));
}

QTreeWidgetItem* PropertiesPanel::groupItem(const QString& title)
{
    for (int i = 0; i < tree_->topLevelItemCount(); ++i)
        if (tree_->topLevelItem(i)->text(0) == title)
            return tree_->topLevelItem(i);
    auto* group = new QTreeWidgetItem(tree_, {title});
    group->setFirstColumnSpanned(true);
    QFont font = group->font(0);
    font.setBold(true);
    group->setFont(0, font);
    group->setExpanded(true);
    return group;
}

void PropertiesPanel::addTold(QTreeWidgetItem* group, const QString& caption, const QString& value)
{
    auto* item = new QTreeWidgetItem(group, {caption, value});
    item->setToolTip(1, value);
}

void PropertiesPanel::addProperty(const EntityProperty& property)
{
    QTreeWidgetItem* group = groupItem(property.group);
    if (property.fixed)
        return addTold(group, property.caption, textOf(property));
    auto* item = new QTreeWidgetItem(group, {property.caption});
    QWidget* editor = makeEditor(property);
    editor->setObjectName(QStringLiteral("property:") + property.key);
    tree_->setItemWidget(item, 1, editor);
}

// --- editors

QWidget* PropertiesPanel::makeEditor(const EntityProperty& property)
{
    const NcDbDatabase* drawing = document_ ? document_->database() : nullptr;
    switch (property.kind) {
    case EntityProperty::Flag: return makeChoice(property, {kYes, kNo});
    case EntityProperty::Choice: return makeChoice(property, property.choices);
    case EntityProperty::Layer: return makeChoice(property, drawing ? layerNames(*drawing) : QStringList());
    case EntityProperty::LineType: {
        QStringList names = drawing ? lineTypeNames(*drawing) : QStringList();
        for (QString& name : names)
            name = lineTypeCaption(name);
        return makeChoice(property, names);
    }
    case EntityProperty::Color: return makeColor(property);
    default: return makeField(property);
    }
}

QWidget* PropertiesPanel::makeChoice(const EntityProperty& property, const QStringList& choices)
{
    auto* combo = new QComboBox;
    combo->addItems(choices);
    const QString present = property.varies ? QString() : textOf(property);
    if (!present.isEmpty() && combo->findText(present, Qt::MatchFixedString) < 0)
        combo->addItem(present);
    combo->setCurrentIndex(property.varies ? -1 : combo->findText(present, Qt::MatchFixedString));
    combo->setPlaceholderText(kVaries);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(8);
    combo->setFocusPolicy(Qt::StrongFocus);
    connect(combo, &QComboBox::textActivated, this,
            [this, property](const QString& text) { apply(property, valueOf(property, text)); });
    return combo;
}

QWidget* PropertiesPanel::makeColor(const EntityProperty& property)
{
    const auto present = colorOfName(property.value.toString());
    auto* button = new QPushButton(textOf(property));
    if (present && !property.varies)
        button->setIcon(swatch(*present));
    button->setStyleSheet(QStringLiteral("text-align: left; padding: 2px 4px;"));
    connect(button, &QPushButton::clicked, this, [this, property, present] {
        ColorDialog dialog(present ? *present : NcCmColor(), true, true, this);
        if (dialog.exec() == QDialog::Accepted)
            apply(property, colorName(dialog.color()));
    });
    return button;
}

QWidget* PropertiesPanel::makeField(const EntityProperty& property)
{
    auto* field = new QLineEdit(property.varies ? QString() : textOf(property));
    field->setPlaceholderText(property.varies ? kVaries : QString());
    field->setFrame(false);
    field->setCursorPosition(0);
    connect(field, &QLineEdit::editingFinished, this, [this, field, property] {
        if (!field->isModified())
            return;
        field->setModified(false);
        const QVariant value = valueOf(property, field->text());
        if (value.isValid())
            return apply(property, value);
        emit refused(QStringLiteral("%1: нужно число, а не «%2».").arg(property.caption, field->text()));
        later_.start();
    });
    return field;
}

// Enter and the loss of the focus come from within the editor: it is made anew later.
void PropertiesPanel::apply(const EntityProperty& property, const QVariant& value)
{
    const NcDbObjectIdArray ids = shown();
    if (ids.empty() || !document_ || !activeCommand().isEmpty()) {
        emit refused(QStringLiteral("Сначала завершите команду, которая выполняется."));
        return later_.start();
    }
    int taken = 0;
    {
        const UndoGroup group(*document_->database(), QStringLiteral("СВОЙСТВА"));
        taken = ::setProperty(ids, property.key, value);
    }
    if (taken < int(ids.size()))
        emit refused(QStringLiteral("%1: значение приняли %2 из %3 (слой закрыт или значение не годится).")
                         .arg(property.caption)
                         .arg(taken)
                         .arg(ids.size()));
    later_.start();
}

QString PropertiesPanel::textOf(const EntityProperty& property)
{
    if (property.varies)
        return kVaries;
    if (property.kind == EntityProperty::Flag)
        return property.value.toBool() ? kYes : kNo;
    if (property.kind == EntityProperty::Lines)
        return property.value.toString().replace(QLatin1Char('\n'), QStringLiteral(" ⏎ "));
    if (property.kind == EntityProperty::Count)
        return QString::number(property.value.toInt());
    if (property.kind == EntityProperty::LineType)
        return lineTypeCaption(property.value.toString());
    return isNumber(property.kind) ? shownExact(property.value.toDouble()) : property.value.toString();
}

QVariant PropertiesPanel::valueOf(const EntityProperty& property, const QString& text)
{
    double number = 0.0;
    if (property.kind == EntityProperty::Flag)
        return text == kYes;
    if (property.kind == EntityProperty::Lines)
        return QString(text).replace(QStringLiteral(" ⏎ "), QStringLiteral("\n"));
    if (property.kind == EntityProperty::LineType)
        return lineTypeOfCaption(text);
    if (!isNumber(property.kind))
        return text;
    if (!readNumber(text, number) || (property.kind == EntityProperty::Count && number != int(number)))
        return {};
    return property.kind == EntityProperty::Count ? QVariant(int(number)) : QVariant(number);
}
