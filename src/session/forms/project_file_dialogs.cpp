#include "session/forms/project_file_dialogs.h"

#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "formkit/modal.h"
#include "session/forms/sql_connection_dialog.h"
#include "session/project_dialogs.h"
#include "session/project_file.h"

using namespace formkit;

namespace {

const QString title = QStringLiteral("Файл проекта");
const QString filter = QStringLiteral("*.terva");

class ProjectBoxes final : public ProjectDialogs {
public:
    QString openProjectFile(const QString& start) override
    {
        return askFileToOpen(ndsw_ncadMainWnd(), {title, filter, start});
    }

    QString saveProjectFile(const QString& start) override { return askNewProjectFile(ndsw_ncadMainWnd(), start); }

    QString chooseFolder(const QString& title, const QString& start) override
    {
        return askFolder(ndsw_ncadMainWnd(), title, start);
    }

    bool askConnection(ConnectionParameters& parameters) override
    {
        OverHost host;
        SQLConnectionDialog dialog(host);
        dialog.setParameters(parameters);
        if (dialog.exec() != QDialog::Accepted)
            return false;
        parameters = dialog.parameters();
        return true;
    }

    void tellTrouble(const QString& text) override { inform(ndsw_ncadMainWnd(), text); }
};

} // namespace

// The box gives the suffix itself and asks before it replaces a file.
QString askNewProjectFile(QWidget* parent, const QString& start)
{
    return withProjectSuffix(askFileToSave(parent, {title, filter, start}));
}

void installProjectDialogs()
{
    static ProjectBoxes boxes;
    setProjectDialogs(&boxes);
}
