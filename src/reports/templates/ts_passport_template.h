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
    void takeChart(const char* variable, bool withGeology);
    QString savePicture(const QString& name, const QByteArray& png);

    WellRecord well_;
    QMap<QString, QByteArray> pictures_; ///< by variable, as PNG; unpacked they would take more time than all the rest
    QStringList pictureFiles_;           ///< of the document that is being made
    QString spareFolder_;                ///< for pictures that the folder of the run does not take
};
