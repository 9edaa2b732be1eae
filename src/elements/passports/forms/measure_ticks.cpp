#include "elements/passports/forms/measure_ticks.h"

#include "base/dates.h"
#include "formkit/table_items.h"

#include <QHash>
#include <QHeaderView>
#include <QMenu>
#include <QSignalBlocker>

namespace {

enum Column { Cycle, Date };

constexpr int kIdRole = Qt::UserRole;

} // namespace

MeasureTicks::MeasureTicks(QWidget* parent) : QTableWidget(0, 2, parent)
{
    setHorizontalHeaderLabels({QStringLiteral("Цикл"), QStringLiteral("Дата")});
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + 6);
    horizontalHeader()->setStretchLastSection(true);
    setColumnWidth(Cycle, fontMetrics().averageCharWidth() * 12);
    setMinimumWidth(fontMetrics().averageCharWidth() * 28);
    setMaximumWidth(fontMetrics().averageCharWidth() * 34);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &MeasureTicks::showMenu);
    connect(this, &QTableWidget::itemChanged, this, &MeasureTicks::ticksChanged);
}

void MeasureTicks::showMeasures(const PassportRecord& record, int most)
{
    const QSignalBlocker quiet(this);
    QHash<int, bool> before;
    for (int row = 0; row < rowCount(); ++row)
        before.insert(item(row, Cycle)->data(kIdRole).toInt(), item(row, Cycle)->checkState() == Qt::Checked);
    const int count = int(record.measures.size());
    setRowCount(count);
    for (int row = 0; row < count; ++row) {
        const BaseMeasure& measure = *record.measures[size_t(row)];
        const bool late = most < 0 || row >= count - most;
        QTableWidgetItem* cycle = formkit::checkItem(before.value(measure.measureId, before.isEmpty() ? late : true));
        cycle->setText(record.lists.cycleNumbers.value(measure.cycleId));
        cycle->setData(kIdRole, measure.measureId);
        setItem(row, Cycle, cycle);
        setItem(row, Date, formkit::textItem(dateText(measure.date.date(), QStringLiteral("dd.MM.yyyy"))));
    }
}

QVector<int> MeasureTicks::ticked() const
{
    QVector<int> ids;
    for (int row = 0; row < rowCount(); ++row) {
        if (item(row, Cycle)->checkState() == Qt::Checked)
            ids.append(item(row, Cycle)->data(kIdRole).toInt());
    }
    return ids;
}

QString MeasureTicks::textOf(int measureId) const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (item(row, Cycle)->data(kIdRole).toInt() == measureId)
            return item(row, Cycle)->text();
    }
    return {};
}

void MeasureTicks::tick(Ticks ticks)
{
    {
        const QSignalBlocker quiet(this);
        for (int row = 0; row < rowCount(); ++row) {
            const bool on = item(row, Cycle)->checkState() == Qt::Checked;
            const bool wanted = ticks == Ticks::All || (ticks == Ticks::Inverse && !on);
            item(row, Cycle)->setCheckState(wanted ? Qt::Checked : Qt::Unchecked);
        }
    }
    viewport()->update();
    emit ticksChanged();
}

void MeasureTicks::showMenu(const QPoint& place)
{
    QMenu menu(this);
    menu.addAction(QStringLiteral("Выбрать все"), this, [this] { tick(Ticks::All); });
    menu.addAction(QStringLiteral("Снять все"), this, [this] { tick(Ticks::None); });
    menu.addAction(QStringLiteral("Инвертировать выбор"), this, [this] { tick(Ticks::Inverse); });
    menu.exec(viewport()->mapToGlobal(place));
}
