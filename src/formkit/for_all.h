#pragma once
// A question that is asked of many things one after another. Its box has four
// answers; those "for all" end the questions.

#include <QString>
#include <optional>

class QWidget;

namespace formkit {

enum class ForAllAnswer { Yes, YesToAll, No, NoToAll };

/// The box. Esc is a no.
ForAllAnswer askForAll(QWidget* parent, const QString& text, const QString& title);

/// Asks until it is answered for all; lives as long as one run over the things.
class AskedForAll {
public:
    explicit AskedForAll(QWidget* parent, const QString& title = QStringLiteral("Внимание!"))
        : parent_(parent), title_(title)
    { }
    bool agrees(const QString& text);

private:
    QWidget* parent_;
    QString title_;
    std::optional<bool> answered_;
};

} // namespace formkit
