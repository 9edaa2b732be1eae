#include "database/hierarchy/forms/hierarchy_commands.h"

#include "base/placeholders.h"
#include "database/hierarchy/contour_line.h"
#include "database/hierarchy/forms/geometry_draw_filter_form.h"
#include "database/hierarchy/forms/node_dialogs.h"
#include "formkit/modal.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <nrx/application.h>
#include <nrx/editor.h>

#include <QInputDialog>

using namespace formkit;

namespace {

std::optional<NcDbObjectId> pickLine()
{
    NcSelectionName name;
    NcGePoint3d picked;
    NcDbObjectId id;
    if (ncedEntSel(QStringLiteral("Укажите линию контура"), name, picked) != kPromptNormal
        || !isOk(ncdbGetObjectId(id, name)))
        return {};
    return id;
}

// The keyword in its global form; Enter takes the one in angle brackets.
std::optional<QString> askWhichPosition()
{
    QString answer;
    ncedInitGet(0, QStringLiteral("Текущая Выбор _ Current Select"));
    const int status = ncedGetKword(QStringLiteral("Позиция [Текущая/Выбор]  <Текущая>"), answer);
    if (status != kPromptNormal && status != kPromptEmpty)
        return {};
    if (answer.isEmpty())
        answer = QStringLiteral("Current");
    say(fill("\n Выбор '%1'", answer));
    return answer;
}

QString askContourName()
{
    OverHost host;
    return QInputDialog::getText(host, QStringLiteral("Сохранить контур"), QStringLiteral("Имя"), QLineEdit::Normal,
                                 QStringLiteral("Контур"));
}

} // namespace

void addPositionContour()
{
    const std::optional<NcDbObjectId> picked = pickLine();
    const std::optional<QString> which = picked ? askWhichPosition() : std::nullopt;
    if (!which)
        return;
    const bool choosing = *which == QLatin1String("Select");
    const std::optional<int> position = choosing ? askPosition() : std::make_optional(session().currentPositionId);
    if (!position)
        return say(QStringLiteral("Необходимо выбрать позицию"));
    const std::optional<std::vector<ContourPoint>> points = contourPointsOf(*picked);
    if (!points)
        return say(QStringLiteral("Необходимо выбрать полилинию"));

    ContourRecord contour;
    contour.positionId = *position;
    contour.name = askContourName();
    contour.points = *points;
    if (contour.name.isEmpty())
        return;
    if (contour.insert())
        say(fill("\nКонтур '%1' сохранен в БД", contour.name));
    else
        say(fill("\nОшибка записи в БД %1", session().connection.errorMessage()));
}

void drawNodeLines(const ProjectNode& node)
{
    if (ncDocManagerPtr()->documentCount() == 0)
        return say(QStringLiteral("Нет активного документа"));
    if (const std::optional<StoredLines> wanted = askModal(&GeometryDrawFilterForm::wanted))
        drawStoredLines(session().positionsOf(node.level, node.id), *wanted);
}

void drawPositionLines() { drawNodeLines({session().currentPositionId, PositionLevel, 0}); }
