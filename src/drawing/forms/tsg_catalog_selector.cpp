#include "drawing/forms/tsg_catalog_selector.h"

#include "base/placeholders.h"
#include "formkit/modal.h"
#include "session/project_session.h"

#include <QComboBox>

using namespace formkit;

namespace {

Choices catalogue()
{
    const sql::Result rows = session().run("select catalog_id,name,note from tsg_catalog order by catalog_id,name");
    Choices choices;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        choices.append({fill("%1 (%2)", rows.getvalue(row, 1), rows.getvalue(row, 2)), rows.toInt(row, 0)});
    return choices;
}

} // namespace

TSGCatalogSelector::TSGCatalogSelector(QWidget* parent)
    : FieldsDialog("TSGCatalogSelector", "Укажите тип конструкции СОУ",
                   {Field::choice("CatalogList", "Тип СОУ", catalogue)}, {ok(), cancel("CancelBTn")}, parent)
{
    fields().widget<QComboBox>("CatalogList")->setMinimumContentsLength(30);
}

std::optional<int> TSGCatalogSelector::catalogId() const
{
    const QString id = fields().text("CatalogList");
    return id.isEmpty() ? std::nullopt : std::optional<int>(id.toInt());
}

std::optional<int> TSGCatalogSelector::choose() { return askModal(&TSGCatalogSelector::catalogId); }
