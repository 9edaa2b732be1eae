#include "elements/measures/forms/element_measures_form.h"

#include "base/placeholders.h"
#include "elements/list/forms/cycle_question.h"
#include "elements/measures/forms/measure_edit_dialog.h"
#include "elements/measures/forms/measured_families.h"
#include "elements/measures/measure_export.h"
#include "files/written_file.h"
#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "formkit/for_all.h"
#include "formkit/widgets.h"

using namespace formkit;

ElementMeasuresForm::ElementMeasuresForm(QWidget* parent)
    : ElementsByCycleForm({"ElementMeasuresForm",
                           "Управление измерениями элементов ГМН",
                           "MeasView",
                           "Цикл назначения",
                           "Чтение измерений",
                           {"Имя"}},
                          measuredFamilies(), parent)
{
    finish({
        copyButton(button("CopyMeasBTN", "Перенести измерения", this, &ElementMeasuresForm::copyMeasures)),
        button("DeleteMeasBTN", "Удалить измерения для всего цикла", this, &ElementMeasuresForm::deleteMeasures),
        button("ExportMeasBTN", "Экспорт измерений", this, &ElementMeasuresForm::exportMeasures),
    });
}

const MeasureFamily& ElementMeasuresForm::family() const { return chosenMeasureFamily(families()); }

std::optional<CycleRows> ElementMeasuresForm::readRows(const HierarchyPlace& place, const ElementProgress& progress)
{
    return readMeasureRows(family(), place, progress);
}

void ElementMeasuresForm::open(int, int id)
{
    MeasureEditDialog dialog(family().family, this);
    if (dialog.open(id) && dialog.exec() == QDialog::Accepted)
        reload();
}

void ElementMeasuresForm::copyMeasures()
{
    if (!confirm(this,
                 fill("Для выделенных элементов будут скопированы измерения \n из цикла %1 в цикл %2",
                      numberOf(source()), numberOf(target()))))
        return;
    AskedForAll replacing(this);
    const MeasureCopy copy = {source(), target(), [&replacing] {
                                  return replacing.agrees("Элемент уже содержит измерения, заменить их ? ");
                              }};
    int changed = 0;
    work("Перенос измерений",
         [&](const ElementProgress& progress) { changed = ::copyMeasures(family(), markedRows(), copy, progress); });
    if (changed > 0)
        reload();
}

void ElementMeasuresForm::deleteMeasures()
{
    const std::optional<int> cycle = askCycle(this, "Укажите цикл измерений", target());
    if (!cycle
        || !confirm(this, fill("Для выделенных элементов будут удалены измерения\n для цикла %1 ", numberOf(*cycle))))
        return;
    ::deleteMeasures(family(), markedRows(), *cycle);
    reload();
}

void ElementMeasuresForm::exportMeasures()
{
    if (!isExported(family().family))
        return warn(this,
                    "Экспорт в данный момент поддерживается только для термометрии (ts), деформаций (dm), реперов (rp) "
                    "и гидрогеологии (ggs).");
    std::optional<Measures> measures;
    work("Чтение измерений", [&](const ElementProgress& progress) {
        measures = loadMeasures(family(), markedRows(), session().cycleOrder, progress);
    });
    if (!measures)
        return; // stopped
    if (measures->empty())
        return inform(this, "Нет данных для экспорта.", "Информация");
    const QString path = askFileToSave(this, {"Сохранить измерения", "CSV files (*.csv)"});
    if (path.isEmpty())
        return;
    WrittenFile file(path);
    if (!file.open())
        return warn(this, "Не удалось открыть файл для записи.", "Ошибка");
    if (!file.write(exportText(family().family, *measures).toUtf8()) || !file.commit())
        return warn(this, "Не удалось записать файл: " + file.problem(), "Ошибка");
    inform(this, "Экспорт успешно завершен.", "Успех");
}
