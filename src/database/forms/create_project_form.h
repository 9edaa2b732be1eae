#pragma once
// The wizard that makes a new project. It works on a session of its own and
// touches the module's session only when the user wants the finished project
// opened.

#include "database/provisioning/project_creation.h"
#include "session/project_session.h"

#include <QDialog>

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;

class CreateProjectForm : public QDialog {
    Q_OBJECT

public:
    explicit CreateProjectForm(QWidget* parent = nullptr);

    void reject() override; ///< not while a project is being made

private:
    QWidget* buildConnectionPage();
    QWidget* buildDataPage();
    QWidget* buildPathsPage();
    QWidget* buildLogPage();
    QWidget* buildButtons();
    void addFolderRow(QFormLayout* form, const struct FolderRow& row, QLineEdit*& field);
    void fillDefaults();

    void selectSchema();
    void selectProjectFile();
    void goBack();
    void goOn();
    QString missingOn(int page) const;
    void updateButtons();
    void testConnection();
    ConnectionParameters parameters() const;
    bool fieldsAreGood();
    void takeTested();
    void createProject();
    NewProject newProject() const;
    void openCreated();
    void showStep(const QString& text);
    void warn(const QString& text);

    ProjectSession project_;
    QString schemaPath_;
    bool connectionTested_ = false;
    bool creating_ = false;

    QTabWidget* pages_;
    QLineEdit* host_ = nullptr;
    QLineEdit* port_ = nullptr;
    QLineEdit* database_ = nullptr;
    QLineEdit* user_ = nullptr;
    QLineEdit* password_ = nullptr;
    QLineEdit* schema_ = nullptr;
    QPlainTextEdit* proj4_ = nullptr;
    QPlainTextEdit* testLog_ = nullptr;
    QLineEdit* name_ = nullptr;
    QLineEdit* code_ = nullptr;
    QLineEdit* organization_ = nullptr;
    QLineEdit* description_ = nullptr;
    QLineEdit* projectFile_ = nullptr;
    QLineEdit* workDir_ = nullptr;
    QLineEdit* templateDir_ = nullptr;
    QLineEdit* tempDir_ = nullptr;
    QCheckBox* copyTemplates_ = nullptr;
    QPlainTextEdit* log_ = nullptr;
    QCheckBox* openProject_ = nullptr;
    QPushButton* back_ = nullptr;
    QPushButton* next_ = nullptr;
    QPushButton* create_ = nullptr;
    QPushButton* cancel_ = nullptr;
};
