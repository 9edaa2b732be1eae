#include "drawing/alignment/forms/alignment_commands.h"

#include "base/placeholders.h"
#include "drawing/alignment/background.h"
#include "drawing/alignment/forms/name_choice.h"
#include "drawing/alignment/forms/ucs_selection_form.h"
#include "drawing/alignment/plan_export.h"
#include "hostkit/console.h"
#include "hostkit/layers.h"
#include "formkit/modal.h"

#include <QMessageBox>
#include <QProgressDialog>
#include <memory>

namespace {

const QString allLayers = QStringLiteral("Все слои");

// The chosen name, which is also told on the command line.
std::optional<QString> chooseLayer(const QString& title, const QString& label, const QStringList& layers)
{
    const std::optional<QString> layer = chooseName(title, label, layers);
    if (layer)
        say(fill("Выбранный слой: %1", *layer));
    return layer;
}

bool askToClear()
{
    QWinWidget owner(ndsw_ncadMainWnd());
    owner.showCentered();
    return QMessageBox::question(&owner, QStringLiteral("ВНИМАНИЕ!!!"),
                                 QStringLiteral("Выполнить очистку таблицы geometries PostGIS перед вставкой?"),
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        == QMessageBox::Yes;
}

// One box for each stretch of work; telling it of every entity would cost more
// than the work itself.
class ProgressBoxes {
public:
    ProgressBoxes() : owner_(ndsw_ncadMainWnd()) { owner_.showCentered(); }

    WorkProgress begin(const QString& title)
    {
        box_ = std::make_unique<QProgressDialog>(title, QStringLiteral("Прервать"), 0, 1, &owner_);
        box_->setWindowModality(Qt::WindowModal);
        return [this](int done, int total) {
            if (done % step == 0) {
                box_->setMaximum(total);
                box_->setValue(done);
            }
            return !box_->wasCanceled();
        };
    }

private:
    static constexpr int step = 32;
    QWinWidget owner_;
    std::unique_ptr<QProgressDialog> box_;
};

} // namespace

void storeUcsCommand()
{
    storeUcsOfDrawing([](const QStringList& names) {
        return chooseAndEditName(QStringLiteral("Сохранить ПСК"), QStringLiteral("Имя"), names);
    });
}

void applyUcsCommand()
{
    std::optional<UcsRecord> chosen;
    runModalThen<UCSSelectionForm>([&chosen](UCSSelectionForm& form, int result) {
        if (result == QDialog::Accepted)
            chosen = form.shownUcs();
    });
    if (chosen)
        applyUcs(*chosen);
}

void exportPlanCommand()
{
    say(QStringLiteral(
        "\nСохраняет геометрию текущего чертежа в PostGIS таблицу БД\nВНИМАНИЕ!!! ДЕЙСТВИЕ НЕОБРАТИМО!!!"));
    const std::optional<QString> layer = chooseLayer(
        QStringLiteral("Экспорт элементов чертежа в PostGIS"),
        QStringLiteral("ВНИМАНИЕ!!! Операция необратима.\n\nВыберите слой:"), QStringList(allLayers) + layerNames());
    if (layer)
        exportPlan(*layer == allLayers ? std::nullopt : layer, askToClear);
}

void prepareBackgroundCommand()
{
    const NcApDocument* document = ncDocManagerPtr()->curDocument();
    if (!document)
        return say(QStringLiteral("Отсутствует открытый чертеж."));
    say(fill("Текущий файл чертежа: %1", document->fileName()));
    const std::optional<QString> layer =
        chooseLayer(QStringLiteral("Обработка подосновы для проекта"),
                    QStringLiteral("Выберите слой для сборки подложки:"), layerNames());
    if (!layer)
        return;
    ProgressBoxes boxes;
    prepareBackground(*layer, [&boxes](const QString& title) { return boxes.begin(title); });
}
