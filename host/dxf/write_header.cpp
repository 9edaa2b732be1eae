// The section of header variables.
#include "writer_parts.h"

namespace {

const QString kOldest = QStringLiteral("AC1021"), kNewest = QStringLiteral("AC1032");

// That of the file that was read, so that what was kept of it is in its place.
QString versionOf(const NcDatabaseData& drawing)
{
    for (const HeaderVariable& variable : drawing.header) {
        QString version = firstValue(variable.groups, 1);
        if (variable.name == QLatin1String("$ACADVER") && version > kOldest && version <= kNewest)
            return version;
    }
    return kOldest;
}

class HeaderWriter {
public:
    explicit HeaderWriter(DxfWriter& out) : out_(out) { }
    DxfWriter& variable(const char* name)
    {
        out_.group(9, QLatin1String(name));
        return out_;
    }

private:
    DxfWriter& out_;
};

bool has(const NcDatabaseData& drawing, const char* name)
{
    for (const HeaderVariable& variable : drawing.header) {
        if (variable.name == QLatin1String(name))
            return true;
    }
    return false;
}

void writeExtents(const FileParts& parts, HeaderWriter& header)
{
    const NcGeExtents nothing{{1e20, 1e20, 1e20}, {-1e20, -1e20, -1e20}};
    const NcGeExtents extents = parts.extents.value_or(nothing);
    header.variable("$EXTMIN").point(10, extents.min);
    header.variable("$EXTMAX").point(10, extents.max);
}

void writeUcs(const NcDatabaseData& drawing, HeaderWriter& header)
{
    NcGePoint3d origin;
    NcGeVector3d x, y, z;
    drawing.ucs.getCoordSystem(origin, x, y, z);
    header.variable("$UCSORG").point(10, origin);
    header.variable("$UCSXDIR").vector(10, x);
    header.variable("$UCSYDIR").vector(10, y);
}

void writeKnown(const FileParts& parts, HeaderWriter& header)
{
    const NcDatabaseData& drawing = parts.drawing;
    const auto* layer = HostAccess::objectAs<NcDbLayerTableRecord>(drawing.currentLayer);
    header.variable("$ACADVER").text(1, versionOf(drawing));
    header.variable("$DWGCODEPAGE").text(3, QStringLiteral("ANSI_1251"));
    // Other readers look for a drawing's own properties here and nowhere else.
    header.variable("$LASTSAVEDBY").text(1, QStringLiteral("Terva"));
    for (const auto& property : drawing.summary.entries()) {
        header.variable("$CUSTOMPROPERTYTAG").text(1, property.first);
        header.variable("$CUSTOMPROPERTY").text(1, property.second);
    }
    header.variable("$CLAYER").text(8, layer && !layer->isErased() ? layer->getName() : QStringLiteral("0"));
    header.variable("$DIMTXT").real(40, drawing.dimtxt);
    header.variable("$DIMSCALE").real(40, drawing.dimscale);
    header.variable("$TILEMODE").integer(70, drawing.currentSpace == drawing.paperSpace ? 0 : 1);
    if (!has(drawing, "$INSUNITS"))
        header.variable("$INSUNITS").integer(70, 6);
    if (!has(drawing, "$MEASUREMENT"))
        header.variable("$MEASUREMENT").integer(70, 1);
    if (!has(drawing, "$TEXTSTYLE"))
        header.variable("$TEXTSTYLE").text(7, QLatin1String(kTextStyle));
    if (!has(drawing, "$LUNITS"))
        header.variable("$LUNITS").integer(70, 2);
    writeExtents(parts, header);
    writeUcs(drawing, header);
}

} // namespace

void writeHeader(FileParts& parts, DxfWriter& out)
{
    HeaderWriter header(out);
    beginSection(out, "HEADER");
    writeKnown(parts, header);
    for (const HeaderVariable& variable : parts.drawing.header) {
        if (variable.name == QLatin1String("$ACADVER"))
            continue;
        out.group(9, variable.name);
        out.groups(variable.groups);
    }
    header.variable("$HANDSEED").handle(5, parts.context.nextHandle());
    endSection(out);
}
