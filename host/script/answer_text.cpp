#include "answer_text.h"

#include "entity_picker.h"

#include <cmath>

namespace {

bool readNumber(const QString& text, double& value)
{
    bool ok = false;
    value = text.toDouble(&ok);
    // Qt reads "nan" and "inf" too.
    return ok && std::isfinite(value);
}

// Letters that look alike in both alphabets become the Cyrillic one: nobody sees
// on which keyboard a word was typed.
QString lookOf(const QString& text)
{
    static const QString latin = QStringLiteral("ABCEHKMOPTXY"), cyrillic = QStringLiteral("АВСЕНКМОРТХУ");
    QString look = text.toUpper();
    for (QChar& c : look)
        if (const int at = latin.indexOf(c); at >= 0)
            c = cyrillic.at(at);
    return look;
}

using Fits = bool (*)(const QString& word, const QString& typed);

bool beginsWith(const QString& word, const QString& typed) { return word.startsWith(typed, Qt::CaseInsensitive); }

bool looksLike(const QString& word, const QString& typed) { return lookOf(word).startsWith(lookOf(typed)); }

// The word that a whole answer or its beginning means: its number, -1 for none, -2 for several.
int keywordOf(const std::vector<PromptRequest::Word>& words, const QString& text, bool onlyGlobal, Fits fits)
{
    int found = -1;
    for (size_t i = 0; i < words.size(); ++i) {
        const bool local = !onlyGlobal && fits(words[i].local, text);
        const bool global = fits(words[i].global, text);
        if ((local && words[i].local.size() == text.size()) || (global && words[i].global.size() == text.size()))
            return int(i);
        if (local || global)
            found = found == -1 ? int(i) : -2;
    }
    return found;
}

// An answer that fits several words is none: the prompt asks again.
bool matchKeyword(const PromptRequest& request, const QString& typed, PromptReply& reply)
{
    const bool onlyGlobal = typed.startsWith(QLatin1Char('_'));
    const QString text = onlyGlobal ? typed.mid(1) : typed;
    int found = keywordOf(request.keywords, text, onlyGlobal, beginsWith);
    if (found == -1)
        found = keywordOf(request.keywords, text, onlyGlobal, looksLike);
    if (found >= 0)
        reply.text = request.keywords[size_t(found)].global;
    return found >= 0;
}

// Whether the text would be a number if its commas were points.
bool hasDecimalComma(const QString& text)
{
    bool ok = false;
    QString(text).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    return ok && text.contains(QLatin1Char(','));
}

// "d<a": so far in the direction of an angle in degrees.
bool readPolar(const QString& text, double& x, double& y)
{
    const int at = text.indexOf(QLatin1Char('<'));
    double distance = 0.0, degrees = 0.0;
    if (at < 1 || !readNumber(text.left(at), distance) || !readNumber(text.mid(at + 1), degrees))
        return false;
    x = distance * std::cos(degrees * M_PI / 180.0);
    y = distance * std::sin(degrees * M_PI / 180.0);
    return true;
}

bool readCoordinates(const QString& text, double (&xyz)[3])
{
    if (readPolar(text, xyz[0], xyz[1]))
        return true;
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() < 2 || parts.size() > 3)
        return false;
    for (int i = 0; i < parts.size(); ++i)
        if (!readNumber(parts[i], xyz[i]))
            return false;
    return true;
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
    double xyz[3] = {0.0, 0.0, 0.0};
    if ((relative && !base) || !readCoordinates(text.mid(relative ? 1 : 0), xyz))
        return false;
    point = NcGePoint3d(xyz[0], xyz[1], xyz[2]);
    if (relative)
        point = *base + point.asVector();
    return true;
}

QString answerHint(const PromptRequest& request, const QString& text)
{
    const QString trimmed = text.trimmed();
    const bool number = request.kind == PromptRequest::Real || request.kind == PromptRequest::Integer;
    if (request.kind == PromptRequest::Real && hasDecimalComma(trimmed))
        return QStringLiteral("Дробная часть отделяется точкой: ")
            + QString(trimmed).replace(QLatin1Char(','), QLatin1Char('.'));
    if (request.kind == PromptRequest::Point && trimmed.count(QLatin1Char(',')) > 2)
        return QStringLiteral("Координаты разделяет запятая, дробную часть отделяет точка: 1.5,2.5");
    if (request.kind == PromptRequest::Point && trimmed.startsWith(QLatin1Char('@')) && !request.base)
        return QStringLiteral("Здесь не от чего отсчитывать: укажите точку как x,y.");
    if (request.kind == PromptRequest::Point)
        return QStringLiteral("Точка вводится как x,y, @dx,dy или @расстояние<угол.");
    if (number)
        return QStringLiteral("Нужно число.");
    return QStringLiteral("Такой ответ не подходит.");
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
