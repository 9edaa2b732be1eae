// Copies of what was not saved, and what is left of a program that crashed.
#include "drawing_keeper.h"
#include "main_window.h"

#include <drawing/documents.h>

#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

namespace {

constexpr int kKeepMilliseconds = 3 * 60 * 1000;

} // namespace

void MainWindow::keepCopies()
{
    keepTimer_.start(kKeepMilliseconds);
    // A command may hold its objects half changed: it ends first.
    if (!activeCommand().isEmpty())
        return keepTimer_.start(kKeepMilliseconds / 60);
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
    for (const LeftCopy& copy : left)
        if (opening && isOk(Documents::instance().openCopy(copy.copy, copy.original, copy.untitled)))
            tell(QStringLiteral("Восстановлен чертёж ") + copy.original);
    // New copies stand before the old ones go.
    if (opening)
        keepCopies();
    for (const LeftCopy& copy : left)
        if (opening || question.clickedButton() == drop)
            DrawingKeeper::remove(copy);
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
