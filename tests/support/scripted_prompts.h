#pragma once
// Answers a command's prompts from a list and keeps what was asked and printed.

#include <drawing/prompt_backend.h>

#include <QStringList>
#include <QVector>
#include <functional>

class ScriptedPrompts : public PromptBackend {
public:
    ScriptedPrompts() : previous_(setPromptBackend(this)) { }
    ~ScriptedPrompts() override { setPromptBackend(previous_); }

    // --- answers, in the order in which they are asked for -----------------------
    ScriptedPrompts& keyword(const QString& global)
    {
        return reply([&](PromptReply& r) { r.text = global; });
    }
    ScriptedPrompts& real(double value)
    {
        return reply([&](PromptReply& r) { r.real = value; });
    }
    ScriptedPrompts& integer(int value)
    {
        return reply([&](PromptReply& r) { r.integer = value; });
    }
    ScriptedPrompts& text(const QString& value)
    {
        return reply([&](PromptReply& r) { r.text = value; });
    }
    ScriptedPrompts& point(double x, double y, double z = 0.0)
    {
        return reply([&](PromptReply& r) { r.point = NcGePoint3d(x, y, z); });
    }
    ScriptedPrompts& pick(NcDbObjectId entity)
    {
        return reply([&](PromptReply& r) { r.entity = entity; });
    }
    ScriptedPrompts& entity(NcDbObjectId id)
    {
        return reply([&](PromptReply& r) { r.entity = id; });
    }
    ScriptedPrompts& color(int red, int green, int blue)
    {
        return reply([&](PromptReply& r) { r.color.setRGB(red, green, blue); });
    }
    ScriptedPrompts& enter()
    {
        return reply([](PromptReply& r) { r.status = kPromptEmpty; });
    }
    ScriptedPrompts& cancel()
    {
        return reply([](PromptReply& r) { r.status = kPromptCancel; });
    }
    /// Something that happens just before the next answer is given.
    ScriptedPrompts& meanwhile(const std::function<void()>& action)
    {
        actions_.resize(replies_.size() + 1);
        actions_.last() = action;
        return *this;
    }

    /// Forgets the answers that nobody asked for.
    void dropUnused() { replies_.resize(next_); }

    QStringList asked; ///< the prompts
    QStringList words; ///< keywords of the prompts that have any, as "local/global ..."
    QString console;   ///< all that was printed
    bool allAnswersUsed() const { return next_ == replies_.size(); }
    bool ranDry() const { return dry_; } ///< more was asked than answered

    PromptReply ask(const PromptRequest& request) override
    {
        asked.append(request.prompt);
        QStringList pairs;
        for (const PromptRequest::Word& word : request.keywords)
            pairs.append(word.local + QLatin1Char('/') + word.global);
        if (!pairs.isEmpty())
            words.append(pairs.join(QLatin1Char(' ')));
        if (next_ >= replies_.size()) {
            dry_ = true;
            return {};
        }
        if (next_ < actions_.size() && actions_[next_])
            actions_[next_]();
        return replies_[next_++];
    }
    void print(const QString& text) override { console += text; }

private:
    template <class Change>
    ScriptedPrompts& reply(Change change)
    {
        PromptReply answer;
        answer.status = kPromptNormal;
        change(answer);
        replies_.append(answer);
        return *this;
    }

    PromptBackend* previous_;
    QVector<PromptReply> replies_;
    QVector<std::function<void()>> actions_;
    int next_ = 0;
    bool dry_ = false;
};
