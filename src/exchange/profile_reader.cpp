#include "exchange/profile_reader.h"

#include "exchange/number_text.h"
#include "exchange/text_file.h"

#include <cmath>
#include <limits>

namespace {

void dropEmptyEnd(QStringList& cells)
{
    while (!cells.isEmpty() && cells.last().isEmpty())
        cells.removeLast();
}

// The cell's number, and what of it was left out.
bool takeNumber(const QString& cell, SignOf sign, double& number, QStringList* losses)
{
    int lost = nothingLost;
    if (!findNumber(cell, sign, number, &lost))
        return false;
    if (losses && lost)
        losses->append(lossText(cell, number, lost));
    return true;
}

int replaceDepths(const QStringList& cells, TemperatureProfile& profile)
{
    if (cells.size() > profile.size())
        return profileTooLong;
    for (int i = 0; i < cells.size(); ++i) {
        if (!findNumber(cells[i], SignOf::Text, profile[i].first))
            return profileBad;
    }
    return profileOk;
}

bool isBlankCell(const QString& cell)
{
    return cell.isEmpty() || cell.contains(QLatin1Char('\r')) || cell.contains(QLatin1Char('\n'));
}

// The profile's cells of a line; false when the first of them lies behind its end.
bool profileCells(const QString& line, QChar separator, ProfileColumns columns, QStringList& cells)
{
    const QString trimmed = line.trimmed();
    cells = splitCells(trimmed, separator.isNull() ? QString() : QString(separator));
    if (columns.first >= cells.size())
        return false;
    cells = cells.mid(columns.first, qMax(0, cells.size() - columns.tail - columns.first));
    return true;
}

void dropMissing(TemperatureProfile& profile)
{
    for (int i = profile.size() - 1; i >= 0; --i) {
        if (!std::isfinite(profile[i].second))
            profile.remove(i);
    }
}

} // namespace

int readDepths(QStringList cells, TemperatureProfile& profile, QStringList* losses)
{
    dropEmptyEnd(cells);
    if (!profile.isEmpty())
        return replaceDepths(cells, profile);
    for (const QString& cell : qAsConst(cells)) {
        double depth = 0.0;
        if (takeNumber(cell, SignOf::Text, depth, losses))
            profile.append({depth, std::numeric_limits<double>::infinity()});
        else if (!cell.isEmpty())
            return profileBad;
    }
    return profileOk;
}

int readTemperatures(QStringList cells, TemperatureProfile& profile, QStringList* losses)
{
    dropEmptyEnd(cells);
    if (cells.isEmpty())
        return profileBad;
    if (cells.size() > profile.size())
        return profileTooLong;
    for (int i = 0; i < cells.size(); ++i) {
        if (!takeNumber(cells[i], SignOf::Number, profile[i].second, losses) && !isBlankCell(cells[i]))
            return profileBad;
    }
    return profileOk;
}

ProfileReader::ProfileReader(const QString& headerLine, QChar separator, ProfileColumns columns)
    : separator_(separator), columns_(columns)
{
    QStringList cells;
    if (profileCells(headerLine, separator, columns, cells))
        headerCode_ = readDepths(cells, depths_, &depthLosses_);
}

int ProfileReader::read(const QString& dataLine, TemperatureProfile& profile, QStringList* losses) const
{
    profile.clear();
    QStringList cells;
    if (headerCode_ != profileOk || !profileCells(dataLine, separator_, columns_, cells))
        return profileBad;
    profile = depths_;
    if (losses)
        *losses += depthLosses_;
    const int code = readTemperatures(cells, profile, losses);
    dropMissing(profile);
    return code;
}
