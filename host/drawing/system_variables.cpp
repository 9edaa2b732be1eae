// What ncedGetVar reads: figures of the active drawing, header variables that a
// file brought, and what the host set.
#include "documents.h"
#include "host_access.h"

#include <QFileInfo>
#include <QHash>

namespace {

QHash<QString, QString>& ownVariables()
{
    static QHash<QString, QString> variables;
    return variables;
}

QString number(double value) { return QString::number(value, 'g', 15); }

QString layerName(const NcDbDatabase& database)
{
    const auto* layer = HostAccess::objectAs<NcDbLayerTableRecord>(database.clayer());
    return layer ? layer->getName() : QString();
}

QString fileName(bool folder)
{
    const Document* document = Documents::instance().current();
    if (!document)
        return QString();
    const QFileInfo info(document->fileName());
    if (!folder)
        return info.fileName();
    return document->isUntitled() ? QString() : info.path() + QLatin1Char('/');
}

using Reader = QString (*)(const NcDbDatabase&);
const std::pair<const char*, Reader> kDrawingVariables[] = {
    {"CLAYER", layerName},
    // 1 is the sheet itself, a greater number the view of model space in force.
    {"CVPORT",
     [](const NcDbDatabase& d) {
         const bool sheet = d.currentSpaceId() != HostAccess::data(d).modelSpace
             && !HostAccess::isLiving(HostAccess::data(d).currentViewport);
         return sheet ? QStringLiteral("1") : QStringLiteral("2");
     }},
    {"DIMTXT", [](const NcDbDatabase& d) { return number(d.dimtxt()); }},
    {"DIMSCALE", [](const NcDbDatabase& d) { return number(d.dimscale()); }},
    {"DWGNAME", [](const NcDbDatabase&) { return fileName(false); }},
    {"DWGPREFIX", [](const NcDbDatabase&) { return fileName(true); }},
    {"TILEMODE",
     [](const NcDbDatabase& d) {
         return d.currentSpaceId() == HostAccess::data(d).modelSpace ? QStringLiteral("1") : QStringLiteral("0");
     }},
};

bool headerValue(const NcDbDatabase& database, const QString& name, QString& value)
{
    for (const HeaderVariable& variable : HostAccess::data(database).header) {
        if (variable.name.mid(1).compare(name, Qt::CaseInsensitive) != 0 || variable.groups.empty())
            continue;
        QStringList parts;
        for (const DxfGroup& group : variable.groups)
            parts << group.value.trimmed();
        value = parts.join(QLatin1Char(','));
        return true;
    }
    return false;
}

} // namespace

void setSystemVariable(const QString& name, const QString& value) { ownVariables().insert(name.toUpper(), value); }

bool ncedGetVar(const QString& name, QString& value)
{
    const QString wanted = name.toUpper();
    const NcDbDatabase* database = ncdbHostApplicationServices()->workingDatabase();
    if (wanted == QLatin1String("CMDNAMES")) {
        value = activeCommand();
        return true;
    }
    for (const auto& variable : kDrawingVariables) {
        if (database && wanted == QLatin1String(variable.first)) {
            value = variable.second(*database);
            return true;
        }
    }
    const auto own = ownVariables().constFind(wanted);
    if (own != ownVariables().constEnd()) {
        value = *own;
        return true;
    }
    return database && headerValue(*database, wanted, value);
}
