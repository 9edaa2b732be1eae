#include "group_reader.h"

#include "text_coding.h"

#include <drawing/long_work.h>

#include <QTextCodec>

namespace {

// About as much as a group takes in a file; shares of the work of opening one.
constexpr int kBytesOfGroup = 14;
constexpr double kSplit = 0.15, kCoded = 0.4;

struct RawGroup {
    int code;
    int from, size; // of the value
};

// One line without its end; `at` moves behind it.
bool takeLine(const QByteArray& bytes, int& at, int& from, int& size)
{
    if (at >= bytes.size())
        return false;
    from = at;
    const int end = bytes.indexOf('\n', at);
    size = (end < 0 ? bytes.size() : end) - from;
    at = end < 0 ? bytes.size() : end + 1;
    if (size > 0 && bytes[from + size - 1] == '\r')
        --size;
    return true;
}

// A copy: trimming a temporary view of the bytes would move the bytes themselves.
QByteArray trimmedText(const QByteArray& bytes, int from, int size)
{
    return QByteArray(bytes.constData() + from, size).trimmed();
}

QByteArray valueOf(const QByteArray& bytes, const RawGroup& group)
{
    return trimmedText(bytes, group.from, group.size);
}

bool splitGroups(const QByteArray& bytes, std::vector<RawGroup>& groups)
{
    int at = bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    int from = 0, size = 0;
    WorkPart work(size_t(bytes.size() / kBytesOfGroup), 0.0, kSplit);
    while (takeLine(bytes, at, from, size)) {
        bool ok = false;
        RawGroup group;
        group.code = trimmedText(bytes, from, size).toInt(&ok);
        if (!ok || group.code < -5 || group.code > 1071 || !takeLine(bytes, at, group.from, group.size) || !work.next())
            return false;
        if (group.code == 0 && valueOf(bytes, group) == "EOF")
            return true;
        if (group.code != 999)
            groups.push_back(group);
    }
    return false;
}

// Value of a header variable's first group, empty when the file has none.
QByteArray headerValue(const QByteArray& bytes, const std::vector<RawGroup>& groups, const char* name)
{
    for (size_t i = 0; i + 1 < groups.size(); ++i) {
        const QByteArray value = valueOf(bytes, groups[i]);
        if (groups[i].code == 9 && value == name)
            return valueOf(bytes, groups[i + 1]);
        if (groups[i].code == 0 && value == "ENDSEC")
            return {};
    }
    return {};
}

QTextCodec* codecOf(const QByteArray& bytes, const std::vector<RawGroup>& groups)
{
    const bool old = headerValue(bytes, groups, "$ACADVER") < "AC1021";
    QTextCodec* page = codecOfCodePage(headerValue(bytes, groups, "$DWGCODEPAGE"));
    // Programs write UTF-8 where they should not and the other way round; a
    // text that is no UTF-8 is certainly in a code page, most likely our users'.
    if ((!old || !page) && isUtf8(bytes))
        return QTextCodec::codecForName("UTF-8");
    return page ? page : QTextCodec::codecForName("windows-1251");
}

} // namespace

bool readGroups(const QByteArray& bytes, DxfGroups& groups)
{
    std::vector<RawGroup> raw;
    if (!splitGroups(bytes, raw) || raw.empty())
        return false;
    QTextCodec* codec = codecOf(bytes, raw);
    groups.clear();
    groups.reserve(raw.size());
    WorkPart work(raw.size(), kSplit, kCoded);
    for (const RawGroup& group : raw) {
        if (!work.next())
            return false;
        const char* value = bytes.constData() + group.from;
        groups.push_back({group.code, withoutUnicodeEscapes(codec->toUnicode(value, group.size))});
    }
    return true;
}
