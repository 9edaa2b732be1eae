#include "formkit/icons.h"

#include "session/project_session.h"

#include <QFileInfo>

namespace formkit {

QIcon icon(const QString& name)
{
    QString path = session().moduleDir + QStringLiteral("icons/") + name + QStringLiteral(".svg");
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return QFileInfo::exists(path) ? QIcon(path) : QIcon();
}

} // namespace formkit
