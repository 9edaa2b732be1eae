#include "exchange/empty_result.h"

#include "exchange/row_reader.h"

#include <algorithm>
#include <map>

namespace {

constexpr int mostLines = 1000; // in which a header is sought

struct SeparatorName {
    const char* separator;
    const char* name;
};

const SeparatorName separators[] = {
    {";", "точка с запятой"}, {",", "запятая"}, {"\t", "табуляция"}, {" ", "пробел"}, {"|", "«|»"},
};

QString encodingName(TextEncoding encoding)
{
    return encoding == TextEncoding::Utf8 ? QStringLiteral("UTF-8") : QStringLiteral("Windows 1251");
}

QString separatorName(const QString& separator)
{
    for (const SeparatorName& known : separators) {
        if (separator == QLatin1String(known.separator))
            return QString::fromUtf8(known.name);
    }
    return separator;
}

bool hasHeader(const QStringList& lines, const ImportTemplate& format, const QString& separator)
{
    RowReader reader(format, separator);
    SurveyRow row;
    return std::any_of(lines.begin(), lines.end(), [&](const QString& line) {
        return line.contains(format.name.caption) && reader.read(line, row) == RowReader::Line::Header;
    });
}

class Search {
public:
    Search(const ImportFamily& family, const QString& path, const ReadingChoice& chosen)
        : family_(family), path_(path), chosen_(chosen)
    { }

    QString cause()
    {
        if (linesIn(chosen_.encoding).isEmpty())
            return {};
        if (fits(chosen_))
            return QStringLiteral("Под строкой заголовка нет строк с данными: в них меньше ячеек, чем нужно, "
                                  "или нет имени.");
        for (int changes = 1; changes <= 3; ++changes) {
            const QString found = causeOf(changes);
            if (!found.isEmpty())
                return QStringLiteral("Вероятная причина — ") + found + QLatin1Char('.');
        }
        if (chosen_.encoding == TextEncoding::Utf8 && isNoUtf8())
            return QStringLiteral("Вероятная причина — кодировка: файл записан не в UTF-8.");
        return QStringLiteral("В файле нет строки заголовка: нужны ячейки ") + captions() + QLatin1Char('.');
    }

private:
    // The first choice that differs in so many settings and fits.
    QString causeOf(int changes)
    {
        for (int format = 0; format < family_.templates.size(); ++format) {
            for (TextEncoding encoding : {TextEncoding::Utf8, TextEncoding::Windows1251}) {
                for (const QString& separator : allSeparators()) {
                    const ReadingChoice other{format, separator, encoding};
                    if (differences(other).size() == changes && fits(other))
                        return differences(other).join(QStringLiteral("; "));
                }
            }
        }
        return {};
    }

    QStringList allSeparators() const
    {
        QStringList all(chosen_.separator);
        for (const SeparatorName& known : separators)
            all << QString::fromLatin1(known.separator);
        return all;
    }

    QStringList differences(const ReadingChoice& other) const
    {
        QStringList texts;
        if (other.format != chosen_.format)
            texts << QStringLiteral("шаблон: файл похож на «%1»").arg(family_.templates[other.format].filter);
        if (other.encoding != chosen_.encoding)
            texts << QStringLiteral("кодировка: в файле %1").arg(encodingName(other.encoding));
        if (other.separator != chosen_.separator)
            texts << QStringLiteral("разделитель: в файле %1").arg(separatorName(other.separator));
        return texts;
    }

    bool fits(const ReadingChoice& choice)
    {
        return hasHeader(linesIn(choice.encoding), family_.templates[choice.format], choice.separator);
    }

    bool isNoUtf8()
    {
        const QStringList& lines = linesIn(TextEncoding::Utf8);
        return std::any_of(lines.begin(), lines.end(),
                           [](const QString& line) { return line.contains(QChar::ReplacementCharacter); });
    }

    // A byte order mark leaves one encoding, whichever is asked for.
    const QStringList& linesIn(TextEncoding encoding)
    {
        const auto known = lines_.find(encoding);
        if (known != lines_.end())
            return known->second;
        return lines_.emplace(encoding, readFirstLines(path_, encoding, mostLines)).first->second;
    }

    QString captions() const
    {
        const ImportTemplate& format = family_.templates[chosen_.format];
        std::map<int, QString> sorted;
        for (const TemplateField* field : {&format.name, &format.date, &format.time, &format.serial}) {
            if (field->index >= 0)
                sorted.emplace(field->index, QStringLiteral("«%1»").arg(field->caption));
        }
        QStringList texts;
        for (const auto& [index, caption] : sorted)
            texts << caption;
        return texts.join(QStringLiteral(", "));
    }

    const ImportFamily& family_;
    QString path_;
    ReadingChoice chosen_;
    std::map<TextEncoding, QStringList> lines_;
};

} // namespace

QString emptyCause(const ImportFamily& family, const QString& path, const ReadingChoice& chosen)
{
    return Search(family, path, chosen).cause();
}
