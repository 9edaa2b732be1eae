#include "analysis/settlements/forms/settlements_map_form.h"

#include "analysis/maps/forms/epoch_choice.h"
#include "analysis/profiles/deformation_table.h"
#include "analysis/profiles/epure.h"
#include "analysis/profiles/forms/profile_list_widget.h"
#include "analysis/settlements/settlement_texts.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/table_items.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <algorithm>

using namespace formkit;

namespace {

const QColor kOverLimit(255, 0, 0);
constexpr int kTitleMargins = 12; // pixels

// A title of two lines breaks between its words, never within one.
int widestWord(const QWidget& shown, const QString& title)
{
    int widest = 0;
    for (const QString& word : title.split(QLatin1Char(' ')))
        widest = std::max(widest, shown.fontMetrics().horizontalAdvance(word));
    return widest;
}

} // namespace

SettlementsMapForm::SettlementsMapForm(QWidget* parent)
    : ProfileDialog({"SettlementsMapForm", "Профиль деформаций", "Деформационные марки", "Коридор, м", "Имя профиля",
                     WithTitles | DecimalComma},
                    deformationProfiles(), parent),
      limit_(settlementLimit(session().currentPositionId)),
      epochs_(new EpochChoice({"BaseCyclesCombo", "Исходный цикл", "CurrentCyclesCombo", "Текущий цикл"}, this)),
      marks_(table("SettlesTable"))
{
    marks_->verticalHeader()->hide();
    marks_->horizontalHeader()->setDefaultAlignment(Qt::Alignment(QFlag(Qt::AlignCenter | Qt::TextWordWrap)));
    marks_->setSelectionBehavior(QAbstractItemView::SelectRows);
    std::vector<Cells> rows = {{"Позиция", growing(readOut("Position", session().currentPositionName))}};
    for (const Cells& row : epochs_->rows())
        rows.push_back(row);
    layOutProfile(
        {group("Замеры").grid(rows), labels_ = check("LabelsEnabled", "Выводить значения", true)},
        column({
            growing(marks_, 3),
            row({largest_ = note("LargestLabel"), mean_ = note("MeanLabel")}),
            growing(group("Профили позиции").column({list_ = named<DeformationProfileListWidget>("ProfilesList")})),
        }),
        endButtons(this, {ok("okButton"), cancel("cancelButton")}));
    resize(1360, 640); // room for the titles of both cycles
    list_->setPosition(session().currentPositionId);
    list_->setEnabled(false);
    connect(list_, &ProfileListWidget::chosen, this, &SettlementsMapForm::takeStored);
    connect(epochs_, &EpochChoice::changed, this, &SettlementsMapForm::reload);
    reload();
}

void SettlementsMapForm::setLine(const ProfileLine& line)
{
    lost_ = 0;
    list_->setEnabled(false);
    ProfileDialog::setLine(line);
}

void SettlementsMapForm::offerStored()
{
    list_->setEnabled(true);
    list_->chooseFirst();
    reload();
}

void SettlementsMapForm::takeStored(int id)
{
    if (!list_->isEnabled())
        return;
    lost_ = 0;
    if (id < 0 || !showRecord(id, &lost_))
        forgetRecord();
    reload();
}

void SettlementsMapForm::reload()
{
    const MovementRange range = movementRange(epochs_->epochs());
    SettlementState state;
    profile_ = DeformationProfileClass();
    if (record().id >= 0)
        state.read = profile_.load(record().id, range);
    else if (hasLine())
        state.read = profile_.load(line(), tolerance(), searchedPosition(), range);
    state.read = state.read && session().connection.isOk();
    state.hasLine = hasLine() || record().id >= 0;
    state.isOffered = list_->isEnabled();
    state.offered = list_->count();
    state.lost = lost_;
    showMarks();
    setStatus(settlementRemark(state, profile_));
}

void SettlementsMapForm::showMarks()
{
    const Epochs epochs = epochs_->epochs();
    const QStringList titles = deformationTitles(cycleTitle(epochs.base), currentTitle(epochs));
    const auto rows = deformationRows(profile_, limit_);
    marks_->setColumnCount(titles.size());
    marks_->setHorizontalHeaderLabels(titles);
    marks_->setRowCount(int(rows.size()));
    QSignalBlocker quiet(marks_->model()); // a signal a cell costs more than the cell
    for (int row = 0; row < marks_->rowCount(); ++row) {
        const auto& shown = rows[size_t(row)];
        for (int column = 0; column < titles.size(); ++column) {
            QTableWidgetItem* item = column == 0 ? textItem(shown.cells[column]) : figureItem(shown.cells[column]);
            if (shown.overLimit)
                item->setForeground(kOverLimit);
            marks_->setItem(row, column, item);
        }
    }
    quiet.unblock();
    marks_->viewport()->update();
    fitColumns(marks_);
    for (const int cycle : {1, 2})
        marks_->setColumnWidth(cycle, widestWord(*marks_, titles[cycle]) + kTitleMargins);
    largest_->setText(largestText(profile_));
    mean_->setText(meanText(profile_));
}

std::vector<LineElement> SettlementsMapForm::elementsToStore() const
{
    return {profile_.points.begin(), profile_.points.end()};
}

void SettlementsMapForm::stored() { list_->setPosition(session().currentPositionId); }

Sketch SettlementsMapForm::epure() const
{
    Sketch sketch;
    LabelField field;
    addEpure(placesOnLine(profile_, line(), limit_), sketch, field);
    if (!labels_->isChecked())
        sketch.texts.clear();
    return sketch;
}

void SettlementsMapForm::accept()
{
    if (!profile_.isMeasured())
        return warn(this, "Вдоль линии нет ни одной марки с замерами: чертить нечего.");
    QDialog::accept();
}
