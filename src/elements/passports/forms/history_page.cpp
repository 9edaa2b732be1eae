#include "elements/passports/forms/history_page.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "charts/forms/chart_label.h"
#include "charts/isotherm_chart.h"
#include "charts/trumpet_chart.h"
#include "elements/passports/forms/measure_ticks.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <cmath>

using namespace formkit;

namespace {

QDoubleSpinBox* amplitudeBox()
{
    QDoubleSpinBox* box = realSpin("AmplitudeSpin", 0.01, 5.0, 0.05);
    box->setValue(kQuietAmplitude);
    return tipped(box, "Глубже уровня нулевых годовых амплитуд размах температур не больше этого числа");
}

QDoubleSpinBox* stepBox()
{
    QDoubleSpinBox* box = realSpin("StepSpin", 0.0, 20.0, 0.5);
    box->setSpecialValueText(QStringLiteral("авто"));
    return box;
}

QString depthText(double depth, const char* found, const char* missing)
{
    return std::isfinite(depth) ? fill(QString::fromUtf8(found), fixed(depth, 2)) : QString::fromUtf8(missing);
}

} // namespace

HistoryPage::HistoryPage(const Words& words, QDoubleSpinBox* number, PassportRecord& record, QWidget* parent)
    : PassportPage(record, parent),
      words_(words),
      number_(number),
      chart_(named<ChartLabel>("ChartLabel", QString::fromUtf8(words.nothing))),
      ticks_(named<MeasureTicks>("CyclesView")),
      told_(note("ResultLabel"))
{
    layOut(this).row({
        growing(column({growing(chart_), told_})),
        column({
            growing(ticks_),
            words.number,
            number_,
            button("SavePictureBtn", "Сохранить рисунок", chart_, &ChartLabel::savePicture),
        }),
    });
    chart_->setRender([this](const QSize& size, double ratio) {
        QString told;
        const QPixmap picture = render(logs(), size, ratio, told);
        told_->setText(told);
        return picture;
    });
    connect(ticks_, &MeasureTicks::ticksChanged, chart_, &ChartLabel::refresh);
    connect(number_, qOverload<double>(&QDoubleSpinBox::valueChanged), chart_, &ChartLabel::refresh);
}

double HistoryPage::number() const { return number_->value(); }

DatedLogs HistoryPage::logs() const { return datedLogs(record().measures, ticks_->ticked()); }

void HistoryPage::showRecord()
{
    chart_->setFileName(fill("%1 %2", record().row.name(), words_.suffix));
    showMeasures();
}

void HistoryPage::showMeasures()
{
    ticks_->showMeasures(record());
    chart_->refresh();
}

// --- the trumpet ------------------------------------------------------------------------

EnvelopePage::EnvelopePage(PassportRecord& record, QWidget* parent)
    : HistoryPage({"огибающие", "Нет отмеченных замеров", "Порог размаха, °C"}, amplitudeBox(), record, parent)
{ }

QPixmap EnvelopePage::render(const DatedLogs& logs, const QSize& size, double ratio, QString& told) const
{
    const TemperatureEnvelope envelope = envelopeOf(logs, number());
    if (envelope.isEmpty())
        return {};
    told = fill("Замеров: %1. %2 %3", int(logs.size()),
                depthText(envelope.thawDepth, "Глубина сезонного оттаивания %1 м.",
                          "Глубина сезонного оттаивания не определяется."),
                depthText(envelope.quietDepth, "Глубина нулевых годовых амплитуд %1 м.",
                          "Глубина нулевых годовых амплитуд не достигнута."));
    TrumpetChart chart;
    chart.plot(
        {envelope.depths, envelope.coldest, envelope.mean, envelope.warmest, envelope.thawDepth, envelope.quietDepth});
    return chart.render(size, ratio);
}

// --- isotherms --------------------------------------------------------------------------

IsothermsPage::IsothermsPage(PassportRecord& record, QWidget* parent)
    : HistoryPage({"изотермы", "Нужны замеры хотя бы двух дней на двух глубинах", "Шаг изотерм, °C"}, stepBox(), record,
                  parent)
{ }

QPixmap IsothermsPage::render(const DatedLogs& logs, const QSize& size, double ratio, QString& told) const
{
    IsothermChart chart;
    chart.plot(gridOf(logs), number());
    if (chart.plotter().contents().isEmpty())
        return {};
    told = fill("Замеров: %1. Шаг изотерм %2 °C. Между замерами температура проведена по прямой.", int(logs.size()),
                general(chart.step()));
    return chart.render(size, ratio);
}
