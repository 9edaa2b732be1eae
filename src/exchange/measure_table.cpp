#include "exchange/measure_table.h"

#include "base/placeholders.h"
#include "base/text.h"

#include <QBrush>
#include <QColor>
#include <QSet>
#include <algorithm>
#include <cmath>

namespace {

const QColor doubtful(255, 224, 150); // a row of which a number lost a part
constexpr int mostLosses = 5;         // that a tool tip names

const QString notSet = QStringLiteral("Не установлено");
const QString noData = QStringLiteral("Нет данных");

// As the combo box of the cell shows it.
QString entryText(const EntryList& list, int index)
{
    if (index < 0 || index >= list.size())
        return notSet;
    return QString(list[index].text).replace(QLatin1String(" | "), QLatin1String(" - "));
}

QString numberText(double number) { return std::isfinite(number) ? general(number) : QString(); }

TSMeasure* well(const BaseMeasure& measure) { return static_cast<TSMeasure*>(const_cast<BaseMeasure*>(&measure)); }

} // namespace

MeasureTable::MeasureTable(const ImportFamily& family, QObject* parent) : QAbstractTableModel(parent), family_(family)
{ }

MeasureTable::~MeasureTable() = default;

void MeasureTable::clear() { setMeasures({}, {}); }

// Rows are shown when all are ready: what is painted meanwhile is an empty table.
bool MeasureTable::setMeasures(Measures measures, const ElementScope& scope, const WorkStep& step)
{
    beginResetModel();
    scope_ = scope;
    criteria_.forget();
    rows_.clear();
    endResetModel();
    std::vector<Row> rows;
    rows.reserve(measures.size());
    for (ReadMeasure& read : measures) {
        Row row;
        row.value = numberText(read.measure->values[0]);
        row.measure = std::move(read.measure);
        row.losses = std::move(read.losses);
        rows.push_back(std::move(row));
        if (!goesOn(step, int(rows.size()), int(measures.size())))
            return false;
    }
    if (!evaluateAll(rows, step))
        return false;
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
    return true;
}

// --- rules ----------------------------------------------------------------------

bool MeasureTable::hasData(const BaseMeasure& measure) const
{
    if (!std::isfinite(measure.values[0]))
        return false;
    return !::family(family_.family).hasProfile || !well(measure)->profile.isEmpty();
}

bool MeasureTable::evaluateAll(std::vector<Row>& rows, const WorkStep& step)
{
    if (!readAhead(rows, step))
        return false;
    int done = 0;
    for (Row& row : rows) {
        evaluate(row);
        if (!goesOn(step, ++done, int(rows.size())))
            return false;
    }
    return true;
}

// What the checks of all rows will ask for. Half-read answers are no harm: what is missing is asked
// for when its row comes.
bool MeasureTable::readAhead(const std::vector<Row>& rows, const WorkStep& step)
{
    if (!family_.check)
        return true;
    QVector<MeasureKey> wanted;
    QSet<MeasureKey> seen;
    for (const Row& row : rows) {
        const MeasureKey key(row.measure->elementId, row.measure->cycleId);
        if (key.first < 0 || seen.contains(key))
            continue;
        seen.insert(key);
        const int position = scope_.positionOf(key.first);
        if (position >= 0 && criteria_.norms(position).found)
            wanted.append(key);
    }
    return criteria_.readAhead(family_.check->previous, wanted, step);
}

void MeasureTable::evaluate(Row& row)
{
    BaseMeasure& measure = *row.measure;
    if (family_.check)
        family_.check->run(measure, scope_.positionOf(measure.elementId), criteria_);
    row.status = measure.problemText(QStringLiteral(" "));
    row.importable = measure.complete && hasData(measure);
    if (measure.complete && !row.importable)
        row.status = noData;
    row.checked = row.importable;
}

bool MeasureTable::takeId(BaseMeasure& measure, ImportContent content, int id) const
{
    switch (content) {
    case ImportContent::Element: measure.setElementId(id); return true;
    case ImportContent::Cycle: return measure.setCycleId(id) == measureOk;
    case ImportContent::Device: return measure.setDeviceId(id) == measureOk;
    case ImportContent::Performer: return measure.setPerformerId(id) == measureOk;
    default: return false;
    }
}

bool MeasureTable::takeValue(Row& row, const QString& text)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (!ok)
        return false;
    row.measure->values[0] = number;
    row.value = text;
    row.losses.erase(std::remove_if(row.losses.begin(), row.losses.end(),
                                    [](const ReadingLoss& loss) { return loss.place == LossIn::Value; }),
                     row.losses.end());
    return true;
}

// --- one value for all rows ---------------------------------------------------------

template <class Change>
void MeasureTable::changeAll(Change change, const WorkStep& step)
{
    if (rows_.empty())
        return;
    criteria_.forget();
    const WorkStep told = step ? [&](int done, int total) { return step(done, total), true; } : WorkStep();
    int done = 0;
    for (Row& row : rows_) {
        change(row);
        goesOn(told, ++done, rowCount());
    }
    evaluateAll(rows_, told);
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void MeasureTable::setLists(const MeasureLists& lists)
{
    if (rows_.empty())
        return;
    criteria_.forget();
    for (Row& row : rows_) {
        if (!takeLists(*row.measure, lists))
            evaluate(row);
    }
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

// False when an id that the lists lost was cleared.
bool MeasureTable::takeLists(BaseMeasure& measure, const MeasureLists& lists) const
{
    const EntryList elements = measure.lists.elements;
    measure.lists = lists;
    measure.lists.elements = elements;
    bool kept = true;
    for (const auto& [content, id] : {std::make_pair(ImportContent::Cycle, measure.cycleId),
                                      std::make_pair(ImportContent::Device, measure.deviceId),
                                      std::make_pair(ImportContent::Performer, measure.performerId)}) {
        if (takeId(measure, content, id))
            continue;
        takeId(measure, content, -1);
        kept = false;
    }
    return kept;
}

void MeasureTable::giveId(ImportContent content, int id, const WorkStep& step)
{
    changeAll([&](Row& row) { takeId(*row.measure, content, id); }, step);
}

void MeasureTable::giveValue(const QString& text, const WorkStep& step)
{
    changeAll([&text](Row& row) { takeValue(row, text); }, step);
}

// --- model --------------------------------------------------------------------------------

int MeasureTable::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(rows_.size()); }

int MeasureTable::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : family_.columns.size(); }

