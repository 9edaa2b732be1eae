#include "analysis/profiles/forms/profile_list_widget.h"

#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>

using namespace formkit;

namespace {

Catalogue profilesCatalogue(const ProfileFamily& family)
{
    Catalogue profiles;
    profiles.listName = "ProfilesTable";
    profiles.statement = ""; // of a position that is told later
    profiles.titles = {"Имя"};
    profiles.question = "Удалить профиль %1 ?";
    profiles.remove = family.remove;
    return profiles;
}

} // namespace

ProfileListWidget::ProfileListWidget(const ProfileFamily& family, QWidget* parent)
    : CatalogueList(profilesCatalogue(family), parent), family_(family)
{
    connect(view()->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { emit chosen(currentId()); });
}

void ProfileListWidget::setPosition(int positionId)
{
    setStatement(compose(family_.list, positionId));
    refresh();
}

int ProfileListWidget::currentId() const
{
    const QString key = currentKey();
    return key.isEmpty() ? -1 : key.toInt();
}

void ProfileListWidget::chooseFirst()
{
    if (count() > 0)
        view()->setCurrentIndex(view()->model()->index(0, 0));
}

void ProfileListWidget::activate(const QModelIndex&) { }

DeformationProfileListForm::DeformationProfileListForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "DeformationProfileListForm", "Профили деформаций");
    layOut(this).column({
        growing(list_ = named<DeformationProfileListWidget>("ProfilesList")),
        endButtons(this, {accepts("ChooseBtn", "Выбрать"), rejects("CloseBtn", "Закрыть")}),
    });
    resize(360, 300);
    list_->setPosition(session().currentPositionId);
}
