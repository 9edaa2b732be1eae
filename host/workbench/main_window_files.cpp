// What the window does with files.
#include "busy_box.h"
#include "desk_state.h"
#include "drawing_keeper.h"
#include "main_window.h"
#include "recent_files.h"
#include "start_page.h"

#include <drawing/documents.h>
#include <dxf/drawing_file.h>
#include <render/picture_export.h>

#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>

namespace {

const QString kOpened = QStringLiteral("Чертежи (*.dxf *.dwg);;Все файлы (*)");
const QString kSaved = QStringLiteral("Чертёж DXF (*.dxf);;Рабочий чертёж (*.dwg);;Все файлы (*)");
const QString kPictures =
    QStringLiteral("Рисунок PNG (*.png);;Документ PDF (*.pdf);;Векторный рисунок SVG (*.svg);;Чертёж DXF (*.dxf)");
const QString kScripts = QStringLiteral("Сценарии (*.script);;Все файлы (*)");
const QString kDrawingKind = QStringLiteral("drawings"), kPictureKind = QStringLiteral("pictures");
const QString kScriptKind = QStringLiteral("scripts");
const QString kRecentKey = QStringLiteral("recent");

} // namespace

QString MainWindow::askToOpen(const QString& title, const QString& filters, const QString& kind)
{
    QString path = QFileDialog::getOpenFileName(this, title, rememberedFolder(*settings_, kind), filters);
    if (!path.isEmpty())
        rememberFolder(*settings_, kind, path);
    return path;
}

// The chosen kind of file gives the suffix that was not typed.
QString MainWindow::askToSave(const QString& title, const QString& filters, const QString& kind, const QString& start)
{
    const QFileInfo proposed(start);
    QFileDialog dialog(this, title, proposed.isAbsolute() ? proposed.path() : rememberedFolder(*settings_, kind),
                       filters);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    const auto takeSuffix = [&dialog](const QString& filter) {
        const QString suffix = filter.section(QStringLiteral("(*."), 1).section(QLatin1Char(')'), 0, 0);
        dialog.setDefaultSuffix(suffix);
    };
    connect(&dialog, &QFileDialog::filterSelected, this, takeSuffix);
    takeSuffix(dialog.selectedNameFilter());
    dialog.selectFile(proposed.fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    rememberFolder(*settings_, kind, dialog.selectedFiles().first());
    return dialog.selectedFiles().first();
}

void MainWindow::tell(const QString& text) { prompts_.console().line(text); }

void MainWindow::newDrawing()
{
    if (!isOk(ncDocManagerPtr()->appContextNewDocument(QStringLiteral("Default.dwt"))))
        ncDocManagerPtr()->appContextNewDocument(QString());
}

// What another user has open is opened as a copy, when the user wants that.
bool MainWindow::openDrawing(const QString& path)
{
    const bool alreadyHere = Documents::instance().find(path) != nullptr;
    const QString holder = alreadyHere ? QString() : keeper_->lock(path);
    bool opened = false, cancelled = false;
    const auto busily = [&](const std::function<NcStatus()>& open) {
        const BusyBox busy(this, QStringLiteral("Открытие чертежа"));
        opened = isOk(open());
        cancelled = busy.cancelled();
    };
    if (!holder.isEmpty()) {
        QMessageBox question(QMessageBox::Question, QStringLiteral("Открыть"),
                             QStringLiteral("Чертёж %1 открыт в другой программе:\n%2.\n\nОткрыть его копию?")
                                 .arg(QFileInfo(path).fileName(), holder),
                             QMessageBox::NoButton, this);
        QAbstractButton* copy = question.addButton(QStringLiteral("Открыть копию"), QMessageBox::AcceptRole);
        question.addButton(QMessageBox::Cancel);
        question.exec();
        if (question.clickedButton() != copy)
            return false;
        busily([&] { return Documents::instance().openCopy(path, QFileInfo(path).fileName(), true); });
    } else {
        busily([&] { return ncDocManagerPtr()->appContextOpenDocument(path); });
    }
    if (!opened) {
        keeper_->unlock(path);
        if (cancelled)
            tell(QStringLiteral("Открытие отменено: ") + path);
        else
            QMessageBox::warning(this, QStringLiteral("Открыть"),
                                 QStringLiteral("Чертёж не открывается:\n") + path + QLatin1Char('\n')
                                     + drawingFault());
        return false;
    }
    noteRecent(path);
    return true;
}

void MainWindow::openProject(const QString& path)
{
    if (!activeCommand().isEmpty())
        return tell(QStringLiteral("Сначала завершите команду, которая выполняется."));
    leaveStartPage();
    runLine(QStringLiteral("OPENPROJECT \"%1\"").arg(path));
}

// By the suffix, as a file manager hands it over.
void MainWindow::openFile(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("terva"))
        return openProject(path);
    if (suffix != QLatin1String("script")) {
        openDrawing(path);
        return;
    }
    const QString wrong = playScript(path, {}, 60.0);
    if (!wrong.isEmpty())
        QMessageBox::warning(this, QStringLiteral("Исполнить сценарий"), wrong);
}

void MainWindow::chooseDrawing()
{
    const QString path = askToOpen(QStringLiteral("Открыть"), kOpened, kDrawingKind);
    if (!path.isEmpty())
        openDrawing(path);
}

