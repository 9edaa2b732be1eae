#pragma once
// TERVA_AUDIT_LOG: who has changed what in the database, for a period; the
// switch of the log, and its emptying.

#include "database/audit/audit_log_proxy.h"

#include <QDialog>

class QDateTimeEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTableView;
class QTableWidget;

class AuditLogViewerForm : public QDialog {
    Q_OBJECT

public:
    explicit AuditLogViewerForm(QWidget* parent = nullptr);

    void reject() override; ///< not while the log is being read

private:
    QLayout* periodAndButtons();
    QWidget* filters();
    QTableView* logTable();

    void load();
    void showEntry(const QModelIndex& current);
    void switchLogging();
    void emptyLog();
    void nameSwitch();

    AuditLogModel model_;
    AuditLogViewerProxyModel shown_;
    bool busy_ = false;

    QDateTimeEdit* start_ = nullptr;
    QDateTimeEdit* end_ = nullptr;
    QPushButton* switch_ = nullptr;
    QListWidget* groups_ = nullptr;
    QListWidget* operations_ = nullptr;
    QTableView* log_ = nullptr;
    QTableWidget* old_ = nullptr;
    QTableWidget* new_ = nullptr;
    QProgressBar* progress_ = nullptr;
};
