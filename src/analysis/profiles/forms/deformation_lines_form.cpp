#include "analysis/profiles/forms/deformation_lines_form.h"

#include "analysis/maps/map_place.h"
#include "analysis/profiles/deformation_table.h"
#include "analysis/profiles/forms/profile_list_widget.h"
#include "analysis/profiles/forms/section_pane.h"
#include "base/placeholders.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/modal.h"
#include "formkit/table_items.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <cmath>

using namespace formkit;

namespace {

enum Column { NameColumn, LengthColumn, LargestColumn, UseColumn };

constexpr int kCycleLength = 20; // characters that a box of cycles has room for
const char* const kNoValue = "--";
const QColor kOverLimit(255, 0, 0);

QComboBox* cycleCombo(const char* name, int chosen)
{
    QComboBox* made = narrowCombo(name, kCycleLength, session().cycleEntries(" - "));
    choose(made, chosen);
    return made;
}

} // namespace

DeformationLinesForm::DeformationLinesForm(QWidget* parent)
    : ProfileDialog({"DeformationLinesForm", "Эпюры деформаций", "Деформационные марки", "Коридор, м"},
                    deformationProfiles(), parent),
      limit_(settlementLimit(session().currentPositionId)),
      list_(table("ProfilesTable")),
      marks_(table("SettlesTable"))
{
    const auto comboChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);
    QWidget* cycles = group("Замеры").grid({
        {"Исходный цикл", growing(base_ = cycleCombo("BaseCyclesCombo", session().baseCycleId))},
        {"Текущий цикл", current_ = cycleCombo("CurrentCyclesCombo", session().currentCycleId)},
        {usePrediction_ = check("UsePredictionCheck", "Прогноз"),
         prediction_ = narrowCombo("PredictionsList", kCycleLength, session().predictionEntries(" - "))},
        {"Масштаб", scale_ = combo("ScaleCombo")},
    });
    fillScales(scale_, epureScales(), 2.0);
    for (QTableWidget* table : {list_, marks_}) {
        table->verticalHeader()->hide();
        table->setSelectionBehavior(QAbstractItemView::SelectRows);
    }
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    layOutProfile(
        {cycles,
         row({button("ListProfilesBTN", "Список профилей", this, &DeformationLinesForm::listProfiles), stretch()})},
        column({
            growing(list_),
            growing(marks_, 2),
            row({largest_ = note("LargestLabel"), mean_ = note("MeanLabel")}),
        }),
        endButtons(this, {ok("okButton"), cancel("cancelButton")}));
    usePrediction_->setEnabled(prediction_->count() > 0);
    for (QComboBox* choice : {base_, current_, prediction_})
        connect(choice, comboChanged, this, &DeformationLinesForm::reload);
    connect(usePrediction_, &QCheckBox::toggled, this, &DeformationLinesForm::chooseSide);
    connect(list_, &QTableWidget::currentCellChanged, this, &DeformationLinesForm::showMarks);
    connect(list_, &QTableWidget::itemChanged, this, [this](const QTableWidgetItem* item) {
        if (item->column() != UseColumn)
            return;
        const QString name = profiles_[size_t(item->row())].name;
        left_.removeAll(name);
        if (item->checkState() != Qt::Checked)
            left_ << name;
    });
    chooseSide();
}

void DeformationLinesForm::chooseSide()
{
    current_->setEnabled(!usePrediction_->isChecked());
    prediction_->setEnabled(usePrediction_->isChecked());
    reload();
}

MovementRange DeformationLinesForm::range() const
{
    const bool isPrediction = usePrediction_->isChecked();
    return {chosenId(base_), chosenId(isPrediction ? prediction_ : current_), isPrediction};
}

QString DeformationLinesForm::sideTitle(bool base) const
{
    const int id = chosenId(base ? base_ : current_);
    if (base || !usePrediction_->isChecked())
        return fill("Цикл %1", session().cycles.value(id).value(0));
    const QString day = session().predictions.value(chosenId(prediction_)).value(0);
    return day.isEmpty() ? QStringLiteral("Прогноз") : fill("Прогноз \n %1", day);
}

void DeformationLinesForm::reload()
{
    profiles_.clear();
    lost_ = 0;
    bool read = true;
    if (hasLine()) {
        DeformationProfileClass picked;
        read = picked.load(line(), tolerance(), searchedPosition(), range());
        picked.name = QStringLiteral("Линия чертежа");
        profiles_.push_back(picked);
    }
    for (const NamedProfile& known : positionProfiles(deformationProfiles(), session().currentPositionId)) {
        DeformationProfileClass stored;
        int gone = 0;
        if (!stored.load(known.id, range(), &gone)) {
            read = false;
            continue;
        }
        lost_ += gone;
        profiles_.push_back(stored);
    }
    showProfiles();
    setStatus(remark(read && session().connection.isOk()));
}

