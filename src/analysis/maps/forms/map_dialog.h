// The frame of a map's dialog: the border, the states, the table of points and
// that of values, the end. An heir brings its cycles, its sampling and its rows:
//
//   - its constructor makes its controls, calls layOutMap() with them, then start();
//   - load() reads the elements of the place that is chosen, and loadRemarks()
//     says what it met;
//   - showTables() shows them: showPoints(), and what it likes in ValuesData.
//
// runMap<Form>() is the command.
#pragma once

#include "analysis/maps/layer_input.h"
#include "analysis/maps/left_out_points.h"
#include "analysis/maps/map_place.h"
#include "analysis/maps/map_subject.h"
#include "formkit/layout.h"
#include "formkit/modal.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"

#include <nrx/object.h>

// What the heirs of the frame differ in by words alone.
struct MapWords {
    const char* name; // of the dialog
    const char* title;
    const char* elements; // title of the group that says which are taken
    const char* missing;  // in the cell of a point without a value
    // What files and the clipboard get of the table of values beside its cells.
    formkit::TextPart fileParts = formkit::WithTitles | formkit::WithRowTitles;
    formkit::TextPart clipboardParts = formkit::WithRowTitles;
};

class MapDialog : public QDialog {
    Q_OBJECT
public:
    // A line picked in the drawing becomes the border.
    void setBorder(const PickedBorder& border);
    // No line was picked: the position's contours are offered, the first one is taken.
    void offerPositionContours();

    // The checked points with a finite value, z being the value.
    geometry::PointList usedPoints() const;
    // Their numbers in the list that was shown, and their names, in the same order.
    std::vector<size_t> usedRows() const;
    QStringList usedNames() const;
    const std::optional<geometry::PointList>& border() const { return border_; }
    QString borderLayer() const { return borderLayer_; }
    bool labelsWanted() const { return labels_->isChecked(); }

    // The colour map that the project has chosen for such maps.
    virtual int levelMapId() const = 0;
    // What the drawing tells of the map.
    virtual MapSubject subject() const = 0;
    // Writes the values beside their points.
    virtual void drawLabels(const geometry::PointList& points) const;

protected:
    MapDialog(const MapWords& words, QWidget* parent);

    // The frame around the heir's own: rows of the group of places, such as
    // those of cycles, below those of the frame or above them, and a pane for its
    // sampling (may be null).
    void layOutMap(const std::vector<formkit::Cells>& cycles, QWidget* sampling,
                   const std::vector<formkit::Cells>& above = {});
    // Once all controls stand: connects them and loads.
    void start();

    // Reads the elements of place().
    virtual Loaded load(const MapProgress& progress) = 0;
    // A line about what was read; empty when there is nothing to tell.
    virtual QString loadRemarks() const { return {}; }
    virtual void showTables() = 0;
    // Whether the dialog may end as accepted.
    virtual bool mayAccept() { return true; }

    void reload();
    MapPlace place() const;
    void showPoints(const QStringList& titles, const std::vector<MapPoint>& points);
    QTableWidget* values() const { return values_; }
    // What the row titles of the values hold, said in the table's corner.
    void setValuesCorner(const QString& caption);
    void accept() override;

private:
    formkit::Item placePane(const std::vector<formkit::Cells>& cycles, const std::vector<formkit::Cells>& above);
    formkit::Item tables();
    Loaded loadWithProgress();
    void choosePlace();
    void chooseContour();
    void openContours();
    void chooseBorderLayer();
    void chooseStates();
    void takeTick(const QTableWidgetItem* item);
    void showRemarks();
    void takeBorder(std::optional<geometry::PointList> border, const QString& layer);

    MapWords words_;
    std::vector<MapPoint> points_;
    LeftOutPoints leftOut_;
    QString loadStatus_; // what stands in the way of loading; empty for nothing
    std::optional<geometry::PointList> border_;
    QString borderLayer_;
    QStringList states_;
    QRadioButton* byPosition_ = nullptr;
    QRadioButton* byDatabase_ = nullptr;
    QComboBox* contours_ = nullptr;
    QPushButton* contourDots_ = nullptr;
    QComboBox* layers_ = nullptr;
    QLabel* borderStatus_ = nullptr;
    QLabel* stateNotes_ = nullptr;
    QLabel* status_ = nullptr;
    QLabel* corner_ = nullptr;
    QCheckBox* labels_ = nullptr;
    QTableWidget* pointTable_ = nullptr;
    QTableWidget* values_ = nullptr;
};

// Asks for a border, runs the dialog, builds and draws the map.
void runMapDialog(MapDialog& form, QWidget* host);

template <class Form>
void runMap()
{
    formkit::OverHost host;
    Form form(host);
    runMapDialog(form, host);
}
