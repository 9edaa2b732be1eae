#include "drawing/forms/sync_commands.h"

#include "drawing/forms/element_sync_filter.h"
#include "drawing/sync/drawing_to_database.h"
#include "drawing/sync/tree_sync.h"
#include "formkit/modal.h"

#include <QMessageBox>
#include <optional>

namespace {

QString title() { return QStringLiteral("Внимание"); }

// The text is the database's too, so it is shown as it stands.
bool saysYes(QMessageBox::Icon icon, const QString& text)
{
    QWinWidget owner(ndsw_ncadMainWnd());
    owner.showCentered();
    QMessageBox box(icon, title(), text, QMessageBox::Yes | QMessageBox::No, &owner);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

} // namespace

void drawingToDatabaseCommand()
{
    syncDrawingToDatabase({[](const QString& text) { return saysYes(QMessageBox::Critical, text); },
                           [](const QString& text) { return saysYes(QMessageBox::Question, text); }});
}

void syncNode(int id, SyncLevel level)
{
    std::optional<unsigned> mask;
    runModalThen<ElementSyncFilter>([&mask](ElementSyncFilter& form, int result) {
        if (result == QDialog::Accepted)
            mask = form.mask();
    });
    if (mask)
        syncNodeToDrawing(id, level, *mask);
}
