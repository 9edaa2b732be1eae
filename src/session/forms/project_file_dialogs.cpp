#include "session/forms/project_file_dialogs.h"

#include "base/placeholders.h"
#include "session/forms/sql_connection_dialog.h"
#include "session/project_dialogs.h"
#include "session/project_file.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <nrx/application.h>
#include <nrx/palettes.h>

namespace {

const QString title = QStringLiteral("Файл проекта");
const QString filter = QStringLiteral("*.terva");

// The file dialog has asked for the name as it was typed only.
bool mayReplace(QWidget* parent, const QString& path)
{
    const QString question = fill(QStringLiteral("Файл '%1' уже существует.\nЗаменить его?"), path);
    return QMessageBox::question(parent, QStringLiteral("Внимание"), question) == QMessageBox::Yes;
}

class ProjectBoxes final : public ProjectDialogs {
public:
    QString openProjectFile(const QString& start) override
    {
        QString selected = filter;
        return QFileDialog::getOpenFileName(ndsw_ncadMainWnd(), title, start, filter, &selected);
    }

    QString saveProjectFile(const QString& start) override { return askNewProjectFile(ndsw_ncadMainWnd(), start); }

    QString chooseFolder(const QString& title, const QString& start) override
    {
        return QFileDialog::getExistingDirectory(ndsw_ncadMainWnd(), title, start, QFileDialog::ShowDirsOnly);
    }

    bool askConnection(ConnectionParameters& parameters) override
    {
        QWinWidget window(ndsw_ncadMainWnd());
        window.showCentered();
        SQLConnectionDialog dialog(&window);
        dialog.setParameters(parameters);
        if (dialog.exec() != QDialog::Accepted)
            return false;
        parameters = dialog.parameters();
        return true;
    }

    void tellTrouble(const QString& text) override
    {
        QMessageBox::information(ndsw_ncadMainWnd(), QStringLiteral("Внимание"), text, QMessageBox::Ok);
    }
};

} // namespace

QString askNewProjectFile(QWidget* parent, const QString& start)
{
    QString selected = filter;
    const QString typed = QFileDialog::getSaveFileName(parent, title, start, filter, &selected);
    const QString path = withProjectSuffix(typed);
    const bool unasked = path != typed && QFileInfo::exists(path);
    return unasked && !mayReplace(parent, path) ? QString() : path;
}

void installProjectDialogs()
{
    static ProjectBoxes boxes;
    setProjectDialogs(&boxes);
}
