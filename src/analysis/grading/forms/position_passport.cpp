// The card itself: its pages and the norms. What it shows of measures stands in
// position_passport_tables.cpp.
#include "analysis/grading/forms/position_passport.h"

#include "analysis/grading/attribute_texts.h"
#include "base/placeholders.h"
#include "base/text.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/table_items.h"
#include "formkit/unit.h"
#include "formkit/widgets.h"

#include <QSignalBlocker>
#include <array>
#include <cmath>

using namespace formkit;

namespace {

constexpr int kNoNorm = -1;

struct NumberField {
    const char* name;
    const char* caption;
    double PositionAttributes::*value;
    const char* unit = ""; // of a caption that tells none
};

const std::array<NumberField, 9> numberFields = {{
    {"DeepMin", "Глубина осреднения от, м", &PositionAttributes::deepMin},
    {"DeepMax", "Глубина осреднения до, м", &PositionAttributes::deepMax},
    {"TemperatureH", "Температура тв.состояния Th", &PositionAttributes::temperatureH, "°C"},
    {"TemperatureBF", "Температура начала замерзания Tbf", &PositionAttributes::temperatureBf, "°C"},
    {"BaseDepth", "Глубина основания фундамента, м", &PositionAttributes::baseDepth},
    {"RelativeDiff", "Относительная осадка", &PositionAttributes::relativeDiff},
    {"AverageDiff", "Максимальная средняя осадка, см", &PositionAttributes::averageDiff},
    {"Roll", "Крен", &PositionAttributes::roll},
    {"ConstrHeight", "Высота сооружения, м", &PositionAttributes::height},
}};

QString editText(double number) { return std::isfinite(number) ? general(number, 10) : QString(); }

Choices normChoices(const std::vector<Norm>& norms)
{
    Choices choices{{QStringLiteral("Не выбрана"), kNoNorm}};
    for (const Norm& norm : norms)
        choices.append({normText(norm), norm.id});
    return choices;
}

QString positionName(int positionId)
{
    return session().run(compose("select position from positions where position_id=%1", positionId)).getvalue(0, 0);
}

} // namespace

PositionPassport::PositionPassport(int positionId, QWidget* parent)
    : QDialog(parent), positionId_(positionId), norms_(loadNorms())
{
    nameForm(this, "PositionPassport", fill("Пасспорт позиции: %1", positionName(positionId)));
    thermal_ = table("ThermalHistory");
    deformation_ = table("DeformationHistory");
    layOut(this).column({
        growing(tabs("Pages").pages({
            {"Нормы", attributesPage()},
            {"Число измерений", measuresPage()},
            {"Деформационные марки", marksPage()},
            {"Термоскважины", wellsPage()},
            {"История температур", column({growing(thermal_)})},
            {"История деформаций", column({base_ = note("BaseCycleNote"), growing(deformation_)})},
        })),
        endButtons(this, {rejects("CloseBtn", "Закрыть")}),
    });
    resize(1300, 640);
    connect(norm_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &PositionPassport::takeNorm);
    connect(cycle_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &PositionPassport::showWells);
    refresh();
}

Item PositionPassport::attributesPage()
{
    std::vector<Cells> fields;
    for (const NumberField& field : numberFields) {
        const QString told = unitIn(QString::fromUtf8(field.caption));
        edits_.append(inUnit(told.isEmpty() ? QString::fromUtf8(field.unit) : told, numberEdit(field.name)));
        fields.push_back({field.caption, growing(edits_.last())});
    }
    ranges_ = table("GradeRanges", {"Состояние", "Температура", "Осадка", "Отн. осадка"});
    return row({
        growing(group("Атрибуты позиции")
                    .column({
                        id_ = readOut("AttributeId"),
                        row({"Нормы СП 22.13330", growing(norm_ = narrowCombo("NormList", 20, normChoices(norms_)))}),
                        grid(fields),
                        row({button("SaveBtn", "Сохранить", this, &PositionPassport::save),
                             button("ResetBtn", "Сбросить", this, &PositionPassport::reset), stretch()}),
                        stretch(),
                    }),
                2),
        growing(group("Состояния")
                    .column({
                        grid({{"Осреднение", growing(depth_ = readOut("DepthText"))},
                              {"Предельная осадка", settlement_ = readOut("SettlementText")}}),
                        growing(ranges_),
                    }),
                3),
    });
}

