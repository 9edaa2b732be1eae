#include "answer_text.h"

#include "entity_picker.h"

namespace {

bool readNumber(const QString& text, double& value)
{
    bool ok = false;
    value = text.toDouble(&ok);
    return ok;
}

bool matchKeyword(const PromptRequest& request, const QString& typed, PromptReply& reply)
{
    const bool onlyGlobal = typed.startsWith(QLatin1Char('_'));
    const QString text = onlyGlobal ? typed.mid(1) : typed;
    const PromptRequest::Word* beginning = nullptr;
    int beginnings = 0;
    for (const PromptRequest::Word& word : request.keywords) {
        const bool local = !onlyGlobal && word.local.startsWith(text, Qt::CaseInsensitive);
        const bool global = word.global.startsWith(text, Qt::CaseInsensitive);
        if ((local && word.local.size() == text.size()) || (global && word.global.size() == text.size())) {
            reply.text = word.global;
            return true;
        }
        if (local || global) {
            beginning = &word;
            ++beginnings;
        }
    }
    if (beginnings == 1)
        reply.text = beginning->global;
    return beginnings == 1;
}

bool readString(const PromptRequest& request, const QString& text, PromptReply& reply)
{
    if (!request.spaces && text.contains(QLatin1Char(' ')))
        return false;
    reply.text = text;
    return true;
}

bool readInteger(const QString& text, PromptReply& reply)
{
    bool ok = false;
    reply.integer = text.toInt(&ok);
    return ok;
}

bool readEntity(const QString& text, PromptReply& reply)
{
    NcGePoint3d at;
    if (parsePointText(text, nullptr, at)) {
        NcGePoint3d world;
        ncdbUcs2Wcs(at, world);
        reply.point = at;
        reply.entity = pickEntityAt(world);
    } else {
        reply.entity = pickEntityByText(text);
        reply.point = at;
    }
    return !reply.entity.isNull();
}

bool readSelection(const QString& text, PromptReply& reply)
{
    if (text.compare(QLatin1String("all"), Qt::CaseInsensitive) == 0) {
        reply.entities = pickAll();
        return !reply.entities.empty();
    }
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    NcGePoint3d from, to;
    if (words.size() == 2 && parsePointText(words[0], nullptr, from) && parsePointText(words[1], nullptr, to)) {
        reply.entities = pickInWindow(from, to);
        return !reply.entities.empty();
    }
    for (const QString& word : words) {
        PromptReply one;
        if (!readEntity(word, one))
            return false;
        reply.entities.push_back(one.entity);
    }
    return !words.isEmpty();
}

} // namespace

bool parsePointText(const QString& text, const NcGePoint3d* base, NcGePoint3d& point)
{
    const bool relative = text.startsWith(QLatin1Char('@'));
    const QStringList parts = text.mid(relative ? 1 : 0).split(QLatin1Char(','));
    double xyz[3] = {0.0, 0.0, 0.0};
    if (parts.size() < 2 || parts.size() > 3 || (relative && !base))
        return false;
    for (int i = 0; i < parts.size(); ++i)
        if (!readNumber(parts[i], xyz[i]))
            return false;
    point = NcGePoint3d(xyz[0], xyz[1], xyz[2]);
    if (relative)
        point = *base + point.asVector();
    return true;
}

bool parseAnswer(const PromptRequest& request, const QString& text, PromptReply& reply)
{
    reply = PromptReply();
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() && !(request.kind == PromptRequest::String && request.spaces && !text.isEmpty())) {
        reply.status = kPromptEmpty;
        return true;
    }
    bool good = false;
    switch (request.kind) {
    case PromptRequest::Keyword: good = matchKeyword(request, trimmed, reply); break;
    case PromptRequest::Real: good = readNumber(trimmed, reply.real); break;
    case PromptRequest::Integer: good = readInteger(trimmed, reply); break;
    case PromptRequest::String: good = readString(request, text, reply); break;
    case PromptRequest::Point:
        good = parsePointText(trimmed, request.base ? &*request.base : nullptr, reply.point);
        break;
    case PromptRequest::Color: return false;
    case PromptRequest::Entity: good = readEntity(trimmed, reply); break;
    case PromptRequest::Selection: good = readSelection(trimmed, reply); break;
    }
    if (good)
        reply.status = kPromptNormal;
    return good;
}
