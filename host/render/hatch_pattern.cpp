#include "hatch_pattern.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <cmath>

namespace {

bool parseLine(const QString& text, PatternLine& line)
{
    std::vector<double> numbers;
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString& part : parts) {
        bool ok = false;
        numbers.push_back(part.trimmed().toDouble(&ok));
        if (!ok)
            return false;
    }
    if (numbers.size() < 5 || numbers[4] == 0.0)
        return false;
    line.angle = numbers[0] * M_PI / 180.0;
    line.origin = {numbers[1], numbers[2]};
    line.along = numbers[3];
    line.across = numbers[4];
    line.dashes.assign(numbers.begin() + 5, numbers.end());
    return true;
}

// The patterns of all folders, read when first asked for.
class PatternStore {
public:
    const LinePattern* find(const QString& name)
    {
        if (!read_)
            readAll();
        const auto at = patterns_.constFind(name.toUpper());
        return at == patterns_.constEnd() ? nullptr : &at.value();
    }

    void addFolder(const QString& folder)
    {
        folders_ << folder;
        read_ = false;
    }

private:
    void readAll()
    {
        read_ = true;
        QStringList folders = folders_;
        folders << QCoreApplication::applicationDirPath() + QStringLiteral("/pats");
        for (const QString& folder : folders)
            for (const QFileInfo& file : QDir(folder).entryInfoList({QStringLiteral("*.pat")}, QDir::Files, QDir::Name))
                readFile(file.absoluteFilePath());
    }

    void readFile(const QString& path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return;
        for (const LinePattern& pattern : parsePatterns(QString::fromUtf8(file.readAll())))
            if (!patterns_.contains(pattern.name.toUpper()))
                patterns_.insert(pattern.name.toUpper(), pattern);
    }

    bool read_ = false;
    QStringList folders_;
    QHash<QString, LinePattern> patterns_;
};

PatternStore& store()
{
    static PatternStore patterns;
    return patterns;
}

} // namespace

std::vector<LinePattern> parsePatterns(const QString& text)
{
    std::vector<LinePattern> patterns;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& raw : lines) {
        const QString line = raw.section(QLatin1Char(';'), 0, 0).trimmed();
        PatternLine family;
        if (line.startsWith(QLatin1Char('*')))
            patterns.push_back({line.mid(1).section(QLatin1Char(','), 0, 0).trimmed(), {}});
        else if (!patterns.empty() && parseLine(line, family))
            patterns.back().lines.push_back(family);
    }
    return patterns;
}

const LinePattern* findPattern(const QString& name) { return store().find(name); }

void addPatternFolder(const QString& folder) { store().addFolder(folder); }
