#include "drawing/alignment/forms/alignment_commands.h"

#include "base/placeholders.h"
#include "drawing/alignment/background.h"
#include "drawing/alignment/forms/name_choice.h"
#include "drawing/alignment/forms/ucs_selection_form.h"
#include "drawing/alignment/plan_export.h"
#include "formkit/boxes.h"
#include "formkit/modal.h"
#include "formkit/progress_box.h"
#include "hostkit/console.h"
#include "hostkit/layers.h"

#include <memory>

namespace {

const QString allLayers = QStringLiteral("Все слои");

// The chosen name, which is also told on the command line.
std::optional<QString> chooseLayer(const QString& title, const QString& label, const QStringList& layers)
{
    std::optional<QString> layer = chooseName(title, label, layers);
    if (layer)
        say(fill("Выбранный слой: %1", *layer));
    return layer;
}

bool askToClear()
{
    return formkit::confirm(nullptr,
                            {"Выполнить очистку таблицы geometries PostGIS перед вставкой?", "ВНИМАНИЕ!!!",
                             formkit::Look::Question, formkit::Preset::No});
}

// One box for each stretch of work.
class ProgressBoxes {
public:
    WorkProgress begin(const QString& stretch)
    {
        box_ = std::make_unique<formkit::ProgressBox>(host_, QString(), stretch, "Прервать");
        return [this](int done, int total) { return box_->step(done, total); };
    }

private:
    formkit::OverHost host_;
    std::unique_ptr<formkit::ProgressBox> box_;
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
    if (const std::optional<UcsRecord> chosen = askModal(&UCSSelectionForm::shownUcs))
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
