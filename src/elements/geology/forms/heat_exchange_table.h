#pragma once
// The pairs of wind speed and coefficient as two rows; a column a pair.

#include "elements/geology/heat_exchange.h"

#include <QTableWidget>

class HeatExchangeTable : public QTableWidget {
    Q_OBJECT

public:
    explicit HeatExchangeTable(QWidget* parent = nullptr);

    void showPairs(const HeatExchange& pairs);
    HeatExchange pairs() const;
    /// Names the file that an export proposes.
    void setEntryName(const QString& name) { entryName_ = name; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {QTableWidget::minimumSizeHint().width(), sizeHint().height()}; }

signals:
    void edited(); ///< by the user

protected:
    void showEvent(QShowEvent* event) override;

private:
    void showMenu(const QPoint& place);
    void createColumn();
    void deleteColumn();
    void clearPairs();
    void exportFile();
    void importFile();
    void put(const HeatExchange& pairs);
    QString text(int row, int column) const;

    QString entryName_;
    bool showing_ = false;
};
