#include "host_commands.h"

#include "plot_command.h"

#include <drawing/application.h>
#include <drawing/edit_operations.h>
#include <drawing/prompt_backend.h>
#include <drawing/typed_answers.h>

void registerHostCommands()
{
    for (const auto* rows : {&fileCommands(), &viewCommands(), &drawCommands(), &editCommands(), &clipboardCommands(),
                             &measureCommands(), &layerCommands(), &sheetCommands(), &plotCommands()})
        for (const HostCommandRow& row : *rows)
            addHostCommand(
                QString::fromLatin1(row.name),
                [run = row.run](const QStringList& words) {
                    const TypedAnswers answers(words);
                    run();
                },
                QString::fromUtf8(row.aliases).split(QLatin1Char('|'), Qt::SkipEmptyParts), row.flags);
}

void sayLine(const QString& text) { printToConsole(text + QLatin1Char('\n')); }

void sayFailure(const QString& text)
{
    sayLine(text);
    if (PromptBackend* backend = promptBackend())
        backend->commandFailed(text);
}

QString askKeyword(const QString& prompt, const QString& keywords)
{
    QString answer;
    ncedInitGet(0, keywords);
    const int status = ncedGetKword(prompt, answer);
    if (status == kPromptEmpty)
        return QStringLiteral("");
    return status == kPromptNormal ? answer : QString();
}

bool askText(const QString& prompt, QString& text) { return ncedGetString(true, prompt, text) == kPromptNormal; }

bool askPoint(const QString& prompt, NcGePoint3d& world, const NcGePoint3d* base)
{
    NcGePoint3d start, point;
    if (base)
        ncdbWcs2Ucs(*base, start);
    return ncedGetPoint(base ? &start : nullptr, prompt, point) == kPromptNormal && ncdbUcs2Wcs(point, world);
}

bool askNumber(const QString& prompt, double& value) { return ncedGetReal(prompt, value) == kPromptNormal; }

NcDbDatabase* currentDrawing()
{
    return ncDocManagerPtr()->curDocument() ? ncDocManagerPtr()->curDocument()->database() : nullptr;
}

bool appendToSpace(NcDbEntity* entity)
{
    if (NcDbDatabase* drawing = currentDrawing())
        entity->setDatabaseDefaults(drawing);
    return appendAsIs(entity);
}

NcDbObjectIdArray implied()
{
    NcSelectionSet set;
    return ncedSSGet(QStringLiteral("_I"), {}, set) == kPromptNormal ? set.ids : NcDbObjectIdArray();
}

bool askObjects(NcDbObjectIdArray& ids)
{
    NcSelectionSet set;
    if (!currentDrawing())
        return false;
    set.ids = implied();
    if (set.ids.empty() && ncedSSGet(QString(), {}, set) != kPromptNormal)
        return false;
    ids = editable(*currentDrawing(), set.ids);
    if (ids.size() < set.ids.size())
        sayLine(QStringLiteral("Не изменяется (закрытый слой или другое пространство): ")
                + QString::number(set.ids.size() - ids.size()));
    return !ids.empty();
}

NcDbObjectIdArray livingEntities(const NcDbDatabase& drawing)
{
    NcDbObjectIdArray ids;
    NcDbBlockTableRecord* space = nullptr;
    if (!isOk(ncdbOpenObject(space, drawing.currentSpaceId(), kForRead)))
        return ids;
    const std::unique_ptr<NcDbBlockTableRecordIterator> at(space->newIterator());
    for (NcDbObjectId id; !at->done(); at->step())
        if (isOk(at->getEntityId(id)))
            ids.push_back(id);
    space->close();
    return ids;
}

bool appendAsIs(NcDbEntity* entity)
{
    std::unique_ptr<NcDbEntity> owned(entity);
    NcDbDatabase* drawing = currentDrawing();
    NcDbBlockTableRecord* space = nullptr;
    if (!drawing || !isOk(ncdbOpenObject(space, drawing->currentSpaceId(), kForWrite)))
        return false;
    const NcStatus status = space->appendNcDbEntity(entity);
    space->close();
    if (!isOk(status)) {
        sayLine(QStringLiteral("Объект не добавлен: слой закрыт."));
        return false;
    }
    owned.release()->close();
    return true;
}
