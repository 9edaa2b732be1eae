#include "base/file_name.h"

#include <QRegularExpression>

QString plainName(const QString& name)
{
    static const QRegularExpression refused(QStringLiteral(R"re([\<\>\\\/\"\'\:\?\*\|\,\=])re"));
    return QString(name).replace(refused, QStringLiteral(" "));
}
