// Header variables.
#include "reader_parts.h"

#include "text_coding.h"

namespace {

// Said by the drawing itself, or made anew with each file.
const char* const kTold[] = {"$HANDSEED", "$DWGCODEPAGE",       "$CLAYER",         "$DIMTXT",     "$DIMSCALE",
                             "$UCSORG",   "$UCSXDIR",           "$UCSYDIR",        "$EXTMIN",     "$EXTMAX",
                             "$TILEMODE", "$CUSTOMPROPERTYTAG", "$CUSTOMPROPERTY", "$LASTSAVEDBY"};

// Variables of files before R2000 that still mean the same.
const char* const kOldKept[] = {"$ACADVER",  "$INSBASE", "$LTSCALE",  "$TEXTSIZE", "$PDMODE",   "$PDSIZE",   "$LUNITS",
                                "$LUPREC",   "$AUNITS",  "$AUPREC",   "$ANGBASE",  "$ANGDIR",   "$LIMMIN",   "$LIMMAX",
                                "$FILLMODE", "$ATTMODE", "$MIRRTEXT", "$TRACEWID", "$PLINEWID", "$ELEVATION"};

template <size_t n>
bool isOneOf(const QString& name, const char* const (&names)[n])
{
    for (const char* candidate : names) {
        if (name == QLatin1String(candidate))
            return true;
    }
    return false;
}

NcGePoint3d pointOf(const DxfGroups& groups)
{
    DxfFields fields(groups);
    return fields.point(10);
}

NcGeVector3d axis(const DxfDocument& document, const char* name, const NcGeVector3d& fallback)
{
    const DxfHeaderVariable* variable = document.headerVariable(QLatin1String(name));
    const NcGeVector3d read = variable ? pointOf(variable->groups).asVector() : fallback;
    return read.length() > 0.0 ? read : fallback;
}

void readUcs(const DxfDocument& document, NcDbDatabase& database)
{
    const DxfHeaderVariable* origin = document.headerVariable(QStringLiteral("$UCSORG"));
    const NcGeVector3d x = axis(document, "$UCSXDIR", {1, 0, 0}), y = axis(document, "$UCSYDIR", {0, 1, 0});
    const NcGeVector3d z = x.crossProduct(y);
    if (z.length() > 0.0)
        HostAccess::data(database).ucs.setCoordSystem(origin ? pointOf(origin->groups) : NcGePoint3d(), x, y, z);
}

double realVariable(const DxfDocument& document, const char* name, double fallback)
{
    const DxfHeaderVariable* variable = document.headerVariable(QLatin1String(name));
    return variable ? realOf(firstValue(variable->groups, 40), fallback) : fallback;
}

void readSummary(const DxfDocument& document, NcDbDatabaseSummaryInfo& summary)
{
    QString key;
    for (const DxfHeaderVariable& variable : document.header) {
        if (variable.groups.empty())
            continue;
        const QString value = fromCaretCoding(variable.groups.front().value);
        if (variable.name == QLatin1String("$CUSTOMPROPERTYTAG"))
            key = value;
        else if (variable.name == QLatin1String("$CUSTOMPROPERTY"))
            summary.addCustomSummaryInfo(key, value);
    }
}

} // namespace

void readHeader(const DxfDocument& document, NcDbDatabase& database)
{
    NcDatabaseData& drawing = HostAccess::data(database);
    const bool old = document.version() < QLatin1String("AC1015");
    for (const DxfHeaderVariable& variable : document.header) {
        const bool kept = !old || isOneOf(variable.name, kOldKept);
        if (kept && !isOneOf(variable.name, kTold))
            drawing.header.push_back({variable.name, variable.groups});
    }
    drawing.dimtxt = realVariable(document, "$DIMTXT", drawing.dimtxt);
    drawing.dimscale = realVariable(document, "$DIMSCALE", drawing.dimscale);
    readUcs(document, database);
    readSummary(document, drawing.summary);
}

void readHeaderReferences(const DxfDocument& document, NcDbDatabase& database)
{
    NcDatabaseData& drawing = HostAccess::data(database);
    if (const DxfHeaderVariable* layer = document.headerVariable(QStringLiteral("$CLAYER"))) {
        const QString name = fromCaretCoding(firstValue(layer->groups, 8));
        drawing.currentLayer = HostAccess::recordId(database, drawing.layerTable, name);
    }
    const DxfHeaderVariable* mode = document.headerVariable(QStringLiteral("$TILEMODE"));
    const bool paper = mode && integerOf(firstValue(mode->groups, 70), 1) == 0;
    drawing.currentSpace = HostAccess::recordId(
        database, drawing.blockTable, paper ? QStringLiteral("*Paper_Space") : QStringLiteral("*Model_Space"));
}
