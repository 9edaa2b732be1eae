// The one place where a map is built: from points and a border to lines,
// contours and hatches on the chosen layers.
#pragma once

#include "analysis/contour/contour_build.h"
#include "analysis/maps/forms/iso_contours_widgets.h"
#include "analysis/maps/map_subject.h"

#include <nrx/object.h>

#include <QDialog>

class IsoContoursCmdDialog : public QDialog {
    Q_OBJECT
public:
    explicit IsoContoursCmdDialog(QWidget* parent = nullptr);

    // Builds the map from the points and bounds given and draws it; building
    // twice gives the same map. False when something is missing or the user
    // stopped it; nothing is drawn then.
    bool build();

    // What the last build drew.
    bool drewAnything() const { return !isolineIds_.empty() || !isocontourIds_.empty() || !hatchIds_.empty(); }
    const NcDbObjectIdArray& isolineIds() const { return isolineIds_; }
    const NcDbObjectIdArray& isocontourIds() const { return isocontourIds_; }
    const NcDbObjectIdArray& hatchIds() const { return hatchIds_; }

    // What the drawing tells of the map.
    void setSubject(const MapSubject& subject) { subject_ = subject; }

    // The controls as the engine takes them. A parameter that is no number counts as 0.
    contour::BuildParameters parameters() const;

public slots:
    void SetPoints(const contour::PointList& points);
    // In the order of the points; for what is told of a build.
    void SetPointNames(const QStringList& names) { pointNames_ = names; }
    // With `noCalc` the bounds are an exact outline and become part of the surface.
    void SetBounds(const contour::PointList& bounds, bool noCalc);
    void SetBoundLayer(const QString& layerName);
    // 0 temperatures, 1 deformations, 2 dynamics of temperatures: the project's choice.
    void SetMapType(int type);
    void SetLevelMapID(int id);
    void DisablePointsControl();
    void DisableBoundsControl();
    void HidePointSelection(bool isHidden);
    void HideBoundSelection(bool isHidden);
    void TauSliderChanged(int value);
    void SelectPointBtn_Clicked();
    void SelectBoundBtn_Clicked();
    void PreviewBTN_Clicked();
    void MethodComboChanged(int index);
    void CalcBoundChange();

private:
    void SetupMethodCombo();
    void BoxUpdate(const contour::Point3& point);
    void FormBoxUpdate();
    void connectControls();
    void showStatistics();
    bool runBuild(contour::BuildResult& result);
    void draw(const contour::BuildResult& result);

    IsoContoursWidgets ui_;
    contour::SurfaceModel model_;
    contour::BuildInput input_;
    QStringList pointNames_;
    MapSubject subject_;
    geometry::Box3 box_;
    double tension_ = 0.5;
    NcDbObjectIdArray isolineIds_, isocontourIds_, hatchIds_;
};
