#pragma once
// The measures of a well as a list in which those that a chart shows are ticked.

#include "elements/passports/passport_record.h"

#include <QTableWidget>

class MeasureTicks : public QTableWidget {
    Q_OBJECT

public:
    explicit MeasureTicks(QWidget* parent = nullptr);

    /// Lists the record's measures. Those listed before keep their ticks; of a
    /// first list the last `most` are ticked, all for -1.
    void showMeasures(const PassportRecord& record, int most = -1);
    /// Ids of the ticked measures, in the order of the list.
    QVector<int> ticked() const;
    /// The first text of the row of a measure.
    QString textOf(int measureId) const;

signals:
    void ticksChanged();

private:
    enum class Ticks { All, None, Inverse };
    void tick(Ticks ticks);
    void showMenu(const QPoint& place);
};
