// The stored forecasts, and their deletion.
#pragma once

#include <QDialog>
#include <functional>

class QTableWidget;
class QTableWidgetItem;

class DMPredictionListForm : public QDialog {
    Q_OBJECT

public:
    explicit DMPredictionListForm(QWidget* parent = nullptr);

    bool hasDeleted() const { return deleted_; }

private:
    void refresh();
    void showMenu(const QPoint& place);
    void markRows(const std::function<bool(bool marked)>& change);
    QVector<int> markedIds() const;
    void deleteMarked();

    QTableWidget* table_;
    bool deleted_ = false;
};
