#include "database/hierarchy/stored_drawing.h"

#include "base/file_name.h"
#include "base/placeholders.h"
#include "base/statement.h"
#include "files/written_file.h"
#include "hostkit/console.h"
#include "session/project_session.h"
#include "session/working_drawing.h"

bool hasStoredDrawing(int positionId)
{
    return session().run(compose("select file_id from positions_files  where position_id=%1", positionId)).hasRow();
}

void showStoredDrawing(int positionId)
{
    const sql::Result row = session().run("select content,position from positions_files left join positions "
                                          "using(position_id)  where position_id=$1::integer",
                                          {sql::text(positionId)}, sql::Format::Binary);
    if (!row.hasRow())
        return;
    const QString name = fill("ID%1_%2.dwg", positionId, plainName(row.getvalue(0, 1)));
    const QString path = session().tempDir + QLatin1Char('/') + name;
    closeDrawing(path);
    if (!saveFile(path, row.bytes(0, 0), nullptr, WrittenFile::Private))
        return say(fill("\n Не удается создать файл %1", path));
    const bool named = session().projectId != -1;
    openDrawing(path, {named ? QStringLiteral("position_id") : QString(), QString::number(positionId)});
}
