#include "host_commands.h"

#include <drawing/application.h>
#include <drawing/typed_answers.h>

void registerHostCommands()
{
    for (const auto* rows : {&fileCommands(), &viewCommands(), &drawCommands(), &layerCommands(), &sheetCommands()})
        for (const HostCommandRow& row : *rows)
            addHostCommand(QString::fromLatin1(row.name), [run = row.run](const QStringList& words) {
                const TypedAnswers answers(words);
                run();
            });
}

void sayLine(const QString& text) { printToConsole(text + QLatin1Char('\n')); }

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
    std::unique_ptr<NcDbEntity> owned(entity);
    NcDbDatabase* drawing = currentDrawing();
    NcDbBlockTableRecord* space = nullptr;
    if (!drawing || !isOk(ncdbOpenObject(space, drawing->currentSpaceId(), kForWrite)))
        return false;
    entity->setDatabaseDefaults(drawing);
    const NcStatus status = space->appendNcDbEntity(entity);
    space->close();
    if (!isOk(status)) {
        sayLine(QStringLiteral("Объект не добавлен: слой закрыт."));
        return false;
    }
    owned.release()->close();
    return true;
}
