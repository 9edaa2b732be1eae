#include "reports/docx/markup_reader.h"

#include <QXmlStreamReader>
#include <algorithm>
#include <cstring>

namespace docx {
namespace {

bool endsName(char c) { return isBlank(c) || c == '>' || c == '/' || c == '='; }

} // namespace

QString MarkupAttribute::value() const
{
    if (!quoted.contains('&'))
        return QString::fromUtf8(quoted.mid(1, quoted.size() - 2));
    QXmlStreamReader reader("<a v=" + quoted + "/>");
    reader.readNextStartElement();
    return reader.attributes().value(QLatin1String("v")).toString();
}

bool contains(const QVector<MarkupAttribute>& attributes, const QByteArray& name)
{
    return std::any_of(attributes.begin(), attributes.end(),
                       [&name](const MarkupAttribute& one) { return one.name == name; });
}

void set(const MarkupAttribute& attribute, QVector<MarkupAttribute>* attributes)
{
    for (MarkupAttribute& one : *attributes) {
        if (one.name == attribute.name) {
            one = attribute;
            return;
        }
    }
    attributes->append(attribute);
}

bool MarkupReader::next()
{
    from_ = to_;
    if (from_ >= xml_.size())
        return false;
    const char* at = xml_.constData() + from_;
    if (*at != '<') {
        const void* tag = std::memchr(at, '<', size_t(xml_.size() - from_));
        to_ = tag ? int(static_cast<const char*>(tag) - xml_.constData()) : xml_.size();
        kind_ = Text;
    } else if (std::strncmp(at, "<![CDATA[", 9) == 0) {
        to_ = behind("]]>", from_);
        kind_ = Text;
    } else if (std::strncmp(at, "<!--", 4) == 0) {
        to_ = behind("-->", from_);
        kind_ = Other;
    } else if (at[1] == '?') {
        to_ = behind("?>", from_);
        kind_ = Other;
    } else {
        to_ = behindTag();
        kind_ = at[1] == '/' ? End : to_ - from_ > 2 && xml_.at(to_ - 2) == '/' ? Empty : Start;
    }
    return true;
}

int MarkupReader::behind(const char* end, int from) const
{
    const int found = xml_.indexOf(end, from);
    return found < 0 ? xml_.size() : found + int(std::strlen(end));
}

// A quoted value may hold the sign that ends a tag.
int MarkupReader::behindTag() const
{
    char quote = 0;
    for (int at = from_; at < xml_.size(); ++at) {
        const char c = xml_.at(at);
        if (quote)
            quote = c == quote ? 0 : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>')
            return at + 1;
    }
    return xml_.size();
}

int MarkupReader::behindName(int at) const
{
    while (at < to_ && !endsName(xml_.at(at)))
        ++at;
    return at;
}

QByteArray MarkupReader::name() const
{
    const int from = from_ + (kind_ == End ? 2 : 1);
    return slice(from, behindName(from));
}

QVector<MarkupAttribute> MarkupReader::attributes() const
{
    QVector<MarkupAttribute> found;
    int at = behindName(from_ + 1);
    while (true) {
        while (at < to_ && isBlank(xml_.at(at)))
            ++at;
        const int name = at;
        at = behindName(at);
        const int nameEnd = at;
        while (at < to_ && xml_.at(at) != '"' && xml_.at(at) != '\'')
            ++at;
        const int close = at < to_ ? xml_.indexOf(xml_.at(at), at + 1) : -1;
        if (nameEnd == name || close < 0 || close >= to_)
            return found;
        found.append({xml_.mid(name, nameEnd - name), xml_.mid(at, close + 1 - at)});
        at = close + 1;
    }
}

} // namespace docx
