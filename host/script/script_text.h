// The words of a script: lines split into words, with quotes, escapes,
// comments and variables.
#pragma once

#include <nrx/types.h>

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

// One line that says something: its place and the raw text.
struct ScriptLine {
    QString file;
    int number = 0; // from 1
    QString text;   // without blanks at both ends, never empty
};

// The lines of a text, blank lines and pure comments left out. A byte order
// mark and any line ends are taken.
NRX_API std::vector<ScriptLine> scriptLines(const QString& text, const QString& file);

// Reads a UTF-8 file. False with the reason in `error`.
NRX_API bool readScriptFile(const QString& path, std::vector<ScriptLine>& lines, QString& error);

// Value of a variable; false when there is none of that name.
using ScriptVariables = std::function<bool(const QString& name, QString& value)>;

// Splits a line into words. "quoted text" is one word and may hold \" \\ \n \t;
// ${NAME} is replaced by the variable, in quotes too, $$ stands for one $. A word
// that starts with # ends the line. False with the reason in `error`.
NRX_API bool splitScriptWords(const QString& line, const ScriptVariables& variables, QStringList& words,
                              QString& error);
