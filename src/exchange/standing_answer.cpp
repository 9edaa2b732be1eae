#include "exchange/standing_answer.h"

bool StandingAnswer::agrees(const ImportQuestion& ask, const QString& text)
{
    if (forAll_)
        return *forAll_;
    const ImportAnswer answer = ask(text);
    const bool agreed = answer == ImportAnswer::Yes || answer == ImportAnswer::YesToAll;
    if (answer == ImportAnswer::YesToAll || answer == ImportAnswer::NoToAll)
        forAll_ = agreed;
    return agreed;
}
