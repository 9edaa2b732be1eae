#include "reports/docx/cell_picture.h"

#include "base/xml_text.h"
#include "reports/docx/drawing_ids.h"
#include "reports/docx/word_document.h"
#include "reports/docx/xml_walk.h"

#include <initializer_list>
#include <utility>

namespace docx {
namespace {

constexpr double emuPerInch = 914400;
constexpr double pixelsPerInch = 96;

QString pictureNamespace() { return QStringLiteral("http://schemas.openxmlformats.org/drawingml/2006/picture"); }

using Attributes = std::initializer_list<std::pair<const char*, QString>>;

QDomElement add(QDomElement parent, const char* name, const Attributes& attributes = {})
{
    QDomElement element = parent.ownerDocument().createElement(QLatin1String(name));
    for (const auto& attribute : attributes)
        element.setAttribute(QLatin1String(attribute.first), attribute.second);
    return parent.appendChild(element).toElement();
}

qint64 extent(int pixels) { return qint64(pixels * emuPerInch / pixelsPerInch); }

QDomElement own(QDomElement parent, const char* name)
{
    const QDomElement existing = ownElement(parent, name);
    return existing.isNull() ? add(parent, name) : existing;
}

void addShape(const QDomElement& picture, const QString& width, const QString& height)
{
    const QDomElement shape = add(picture, "pic:spPr");
    const QDomElement frame = add(shape, "a:xfrm");
    add(frame, "a:off", {{"x", QStringLiteral("0")}, {"y", QStringLiteral("0")}});
    add(frame, "a:ext", {{"cx", width}, {"cy", height}});
    add(add(shape, "a:prstGeom", {{"prst", QStringLiteral("rect")}}), "a:avLst");
}

void addPicture(const QDomElement& graphicData, const QString& relationId, const QString& width, const QString& height)
{
    const QDomElement picture = add(graphicData, "pic:pic", {{"xmlns:pic", pictureNamespace()}});
    const QDomElement names = add(picture, "pic:nvPicPr");
    add(names, "pic:cNvPr", {{"id", QStringLiteral("0")}, {"name", QStringLiteral("Picture")}});
    add(names, "pic:cNvPicPr");
    const QDomElement filling = add(picture, "pic:blipFill");
    add(filling, "a:blip", {{"r:embed", relationId}});
    add(add(filling, "a:stretch"), "a:fillRect");
    addShape(picture, width, height);
}

void addDrawing(const QDomElement& run, const QString& relationId, const QString& width, const QString& height)
{
    const QString zero = QStringLiteral("0");
    const QDomElement inlined = add(add(run, "w:drawing"), "wp:inline",
                                    {{"xmlns:wp",
                                      QStringLiteral("http://schemas.openxmlformats.org/drawingml/2006/"
                                                     "wordprocessingDrawing")},
                                     {"distT", zero},
                                     {"distB", zero},
                                     {"distL", zero},
                                     {"distR", zero}});
    add(inlined, "wp:extent", {{"cx", width}, {"cy", height}});
    add(inlined, "wp:docPr", {{"id", QString::number(nextDrawingId())}, {"name", QStringLiteral("Picture")}});
    const QString drawingNamespace = QStringLiteral("http://schemas.openxmlformats.org/drawingml/2006/main");
    const QDomElement graphic = add(inlined, "a:graphic", {{"xmlns:a", drawingNamespace}});
    addPicture(add(graphic, "a:graphicData", {{"uri", pictureNamespace()}}), relationId, width, height);
}

/// The picture's "r:embed" needs the prefix; a document without any reference
/// may lack it.
void declareRelationships(const QDomDocument& document)
{
    QDomElement root = document.documentElement();
    const QString name = QStringLiteral("xmlns:r");
    if (!root.hasAttribute(name))
        root.setAttribute(name, relationshipsNamespace());
}

} // namespace

QDomElement firstParagraph(QDomElement cell) { return own(cell, "w:p"); }

QDomElement firstRun(const QDomElement& cell) { return own(firstParagraph(cell), "w:r"); }

bool putPicture(const QDomElement& cell, const QString& relationId, const QSize& size)
{
    if (cell.isNull() || relationId.isEmpty() || size.width() < 1 || size.height() < 1)
        return false;
    const qint64 width = extent(size.width());
    const qint64 height = extent(size.height());
    if (width < 1 || height < 1)
        return false;
    QDomElement run = firstRun(cell);
    for (const char* name : {"w:t", "w:drawing"}) {
        for (const QDomElement& old : ownElements(run, name))
            run.removeChild(old);
    }
    declareRelationships(run.ownerDocument());
    addDrawing(run, storableInXml(relationId), QString::number(width), QString::number(height));
    return true;
}

} // namespace docx
