#include "drawing/sync/sync_questions.h"

#include "base/placeholders.h"
#include "hostkit/model_space.h"
#include "session/project_session.h"

#include <nrx/application.h>
#include <nrx/editor.h>

#include <optional>

namespace {

constexpr int noPosition = -2;

std::optional<QString> drawingProperty(const QString& key)
{
    NcDbDatabaseSummaryInfo info;
    QString value;
    if (!isOk(ncdbGetSummaryInfo(workingDatabase(), info)) || !isOk(info.getCustomSummaryInfo(key, value)))
        return {};
    return value;
}

bool goesOn(const SyncQuestions& questions, const QString& text) { return questions.warn && questions.warn(text); }

bool projectIsAccepted(const SyncQuestions& questions)
{
    const QString named = drawingProperty(QStringLiteral("project")).value_or(QString());
    if (named == session().projectName)
        return true;
    return goesOn(questions,
                  fill("Наименование текущего проекта:\n\n«%1»\n\n и проекта в документе:\n\n«%2»\n\nне совпадают!\n"
                       "Дальнейшее выполнение команды может  привести к непредсказуемым последствиям.\n"
                       " Все равно продолжить? ",
                       session().projectName, named));
}

// What is no number counts as position 0, and so differs from any.
bool positionIsAccepted(const SyncQuestions& questions)
{
    const std::optional<QString> property = drawingProperty(QStringLiteral("position_id"));
    const int named = property ? property->toInt() : noPosition;
    if (named == session().currentPositionId)
        return true;
    return goesOn(questions,
                  fill("Идентификатор текущей позиции :«%1» и идентификатор позиции в документе:«%2» не совпадают!\n"
                       "Дальнейшее выполнение команды может  привести к непредсказуемым последствиям.\n"
                       " Все равно продолжить? ",
                       session().currentPositionId,
                       named == noPosition ? QStringLiteral(" не задано ") : QString::number(named)));
}

} // namespace

std::optional<SyncMode> askSyncMode()
{
    // The second local word begins with a Latin letter; scripts are bound to it.
    ncedInitGet(0, "Чертеж aттрибуты-по-Позиции Аттрибуты-по-чертежу _ Dwg Position Drawing");
    QString answer;
    if (ncedGetKword("Синхронизировать [Чертеж/aттрибуты-по-Позиции/Аттрибуты-по-чертежу]  <aттрибуты-по-Позиции>",
                     answer)
        != kPromptNormal)
        return {};
    if (answer == QLatin1String("Dwg"))
        return SyncMode::File;
    return answer == QLatin1String("Position") ? SyncMode::Position : SyncMode::Drawing;
}

bool drawingIsAccepted(const SyncQuestions& questions)
{
    return projectIsAccepted(questions) && positionIsAccepted(questions);
}

bool documentIsAccepted(const SyncQuestions& questions)
{
    return !ncDocManagerPtr()->curDocument() || positionIsAccepted(questions);
}
