#include "reader_fuzz.h"

#include "base/xml_text.h"
#include "exchange/device_import.h"
#include "exchange/elements/element_records.h"
#include "exchange/empty_result.h"
#include "exchange/geology/well_geology.h"
#include "exchange/measure_reading.h"
#include "exchange/text_file.h"
#include "session/project_file.h"
#include "session/project_session.h"

#include <dxf/drawing_file.h>
#include <render/display_list.h>

#include <QBuffer>
#include <QTemporaryFile>
#include <algorithm>

namespace {

bool readBytes(NcDbDatabase& drawing, const QByteArray& bytes)
{
    QTemporaryFile file;
    if (!file.open())
        return false;
    file.write(bytes);
    file.close();
    return isOk(drawing.readDwgFile(file.fileName()));
}

// The lines around the place where two texts part.
QString firstDifference(const QByteArray& one, const QByteArray& other)
{
    const auto parts = std::mismatch(one.begin(), one.begin() + qMin(one.size(), other.size()), other.begin());
    const int at = qMax(0, int(parts.first - one.begin()) - 12);
    return QString::fromUtf8(one.mid(at, 60)) + " / " + QString::fromUtf8(other.mid(at, 60));
}

std::optional<ProjectFile> readProject(QByteArray bytes, const ProjectSession& defaults)
{
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    return readProjectFile(device, defaults);
}

void take(const ProjectFile& file, ProjectSession& session)
{
    session.projectName = file.projectName;
    session.projectOwner = file.projectOwner;
    session.workDir = file.workDir;
    session.sqlDatabase = file.database.database;
    session.sqlPass = file.database.password;
    session.currentPositionId = file.positionId;
    session.temperatureColormapId = file.temperatureColormapId;
    session.stateFilter = file.stateFilter;
    for (int i = 0; i < enumeratorCount; ++i)
        session.*enumeratorsInUse[i] = file.enumerators[size_t(i)];
}

QStringList valuesOf(const ProjectFile& file)
{
    QStringList values{file.projectName,
                       file.projectOwner,
                       file.workDir,
                       file.database.database,
                       file.database.password,
                       QString::number(file.positionId),
                       QString::number(file.temperatureColormapId)};
    for (const Enumerator& numbering : file.enumerators)
        values << numbering.prefix << QString::number(numbering.counter) << QString::number(numbering.trailing);
    for (auto state = file.stateFilter.begin(); state != file.stateFilter.end(); ++state)
        values << state.key() << state.value();
    for (QString& value : values) // what no XML can hold is not written again
        value = storableInXml(value);
    return values;
}

ReadingTask taskOf(const QStringList& lines, const QString& separator)
{
    ReadingTask task;
    task.lines = lines;
    task.separator = separator;
    task.positionId = 1;
    task.scope.elements = {{"Т-1", 1}, {"T.2", 2}};
    task.scope.byPosition[1] = {1, 2};
    task.lists.devices = {{"SN-1 | коса", 1}};
    task.lists.cycles = {{"1", 1}};
    task.lists.cycleRecords = {{1, "1", QDate(2021, 1, 1), QDate(2021, 12, 31), {}}};
    return task;
}

QString readAsMeasures(const QStringList& lines, const QString& separator)
{
    for (const FamilyKey key :
         {FamilyKey::Dm, FamilyKey::Ts, FamilyKey::Rp, FamilyKey::Tss, FamilyKey::Ggs, FamilyKey::Tsg}) {
        const ImportFamily& family = *importFamily(key);
        for (const ImportTemplate& format : family.templates) {
            ReadingTask task = taskOf(lines, separator);
            task.format = &format;
            MeasureTable table(family);
            table.setMeasures(readMeasures(family, task), task.scope);
            if (table.rowCount() > lines.size())
                return "more rows than lines";
            for (int row = 0; row < qMin(20, table.rowCount()); ++row) {
                for (int column = 0; column < table.columnCount(); ++column)
                    table.data(table.index(row, column), Qt::ToolTipRole);
            }
            table.summaryText();
            table.uncheckedText();
        }
    }
    return {};
}

} // namespace

QString fuzzDrawing(const QByteArray& input)
{
    NcDbDatabase first;
    if (!readBytes(first, input))
        return {};
    recordDrawing(first).box();
    const QByteArray saved = drawingBytes(first);
    NcDbDatabase second;
    if (!readBytes(second, saved))
        return "a saved drawing does not open: " + drawingFault();
    // A file from elsewhere has its header in another order; from then on nothing moves.
    const QByteArray twice = drawingBytes(second);
    NcDbDatabase third;
    if (!readBytes(third, twice))
        return "a drawing saved twice does not open: " + drawingFault();
    const QByteArray thrice = drawingBytes(third);
    return thrice == twice ? QString() : "a drawing saved again differs: " + firstDifference(twice, thrice);
}

QString fuzzProject(const QByteArray& input)
{
    const ProjectSession defaults;
    const std::optional<ProjectFile> file = readProject(input, defaults);
    if (!file)
        return {};
    ProjectSession session;
    take(*file, session);
    const std::optional<ProjectFile> again = readProject(projectFileText(session), defaults);
    if (!again)
        return "a saved project file does not open";
    const QStringList before = valuesOf(*file), after = valuesOf(*again);
    for (int i = 0; i < qMin(before.size(), after.size()); ++i) {
        if (before[i] != after[i])
            return "a saved project file says something else: \"" + before[i] + "\" / \"" + after[i] + '"';
    }
    return before.size() == after.size() ? QString() : QString("a saved project file holds more or less");
}

QString fuzzTable(const QByteArray& input)
{
    const int choice = input.isEmpty() ? 0 : uchar(input[0]);
    static const QStringList separators = {";", ",", "\t", " ", "|", "ab"};
    const QString separator = separators[choice / 2 % separators.size()];
    QTemporaryFile file;
    if (!file.open())
        return {};
    file.write(input.mid(1));
    file.close();
    const TextFile text =
        readTextFile(file.fileName(), choice % 2 == 0 ? TextEncoding::Utf8 : TextEncoding::Windows1251);
    for (const QString& line : text.lines) {
        if (line.contains('\n') || line.contains('\r'))
            return "a line holds the end of a line";
        if (splitCells(line, separator).size() != countCells(line, separator))
            return "cells are miscounted";
    }
    ColumnRoles roles(ElementRole::Count);
    for (int role = 0; role < ElementRole::Count; ++role)
        roles.give(role, role);
    for (const bool byColumns : {false, true})
        readElements(cellsOf(text.lines, separator, byColumns), roles);
    ColumnRoles deviceRoles(DeviceRole::Count);
    for (int role = 0; role < DeviceRole::Count; ++role)
        deviceRoles.give(role, role);
    readDevices(text.lines, separator, deviceRoles);
    readGeology(text.lines, separator, {{{"Т-1", 1}}, {{"1", 1}}, {}});
    return readAsMeasures(text.lines, separator);
}
