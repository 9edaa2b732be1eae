#include "reports/docx/docx_template.h"

#include "base/placeholders.h"
#include "reports/docx/package_writer.h"
#include "reports/docx/part_names.h"
#include "reports/docx/picture_bytes.h"
#include "reports/docx/xml_tree.h"
#include "reports/docx/xml_walk.h"

#include <QDebug>

namespace {

/// Names of parts and ids of relationships are URIs and XML names: Word takes a
/// file with other characters for a damaged one.
QString sanitized(const QString& tag, bool (*isAllowed)(QChar))
{
    QString name = tag;
    for (QChar& c : name) {
        if (!isAllowed(c))
            c = QLatin1Char('_');
    }
    return name;
}

bool isPunctuation(QChar c) { return c == QLatin1Char('_') || c == QLatin1Char('-') || c == QLatin1Char('.'); }

bool isAllowedInPath(QChar c) { return isPunctuation(c) || (c.unicode() < 0x80 && c.isLetterOrNumber()); }

bool isAllowedInId(QChar c) { return isPunctuation(c) || c.isLetter() || c.isDigit(); }

} // namespace

/// One save of a template. The template's maps stay as they are, so that a
/// second save hands out the same names again.
class DocxTemplateSave {
public:
    explicit DocxTemplateSave(DocxTemplate* of) : template_(*of) { }

    bool run(const QString& path)
    {
        for (const QString& tag : template_.tags()) {
            if (template_.changedTexts_.contains(tag))
                template_.applyText(tag);
        }
        collectPictures();
        rewriteBlips();
        template_.relationsXml = printRelations();
        template_.contentTypesXml = pictures_.isEmpty() ? QString() : printContentTypes();
        return !template_.relationsXml.isEmpty() && write(path);
    }

private:
    struct NewPicture {
        QString tag;
        bool ofTag = false; ///< else a picture of the body; a tag may be empty
        QString id;
        QString path;
        QPixmap pixmap;
        QByteArray png; ///< the same, where it is known already
    };

    void collectPictures()
    {
        int counter = 0;
        for (auto type = template_.tagTypes.begin(); type != template_.tagTypes.end(); ++type) {
            const QString& tag = type.key();
            const QPixmap pixmap = template_.m_rels_image.value(tag);
            const QByteArray png = fileOf(tag, pixmap);
            if (type.value() != DocxTemplate::Picture || (pixmap.isNull() && png.isEmpty())
                || !template_.changedPictures_.contains(tag))
                continue;
            const QString path = freePath(tag, &counter);
            addPicture({tag, true, freeId(tag), path, pixmap, png});
        }
        for (auto image = template_.newImages.begin(); image != template_.newImages.end(); ++image)
            addPicture({QString(), false, image.key(), template_.newImagePaths.value(image.key()), image.value(), {}});
    }

    /// Empty for a picture that did not come from a PNG file, or was replaced since.
    QByteArray fileOf(const QString& tag, const QPixmap& pixmap) const
    {
        const DocxTemplate::PictureFile file = template_.changedPictures_.value(tag);
        return file.pixmap == pixmap.cacheKey() ? file.bytes : QByteArray();
    }

    void addPicture(const NewPicture& picture)
    {
        ids_.insert(picture.id);
        pictures_.append(picture);
    }

    /// `counter` counts the pictures of this save; names that the template has
    /// from an earlier filling are passed over.
    QString freePath(const QString& tag, int* counter) const
    {
        QString path;
        do {
            const QString name =
                fill(QStringLiteral("tag_image_%1_%2.png"), sanitized(tag, isAllowedInPath), (*counter)++);
            path = fill(QStringLiteral("word/media/%1"), name);
        } while (template_.zip.contains(path));
        return path;
    }

    QString freeId(const QString& tag) const
    {
        QString id;
        int attempt = 0;
        do {
            id = fill(QStringLiteral("rId_tag_%1_%2"), sanitized(tag, isAllowedInId), attempt++);
        } while (template_.relationshipIds_.contains(id) || template_.newImages.contains(id) || ids_.contains(id));
        return id;
    }

    void rewriteBlips()
    {
        for (const NewPicture& picture : pictures_) {
            if (!picture.ofTag)
                continue;
            const QDomElement control = template_.tagElements.value(picture.tag);
            QDomElement blip = docx::firstDescendant(control, "a:blip");
            if (blip.isNull()) {
                qDebug() << "Warning: a:blip element not found for tag" << picture.tag;
                continue;
            }
            blip.setAttribute(QStringLiteral("r:embed"), picture.id);
            docx::removePlaceholderFlag(control);
            qDebug() << "Updated r:embed for tag" << picture.tag << "to" << picture.id;
        }
    }

