#include "exchange/elements/element_preview.h"

#include "base/placeholders.h"
#include "base/text.h"

#include <cmath>

namespace {

constexpr int decimals = 4;
constexpr double nothing = 0.00005; // less than the last decimal shows

QString shown(const std::optional<double>& number) { return number ? fixed(*number, decimals) : QString(); }

// The value that the row is to get, beside the one that it has.
PreviewCell changeOf(const std::optional<double>& given, double stored, const char* text)
{
    if (!given)
        return {QString()};
    if (std::abs(*given - stored) < nothing)
        return {shown(given)};
    return {fill(text, shown(given), fixed(stored, decimals)), PreviewCell::Good};
}

PreviewCell positionChange(const ElementRecord& record, const KnownElement& known, const BaseElements& base)
{
    const int id = base.positionId(record.position);
    if (record.position.isEmpty() || id == known.positionId)
        return {record.position};
    if (id == -1)
        return {QStringLiteral("Нет позиции"), PreviewCell::Bad};
    return {fill("%1 (%2) <- %3 (%4)", record.position, id, known.position, known.positionId), PreviewCell::Good};
}

PreviewCell statusOf(UpdateState state)
{
    switch (state) {
    case UpdateState::Ok: return {QStringLiteral("ОК"), PreviewCell::Good};
    case UpdateState::DuplicateName: return {QStringLiteral("Дубликат имени"), PreviewCell::Bad};
    case UpdateState::NoPosition: return {QStringLiteral("Нет позиции"), PreviewCell::Bad};
    case UpdateState::NoName: break;
    }
    return {QStringLiteral("Имя не найдено"), PreviewCell::Bad};
}

} // namespace

const QStringList& importTitles()
{
    static const QStringList titles = {"Имя",         "X", "Y",       "Абс.отметка",     "Отм. земли",
                                       "Заглубление", "h", "Позиция", "Поворот маркера", "Статус"};
    return titles;
}

QVector<PreviewCell> importPreview(const ElementRecord& record, const QHash<QString, int>& ids)
{
    const auto known = ids.constFind(record.name);
    const QString name = known == ids.constEnd() ? record.name : fill("%1 (ID:%2)", record.name, *known);
    const PreviewCell status =
        record.isValid() ? PreviewCell{QStringLiteral("ОК")} : PreviewCell{QStringLiteral("Ошибка"), PreviewCell::Bad};
    return {{name},
            {shown(record.x)},
            {shown(record.y)},
            {shown(record.absoluteMark)},
            {shown(record.groundMark)},
            {shown(record.burial)},
            {shown(record.height)},
            {record.position},
            {shown(record.rotation)},
            status};
}

const QStringList& updateTitles()
{
    static const QStringList titles = {"ID",          "Имя",        "Тип", "X",       "Y",
                                       "Абс.отметка", "Отм. земли", "h",   "Позиция", "Поворот маркера",
                                       "Статус",      "Заглубление"};
    return titles;
}

QVector<PreviewCell> updatePreview(const ElementRecord& record, const BaseElements& base)
{
    const QVector<KnownElement> rows = base.named(record.name);
    const PreviewCell status = statusOf(updateState(record, base));
    if (rows.size() != 1)
        return {{},
                {record.name},
                {},
                {shown(record.x)},
                {shown(record.y)},
                {shown(record.absoluteMark)},
                {shown(record.groundMark)},
                {shown(record.height)},
                {record.position},
                {shown(record.rotation)},
                status,
                {shown(record.burial)}};
    const KnownElement& known = rows.first();
    return {{QString::number(known.id)},
            {record.name},
            {known.typeId},
            changeOf(record.x, known.x, "%1<-%2"),
            changeOf(record.y, known.y, "%1<-%2"),
            changeOf(record.z(), known.z, "%1 <- %2"),
            {shown(record.groundMark)},
            changeOf(record.h(), known.h, "%1 <- %2"),
            positionChange(record, known, base),
            changeOf(record.rotation, known.rotation, "%1 <- %2"),
            status,
            {shown(record.burial)}};
}
