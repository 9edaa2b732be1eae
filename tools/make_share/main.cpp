// make_share SYMBOLS FOLDER: writes blocks/<file>.dwg, one block each, and
// Default.dwt into the folder.
#include "block_builder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>

namespace {

int fail(const QString& message)
{
    QTextStream(stderr) << "make_share: " << message << '\n';
    return 1;
}

bool writeBlock(const SymbolSource& symbol, const QString& folder, QString& message)
{
    NcDbDatabase drawing;
    auto& table = *HostAccess::objectAs<NcDbBlockTable>(drawing.blockTableId());
    const NcDbObjectId id = HostAccess::addRecord(table, std::make_unique<NcDbBlockTableRecord>(), symbol.block);
    if (!BlockBuilder(drawing, *HostAccess::objectAs<NcDbBlockTableRecord>(id)).build(symbol, message))
        return false;
    // Somebody who opens the file as a drawing sees the block.
    const NcDbObjectId space = HostAccess::data(drawing).modelSpace;
    HostAccess::addEntity(*HostAccess::objectAs<NcDbBlockTableRecord>(space),
                          std::make_unique<NcDbBlockReference>(NcGePoint3d(), id));
    const NcDbObjectId view = HostAccess::recordId(drawing, drawing.viewportTableId(), QStringLiteral("*Active"));
    auto& active = *HostAccess::objectAs<NcDbViewportTableRecord>(view);
    HostAccess::center(active) = {6.0, 1.0};
    HostAccess::height(active) = 16.0;
    HostAccess::width(active) = 24.0;
    const QString path = folder + QLatin1String("/blocks/") + symbol.file + QLatin1String(".dwg");
    if (isOk(drawing.saveAs(path)))
        return true;
    message = path;
    return false;
}

// Metric, one layer, an empty sheet of the size of a site.
bool writeTemplate(const QString& folder)
{
    NcDbDatabase drawing;
    const NcDbObjectId view = HostAccess::recordId(drawing, drawing.viewportTableId(), QStringLiteral("*Active"));
    auto& active = *HostAccess::objectAs<NcDbViewportTableRecord>(view);
    HostAccess::center(active) = {80.0, 50.0};
    HostAccess::height(active) = 100.0;
    HostAccess::width(active) = 160.0;
    return isOk(drawing.saveAs(folder + QLatin1String("/Default.dwt")));
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return fail(QStringLiteral("make_share SYMBOLS FOLDER"));
    QFile source(arguments[1]);
    if (!source.open(QIODevice::ReadOnly))
        return fail(arguments[1]);
    std::vector<SymbolSource> symbols;
    QString message;
    if (!readSymbols(QString::fromUtf8(source.readAll()), symbols, message))
        return fail(message);
    if (!QDir().mkpath(arguments[2] + QLatin1String("/blocks")) || !writeTemplate(arguments[2]))
        return fail(arguments[2]);
    for (const SymbolSource& symbol : symbols) {
        if (!writeBlock(symbol, arguments[2], message))
            return fail(message);
    }
    return 0;
}
