#include "elements/list/forms/element_list.h"

#include "base/placeholders.h"
#include "elements/forms/passports.h"
#include "elements/list/forms/element_list_changer.h"
#include "elements/list/forms/element_list_delegates.h"
#include "elements/list/forms/hierarchy_combo.h"
#include "elements/list/name_order.h"
#include "exchange/gis/forms/gis_question.h"
#include "formkit/boxes.h"
#include "formkit/layout.h"
#include "formkit/modal.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QTableView>
#include <QToolTip>
#include <algorithm>

using namespace formkit;

namespace {

using Model = ElementListModel;

constexpr int kColumnWidth = 90;
constexpr int kChoiceLength = 12; // characters; the page may be narrow

Choices familyChoices()
{
    Choices choices = {{allFamiliesName(), allFamiliesKey()}};
    for (const ListFamily& family : listFamilies())
        choices.append({family.tables().listName, family.tables().shortKey});
    return choices;
}

Choices cycleChoices()
{
    Choices choices = {{QStringLiteral("Все"), -1}};
    for (int id : qAsConst(session().cycleOrder))
        choices.append({fill("Цикл %1: %2-%3 (%4)", session().cycles.value(id).mid(0, 4)), id});
    return choices;
}

Choices choicesOf(const StringMap& map)
{
    Choices choices;
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        choices.append({entry.value(), entry.key()});
    return choices;
}

// Asks over the host's window: the page may be too narrow to be a parent.
std::optional<QVariant> askChange(const QString& label, const Choices& choices)
{
    return askModal<ElementListChanger>(&ElementListChanger::chosen, label, choices);
}

} // namespace

ElementList::ElementList(QWidget* parent) : QWidget(parent), order_(new ElementListProxyFilterModel(this))
{
    nameForm(this, "ElementList", "Элементы ГМН");
    view_ = named<QTableView>("ElementsView");
    layOut(this).column({
        controls(),
        growing(view_),
        row({growing(status_ = readOut("StatusLabel")),
             tipped(button("GisBtn", "Экспорт в ГИС", this, [this] { askAndExportToGis(this); }),
                    "Элементы и измерения проекта в GeoPackage или GeoJSON")}),
    });
    prepareView();
    const auto chosen = qOverload<int>(&QComboBox::currentIndexChanged);
    for (QComboBox* combo : {families_, static_cast<QComboBox*>(places_), cycles_})
        connect(combo, chosen, this, &ElementList::loadTable);
    connect(filter_, &QLineEdit::textChanged, this, &ElementList::filterBy);
    connect(&model_, &Model::nameTaken, this, [this] { warn(this, "Такое имя уже есть в базе данных"); });
    filterBy(QString());
    refresh();
}

QLayout* ElementList::controls()
{
    return column({
        places_ = named<HierarchyCombo>("PositionCombo"),
        row({families_ = narrowCombo("ElementCombo", kChoiceLength, familyChoices()),
             cycles_ = narrowCombo("CyclesCombo", kChoiceLength)}),
        row({growing(filter_ = tipped(edit("filter"), "Фильтр по имени")),
             button("ReloadBtn", "Обновить", this, &ElementList::refresh)}),
    });
}

void ElementList::prepareView()
{
    order_->setSourceModel(&model_);
    order_->setFilterKeyColumn(Model::Name);
    view_->setModel(order_);
    view_->setSortingEnabled(true);
    view_->sortByColumn(Model::Name, Qt::AscendingOrder);
    view_->setAlternatingRowColors(true);
    view_->verticalHeader()->hide();
    for (int column = 0; column < Model::ColumnCount; ++column)
        view_->setColumnWidth(column, kColumnWidth);
    view_->setItemDelegateForColumn(Model::Type, new ElementListItemDelegate(this));
    view_->setItemDelegateForColumn(Model::State, new ElementListItemDelegate(this));
    view_->setItemDelegateForColumn(Model::Position, new ElementPositionItemDelegate(this));
    view_->horizontalHeader()->setTextElideMode(Qt::ElideRight);
    view_->installEventFilter(this);
    view_->viewport()->installEventFilter(this);
    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    view_->horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view_, &QWidget::customContextMenuRequested, this, &ElementList::showMenu);
    connect(view_->horizontalHeader(), &QWidget::customContextMenuRequested, this, &ElementList::showHeaderMenu);
    connect(view_, &QTableView::doubleClicked, this, [this](const QModelIndex& cell) {
        if (!(cell.flags() & Qt::ItemIsEditable)) // the others are edited in place
            openCurrent();
    });
    connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ElementList::countSelected);
    connect(order_, &QAbstractItemModel::modelReset, this, &ElementList::countSelected);
}

// --- what is shown -----------------------------------------------------------------

void ElementList::refresh()
{
    if (!session().checkConnection()) {
        say("\n Не установлено соединение с базой данных");
        model_.load({});
        return;
    }
    fillChoices();
    loadTable();
}

void ElementList::fillChoices()
{
    const QSignalBlocker quiet(places_);
    places_->reload();
    setChoices(cycles_, cycleChoices());
    model_.readChoices();
}

void ElementList::loadTable()
{
    model_.load({families_->currentData().toString(), places_->place(), chosenId(cycles_)});
    countSelected();
}

void ElementList::filterBy(const QString& text)
{
    order_->setFilterRegExp(QRegExp(text.isEmpty() ? QStringLiteral(".+") : text));
}

