#include "base/xml_text.h"

#include <QXmlStreamReader>

namespace {

bool isStorable(QChar c)
{
    if (c < QLatin1Char(' '))
        return c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
    return !c.isSurrogate() && c.unicode() < 0xfffe;
}

} // namespace

QString storableInXml(const QString& text)
{
    QString kept;
    kept.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const bool pair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (pair)
            kept += text.at(i++);
        if (pair || isStorable(text.at(i)))
            kept += text.at(i);
    }
    return kept;
}

bool isNestedDeeper(const QByteArray& xml, int most)
{
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        depth += token == QXmlStreamReader::StartElement ? 1 : token == QXmlStreamReader::EndElement ? -1 : 0;
        if (depth > most)
            return true;
    }
    return false;
}
