#include "formkit/catalogue_list.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "formkit/boxes.h"
#include "formkit/layout.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "hostkit/console.h"

#include <QHeaderView>
#include <QMenu>

namespace formkit {

namespace {

constexpr int kKeyRole = Qt::UserRole;
const QString kJoint = QStringLiteral(" - ");

QAbstractItemView* makeView(const Catalogue& catalogue)
{
    if (catalogue.titles.empty()) {
        // A palette may be narrow: long lines go on below.
        QListWidget* list = listBox(catalogue.listName);
        list->setWordWrap(true);
        list->setResizeMode(QListView::Adjust);
        list->setAlternatingRowColors(true);
        return list;
    }
    QTableWidget* made = table(catalogue.listName, QStringList(catalogue.titles.begin(), catalogue.titles.end()));
    made->verticalHeader()->hide();
    made->setSelectionBehavior(QAbstractItemView::SelectRows);
    made->setSelectionMode(QAbstractItemView::SingleSelection);
    made->horizontalHeader()->setStretchLastSection(true);
    made->setSortingEnabled(true);
    made->sortByColumn(-1, Qt::AscendingOrder);
    return made;
}

void hideRow(QAbstractItemView* view, int row, bool hide)
{
    if (auto* list = qobject_cast<QListView*>(view))
        list->setRowHidden(row, hide);
    else if (auto* table = qobject_cast<QTableView*>(view))
        table->setRowHidden(row, hide);
}

// The texts of an entry as one.
QString entryText(const QAbstractItemModel* model, int row)
{
    QStringList texts;
    for (int column = 0; column < model->columnCount(); ++column)
        texts << model->index(row, column).data().toString();
    return texts.join(kJoint);
}

// Entries come in the statement's order and are sorted again at the end.
class Filling {
public:
    explicit Filling(QAbstractItemView* view) : table_(qobject_cast<QTableWidget*>(view))
    {
        if (table_)
            table_->setSortingEnabled(false);
    }
    ~Filling()
    {
        if (!table_)
            return;
        table_->setSortingEnabled(true);
        fitColumns(table_);
    }

private:
    QTableWidget* table_;
};

} // namespace

CatalogueList::CatalogueList(const Catalogue& catalogue, QWidget* parent)
    : QWidget(parent), catalogue_(catalogue), statement_(catalogue.statement), view_(makeView(catalogue))
{
    std::vector<Item> parts;
    if (!catalogue_.filterName.isEmpty()) {
        QLineEdit* filter = tipped(edit(catalogue_.filterName), QStringLiteral("Фильтр"));
        connect(filter, &QLineEdit::textChanged, this, &CatalogueList::showFiltered);
        parts.push_back(filter);
    }
    parts.push_back(growing(view_));
    parts.push_back(buttonRow());
    layOut(this).column(parts);
    layout()->setContentsMargins(0, 0, 0, 0);

    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view_, &QWidget::customContextMenuRequested, this, &CatalogueList::showMenu);
    connect(view_, &QAbstractItemView::doubleClicked, this, &CatalogueList::activate);
}

void CatalogueList::putUnderList(QLayout* content)
{
    auto* parts = static_cast<QBoxLayout*>(layout());
    parts->insertLayout(parts->count() - 1, content);
}

QAbstractButton* CatalogueList::buttonOf(const ToolButton& wanted, void (CatalogueList::*slot)())
{
    if (wanted.icon.isEmpty())
        return tipped(button(wanted.name, wanted.caption, this, slot), wanted.tip);
    QToolButton* made = toolButton(wanted.name, wanted.caption, wanted.icon, wanted.tip);
    connect(made, &QToolButton::clicked, this, slot);
    return made;
}

QLayout* CatalogueList::buttonRow()
{
    QBoxLayout* buttons = row({});
    const auto add = [&](const ToolButton& wanted, void (CatalogueList::*slot)(), bool can) {
        if (can && !wanted.name.isEmpty())
            buttons->addWidget(buttonOf(wanted, slot));
    };
    add(catalogue_.create, &CatalogueList::createEntry, bool(catalogue_.record));
    add(catalogue_.edit, &CatalogueList::editCurrent, bool(catalogue_.record));
    add(catalogue_.erase, &CatalogueList::deleteCurrent, catalogue_.remove != nullptr);
    add(catalogue_.reload, &CatalogueList::refresh, true);
    if (buttons->count() > 0)
        buttons->addStretch();
    return buttons;
}

