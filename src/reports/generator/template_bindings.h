#pragma once
// What the editor of templates edits: the tags of a Word file and what each
// receives.

#include "reports/templates/export_template_class.h"
#include "reports/templates/template_description.h"

class TemplateBindings {
public:
    /// A new template of the kind.
    explicit TemplateBindings(const ReportKind& kind);
    /// The template that the object has loaded.
    explicit TemplateBindings(const ExportTemplateClass& loaded);

    /// Reads the tags of a Word file; those that are bound keep what they have.
    /// False, everything as it was, when it does not open: `fault()` tells why.
    bool chooseDocx(const QString& path);
    QString fault() const { return fault_; }
    /// Tags that stand in headers and footers, where nothing is filled.
    const QStringList& tagsOutside() const { return tagsOutside_; }

    /// The place of the Word file in the folder of templates.
    QString copyPath() const;
    bool isCopyThere() const; ///< and is not the chosen file itself
    /// Copies the Word file there, over what stands there; the template then
    /// belongs to the copy.
    bool copyDocx();

    /// Where the description goes: its own place, or for a new template one in
    /// the folder of templates, named after the Word file.
    QString descriptionPath() const;
    bool save(QString* problem = nullptr) const;

    QString name = QStringLiteral("Без имени");
    QString docxPath;
    QVector<Substitution> rows; ///< one a tag, in the order of the tags

private:
    QString documentKey_;
    QString path_; ///< of the description; empty for a new one
    QString fault_;
    QStringList tagsOutside_;
};
