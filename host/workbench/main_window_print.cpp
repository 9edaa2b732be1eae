// Printing the current drawing.
#include "busy_cursor.h"
#include "main_window.h"
#include "print_dialog.h"

#include <drawing/host_access.h>

#include <QDate>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

namespace {

void printOnPaper(const Sheet& sheet, const DisplayList& list, QWidget* parent)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(sheet.title);
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(paperSize(sheet), QPageSize::Millimeter, sheet.paper));
    QPrintDialog choice(&printer, parent);
    if (choice.exec() != QDialog::Accepted)
        return;
    printer.setFullPage(true);
    QPainter painter;
    if (painter.begin(&printer))
        busily([&] { paintSheet(painter, sheet, list, printer.resolution() / 25.4); });
    else
        QMessageBox::warning(parent, QStringLiteral("Печать"), QStringLiteral("Принтер не принимает лист."));
}

} // namespace

void MainWindow::printDrawing()
{
    DrawingView* view = currentView();
    if (!view)
        return;
    NcDbDatabase& drawing = *view->document().database();
    const QString name = QFileInfo(view->document().fileName()).completeBaseName();
    Sheet sheet;
    sheet.millimetres = drawing.currentSpaceId() == HostAccess::data(drawing).paperSpace;
    sheet.title = desk_.position.isEmpty() ? name : desk_.position;
    sheet.project = desk_.project;
    sheet.cycle = desk_.currentCycle;
    sheet.date = QDate::currentDate().toString(QStringLiteral("dd.MM.yyyy"));
    PrintDialog dialog(drawing, sheet, view->visibleWorld(), *settings_, this);
    connect(&dialog, &PrintDialog::printWanted, &dialog,
            [&dialog] { printOnPaper(dialog.sheet(), dialog.list(), &dialog); });
    connect(&dialog, &PrintDialog::pdfWanted, &dialog, [&] {
        const QString path = askToSave(QStringLiteral("Лист в PDF"), QStringLiteral("Документ PDF (*.pdf)"),
                                       QStringLiteral("pictures"), name + QStringLiteral(".pdf"));
        if (path.isEmpty())
            return;
        const QString wrong = busily([&] { return writeSheet(dialog.sheet(), dialog.list(), path); });
        if (wrong.isEmpty()) {
            tell(QStringLiteral("Записан файл ") + path);
            dialog.accept();
        } else {
            QMessageBox::warning(&dialog, QStringLiteral("Печать"), wrong);
        }
    });
    dialog.exec();
}
