#include "recent_files.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr int kMost = 10;

QString folderKey(const QString& kind) { return QStringLiteral("folders/") + kind; }

} // namespace

QStringList RecentFiles::paths() const { return settings_.value(kind_).toStringList(); }

void RecentFiles::note(const QString& path)
{
    QStringList all = paths();
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    all.removeAll(absolute);
    all.prepend(absolute);
    settings_.setValue(kind_, QStringList(all.mid(0, kMost)));
}

QString rememberedFolder(QSettings& settings, const QString& kind)
{
    const QString folder = settings.value(folderKey(kind)).toString();
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

void rememberFolder(QSettings& settings, const QString& kind, const QString& file)
{
    settings.setValue(folderKey(kind), QFileInfo(file).absolutePath());
}