bool MainWindow::saveDrawing(NcApDocument* given, bool askName)
{
    auto* document = static_cast<Document*>(given);
    const QString before = document->fileName();
    QString path = before;
    if (askName || document->isUntitled()) {
        const QFileInfo present(path);
        const QString name = present.completeBaseName() + QStringLiteral(".dxf");
        path = askToSave(QStringLiteral("Сохранить как"), kSaved, kDrawingKind,
                         document->isUntitled() ? name : present.path() + QLatin1Char('/') + name);
    }
    if (path.isEmpty())
        return false;
    const bool heldBefore = keeper_->holds(path);
    const QString holder = keeper_->lock(path);
    QString problem = holder.isEmpty() ? QString() : QStringLiteral("открыт в другой программе: ") + holder;
    bool saved = false, cancelled = false;
    if (holder.isEmpty()) {
        const BusyBox busy(this, QStringLiteral("Сохранение чертежа"));
        saved = isOk(Documents::instance().saveAs(document, path, &problem));
        cancelled = busy.cancelled();
    }
    if (!saved) {
        if (!heldBefore)
            keeper_->unlock(path);
        if (cancelled)
            tell(QStringLiteral("Сохранение отменено: ") + path);
        else
            QMessageBox::warning(this, QStringLiteral("Сохранить"),
                                 QStringLiteral("Чертёж не записан:\n") + path + QLatin1Char('\n') + problem);
        return false;
    }
    if (before != document->fileName())
        keeper_->unlock(before);
    noteRecent(path);
    tell(QStringLiteral("Сохранён чертёж ") + path);
    showTitles();
    return true;
}

void MainWindow::saveCurrent()
{
    if (DrawingView* view = currentView())
        saveDrawing(&view->document(), false);
}

void MainWindow::saveCurrentAs()
{
    if (DrawingView* view = currentView())
        saveDrawing(&view->document(), true);
}

void MainWindow::exportDrawing()
{
    DrawingView* view = currentView();
    if (!view)
        return;
    const QString path = askToSave(QStringLiteral("Экспорт рисунка"), kPictures, kPictureKind,
                                   QFileInfo(view->document().fileName()).completeBaseName() + QStringLiteral(".png"));
    if (path.isEmpty())
        return;
    const auto [wrong, cancelled] = busyWriting(this, QStringLiteral("Экспорт рисунка"),
                                                [&] { return exportPicture(*view->document().database(), path); });
    if (wrong.isEmpty())
        return tell(QStringLiteral("Записан файл ") + path);
    if (cancelled)
        return tell(wrong);
    QMessageBox::warning(this, QStringLiteral("Экспорт рисунка"), wrong);
}

void MainWindow::chooseScript()
{
    const QString path = askToOpen(QStringLiteral("Исполнить сценарий"), kScripts, kScriptKind);
    if (path.isEmpty())
        return;
    const QString wrong = playScript(path, {}, 60.0);
    if (wrong.isEmpty())
        return tell(QStringLiteral("Сценарий исполнен: ") + path);
    QMessageBox::warning(this, QStringLiteral("Исполнить сценарий"), wrong);
}

bool MainWindow::mayClose(Document& document)
{
    if (!document.isModified())
        return mayLeaveNotStored(document);
    const auto answer = QMessageBox::question(this, QStringLiteral("Терва"),
                                              QStringLiteral("Сохранить изменения чертежа ")
                                                  + QFileInfo(document.fileName()).fileName() + QStringLiteral("?"),
                                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    const bool saved = answer == QMessageBox::Save && saveDrawing(&document, false);
    return (saved || answer == QMessageBox::Discard) && mayLeaveNotStored(document);
}

// What was saved lies in the working copy alone; others see what is stored.
bool MainWindow::mayLeaveNotStored(const Document& document)
{
    if (document.isUntitled() || !isDrawingNotStored(document.fileName()))
        return true;
    QMessageBox question(QMessageBox::Question, QStringLiteral("Терва"),
                         QStringLiteral("Чертёж %1 сохранён, но не записан в базу данных. Записывает его команда "
                                        "«Чертёж → база».\n\nЗакрыть его так?")
                             .arg(QFileInfo(document.fileName()).fileName()),
                         QMessageBox::NoButton, this);
    QAbstractButton* close = question.addButton(QStringLiteral("Закрыть"), QMessageBox::AcceptRole);
    question.addButton(QMessageBox::Cancel);
    question.exec();
    return question.clickedButton() == close;
}

void MainWindow::closeTab(int index)
{
    auto* view = qobject_cast<DrawingView*>(tabs_->widget(index));
    if (!view) {
        tabs_->removeTab(index);
        return;
    }
    if (!activeCommand().isEmpty() || !mayClose(view->document()))
        return;
    givenUp_ = &view->document();
    ncDocManagerPtr()->closeDocument(&view->document());
    givenUp_ = nullptr;
}

void MainWindow::noteRecent(const QString& path) { RecentFiles(*settings_, kRecentKey).note(path); }

void MainWindow::fillRecent()
{
    recent_->clear();
    const QStringList paths = RecentFiles(*settings_, kRecentKey).paths();
    for (const QString& path : paths) {
        QAction* action = recent_->addAction(path, this, [this, path] { openDrawing(path); });
        action->setEnabled(QFileInfo::exists(path));
    }
    if (paths.isEmpty())
        recent_->addAction(QStringLiteral("(пусто)"))->setEnabled(false);
}