void ElementList::countSelected()
{
    QSet<int> rows;
    for (const QModelIndex& index : view_->selectionModel()->selectedIndexes())
        rows.insert(index.row());
    status_->setText(fill("Выбрано: %1", rows.size()));
}

ListedElement ElementList::elementIn(const QModelIndex& shown) const
{
    return shown.isValid() ? model_.elementAt(order_->mapToSource(shown).row()) : ListedElement();
}

ListedElements ElementList::selected() const
{
    QMap<int, QModelIndex> rows;
    for (const QModelIndex& index : view_->selectionModel()->selectedIndexes())
        rows.insert(index.row(), index);
    ListedElements elements;
    for (const QModelIndex& index : qAsConst(rows))
        elements.append(elementIn(index));
    return elements;
}

// --- menus -----------------------------------------------------------------------------

void ElementList::showMenu(const QPoint& place)
{
    const QModelIndex clicked = view_->indexAt(place);
    if (!clicked.isValid())
        return;
    QMenu menu(this);
    const auto add = [&](const char* caption, void (ElementList::*slot)()) {
        connect(menu.addAction(QString::fromUtf8(caption)), &QAction::triggered, this, slot);
    };
    connect(menu.addAction("Показать в координатах"), &QAction::triggered, this,
            [this] { showInDrawing(elementIn(view_->currentIndex())); });
    if (clicked.column() == Model::Type)
        add("Сменить тип", &ElementList::changeTypes);
    if (clicked.column() == Model::State)
        add("Сменить состояние", &ElementList::changeStates);
    if (clicked.column() == Model::Position)
        add("Переместить в позицию", &ElementList::movePositions);
    connect(menu.addAction("Копировать в буфер"), &QAction::triggered, this, [this] { copySelected(); });
    add("Паспорт элемента", &ElementList::openCurrent);
    menu.addSeparator();
    add("Удалить", &ElementList::deleteSelected);
    menu.exec(view_->viewport()->mapToGlobal(place));
}

void ElementList::showHeaderMenu(const QPoint& place)
{
    QMenu menu(this);
    connect(menu.addAction("Показать/Скрыть столбцы"), &QAction::triggered, this, &ElementList::chooseColumns);
    menu.exec(view_->horizontalHeader()->mapToGlobal(place));
}

void ElementList::chooseColumns()
{
    QVector<bool> seen;
    for (int column = 0; column < Model::ColumnCount; ++column)
        seen.append(!view_->isColumnHidden(column));
    if (!askColumns(this, Model::titles(), seen))
        return;
    for (int column = 0; column < Model::ColumnCount; ++column)
        view_->setColumnHidden(column, !seen[column]);
}

// --- what is done to many ---------------------------------------------------------------

void ElementList::changeTypes()
{
    const ListedElements elements = selected();
    if (elements.isEmpty())
        return;
    const ListFamily* family = commonFamily(elements);
    if (!family)
        return inform(this, "Выбрано несколько основных типов элементов.\nНужно выбрать отдельно ДМ, ТС,TCC, или RP.");
    const auto type = askChange(family->typeLabel, choicesOf(model_.typesOf(*family)));
    if (!type)
        return;
    changeType(elements, type->toString());
    refresh();
}

void ElementList::changeStates()
{
    const auto state = askChange("Состояние элемента", choicesOf(model_.states()));
    if (!state)
        return;
    changeState(selected(), state->toString());
    refresh();
}

void ElementList::movePositions()
{
    Choices positions;
    for (const auto& [id, text] : model_.positions().entries)
        positions.append({text, id});
    const auto position = askChange("Позиция", positions);
    if (!position)
        return;
    moveToPosition(selected(), position->toInt());
    refresh();
}

void ElementList::copySelected() const
{
    QModelIndexList cells = view_->selectionModel()->selectedIndexes();
    std::sort(cells.begin(), cells.end()); // by row, then by column
    QString text;
    int row = -1;
    for (const QModelIndex& cell : qAsConst(cells)) {
        if (row != -1)
            text += QLatin1Char(cell.row() == row ? '\t' : '\n');
        text += cell.data().toString();
        row = cell.row();
    }
    copyText(text);
}

void ElementList::openCurrent()
{
    const ListedElement element = elementIn(view_->currentIndex());
    if (!element.family)
        return;
    {
        OverHost host;
        openPassport(element.family->family, element.id, host);
    }
    refresh();
}

void ElementList::deleteSelected()
{
    const ListedElements elements = selected();
    if (elements.isEmpty() || !confirm(this, deletionQuestion(elements)))
        return;
    deleteElements(elements, [this](const QString& text) { return confirm(this, text); });
    refresh();
}

// A column starts narrow: the whole text of a cell that is cut stands in its tip.
void ElementList::showCutText(const QHelpEvent& event) const
{
    const QModelIndex cell = view_->indexAt(event.pos());
    const QString text = cell.data().toString();
    const bool cut = cell.isValid() && view_->sizeHintForIndex(cell).width() > view_->columnWidth(cell.column());
    QToolTip::showText(event.globalPos(), cut ? text : QString(), view_->viewport());
}

bool ElementList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == view_->viewport() && event->type() == QEvent::ToolTip) {
        showCutText(*static_cast<QHelpEvent*>(event));
        return true;
    }
    const auto* key = watched == view_ && event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    if (!key || key->key() != Qt::Key_Insert || !(key->modifiers() & Qt::ControlModifier))
        return QWidget::eventFilter(watched, event);
    copySelected();
    return true;
}
