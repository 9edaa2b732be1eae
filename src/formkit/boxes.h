#pragma once
// Boxes that tell and ask. The text is shown as it stands, never as markup: it
// may hold what the database or a file said. Without a parent a box opens over
// the host's main window.

#include <QString>
#include <QVector>

class QWidget;

namespace formkit {

/// "Внимание": the title of a box where nothing else is told.
QString attention();

void warn(QWidget* parent, const QString& text, const QString& title = attention());
void inform(QWidget* parent, const QString& text, const QString& title = attention());

/// A question with Yes and No; true for Yes.
enum class Look { Question, Warning, Critical };
enum class Preset { Yes, No }; ///< what Enter answers
struct Question {
    QString text;
    QString title = attention();
    Look look = Look::Question;
    Preset preset = Preset::Yes;
};
bool confirm(QWidget* parent, const Question& question);
inline bool confirm(QWidget* parent, const QString& text) { return confirm(parent, Question{text}); }

/// A question with answers of its own: the number of the button that was
/// pressed. Enter and Esc press the button `preset`.
struct Answer {
    QString caption;
    bool agrees; ///< stands where a box has its Yes
};
int ask(QWidget* parent, const QString& text, const QVector<Answer>& answers, int preset,
        const QString& title = attention());

} // namespace formkit
