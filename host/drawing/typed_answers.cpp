#include "typed_answers.h"

namespace {

std::deque<QString>& pending()
{
    static std::deque<QString> words;
    return words;
}

} // namespace

TypedAnswers::TypedAnswers(const QStringList& words) : before_(std::move(pending()))
{
    pending().assign(words.begin(), words.end());
}

TypedAnswers::~TypedAnswers() { pending() = std::move(before_); }

bool takeTypedAnswer(QString& word)
{
    if (pending().empty())
        return false;
    word = pending().front();
    pending().pop_front();
    return true;
}

QStringList typedWords(const QString& text)
{
    QStringList words;
    QString word;
    bool quoted = false, begun = false;
    for (const QChar c : text) {
        if (c == QLatin1Char('"')) {
            quoted = !quoted;
            begun = true;
        } else if (c.isSpace() && !quoted) {
            if (begun)
                words << word;
            word.clear();
            begun = false;
        } else {
            word += c;
            begun = true;
        }
    }
    if (begun)
        words << word;
    return words;
}
