#include "elements/geology/well_name.h"

#include "elements/geology/quoted_text.h"
#include "session/project_session.h"

QString geologicalWellNameFault(int elementId, int positionId, const QString& name)
{
    if (name.trimmed().isEmpty())
        return QStringLiteral("Название скважины не может быть пустым");
    const QString wanted = doubled(name);
    const Statement others = positionId != -1
        ? compose("select element_id from igs_elements where element_name='%1' and position_id=%2 and element_id!=%3",
                  wanted, positionId, elementId)
        : compose("select element_id from igs_elements where element_name='%1' and element_id!=%2", wanted, elementId);
    return session().run(others).hasRow() ? QStringLiteral("Скважина с таким названием уже существует в данной позиции")
                                          : QString();
}
