// The command line's text, as the user sees it.
#pragma once

#include <nrx/types.h>

#include <QString>
#include <functional>

// Keeps the console's lines whole: commands write line ends before, after or not
// at all, and each command and answer begins where it should.
class NRX_API Console {
public:
    // Called with each piece of text as it comes.
    void setSink(std::function<void(const QString&)> sink) { sink_ = std::move(sink); }

    // Text of a command, as it is.
    void print(const QString& text);
    // A line of its own.
    void line(const QString& text);
    // "Команда: NAME"; what was printed before is no longer in sinceCommand().
    void command(const QString& name);
    // A prompt and the answer typed behind it.
    void prompt(const QString& text);
    void answer(const QString& text);

    const QString& text() const { return text_; }
    // Printed since the last command began.
    QString sinceCommand() const { return text_.mid(mark_); }

private:
    void endLine();

    std::function<void(const QString&)> sink_;
    QString text_;
    int mark_ = 0;
};
