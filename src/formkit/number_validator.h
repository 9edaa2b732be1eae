#pragma once
// What a field for a decimal number takes: the session's pattern, and a comma for
// its point.

#include <QRegularExpressionValidator>

namespace formkit {

/// Texts that are stored have a point; a comma typed or pasted becomes one.
class NumberValidator final : public QRegularExpressionValidator {
public:
    explicit NumberValidator(QObject* parent);
    State validate(QString& text, int& cursor) const override;
};

} // namespace formkit
