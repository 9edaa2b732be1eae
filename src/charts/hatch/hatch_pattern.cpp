#include "charts/hatch/hatch_pattern.h"

#include "base/placeholders.h"

#include <QDir>
#include <QFile>
#include <cmath>

namespace {

constexpr qint64 largestFile = 4 * 1024 * 1024;

bool parseLines(const QString& text, HatchLines& lines)
{
    QVector<double> numbers;
    for (const QString& part : text.split(QLatin1Char(','))) {
        bool ok = false;
        numbers.append(part.trimmed().toDouble(&ok));
        if (!ok || !std::isfinite(numbers.last()) || std::abs(numbers.last()) > 1e9)
            return false;
    }
    if (numbers.size() < 5 || numbers[4] == 0.0)
        return false;
    lines = {numbers[0], QPointF(numbers[1], numbers[2]), numbers[3], numbers[4], numbers.mid(5)};
    double period = 0.0;
    for (double dash : lines.dashes)
        period += std::abs(dash);
    return lines.dashes.isEmpty() || period > 0.0;
}

QString textOf(const QString& path)
{
    QFile file(path);
    if (file.size() > largestFile || !file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

bool same(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

bool take(const QVector<HatchPattern>& patterns, const QString& name, bool orFirst, HatchPattern& pattern)
{
    for (const HatchPattern& candidate : patterns) {
        if (same(candidate.name, name)) {
            pattern = candidate;
            return true;
        }
    }
    if (orFirst && !patterns.isEmpty())
        pattern = patterns.first();
    return orFirst && !patterns.isEmpty();
}

} // namespace

bool parseHatchPatterns(const QString& text, QVector<HatchPattern>& patterns, QString& problem)
{
    problem.clear();
    const QStringList rows = text.split(QLatin1Char('\n'));
    bool spoilt = false;
    for (int row = 0; row < rows.size(); ++row) {
        const QString line = rows[row].section(QLatin1Char(';'), 0, 0).trimmed();
        HatchLines lines;
        if (line.startsWith(QLatin1Char('*'))) {
            patterns.append({line.mid(1).section(QLatin1Char(','), 0, 0).trimmed(), {}});
            spoilt = false;
        } else if (!line.isEmpty() && (patterns.isEmpty() || !parseLines(line, lines))) {
            if (problem.isEmpty())
                problem = fill(QStringLiteral("Строка %1 штриховки не разобрана: %2"), row + 1, line.left(60));
            spoilt = true;
            if (!patterns.isEmpty())
                patterns.last().lines.clear();
        } else if (!line.isEmpty() && !spoilt) {
            patterns.last().lines.append(lines);
        }
    }
    return problem.isEmpty();
}

bool readHatchPattern(const QString& folder, const QString& name, HatchPattern& pattern, QString& problem)
{
    pattern = HatchPattern();
    QString stem = name.trimmed();
    if (stem.endsWith(QLatin1String(".pat"), Qt::CaseInsensitive))
        stem.chop(4);
    QDir place(QString(folder).replace(QLatin1Char('\\'), QLatin1Char('/')));
    QString firstProblem;
    // The file of the name goes before all others.
    for (bool ownFile : {true, false}) {
        for (const QFileInfo& file : place.entryInfoList({QStringLiteral("*.pat")}, QDir::Files, QDir::Name)) {
            QVector<HatchPattern> patterns;
            QString bad;
            if (stem.isEmpty() || same(file.completeBaseName(), stem) != ownFile)
                continue;
            parseHatchPatterns(textOf(file.absoluteFilePath()), patterns, bad);
            if (!take(patterns, stem, ownFile, pattern)) {
                firstProblem = firstProblem.isEmpty() && ownFile ? bad : firstProblem;
                continue;
            }
            problem = pattern.isEmpty() && bad.isEmpty() ? fill(QStringLiteral("Штриховка \"%1\" пуста"), name) : bad;
            return !pattern.isEmpty();
        }
    }
    problem = firstProblem.isEmpty() ? fill(QStringLiteral("Штриховка \"%1\" не найдена"), name) : firstProblem;
    return false;
}
