#include "exchange/row_reader.h"

#include "base/dates.h"
#include "base/written_date.h"
#include "exchange/number_text.h"
#include "exchange/text_file.h"

namespace {

constexpr int mostRemembered = 4096;

QStringList formatsOf(const TemplateField& field) { return field.format.split(QStringLiteral(";;")); }

// A year of two digits is read as 19yy and belongs to this century.
int centuryShift(const QString& format) { return format.contains(QLatin1String("yyyy")) ? 0 : 100; }

QDate readDate(const QString& text, const TemplateField& field)
{
    for (const QString& format : formatsOf(field)) {
        const QDate date = dateFrom(text, format);
        if (date.isValid())
            return date.addYears(centuryShift(format));
    }
    return {};
}

QTime readTime(const QString& text, const TemplateField& field)
{
    for (const QString& format : formatsOf(field)) {
        const QTime time = timeFrom(text, format);
        if (time.isValid())
            return time;
    }
    return {};
}

QDateTime readDateTime(const QString& text, const TemplateField& field)
{
    for (const QString& format : formatsOf(field)) {
        const QDateTime when = readWrittenMoment(text, format);
        if (when.isValid())
            return when.addYears(centuryShift(format));
    }
    return {};
}

QString trimmedCell(const QStringList& cells, const TemplateField& field) { return cells.value(field.index).trimmed(); }

template <class Value>
Value remembered(QHash<QString, Value>& known, const QString& text, const TemplateField& field,
                 Value (*read)(const QString&, const TemplateField&))
{
    const auto found = known.constFind(text);
    if (found != known.constEnd())
        return *found;
    if (known.size() >= mostRemembered)
        known.clear();
    return *known.insert(text, read(text, field));
}

} // namespace

RowReader::RowReader(const ImportTemplate& format, const QString& separator)
    : format_(format), separator_(separator) { }

RowReader::Line RowReader::read(const QString& line, SurveyRow& row)
{
    const QStringList cells = splitCells(line, separator_);
    if (cells.size() < format_.leastCells())
        return Line::Passed;
    if (isHeader(cells)) {
        headerSeen_ = true;
        if (format_.holdsProfile)
            profile_ = ProfileReader(line, separator_.isEmpty() ? QChar() : separator_[0], format_.profile);
        return Line::Header;
    }
    row = SurveyRow();
    row.name = trimmedCell(cells, format_.name);
    if (!headerSeen_ || row.name.isEmpty())
        return Line::Passed;
    row.serial = trimmedCell(cells, format_.serial);
    row.when = dateTimeOf(cells);
    if (format_.value.index >= 0)
        row.value = valueOf(cells.value(format_.value.index), LossIn::Value, row.losses);
    if (format_.second.index >= 0)
        row.second = valueOf(cells.value(format_.second.index), LossIn::Second, row.losses);
    if (format_.holdsProfile)
        readProfile(line, row);
    return Line::Data;
}

bool RowReader::isHeader(const QStringList& cells) const
{
    const TemplateField& date = format_.dateAndTimeTogether ? format_.dateTime : format_.date;
    return hasCaption(cells, format_.name) && hasCaption(cells, format_.serial) && hasCaption(cells, date)
        && (format_.dateAndTimeTogether || hasCaption(cells, format_.time))
        && (!format_.holdsProfile || hasCaption(cells, format_.value));
}

// A field that the file does not have has no caption to compare.
bool RowReader::hasCaption(const QStringList& cells, const TemplateField& field) const
{
    if (field.index < 0)
        return true;
    const QString cell = cells.value(field.index);
    return (format_.holdsProfile ? cell : cell.trimmed()) == field.caption;
}

QDateTime RowReader::dateTimeOf(const QStringList& cells)
{
    if (format_.dateAndTimeTogether)
        return readDateTime(trimmedCell(cells, format_.dateTime), format_.dateTime);
    const QDate date = remembered(dates_, trimmedCell(cells, format_.date), format_.date, readDate);
    if (!date.isValid())
        return {};
    QTime time;
    if (format_.time.index >= 0)
        time = remembered(times_, trimmedCell(cells, format_.time), format_.time, readTime);
    return writtenMoment(date, time);
}

double RowReader::valueOf(const QString& cell, LossIn place, QVector<ReadingLoss>& losses) const
{
    double number = std::numeric_limits<double>::infinity();
    int lost = nothingLost;
    const bool found = findNumber(cell, SignOf::Number, number, &lost);
    if (format_.holdsProfile) {
        bool ok = false;
        const double plain = cell.toDouble(&ok);
        number = ok ? plain : std::numeric_limits<double>::infinity();
        lost = found && !ok ? numberLost : nothingLost;
    }
    if (lost)
        losses.append({place, lossText(cell, number, lost)});
    return number;
}

void RowReader::readProfile(const QString& line, SurveyRow& row) const
{
    QStringList texts;
    profile_.read(line, row.profile, &texts);
    for (const QString& text : qAsConst(texts))
        row.losses.append({LossIn::Profile, text});
}
