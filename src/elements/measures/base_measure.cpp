#include "elements/measures/base_measure.h"

#include "base/dates.h"
#include "base/placeholders.h"
#include "base/statement.h"
#include "base/text.h"
#include "base/written_date.h"
#include "elements/measures/name_match.h"
#include "session/project_session.h"

#include <algorithm>
#include <cmath>

namespace {

QString dateFormat() { return QStringLiteral("yyyy-MM-dd"); }

// An id column of a row; -1 when it is absent.
int idAt(const sql::Result& rows, int row, int column)
{
    return rows.isNull(row, column) ? -1 : rows.toInt(row, column);
}

// The first entry, in list order, of which `matches` is true.
template <class Matches>
int indexWhere(const EntryList& list, Matches matches)
{
    const auto found = std::find_if(list.begin(), list.end(), matches);
    return found == list.end() ? -1 : int(found - list.begin());
}

} // namespace

BaseMeasure::BaseMeasure(const MeasureFamily& family, const MeasureLists& ready)
    : positionId(session().currentPositionId), lists(ready), family_(&family)
{ }

BaseMeasure::~BaseMeasure() = default;

int BaseMeasure::loadElements(bool allBase)
{
    return ::loadElements(lists, family_->elementTable, positionId, allBase);
}

int BaseMeasure::loadCycles() { return ::loadCycles(lists); }

int BaseMeasure::loadDevices() { return ::loadDevices(lists); }

int BaseMeasure::loadPerformers() { return ::loadPerformers(lists); }

int BaseMeasure::setElementName(const QString& name)
{
    elementName = name;
    elementIndex = indexWhere(lists.elements, [&](const ListEntry& e) { return namesMatch(e.text, name); });
    if (elementIndex < 0)
        elementIndex = indexWhere(lists.elements, [&](const ListEntry& e) { return namesMatch(name, e.text); });
    elementId = elementIndex < 0 ? -1 : lists.elements[elementIndex].id;
    return elementIndex < 0 ? measureNoElement : measureOk;
}

int BaseMeasure::setElementId(int id)
{
    elementId = id;
    elementIndex = indexOfId(lists.elements, id);
    if (elementIndex < 0)
        return measureNotFound;
    elementName = lists.elements[elementIndex].text;
    return measureOk;
}

int BaseMeasure::setDate(const QDateTime& shown)
{
    const QDateTime dateTime = writtenMoment(shown);
    const QDate day = dateTime.date();
    if (!day.isValid()) {
        date = dateTime;
        return takeCycle(-1, dateTime);
    }
    for (const CycleRecord& record : lists.cycleRecords) {
        if (record.holds(day) && record.id != -1)
            return takeCycle(record.id, dateTime);
    }
    date = dateTime;
    const sql::Result row =
        session().run(compose("select cycle_id from cycles where to_date('%1', 'yyyy.mm.dd') between date_start and "
                              "date_end",
                              dateText(day, QStringLiteral("yyyy.MM.dd"))));
    return takeCycle(row.isTuples() ? idAt(row, 0, 0) : -1, dateTime);
}

int BaseMeasure::takeCycle(int id, const QDateTime& dateTime)
{
    cycleIndex = id == -1 ? -1 : indexOfId(lists.cycles, id);
    cycleId = cycleIndex < 0 ? -1 : id;
    if (cycleIndex < 0)
        return measureNoCycle;
    date = dateTime;
    return measureOk;
}

int BaseMeasure::setCycleId(int id)
{
    const int index = indexOfId(lists.cycles, id);
    if (id != -1 && index < 0)
        return measureNotFound;
    cycleId = id;
    cycleIndex = id == -1 ? -1 : index;
    return measureOk;
}

int BaseMeasure::setDeviceSerial(const QString& serial)
{
    deviceSerial = serial;
    deviceIndex = indexWhere(lists.devices,
                             [&](const ListEntry& device) { return serialOf(device).trimmed() == serial.trimmed(); });
    deviceId = deviceIndex < 0 ? -1 : lists.devices[deviceIndex].id;
    return deviceIndex < 0 ? measureNoDevice : measureOk;
}

int BaseMeasure::setDeviceId(int id)
{
    const int index = indexOfId(lists.devices, id);
    if (id != -1 && index < 0)
        return measureNotFound;
    deviceId = id;
    deviceIndex = id == -1 ? -1 : index;
    if (id != -1)
        deviceSerial = serialOf(lists.devices[index]);
    return measureOk;
}

int BaseMeasure::setPerformerId(int id)
{
    const int index = indexOfId(lists.performers, id);
    if (id != -1 && index < 0)
        return measureNotFound;
    performerId = id;
    performerIndex = id == -1 ? -1 : index;
    performerText = id == -1 ? QString() : lists.performers[index].text;
    return measureOk;
}

