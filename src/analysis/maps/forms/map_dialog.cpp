#include "analysis/maps/forms/map_dialog.h"

#include "analysis/maps/forms/iso_contours_cmd_dialog.h"
#include "analysis/maps/forms/state_filter_form.h"
#include "analysis/maps/point_remarks.h"
#include "analysis/maps/value_labels.h"
#include "database/hierarchy/forms/contours_list_widget.h"
#include "database/hierarchy/position_contours.h"
#include "formkit/end_buttons.h"
#include "formkit/progress_box.h"
#include "hostkit/console.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

using namespace formkit;

namespace {

constexpr int kRowRole = Qt::UserRole;
constexpr int kFirstShown = 3; // behind name, x, y
const QColor kSuspect(255, 0, 0);

Choices contoursOf(int positionId)
{
    Choices choices;
    for (const auto& [id, name] : positionContours(positionId))
        choices.append({name, id});
    return choices;
}

// What the row headers hold is said in the table's corner.
QLabel* cornerLabel(QTableWidget* table)
{
    auto* shown = named<QLabel>("ValuesCorner");
    shown->setAlignment(Qt::AlignCenter);
    table->setCornerButtonEnabled(false);
    table->verticalHeader()->setMinimumWidth(70);
    auto* corner = table->findChild<QAbstractButton*>();
    if (!corner) {
        shown->setParent(table);
        return shown;
    }
    layOut(corner).row({shown});
    corner->layout()->setContentsMargins(2, 0, 2, 0);
    return shown;
}

} // namespace

MapDialog::MapDialog(const MapWords& words, QWidget* parent) : QDialog(parent), words_(words)
{
    nameForm(this, words.name, words.title);
    states_ = session().stateFilter.keys();
}

void MapDialog::layOutMap(const std::vector<Cells>& cycles, QWidget* sampling, const std::vector<Cells>& above)
{
    layOut(this).column({
        growing(row({
            column({
                placePane(cycles, above),
                sampling ? sampling : new QWidget,
                row({"Состояния:", growing(stateNotes_ = note("SelectedStatesLb", stateNotes(states_))),
                     button("StateFilterBtn", "Фильтр", this, &MapDialog::chooseStates)}),
                labels_ = check("LabelsOutEnabled", "Выводить значения"),
                stretch(),
                status_ = note("StatusLabel"),
            }),
            growing(tables()),
        })),
        row({
            button("ExportCSVBTN", "Экспорт в .csv", this,
                   [this] { exportCsv(this, values_, words_.fileParts, "Экспорт в csv"); }),
            button("CopyClipBTN", "Экспорт в буфер", this, [this] { copyTable(values_, words_.clipboardParts); }),
            stretch(),
            endButtons(this, {ok("okButton"), cancel("cancelButton")}),
        }),
    });
    resize(1366, 640);
}

Item MapDialog::placePane(const std::vector<Cells>& cycles, const std::vector<Cells>& above)
{
    std::vector<Cells> rows = above;
    const std::vector<Cells> places = {
        {wide(2, byPosition_ = radio("ByPosition", "По позиции", true))},
        {"Контуры позиции",
         growing(row({growing(contours_ = combo("PositionContourList", contoursOf(session().currentPositionId))),
                      contourDots_ = dotsButton("PositionContoursBtn")}))},
        {wide(2, byDatabase_ = radio("ByDataBase", "По всей базе"))},
        {"Слой", layers_ = combo("BoundLayer")},
        {nothing(), borderStatus_ = named<QLabel>("BoundStatus", QStringLiteral("Не загружена"))},
    };
    rows.insert(rows.end(), places.begin(), places.end());
    rows.insert(rows.end(), cycles.begin(), cycles.end());
    layers_->addItem(QString());
    layers_->addItems(layerNames());
    return group(words_.elements).grid(rows);
}

Item MapDialog::tables()
{
    QTabWidget* pages = tabs("Tables").pages({
        {"Точки", pointTable_ = table("PointData")},
        {"Значения", values_ = table("ValuesData")},
    });
    pointTable_->verticalHeader()->hide();
    pointTable_->setSelectionBehavior(QAbstractItemView::SelectRows);
    corner_ = cornerLabel(values_);
    pages->setMinimumWidth(620);
    return pages;
}

