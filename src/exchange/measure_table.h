// The table of an import: one row a candidate measure. It owns the measures,
// lets them be mended cell by cell and says of each whether it can be imported.
#pragma once

#include "exchange/element_scope.h"
#include "exchange/import_family.h"
#include "exchange/measure_import.h"
#include "exchange/reading_loss.h"
#include "exchange/work_step.h"

#include <QAbstractTableModel>
#include <memory>
#include <vector>

/// What the label under the table counts.
struct ImportSummary {
    int total = 0;
    int withoutData = 0;
    int verified = 0; ///< complete and with data; the next three divide them
    int valid = 0;
    int warnings = 0;
    int errors = 0;
};

/// A candidate as the file gave it.
struct ReadMeasure {
    std::unique_ptr<BaseMeasure> measure;
    QVector<ReadingLoss> losses;
};

class MeasureTable : public QAbstractTableModel {
    Q_OBJECT

public:
    using Measures = std::vector<ReadMeasure>;

    explicit MeasureTable(const ImportFamily& family, QObject* parent = nullptr);
    ~MeasureTable() override;

    void clear();
    /// Replaces the rows; each measure is checked. False when the step has stopped it:
    /// the table is empty then.
    bool setMeasures(Measures measures, const ElementScope& scope, const WorkStep& step = {});
    /// Lists that were changed while the table stands. An id that a list lost
    /// is cleared.
    void setLists(const MeasureLists& lists);

    // --- one value for all rows: what the step answers stops nothing --------------
    void giveCycle(int id, const WorkStep& step = {}) { giveId(ImportContent::Cycle, id, step); }
    void giveDevice(int id, const WorkStep& step = {}) { giveId(ImportContent::Device, id, step); }
    void givePerformer(int id, const WorkStep& step = {}) { giveId(ImportContent::Performer, id, step); }
    /// The cells show the text; one that is no number changes nothing.
    void giveValue(const QString& text, const WorkStep& step = {});

    // --- what is read off ----------------------------------------------------------
    std::vector<ImportCandidate> candidates() const;
    ImportSummary summary() const;
    QString summaryText() const;
    /// The unchecked rows, cells joined by tabs, each row ended by a line feed; those before
    /// the row at which the step stopped it.
    QString uncheckedText(const WorkStep& step = {}) const;

    // --- model -----------------------------------------------------------------------
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    struct Row {
        std::unique_ptr<BaseMeasure> measure;
        bool importable = false; ///< complete and with data
        bool checked = false;
        QString status;
        QString value; ///< as shown
        QVector<ReadingLoss> losses;
    };

    void giveId(ImportContent content, int id, const WorkStep& step);
    bool evaluateAll(std::vector<Row>& rows, const WorkStep& step);
    bool readAhead(const std::vector<Row>& rows, const WorkStep& step);
    void evaluate(Row& row);
    bool hasData(const BaseMeasure& measure) const;
    bool takeId(BaseMeasure& measure, ImportContent content, int id) const;
    bool takeLists(BaseMeasure& measure, const MeasureLists& lists) const;
    static bool takeValue(Row& row, const QString& text);
    template <class Change>
    void changeAll(Change change, const WorkStep& step);
    ImportContent contentOf(const QModelIndex& index) const;
    QVariant shown(const Row& row, ImportContent content) const;
    static QString tip(const Row& row, ImportContent content);
    QVariant held(const Row& row, ImportContent content) const;

    const ImportFamily& family_;
    ElementScope scope_;
    StoredCriteria criteria_;
    std::vector<Row> rows_;
};
