#include "analysis/maps/forms/iso_contours_cmd_dialog.h"

#include "analysis/levels/forms/color_map_widget.h"
#include "analysis/maps/build_messages.h"
#include "analysis/maps/layer_input.h"
#include "analysis/maps/map_drawing.h"
#include "base/placeholders.h"
#include "base/text.h"
#include "formkit/boxes.h"
#include "formkit/progress_box.h"
#include "formkit/widgets.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <array>
#include <cmath>

using namespace formkit;

namespace {

constexpr size_t kFewestPoints = 3;

constexpr int kPercent = 100; // a step of the work
const QString kTitle = QStringLiteral("Построение изоконтуров");

// In the order of contour::BuildStep.
const std::array<const char*, 6> kSteps = {
    "Подготовка точек",    "Расчёт сетки",    "Триангуляция",
    "Построение изолиний", "Обработка линий", "Построение изоконтуров",
};

} // namespace

IsoContoursCmdDialog::IsoContoursCmdDialog(QWidget* parent) : QDialog(parent), ui_(this)
{
    nameForm(this, "IsoContoursCmdDialog", kTitle);
    SetupMethodCombo();
    for (QComboBox* layers :
         {ui_.BoundLayer, ui_.PointLayer, ui_.HatchOutLayer, ui_.IsoLineOutLayer, ui_.IsoContoursOutLayer})
        layers->addItems(layerNames());
    connectControls();
    FormBoxUpdate();
}

void IsoContoursCmdDialog::connectControls()
{
    connect(ui_.TauSlider, &QSlider::valueChanged, this, &IsoContoursCmdDialog::TauSliderChanged);
    connect(ui_.SelectPointBtn, &QPushButton::clicked, this, &IsoContoursCmdDialog::SelectPointBtn_Clicked);
    connect(ui_.SelectBoundBth, &QPushButton::clicked, this, &IsoContoursCmdDialog::SelectBoundBtn_Clicked);
    connect(ui_.PreviewBTN, &QPushButton::clicked, this, &IsoContoursCmdDialog::PreviewBTN_Clicked);
    connect(ui_.CalculateBoundCheck, &QCheckBox::toggled, this, &IsoContoursCmdDialog::CalcBoundChange);
    connect(ui_.MethodCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &IsoContoursCmdDialog::MethodComboChanged);
}

void IsoContoursCmdDialog::SetupMethodCombo()
{
    ui_.MethodCombo->addItem(QStringLiteral("Триангуляция"), int(contour::Method::Triangulation));
    ui_.MethodCombo->addItem(QStringLiteral("IDW (Долго)"), int(contour::Method::InverseDistance));
    MethodComboChanged(ui_.MethodCombo->currentIndex());
}

void IsoContoursCmdDialog::MethodComboChanged(int index)
{
    const bool weighted = ui_.MethodCombo->itemData(index).toInt() == int(contour::Method::InverseDistance);
    for (QWidget* widget : std::initializer_list<QWidget*>{ui_.MethodParamOneLabel, ui_.MethodParamOne,
                                                           ui_.MethodParamTwoLabel, ui_.MethodParamTwo})
        widget->setVisible(weighted);
}

void IsoContoursCmdDialog::TauSliderChanged(int value)
{
    tension_ = double(value) / ui_.TauSlider->maximum();
    ui_.TauValue->setText(fixed(tension_, 2));
}

void IsoContoursCmdDialog::CalcBoundChange()
{
    const bool calculated = ui_.CalculateBoundCheck->isChecked();
    ui_.BoundLayer->setEnabled(!calculated);
    ui_.SelectBoundBth->setEnabled(!calculated);
}

void IsoContoursCmdDialog::SetMapType(int type)
{
    switch (type) {
    case 0: SetLevelMapID(session().temperatureColormapId); break;
    case 1: SetLevelMapID(session().deformationColormapId); break;
    case 2: SetLevelMapID(session().dynamicTemperatureColormapId); break;
    default: break;
    }
}

void IsoContoursCmdDialog::SetLevelMapID(int id) { ui_.ColorMap->setLevelMapId(id); }

void IsoContoursCmdDialog::SetBoundLayer(const QString& layerName) { ui_.BoundLayer->setCurrentText(layerName); }

void IsoContoursCmdDialog::SetPoints(const contour::PointList& points)
{
    input_.points = points;
    pointNames_.clear();
    box_ = {};
    for (const contour::Point3& point : points)
        BoxUpdate(point);
    FormBoxUpdate();
    model_.setPoints(points);
    ui_.PointCount->setText(QString::number(model_.points.size()));
}

void IsoContoursCmdDialog::SetBounds(const contour::PointList& bounds, bool noCalc)
{
    input_.bounds = bounds;
    input_.exactEdges = noCalc;
    model_.setBoundary(bounds, noCalc);
}

void IsoContoursCmdDialog::DisablePointsControl() { ui_.pointGroup->setEnabled(false); }
void IsoContoursCmdDialog::DisableBoundsControl() { ui_.boundGroup->setEnabled(false); }
void IsoContoursCmdDialog::HidePointSelection(bool isHidden) { ui_.pointGroup->setHidden(isHidden); }
void IsoContoursCmdDialog::HideBoundSelection(bool isHidden) { ui_.boundGroup->setHidden(isHidden); }

