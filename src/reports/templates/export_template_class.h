#pragma once
// The bridge between a customer's Word file and the data: which of its tags
// receives which variable or fixed text. By itself the plain document; heirs
// know further variables and how the tables of their kind are made.

#include "reports/docx/docx_template.h"
#include "reports/templates/report_kinds.h"
#include "reports/templates/report_parameters.h"

#include <QMap>
#include <QMetaType>
#include <QPixmap>

class DocxTable;

/// How a document ended.
enum class ReportOutcome {
    Made,
    NotOpened,  ///< the Word file of the template
    Stopped,    ///< by the user
    NotWritten, ///< told on the command line
    Missing,    ///< what the document is about is not there; told on the command line
};

class ExportTemplateClass {
public:
    explicit ExportTemplateClass(const ReportKind& kind = reportKind(ReportKey::Common));
    virtual ~ExportTemplateClass();
    ExportTemplateClass(const ExportTemplateClass&) = delete;
    ExportTemplateClass& operator=(const ExportTemplateClass&) = delete;

    const ReportKind& kind() const { return kind_; }

    // --- vocabulary -------------------------------------------------------------
    /// Passes over a variable that is known.
    void registerVariable(const QString& name, const QString& caption, const QString& value, int type);
    /// False for an unknown variable and for one that is no text.
    bool setVariable(const QString& name, const QString& value);
    /// False for an unknown variable and for one that is no picture.
    bool setPicture(const QString& name, const QPixmap& picture);
    /// In the order of their registration.
    const QStringList& variables() const { return order_; }

    // --- templates --------------------------------------------------------------
    /// Lists the templates of this kind in the session's folder.
    void loadTemplateList();
    QMap<int, QString> templateNames() const;
    /// Loads the template at the index; after a failure, which is told, the
    /// one before is loaded again.
    bool selectTemplate(int index);
    void addTemplate(const QString& path, bool select);
    bool loadTemplate(const QString& path);

    // --- documents ----------------------------------------------------------------
    ReportParameters parameters;

    /// One document an element or a position, for kinds that have such.
    virtual ReportOutcome generateAll();
    /// Texts into the controls. A variable wins over a fixed text.
    virtual void fillDocument(DocxTemplate* document);
    /// One document. Nothing is written unless it is whole.
    virtual ReportOutcome exportFile(const QString& path);

    int templateIndex = -1;
    QString templatePath; ///< of the description
    QString templateName;
    QString docxPath;
    quint32 conditions;
    int group;
    QMap<QString, QString> variableCaptions;
    QMap<QString, QString> variableValues;
    QMap<QString, int> variableTypes;
    QMap<QString, QPixmap> variablePictures;
    QMap<QString, QString> substitutions;     ///< tag to variable
    QMap<QString, QString> substitutionTexts; ///< tag to fixed text
    QMap<int, QString> files;                 ///< index to description
    QString documentKey;
    QString documentCaption;

protected:
    /// Reads what the document tells and sets the text variables. Anything but
    /// Made ends the document.
    virtual ReportOutcome prepare();
    /// Makes a table of the Word file into the one of the variable. False when
    /// the user stopped the run.
    virtual bool buildTable(const QString& variable, DocxTable& table, DocxTemplate& document);

    /// Opens, fills and writes one document of what is prepared.
    ReportOutcome writeDocument(const QString& path);
    /// The tag that receives the variable; null when none does.
    QString tagOf(const QString& variable) const;
    /// Whether any tag of the template receives the variable.
    bool isUsed(const QString& variable) const { return !tagOf(variable).isNull(); }

private:
    void setCommonVariables();
    bool fillTables(DocxTemplate& document);

    const ReportKind& kind_;
    QStringList order_;
};

Q_DECLARE_METATYPE(ExportTemplateClass*)

/// On a line of its own.
void sayLine(const QString& text);
