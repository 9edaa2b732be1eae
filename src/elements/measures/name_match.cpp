#include "elements/measures/name_match.h"

#include <QHash>
#include <array>

namespace {

// Sets of signs that count as one. The first set that holds a sign is the
// sign's own. In the last one the backslashes only set off the marks behind
// them: a backslash belongs to the set, yet the set does not match it.
constexpr std::array<const char16_t*, 49> groups = {
    u"AaАа",   u"BbБб", u"CcSsСс", u"DdДд", u"EeЕе", u"FfФф", u"GgГг", u"HhХх", u"IiИи",       u"Jj",
    u"KkКк",   u"LlЛл", u"MmМм",   u"NnНн", u"OoОо", u"PpПп", u"Qq",   u"RrРр", u"TtТт",       u"UuУу",
    u"VvWwВв", u"WwВв", u"XxХх",   u"Yy",   u"ZzЗз", u"Ёё",   u"Жж",   u"Йй",   u"Цц",         u"Чч",
    u"Шш",     u"Щщ",   u"Ъъ",     u"Ыы",   u"Ьь",   u"Ээ",   u"Юю",   u"Яя",   u"1",          u"2",
    u"3",      u"4",    u"5",      u"6",    u"7",    u"8",    u"9",    u"0",    u" \\.\\-\\_",
};

struct Membership {
    int own = -1;          // the first group that holds the sign
    quint64 matchedBy = 0; // bit per group whose class matches the sign
};

using Memberships = QHash<ushort, Membership>;

Memberships collectMemberships()
{
    Memberships memberships;
    for (size_t group = 0; group < groups.size(); ++group) {
        for (const char16_t* sign = groups[group]; *sign != 0; ++sign) {
            Membership& membership = memberships[*sign];
            if (membership.own < 0)
                membership.own = int(group);
            if (*sign != u'\\')
                membership.matchedBy |= quint64(1) << group;
        }
    }
    return memberships;
}

const Memberships& memberships()
{
    static const Memberships collected = collectMemberships();
    return collected;
}

// Whether the pattern made of `source` takes the name. An unknown sign of the
// pattern takes any single sign but a line feed; half of a surrogate pair is
// no sign.
bool takes(const QString& source, const QString& name)
{
    for (int i = 0; i < source.size(); ++i) {
        const int own = memberships().value(source[i].unicode()).own;
        const QChar sign = name[i];
        if (source[i].isSurrogate() || sign.isSurrogate())
            return false;
        if (own < 0 ? sign == QLatin1Char('\n') : !(memberships().value(sign.unicode()).matchedBy >> own & 1))
            return false;
    }
    return true;
}

} // namespace

bool namesMatch(const QString& a, const QString& b)
{
    if (a == b)
        return true;
    if (a.size() != b.size())
        return false;
    // The pattern must take its own source too: a sign that its group does not
    // match (a backslash) leaves only names that are equal.
    return takes(b, a) && takes(b, b);
}
