#pragma once
// What opening and saving a project asks of the user. The session knows the
// questions; session/forms shows the boxes. Without an installed set every
// question counts as cancelled.

#include "session/connection_parameters.h"

#include <QString>

class ProjectDialogs {
public:
    virtual ~ProjectDialogs() = default;

    /// An existing project file; empty when cancelled.
    virtual QString openProjectFile(const QString& start) = 0;
    /// A name to save under, with the suffix of project files; empty when
    /// cancelled, also by not replacing a file that stands there.
    virtual QString saveProjectFile(const QString& start) = 0;
    /// An existing folder; empty when cancelled.
    virtual QString chooseFolder(const QString& title, const QString& start) = 0;
    /// Lets the user mend the parameters; false when cancelled.
    virtual bool askConnection(ConnectionParameters& parameters) = 0;
    /// A message that the user confirms.
    virtual void tellTrouble(const QString& text) = 0;
};

ProjectDialogs* projectDialogs(); ///< null when none are installed
/// Not owned. Null takes them away.
void setProjectDialogs(ProjectDialogs* dialogs);
