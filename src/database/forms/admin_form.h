#pragma once
// TERVA_ADMIN: roles and databases of a server, under an administrator's
// credentials that are entered here. The session's connection plays no part.

#include "database/administration/server_administration.h"

#include <QDialog>

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QTableWidget;

class AdminForm : public QDialog {
    Q_OBJECT

public:
    explicit AdminForm(QWidget* parent = nullptr);

    void reject() override; ///< not while the server is being asked

private:
    enum Column { Name, Owner, Tables, Rows, Audit }; ///< of the databases

    QLayout* rolesPage();
    QLayout* databasesPage();

    void connectToServer();
    void showStatus(bool connected);
    void fillLists();
    void fillRoles();
    void fillDatabases();
    void showSelection();

    void createRole();
    void deleteRole();
    void deleteDatabase();
    void grantAll();
    void setOwner();
    void switchAudit();

    QString role() const;     ///< the selected one; empty without
    QString database() const; ///< the same
    QString databaseCell(Column column) const;
    bool needsConnection();
    bool needsRoleAndDatabase();
    void refuse(const QString& text);
    void tellFailure(const QString& message);
    bool succeeded(const Refusal& refusal);

    ServerAdministration server_;
    bool busy_ = false;

    QLineEdit* host_ = nullptr;
    QLineEdit* port_ = nullptr;
    QLineEdit* user_ = nullptr;
    QLineEdit* password_ = nullptr;
    QLabel* status_ = nullptr;
    QListWidget* roles_ = nullptr;
    QLineEdit* newName_ = nullptr;
    QLineEdit* newPassword_ = nullptr;
    QTableWidget* databases_ = nullptr;
    QGroupBox* operations_ = nullptr;
    QLabel* selectedRole_ = nullptr;
};
