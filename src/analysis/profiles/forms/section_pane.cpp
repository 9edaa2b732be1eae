#include "analysis/profiles/forms/section_pane.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <cmath>

using namespace formkit;

namespace {

// Stored factors have been through six decimals.
constexpr double kSame = 1e-5;

void chooseNumber(QComboBox* combo, double number, const QString& otherwise)
{
    for (int i = 0; i < combo->count(); ++i) {
        if (std::fabs(combo->itemData(i).toDouble() - number) < kSame)
            return combo->setCurrentIndex(i);
    }
    if (!(number > 0.0))
        return;
    combo->addItem(otherwise, number);
    combo->setCurrentIndex(combo->count() - 1);
}

} // namespace

void fillScales(QComboBox* combo, const std::vector<ScaleChoice>& scales, double chosen)
{
    for (const ScaleChoice& scale : scales)
        combo->addItem(QString::fromUtf8(scale.text), scale.factor);
    chooseNumber(combo, chosen, scaleText(chosen));
}

SectionPane::SectionPane(QWidget* parent) : QWidget(parent)
{
    layOut(this).column({group("Разрез").grid({
        {byDepth_ = radio("DeepSampling", "Глубине", true), byElevation_ = radio("HSampling", "Абс. Отметке")},
        {"Масштаб горизонтальный", growing(horizontal_ = combo("HorizontalScale"))},
        {"Масштаб вертикальный", vertical_ = combo("VerticalScale")},
        {"Шаг пикетов", pickets_ = combo("PicketStep")},
        {wide(2, toFooter_ = check("ToFooter", "Замеры до забоя"))},
    })});
    layout()->setContentsMargins(0, 0, 0, 0);
    const SectionView start;
    fillScales(horizontal_, sectionScales(), start.horizontal);
    fillScales(vertical_, sectionScales(), start.vertical);
    for (const PicketStep& step : picketSteps())
        pickets_->addItem(QString::fromUtf8(step.text), step.step);
}

SectionView SectionPane::view() const
{
    SectionView view;
    view.horizontal = horizontal_->currentData().toDouble();
    view.vertical = vertical_->currentData().toDouble();
    view.picketStep = pickets_->currentData().toDouble();
    view.byElevation = byElevation_->isChecked();
    view.toFooter = toFooter_->isChecked();
    return view;
}

void SectionPane::showView(const SectionView& view)
{
    chooseNumber(horizontal_, view.horizontal, scaleText(view.horizontal));
    chooseNumber(vertical_, view.vertical, scaleText(view.vertical));
    chooseNumber(pickets_, view.picketStep, fill("%1 м.", general(view.picketStep)));
    (view.byElevation ? byElevation_ : byDepth_)->setChecked(true);
    toFooter_->setChecked(view.toFooter);
}
