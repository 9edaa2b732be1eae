#pragma once
// Asks for the connection's parameters again when a project cannot connect.

#include "session/connection_parameters.h"

#include <QDialog>

class QLineEdit;

class SQLConnectionDialog : public QDialog {
    Q_OBJECT

public:
    explicit SQLConnectionDialog(QWidget* parent = nullptr);

    void setParameters(const ConnectionParameters& parameters);
    ConnectionParameters parameters() const;

private:
    QLineEdit* host_;
    QLineEdit* port_;
    QLineEdit* database_;
    QLineEdit* user_;
    QLineEdit* password_;
};
