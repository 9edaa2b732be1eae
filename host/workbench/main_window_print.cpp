// Printing the current drawing.
#include "busy_box.h"
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
    if (!painter.begin(&printer)) {
        QMessageBox::warning(parent, QStringLiteral("Печать"), QStringLiteral("Принтер не принимает лист."));
        return;
    }
    const BusyBox busy(parent, QStringLiteral("Печать"));
    paintSheet(painter, sheet, list, printer.resolution() / 25.4);
    if (busy.cancelled())
        printer.abort();
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
        const auto [wrong, cancelled] = busyWriting(&dialog, QStringLiteral("Лист в PDF"),
                                                    [&] { return writeSheet(dialog.sheet(), dialog.list(), path); });
        if (wrong.isEmpty()) {
            tell(QStringLiteral("Записан файл ") + path);
            dialog.accept();
        } else if (cancelled) {
            tell(wrong);
        } else {
            QMessageBox::warning(&dialog, QStringLiteral("Печать"), wrong);
        }
    });
    dialog.exec();
}
