#include "reports/docx/xml_scan.h"

#include <cstring>

namespace docx {
namespace {

/// One pass over the bytes. Markup is ASCII in UTF-8, so bytes suffice.
class Scanner {
public:
    explicit Scanner(const QByteArray& xml) : at_(xml.constData()), end_(xml.constData() + xml.size()) { }

    QString run()
    {
        while (fault_.isEmpty() && findMarkup())
            readMarkup();
        return fault_;
    }

private:
    /// Moves to the next "<"; what stands before it is a text.
    bool findMarkup()
    {
        const char* markup = static_cast<const char*>(std::memchr(at_, '<', size_t(end_ - at_)));
        if (!markup)
            return false;
        if (markup != at_)
            countNodes(1);
        at_ = markup;
        return true;
    }

    bool startsWith(const char* text) const
    {
        const size_t length = std::strlen(text);
        return size_t(end_ - at_) >= length && std::memcmp(at_, text, length) == 0;
    }

    void readMarkup()
    {
        if (startsWith("<?"))
            readInstruction();
        else if (startsWith("<!--"))
            skipBehind("-->", 4);
        else if (startsWith("<![CDATA["))
            skipBehind("]]>", 9);
        else if (startsWith("<!"))
            fault_ = QStringLiteral("the part has a document type");
        else if (startsWith("</"))
            readEnd();
        else
            readStart();
    }

    void skipBehind(const char* text, int from)
    {
        countNodes(1);
        const QByteArray rest = QByteArray::fromRawData(at_, int(end_ - at_));
        const int found = rest.indexOf(text, from);
        if (found < 0)
            fault_ = QStringLiteral("a comment, section or instruction has no end");
        else
            at_ += found + int(std::strlen(text));
    }

    void readInstruction()
    {
        const char* begin = at_;
        const bool declaration = startsWith("<?xml ");
        skipBehind("?>", 2);
        if (declaration && fault_.isEmpty())
            checkEncoding(QByteArray(begin, int(at_ - begin)).toLower());
    }

    void checkEncoding(const QByteArray& declaration)
    {
        const int found = declaration.indexOf("encoding");
        if (found < 0)
            return;
        const QByteArray rest = declaration.mid(found);
        if (!rest.contains("utf-8") && !rest.contains("utf8") && !rest.contains("us-ascii"))
            fault_ = QStringLiteral("the part is not in UTF-8");
    }

    void readEnd()
    {
        --depth_;
        const char* close = static_cast<const char*>(std::memchr(at_, '>', size_t(end_ - at_)));
        if (!close)
            fault_ = QStringLiteral("a tag has no end");
        else
            at_ = close + 1;
    }

    void readStart()
    {
        int attributes = 0;
        char quote = 0;
        for (const char* c = at_ + 1; c != end_; ++c) {
            if (quote) {
                if (*c == quote)
                    quote = 0;
            } else if (*c == '"' || *c == '\'') {
                quote = *c;
            } else if (*c == '=') {
                ++attributes;
            } else if (*c == '>') {
                finishStart(attributes, c[-1] == '/');
                at_ = c + 1;
                return;
            }
        }
        fault_ = QStringLiteral("a tag has no end");
    }

    void finishStart(int attributes, bool empty)
    {
        countNodes(1 + attributes);
        if (attributes > XmlBounds::attributesOfElement)
            fault_ = QStringLiteral("an element has too many attributes");
        if (depth_ >= XmlBounds::depth)
            fault_ = QStringLiteral("the elements are nested too deeply");
        if (!empty)
            ++depth_;
    }

    void countNodes(int more)
    {
        nodes_ += more;
        if (nodes_ > XmlBounds::nodes)
            fault_ = QStringLiteral("the part has too many nodes");
    }

    const char* at_;
    const char* end_;
    int depth_ = 0;
    qint64 nodes_ = 0;
    QString fault_;
};

} // namespace

QString findFault(const QByteArray& xml)
{
    if (xml.size() > XmlBounds::bytes)
        return QStringLiteral("the part is too large");
    if (xml.contains('\0'))
        return QStringLiteral("the part is not in UTF-8");
    return Scanner(xml).run();
}

} // namespace docx
