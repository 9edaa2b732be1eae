// The tables are those of the OpenType specification, the file that of "WOFF File
// Format 1.0"; all numbers are big-endian.
#include "web_font.h"

#include <QtEndian>

#include <map>
#include <set>

namespace {

using Tables = std::map<QByteArray, QByteArray>;

quint16 word(const QByteArray& bytes, int at)
{
    return at >= 0 && at + 2 <= bytes.size() ? qFromBigEndian<quint16>(bytes.constData() + at) : quint16(0);
}

quint32 longWord(const QByteArray& bytes, int at)
{
    return at >= 0 && at + 4 <= bytes.size() ? qFromBigEndian<quint32>(bytes.constData() + at) : quint32(0);
}

template <class Number>
void put(QByteArray& bytes, Number number)
{
    char raw[sizeof(Number)];
    qToBigEndian(number, raw);
    bytes.append(raw, int(sizeof raw));
}

template <class Number>
void set(QByteArray& bytes, int at, Number number)
{
    if (at + int(sizeof number) <= bytes.size())
        qToBigEndian(number, bytes.data() + at);
}

void pad(QByteArray& bytes)
{
    while (bytes.size() % 4 != 0)
        bytes.append('\0');
}

// --- the glyphs

class Glyphs {
public:
    explicit Glyphs(const QRawFont& font) : loca_(font.fontTable("loca")), glyf_(font.fontTable("glyf"))
    {
        long_ = word(font.fontTable("head"), 50) == 1;
        count_ = word(font.fontTable("maxp"), 4);
    }

    int count() const { return count_; }
    bool isEmpty() const { return loca_.isEmpty() || glyf_.isEmpty() || count_ == 0; }

    QByteArray outline(int glyph) const
    {
        const quint32 from = place(glyph), to = place(glyph + 1);
        return from < to && to <= quint32(glyf_.size()) ? glyf_.mid(int(from), int(to - from)) : QByteArray();
    }

    // Letters with signs above are made of other glyphs.
    void addWithParts(int glyph, std::set<int>& wanted) const
    {
        if (glyph >= count_ || !wanted.insert(glyph).second)
            return;
        const QByteArray bytes = outline(glyph);
        if (bytes.size() < 10 || qint16(word(bytes, 0)) >= 0)
            return;
        enum { WordArguments = 0x1, Scale = 0x8, More = 0x20, TwoScales = 0x40, Matrix = 0x80 };
        quint16 flags = More;
        for (int at = 10; (flags & More) && at + 4 <= bytes.size();) {
            flags = word(bytes, at);
            addWithParts(word(bytes, at + 2), wanted);
            at += 4 + (flags & WordArguments ? 4 : 2);
            at += flags & Scale ? 2 : flags & TwoScales ? 4 : flags & Matrix ? 8 : 0;
        }
    }

private:
    quint32 place(int glyph) const { return long_ ? longWord(loca_, 4 * glyph) : 2u * word(loca_, 2 * glyph); }

