#include "elements/passports/forms/profiles_page.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "charts/forms/chart_label.h"
#include "elements/passports/forms/measure_ticks.h"
#include "elements/passports/forms/measure_view.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <QSplitter>

using namespace formkit;

namespace {

constexpr int kTickedAtFirst = 10; // more curves are not told apart

} // namespace

ProfilesPage::ProfilesPage(PassportRecord& record, QWidget* parent)
    : PassportPage(record, parent),
      picture_(record),
      ground_(readOut("GroundLabel")),
      table_(named<MeasureView>("MeasView", record)),
      chart_(named<ChartLabel>("ChartLabel", "Нет измерений")),
      ticks_(named<MeasureTicks>("CyclesView")),
      withGround_(check("GeologyCheck", "Геология")),
      withKey_(check("LegendCheck", "Показать легенду", true))
{
    auto* parts = named<QSplitter>("Parts", Qt::Horizontal);
    parts->addWidget(pane(column({ground_, growing(table_)})));
    parts->addWidget(chart_);
    parts->setChildrenCollapsible(false);
    parts->setStretchFactor(0, 1);
    parts->setStretchFactor(1, 1);
    parts->setSizes({480, 480});
    layOut(this).row({growing(parts), column({growing(ticks_), withGround_, withKey_})});
    chart_->setRender([this](const QSize& size, double ratio) { return picture_.render(wishes(), size, ratio); });
    connect(ticks_, &MeasureTicks::ticksChanged, chart_, &ChartLabel::refresh);
    for (QCheckBox* box : {withGround_, withKey_})
        connect(box, &QCheckBox::toggled, chart_, &ChartLabel::refresh);
    connect(table_, &MeasureView::changed, this, [this] {
        showMeasures();
        emit measuresChanged();
    });
}

ProfileWishes ProfilesPage::wishes() const
{
    return {ticks_->ticked(), withGround_->isChecked(), withKey_->isChecked()};
}

void ProfilesPage::showRecord()
{
    ground_->setText(fill(" Абсольтная отметка земли %1 м.", fixed(record().ground(), 2))); // users know it spelt so
    table_->showMeasures();
    picture_.readGround();
    chart_->setFileName(record().row.name());
    showMeasures();
}

void ProfilesPage::showMeasures()
{
    ticks_->showMeasures(record(), kTickedAtFirst);
    chart_->refresh();
}