    bool readPart(const QString& name, const char* notOpened, const char* notParsed, QDomDocument* part) const
    {
        QByteArray bytes;
        if (!template_.zip.read(name, &bytes)) {
            qDebug() << notOpened;
            return false;
        }
        if (!docx::parseXml(bytes, part)) {
            qDebug() << notParsed;
            return false;
        }
        return true;
    }

    QString printRelations() const
    {
        QDomDocument part;
        if (!readPart(template_.relationshipsPart_, "Failed to open relationships file",
                      "Failed to parse relationships file", &part))
            return QString();
        for (const NewPicture& picture : pictures_) {
            QDomElement relationship = part.createElement(QStringLiteral("Relationship"));
            relationship.setAttribute(QStringLiteral("Id"), picture.id);
            relationship.setAttribute(QStringLiteral("Type"), docx::imageRelationshipType());
            relationship.setAttribute(QStringLiteral("Target"),
                                      docx::relativeTarget(template_.mainPart_, picture.path));
            part.documentElement().appendChild(relationship);
        }
        return QString::fromUtf8(docx::printXml(part, 1));
    }

    QString printContentTypes() const
    {
        QDomDocument part;
        if (!readPart(docx::parts::contentTypes(), "Failed to open [Content_Types].xml",
                      "Failed to parse [Content_Types].xml", &part))
            return QString();
        addDefault(part, "png", "image/png");
        addDefault(part, "jpg", "image/jpeg");
        addDefault(part, "jpeg", "image/jpeg");
        return QString::fromUtf8(docx::printXml(part, 1));
    }

    static void addDefault(QDomDocument part, const char* extension, const char* type)
    {
        QDomElement root = part.documentElement();
        const QString name = QStringLiteral("Default");
        const QString attribute = QStringLiteral("Extension");
        QDomElement child = root.firstChildElement(name);
        for (; !child.isNull(); child = child.nextSiblingElement(name)) {
            if (child.attribute(attribute) == QLatin1String(extension))
                return;
        }
        child = part.createElement(name);
        child.setAttribute(attribute, QLatin1String(extension));
        child.setAttribute(QStringLiteral("ContentType"), QLatin1String(type));
        root.appendChild(child);
    }

    bool write(const QString& path) const
    {
        docx::PackageWriter writer;
        if (!writer.open(path))
            return false;
        for (const docx::PackageEntry& entry : template_.zip.entries()) {
            if (!writeEntry(entry, &writer))
                return false;
        }
        for (const NewPicture& picture : pictures_) {
            if (!writePicture(picture, &writer))
                return false;
        }
        return writer.commit();
    }

    bool writeEntry(const docx::PackageEntry& entry, docx::PackageWriter* writer) const
    {
        if (entry.name == template_.mainPart_)
            return writer->add(entry.name, docx::printXml(template_.document, 1), entry.time);
        if (entry.name == template_.relationshipsPart_)
            return writer->add(entry.name, template_.relationsXml.toUtf8(), entry.time);
        if (entry.name == docx::parts::contentTypes() && !template_.contentTypesXml.isEmpty())
            return writer->add(entry.name, template_.contentTypesXml.toUtf8(), entry.time);
        return writer->copy(template_.zip, entry.name, entry.name);
    }

    static bool writePicture(const NewPicture& picture, docx::PackageWriter* writer)
    {
        const QString owner = picture.ofTag ? picture.tag : picture.id;
        qDebug() << "Adding new image file:" << picture.path << (picture.ofTag ? "for tag" : "for rId") << owner;
        const QByteArray bytes = picture.png.isEmpty() ? docx::pngBytes(picture.pixmap) : picture.png;
        if (bytes.isEmpty() || !writer->add(picture.path, bytes)) {
            qDebug() << (picture.ofTag ? "Failed to save image for tag" : "Failed to save image for rId") << owner;
            return false;
        }
        qDebug() << (picture.ofTag ? "Successfully saved image for tag" : "Successfully saved image for rId") << owner;
        return true;
    }

    DocxTemplate& template_;
    QVector<NewPicture> pictures_;
    QSet<QString> ids_;
};

bool DocxTemplate::save(const QString& path) { return valid_ && DocxTemplateSave(this).run(path); }
