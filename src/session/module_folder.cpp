#include "session/module_folder.h"

#include <QDir>
#include <QStringList>

QString folderOfModule(const QString& modulePath)
{
    QStringList parts = QDir::toNativeSeparators(modulePath).split(QDir::separator());
    parts.removeLast();
    return parts.join(QDir::separator()) + QDir::separator();
}
