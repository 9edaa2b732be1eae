#include "docx_fuzz.h"

#include "reports/docx/docx_merger.h"
#include "reports/docx/docx_table.h"
#include "reports/docx/docx_template.h"
#include "reports/docx/xml_walk.h"
#include "reports/docx/zip_maker.h"

#include <QTemporaryDir>

namespace {

constexpr int deepest = 200; ///< filling may add some levels to these

QMap<QString, QByteArray> neededParts()
{
    return {{"[Content_Types].xml", "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\"/>"},
            {"word/_rels/document.xml.rels",
             "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"/>"},
            {"word/document.xml", "<w:document xmlns:w=\"w\"><w:body><w:p/></w:body></w:document>"}};
}

int depthOf(const QDomElement& element)
{
    int deepestChild = 0;
    for (QDomElement c = element.firstChildElement(); !c.isNull(); c = c.nextSiblingElement())
        deepestChild = qMax(deepestChild, depthOf(c));
    return deepestChild + 1;
}

QPixmap picture()
{
    QPixmap pixmap(2, 2);
    pixmap.fill(Qt::red);
    return pixmap;
}

void change(DocxTable table, const QString& image)
{
    table.containsTag("t");
    const QDomElement row = table.appendRow();
    table.insertColumn(1);
    table.mergeColumns(0, 0, 1);
    for (int r = 0; r < qMin(4, table.rowCount()); ++r) {
        for (int c = 0; c < qMin(4, table.columnCount()); ++c) {
            table.setCellText(r, c, " value ");
            table.setCellColor(r, c, 1, 2, 3);
        }
        table.setRowAlignment(r, "center");
    }
    table.setCellText(row, 0, "x");
    table.setCellImage(table.cellAt(0, 1), image, QSize(3, 4));
    table.clearCell(row, 1);
    if (table.columnCount() < 50)
        table.appendColumn();
}

void fill(DocxTemplate* docx, const QString& pictureFile)
{
    for (const QString& tag : docx->tags())
        docx->setTag(tag,
                     docx->tagTypes.value(tag) == DocxTemplate::Picture ? pictureFile : QString("<%1>&\x01 ") + tag);
    const QString image = docx->addImage(picture());
    int changed = 0;
    for (const QDomElement& table : docx::descendants(docx->document.documentElement(), "w:tbl")) {
        if (++changed < 4)
            change(DocxTable(table), image);
    }
}

} // namespace

QByteArray fuzzPackage(const QByteArray& input)
{
    if (input.startsWith("PK"))
        return input;
    QMap<QString, QByteArray> parts = neededParts();
    QVector<ZipEntry> entries;
    for (const QByteArray& part : ('\n' + input).split('@')) {
        // "\n@@name\ncontent" leaves an empty piece and then "name\ncontent".
        const int line = part.indexOf('\n');
        const QString name = QString::fromUtf8(part.left(line));
        if (line > 0)
            parts[name] = part.mid(line + 1);
    }
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        ZipEntry entry;
        entry.name = part.key();
        entry.bytes = part.value();
        entry.deflate = false;
        entries.append(entry);
    }
    return zipBytes(entries);
}

QString fuzzOpen(const QByteArray& input)
{
    QTemporaryDir folder;
    const QString source = folder.filePath("a.docx");
    const QString result = folder.filePath("b.docx");
    const QString image = folder.filePath("p.png");
    writeFile(source, fuzzPackage(input));
    picture().save(image);
    DocxTemplate docx;
    if (!docx.open(source))
        return QString();
    const bool shallow = depthOf(docx.document.documentElement()) < deepest;
    fill(&docx, image);
    if (!docx.save(result))
        return shallow ? QString("an opened file is not saved") : QString();
    DocxTemplate again;
    return shallow && !again.open(result) ? QString("a saved file does not open") : QString();
}

QString fuzzMerge(const QByteArray& input)
{
    QTemporaryDir folder;
    const QString fuzzed = folder.filePath("a.docx");
    const QString sound = folder.filePath("b.docx");
    const QString result = folder.filePath("c.docx");
    writeFile(fuzzed, fuzzPackage(input));
    writeFile(sound, fuzzPackage(QByteArray()));
    if (!DocxMerger({sound, fuzzed, sound, fuzzed}).merge(result, true))
        return QString("a bad later file ends the merge");
    DocxTemplate again;
    if (!again.open(result))
        return QString("a merged file does not open");
    if (!DocxMerger({fuzzed, sound}).merge(result, true))
        return QString();
    return again.open(result) ? QString() : QString("a file merged behind does not open");
}
