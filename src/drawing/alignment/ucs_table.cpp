#include "drawing/alignment/ucs_table.h"

#include "base/statement.h"
#include "session/project_session.h"

QVector<StoredUcs> storedUcs()
{
    QVector<StoredUcs> stored;
    const sql::Result rows = session().run("select ucs_id,ucs_name,ucs_data from ucs_data order by ucs_name");
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        stored.append({rows.toInt(row, 0), rows.getvalue(row, 1), rows.getvalue(row, 2)});
    return stored;
}

std::optional<int> insertUcs(const UcsRecord& ucs, QString& refusal)
{
    const sql::Result row = session().run(
        compose("insert into ucs_data (ucs_name, ucs_data) values ('%1','%2') returning ucs_id", ucs.name, ucs.text()));
    if (!row.hasRow()) {
        refusal = row.errorMessage();
        return {};
    }
    return row.toInt(0, 0);
}

bool updateUcs(int id, const UcsRecord& ucs)
{
    return session()
        .run(compose("update ucs_data set (ucs_name,ucs_data)=('%1','%2') where ucs_id=%3", ucs.name, ucs.text(), id))
        .isCommand();
}

bool deleteUcs(int id) { return session().run(compose("delete from ucs_data where ucs_id=%1", id)).isCommand(); }
