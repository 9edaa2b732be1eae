#pragma once
// The markup of a part, tag by tag, without a tree: a merged file of a hundred
// documents would be a tree of a gigabyte.

#include <QByteArray>
#include <QVector>

namespace docx {

struct MarkupAttribute {
    QByteArray name;
    QByteArray quoted; ///< the value as it stands, escaped and in its quotes

    /// What the value means.
    QString value() const;
    /// As it stands in a tag, with the blank in front.
    QByteArray written() const { return ' ' + name + '=' + quoted; }
};

/// White space as markup knows it.
constexpr bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

bool contains(const QVector<MarkupAttribute>& attributes, const QByteArray& name);
/// In the place of the one of its name, else behind all.
void set(const MarkupAttribute& attribute, QVector<MarkupAttribute>* attributes);

/// Walks over a part that checkXml() has passed; of others it tells nonsense,
/// but it ends. Pieces and names that it hands out point into the part,
/// attributes stand by themselves.
class MarkupReader {
public:
    enum Kind { Start, Empty, End, Text, Other };

    explicit MarkupReader(const QByteArray& xml) : xml_(xml) { }

    /// Goes on to the next piece; false behind the last one.
    bool next();
    Kind kind() const { return kind_; }
    bool opens() const { return kind_ == Start || kind_ == Empty; }
    /// The piece as it stands.
    QByteArray raw() const { return slice(from_, to_); }
    /// Of a tag.
    QByteArray name() const;
    /// Of a tag that opens, in their order.
    QVector<MarkupAttribute> attributes() const;

private:
    QByteArray slice(int from, int to) const { return QByteArray::fromRawData(xml_.constData() + from, to - from); }
    int behind(const char* end, int from) const;
    int behindTag() const;
    int behindName(int at) const;

    const QByteArray xml_;
    Kind kind_ = Other;
    int from_ = 0;
    int to_ = 0;
};

} // namespace docx
