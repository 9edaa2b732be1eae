#include "symbol_source.h"

#include <QMap>

namespace {

struct Macro {
    QStringList parameters;
    std::vector<SourceLine> lines;
};

class SourceReader {
public:
    explicit SourceReader(std::vector<SymbolSource>& symbols) : symbols_(symbols) { }

    bool read(const QString& text, QString& message)
    {
        int number = 0;
        for (const QString& raw : text.split(QLatin1Char('\n'))) {
            ++number;
            const QStringList words = sourceWords(raw);
            if (words.isEmpty() || take({number, words}))
                continue;
            message = QStringLiteral("line %1: %2").arg(number).arg(raw.trimmed());
            return false;
        }
        return true;
    }

private:
    bool take(const SourceLine& line)
    {
        const QString& verb = line.words.first();
        if (verb == QLatin1String("define"))
            return begin(line);
        if (verb == QLatin1String("symbol")) {
            macro_ = nullptr;
            if (line.words.size() != 3)
                return false;
            symbols_.push_back({line.words[1], line.words[2], {}});
            return true;
        }
        if (macro_) {
            macro_->lines.push_back(line);
            return true;
        }
        return !symbols_.empty() && add(line, symbols_.back().lines);
    }

    // A macro ends where the next one or the first symbol begins.
    bool begin(const SourceLine& line)
    {
        if (line.words.size() < 2)
            return false;
        macro_ = &macros_[line.words[1]];
        macro_->parameters = line.words.mid(2);
        return true;
    }

    bool add(const SourceLine& line, std::vector<SourceLine>& lines) const
    {
        const auto macro = macros_.constFind(line.words.first());
        if (macro == macros_.constEnd()) {
            lines.push_back(line);
            return true;
        }
        if (line.words.size() != macro->parameters.size() + 1)
            return false;
        for (const SourceLine& inner : macro->lines) {
            SourceLine filled{line.number, {}};
            for (const QString& word : inner.words)
                filled.words << valueOf(word, *macro, line);
            if (!add(filled, lines))
                return false;
        }
        return true;
    }

    static QString valueOf(const QString& word, const Macro& macro, const SourceLine& call)
    {
        if (!word.startsWith(QLatin1Char('$')))
            return word;
        const int at = macro.parameters.indexOf(word.mid(1));
        return at < 0 ? word : call.words[at + 1];
    }

    std::vector<SymbolSource>& symbols_;
    QMap<QString, Macro> macros_;
    Macro* macro_ = nullptr;
};

} // namespace

QStringList sourceWords(const QString& line)
{
    QStringList words;
    QString word;
    bool quoted = false, any = false;
    for (const QChar c : line) {
        if (c == QLatin1Char('"')) {
            quoted = !quoted;
            any = true;
        } else if (c == QLatin1Char('#') && !quoted) {
            break;
        } else if (c.isSpace() && !quoted) {
            if (any)
                words << word;
            word.clear();
            any = false;
        } else {
            word += c;
            any = true;
        }
    }
    if (any)
        words << word;
    return words;
}

bool readSymbols(const QString& text, std::vector<SymbolSource>& symbols, QString& message)
{
    return SourceReader(symbols).read(text, message);
}
