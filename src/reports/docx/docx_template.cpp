#include "reports/docx/docx_template.h"

#include "base/placeholders.h"
#include "reports/docx/picture_bytes.h"
#include "reports/docx/xml_walk.h"

#include <QDebug>
#include <QFile>

using docx::firstDescendant;

namespace {

QString childValue(const QDomElement& properties, const char* name)
{
    return properties.firstChildElement(QLatin1String(name)).attribute(QStringLiteral("w:val"));
}

bool hasChild(const QDomElement& element, const char* name)
{
    return !element.firstChildElement(QLatin1String(name)).isNull();
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void sayNotLoaded(const QString& path) { qDebug() << "Failed to load image: " << path; }

} // namespace

DocxTemplate::DocxTemplate() = default;

DocxTemplate::~DocxTemplate() { close(); }

bool DocxTemplate::open(const QString& path)
{
    close();
    fault_.clear();
    docx::WordDocument read;
    if (!zip.open(path) || !read.read(zip)) {
        fault_ = zip.isOpen() ? read.fault : zip.fault();
        close();
        return false;
    }
    document = read.document;
    mainPart_ = read.mainPart;
    relationshipsPart_ = read.relationshipsPart;
    readControls();
    readRelationshipIds(read.relationships);
    if (!readImages(read)) {
        close();
        return false;
    }
    reservedIds_ = std::make_unique<docx::ReservedDrawingIds>(docx::drawingIds(zip, read));
    valid_ = true;
    return true;
}

void DocxTemplate::close()
{
    zip.close();
    document = QDomDocument();
    for (auto* map : {&tagAliases, &tagValues, &relationsToTargets, &targetsToRelations, &newImagePaths})
        map->clear();
    tagTypes.clear();
    tagElements.clear();
    m_rels_image.clear();
    newImages.clear();
    nextRelation = 1;
    relationsXml.clear();
    contentTypesXml.clear();
    changedPictures_.clear();
    for (auto* set : {&changedTexts_, &relationshipIds_})
        set->clear();
    reservedIds_.reset();
    valid_ = false;
}

void DocxTemplate::readControls()
{
    for (const QDomElement& control : docx::descendants(document.documentElement(), "w:sdt"))
        readControl(control);
}

void DocxTemplate::readControl(const QDomElement& control)
{
    const QDomElement properties = control.firstChildElement(QStringLiteral("w:sdtPr"));
    const QDomElement content = control.firstChildElement(QStringLiteral("w:sdtContent"));
    const QString tag = childValue(properties, "w:tag");
    if (tagElements.contains(tag))
        qDebug() << "Of several controls with one tag only the last is filled: " << tag;
    if (hasChild(properties, "w:text")) {
        QString value;
        for (const QDomElement& text : docx::descendants(content, "w:t"))
            value += text.text();
        tagTypes[tag] = Text;
        tagValues[tag] = value;
    } else if (hasChild(properties, "w:picture")) {
        const QDomElement blip = firstDescendant(content, "a:blip");
        tagTypes[tag] = Picture;
        if (!blip.isNull())
            tagValues[tag] = blip.attribute(QStringLiteral("r:embed"));
    } else {
        tagTypes[tag] = Other;
    }
    tagAliases[tag] = childValue(properties, "w:alias");
    tagElements[tag] = control;
}

void DocxTemplate::readRelationshipIds(const QDomDocument& relationships)
{
    for (const QDomElement& relationship : docx::relationshipElements(relationships))
        relationshipIds_.insert(relationship.attribute(QStringLiteral("Id")));
}

bool DocxTemplate::readImages(const docx::WordDocument& parts)
{
    relationsToTargets = parts.images;
    for (auto image = parts.images.begin(); image != parts.images.end(); ++image)
        targetsToRelations[image.value()] = image.key();
    nextRelation = targetsToRelations.size() + 1;

    docx::PixelBudget budget;
    for (auto image = parts.images.begin(); image != parts.images.end(); ++image) {
        QByteArray bytes;
        if (!zip.read(image.value(), &bytes)) {
            qDebug() << "Failed to open image file: " << image.value();
            fault_ = QStringLiteral("a picture is too large or damaged: ") + image.value();
            return false;
        }
        m_rels_image[image.key()] = docx::pngPixmap(bytes, &budget);
    }
    return true;
}

QStringList DocxTemplate::tags() const { return valid_ ? tagTypes.keys() : QStringList(); }

bool DocxTemplate::setTag(const QString& tag, const QString& value)
{
    if (!valid_ || !tagTypes.contains(tag))
        return false;
    if (tagTypes[tag] != Picture) {
        tagValues[tag] = value;
        changedTexts_.insert(tag);
        return true;
    }
    // Not by the path: the toolkit keeps what it read of one, and takes another
    // file of the same length, written there within the second, for the same.
    const QByteArray bytes = bytesOf(value);
    QPixmap pixmap;
    if (!pixmap.loadFromData(bytes)) {
        sayNotLoaded(value);
        return false;
    }
    m_rels_image[tag] = pixmap;
    changedPictures_[tag] = {pixmap.cacheKey(), docx::isPng(bytes) ? bytes : QByteArray()};
    return true;
}

bool DocxTemplate::setPngFile(const QString& tag, const QString& path)
{
    if (!valid_ || tagTypes.value(tag) != Picture)
        return false;
    const QByteArray bytes = bytesOf(path);
    if (!docx::isWholePng(bytes)) {
        sayNotLoaded(path);
        return false;
    }
    m_rels_image.remove(tag);
    changedPictures_[tag] = {QPixmap().cacheKey(), bytes};
    return true;
}

bool DocxTemplate::applyText(const QString& tag)
{
    if (!valid_ || tagTypes.value(tag) == 0)
        return false;
    const QDomElement control = tagElements.value(tag);
    const QDomElement text = firstDescendant(control, "w:t");
    if (!text.firstChild().isText())
        return false;
    docx::setText(text, tagValues.value(tag));
    docx::removePlaceholderFlag(control);
    return true;
}

QString DocxTemplate::addImage(const QPixmap& pixmap)
{
    if (!valid_ || pixmap.isNull())
        return QString();
    QString id;
    do {
        id = fill(QStringLiteral("rId_auto_%1"), nextRelation);
    } while ((relationshipIds_.contains(id) || newImagePaths.contains(id)) && ++nextRelation);

    QString path;
    for (int counter = nextRelation; path.isEmpty(); ++counter) {
        const QString name = fill(QStringLiteral("word/media/image_auto_%1.%2"), counter, "png");
        if (!zip.contains(name) && !newImagePaths.values().contains(name))
            path = name;
    }
    newImages[id] = pixmap;
    newImagePaths[id] = path;
    return id;
}