void MapDialog::start()
{
    const auto comboChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(byPosition_, &QRadioButton::toggled, this, &MapDialog::choosePlace);
    connect(contours_, comboChanged, this, &MapDialog::chooseContour);
    connect(contourDots_, &QPushButton::clicked, this, &MapDialog::openContours);
    connect(layers_, comboChanged, this, &MapDialog::chooseBorderLayer);
    connect(pointTable_, &QTableWidget::itemChanged, this, &MapDialog::takeTick);
    layers_->setEnabled(false);
    reload();
}

// --- the border --------------------------------------------------------------

void MapDialog::setBorder(const PickedBorder& border)
{
    contours_->setEnabled(false);
    {
        const QSignalBlocker quiet(layers_);
        layers_->setCurrentText(border.layer);
    }
    takeBorder(border.vertices, border.layer);
}

void MapDialog::offerPositionContours()
{
    contours_->setEnabled(true);
    chooseContour();
}

void MapDialog::takeBorder(std::optional<geometry::PointList> border, const QString& layer)
{
    border_ = std::move(border);
    borderLayer_ = layer;
    borderStatus_->setText(border_ ? QStringLiteral("Загружена") : QStringLiteral("Не загружена"));
    if (byDatabase_->isChecked())
        reload();
}

void MapDialog::chooseContour()
{
    if (contours_->currentIndex() >= 0)
        takeBorder(contourPoints(chosenId(contours_)), QString());
}

// The user may delete the one that is chosen: the border goes with it.
void MapDialog::openContours()
{
    const int before = chosenId(contours_);
    openPositionContours(session().currentPositionId, this);
    setChoices(contours_, contoursOf(session().currentPositionId));
    if (chosenId(contours_) == before || !contours_->isEnabled())
        return;
    if (contours_->currentIndex() < 0)
        takeBorder(std::nullopt, QString());
    else
        chooseContour();
}

void MapDialog::chooseBorderLayer()
{
    const QString layer = layers_->currentText();
    takeBorder(layer.isEmpty() ? std::nullopt : loadBoundaryFromLayer(layer), layer);
}

void MapDialog::choosePlace()
{
    layers_->setEnabled(byDatabase_->isChecked());
    reload();
}

void MapDialog::chooseStates()
{
    const std::optional<QStringList> chosen = askOver(this, &StateFilterForm::chosenStates, states_);
    if (!chosen)
        return;
    states_ = *chosen;
    stateNotes_->setText(stateNotes(states_));
    reload();
}

MapPlace MapDialog::place() const
{
    return {byPosition_->isChecked(), session().currentPositionId, border_.value_or(geometry::PointList()), states_};
}

Loaded MapDialog::loadWithProgress()
{
    ProgressBox box(this, windowTitle(), QStringLiteral("Чтение измерений"));
    return load([&box](int done, int total) { return box.step(done, total); });
}

void MapDialog::reload()
{
    loadStatus_.clear();
    const Loaded loaded = loadWithProgress();
    if (loaded == Loaded::Refused)
        loadStatus_ = QStringLiteral("Ошибка соединения с базой данных");
    else if (loaded == Loaded::Stopped)
        loadStatus_ = QStringLiteral("Чтение прервано, таблицы пусты");
    else if (byDatabase_->isChecked() && !border_)
        loadStatus_ = QStringLiteral("Укажите слой");
    showTables();
}

// --- the tables ---------------------------------------------------------------

void MapDialog::showPoints(const QStringList& titles, const std::vector<MapPoint>& points)
{
    points_ = points;
    QTableWidget* table = pointTable_;
    const QSignalBlocker quiet(table);
    table->setSortingEnabled(false);
    const QStringList all = QStringList{"Имя", "X", "Y"} + titles + QStringList{"Использовать"};
    table->setColumnCount(all.size());
    table->setHorizontalHeaderLabels(all);
    table->setRowCount(int(points.size()));
    for (int row = 0; row < table->rowCount(); ++row) {
        const MapPoint& point = points[size_t(row)];
        table->setItem(row, 0, textItem(point.name));
        table->setItem(row, 1, numberItem(point.x, 2));
        table->setItem(row, 2, numberItem(point.y, 2));
        int column = kFirstShown;
        for (double shown : point.shown)
            table->setItem(row, column++, numberItem(shown, 2, words_.missing));
        QTableWidgetItem* use = checkItem(point.valid && !leftOut_.contains(point));
        use->setData(kRowRole, row);
        table->setItem(row, column, use);
    }
    table->setSortingEnabled(true);
    fitColumns(table);
    showRemarks();
}

