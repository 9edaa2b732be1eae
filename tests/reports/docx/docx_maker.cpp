#include "docx_maker.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <gtest/gtest.h>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>

namespace {

const QByteArray declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
const QByteArray wordType = "application/vnd.openxmlformats-officedocument.wordprocessingml.";

} // namespace

QStringList Folder::files() const { return QDir(dir_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

DocxMaker::DocxMaker(const QByteArray& body) : body_(body)
{
    types_ = "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package."
             "relationships+xml\"/><Default Extension=\"xml\" ContentType=\"application/xml\"/>"
             "<Override PartName=\"/word/document.xml\" ContentType=\""
        + wordType + "document.main+xml\"/>";
}

DocxMaker& DocxMaker::relationship(const QString& id, const QString& typeEnd, const QString& target,
                                   const QString& mode)
{
    relationships_ += "<Relationship Id=\"" + id.toUtf8()
        + "\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/"
          "relationships/"
        + typeEnd.toUtf8() + "\" Target=\"" + target.toUtf8() + "\"";
    if (!mode.isEmpty())
        relationships_ += " TargetMode=\"" + mode.toUtf8() + "\"";
    relationships_ += "/>";
    return *this;
}

DocxMaker& DocxMaker::entry(const QString& name, const QByteArray& bytes)
{
    ZipEntry added;
    added.name = name;
    added.bytes = bytes;
    more_.append(added);
    return *this;
}

DocxMaker& DocxMaker::declare(const QByteArray& contentTypeXml)
{
    types_ += contentTypeXml;
    return *this;
}

DocxMaker& DocxMaker::image(const QString& id, const QString& target, const QByteArray& bytes)
{
    return relationship(id, "image", target).entry("word/" + target, bytes);
}

DocxMaker& DocxMaker::document(const QByteArray& xml)
{
    document_ = xml;
    return *this;
}

DocxMaker& DocxMaker::rootAttributes(const QByteArray& attributes)
{
    rootAttributes_ = attributes;
    return *this;
}

QVector<ZipEntry> DocxMaker::entries() const
{
    QByteArray xml = document_;
    if (xml.isEmpty())
        xml = declaration
            + "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\""
              " xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\""
              " xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/"
              "wordprocessingDrawing\""
              " xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\" "
            + rootAttributes_ + "><w:body>" + body_ + "</w:body></w:document>";
    const auto entry = [](const QString& name, const QByteArray& bytes) {
        ZipEntry made;
        made.name = name;
        made.bytes = bytes;
        return made;
    };
    const QByteArray package = "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/"
                               "2006/relationships\">";
    QVector<ZipEntry> all{
        entry("[Content_Types].xml",
              declaration
                  + "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/"
                    "content-types\">"
                  + types_ + "</Types>"),
        entry("_rels/.rels",
              declaration + package
                  + "<Relationship Id=\"rId1\" Type=\"http://schemas.openxmlformats.org/"
                    "officeDocument/2006/relationships/officeDocument\" "
                    "Target=\"word/document.xml\"/></Relationships>"),
        entry("word/document.xml", xml),
        entry("word/_rels/document.xml.rels", declaration + package + relationships_ + "</Relationships>")};
    return all + more_;
}

QString DocxMaker::write(const QString& path) const
{
    writeFile(path, zipBytes(entries()));
    return path;
}

QByteArray control(const QByteArray& tag, const QByteArray& kind, const QByteArray& content)
{
    return "<w:sdt><w:sdtPr><w:alias w:val=\"title of " + tag + "\"/><w:tag w:val=\"" + tag + "\"/>" + kind
        + "</w:sdtPr><w:sdtContent>" + content + "</w:sdtContent></w:sdt>";
}

QByteArray textControl(const QByteArray& tag, const QByteArray& text) { return control(tag, "<w:text/>", run(text)); }

QByteArray pictureControl(const QByteArray& tag, const QByteArray& id)
{
    return control(tag, "<w:picture/>", drawing(id, 7));
}

QByteArray drawing(const QByteArray& id, int docPr)
{
    const QByteArray picture = "http://schemas.openxmlformats.org/drawingml/2006/picture";
    return "<w:r><w:drawing><wp:inline><wp:extent cx=\"95250\" cy=\"95250\"/><wp:docPr id=\""
        + QByteArray::number(docPr) + "\" name=\"p\"/><a:graphic><a:graphicData uri=\"" + picture
        + "\"><pic:pic xmlns:pic=\"" + picture
        + "\"><pic:nvPicPr><pic:cNvPr id=\"0\" name=\"p\"/><pic:cNvPicPr/></pic:nvPicPr>"
          "<pic:blipFill><a:blip r:embed=\""
        + id
        + "\"/><a:stretch><a:fillRect/></a:stretch></pic:blipFill><pic:spPr><a:xfrm>"
          "<a:off x=\"0\" y=\"0\"/><a:ext cx=\"95250\" cy=\"95250\"/></a:xfrm>"
          "<a:prstGeom prst=\"rect\"><a:avLst/></a:prstGeom></pic:spPr></pic:pic>"
          "</a:graphicData></a:graphic></wp:inline></w:drawing></w:r>";
}

QByteArray run(const QByteArray& text) { return "<w:r><w:t>" + text + "</w:t></w:r>"; }

QByteArray paragraph(const QByteArray& content) { return "<w:p>" + content + "</w:p>"; }

QByteArray cell(const QByteArray& text, const QByteArray& properties)
{
    return "<w:tc><w:tcPr><w:tcW w:w=\"2000\" w:type=\"dxa\"/>" + properties + "</w:tcPr>"
        + paragraph(text.isEmpty() ? QByteArray() : run(text)) + "</w:tc>";
}

QByteArray row(const QVector<QByteArray>& cells)
{
    QByteArray xml;
    for (const QByteArray& one : cells)
        xml += one;
    return "<w:tr>" + xml + "</w:tr>";
}

QByteArray table(int columns, const QVector<QByteArray>& rows)
{
    QByteArray xml = "<w:tbl><w:tblPr/><w:tblGrid>";
    for (int i = 0; i < columns; ++i)
        xml += "<w:gridCol w:w=\"" + QByteArray::number(2000 + i) + "\"/>";
    xml += "</w:tblGrid>";
    for (const QByteArray& one : rows)
        xml += one;
    return xml + "</w:tbl>";
}

QByteArray imageBytes(const char* format, QRgb color, int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format));
    return bytes;
}