// A picked line is what the user came with: the stored ones wait to be ticked.
void DeformationLinesForm::showProfiles()
{
    const int chosen = list_->currentRow();
    {
        const QSignalBlocker quiet(list_);
        list_->setColumnCount(4);
        list_->setHorizontalHeaderLabels({"Имя", "Расстояние, м", sideTitle(false), "Выводить"});
        list_->setRowCount(int(profiles_.size()));
        for (int row = 0; row < list_->rowCount(); ++row) {
            const DeformationProfileClass& profile = profiles_[size_t(row)];
            list_->setItem(row, NameColumn, textItem(profile.name));
            list_->setItem(row, LengthColumn, numberItem(profile.length, 2));
            list_->setItem(row, LargestColumn,
                           numberItem(profile.isMeasured() ? profile.deltaMaxAbs * 1000.0 : HUGE_VAL, 2, kNoValue));
            const bool wanted = (!hasLine() || row == 0) && !left_.contains(profile.name);
            list_->setItem(row, UseColumn, checkItem(wanted));
        }
        fitColumns(list_);
        if (!profiles_.empty())
            list_->setCurrentCell(chosen >= 0 && chosen < list_->rowCount() ? chosen : 0, NameColumn);
    }
    showMarks();
}

void DeformationLinesForm::showMarks()
{
    const int row = list_->currentRow();
    const bool isThere = row >= 0 && row < int(profiles_.size());
    const DeformationProfileClass none;
    const DeformationProfileClass& profile = isThere ? profiles_[size_t(row)] : none;
    const QStringList titles = deformationTitles(sideTitle(true), sideTitle(false));
    const std::vector<DeformationTableRow> rows = deformationRows(profile, limit_);
    marks_->setColumnCount(titles.size());
    marks_->setHorizontalHeaderLabels(titles);
    marks_->setRowCount(int(rows.size()));
    for (int i = 0; i < marks_->rowCount(); ++i) {
        for (int column = 0; column < titles.size(); ++column) {
            const QString& text = rows[size_t(i)].cells[column];
            QTableWidgetItem* item = column == NameColumn ? textItem(text) : figureItem(text);
            if (rows[size_t(i)].overLimit)
                item->setForeground(kOverLimit);
            marks_->setItem(i, column, item);
        }
    }
    fitColumns(marks_);
    largest_->setText(largestText(profile));
    mean_->setText(meanText(profile));
}

QString DeformationLinesForm::remark(bool read) const
{
    if (!read)
        return QStringLiteral("Ошибка соединения с базой данных");
    QStringList lines, unmeasured, single;
    if (profiles_.empty())
        lines << QStringLiteral("Линия не указана, и у позиции нет сохранённых профилей.");
    for (const DeformationProfileClass& profile : profiles_) {
        if (profile.points.empty())
            lines << fill("%1: вдоль линии нет ни одной марки.", profile.name);
        else if (!profile.isMeasured())
            unmeasured << profile.name;
        else if (profile.points.size() == 1)
            single << profile.name;
    }
    if (!unmeasured.isEmpty())
        lines << fill("Нет замеров с обеих сторон: %1.", unmeasured.join(QStringLiteral(", ")));
    if (!single.isEmpty())
        lines << fill("Марка одна, разностей нет: %1.", single.join(QStringLiteral(", ")));
    QStringList repeated;
    for (const DeformationProfileClass& profile : profiles_)
        repeated << profile.repeated;
    repeated.removeDuplicates();
    if (!repeated.isEmpty())
        lines << repeatedNote(repeated, QStringLiteral("взято первое измерение"));
    if (lost_ > 0)
        lines << fill("Марок профилей больше нет в базе: %1.", lost_);
    return lines.join(QLatin1Char('\n'));
}

void DeformationLinesForm::listProfiles()
{
    const std::optional<int> chosen = askOver(this, &DeformationProfileListForm::chosenProfile);
    reload();
    for (int row = 0; chosen && row < int(profiles_.size()); ++row) {
        if (profiles_[size_t(row)].id == *chosen)
            list_->setCurrentCell(row, NameColumn);
    }
}

std::vector<DeformationProfileClass> DeformationLinesForm::usedProfiles() const
{
    std::vector<DeformationProfileClass> used;
    for (int row = 0; row < list_->rowCount(); ++row) {
        if (list_->item(row, UseColumn)->checkState() == Qt::Checked)
            used.push_back(profiles_[size_t(row)]);
    }
    return used;
}

// The picked line is what can be kept; a stored profile is kept already.
std::vector<LineElement> DeformationLinesForm::elementsToStore() const
{
    std::vector<LineElement> elements;
    if (hasLine()) {
        for (const DeformationProfilePoint& point : profiles_.front().points)
            elements.push_back(point);
    }
    return elements;
}

double DeformationLinesForm::scale() const { return scale_->currentData().toDouble(); }

QString DeformationLinesForm::title() const
{
    return QLatin1Char(' ') + sideTitle(false).replace(QStringLiteral(" \n "), QStringLiteral(" "));
}

void DeformationLinesForm::accept()
{
    if (usedProfiles().empty())
        return warn(this, "Не выбрано ни одного профиля.");
    QDialog::accept();
}
