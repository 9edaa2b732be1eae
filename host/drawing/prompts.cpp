#include "prompt_backend.h"
#include "typed_answers.h"

#include <script/answer_text.h>

#include <QTextStream>

#include <cstdio>

namespace {

PromptBackend* g_backend = nullptr;

// What ncedInitGet said, for the next prompt only.
struct NextPrompt {
    int flags = 0;
    std::vector<PromptRequest::Word> keywords;
};
NextPrompt g_next;

enum InitFlag { kNoEmpty = 1, kNoZero = 2, kNoNegative = 4 };
// So often a refused answer is asked again.
const int kMostTries = 100;

std::vector<PromptRequest::Word> pairWords(const QString& keywords)
{
    QStringList halves[2];
    int half = 0;
    for (const QString& word : keywords.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (word == QLatin1String("_"))
            half = 1;
        else
            halves[half] << word;
    }
    std::vector<PromptRequest::Word> words;
    for (int i = 0; i < halves[0].size(); ++i)
        words.push_back({halves[0][i], i < halves[1].size() ? halves[1][i] : halves[0][i]});
    return words;
}

PromptReply askOnce(const PromptRequest& request)
{
    QString typed;
    PromptReply reply;
    if (takeTypedAnswer(typed)) {
        if (!parseAnswer(request, typed, reply))
            reply.status = kPromptCancel;
        return reply;
    }
    return g_backend ? g_backend->ask(request) : reply;
}

bool isRefused(const PromptRequest& request, const PromptReply& reply, int flags)
{
    if (reply.status == kPromptEmpty)
        return flags & kNoEmpty;
    if (reply.status != kPromptNormal
        || (request.kind != PromptRequest::Real && request.kind != PromptRequest::Integer))
        return false;
    const double value = request.kind == PromptRequest::Real ? reply.real : reply.integer;
    return (value == 0.0 && (flags & kNoZero)) || (value < 0.0 && (flags & kNoNegative));
}

PromptReply ask(PromptRequest request)
{
    const NextPrompt init = std::move(g_next);
    g_next = NextPrompt();
    request.keywords = init.keywords;
    PromptReply reply;
    for (int attempt = 0; attempt < kMostTries; ++attempt) {
        reply = askOnce(request);
        if (!isRefused(request, reply, init.flags))
            return reply;
        printToConsole(QStringLiteral("\nНедопустимое значение.\n"));
    }
    return PromptReply();
}

PromptRequest request(PromptRequest::Kind kind, const QString& prompt)
{
    PromptRequest made;
    made.kind = kind;
    made.prompt = prompt;
    return made;
}

} // namespace

PromptBackend* promptBackend() { return g_backend; }

PromptBackend* setPromptBackend(PromptBackend* backend)
{
    PromptBackend* before = g_backend;
    g_backend = backend;
    return before;
}

void printToConsole(const QString& text)
{
    if (g_backend) {
        g_backend->print(text);
        return;
    }
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << text;
}

namespace {
const FollowedEntities* g_followed = nullptr;
} // namespace

FollowedEntities::FollowedEntities(const NcDbObjectIdArray& entities, const Placing& placing)
    : entities_(entities), placing_(placing), before_(g_followed)
{
    g_followed = this;
}

FollowedEntities::~FollowedEntities() { g_followed = before_; }

const FollowedEntities* FollowedEntities::present() { return g_followed; }

PromptReply askSelection(const QString& prompt) { return ask(request(PromptRequest::Selection, prompt)); }

int ncedInitGet(int flags, const QString& keywords)
{
    g_next = {flags, pairWords(keywords)};
    return kPromptNormal;
}

int ncedGetKword(const QString& prompt, QString& answer)
{
    const PromptReply reply = ask(request(PromptRequest::Keyword, prompt));
    if (reply.status == kPromptNormal)
        answer = reply.text;
    return reply.status;
}

int ncedGetReal(const QString& prompt, double& answer)
{
    const PromptReply reply = ask(request(PromptRequest::Real, prompt));
    if (reply.status == kPromptNormal)
        answer = reply.real;
    return reply.status;
}

int ncedGetInt(const QString& prompt, int& answer)
{
    const PromptReply reply = ask(request(PromptRequest::Integer, prompt));
    if (reply.status == kPromptNormal)
        answer = reply.integer;
    return reply.status;
}

int ncedGetString(bool spaces, const QString& prompt, QString& answer)
{
    PromptRequest question = request(PromptRequest::String, prompt);
    question.spaces = spaces;
    const PromptReply reply = ask(question);
    if (reply.status == kPromptNormal)
        answer = reply.text;
    else if (reply.status == kPromptEmpty)
        answer.clear();
    return reply.status;
}

int ncedGetPoint(const NcGePoint3d* base, const QString& prompt, NcGePoint3d& answer)
{
    PromptRequest question = request(PromptRequest::Point, prompt);
    if (base)
        question.base = *base;
    const PromptReply reply = ask(question);
    if (reply.status == kPromptNormal)
        answer = reply.point;
    return reply.status;
}

int ncedEntSel(const QString& prompt, NcSelectionName& name, NcGePoint3d& picked)
{
    const PromptReply reply = ask(request(PromptRequest::Entity, prompt));
    if (reply.status != kPromptNormal)
        return reply.status;
    if (!isOk(ncdbGetAdsName(name, reply.entity)) || reply.entity.isErased())
        return kPromptError;
    picked = reply.point;
    return kPromptNormal;
}

bool ncedSetColorDialog(int& index, bool allowMeta)
{
    PromptRequest question = request(PromptRequest::Color, QString());
    question.color.setColorIndex(index);
    question.allowMeta = allowMeta;
    const PromptReply reply = ask(question);
    const int chosen = reply.color.colorIndex();
    if (reply.status != kPromptNormal || (!allowMeta && (chosen == 0 || chosen == 256)))
        return false;
    index = chosen;
    return true;
}

bool ncedSetColorDialogTrueColor(NcCmColor& color)
{
    PromptRequest question = request(PromptRequest::Color, QString());
    question.color = color;
    question.trueColor = true;
    const PromptReply reply = ask(question);
    if (reply.status != kPromptNormal)
        return false;
    color = reply.color;
    return true;
}