QPixmap plainPicture(int side)
{
    QPixmap picture(side, side);
    picture.fill(Qt::gray);
    return picture;
}

QMap<QString, QByteArray> unpacked(const QString& path)
{
    QMap<QString, QByteArray> entries;
    QuaZip zip(path);
    EXPECT_TRUE(zip.open(QuaZip::mdUnzip)) << path;
    for (bool more = zip.goToFirstFile(); more; more = zip.goToNextFile()) {
        QuaZipFile file(&zip);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString name = zip.getCurrentFileName();
        EXPECT_FALSE(entries.contains(name)) << name;
        entries.insert(name, file.readAll());
        file.close();
        EXPECT_EQ(file.getZipError(), 0) << name;
    }
    return entries;
}

QByteArray documentPart(const QString& path)
{
    const auto parts = unpacked(path);
    return parts.value("word/document.xml", parts.value("word/document2.xml"));
}

QString textOf(const QDomElement& element)
{
    QString text;
    for (const QDomElement& one : elements(element, "w:t"))
        text += one.text();
    return text;
}

QVector<QDomElement> elements(const QDomNode& root, const QString& name)
{
    QVector<QDomElement> found;
    for (QDomNode child = root.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (child.nodeName() == name)
            found.append(child.toElement());
        found += elements(child, name);
    }
    return found;
}

QMap<QString, QString> relationship(const QString& path, const QString& id)
{
    QMap<QString, QString> attributes;
    QDomDocument part;
    EXPECT_TRUE(part.setContent(unpacked(path).value("word/_rels/document.xml.rels")));
    for (const QDomElement& one : elements(part, "Relationship")) {
        if (one.attribute("Id") != id)
            continue;
        EXPECT_TRUE(attributes.isEmpty()) << "an id stands twice: " << id;
        for (int i = 0; i < one.attributes().count(); ++i)
            attributes.insert(one.attributes().item(i).nodeName(), one.attributes().item(i).nodeValue());
    }
    return attributes;
}