int BaseMeasure::load(int id)
{
    const sql::Result row = session().run(compose(family_->select, id));
    if (!row.hasRow())
        return measureNotFound;
    measureId = id;
    take(row, 0);
    return measureOk;
}

void BaseMeasure::take(const sql::Result& rows, int row)
{
    setElementId(idAt(rows, row, MeasureFamily::ElementId));
    // What the lists do not know is still what the row says.
    cycleId = idAt(rows, row, MeasureFamily::CycleId);
    cycleIndex = indexOfId(lists.cycles, cycleId);
    deviceId = idAt(rows, row, MeasureFamily::DeviceId);
    deviceIndex = -1;
    setDeviceId(deviceId);
    date = writtenMoment(dateFrom(rows.getvalue(row, MeasureFamily::Date), dateFormat()));
    readValues(rows, row, MeasureFamily::FirstValue);
    performerId = idAt(rows, row, family_->performerColumn());
    performerIndex = -1;
    setPerformerId(performerId);
}

double BaseMeasure::numberAt(const sql::Result& rows, int row, int column)
{
    bool ok = false;
    const double number = rows.toDouble(row, column, &ok);
    return ok ? number : noValue;
}

void BaseMeasure::readValues(const sql::Result& rows, int row, int column)
{
    for (int i = 0; i < family_->columns.size(); ++i)
        values[size_t(i)] = numberAt(rows, row, column + i);
}

QVector<Statement> BaseMeasure::valueTexts() const
{
    QVector<Statement> texts;
    for (int i = 0; i < family_->columns.size(); ++i) {
        const double value = values[size_t(i)];
        const bool missingSecond = i > 0 && !std::isfinite(value);
        texts.append(missingSecond ? Statement("NULL") : compose("%1", Numeral(value, family_->columns[i].decimals)));
    }
    return texts;
}

Statement BaseMeasure::valueList() const
{
    return compose("%1,%2,%3,'%4',%5,%6", elementId, cycleId, deviceId, dateText(date, dateFormat()),
                   joined(valueTexts(), ","), performerId);
}

Statement BaseMeasure::columnList() const
{
    QVector<Statement> names;
    for (const MeasureColumn& column : family_->columns)
        names.append(compose("%1", Identifier(column.name)));
    return compose("element_id,cycle_id,device_id,date,%1,performer_id", joined(names, ","));
}

Statement BaseMeasure::insertSql()
{
    if (!isComplete())
        return {};
    return compose("INSERT INTO %1 (%2) VALUES (%3) RETURNING %4", Identifier(family_->measureTable), columnList(),
                   valueList(), Identifier(family_->idColumn));
}

Statement BaseMeasure::updateSql(int id)
{
    if (!isComplete())
        return {};
    return compose("UPDATE %1 SET (%2) = (%3) WHERE %4=%5", Identifier(family_->measureTable), columnList(),
                   valueList(), Identifier(family_->idColumn), id);
}

int BaseMeasure::findMeasureId()
{
    const sql::Result row =
        session().run(compose("SELECT %3 FROM %4 WHERE element_id =%1 AND cycle_id = %2", elementId, cycleId,
                              Identifier(family_->idColumn), Identifier(family_->measureTable)));
    const int id = row.isTuples() ? idAt(row, 0, 0) : -1;
    exists = id > 0;
    return exists ? id : -1;
}

bool BaseMeasure::isComplete()
{
    complete = elementId != -1 && deviceId != -1 && cycleId != -1 && performerId != -1;
    return complete;
}

QString BaseMeasure::problemText(const QString& separator)
{
    if (isComplete())
        return QStringLiteral("OK");
    QStringList problems;
    if (elementId == -1)
        problems.append(fill("Имя %1 не найдено.", elementName));
    if (deviceId == -1)
        problems.append(fill("Устройство SN %1 не найдено.", deviceSerial));
    if (cycleId == -1)
        problems.append(QStringLiteral("Не определен цикл. "));
    if (performerId == -1)
        problems.append(QStringLiteral("Не определен исполнитель. "));
    return problems.join(separator);
}

QDateTime BaseMeasure::cycleMiddle() const
{
    const auto& records = lists.cycleRecords;
    const auto record = std::find_if(records.begin(), records.end(),
                                     [this](const CycleRecord& r) { return r.id == cycleId && cycleId != -1; });
    if (record == records.end() || !record->first.isValid() || !record->last.isValid())
        return {};
    const qint64 day = (record->last.toJulianDay() + record->first.toJulianDay() + 1) / 2;
    return writtenMoment(QDate::fromJulianDay(day), QTime(12, 0));
}
