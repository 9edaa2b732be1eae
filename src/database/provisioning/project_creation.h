#pragma once
// Everything that a new project needs, made in one run: database, schema, the
// project's row, projection, folders and project file.

#include "database/provisioning/server_test.h"

#include <functional>
#include <optional>

class ProjectSession;

struct NewProject {
    QString name;
    QString code;
    QString organization;
    QString description;
    QString projectFile;
    QString workDir;
    QString templateDir;
    QString tempDir;
    QString schemaPath;
    QString proj4Text;
    bool copyTemplates = false;
    bool connectionTested = false;
};

class ProjectCreation {
public:
    /// `session` is the new project's own and holds the tested connection
    /// parameters; the sample templates lie beside its module. `open` opens the finished project; it may be empty.
    ProjectCreation(ProjectSession& session, const NewProject& project, Log log, std::function<void()> open);

    /// Runs the steps one after another, each telling the log what it does and
    /// how it ended. A step that cannot go on ends the run: its text is the
    /// last one, and what was made stays. True when the project stands.
    bool run();

private:
    using Step = bool (ProjectCreation::*)();

    bool takeName();
    bool takeCode();
    bool takeOrganization();
    bool takeDescription();
    bool makeWorkDir();
    bool makeTempDir();
    bool makeTemplateDir();
    bool takeProjectFile();
    bool checkTested();
    bool checkSchema();
    bool announce();
    bool makeDatabase();
    bool laySchema();
    bool connectToIt();
    bool writeProject();
    bool writeFile();
    bool openProject();

    bool takeRequired(const QString& label, const QString& value, QString& target);
    bool makeFolder(const QString& label, const QString& folder, QString& target, const std::function<bool()>& make);
    bool refuseEmpty();
    bool outcome(const std::optional<QString>& error);

    ProjectSession& session_;
    const NewProject project_;
    const Log log_;
    const std::function<void()> open_;
};
