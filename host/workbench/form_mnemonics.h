// The letters by which Alt reaches the parts of a form. Captions are the forms' own
// texts and hold none, so each form gets its letters when it is shown.
#pragma once

#include <QObject>

class QWidget;

// Gives letters to the forms of the program as they come; forms of the toolkit have
// theirs.
class FormMnemonics : public QObject {
    Q_OBJECT
public:
    explicit FormMnemonics(QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

// A letter to each button, tab, box to tick, caption of a field and group, each once
// among what is seen together; the first letter of a word rather than another one.
// Letters that look alike in both alphabets count as one. What finds no free letter goes
// without; OK and Cancel, for which there are Enter and Esc, choose last.
void giveMnemonics(QWidget& form);

// The letter that Alt takes in a caption, in capitals; null when it has none.
QChar mnemonicOf(const QString& caption);
// The caption without the sign of its letter; a doubled sign stays.
QString withoutMnemonic(const QString& caption);
