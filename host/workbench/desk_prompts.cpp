#include "desk_prompts.h"

#include <script/answer_text.h>
#include <ui/color_dialog.h>

#include <algorithm>

namespace {

DrawingView::Mode modeOf(PromptRequest::Kind kind)
{
    switch (kind) {
    case PromptRequest::Point: return DrawingView::PickPoint;
    case PromptRequest::Entity: return DrawingView::PickEntity;
    case PromptRequest::Selection: return DrawingView::PickEntities;
    default: return DrawingView::Select;
    }
}

QString pointText(const NcGePoint3d& p)
{
    return QString::number(p.x, 'f', 3) + QLatin1Char(',') + QString::number(p.y, 'f', 3);
}

} // namespace

DeskPrompts::DeskPrompts(CommandLine& line, std::function<DrawingView*()> view, QObject* parent)
    : QObject(parent), line_(line), view_(std::move(view))
{
    console_.setSink([this](const QString& text) { line_.append(text); });
}

PromptReply DeskPrompts::ask(const PromptRequest& request)
{
    if (request.kind == PromptRequest::Color)
        return askColor(request);
    // A transparent command asks while another's prompt waits: that one goes on
    // where it was.
    QEventLoop* const outerLoop = loop_;
    const PromptRequest* const outerRequest = request_;
    const NcDbObjectIdArray outerGathered = gathered_;

    QEventLoop loop;
    loop_ = &loop;
    request_ = &request;
    reply_ = PromptReply();
    gathered_.clear();
    console_.prompt(request.prompt);
    showRequest();
    loop.exec();
    PromptReply reply = reply_;

    loop_ = outerLoop;
    request_ = outerRequest;
    gathered_ = outerGathered;
    showRequest();
    return reply;
}

void DeskPrompts::showRequest()
{
    QStringList keywords;
    if (request_ && request_->kind == PromptRequest::Keyword)
        for (const PromptRequest::Word& word : request_->keywords)
            keywords << word.local;
    line_.setPrompt(request_ ? request_->prompt : QString(), keywords,
                    request_ && request_->kind == PromptRequest::String && request_->spaces);
    DrawingView* view = view_();
    if (!view)
        return;
    std::optional<NcGePoint3d> base;
    if (request_ && request_->base) {
        NcGePoint3d world;
        if (ncdbUcs2Wcs(*request_->base, world))
            base = world;
    }
    view->setMode(request_ ? modeOf(request_->kind) : DrawingView::Select, base);
}

void DeskPrompts::answer(const PromptReply& reply, const QString& echo)
{
    reply_ = reply;
    console_.answer(echo);
    loop_->quit();
}

void DeskPrompts::cancel()
{
    if (isAsking())
        answer(PromptReply(), QStringLiteral("*Отмена*"));
}

bool DeskPrompts::take(const QString& line)
{
    if (!isAsking())
        return false;
    if (line.trimmed().isEmpty()) {
        finish();
        return true;
    }
    PromptReply reply;
    if (!parseAnswer(*request_, line, reply)) {
        console_.answer(line);
        console_.line(answerHint(*request_, line));
        console_.prompt(request_->prompt);
    } else if (request_->kind == PromptRequest::Selection) {
        console_.answer(line);
        takeEntities(reply.entities);
    } else {
        answer(reply, line);
    }
    return true;
}

void DeskPrompts::takePoint(const NcGePoint3d& world)
{
    PromptReply reply;
    if (!isAsking() || request_->kind != PromptRequest::Point || !ncdbWcs2Ucs(world, reply.point))
        return;
    reply.status = kPromptNormal;
    answer(reply, pointText(reply.point));
}

void DeskPrompts::takeEntity(NcDbObjectId entity, const NcGePoint3d& world)
{
    PromptReply reply;
    if (!isAsking() || request_->kind != PromptRequest::Entity || !ncdbWcs2Ucs(world, reply.point))
        return;
    reply.status = kPromptNormal;
    reply.entity = entity;
    answer(reply, pointText(reply.point));
}

// Adds to the selection that a prompt gathers until Enter.
void DeskPrompts::takeEntities(const NcDbObjectIdArray& entities)
{
    if (!isAsking() || request_->kind != PromptRequest::Selection)
        return;
    for (const NcDbObjectId& id : entities)
        if (std::find(gathered_.begin(), gathered_.end(), id) == gathered_.end())
            gathered_.push_back(id);
    setPickfirst(gathered_);
    console_.line(QStringLiteral("Выбрано объектов: ") + QString::number(gathered_.size()));
}

void DeskPrompts::finish()
{
    if (!isAsking())
        return;
    PromptReply reply;
    reply.status = kPromptEmpty;
    if (request_->kind == PromptRequest::Selection && !gathered_.empty()) {
        reply.status = kPromptNormal;
        reply.entities = gathered_;
        setPickfirst({});
    }
    answer(reply, QString());
}
