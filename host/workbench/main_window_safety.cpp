// Copies of what was not saved, and what is left of a program that crashed.
#include "drawing_keeper.h"
#include "main_window.h"

#include <drawing/documents.h>

#include <QDropEvent>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

namespace {

constexpr int kKeepSeconds = 3 * 60;
const QString kKeepKey = QStringLiteral("keepSeconds"); // the user's own, in the file of settings

} // namespace

int MainWindow::keepMilliseconds() const { return qMax(1, settings_->value(kKeepKey, kKeepSeconds).toInt()) * 1000; }

void MainWindow::keepCopies()
{
    keepTimer_.start(keepMilliseconds());
    // A command may hold its objects half changed: it ends first.
    if (!activeCommand().isEmpty())
        return keepTimer_.start(qMax(1000, keepMilliseconds() / 60));
    QString problem;
    keeper_->keep(&problem);
    if (!problem.isEmpty())
        tell(QStringLiteral("Запасная копия чертежа не записана: ") + problem);
}

void MainWindow::offerRecovery()
{
    const std::vector<LeftCopy> left = keeper_->left();
    if (left.empty())
        return;
    QStringList lines;
    for (const LeftCopy& copy : left)
        lines << QStringLiteral("%1, %2").arg(copy.original, copy.saved.toString(QStringLiteral("dd.MM.yyyy HH:mm")));
    QMessageBox question(QMessageBox::Question, QStringLiteral("Восстановление"),
                         QStringLiteral("В прошлый раз программа закрылась, не сохранив чертежи:\n\n%1\n\n"
                                        "Открыть их запасные копии?")
                             .arg(lines.join(QLatin1Char('\n'))),
                         QMessageBox::NoButton, this);
    QAbstractButton* open = question.addButton(QStringLiteral("Восстановить"), QMessageBox::AcceptRole);
    QAbstractButton* drop = question.addButton(QStringLiteral("Удалить копии"), QMessageBox::DestructiveRole);
    question.addButton(QStringLiteral("Позже"), QMessageBox::RejectRole);
    question.exec();
    const bool opening = question.clickedButton() == open;
    for (const LeftCopy& copy : left) {
        if (!opening || !isOk(Documents::instance().openCopy(copy.copy, copy.original, copy.untitled)))
            continue;
        if (DrawingView* view = viewOf(ncDocManagerPtr()->curDocument()))
            view->setDrawn(true);
        tell(QStringLiteral("Восстановлен чертёж ") + copy.original);
    }
    // New copies stand before the old ones go.
    if (opening)
        keepCopies();
    for (const LeftCopy& copy : left)
        if (opening || question.clickedButton() == drop)
            DrawingKeeper::remove(copy);
}

// A command that closes a drawing, be it another position's being chosen, asks
// nobody: what nobody has saved is kept aside.
void MainWindow::keepUnsaved(const Document& document)
{
    const DrawingView* view = viewOf(const_cast<Document*>(&document));
    if (&document == givenUp_ || !view || !view->holdsUnsavedWork())
        return;
    QString problem;
    const QString name = QFileInfo(document.fileName()).fileName(), path = keeper_->keepClosed(document, &problem);
    if (path.isEmpty())
        tell(QStringLiteral("Чертёж %1 закрыт, несохранённые изменения не отложены: %2").arg(name, problem));
    else
        tell(QStringLiteral("Чертёж %1 закрыт с несохранёнными изменениями. Они отложены: %2").arg(name, path));
}

// --- files that are dropped onto the window

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            openFile(url.toLocalFile());
}
