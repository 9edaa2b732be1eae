#pragma once
// Asks for the connection's parameters again when a project cannot connect.

#include "formkit/record_dialog.h"
#include "session/connection_parameters.h"

class SQLConnectionDialog : public formkit::FieldsDialog {
    Q_OBJECT

public:
    explicit SQLConnectionDialog(QWidget* parent = nullptr);

    void setParameters(const ConnectionParameters& parameters);
    ConnectionParameters parameters() const;
};
