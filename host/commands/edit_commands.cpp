// Moving, turning, copying and taking apart what is drawn; undo and redo.
#include "host_commands.h"

#include <drawing/application.h>
#include <drawing/edit_operations.h>
#include <drawing/undo.h>
#include <script/entity_picker.h>

#include <cmath>

namespace {

double radians(double degrees) { return degrees * M_PI / 180.0; }

void sayCount(const QString& what, int count) { sayLine(what + QStringLiteral(": ") + QString::number(count)); }

// A second point that the chosen entities follow while it is asked for.
using Placing = std::function<NcGeMatrix3d(const NcGePoint3d& world)>;

bool askPlaced(const QString& prompt, const NcGePoint3d& base, const NcDbObjectIdArray& ids, const Placing& placing,
               NcGePoint3d& world)
{
    const FollowedEntities followed(ids, placing);
    return askPoint(prompt, world, &base);
}

void move()
{
    NcDbObjectIdArray ids;
    NcGePoint3d from, to;
    const auto placing = [&](const NcGePoint3d& p) { return NcGeMatrix3d::translation(p - from); };
    if (!askObjects(ids) || !askPoint(QStringLiteral("\nБазовая точка: "), from)
        || !askPlaced(QStringLiteral("\nКуда перенести: "), from, ids, placing, to))
        return;
    sayCount(QStringLiteral("Перенесено объектов"), transformEntities(ids, placing(to)));
}

void copy()
{
    NcDbObjectIdArray ids;
    NcGePoint3d from, to;
    const auto placing = [&](const NcGePoint3d& p) { return NcGeMatrix3d::translation(p - from); };
    if (!askObjects(ids) || !askPoint(QStringLiteral("\nБазовая точка: "), from))
        return;
    int copied = 0;
    while (askPlaced(QStringLiteral("\nКуда скопировать: "), from, ids, placing, to))
        copied += int(copyEntities(*currentDrawing(), ids, placing(to)).size());
    sayCount(QStringLiteral("Скопировано объектов"), copied);
}

void rotate()
{
    NcDbObjectIdArray ids;
    NcGePoint3d center;
    double degrees = 0.0;
    if (!askObjects(ids) || !askPoint(QStringLiteral("\nЦентр поворота: "), center)
        || !askNumber(QStringLiteral("\nУгол в градусах: "), degrees))
        return;
    const NcGeMatrix3d turn = NcGeMatrix3d::rotation(radians(degrees), NcGeVector3d::kZAxis, center);
    sayCount(QStringLiteral("Повернуто объектов"), transformEntities(ids, turn));
}

void scale()
{
    NcDbObjectIdArray ids;
    NcGePoint3d center;
    double factor = 0.0;
    if (!askObjects(ids) || !askPoint(QStringLiteral("\nБазовая точка: "), center)
        || !askNumber(QStringLiteral("\nМасштаб: "), factor))
        return;
    if (!(factor > 0.0))
        return sayLine(QStringLiteral("Масштаб должен быть больше нуля."));
    sayCount(QStringLiteral("Изменено объектов"), transformEntities(ids, NcGeMatrix3d::scaling(factor, center)));
}

void mirror()
{
    NcDbObjectIdArray ids;
    NcGePoint3d from, to;
    const auto placing = [&](const NcGePoint3d& p) { return mirrorMatrix(from, p); };
    if (!askObjects(ids) || !askPoint(QStringLiteral("\nПервая точка оси: "), from)
        || !askPlaced(QStringLiteral("\nВторая точка оси: "), from, ids, placing, to))
        return;
    if (from == to)
        return sayLine(QStringLiteral("Точки совпадают."));
    const QString word =
        askKeyword(QStringLiteral("\nУдалить исходные объекты [Да/Нет] <Нет>: "), QStringLiteral("Да Нет _ Yes No"));
    if (word.isNull())
        return;
    const bool erases = word == QLatin1String("Yes");
    const int count =
        erases ? transformEntities(ids, placing(to)) : int(copyEntities(*currentDrawing(), ids, placing(to)).size());
    sayCount(QStringLiteral("Отражено объектов"), count);
}

void explode()
{
    NcDbObjectIdArray ids;
    if (!askObjects(ids))
        return;
    int exploded = 0;
    for (NcDbObjectId id : ids)
        exploded += !explodeEntity(*currentDrawing(), id).empty();
    setPickfirst({});
    sayCount(QStringLiteral("Расчленено объектов"), exploded);
    if (exploded < int(ids.size()))
        sayCount(QStringLiteral("Не расчленяется"), int(ids.size()) - exploded);
}

void offset()
{
    double distance = 0.0;
    if (!currentDrawing() || !askNumber(QStringLiteral("\nРасстояние: "), distance))
        return;
    if (!(distance > 0.0))
        return sayLine(QStringLiteral("Расстояние должно быть больше нуля."));
    NcSelectionName name;
    NcGePoint3d picked, side;
    NcDbObjectId id;
    while (ncedEntSel(QStringLiteral("\nОбъект: "), name, picked) == kPromptNormal && isOk(ncdbGetObjectId(id, name))
           && askPoint(QStringLiteral("\nТочка на стороне смещения: "), side)) {
        NcDbEntity* entity = nullptr;
        if (!isOk(ncdbOpenObject(entity, id, kForRead)))
            continue;
        std::unique_ptr<NcDbEntity> parallel = offsetOf(*entity, distance, side);
        entity->close();
        if (!parallel)
            sayLine(QStringLiteral("Подобного объекта на этом расстоянии нет."));
        else
            appendAsIs(parallel.release());
    }
}

void eraseChosen()
{
    NcDbObjectIdArray ids;
    if (!askObjects(ids))
        return;
    setPickfirst({});
    sayCount(QStringLiteral("Удалено объектов"), eraseEntities(ids));
}

void selectAll()
{
    if (!currentDrawing())
        return;
    setPickfirst(editable(*currentDrawing(), livingEntities(*currentDrawing())));
    sayCount(QStringLiteral("Выбрано объектов"), int(implied().size()));
}

// By what an entity is called, lies on or says.
void quickSelect()
{
    const QString word = currentDrawing()
        ? askKeyword(QStringLiteral("\nВыбрать по [Блок/Слой/Атрибут/Класс] <Блок>: "),
                     QStringLiteral("Блок Слой Атрибут Класс _ Block Layer Tag Class"))
        : QString();
    EntityQuery query;
    if (word.isNull())
        return;
    if (word == QLatin1String("Layer") && !askText(QStringLiteral("\nИмя слоя: "), query.layer))
        return;
    if (word == QLatin1String("Class") && !askText(QStringLiteral("\nКласс (NcDbCircle и т. п.): "), query.className))
        return;
    if (word == QLatin1String("Tag")
        && (!askText(QStringLiteral("\nТег атрибута: "), query.tag)
            || !askText(QStringLiteral("\nЗначение: "), query.value)))
        return;
    if ((word.isEmpty() || word == QLatin1String("Block")) && !askText(QStringLiteral("\nИмя блока: "), query.block))
        return;
    setPickfirst(editable(*currentDrawing(), findEntities(query)));
    sayCount(QStringLiteral("Выбрано объектов"), int(implied().size()));
}

// What is not there any more is selected no more.
void keepLivingPicked()
{
    NcDbObjectIdArray living;
    for (NcDbObjectId id : implied())
        if (id.isValid() && !id.isErased())
            living.push_back(id);
    setPickfirst(living);
}

bool isHostCommand(const QString& name)
{
    for (const CommandInfo& info : registeredCommands())
        if (info.globalName.compare(name, Qt::CaseInsensitive) == 0)
            return false;
    return true;
}

void turnBack(bool undoing)
{
    NcDbDatabase* drawing = currentDrawing();
    UndoJournal* journal = drawing ? journalOf(*drawing) : nullptr;
    const QString name = !journal ? QString() : undoing ? journal->undo() : journal->redo();
    if (name.isNull())
        return sayLine(undoing ? QStringLiteral("Отменять нечего.") : QStringLiteral("Возвращать нечего."));
    keepLivingPicked();
    const QString what = name.isEmpty() ? QStringLiteral("изменение") : name;
    sayLine((undoing ? QStringLiteral("Отменено: ") : QStringLiteral("Возвращено: ")) + what);
    // Only a module writes rows.
    if (!name.isEmpty() && !isHostCommand(name))
        sayLine(QStringLiteral("Строки базы данных остались такими, как их записала команда."));
}

void undoLast() { turnBack(true); }

void redoLast() { turnBack(false); }

} // namespace

const std::vector<HostCommandRow>& editCommands()
{
    static const std::vector<HostCommandRow> rows = {
        {"U", undoLast, "UNDO|ОТМЕНИТЬ", 0},
        {"REDO", redoLast, "ВЕРНУТЬ", 0},
        {"ERASE", eraseChosen, "E|DELETE|СТЕРЕТЬ", 0},
        {"MOVE", move, "M|ПЕРЕНЕСТИ", 0},
        {"COPY", copy, "CO|CP|КОПИРОВАТЬ", 0},
        {"ROTATE", rotate, "RO|ПОВЕРНУТЬ", 0},
        {"SCALE", scale, "SC|МАСШТАБ", 0},
        {"MIRROR", mirror, "MI|ЗЕРКАЛО", 0},
        {"EXPLODE", explode, "X|РАСЧЛЕНИТЬ", 0},
        {"OFFSET", offset, "O|ПОДОБИЕ", 0},
        {"SELECTALL", selectAll, "ВЫБРАТЬВСЕ", 0},
        {"QSELECT", quickSelect, "БЫСТРЫЙВЫБОР", 0},
    };
    return rows;
}
