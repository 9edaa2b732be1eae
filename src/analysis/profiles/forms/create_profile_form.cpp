#include "analysis/profiles/forms/create_profile_form.h"

#include "analysis/profiles/forms/section_pane.h"
#include "formkit/end_buttons.h"
#include "formkit/table_items.h"

#include <QHeaderView>

using namespace formkit;

namespace {

enum Column { NameColumn, XColumn, YColumn, DistColumn, OffsetColumn, UseColumn };

} // namespace

CreateProfileForm::CreateProfileForm(const ProfileFamily& family, const ProfileLine& line, QWidget* parent)
    : ProfileDialog({"CreateProfileForm", "Создание профиля", family.hasView ? "Термоскважины" : "Деформационные марки",
                     "Коридор, м"},
                    family, parent),
      table_(table("PointData", {"Имя", "X", "Y", "Расстояние, м", "От линии, м", "Использовать"}))
{
    table_->verticalHeader()->hide();
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    std::vector<Item> own;
    if (family.hasView)
        own.push_back(section_ = new SectionPane);
    layOutProfile(own, table_, endButtons(this, {rejects("CloseBtn", "Закрыть")}));
    setLine(line);
}

void CreateProfileForm::reload()
{
    const bool read = loadLineElements(family(), line(), tolerance(), searchedPosition(), elements_);
    keepCaught(elements_, line(), tolerance());
    table_->setRowCount(int(elements_.size()));
    for (int row = 0; row < table_->rowCount(); ++row) {
        const LineElement& element = elements_[size_t(row)];
        table_->setItem(row, NameColumn, textItem(element.name));
        table_->setItem(row, XColumn, numberItem(element.x, 2));
        table_->setItem(row, YColumn, numberItem(element.y, 2));
        table_->setItem(row, DistColumn, numberItem(element.dist, 2));
        table_->setItem(row, OffsetColumn, numberItem(element.offset, 2));
        table_->setItem(row, UseColumn, checkItem(true));
    }
    fitColumns(table_);
    setStatus(!read                   ? QStringLiteral("Ошибка соединения с базой данных")
                  : !hasLine()        ? QStringLiteral("У линии нет длины")
                  : elements_.empty() ? QStringLiteral("Вдоль линии нет ни одного элемента")
                                      : QString());
}

std::vector<LineElement> CreateProfileForm::elementsToStore() const
{
    std::vector<LineElement> used;
    for (int row = 0; row < table_->rowCount(); ++row) {
        if (table_->item(row, UseColumn)->checkState() == Qt::Checked)
            used.push_back(elements_[size_t(row)]);
    }
    return used;
}

SectionView CreateProfileForm::viewToStore() const { return section_ ? section_->view() : SectionView(); }
