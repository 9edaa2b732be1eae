// Hatches: solid ones and such of lines, bounded by polylines.
#include "entity_codec.h"
#include "hatch_edges.h"
#include "text_coding.h"

#include <render/hatch_pattern.h>

#include <algorithm>
#include <cmath>

namespace {

const QString kLoops = QStringLiteral("loops");
constexpr int kMostLoops = 1000000;

// The groups of a hatch, to be compared before they are written.
class GroupList {
public:
    void text(int code, const QString& value) { groups_.push_back({code, toCaretCoding(value)}); }
    void integer(int code, qint64 value) { groups_.push_back({code, QString::number(value)}); }
    void real(int code, double value) { groups_.push_back({code, realText(value)}); }
    void point2d(int code, double x, double y)
    {
        real(code, x);
        real(code + 10, y);
    }
    void point(int code, const NcGePoint3d& p)
    {
        point2d(code, p.x, p.y);
        real(code + 20, p.z);
    }
    const DxfGroups& groups() const { return groups_; }

private:
    DxfGroups groups_;
};

bool isSolid(const NcDbHatch& hatch)
{
    return hatch.patternName().compare(QLatin1String("SOLID"), Qt::CaseInsensitive) == 0;
}

void addLoop(const NcDbHatch::Loop& loop, GroupList& list)
{
    const bool bulged = std::any_of(loop.bulges.begin(), loop.bulges.end(), [](double bulge) { return bulge != 0.0; });
    list.integer(92, loop.type | NcDbHatch::kPolyline);
    list.integer(72, bulged ? 1 : 0);
    list.integer(73, 1);
    list.integer(93, qint64(loop.points.size()));
    for (size_t i = 0; i < loop.points.size(); ++i) {
        list.point2d(10, loop.points[i].x, loop.points[i].y);
        if (bulged)
            list.real(42, i < loop.bulges.size() ? loop.bulges[i] : 0.0);
    }
    list.integer(97, 0);
}

// What stands for a pattern that is not beside the program.
const LinePattern& slantedLines()
{
    static const LinePattern pattern{QStringLiteral("LINES"), {{M_PI / 4.0, {}, 0.0, 3.0, {}}}};
    return pattern;
}

void addPatternLine(const PatternLine& line, double scale, GroupList& list)
{
    const double c = std::cos(line.angle), s = std::sin(line.angle);
    list.real(53, std::round(line.angle * 180.0 / M_PI * 1e9) / 1e9);
    list.real(43, line.origin.x() * scale);
    list.real(44, line.origin.y() * scale);
    list.real(45, (line.along * c - line.across * s) * scale);
    list.real(46, (line.along * s + line.across * c) * scale);
    list.integer(79, qint64(line.dashes.size()));
    for (double dash : line.dashes)
        list.real(49, dash * scale);
}

void addPattern(const NcDbHatch& hatch, GroupList& list)
{
    if (isSolid(hatch)) {
        if (hatch.patternScale() != 1.0)
            list.real(41, hatch.patternScale());
        return;
    }
    const LinePattern* found = findPattern(hatch.patternName());
    const LinePattern& pattern = found && !found->lines.empty() ? *found : slantedLines();
    list.real(52, 0.0);
    list.real(41, hatch.patternScale());
    list.integer(77, 0);
    list.integer(78, qint64(pattern.lines.size()));
    for (const PatternLine& line : pattern.lines)
        addPatternLine(line, hatch.patternScale(), list);
}

DxfGroups headAndLoops(const NcDbHatch& hatch)
{
    GroupList list;
    list.point(10, {0, 0, hatch.elevation()});
    list.point(210, {hatch.normal().x, hatch.normal().y, hatch.normal().z});
    list.text(2, hatch.patternName());
    list.integer(70, isSolid(hatch) ? 1 : 0);
    list.integer(71, hatch.associative() ? 1 : 0);
    list.integer(91, hatch.numLoops());
    for (const NcDbHatch::Loop& loop : HostAccess::loops(hatch))
        addLoop(loop, list);
    return list.groups();
}

DxfGroups tail(const NcDbHatch& hatch)
{
    GroupList list;
    list.integer(75, hatch.hatchStyle());
    list.integer(76, hatch.patternType());
    addPattern(hatch, list);
    list.integer(98, 0);
    return list.groups();
}

// A hatch as its groups tell it, and where in them the loops end.
struct HatchGroups {
    NcDbHatch hatch;
    size_t tail = 0;
    bool hasAllSources = true;
    std::vector<quint64> sources; // what the boundary was taken from
};

void takeTail(const DxfGroups& groups, HatchGroups& parsed)
{
    NcDbHatch& hatch = parsed.hatch;
    bool scaled = false;
    for (size_t i = parsed.tail; i < groups.size(); ++i) {
        const QString& value = groups[i].value;
        switch (groups[i].code) {
        case 75: HostAccess::style(hatch) = NcDbHatch::HatchStyle(qBound(0, integerOf(value), 2)); break;
        case 76: HostAccess::patternType(hatch) = NcDbHatch::PatternType(qBound(0, integerOf(value), 2)); break;
        case 41:
            if (!scaled)
                HostAccess::patternScale(hatch) = realOf(value, 1.0);
            scaled = true;
            break;
        case 98: return; // seeds and gradients
        default: break;
        }
    }
}

void parse(const DxfGroups& groups, HatchGroups& parsed)
{
    NcDbHatch& hatch = parsed.hatch;
    size_t at = 0;
    int loops = 0;
    NcGeVector3d normal{0, 0, 1};
    for (; at < groups.size() && groups[at].code != 91; ++at) {
        const QString& value = groups[at].value;
        switch (groups[at].code) {
        case 30: HostAccess::elevation(hatch) = realOf(value); break;
        case 210: normal.x = realOf(value); break;
        case 220: normal.y = realOf(value); break;
        case 230: normal.z = realOf(value); break;
        case 2: HostAccess::pattern(hatch) = fromCaretCoding(value.trimmed()); break;
        case 71: HostAccess::associative(hatch) = integerOf(value) != 0; break;
        default: break;
        }
    }
    HostAccess::normal(hatch) = normal;
    if (at < groups.size())
        loops = qBound(0, integerOf(groups[at++].value), kMostLoops);
    HatchLoopReader reader(groups, at);
    for (int i = 0; i < loops && reader.at() < groups.size() && groups[reader.at()].code == 92; ++i) {
        NcDbHatch::Loop loop = reader.next();
        if (loop.points.size() >= 2)
            HostAccess::loops(hatch).push_back(std::move(loop));
    }
    parsed.tail = reader.at();
    parsed.hasAllSources = reader.hasAllSources();
    parsed.sources = reader.sources();
    takeTail(groups, parsed);
    HostAccess::evaluated(hatch) = hatch.numLoops() > 0;
}

void copyHatch(const NcDbHatch& from, NcDbHatch& to)
{
    HostAccess::normal(to) = from.normal();
    HostAccess::elevation(to) = from.elevation();
    HostAccess::associative(to) = from.associative();
    HostAccess::evaluated(to) = HostAccess::evaluated(from);
    HostAccess::patternType(to) = from.patternType();
    HostAccess::pattern(to) = from.patternName();
    HostAccess::patternScale(to) = from.patternScale();
    HostAccess::style(to) = from.hatchStyle();
    HostAccess::loops(to) = HostAccess::loops(from);
}

std::unique_ptr<NcDbEntity> readHatch(DxfEntityFields& fields, DxfReadContext&, const DxfEntity&)
{
    fields.enter("AcDbHatch");
    const DxfGroups groups = fields.all();
    HatchGroups parsed;
    parse(groups, parsed);
    auto hatch = std::make_unique<NcDbHatch>();
    copyHatch(parsed.hatch, *hatch);
    DxfGroups ours = headAndLoops(*hatch);
    const DxfGroups end = tail(*hatch);
    ours.insert(ours.end(), end.begin(), end.end());
    if (ours != groups) {
        DxfGroups& kept = HostAccess::data(*hatch).foreignGroups;
        kept = groups;
        kept.insert(kept.begin(), {100, QLatin1String(kKeptVerbatim)});
    }
    OwnValues types = fields.own().values(kLoops);
    for (NcDbHatch::Loop& loop : HostAccess::loops(*hatch)) {
        if (!types.atEnd())
            loop.type = types.integer();
    }
    return hatch;
}

bool sameLoops(const NcDbHatch& one, const NcDbHatch& other)
{
    if (one.numLoops() != other.numLoops())
        return false;
    for (int i = 0; i < one.numLoops(); ++i) {
        const NcDbHatch::Loop& a = one.loopAt(i);
        const NcDbHatch::Loop& b = other.loopAt(i);
        if (a.points != b.points || a.bulges != b.bulges)
            return false;
    }
    return true;
}

// Groups as they were read where they still tell what the hatch is.
void writeGroups(const NcDbHatch& hatch, const DxfGroups* kept, DxfRecordWriter& record)
{
    HatchGroups before;
    if (kept)
        parse(*kept, before);
    const bool samePattern = kept && before.hatch.patternName() == hatch.patternName()
        && before.hatch.patternScale() == hatch.patternScale() && before.hatch.hatchStyle() == hatch.hatchStyle()
        && before.hatch.patternType() == hatch.patternType();
    const bool sound = before.hasAllSources
        && std::none_of(before.sources.begin(), before.sources.end(),
                        [&](quint64 handle) { return record.isDead(handle); });
    const bool sameShape = samePattern && sound && before.hatch.normal() == hatch.normal()
        && before.hatch.elevation() == hatch.elevation() && before.hatch.associative() == hatch.associative()
        && sameLoops(before.hatch, hatch);
    const auto split = [&] { return kept->begin() + std::ptrdiff_t(before.tail); };
    record.groups(sameShape ? DxfGroups(kept->begin(), split()) : headAndLoops(hatch));
    record.groups(samePattern ? DxfGroups(split(), kept->end()) : tail(hatch));
}

void writeHatch(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    const auto& hatch = as<NcDbHatch>(entity);
    const DxfGroups* kept = record.rest().body(QLatin1String(kKeptVerbatim));
    record.subclass("AcDbHatch");
    writeGroups(hatch, kept, record);
    const std::vector<NcDbHatch::Loop>& loops = HostAccess::loops(hatch);
    const bool plain = std::all_of(loops.begin(), loops.end(),
                                   [](const NcDbHatch::Loop& loop) { return loop.type & NcDbHatch::kPolyline; });
    for (size_t i = 0; !plain && i < loops.size(); ++i)
        record.own().entry(kLoops).addInteger(loops[i].type);
}

} // namespace

std::vector<EntityCodec> hatchCodecs() { return {{"HATCH", NcDbHatch::desc, readHatch, writeHatch}}; }
