// Writing the project file.
#include "session/project_session.h"

#include "base/placeholders.h"
#include "files/written_file.h"
#include "hostkit/console.h"
#include "session/project_dialogs.h"
#include "session/project_file.h"

#include <QFileInfo>
#include <QTextCodec>

// A file that cannot be had is passed over in silence; one that is lost while it
// is written is not.
bool ProjectSession::saveProject()
{
    // An open dialog on purpose: only a file that exists can be chosen here.
    if (projectFile.isEmpty() && projectDialogs())
        projectFile = projectDialogs()->openProjectFile(QString());
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    if (projectFile.isEmpty())
        return false;
    // The password stands in it.
    WrittenFile::Options options = WrittenFile::Text | WrittenFile::Private;
    QString problem;
    if (saveFile(projectFile, projectFileText(*this), &problem, options))
        return true;
    if (QFileInfo(projectFile).isWritable())
        say(fill(QStringLiteral("\nФайл проекта %1 не записан: %2\n"), projectFile, problem));
    return false;
}

void ProjectSession::saveProjectAs()
{
    const QString path = projectDialogs() ? projectDialogs()->saveProjectFile(projectFile) : QString();
    if (path.isEmpty())
        return;
    projectFile = withProjectSuffix(path);
    saveProject();
}
