#include "formkit/for_all.h"

#include "formkit/boxes.h"

namespace formkit {

ForAllAnswer askForAll(QWidget* parent, const QString& text, const QString& title)
{
    static const QVector<Answer> answers = {
        {QStringLiteral("Да"), true},
        {QStringLiteral("Да для всех"), true},
        {QStringLiteral("Нет"), false},
        {QStringLiteral("Нет для всех"), false},
    };
    return ForAllAnswer(ask(parent, text, answers, int(ForAllAnswer::No), title));
}

bool AskedForAll::agrees(const QString& text)
{
    if (answered_)
        return *answered_;
    const ForAllAnswer answer = askForAll(parent_, text, title_);
    const bool agreed = answer == ForAllAnswer::Yes || answer == ForAllAnswer::YesToAll;
    if (answer == ForAllAnswer::YesToAll || answer == ForAllAnswer::NoToAll)
        answered_ = agreed;
    return agreed;
}

} // namespace formkit
