#include "session/forms/project_file_dialogs.h"

#include "session/forms/sql_connection_dialog.h"
#include "session/project_dialogs.h"

#include <QFileDialog>
#include <QMessageBox>
#include <nrx/application.h>
#include <nrx/palettes.h>

namespace {

class ProjectBoxes final : public ProjectDialogs {
public:
    QString openProjectFile(const QString& start) override
    {
        QString selected = filter_;
        return QFileDialog::getOpenFileName(ndsw_ncadMainWnd(), title_, start, filter_, &selected);
    }

    QString saveProjectFile(const QString& start) override
    {
        return QFileDialog::getSaveFileName(ndsw_ncadMainWnd(), title_, start, filter_);
    }

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

private:
    const QString title_ = QStringLiteral("Файл проекта");
    const QString filter_ = QStringLiteral("*.terva");
};

} // namespace

void installProjectDialogs()
{
    static ProjectBoxes boxes;
    setProjectDialogs(&boxes);
}
