// What the window does with files.
#include "main_window.h"

#include <drawing/documents.h>
#include <dxf/drawing_file.h>
#include <render/picture_export.h>

#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QTabWidget>

namespace {

const QString kDrawings = QStringLiteral("Чертежи (*.dxf *.dwg);;Все файлы (*)");
const QString kRecentKey = QStringLiteral("recent");
constexpr int kMostRecent = 10;

} // namespace

void MainWindow::newDrawing()
{
    if (!isOk(ncDocManagerPtr()->appContextNewDocument(QStringLiteral("Default.dwt"))))
        ncDocManagerPtr()->appContextNewDocument(QString());
}

bool MainWindow::openDrawing(const QString& path)
{
    if (!isOk(ncDocManagerPtr()->appContextOpenDocument(path))) {
        QMessageBox::warning(this, QStringLiteral("Открыть"),
                             QStringLiteral("Чертёж не открывается:\n") + path + QLatin1Char('\n') + drawingFault());
        return false;
    }
    noteRecent(path);
    return true;
}

void MainWindow::chooseDrawing()
{
    const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Открыть"), {}, kDrawings);
    if (!path.isEmpty())
        openDrawing(path);
}

bool MainWindow::saveDrawing(NcApDocument* saved, bool askName)
{
    auto* document = static_cast<Document*>(saved);
    QString path = document->fileName();
    if (askName || document->isUntitled())
        path = QFileDialog::getSaveFileName(this, QStringLiteral("Сохранить как"),
                                            QFileInfo(path).completeBaseName() + QStringLiteral(".dxf"), kDrawings);
    if (path.isEmpty())
        return false;
    QString problem;
    if (!isOk(Documents::instance().saveAs(document, path, &problem))) {
        QMessageBox::warning(this, QStringLiteral("Сохранить"),
                             QStringLiteral("Чертёж не записан:\n") + path + QLatin1Char('\n') + problem);
        return false;
    }
    noteRecent(path);
    showTitles();
    return true;
}

void MainWindow::exportDrawing()
{
    DrawingView* view = currentView();
    if (!view)
        return;
    const QString name = QFileInfo(view->document().fileName()).completeBaseName() + QStringLiteral(".png");
    const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Экспорт рисунка"), name,
                                                      QStringLiteral("Рисунки (*.png *.svg *.pdf);;Чертёж (*.dxf)"));
    if (path.isEmpty())
        return;
    const QString wrong = exportPicture(*view->document().database(), path);
    if (!wrong.isEmpty())
        QMessageBox::warning(this, QStringLiteral("Экспорт рисунка"), wrong);
}

void MainWindow::chooseScript()
{
    const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Исполнить сценарий"), {},
                                                      QStringLiteral("Сценарии (*.txt);;Все файлы (*)"));
    if (path.isEmpty())
        return;
    const QString wrong = playScript(path, {}, 60.0);
    if (!wrong.isEmpty())
        QMessageBox::warning(this, QStringLiteral("Исполнить сценарий"), wrong);
}

bool MainWindow::mayClose(Document& document)
{
    if (!document.isModified())
        return true;
    const auto answer = QMessageBox::question(this, QStringLiteral("Терва"),
                                              QStringLiteral("Сохранить изменения чертежа ")
                                                  + QFileInfo(document.fileName()).fileName() + QStringLiteral("?"),
                                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && saveDrawing(&document, false));
}

void MainWindow::closeTab(int index)
{
    Document& document = static_cast<DrawingView*>(tabs_->widget(index))->document();
    if (activeCommand().isEmpty() && mayClose(document))
        ncDocManagerPtr()->closeDocument(&document);
}

void MainWindow::noteRecent(const QString& path)
{
    QStringList paths = settings_->value(kRecentKey).toStringList();
    const QString absolute = QFileInfo(path).absoluteFilePath();
    paths.removeAll(absolute);
    paths.prepend(absolute);
    settings_->setValue(kRecentKey, QStringList(paths.mid(0, kMostRecent)));
}

void MainWindow::fillRecent()
{
    recent_->clear();
    const QStringList paths = settings_->value(kRecentKey).toStringList();
    for (const QString& path : paths)
        recent_->addAction(path, this, [this, path] { openDrawing(path); });
    if (paths.isEmpty())
        recent_->addAction(QStringLiteral("(пусто)"))->setEnabled(false);
}
