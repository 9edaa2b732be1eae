#include "answer_text.h"
#include "entity_picker.h"
#include "script_verbs.h"

#include <nrx/block.h>

namespace {

const struct {
    const char* verb;
    int kind; // of PromptRequest, -1 for any
} kAnswerVerbs[] = {
    {"prompt", -1},
    {"answer", -1},
    {"enter", -1},
    {"esc", -1},
    {"keyword", PromptRequest::Keyword},
    {"real", PromptRequest::Real},
    {"integer", PromptRequest::Integer},
    {"string", PromptRequest::String},
    {"point", PromptRequest::Point},
    {"pick", PromptRequest::Entity},
    {"select", PromptRequest::Selection},
};

QString kindText(PromptRequest::Kind kind)
{
    switch (kind) {
    case PromptRequest::Keyword: return QStringLiteral("ключевое слово");
    case PromptRequest::Real: return QStringLiteral("число");
    case PromptRequest::Integer: return QStringLiteral("целое число");
    case PromptRequest::String: return QStringLiteral("строка");
    case PromptRequest::Point: return QStringLiteral("точка");
    case PromptRequest::Entity: return QStringLiteral("объект");
    case PromptRequest::Selection: return QStringLiteral("набор объектов");
    case PromptRequest::Color: return QStringLiteral("цвет");
    }
    return {};
}

NcGePoint3d placeOf(NcDbObjectId id)
{
    NcGePoint3d place;
    NcDbEntity* entity = nullptr;
    if (!isOk(ncdbOpenObject(entity, id, kForRead)))
        return place;
    if (const auto extents = entity->extents())
        place = NcGePoint3d((extents->min.x + extents->max.x) / 2, (extents->min.y + extents->max.y) / 2, 0.0);
    entity->close();
    NcDbBlockReference* reference = nullptr;
    if (isOk(ncdbOpenObject(reference, id, kForRead))) {
        place = reference->position();
        reference->close();
    }
    ncdbWcs2Ucs(place, place);
    return place;
}

QString pickByQuery(const QStringList& words, PromptReply& reply)
{
    EntityQuery query;
    QString error;
    if (!parseEntityQuery(words, query, error))
        return error;
    const NcDbObjectIdArray found = findEntities(query);
    if (found.size() != 1)
        return QStringLiteral("подходит объектов: ") + QString::number(found.size()) + QStringLiteral(", нужен один");
    reply.status = kPromptNormal;
    reply.entity = found.front();
    reply.point = placeOf(found.front());
    return {};
}

QString selectByQuery(const QStringList& words, PromptReply& reply)
{
    EntityQuery query;
    QString error;
    if (!parseEntityQuery(words, query, error))
        return error;
    reply.entities = findEntities(query);
    reply.status = kPromptNormal;
    return reply.entities.empty() ? QStringLiteral("ни один объект не подходит") : QString();
}

// Words like "layer=0" rather than points and handles.
bool isQuery(const QStringList& words) { return !words.isEmpty() && words.first().contains(QLatin1Char('=')); }

} // namespace

bool isAnswerVerb(const QString& verb)
{
    for (const auto& row : kAnswerVerbs)
        if (verb == QLatin1String(row.verb))
            return true;
    return false;
}

QString makeAnswer(const PromptRequest& request, const QString& verb, const QStringList& words, PromptReply& reply,
                   QString& echo)
{
    reply = PromptReply();
    if (verb == QLatin1String("esc") || verb == QLatin1String("enter")) {
        if (!words.isEmpty())
            return QStringLiteral("лишние слова после «") + verb + QStringLiteral("»");
        const bool escape = verb == QLatin1String("esc");
        reply.status = escape ? kPromptCancel : kPromptEmpty;
        echo = escape ? QStringLiteral("*Отмена*") : QString();
        return {};
    }
    for (const auto& row : kAnswerVerbs)
        if (verb == QLatin1String(row.verb) && row.kind >= 0 && row.kind != request.kind)
            return QStringLiteral("спрашивают не то, на что отвечает «") + verb + QStringLiteral("»: ")
                + kindText(request.kind);
    echo = words.join(QLatin1Char(' '));
    if (isQuery(words) && request.kind == PromptRequest::Entity)
        return pickByQuery(words, reply);
    if (isQuery(words) && request.kind == PromptRequest::Selection)
        return selectByQuery(words, reply);
    if (request.kind != PromptRequest::Selection && words.size() != 1)
        return QStringLiteral("нужно одно слово (текст с пробелами пишется в кавычках)");
    if (!parseAnswer(request, echo, reply))
        return QStringLiteral("ответ «") + echo + QStringLiteral("» не подходит, спрашивают: ")
            + kindText(request.kind);
    return {};
}
