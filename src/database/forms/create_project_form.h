#pragma once
// The wizard that makes a new project. It works on a session of its own and
// touches the module's session only when the user wants the finished project
// opened.

#include "database/provisioning/project_creation.h"
#include "formkit/field_pane.h"
#include "session/project_session.h"

#include <QDialog>

class QCheckBox;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;

class CreateProjectForm : public QDialog {
    Q_OBJECT

public:
    explicit CreateProjectForm(QWidget* parent = nullptr);

    void reject() override; ///< not while a project is being made

private:
    QLayout* connectionPage();
    void connectControls();
    void fillDefaults();

    QString chooseProjectFile(const QString& now);
    void goBack();
    void goOn();
    QString missingOn(int page) const;
    void updateButtons();
    void testConnection();
    bool fieldsAreGood();
    void createProject();
    NewProject newProject() const;
    void openCreated();
    void showStep(const QString& text);

    ProjectSession project_;
    bool connectionTested_ = false;
    bool creating_ = false;

    QTabWidget* pages_;
    formkit::FieldPane* connection_ = nullptr;
    formkit::FieldPane* data_ = nullptr;
    formkit::FieldPane* paths_ = nullptr;
    QPlainTextEdit* proj4_ = nullptr;
    QPlainTextEdit* testLog_ = nullptr;
    QPlainTextEdit* log_ = nullptr;
    QCheckBox* openProject_ = nullptr;
    QPushButton* back_ = nullptr;
    QPushButton* next_ = nullptr;
    QPushButton* create_ = nullptr;
    QPushButton* cancel_ = nullptr;
};
