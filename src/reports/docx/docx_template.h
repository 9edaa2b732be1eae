#pragma once
// A Word file whose content controls are filled by tag.

#include "reports/docx/package_reader.h"
#include "reports/docx/word_document.h"

#include <QDomDocument>
#include <QMap>
#include <QPixmap>
#include <QSet>
#include <QStringList>
#include <memory>

/// An open docx with content controls. A customer marks each control with a
/// tag; the control receives a text or a picture. With two controls of one tag
/// the last one counts. Only the main document part is filled, not headers.
///
/// The maps are open to those who build reports: they are read there and
/// changed by the operations below. For the UI thread only.
class DocxTemplate {
public:
    DocxTemplate();
    ~DocxTemplate();
    DocxTemplate(const DocxTemplate&) = delete;
    DocxTemplate& operator=(const DocxTemplate&) = delete;

    /// Opens a template, closing what was open. False for anything that is not
    /// a sound Word file (see docx::PackageReader and docx::WordDocument); the
    /// object is closed then and `fault()` has the reason.
    bool open(const QString& path);
    void close();
    bool isValid() const { return valid_; }
    /// Why the last open() gave false.
    QString fault() const { return fault_; }

    /// All tags in alphabetical order; an empty one stands for the controls
    /// without a tag.
    QStringList tags() const;

    /// Gives a control its value: for a picture the path of an image file, for
    /// any other control the text, which reaches the document at save(). False
    /// for an unknown tag or an image that does not load ("Failed to load
    /// image: " in the debug log).
    bool setTag(const QString& tag, const QString& value);

    /// The same for a picture control and a PNG file that is to be taken as it
    /// is: it is looked through but not unpacked, and stands in no map.
    bool setPngFile(const QString& tag, const QString& path);

    /// Writes the kept text into the first w:t of the control. Further w:t of
    /// it keep their texts. False, and nothing changes, for a control without a
    /// text to replace.
    bool applyText(const QString& tag);

    /// Takes in a picture for the body (see DocxTable::setCellImage). Gives its
    /// relationship id, empty for a null pixmap.
    QString addImage(const QPixmap& pixmap);

    /// Writes the filled document beside `path` and moves it there. The
    /// template stays open. Media that lose their last relationship stay.
    bool save(const QString& path);

    enum TagType { Picture = 1, Text = 2, Other = 3 };

    docx::PackageReader zip;                   ///< the template's file
    QDomDocument document;                     ///< the main part
    QMap<QString, int> tagTypes;               ///< tag to TagType
    QMap<QString, QString> tagAliases;         ///< tag to the control's title
    QMap<QString, QString> tagValues;          ///< tag to its text, or picture's r:embed
    QMap<QString, QDomElement> tagElements;    ///< tag to its w:sdt
    QMap<QString, QString> relationsToTargets; ///< relationship id to image entry
    QMap<QString, QString> targetsToRelations; ///< the reverse
    QMap<QString, QPixmap> m_rels_image;       ///< relationship id, or tag of a replacement
    QMap<QString, QPixmap> newImages;          ///< new relationship id to picture
    QMap<QString, QString> newImagePaths;      ///< new relationship id to entry
    int nextRelation = 1;                      ///< where the search for a new id starts
    QString relationsXml;                      ///< of the last save
    QString contentTypesXml;                   ///< of the last save; empty without pictures

private:
    void readControls();
    void readControl(const QDomElement& control);
    bool readImages(const docx::WordDocument& parts);
    void readRelationshipIds(const QDomDocument& relationships);

    bool valid_ = false;
    QString fault_;
    QString mainPart_;           ///< entry of `document`
    QString relationshipsPart_;  ///< of it
    QSet<QString> changedTexts_; ///< tags set by setTag, so that others stay untouched
    /// A PNG file that a picture was set from, so that it is not packed anew.
    struct PictureFile {
        qint64 pixmap = 0; ///< key of the one that was read of it, that of a null one for none
        QByteArray bytes;
    };
    QMap<QString, PictureFile> changedPictures_; ///< by tag
    QSet<QString> relationshipIds_;              ///< of every type
    std::unique_ptr<docx::ReservedDrawingIds> reservedIds_;

    friend class DocxTemplateSave;
};
