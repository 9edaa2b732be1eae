#include "drawing/forms/tsg_catalog_selector.h"

#include "elements/forms/construction_choices.h"
#include "formkit/modal.h"

#include <QComboBox>

using namespace formkit;

TSGCatalogSelector::TSGCatalogSelector(QWidget* parent)
    : FieldsDialog("TSGCatalogSelector", "Укажите тип конструкции СОУ",
                   {Field::choice("CatalogList", "Тип СОУ", constructionChoices)}, {ok(), cancel("CancelBTn")}, parent)
{
    fields().widget<QComboBox>("CatalogList")->setMinimumContentsLength(30);
}

std::optional<int> TSGCatalogSelector::catalogId() const
{
    const QString id = fields().text("CatalogList");
    return id.isEmpty() ? std::nullopt : std::optional<int>(id.toInt());
}

std::optional<int> TSGCatalogSelector::choose() { return askModal(&TSGCatalogSelector::catalogId); }
