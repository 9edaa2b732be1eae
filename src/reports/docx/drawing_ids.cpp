#include "reports/docx/drawing_ids.h"

#include "reports/docx/xml_walk.h"

#include <QHash>
#include <QXmlStreamReader>

namespace docx {
namespace {

/// How many open templates reserve an id.
QHash<qint64, int>& reservations()
{
    static QHash<qint64, int> counts;
    return counts;
}

} // namespace

bool isDrawingProperties(const QDomElement& element) { return element.tagName().endsWith(QLatin1String(":docPr")); }

DrawingIds drawingIds(const QDomElement& root)
{
    DrawingIds ids;
    forEachElement(root, [&ids](const QDomElement& element) {
        if (isDrawingProperties(element))
            ids.insert(element.attribute(QStringLiteral("id")).toLongLong());
    });
    return ids;
}

DrawingIds drawingIds(const QByteArray& xml)
{
    DrawingIds ids;
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement
            && reader.qualifiedName().endsWith(QLatin1String(":docPr")))
            ids.insert(reader.attributes().value(QLatin1String("id")).toLongLong());
    }
    return ids;
}

ReservedDrawingIds::ReservedDrawingIds(const DrawingIds& ids) : ids_(ids)
{
    for (const qint64 id : ids_)
        ++reservations()[id];
}

ReservedDrawingIds::~ReservedDrawingIds()
{
    for (const qint64 id : ids_) {
        if (--reservations()[id] == 0)
            reservations().remove(id);
    }
}

qint64 nextDrawingId()
{
    static qint64 last = 0;
    do {
        last = last < largestDrawingId ? last + 1 : 1;
    } while (reservations().contains(last));
    return last;
}

} // namespace docx
