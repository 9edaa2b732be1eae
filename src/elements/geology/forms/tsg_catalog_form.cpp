#include "elements/geology/forms/tsg_catalog_form.h"

#include "base/placeholders.h"
#include "elements/geology/forms/tsg_entry_pane.h"
#include "formkit/boxes.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QTimer>

using namespace formkit;

namespace {

enum Column { Id, Name, Note, FirstNumber, ColumnCount = 15 };

constexpr int leastListWidth = 300;

const char* const entryStatement =
    "select catalog_id, name, note, condensator_area, condensator_radius, condensatot_eff,vaporizer_area, "
    "vaporizer_length, vaporizer_radius, vaporizer_eff,exchanger_area, exchanger_length, exchanger_radius, "
    "exchanger_switch,heat_exchange_params from tsg_catalog where catalog_id = %1";

const char* const insertStatement =
    " insert into tsg_catalog  (name, note,   condensator_area, condensator_radius, condensatot_eff,  vaporizer_area, "
    "vaporizer_length, vaporizer_radius, vaporizer_eff,   exchanger_area, exchanger_length, exchanger_radius, "
    "exchanger_switch,  heat_exchange_params) VALUES('%1', '%2', %3, %4, %5, %6, %7, %8, %9, %10, %11, %12, %13, "
    "'%14') returning catalog_id";

const char* const updateStatement =
    " update  tsg_catalog set  (name, note,   condensator_area, condensator_radius, condensatot_eff,  vaporizer_area, "
    "vaporizer_length, vaporizer_radius, vaporizer_eff,   exchanger_area, exchanger_length, exchanger_radius, "
    "exchanger_switch,  heat_exchange_params) =  ('%1', '%2', %3, %4, %5, %6, %7, %8, %9, %10, %11, %12, %13, '%14') "
    "where catalog_id=%15";

Catalogue tsgCatalogue()
{
    Catalogue catalogue;
    catalogue.listName = "CatalogTable";
    catalogue.statement = "select catalog_id from tsg_catalog";
    catalogue.texts = 0; // an entry is read by its own statement
    catalogue.titles = {"Наименование", "Примечание"};
    return catalogue;
}

// The entry without its key; empty when there is none.
QStringList readEntry(const QString& key)
{
    const sql::Result row = session().run(compose(entryStatement, Entered(key)));
    QStringList values;
    for (int column = Name; row.hasRow() && column < ColumnCount; ++column)
        values << row.getvalue(0, column);
    return values;
}

} // namespace

TSGCatalogList::TSGCatalogList(QWidget* parent) : CatalogueList(tsgCatalogue(), parent)
{
    connect(view()->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { emit chosen(currentKey()); });
}

void TSGCatalogList::dress(int row, const QString& key)
{
    const QStringList values = readEntry(key);
    QAbstractItemModel* model = view()->model();
    model->setData(model->index(row, 0), values.value(0));
    model->setData(model->index(row, 1), values.value(1));
}

TSGCatalogForm::TSGCatalogForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "TSGCatalogForm", "Типовые элементы ТСГ");
    layOut(this).column({
        row({
            growing(list_ = new TSGCatalogList, 2),
            growing(entry_ = new TSGEntryPane, 3),
        }),
        row({
            button("CreateBTN", "Новый", this, &TSGCatalogForm::createEntry),
            button("CopyBTN", "Копировать", this, &TSGCatalogForm::copyEntry),
            button("DeleteBTN", "Удалить", this, &TSGCatalogForm::deleteEntry),
            stretch(),
            save_ = button("SaveBTN", "Сохранить", this, &TSGCatalogForm::saveEntry),
            button("CloseBTN", "Закрыть", this, &TSGCatalogForm::reject),
        }),
    });
    connect(list_, &TSGCatalogList::chosen, this, &TSGCatalogForm::chooseEntry);
    list_->setMinimumWidth(leastListWidth);
    resize(1080, 480);
    refreshAt(QString());
}

void TSGCatalogForm::showEntry(const QString& key)
{
    const QStringList values = key.isEmpty() ? QStringList() : readEntry(key);
    shown_ = values.isEmpty() ? QString() : key;
    entry_->showRow(values);
    entry_->setEnabled(!shown_.isEmpty());
    save_->setEnabled(!shown_.isEmpty());
}

bool TSGCatalogForm::mayLoseChanges()
{
    return !entry_->isDirty()
        || confirm(this, {"Изменения не сохранятся", "Подтверждение", Look::Question, Preset::No});
}

void TSGCatalogForm::chooseEntry(const QString& key)
{
    if (refreshing_ || key == shown_)
        return;
    if (mayLoseChanges())
        return showEntry(key);
    // The table is still busy with its own step to the other row.
    QTimer::singleShot(0, this, &TSGCatalogForm::returnToShown);
}

void TSGCatalogForm::returnToShown() { list_->setCurrentKey(shown_); }

void TSGCatalogForm::refreshAt(const QString& key)
{
    {
        const QScopedValueRollback<bool> refreshing(refreshing_, true);
        list_->refresh();
        list_->setCurrentKey(key);
    }
    showEntry(list_->currentKey());
}

bool TSGCatalogForm::isNameTaken(const QString& name, const QString& key)
{
    const sql::Result others = session().run(compose("select catalog_id from  tsg_catalog where name='%1'", name));
    for (int row = 0; others.isTuples() && row < others.ntuples(); ++row) {
        if (others.getvalue(row, 0) != key) {
            warn(this, "Такое имя уже есть в базе данных");
            return true;
        }
    }
    return false;
}

void TSGCatalogForm::tellRefusal()
{
    warn(this, fill("Не удалось сохранить СОУ:\n\n%1", session().connection.errorMessage()), "Ошибка базы данных");
}

void TSGCatalogForm::insertEntry(const QStringList& values)
{
    if (isNameTaken(values.value(0), QString()))
        return;
    const sql::Result added = session().run(compose(insertStatement, entered(values)));
    if (!added.hasRow())
        return tellRefusal();
    refreshAt(added.getvalue(0, 0));
}

void TSGCatalogForm::createEntry()
{
    if (!mayLoseChanges())
        return;
    TSGEntryPane empty;
    empty.showRow({"Новый СОУ"});
    insertEntry(empty.values());
}

void TSGCatalogForm::copyEntry()
{
    if (shown_.isEmpty())
        return warn(this, "Ничего не выбрано!");
    const QString fault = entry_->fault();
    if (!fault.isEmpty())
        return warn(this, fault);
    QStringList values = entry_->values();
    values[0] += "(копия)";
    insertEntry(values);
}

void TSGCatalogForm::deleteEntry()
{
    if (shown_.isEmpty())
        return warn(this, "Ничего не выбрано!");
    if (!confirm(this, fill("Удалить СОУ %1 ?", readEntry(shown_).value(0))))
        return;
    if (!session().run(compose("delete from tsg_catalog where catalog_id=%1", Entered(shown_))).isCommand())
        return tellRefusal();
    refreshAt(QString());
}

void TSGCatalogForm::saveEntry()
{
    const QString fault = entry_->fault();
    if (!fault.isEmpty())
        return warn(this, fault);
    if (isNameTaken(entry_->name(), shown_))
        return;
    if (!session().run(compose(updateStatement, entered(entry_->values() << shown_))).isCommand())
        return tellRefusal();
    refreshAt(shown_);
}

void TSGCatalogForm::reject()
{
    if (mayLoseChanges())
        QDialog::reject();
}
