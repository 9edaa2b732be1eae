#pragma once
// Small Word files for tests, and looks into written ones.

#include "zip_maker.h"

#include <QByteArray>
#include <QDomDocument>
#include <QMap>
#include <QPixmap>
#include <QRgb>
#include <QString>
#include <QTemporaryDir>

/// A folder of its own for each test.
class Folder {
public:
    QString operator/(const QString& name) const { return dir_.filePath(name); }
    QStringList files() const;

private:
    QTemporaryDir dir_;
};

class DocxMaker {
public:
    explicit DocxMaker(const QByteArray& body = QByteArray());

    DocxMaker& relationship(const QString& id, const QString& typeEnd, const QString& target,
                            const QString& mode = QString());
    DocxMaker& entry(const QString& name, const QByteArray& bytes);
    DocxMaker& declare(const QByteArray& contentTypeXml);
    /// An image part with its relationship.
    DocxMaker& image(const QString& id, const QString& target, const QByteArray& bytes);
    /// Replaces the whole document part.
    DocxMaker& document(const QByteArray& xml);
    /// Adds to the root of the document part, such as a namespace.
    DocxMaker& rootAttributes(const QByteArray& attributes);

    QVector<ZipEntry> entries() const;
    QString write(const QString& path) const;

private:
    QByteArray body_;
    QByteArray document_;
    QByteArray rootAttributes_;
    QByteArray relationships_;
    QByteArray types_;
    QVector<ZipEntry> more_;
};

/// A run-level control: `kind` is the XML in its w:sdtPr behind the tag.
QByteArray control(const QByteArray& tag, const QByteArray& kind, const QByteArray& content);
/// A text control with one run.
QByteArray textControl(const QByteArray& tag, const QByteArray& text);
/// A picture control whose blip has this relationship.
QByteArray pictureControl(const QByteArray& tag, const QByteArray& id);
/// An inline picture.
QByteArray drawing(const QByteArray& id, int docPr);
QByteArray run(const QByteArray& text);
QByteArray paragraph(const QByteArray& content);
QByteArray cell(const QByteArray& text, const QByteArray& properties = QByteArray());
QByteArray row(const QVector<QByteArray>& cells);
QByteArray table(int columns, const QVector<QByteArray>& rows);

/// A picture of one colour in the given format.
QByteArray imageBytes(const char* format, QRgb color = 0xff336699, int side = 8);
/// A pixmap of one colour: the pixels of a new one hold whatever memory held.
QPixmap plainPicture(int side = 4);

/// Entry to bytes of a written file, in QuaZip's eyes.
QMap<QString, QByteArray> unpacked(const QString& path);
/// The document part of a written file.
QByteArray documentPart(const QString& path);
/// The text of all w:t under an element.
QString textOf(const QDomElement& element);
/// All elements of a name in a document.
QVector<QDomElement> elements(const QDomNode& root, const QString& name);
/// The only relationship of this id in a written file's document.
QMap<QString, QString> relationship(const QString& path, const QString& id);