Item PositionPassport::measuresPage() { return group("Число измерений").column({counts_ = table("MeasureCounts")}); }

Item PositionPassport::marksPage()
{
    return group("Список элементов")
        .column({markCount_ = readOut("MarkCount"), growing(markTable_ = table("MarkList"))});
}

Item PositionPassport::wellsPage()
{
    cycle_ = narrowCombo("MeasCycle", 24, session().cycleEntries(" - "));
    if (!choose(cycle_, session().currentCycleId))
        cycle_->setCurrentIndex(cycle_->count() - 1);
    return group("Список элементов")
        .column({row({wellCount_ = readOut("WellCount"), stretch(), "Цикл измерений", cycle_}),
                 growing(wellTable_ = table("WellList"))});
}

void PositionPassport::refresh()
{
    attributes_ = loadAttributes(positionId_);
    showAttributes();
    showCounts();
    showMarks();
    showWells();
    showThermalHistory();
    showDeformationHistory();
}

void PositionPassport::showAttributes()
{
    id_->setText(attributeIdText(attributes_));
    const PositionAttributes empty = [] {
        PositionAttributes none;
        for (const NumberField& field : numberFields)
            none.*field.value = PositionAttributes::none;
        return none;
    }();
    const PositionAttributes& shown = attributes_.exist ? attributes_ : empty;
    for (size_t i = 0; i < numberFields.size(); ++i)
        edits_[int(i)]->setText(editText(shown.*numberFields[i].value));
    const QSignalBlocker quiet(norm_);
    choose(norm_, attributes_.normId);
    depth_->setText(depthText(shown));
    settlement_->setText(settlementText(shown));
    ranges_->setRowCount(0);
    for (Grade grade : {Grade::Normal, Grade::Limited, Grade::LimitedII, Grade::Fail}) {
        const int at = ranges_->rowCount();
        ranges_->insertRow(at);
        ranges_->setItem(at, 0, textItem(gradeLabel(grade)));
        ranges_->item(at, 0)->setToolTip(QString::fromUtf8(gradeWords(grade).meaning).remove(QLatin1Char('\n')));
        ranges_->setItem(at, 1, textItem(thermalRange(grade, shown)));
        ranges_->setItem(at, 2, textItem(settlementRange(grade, shown)));
        ranges_->setItem(at, 3, textItem(relativeRange(grade, shown)));
    }
    fitColumns(ranges_);
}

void PositionPassport::takeNorm()
{
    for (const Norm& norm : norms_) {
        if (norm.id != chosenId(norm_))
            continue;
        findChild<QLineEdit*>("RelativeDiff")->setText(editText(norm.relativeDiff));
        findChild<QLineEdit*>("AverageDiff")->setText(editText(norm.averageDiff));
        findChild<QLineEdit*>("Roll")->setText(editText(norm.roll));
    }
}

bool PositionPassport::takeEntered(PositionAttributes& entered)
{
    for (size_t i = 0; i < numberFields.size(); ++i) {
        const QString text = edits_[int(i)]->text().trimmed();
        bool ok = true;
        entered.*numberFields[i].value = text.isEmpty() ? PositionAttributes::none : text.toDouble(&ok);
        if (!ok) {
            warn(this, fill("%1: '%2' — не число", numberFields[i].caption, text));
            return false;
        }
    }
    entered.normId = chosenId(norm_, kNoNorm);
    return true;
}

void PositionPassport::save()
{
    PositionAttributes entered = attributes_;
    if (!takeEntered(entered))
        return;
    QString problem;
    if (!storeAttributes(entered, &problem))
        return warn(this, fill("Атрибуты не сохранены: %1", problem));
    changed_ = true;
    refresh();
}

void PositionPassport::reset()
{
    if (!confirm(this, "Данное действие приведет к сбросу данных. Продолжить?"))
        return;
    QString problem;
    if (!deleteAttributes(positionId_, &problem))
        return warn(this, fill("Атрибуты не сброшены: %1", problem));
    changed_ = true;
    refresh();
}
