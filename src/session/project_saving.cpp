// Writing the project file.
#include "session/project_session.h"

#include "session/project_dialogs.h"
#include "session/project_file.h"

#include <QSaveFile>
#include <QTextCodec>

namespace {

void writeFile(const QString& path, const QByteArray& text)
{
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    file.setDirectWriteFallback(true); // a file may be writable in a folder that is not
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return;
    file.write(text);
    file.commit();
}

} // namespace

void ProjectSession::saveProject()
{
    // An open dialog on purpose: only a file that exists can be chosen here.
    if (projectFile.isEmpty() && projectDialogs())
        projectFile = projectDialogs()->openProjectFile(QString());
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    writeFile(projectFile, projectFileText(*this));
}

void ProjectSession::saveProjectAs()
{
    const QString path = projectDialogs() ? projectDialogs()->saveProjectFile(projectFile) : QString();
    if (path.isEmpty())
        return;
    projectFile = withProjectSuffix(path);
    saveProject();
}
