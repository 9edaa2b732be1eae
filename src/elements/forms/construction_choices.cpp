#include "elements/forms/construction_choices.h"

#include "base/placeholders.h"

formkit::Choices constructionChoices()
{
    const sql::Result rows = session().run("select catalog_id,name,note from tsg_catalog order by catalog_id,name");
    formkit::Choices choices;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        choices.append({fill("%1 (%2)", rows.getvalue(row, 1), rows.getvalue(row, 2)), rows.toInt(row, 0)});
    return choices;
}