void CatalogueList::refresh()
{
    if (!session().checkConnection())
        say(catalogue_.notConnected);
    const QString chosen = currentKey();
    const sql::Result rows = session().run(statement_);
    QAbstractItemModel* model = view_->model();
    {
        const Filling filling(view_);
        model->removeRows(0, model->rowCount());
        for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
            addEntry(rows, row);
    }
    setCurrentKey(chosen);
    if (auto* filter = findChild<QLineEdit*>(catalogue_.filterName))
        showFiltered(filter->text());
}

void CatalogueList::addEntry(const sql::Result& rows, int row)
{
    QStringList texts;
    for (int column = 1; column <= catalogue_.texts; ++column)
        texts << rows.getvalue(row, column);
    if (catalogue_.titles.empty())
        texts = QStringList(texts.join(kJoint));
    QAbstractItemModel* model = view_->model();
    const int at = model->rowCount();
    model->insertRow(at);
    for (int column = 0; column < texts.size(); ++column)
        model->setData(model->index(at, column), texts[column]);
    const QString key = rows.getvalue(row, 0);
    bool isNumber = false;
    const int number = key.toInt(&isNumber);
    model->setData(model->index(at, 0), isNumber ? QVariant(number) : QVariant(key), kKeyRole);
    dress(at, key);
}

QString CatalogueList::currentKey() const
{
    const QModelIndex current = view_->currentIndex();
    return current.isValid() ? current.sibling(current.row(), 0).data(kKeyRole).toString() : QString();
}

QString CatalogueList::currentText() const
{
    const QModelIndex current = view_->currentIndex();
    return current.isValid() ? entryText(view_->model(), current.row()) : QString();
}

QString CatalogueList::textOf(const QString& key) const
{
    const int row = rowOf(key);
    return row < 0 ? QString() : entryText(view_->model(), row);
}

int CatalogueList::rowOf(const QString& key) const
{
    const QAbstractItemModel* model = view_->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, 0).data(kKeyRole).toString() == key)
            return row;
    }
    return -1;
}

void CatalogueList::setCurrentKey(const QString& key)
{
    const int row = rowOf(key);
    if (row >= 0)
        view_->setCurrentIndex(view_->model()->index(row, 0));
}

int CatalogueList::count() const { return view_->model()->rowCount(); }

void CatalogueList::showFiltered(const QString& text)
{
    const QAbstractItemModel* model = view_->model();
    for (int row = 0; row < model->rowCount(); ++row)
        hideRow(view_, row, !entryText(model, row).contains(text, Qt::CaseInsensitive));
}

void CatalogueList::createEntry()
{
    const std::unique_ptr<RecordDialog> dialog = catalogue_.record(window());
    dialog->showNew();
    runRecord(*dialog);
}

void CatalogueList::editCurrent()
{
    const QString key = currentKey();
    if (key.isEmpty() || !catalogue_.record)
        return;
    const std::unique_ptr<RecordDialog> dialog = catalogue_.record(window());
    if (dialog->showStored(key))
        runRecord(*dialog);
}

void CatalogueList::runRecord(RecordDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted)
        return;
    finish();
    setCurrentKey(dialog.key());
}

void CatalogueList::deleteCurrent()
{
    const QString key = currentKey();
    if (key.isEmpty() || !mayDelete(key))
        return;
    session().run(compose(catalogue_.remove, Entered(key)));
    finish();
}

bool CatalogueList::isUsed(const QString& key)
{
    for (const char* statement : catalogue_.counts) {
        if (session().run(compose(statement, Entered(key))).toInt(0, 0) != 0) {
            warn(this, catalogue_.refusal);
            return true;
        }
    }
    return false;
}

bool CatalogueList::mayDelete(const QString& key)
{
    return !isUsed(key) && confirm(this, fill(catalogue_.question, currentText()));
}

void CatalogueList::finish()
{
    refresh();
    emit changed();
}

void CatalogueList::activate(const QModelIndex&) { editCurrent(); }

void CatalogueList::dress(int, const QString&) { }

void CatalogueList::addToMenu(QMenu&) { }

void CatalogueList::showMenu(const QPoint& place)
{
    QMenu menu(this);
    addToMenu(menu);
    const bool chosen = !currentKey().isEmpty();
    const auto add = [&](const ToolButton& entry, void (CatalogueList::*slot)(), bool can) {
        connect(menu.addAction(entry.caption), &QAction::triggered, this, slot);
        menu.actions().last()->setEnabled(can);
    };
    if (catalogue_.record) {
        if (catalogue_.createsByMenu)
            add(catalogue_.create, &CatalogueList::createEntry, true);
        add(catalogue_.edit, &CatalogueList::editCurrent, chosen);
    }
    if (catalogue_.remove)
        add(catalogue_.erase, &CatalogueList::deleteCurrent, chosen);
    if (!menu.isEmpty())
        menu.exec(view_->viewport()->mapToGlobal(place));
}

} // namespace formkit
