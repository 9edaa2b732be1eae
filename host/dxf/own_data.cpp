#include "own_data.h"

#include "fields.h"
#include "text_coding.h"
#include "writer.h"

namespace {

constexpr int kText = 1000, kBrace = 1002, kReal = 1040, kInteger = 1071;
// The format allows 255 bytes of text in a group of extension data.
constexpr int kMostBytes = 240;

const QString kOpen = QStringLiteral("{"), kClose = QStringLiteral("}");

// Pieces of at most kMostBytes bytes of UTF-8; no character is cut.
std::vector<QString> pieces(const QString& text)
{
    std::vector<QString> result{QString()};
    int bytes = 0;
    for (int i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size();
        const QString character = text.mid(i, pair ? 2 : 1);
        const int size = character.toUtf8().size();
        if (bytes + size > kMostBytes) {
            result.emplace_back();
            bytes = 0;
        }
        result.back() += character;
        bytes += size;
        i += pair ? 1 : 0;
    }
    return result;
}

} // namespace

const char* ownApplication() { return "TERVA"; }

void OwnValues::addText(const QString& text)
{
    const std::vector<QString> parts = pieces(toCaretCoding(text));
    const bool several = parts.size() > 1;
    if (several)
        groups_.push_back({kBrace, kOpen});
    for (const QString& part : parts)
        groups_.push_back({kText, part});
    if (several)
        groups_.push_back({kBrace, kClose});
}

void OwnValues::addReal(double value) { groups_.push_back({kReal, realText(value)}); }

void OwnValues::addInteger(qint64 value) { groups_.push_back({kInteger, QString::number(value)}); }

const DxfGroup* OwnValues::next(int code)
{
    if (atEnd() || groups_[at_].code != code)
        return nullptr;
    return &groups_[at_++];
}

QString OwnValues::text()
{
    if (const DxfGroup* one = next(kText))
        return fromCaretCoding(one->value);
    QString joined;
    if (next(kBrace)) {
        while (const DxfGroup* part = next(kText))
            joined += part->value;
        next(kBrace);
    }
    return fromCaretCoding(joined);
}

double OwnValues::real()
{
    const DxfGroup* group = next(kReal);
    return group ? realOf(group->value) : 0.0;
}

int OwnValues::integer()
{
    const DxfGroup* group = next(kInteger);
    return group ? integerOf(group->value) : 0;
}

OwnData::OwnData(const DxfGroups& xdata)
{
    OwnValues* present = nullptr;
    QString keyword;
    int depth = 0;
    for (const DxfGroup& group : xdata) {
        const bool opens = group.code == kBrace && group.value.trimmed() == kOpen;
        const bool closes = group.code == kBrace && !opens;
        if (closes && --depth <= 0) {
            present = nullptr;
            depth = 0;
        } else if (present) {
            present->append(group);
            depth += opens ? 1 : 0;
        } else if (opens) {
            present = &entries_[keyword];
            depth = 1;
        } else if (group.code == kText) {
            keyword = group.value;
        }
    }
}

OwnValues OwnData::values(const QString& keyword) const
{
    const auto found = entries_.find(keyword);
    return found == entries_.end() ? OwnValues() : found->second;
}

DxfGroups OwnData::groups() const
{
    DxfGroups all;
    for (const auto& entry : entries_) {
        all.push_back({kText, entry.first});
        all.push_back({kBrace, kOpen});
        all.insert(all.end(), entry.second.groups().begin(), entry.second.groups().end());
        all.push_back({kBrace, kClose});
    }
    return all;
}
