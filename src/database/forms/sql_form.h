#pragma once
// The page "SQL" of the project settings: the connection and the projection.

#include "session/connection_parameters.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QVBoxLayout;

class SQLForm : public QWidget {
    Q_OBJECT

public:
    explicit SQLForm(QWidget* parent = nullptr);

    /// Shows what the session and the database hold now.
    void refresh();

private:
    void buildConnection(QVBoxLayout* layout);
    void buildProjection(QVBoxLayout* layout);

    ConnectionParameters parameters() const;
    void putParametersIntoSession() const;
    void refreshProjection();

    void chooseServerKind(int kind);
    void testConnection();
    void saveParameters();
    void openConnection();
    void saveProjection();
    void updateGeometry();

    QComboBox* type_ = nullptr;
    QLineEdit* host_ = nullptr;
    QLineEdit* port_ = nullptr;
    QLineEdit* database_ = nullptr;
    QLineEdit* user_ = nullptr;
    QLineEdit* password_ = nullptr;
    QPlainTextEdit* log_ = nullptr;
    QPushButton* test_ = nullptr;
    QPushButton* save_ = nullptr;
    QPushButton* connect_ = nullptr;
    QPlainTextEdit* proj4_ = nullptr;
    QPushButton* updateGeometry_ = nullptr;
};
