#include "database/forms/audit_log_form.h"

#include "base/placeholders.h"
#include "database/audit/audit_filters.h"
#include "database/audit/audit_log.h"
#include "formkit/boxes.h"
#include "formkit/layout.h"
#include "formkit/progress_box.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"

#include <QDateTimeEdit>
#include <QHeaderView>
#include <QProgressBar>
#include <QScopedValueRollback>
#include <QTableView>

using namespace formkit;

namespace {

constexpr int kRowHeight = 16;
constexpr int kTextHeight = 11;   // letters of this size stand whole in such a row
constexpr int kColumnWidth = 150; // JSON would make columns as wide as the screen
constexpr int kLeastWidth = 120;
constexpr int kMostWidth = 200;

QDateTimeEdit* timeEdit(const QString& name, const QDateTime& time)
{
    auto* field = named<QDateTimeEdit>(name, time);
    field->setDisplayFormat("dd.MM.yyyy HH:mm:ss");
    field->setCalendarPopup(true);
    return field;
}

void keepLow(QTableView* table)
{
    QHeaderView* rows = table->verticalHeader();
    rows->setMinimumSectionSize(kRowHeight);
    rows->setDefaultSectionSize(kRowHeight);
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->hide();
    QFont low = table->font();
    low.setPixelSize(kTextHeight);
    table->setFont(low);
    table->setWordWrap(false);
    table->horizontalHeader()->setDefaultSectionSize(kColumnWidth);
}

QTableWidget* fieldTable(const QString& name)
{
    QTableWidget* made = table(name, {"Поле", "Значение"});
    keepLow(made);
    made->horizontalHeader()->setStretchLastSection(true);
    return made;
}

QListWidget* filterList(const QString& name, const QVector<AuditFilter>& filters)
{
    QListWidget* list = listBox(name);
    for (const AuditFilter& filter : filters)
        list->addItem(QString::fromUtf8(filter.name));
    list->setCurrentRow(0);
    list->setFixedHeight(list->sizeHintForRow(0) * auditTableGroups().size() + 2 * list->frameWidth());
    return list;
}

void showFields(QTableWidget* table, const QVector<AuditField>& fields)
{
    table->setRowCount(fields.size());
    for (int row = 0; row < fields.size(); ++row) {
        table->setItem(row, 0, textItem(fields[row].name));
        table->item(row, 0)->setTextAlignment(Qt::AlignCenter);
        table->setItem(row, 1, textItem(fields[row].value));
        table->item(row, 1)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }
}

} // namespace

AuditLogViewerForm::AuditLogViewerForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "AuditLogViewerForm", "Аудит событий");
    shown_.setLog(&model_);
    layOut(this).column({
        row({periodAndButtons(), growing(filters())}),
        growing(log_ = logTable(), 3),
        growing(row({
                    group("Старые").column({old_ = fieldTable("OldTable")}),
                    group("Новые").column({new_ = fieldTable("NewTable")}),
                }),
                2),
        progress_ = named<QProgressBar>("ProgressBar"),
    });
    progress_->setValue(0);
    nameSwitch();
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(980, 760);

    connect(groups_, &QListWidget::currentRowChanged, this, [this](int chosen) {
        shown_.setTablePattern(QString::fromLatin1(auditTableGroups().value(chosen).pattern));
    });
    connect(operations_, &QListWidget::currentRowChanged, this, [this](int chosen) {
        shown_.setOperationPattern(QString::fromLatin1(auditOperations().value(chosen).pattern));
    });
    connect(log_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &AuditLogViewerForm::showEntry);
}

QLayout* AuditLogViewerForm::periodAndButtons()
{
    const QDateTime now = QDateTime::currentDateTime();
    switch_ = button("SwitchBtn", QString(), this, &AuditLogViewerForm::switchLogging);
    keepRoomFor(switch_, "Отключить запись журнала");
    return column({
        lines({
            {"Начало периода", start_ = timeEdit("StartTime", now.addDays(-1))},
            {"Конец периода", end_ = timeEdit("EndTime", now)},
        }),
        button("ApplyBtn", "Применить\nОбновить", this, &AuditLogViewerForm::load),
        stretch(),
        switch_,
        button("ClearBtn", "Очистить журнал", this, &AuditLogViewerForm::emptyLog),
        button("CloseBtn", "Закрыть", this, &AuditLogViewerForm::reject),
    });
}

QWidget* AuditLogViewerForm::filters()
{
    return group("Данные").grid({
        {"Элементы", "Операция"},
        {growing(groups_ = filterList("TablesList", auditTableGroups()), 2),
         growing(operations_ = filterList("OperationsList", auditOperations()))},
    });
}

// The entries come in the order of the log until the user sorts them.
QTableView* AuditLogViewerForm::logTable()
{
    auto* view = named<QTableView>("LogTable");
    view->setModel(&shown_);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    keepLow(view);
    QHeaderView* titles = view->horizontalHeader();
    titles->setMinimumSectionSize(kLeastWidth);
    titles->setMaximumSectionSize(kMostWidth);
    titles->setSortIndicator(-1, Qt::AscendingOrder);
    view->setSortingEnabled(true);
    return view;
}

void AuditLogViewerForm::reject()
{
    if (!busy_)
        QDialog::reject();
}

// --- the log -------------------------------------------------------------------------

void AuditLogViewerForm::load()
{
    if (busy_)
        return;
    const QScopedValueRollback<bool> busy(busy_, true);
    auto entries = std::make_unique<AuditEntries>();
    ProgressBox box(this, "Чтение журнала", "Читаются записи за период. Подождите...");
    const AuditLoad end = loadAuditLog({start_->dateTime(), end_->dateTime()}, *entries, [&](int done, int total) {
        progress_->setMaximum(qMax(1, total));
        progress_->setValue(done);
        return box.step(done, total);
    });
    progress_->setValue(end == AuditLoad::Done ? progress_->maximum() : 0);
    if (end == AuditLoad::Done)
        model_.show(std::move(entries));
    showEntry(log_->currentIndex());
}

void AuditLogViewerForm::showEntry(const QModelIndex& current)
{
    const auto fieldsIn = [&current](AuditEntries::Column column) {
        return auditFields(current.sibling(current.row(), column).data().toString());
    };
    showFields(old_, fieldsIn(AuditEntries::OldData));
    showFields(new_, fieldsIn(AuditEntries::NewData));
}

void AuditLogViewerForm::emptyLog()
{
    if (busy_
        || !confirm(this,
                    {"Вы действительно хотите очистить журнал аудита? Это действие необратимо.", "Подтверждение"}))
        return;
    if (const std::optional<QString> message = emptyAuditLog())
        return warn(this, fill("Не удалось очистить журнал аудита:\n%1", *message), "Ошибка");
    inform(this, "Журнал аудита очищен.", "Успех");
    load();
}

// --- the switch ----------------------------------------------------------------------

void AuditLogViewerForm::nameSwitch()
{
    switch_->setText(fill("%1 запись журнала", session().auditEnabled ? "Отключить" : "Включить"));
}

void AuditLogViewerForm::switchLogging()
{
    if (busy_)
        return;
    const QStringList others = otherConnections();
    if (!session().setAudit())
        return;
    if (!others.isEmpty())
        warn(this,
             fill("Для того чтобы изменения вступили в силу\nнеобходимо переоткрыть проект на следующих "
                  "компьютерах:\n%1 ",
                  others.join('\n')));
    nameSwitch();
}
