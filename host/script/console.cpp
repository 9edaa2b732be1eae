#include "console.h"

void Console::print(const QString& text)
{
    text_ += text;
    if (sink_ && !text.isEmpty())
        sink_(text);
}

void Console::endLine()
{
    if (!text_.isEmpty() && !text_.endsWith(QLatin1Char('\n')))
        print(QStringLiteral("\n"));
}

void Console::line(const QString& text)
{
    endLine();
    print(text + QLatin1Char('\n'));
}

void Console::command(const QString& name)
{
    endLine();
    mark_ = text_.size();
    print(QStringLiteral("Команда: ") + name + QLatin1Char('\n'));
}

void Console::prompt(const QString& text)
{
    if (!text.startsWith(QLatin1Char('\n')))
        endLine();
    // A prompt that begins with a line end gets a line of its own, not a blank one.
    const bool fresh = text_.isEmpty() || text_.endsWith(QLatin1Char('\n'));
    print(fresh && text.startsWith(QLatin1Char('\n')) ? text.mid(1) : text);
}

void Console::answer(const QString& text)
{
    const bool blank = text_.isEmpty() || text_.back().isSpace();
    print((blank ? QString() : QStringLiteral(" ")) + text + QLatin1Char('\n'));
}
