#include "analysis/profiles/forms/section_form.h"

#include "analysis/profiles/forms/profile_list_widget.h"
#include "analysis/profiles/forms/section_pane.h"
#include "base/placeholders.h"
#include "base/text.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/table_items.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <cmath>

using namespace formkit;

namespace {

enum Column { NameColumn, DistColumn, OffsetColumn, CountColumn, DepthColumn, UseColumn };

constexpr int kMostNames = 10; // in a remark
const char* const kNoValue = "--";

QString refused() { return QStringLiteral("Ошибка соединения с базой данных"); }

} // namespace

SectionForm::SectionForm(const char* name, const char* title, QWidget* parent)
    : ProfileDialog({name, title, "Термоскважины", "Коридор"}, temperatureProfiles(), parent),
      table_(table("PointData", {"Имя", "Расстояние, м", "От линии, м", "Замеров", "Глубина, м", "Использовать"}))
{
    table_->verticalHeader()->hide();
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
}

void SectionForm::layOutSection(const std::vector<Cells>& cycles)
{
    layOutProfile(
        {group("Замеры").grid(cycles), section_ = new SectionPane},
        column({
            growing(table_, 2),
            growing(group("Профили позиции").column({list_ = named<TemperatureProfileListWidget>("ProfilesList")})),
        }),
        endButtons(this, {ok("okButton"), cancel("cancelButton")}));
    list_->setPosition(session().currentPositionId);
    list_->setEnabled(false);
    connect(list_, &ProfileListWidget::chosen, this, &SectionForm::takeStored);
    // Once a deleted profile has gone from the list too.
    connect(list_, &ProfileListWidget::changed, this, [this] { takeStored(list_->currentId()); });
    reload();
}

void SectionForm::setLine(const ProfileLine& line)
{
    lost_ = 0;
    list_->setEnabled(false);
    ProfileDialog::setLine(line);
}

void SectionForm::offerStored()
{
    list_->setEnabled(true);
    list_->chooseFirst();
    if (list_->count() == 0)
        takeStored(-1);
}

void SectionForm::takeStored(int id)
{
    if (!list_->isEnabled())
        return;
    lost_ = 0;
    const bool shown = id >= 0 && showRecord(id, &lost_);
    if (shown)
        section_->showView(record().view);
    else
        forgetRecord();
    reload();
    if (id >= 0 && !shown)
        setStatus(refused());
}

void SectionForm::reload()
{
    WellPlace place;
    place.positionId = searchedPosition();
    place.stored = record().id >= 0 ? record().points : std::vector<LineElement>();
    const bool isStored = !place.stored.empty();
    wells_.clear();
    bool read = true;
    if (isStored || (hasLine() && record().id < 0))
        read = loadWells(place, wells_);
    if (isStored)
        lost_ = std::max(lost_, int(place.stored.size() - wells_.size()));
    else
        keepCaught(wells_, line(), tolerance());
    showWells();
    setStatus(remark(read));
}

void SectionForm::showWells()
{
    table_->setRowCount(int(wells_.size()));
    for (int row = 0; row < table_->rowCount(); ++row) {
        const SectionWell& well = wells_[size_t(row)];
        const bool isMeasured = !well.log.empty();
        table_->setItem(row, NameColumn, textItem(well.name));
        table_->setItem(row, DistColumn, numberItem(well.dist, 2));
        table_->setItem(row, OffsetColumn, numberItem(record().id >= 0 ? HUGE_VAL : well.offset, 2, kNoValue));
        table_->setItem(row, CountColumn, numberItem(double(well.log.size()), 0));
        table_->setItem(row, DepthColumn, numberItem(isMeasured ? well.log.rbegin()->first : HUGE_VAL, 2, kNoValue));
        table_->setItem(row, UseColumn, checkItem(true));
    }
    fitColumns(table_);
}

// What is odd about the wells, before a section is made of them.
QString SectionForm::remark(bool read) const
{
    if (!read)
        return refused();
    QStringList lines;
    if (list_->isEnabled() && record().id < 0)
        lines << (list_->count() > 0 ? QStringLiteral("Выберите профиль позиции.")
                                     : QStringLiteral("У позиции нет сохранённых профилей."));
    else if (list_->isEnabled() ? wells_.empty() : hasLine() && wells_.empty())
        lines << QStringLiteral("Вдоль линии нет ни одной скважины.");
    if (lost_ > 0)
        lines << fill("Скважин профиля больше нет в базе: %1.", lost_);
    QStringList without;
    for (const SectionWell& well : wells_) {
        if (well.log.empty())
            without << well.name;
    }
    if (!without.isEmpty()) {
        const QString more = without.size() > kMostNames ? fill(" и ещё %1", without.size() - kMostNames) : QString();
        lines << fill("Без замеров: %1%2.", QStringList(without.mid(0, kMostNames)).join(QStringLiteral(", ")), more);
    }
    if (wells_.size() == 1)
        lines << QStringLiteral("Скважина одна: изотерм не будет.");
    return lines.join(QLatin1Char('\n'));
}

std::vector<SectionWell> SectionForm::usedWells() const
{
    std::vector<SectionWell> used;
    for (int row = 0; row < table_->rowCount(); ++row) {
        if (table_->item(row, UseColumn)->checkState() == Qt::Checked)
            used.push_back(wells_[size_t(row)]);
    }
    return used;
}

std::vector<LineElement> SectionForm::elementsToStore() const
{
    std::vector<LineElement> elements;
    for (const SectionWell& well : usedWells())
        elements.push_back(well);
    return elements;
}

SectionView SectionForm::viewToStore() const
{
    SectionView view = section_->view();
    view.origX = record().view.origX;
    view.origY = record().view.origY;
    return view;
}

void SectionForm::stored()
{
    const QSignalBlocker quiet(list_);
    list_->refresh();
}

void SectionForm::accept()
{
    if (usedWells().empty())
        return warn(this, "Не выбрано ни одной скважины.");
    QDialog::accept();
}
