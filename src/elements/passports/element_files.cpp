#include "elements/passports/element_files.h"

#include "base/statement.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QBuffer>

namespace {

QString typeOf(PictureSlot slot)
{
    static const char* const types[] = {"photo", "abris", "geocol"};
    return QString::fromLatin1(types[int(slot)]);
}

} // namespace

QByteArray loadPictureFile(const Family& family, int elementId, PictureSlot slot)
{
    const sql::Result row =
        session().run(compose("select content from %1 where element_id=$1::integer and file_type=$2::filetype",
                              Identifier(family.files)),
                      {sql::text(elementId), sql::text(typeOf(slot))}, sql::Format::Binary);
    return row.hasRow() ? row.bytes(0, 0) : QByteArray();
}

QPixmap loadPicture(const Family& family, int elementId, PictureSlot slot)
{
    QPixmap picture;
    picture.loadFromData(loadPictureFile(family, elementId, slot), "PNG");
    return picture;
}

bool storePicture(const Family& family, int elementId, PictureSlot slot, const QPixmap& picture)
{
    const Identifier table(family.files);
    const sql::Result present = session().run(
        compose("select file_id from %3 where element_id=%1 and file_type='%2'", elementId, typeOf(slot), table));
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!present.isTuples() || !picture.save(&buffer, "PNG")) {
        say(present.errorMessage());
        return false;
    }
    const QVector<sql::Parameter> values = {sql::text(elementId), sql::text(typeOf(slot)), sql::binary(png)};
    const sql::Result stored = present.hasRow()
        ? session().run(compose("update %2 set (element_id , file_type, content) = ($1::integer, $2::filetype, "
                                "$3::bytea) where file_id=%1",
                                present.toInt(0, 0), table),
                        values)
        : session().run(compose("insert into %1 (element_id , file_type, content) values ($1::integer, "
                                "$2::filetype, $3::bytea) returning file_id",
                                table),
                        values);
    const bool good = stored.isCommand() || stored.isTuples();
    if (!good)
        say(stored.errorMessage());
    return good;
}