void IsoContoursCmdDialog::BoxUpdate(const contour::Point3& p)
{
    box_.minimum = {std::min(box_.minimum.x, p.x), std::min(box_.minimum.y, p.y), std::min(box_.minimum.z, p.z)};
    box_.maximum = {std::max(box_.maximum.x, p.x), std::max(box_.maximum.y, p.y), std::max(box_.maximum.z, p.z)};
}

void IsoContoursCmdDialog::FormBoxUpdate()
{
    const std::array<std::pair<QLabel*, double>, 6> limits = {{{ui_.XMin, box_.minimum.x},
                                                               {ui_.XMax, box_.maximum.x},
                                                               {ui_.YMin, box_.minimum.y},
                                                               {ui_.YMax, box_.maximum.y},
                                                               {ui_.ZMin, box_.minimum.z},
                                                               {ui_.ZMax, box_.maximum.z}}};
    for (const auto& [shown, value] : limits)
        shown->setText(std::isfinite(value) ? fixed(value, 2) : QString());
}

void IsoContoursCmdDialog::showStatistics()
{
    ui_.TriangCount->setText(QString::number(model_.triangleCount));
    ui_.PointCount->setText(QString::number(model_.points.size()));
    const double edge = model_.longestEdge();
    ui_.EdgeLength->setText(model_.points.size() >= kFewestPoints && std::isfinite(edge) ? fixed(edge, 2) : QString());
}

void IsoContoursCmdDialog::SelectPointBtn_Clicked()
{
    const QString layer = ui_.PointLayer->currentText();
    const contour::PointList points = loadPointsFromLayer(layer);
    SetPoints(points);
    if (points.empty()) {
        input_.points.reset();
        showStatistics();
        warn(this, fill("На слое %1 не найдено ни одной точки", layer));
        return;
    }
    if (ui_.CalculateBoundCheck->isChecked()) {
        if (model_.vertexCount >= int(kFewestPoints)) {
            model_.triangulate();
            model_.boundaryFromHull();
        }
    } else if (input_.bounds) {
        model_.densifyBoundaryValues();
        model_.prepare();
        model_.triangulate();
    }
    showStatistics();
}

void IsoContoursCmdDialog::SelectBoundBtn_Clicked()
{
    const QString layer = ui_.BoundLayer->currentText();
    const std::optional<contour::PointList> bounds = loadBoundaryFromLayer(layer);
    if (!bounds) {
        say(fill(QStringLiteral("Внимание. На слое  %1  не найдено ни одной полилинии"), layer));
        return;
    }
    SetBounds(*bounds, false);
    if (input_.points) {
        model_.prepare();
        model_.triangulate();
        showStatistics();
    }
}

contour::BuildParameters IsoContoursCmdDialog::parameters() const
{
    contour::BuildParameters wanted;
    wanted.method = contour::Method(ui_.MethodCombo->currentData().toInt());
    wanted.power = ui_.MethodParamOne->text().toDouble();
    wanted.neighbours = int(ui_.MethodParamTwo->text().toDouble());
    wanted.calculateBoundary = ui_.CalculateBoundCheck->isChecked();
    wanted.filterLines = ui_.IsolineFilterCheck->isChecked();
    wanted.filterDistance = ui_.FilterLinesDistance->text().toDouble();
    wanted.refineLines = ui_.RefineLine->isChecked();
    wanted.refineDistance = ui_.RefineLineDist->text().toDouble();
    wanted.refineParts = ui_.RefineLineCount->value();
    wanted.smoothLines = ui_.SplineLine->isChecked();
    wanted.tension = ui_.TauValue->text().toDouble();
    wanted.splineSamples = ui_.SplinePointNum->value();
    return wanted;
}

void IsoContoursCmdDialog::PreviewBTN_Clicked() { build(); }

bool IsoContoursCmdDialog::build()
{
    isolineIds_.clear();
    isocontourIds_.clear();
    hatchIds_.clear();
    contour::BuildResult result;
    if (!runBuild(result))
        return false;
    draw(result);
    return true;
}

bool IsoContoursCmdDialog::runBuild(contour::BuildResult& result)
{
    contour::BuildInput input = input_;
    input.levels = ui_.ColorMap->current().levels();
    ProgressBox box(this, kTitle, QString());
    result = contour::buildContours(input, parameters(), [&box](contour::BuildStep step, double done) {
        return box.step(int(kPercent * (double(step) + done)), kPercent * int(kSteps.size()), kSteps[size_t(step)]);
    });
    const QString message = buildMessage(result, pointNames_);
    if (!message.isEmpty())
        warn(this, message);
    return result.status == contour::BuildStatus::Done;
}

void IsoContoursCmdDialog::draw(const contour::BuildResult& result)
{
    const contour::IsoContourSet& contours = result.contours;
    if (ui_.IsoLineOutCheck->isChecked())
        isolineIds_ = drawPolylines(ui_.IsoLineOutLayer->currentText(), contours.lines);
    if (ui_.IsoContoursOutCheck->isChecked() && contours.ringsBuilt)
        isocontourIds_ = drawPolylines(ui_.IsoContoursOutLayer->currentText(), contours.rings);
    if (ui_.HatchOutChek->isChecked() && contours.ringsBuilt)
        hatchIds_ =
            drawHatches(contours.hatchBands(), ui_.ColorMap->current(), ui_.HatchOutLayer->currentText(), subject_);
}
