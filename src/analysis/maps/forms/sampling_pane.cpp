#include "analysis/maps/forms/sampling_pane.h"

#include "formkit/layout.h"
#include "formkit/unit.h"
#include "formkit/widgets.h"

#include <QSignalBlocker>

using namespace formkit;

namespace {

// Depths and elevations in metres.
QDoubleSpinBox* metres(const char* name) { return inUnit("м", realSpin(name, -10000.0, 10000.0, 0.5)); }

void setQuietly(QDoubleSpinBox* spin, double value)
{
    const QSignalBlocker quiet(spin);
    spin->setValue(value);
}

} // namespace

SamplingPane::SamplingPane(QWidget* parent) : QWidget(parent)
{
    layOut(this).column({group("Значение по")
                             .grid({
                                 {byDepth_ = radio("DeepSampling", "Глубине", true),
                                  wide(3, byElevation_ = radio("HSampling", "Абс. Отметке"))},
                                 {wide(2, "Значение глубины (отметки)"), key_ = metres("DeepSpin"),
                                  bottom_ = check("EndPoint", "по забою")},
                                 {wide(4, byMean_ = radio("AverageSampling", "Средневзвешенное по глубине"))},
                                 // Scripts know the box by this spelling.
                                 {"Интервал  от", from_ = metres("IntervalBegin"), to_ = metres("IntervalEnd"),
                                  toEnd_ = check("ToEndSamplihg", "до забоя")},
                             })});
    layout()->setContentsMargins(0, 0, 0, 0);

    for (QRadioButton* mode : {byDepth_, byElevation_, byMean_}) {
        connect(mode, &QRadioButton::toggled, this, [this](bool on) {
            if (on)
                chooseMode();
        });
    }
    const auto keep = [this](QDoubleSpinBox* spin, auto number) {
        connect(spin, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this, number](double shown) {
            number().set(shown);
            emit changed();
        });
    };
    keep(key_, [this]() -> KeptNumber& { return keys_[elevationShown_]; });
    keep(from_, [this]() -> KeptNumber& { return begin_; });
    keep(to_, [this]() -> KeptNumber& { return end_; });
    for (QCheckBox* box : {toEnd_, bottom_}) {
        connect(box, &QCheckBox::toggled, this, [this] {
            enableControls();
            emit changed();
        });
    }
    enableControls();
}

void SamplingPane::enableControls()
{
    const bool mean = mode() == Sampling::Average;
    bottom_->setEnabled(mode() == Sampling::Depth);
    key_->setEnabled(!mean && !sampling().bottom);
    from_->setEnabled(mean);
    to_->setEnabled(mean && !toEnd_->isChecked());
    toEnd_->setEnabled(mean);
}

Sampling::Mode SamplingPane::mode() const
{
    if (byElevation_->isChecked())
        return Sampling::Elevation;
    return byMean_->isChecked() ? Sampling::Average : Sampling::Depth;
}

Sampling SamplingPane::sampling() const
{
    Sampling wanted;
    wanted.mode = mode();
    wanted.key = keys_[elevationShown_].value();
    wanted.from = begin_.value();
    wanted.to = end_.value();
    wanted.toEnd = toEnd_->isChecked();
    wanted.bottom = bottom_->isEnabled() && bottom_->isChecked();
    return wanted;
}

void SamplingPane::chooseMode()
{
    enableControls();
    const bool elevation = mode() == Sampling::Elevation;
    if (mode() != Sampling::Average && elevation != elevationShown_) {
        elevationShown_ = elevation;
        setQuietly(key_, keys_[elevation].shown());
    }
    emit modeChanged();
}

void SamplingPane::startWith(const std::vector<double>& depths, const std::vector<double>& elevations)
{
    keys_[0].startAt(depths.empty() ? 0.0 : depths.front(), depths);
    keys_[1].startAt(elevations.empty() ? 0.0 : elevations.front(), elevations);
    begin_.startAt(depths.empty() ? 0.0 : depths.front(), depths);
    end_.startAt(depths.empty() ? 0.0 : depths.back(), depths);
    setQuietly(key_, keys_[elevationShown_].shown());
    setQuietly(from_, begin_.shown());
    setQuietly(to_, end_.shown());
}
