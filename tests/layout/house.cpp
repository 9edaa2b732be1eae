#include "layout/house.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace {

QString root() { return QStringLiteral(TERVA_SOURCE_DIR); }

QString textOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

Folder declaredIn(const QString& listsFile)
{
    static const QRegularExpression declaration(
        QStringLiteral("terva_library\\(\\s*(\\w+)\\s+LEVEL\\s+(\\d+)(?:\\s+PLAIN)?(?:\\s+LINKS([^)]*))?\\)"));
    const QRegularExpressionMatch match = declaration.match(textOf(listsFile));
    Folder folder;
    if (!match.hasMatch())
        return folder;
    folder.path = QDir(root() + QStringLiteral("/src")).relativeFilePath(QFileInfo(listsFile).path());
    folder.target = match.captured(1);
    folder.level = match.captured(2).toInt();
    folder.links = match.captured(3).split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    return folder;
}

QStringList includesOf(const QString& text)
{
    static const QRegularExpression include(QStringLiteral("^\\s*#\\s*include\\s*[<\"]([^>\"]+)[>\"]"),
                                            QRegularExpression::MultilineOption);
    QStringList found;
    auto matches = include.globalMatch(text);
    while (matches.hasNext())
        found << matches.next().captured(1);
    return found;
}

} // namespace

QString sourceText(const QString& path) { return textOf(root() + QLatin1Char('/') + path); }

QVector<Folder> foldersOfHouse()
{
    QVector<Folder> folders;
    QDirIterator walk(root() + QStringLiteral("/src"), {QStringLiteral("CMakeLists.txt")}, QDir::Files,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const Folder folder = declaredIn(walk.next());
        if (!folder.target.isEmpty())
            folders << folder;
    }
    return folders;
}

QVector<SourceFile> sourcesBelow(const QString& folder)
{
    QVector<SourceFile> files;
    QDirIterator walk(root() + QLatin1Char('/') + folder, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        const QString text = textOf(path);
        files << SourceFile{QDir(root()).relativeFilePath(path), includesOf(text), text.count(QLatin1Char('\n')), text};
    }
    return files;
}

const Folder* folderOf(const QVector<Folder>& folders, const QString& pathBelowSrc)
{
    const Folder* best = nullptr;
    for (const Folder& folder : folders) {
        if (pathBelowSrc.startsWith(folder.path + QLatin1Char('/'))
            && (!best || folder.path.size() > best->path.size()))
            best = &folder;
    }
    return best;
}
