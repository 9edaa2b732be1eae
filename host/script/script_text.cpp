#include "script_text.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextCodec>

namespace {

// Reads one line's words from left to right.
class WordReader {
public:
    WordReader(const QString& line, const ScriptVariables& variables) : line_(line), variables_(variables) { }

    bool read(QStringList& words, QString& error)
    {
        while (skipBlanks()) {
            if (line_[at_] == QLatin1Char('#'))
                break;
            QString word;
            if (!readWord(word)) {
                error = error_;
                return false;
            }
            words << word;
        }
        return true;
    }

private:
    bool skipBlanks()
    {
        while (at_ < line_.size() && line_[at_].isSpace())
            ++at_;
        return at_ < line_.size();
    }

    bool readWord(QString& word)
    {
        bool quoted = false;
        while (at_ < line_.size() && (quoted || !line_[at_].isSpace())) {
            const QChar c = line_[at_++];
            if (c == QLatin1Char('"'))
                quoted = !quoted;
            else if (c == QLatin1Char('\\') && quoted) {
                if (!readEscape(word))
                    return false;
            } else if (c == QLatin1Char('$')) {
                if (!readDollar(word))
                    return false;
            } else {
                word += c;
            }
        }
        if (quoted)
            error_ = QStringLiteral("кавычка не закрыта");
        return !quoted;
    }

    bool readEscape(QString& word)
    {
        const QChar c = at_ < line_.size() ? line_[at_++] : QChar();
        if (c == QLatin1Char('n'))
            word += QLatin1Char('\n');
        else if (c == QLatin1Char('t'))
            word += QLatin1Char('\t');
        else if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            word += c;
        else {
            error_ = QStringLiteral("неизвестная последовательность «\\%1»").arg(c);
            return false;
        }
        return true;
    }

    bool readDollar(QString& word)
    {
        const QChar c = at_ < line_.size() ? line_[at_] : QChar();
        if (c == QLatin1Char('$')) {
            ++at_;
            word += c;
            return true;
        }
        if (c != QLatin1Char('{')) {
            word += QLatin1Char('$');
            return true;
        }
        const int end = line_.indexOf(QLatin1Char('}'), at_);
        const QString name = end < 0 ? QString() : line_.mid(at_ + 1, end - at_ - 1);
        QString value;
        if (name.isEmpty() || !variables_ || !variables_(name, value)) {
            error_ = QStringLiteral("нет переменной «") + name + QStringLiteral("»");
            return false;
        }
        word += value;
        at_ = end + 1;
        return true;
    }

    const QString& line_;
    const ScriptVariables& variables_;
    QString error_;
    int at_ = 0;
};

} // namespace

std::vector<ScriptLine> scriptLines(const QString& text, const QString& file)
{
    QString plain = text;
    if (plain.startsWith(QChar(0xFEFF)))
        plain.remove(0, 1);
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));

    std::vector<ScriptLine> lines;
    int number = 0;
    const QStringList parts = plain.split(QLatin1Char('\n'));
    for (const QString& part : parts) {
        ++number;
        const QString trimmed = part.trimmed();
        if (!trimmed.isEmpty() && !trimmed.startsWith(QLatin1Char('#')))
            lines.push_back({file, number, trimmed});
    }
    return lines;
}

bool readScriptFile(const QString& path, std::vector<ScriptLine>& lines, QString& error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("файл сценария «") + path + QStringLiteral("» не читается");
        return false;
    }
    const QByteArray bytes = file.readAll();
    QTextCodec::ConverterState state;
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0) {
        error = QStringLiteral("файл сценария «") + path + QStringLiteral("» не в кодировке UTF-8");
        return false;
    }
    lines = scriptLines(text, path);
    return true;
}

bool splitScriptWords(const QString& line, const ScriptVariables& variables, QStringList& words, QString& error)
{
    words.clear();
    return WordReader(line, variables).read(words, error);
}
