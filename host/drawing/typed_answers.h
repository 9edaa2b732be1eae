// Answers that were typed behind a command's name.
#pragma once

#include "prompt_backend.h"

#include <QStringList>

#include <deque>

// Lends the words to the prompts of the command that runs while this lives.
class TypedAnswers {
public:
    explicit TypedAnswers(const QStringList& words);
    ~TypedAnswers();
    TypedAnswers(const TypedAnswers&) = delete;
    TypedAnswers& operator=(const TypedAnswers&) = delete;

private:
    std::deque<QString> before_;
};

// Takes the next word, if there is one.
bool takeTypedAnswer(QString& word);
// Words of a command string: blanks and line ends part them, quotes hold them together.
QStringList typedWords(const QString& text);
// By the back end in force.
void printToConsole(const QString& text);
