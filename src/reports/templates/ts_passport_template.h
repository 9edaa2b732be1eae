#pragma once
// The passport of a thermal well: one document a well.

#include "reports/templates/export_template_class.h"
#include "reports/templates/well_record.h"

class TSPassportExportTemplate : public ExportTemplateClass {
public:
    TSPassportExportTemplate() : ExportTemplateClass(reportKind(ReportKey::WellPassport)) { }

    ReportOutcome generateAll() override;
    void fillDocument(DocxTemplate* document) override;

protected:
    bool buildTable(const QString& variable, DocxTable& table, DocxTemplate& document) override;

private:
    bool takeWell(int elementId);
    void setNumber(const char* variable, double value);
    QString savePicture(const QString& name, const QPixmap& picture);

    WellRecord well_;
    QStringList pictureFiles_; ///< of the document that is being made
    QString spareFolder_;      ///< for pictures whose names are taken in the folder of the run
};
