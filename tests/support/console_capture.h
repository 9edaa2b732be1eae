#pragma once
// What is printed on the host's command line while this lives. Prompts are
// answered with a cancel.

#include <drawing/prompt_backend.h>

#include <QString>

class ConsoleCapture final : public PromptBackend {
public:
    ConsoleCapture() : before_(setPromptBackend(this)) { }
    ~ConsoleCapture() override { setPromptBackend(before_); }
    ConsoleCapture(const ConsoleCapture&) = delete;
    ConsoleCapture& operator=(const ConsoleCapture&) = delete;

    PromptReply ask(const PromptRequest&) override { return {}; }
    void print(const QString& text) override { text_ += text; }

    const QString& text() const { return text_; }
    /// What was printed since the last take().
    QString take() { return std::exchange(text_, QString()); }

private:
    PromptBackend* before_;
    QString text_;
};
