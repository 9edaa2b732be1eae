#include "elements/passports/forms/measures_page.h"

#include "charts/forms/chart_label.h"
#include "elements/passports/forms/measure_view.h"
#include "elements/passports/measure_pictures.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <QSplitter>

using namespace formkit;

MeasuresPage::MeasuresPage(PassportRecord& record, QWidget* parent)
    : PassportPage(record, parent),
      table_(named<MeasureView>("MeasView", record)),
      chart_(named<ChartLabel>("ChartLabel", "Нет измерений"))
{
    auto* parts = named<QSplitter>("Parts", Qt::Vertical);
    parts->addWidget(table_);
    parts->addWidget(chart_);
    parts->setChildrenCollapsible(false);
    parts->setStretchFactor(0, 2);
    parts->setStretchFactor(1, 3);
    layOut(this).column({growing(parts)});
    chart_->setRender([&record](const QSize& size, double ratio) {
        return measurePicture(record.family().family, record.measures, size, ratio);
    });
    connect(table_, &MeasureView::changed, this, [this] {
        chart_->refresh();
        emit measuresChanged();
    });
}

void MeasuresPage::showRecord()
{
    table_->showMeasures();
    chart_->setFileName(record().row.name());
    chart_->refresh();
}
