#include "scenario.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace {

QString root() { return QStringLiteral(TERVA_SOURCE_DIR "/tests/scenario"); }

bool isTemplate(const QString& path)
{
    return path.endsWith(QLatin1String(".terva")) || path.endsWith(QLatin1String(".script"));
}

bool layFile(const QString& source, const QString& target, const Variables& variables)
{
    QDir().mkpath(QFileInfo(target).path());
    QFile::remove(target);
    if (!isTemplate(source))
        return QFile::copy(source, target);
    QFile file(target);
    return file.open(QIODevice::WriteOnly) && file.write(readText(source, variables).toUtf8()) >= 0;
}

bool layFolder(const QString& source, const QString& target, const Variables& variables)
{
    QDirIterator files(source, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    bool good = true;
    while (files.hasNext()) {
        const QString path = files.next();
        good = layFile(path, target + path.mid(source.size()), variables) && good;
    }
    return good;
}

void takeSetting(ScenarioSettings& settings, const QString& line)
{
    const QString word = line.section(QLatin1Char(' '), 0, 0);
    const QString value = line.section(QLatin1Char(' '), 1);
    if (word == QLatin1String("exit"))
        settings.exitCode = value.toInt();
    else if (word == QLatin1String("stderr"))
        settings.onStderr.append(value);
    else if (word == QLatin1String("unchanged"))
        settings.unchanged.append(value);
    else if (word == QLatin1String("missing"))
        settings.missing.append(value);
    else if (word == QLatin1String("lacks"))
        settings.lacking.append(value);
    else if (word == QLatin1String("mode"))
        settings.modes.append(value);
    else if (line == QLatin1String("database empty"))
        settings.database = ScenarioSettings::Database::Empty;
    else if (line == QLatin1String("database none"))
        settings.database = ScenarioSettings::Database::None;
    else
        settings.unknown.append(line);
}

} // namespace

QStringList scenarioNames()
{
    QStringList names;
    for (const QString& name : QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (QFile::exists(scenarioFolder(name) + QStringLiteral("/scenario.script")))
            names.append(name);
    }
    return names;
}

QString scenarioFolder(const QString& name) { return root() + QLatin1Char('/') + name; }

ScenarioSettings readSettings(const QString& name)
{
    ScenarioSettings settings;
    for (const QString& line :
         readText(scenarioFolder(name) + QStringLiteral("/settings"), {}).split(QLatin1Char('\n')))
        if (!line.trimmed().isEmpty())
            takeSetting(settings, line.trimmed());
    return settings;
}

bool wantsPlayer(const QString& name)
{
    return readText(scenarioFolder(name) + QStringLiteral("/scenario.script"), {})
        .startsWith(QLatin1String("# player"));
}

QString expand(QString text, const Variables& variables)
{
    for (auto variable = variables.begin(); variable != variables.end(); ++variable)
        text.replace(QStringLiteral("${") + variable.key() + QLatin1Char('}'), variable.value());
    return text;
}

QString readText(const QString& path, const Variables& variables)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? expand(QString::fromUtf8(file.readAll()), variables) : QString();
}

QString readStatements(const QString& path, const Variables& variables)
{
    static const QRegularExpression include(QStringLiteral("^-- include (\\S+)$"), QRegularExpression::MultilineOption);
    QString text = readText(path, variables);
    for (auto found = include.match(text); found.hasMatch(); found = include.match(text))
        text.replace(
            found.capturedStart(), found.capturedLength(),
            readText(scenarioFolder(QStringLiteral("common")) + QLatin1Char('/') + found.captured(1), variables));
    return text;
}

bool layFiles(const QString& name, const QString& folder, const Variables& variables)
{
    const QString files = QStringLiteral("/files");
    return layFolder(scenarioFolder(QStringLiteral("common")) + files, folder, variables)
        && layFolder(scenarioFolder(name) + files, folder, variables);
}
