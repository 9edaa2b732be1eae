// The text that block definitions are made from.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

// A statement of the source: its words, and where it stood for messages.
struct SourceLine {
    int number = 0;
    QStringList words;
};

// A block with its statements, macros filled in.
struct SymbolSource {
    QString block, file;
    std::vector<SourceLine> lines;
};

// Splits at blanks; "..." is one word; # begins a comment.
QStringList sourceWords(const QString& line);

// False with a message that names the line.
bool readSymbols(const QString& text, std::vector<SymbolSource>& symbols, QString& message);