ImportContent MeasureTable::contentOf(const QModelIndex& index) const
{
    return family_.columns[index.column()].content;
}

QVariant MeasureTable::shown(const Row& row, ImportContent content) const
{
    const BaseMeasure& measure = *row.measure;
    switch (content) {
    case ImportContent::Status: return row.status;
    case ImportContent::Element: return fill("%1 (ID: %2)", measure.elementName, measure.elementId);
    case ImportContent::Cycle: return entryText(measure.lists.cycles, measure.cycleIndex);
    case ImportContent::Device: return entryText(measure.lists.devices, measure.deviceIndex);
    case ImportContent::Performer: return entryText(measure.lists.performers, measure.performerIndex);
    case ImportContent::Value: return row.value;
    case ImportContent::Second: return numberText(measure.values[1]);
    case ImportContent::Profile:
        return well(measure)->profile.isEmpty() ? QVariant(noData) : QVariant::fromValue(well(measure));
    case ImportContent::Validity: return family_.check ? family_.check->text(measure) : QString();
    }
    return {};
}

QVariant MeasureTable::held(const Row& row, ImportContent content) const
{
    const BaseMeasure& measure = *row.measure;
    switch (content) {
    case ImportContent::Status: return QVariant::fromValue(static_cast<void*>(row.measure.get()));
    case ImportContent::Element: return measure.elementId;
    case ImportContent::Cycle: return measure.cycleId;
    case ImportContent::Device: return measure.deviceId;
    case ImportContent::Performer: return measure.performerId;
    case ImportContent::Profile:
        return well(measure)->profile.isEmpty() ? QVariant() : QVariant(QStringLiteral("Просмотр"));
    case ImportContent::Validity: return family_.check ? family_.check->code(measure) : QVariant();
    case ImportContent::Value:
    case ImportContent::Second: break;
    }
    return {};
}

// What the cells do not show: the date, and what the reading left out.
QString MeasureTable::tip(const Row& row, ImportContent content)
{
    QStringList lines;
    if (content == ImportContent::Status)
        lines << row.status;
    const QDateTime& date = row.measure->date;
    lines << (date.isValid() ? QStringLiteral("Дата замера: ") + date.toString(QStringLiteral("dd.MM.yyyy hh:mm"))
                             : QStringLiteral("Дата замера не прочитана: возьмётся середина цикла"));
    for (int i = 0; i < qMin(mostLosses, row.losses.size()); ++i)
        lines << row.losses[i].text;
    if (row.losses.size() > mostLosses)
        lines << QStringLiteral("и ещё: %1").arg(row.losses.size() - mostLosses);
    return lines.join(QLatin1Char('\n'));
}

QVariant MeasureTable::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Row& row = rows_[size_t(index.row())];
    const ImportContent content = contentOf(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return shown(row, content);
    case Qt::UserRole: return held(row, content);
    case Qt::CheckStateRole:
        if (content == ImportContent::Status)
            return row.checked ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::ForegroundRole:
        // Readable although the cell is dead.
        if (content == ImportContent::Status && !row.importable)
            return QBrush(Qt::darkRed);
        return {};
    case Qt::BackgroundRole: return row.losses.isEmpty() ? QVariant() : QBrush(doubtful);
    case Qt::ToolTipRole: return tip(row, content);
    case Qt::TextAlignmentRole:
        if (content == ImportContent::Value || content == ImportContent::Second)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default: return {};
    }
}

QVariant MeasureTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < columnCount())
        return family_.columns[section].header;
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags MeasureTable::flags(const QModelIndex& index) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return Qt::NoItemFlags;
    const Qt::ItemFlags plain = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    switch (contentOf(index)) {
    case ImportContent::Status:
        // The box of a row that cannot be imported is dead.
        return rows_[size_t(index.row())].importable ? plain | Qt::ItemIsUserCheckable
                                                     : Qt::ItemIsSelectable | Qt::ItemIsUserCheckable;
    case ImportContent::Second:
    case ImportContent::Profile:
    case ImportContent::Validity: return plain;
    default: return plain | Qt::ItemIsEditable;
    }
}

bool MeasureTable::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return false;
    Row& row = rows_[size_t(index.row())];
    const ImportContent content = contentOf(index);
    if (content == ImportContent::Status) {
        if (role != Qt::CheckStateRole || !row.importable)
            return false;
        row.checked = value.toInt() == Qt::Checked;
        emit dataChanged(index, index, {Qt::CheckStateRole});
        return true;
    }
    const bool taken = content == ImportContent::Value
        ? role == Qt::EditRole && takeValue(row, value.toString())
        : role == Qt::UserRole && takeId(*row.measure, content, value.toInt());
    if (!taken)
        return false;
    criteria_.forget();
    evaluate(row);
    emit dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1));
    return true;
}
