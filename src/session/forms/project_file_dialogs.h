#pragma once
// The boxes that opening and saving a project shows.

class QString;
class QWidget;

/// Asks under which name a project file is to be written; the answer has the
/// suffix of project files. Empty when cancelled.
QString askNewProjectFile(QWidget* parent, const QString& start);

/// From now on the session asks through these boxes. Called once at start.
void installProjectDialogs();
