#include "exchange/measure_reading.h"

#include "exchange/row_reader.h"

#include <QHash>

namespace {

// An id and its place in a list.
struct Match {
    int id = -1;
    int index = -1;
};

// A file repeats few names, dates and serial numbers; each is matched once.
class Matcher {
public:
    void setElement(BaseMeasure& measure, const QString& name)
    {
        const auto found = elements_.constFind(name);
        if (found == elements_.constEnd()) {
            measure.setElementName(name);
            elements_.insert(name, {measure.elementId, measure.elementIndex});
            return;
        }
        measure.elementName = name;
        measure.elementId = found->id;
        measure.elementIndex = found->index;
    }

    void setDate(BaseMeasure& measure, const QDateTime& when)
    {
        const auto found = cycles_.constFind(when.date());
        if (found == cycles_.constEnd()) {
            measure.setDate(when);
            cycles_.insert(when.date(), {measure.cycleId, measure.cycleIndex});
            return;
        }
        measure.date = when; // as written, from the reader
        measure.cycleId = found->id;
        measure.cycleIndex = found->index;
    }

    void setDevice(BaseMeasure& measure, const QString& serial)
    {
        const auto found = devices_.constFind(serial);
        if (found == devices_.constEnd()) {
            measure.setDeviceSerial(serial);
            devices_.insert(serial, {measure.deviceId, measure.deviceIndex});
            return;
        }
        measure.deviceSerial = serial;
        measure.deviceId = found->id;
        measure.deviceIndex = found->index;
    }

private:
    QHash<QString, Match> elements_;
    QHash<QDate, Match> cycles_;
    QHash<QString, Match> devices_;
};

ReadMeasure makeCandidate(const ImportFamily& family, const ReadingTask& task, const MeasureLists& lists,
                          const SurveyRow& row, Matcher& matcher)
{
    auto measure = makeMeasure(family.family, lists);
    measure->positionId = task.positionId;
    matcher.setElement(*measure, row.name);
    matcher.setDate(*measure, row.when);
    matcher.setDevice(*measure, row.serial);
    measure->values = {row.value, row.second};
    if (task.format->holdsProfile)
        static_cast<TSMeasure&>(*measure).profile = row.profile;
    return {std::move(measure), row.losses};
}

} // namespace

MeasureTable::Measures readMeasures(const ImportFamily& family, const ReadingTask& task,
                                    const std::function<bool(int)>& progress)
{
    MeasureTable::Measures measures;
    MeasureLists lists = task.lists;
    lists.elements = task.scope.elements;
    RowReader reader(*task.format, task.separator);
    Matcher matcher;
    SurveyRow row;
    for (int line = 0; line < task.lines.size(); ++line) {
        if (reader.read(task.lines[line], row) == RowReader::Line::Data)
            measures.push_back(makeCandidate(family, task, lists, row, matcher));
        if (progress && (line + 1) % family.progressStep == 0 && !progress(line + 1))
            return {};
    }
    if (progress && !progress(task.lines.size()))
        return {};
    return measures;
}
