#include "formkit/number_validator.h"

#include "session/project_session.h"

namespace formkit {

NumberValidator::NumberValidator(QObject* parent) : QRegularExpressionValidator(session().numberPattern, parent) { }

QValidator::State NumberValidator::validate(QString& text, int& cursor) const
{
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    return QRegularExpressionValidator::validate(text, cursor);
}

} // namespace formkit
