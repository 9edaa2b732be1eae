#pragma once
// A run that makes one document for each of several things, and perhaps one of
// them all.

#include "reports/templates/export_template_class.h"

#include <functional>

class FileSeries {
public:
    /// `mergedName` is the file of all documents, in the folder of the run.
    FileSeries(const ReportParameters& parameters, const QString& mergedName);

    /// Makes the documents one after another: `make` prepares the one of the id
    /// and gives its name, empty when there is no such thing; `write` writes it.
    /// Each is told; what cannot be done is told, and the next goes on.
    ReportOutcome run(const QVector<int>& ids, const std::function<QString(int id)>& make,
                      const std::function<ReportOutcome(const QString& path)>& write);

private:
    void merge() const;
    void tellEnd(int asked) const;

    const ReportParameters& parameters_;
    QString mergedPath_;
    QStringList made_;    ///< in this run
    QStringList present_; ///< all that stand in the folder now, old ones included
};
