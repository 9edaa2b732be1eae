#pragma once
// The page "SQL" of the project settings: the connection and the projection.

#include "formkit/field_pane.h"

class QComboBox;
class QPlainTextEdit;
class QPushButton;

class SQLForm : public QWidget {
    Q_OBJECT

public:
    explicit SQLForm(QWidget* parent = nullptr);

    /// Shows what the session and the database hold now.
    void refresh();

private:
    QPushButton* roomy(const QString& name, const QString& caption, void (SQLForm::*slot)());
    void refreshProjection();

    void chooseServerKind(int kind);
    void testConnection();
    void saveParameters();
    void openConnection();
    void saveProjection();
    void updateGeometry();

    formkit::FieldPane* fields_ = nullptr;
    QComboBox* type_ = nullptr;
    QPlainTextEdit* log_ = nullptr;
    QPushButton* save_ = nullptr;
    QPushButton* connect_ = nullptr;
    QPlainTextEdit* proj4_ = nullptr;
    QPushButton* updateGeometry_ = nullptr;
};