    QByteArray loca_, glyf_;
    bool long_ = false;
    int count_ = 0;
};

// Glyphs keep their numbers, so that what names them need not change.
void addOutlines(const Glyphs& glyphs, const std::set<int>& wanted, Tables& tables)
{
    QByteArray loca, glyf;
    for (int glyph = 0; glyph < glyphs.count(); ++glyph) {
        put(loca, quint32(glyf.size()));
        if (wanted.count(glyph))
            glyf += glyphs.outline(glyph);
        pad(glyf);
    }
    put(loca, quint32(glyf.size()));
    tables["loca"] = loca;
    tables["glyf"] = glyf;
    set(tables["head"], 50, quint16(1)); // places in long words
    set(tables["head"], 8, quint32(0));  // the sum of the whole, which readers make anew
}

// --- characters and widths

// Format 4 with a segment a character, and the closing one.
QByteArray characterMap(const std::map<ushort, int>& glyphs)
{
    const int segments = int(glyphs.size()) + 1;
    int range = 1, selector = 0;
    while (2 * range <= segments) {
        range *= 2;
        ++selector;
    }
    QByteArray ends, starts, deltas, offsets;
    for (const auto& entry : glyphs) {
        put(ends, quint16(entry.first));
        put(starts, quint16(entry.first));
        put(deltas, quint16(entry.second - entry.first));
        put(offsets, quint16(0));
    }
    put(ends, quint16(0xFFFF));
    put(starts, quint16(0xFFFF));
    put(deltas, quint16(1));
    put(offsets, quint16(0));
    QByteArray map;
    for (const int number : {0, 1, 3, 1}) // version, one table, of Unicode
        put(map, quint16(number));
    put(map, quint32(12));
    const int length = 16 + 8 * segments;
    for (const int number : {4, length, 0, 2 * segments, 2 * range, selector, 2 * (segments - range)})
        put(map, quint16(number));
    map += ends;
    put(map, quint16(0));
    return map + starts + deltas + offsets;
}

void forgetWidths(const std::set<int>& wanted, const QByteArray& hhea, QByteArray& hmtx)
{
    const int full = word(hhea, 34);
    for (int glyph = 1; glyph + 1 < full; ++glyph)
        if (!wanted.count(glyph))
            set(hmtx, 4 * glyph, quint32(0));
}

// --- the file

quint32 checksum(QByteArray bytes)
{
    pad(bytes);
    quint32 sum = 0;
    for (int at = 0; at < bytes.size(); at += 4)
        sum += longWord(bytes, at);
    return sum;
}

QByteArray woff(const Tables& tables)
{
    constexpr int kHeader = 44, kEntry = 20, kPlainHeader = 12, kPlainEntry = 16;
    const int count = int(tables.size());
    QByteArray entries, body;
    quint32 plain = quint32(kPlainHeader + kPlainEntry * count);
    for (const auto& table : tables) {
        // The toolkit puts the length before the packed bytes.
        const QByteArray packed = qCompress(table.second, 9).mid(4);
        const QByteArray& bytes = packed.size() < table.second.size() ? packed : table.second;
        entries += table.first;
        put(entries, quint32(kHeader + kEntry * count + body.size()));
        put(entries, quint32(bytes.size()));
        put(entries, quint32(table.second.size()));
        put(entries, checksum(table.second));
        body += bytes;
        pad(body);
        plain += quint32((table.second.size() + 3) & ~3);
    }
    QByteArray file("wOFF");
    put(file, quint32(0x00010000)); // TrueType outlines
    put(file, quint32(kHeader + entries.size() + body.size()));
    put(file, quint16(count));
    put(file, quint16(0));
    put(file, plain);
    file.append(QByteArray(kHeader - file.size(), '\0')); // no version, no metadata
    return file + entries + body;
}

// The bits by which the maker of the font allows embedding.
bool mayBeTaken(const QByteArray& os2)
{
    constexpr quint16 kRestricted = 0x0002, kNoParts = 0x0100;
    return os2.size() >= 10 && (word(os2, 8) & (kRestricted | kNoParts)) == 0;
}

} // namespace

QByteArray webFont(const QRawFont& font, const QString& characters)
{
    const Glyphs glyphs(font);
    if (glyphs.isEmpty() || !mayBeTaken(font.fontTable("OS/2")))
        return {};
    std::map<ushort, int> map;
    std::set<int> wanted;
    glyphs.addWithParts(0, wanted);
    for (const QChar character : characters) {
        const QVector<quint32> found = font.glyphIndexesForString(QString(character));
        if (found.isEmpty() || found.first() == 0)
            continue;
        map[character.unicode()] = int(found.first());
        glyphs.addWithParts(int(found.first()), wanted);
    }
    Tables tables;
    for (const char* name :
         {"GDEF", "GPOS", "OS/2", "cvt ", "fpgm", "gasp", "head", "hhea", "hmtx", "maxp", "name", "prep"}) {
        const QByteArray table = font.fontTable(name);
        if (!table.isEmpty())
            tables[name] = table;
    }
    addOutlines(glyphs, wanted, tables);
    forgetWidths(wanted, tables["hhea"], tables["hmtx"]);
    tables["cmap"] = characterMap(map);
    tables["post"] = font.fontTable("post").left(32);
    set(tables["post"], 0, quint32(0x00030000)); // without the glyphs' names
    return woff(tables);
}