void MapDialog::takeTick(const QTableWidgetItem* item)
{
    if (item->column() != pointTable_->columnCount() - 1)
        return;
    leftOut_.note(points_[size_t(item->data(kRowRole).toInt())], item->checkState() == Qt::Checked);
    showRemarks();
}

// Says what is odd about the points in use and marks their rows; none is taken out.
void MapDialog::showRemarks()
{
    const PointRemarks remarks = remarksOn(points_, usedRows());
    QStringList lines = {loadRemarks(), remarks.text};
    lines.removeAll(QString());
    status_->setText(loadStatus_.isEmpty() ? lines.join(QLatin1Char('\n')) : loadStatus_);
    const QSignalBlocker quiet(pointTable_);
    const int useColumn = pointTable_->columnCount() - 1;
    for (int row = 0; row < pointTable_->rowCount(); ++row) {
        const auto index = size_t(pointTable_->item(row, useColumn)->data(kRowRole).toInt());
        const bool marked = points_[index].suspect || remarks.marked.count(index) > 0;
        for (int column = 0; column < useColumn; ++column)
            pointTable_->item(row, column)->setData(Qt::ForegroundRole, marked ? QBrush(kSuspect) : QVariant());
    }
}

void MapDialog::setValuesCorner(const QString& caption) { corner_->setText(caption); }

std::vector<size_t> MapDialog::usedRows() const
{
    std::vector<size_t> used;
    const int useColumn = pointTable_->columnCount() - 1;
    for (int row = 0; row < pointTable_->rowCount(); ++row) {
        const QTableWidgetItem* use = pointTable_->item(row, useColumn);
        const auto index = size_t(use->data(kRowRole).toInt());
        if (use->checkState() == Qt::Checked && points_[index].valid && std::isfinite(points_[index].value))
            used.push_back(index);
    }
    // A map is the same whichever column the table is sorted by.
    std::sort(used.begin(), used.end());
    return used;
}

QStringList MapDialog::usedNames() const
{
    QStringList names;
    for (size_t index : usedRows())
        names << points_[index].name;
    return names;
}

geometry::PointList MapDialog::usedPoints() const
{
    geometry::PointList points;
    for (size_t index : usedRows())
        points.push_back({points_[index].x, points_[index].y, points_[index].value});
    return points;
}

// --- the end ------------------------------------------------------------------

void MapDialog::accept()
{
    if (mayAccept())
        QDialog::accept();
}

void MapDialog::drawLabels(const geometry::PointList& points) const { drawValueLabels(points); }

void runMapDialog(MapDialog& form, QWidget* host)
{
    if (const auto border = askForBorder(QStringLiteral("Укажите линию границы (ESC список в позиции)")))
        form.setBorder(*border);
    else
        form.offerPositionContours();
    if (form.exec() != QDialog::Accepted)
        return;
    const geometry::PointList points = form.usedPoints();
    if (points.empty())
        return;
    IsoContoursCmdDialog dialog(host);
    dialog.SetPoints(points);
    dialog.SetPointNames(form.usedNames());
    dialog.HidePointSelection(true);
    if (form.border()) {
        dialog.SetBoundLayer(form.borderLayer());
        dialog.SetBounds(*form.border(), false);
        dialog.HideBoundSelection(true);
    }
    dialog.SetLevelMapID(form.levelMapId());
    dialog.setSubject(form.subject());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const bool built = dialog.build();
    if (!form.labelsWanted())
        return;
    if (dialog.drewAnything())
        form.drawLabels(points);
    else if (built)
        say("\nКарта ничего не вывела в чертёж, поэтому и значения у точек не подписаны.\n");
}
