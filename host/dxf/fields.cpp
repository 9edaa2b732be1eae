#include "fields.h"

#include "text_coding.h"

#include <cmath>

double realOf(const QString& text, double fallback)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(value) ? value : fallback;
}

int integerOf(const QString& text, int fallback)
{
    bool ok = false;
    const int value = text.trimmed().toInt(&ok);
    if (ok)
        return value;
    // Some programs write whole numbers with a decimal point.
    const double real = realOf(text, fallback);
    return std::abs(real) < 2e9 ? int(real) : fallback;
}

const DxfGroups* DxfRest::body(const QString& subclass) const
{
    for (const Body& body : bodies) {
        if (body.subclass == subclass)
            return &body.groups;
    }
    return nullptr;
}

void DxfRest::add(const QString& subclass, const DxfGroups& groups)
{
    for (Body& body : bodies) {
        if (body.subclass == subclass) {
            body.groups.insert(body.groups.end(), groups.begin(), groups.end());
            return;
        }
    }
    bodies.push_back({subclass, groups});
}

DxfFields::DxfFields(const DxfGroups& groups)
{
    split(groups);
    from_ = 0;
    to_ = int(items_.size());
}

void DxfFields::split(const DxfGroups& groups)
{
    parts_.push_back({QString(), 0, 0});
    Kind kind = kPlain;
    for (const DxfGroup& group : groups) {
        if (group.code >= 1000) {
            kind = kXdata;
        } else if (group.code == 100 && kind != kXdata) {
            kind = kPlain;
            parts_.back().to = int(items_.size());
            parts_.push_back({group.value.trimmed(), int(items_.size()), 0});
            continue;
        } else if (group.code == 101 && kind == kPlain && parts_.size() > 1) { // the head embeds nothing
            kind = kEmbedded;
        }
        const bool opens = group.code == 102 && kind == kPlain && group.value.trimmed().startsWith(QLatin1Char('{'));
        if (opens)
            kind = kControl;
        items_.push_back({group, kind, false});
        if (group.code == 102 && kind == kControl && !opens)
            kind = kPlain;
    }
    parts_.back().to = int(items_.size());
}

bool DxfFields::enter(const char* subclass)
{
    from_ = 0;
    to_ = int(items_.size());
    bool found = false;
    for (const Part& part : parts_) {
        const bool same = part.subclass == QLatin1String(subclass);
        if (found && !same)
            break;
        if (!same)
            continue;
        // A text has two parts of one name.
        from_ = found ? from_ : part.from;
        to_ = part.to;
        found = true;
    }
    return found;
}

void DxfFields::enterHead()
{
    from_ = parts_.front().from;
    to_ = parts_.front().to;
}

int DxfFields::find(int code) const
{
    for (int i = from_; i < to_; ++i) {
        const Item& item = items_[size_t(i)];
        if (!item.taken && item.kind == kPlain && item.group.code == code)
            return i;
    }
    return -1;
}

const QString* DxfFields::take(int code)
{
    const int at = find(code);
    if (at < 0)
        return nullptr;
    items_[size_t(at)].taken = true;
    return &items_[size_t(at)].group.value;
}

QString DxfFields::text(int code, const QString& fallback)
{
    const QString* value = take(code);
    return value ? fromCaretCoding(*value) : fallback;
}

QString DxfFields::word(int code, const QString& fallback)
{
    const QString* value = take(code);
    return value ? fromCaretCoding(value->trimmed()) : fallback;
}

double DxfFields::real(int code, double fallback)
{
    const QString* value = take(code);
    return value ? realOf(*value, fallback) : fallback;
}

int DxfFields::integer(int code, int fallback)
{
    const QString* value = take(code);
    return value ? integerOf(*value, fallback) : fallback;
}

quint64 DxfFields::handle(int code)
{
    const QString* value = take(code);
    return value ? handleOf(*value) : 0;
}

void DxfFields::drop(int code, double plain)
{
    const int at = find(code);
    if (at >= 0 && realOf(items_[size_t(at)].group.value, plain + 1.0) == plain)
        items_[size_t(at)].taken = true;
}

void DxfFields::drop(int code, const QString& plain)
{
    const int at = find(code);
    if (at >= 0 && items_[size_t(at)].group.value.trimmed() == plain)
        items_[size_t(at)].taken = true;
}

int DxfFields::flags(int code, int mask)
{
    const int at = find(code);
    if (at < 0)
        return 0;
    Item& item = items_[size_t(at)];
    const int value = integerOf(item.group.value);
    item.taken = (value & ~mask) == 0;
    return value;
}

NcGePoint3d DxfFields::point(int code, const NcGePoint3d& fallback)
{
    if (!has(code))
        return fallback;
    NcGePoint3d point;
    point.x = real(code);
    point.y = real(code + 10);
    point.z = real(code + 20);
    return point;
}

NcGeVector3d DxfFields::vector(int code, const NcGeVector3d& fallback)
{
    const NcGePoint3d read = point(code, {fallback.x, fallback.y, fallback.z});
    return read.asVector();
}

std::vector<QString> DxfFields::values(int code)
{
    std::vector<QString> all;
    while (const QString* value = take(code))
        all.push_back(*value);
    return all;
}

DxfGroups DxfFields::sequence(int first, bool (*belongs)(int code))
{
    DxfGroups groups;
    const int start = find(first);
    for (int i = start; start >= 0 && i < to_; ++i) {
        Item& item = items_[size_t(i)];
        if (item.taken || item.kind != kPlain)
            continue;
        if (!belongs(item.group.code))
            break;
        item.taken = true;
        groups.push_back(item.group);
    }
    return groups;
}

DxfGroups DxfFields::all()
{
    DxfGroups groups;
    for (int i = from_; i < to_; ++i) {
        Item& item = items_[size_t(i)];
        if (item.taken || item.kind != kPlain)
            continue;
        item.taken = true;
        groups.push_back(item.group);
    }
    return groups;
}

DxfGroups DxfFields::control(const QString& name)
{
    DxfGroups groups;
    bool inside = false;
    for (Item& item : items_) {
        if (item.kind != kControl || item.taken)
            continue;
        const bool brace = item.group.code == 102;
        if (!inside && !(brace && item.group.value.trimmed() == QLatin1Char('{') + name))
            continue;
        item.taken = true;
        if (inside && brace)
            break;
        if (inside)
            groups.push_back(item.group);
        inside = true;
    }
    return groups;
}

DxfGroups DxfFields::xdata(const QString& application)
{
    DxfGroups groups;
    bool inside = false;
    for (Item& item : items_) {
        if (item.kind != kXdata || item.taken)
            continue;
        if (item.group.code == 1001)
            inside = item.group.value.trimmed() == application;
        else if (inside)
            groups.push_back(item.group);
        item.taken = inside;
    }
    return groups;
}

DxfRest DxfFields::rest(bool withEmpty) const
{
    DxfRest rest;
    for (size_t i = 0; i < parts_.size(); ++i) {
        DxfGroups groups;
        for (int k = parts_[i].from; k < parts_[i].to; ++k) {
            const Item& item = items_[size_t(k)];
            if (!item.taken)
                (item.kind == kXdata ? rest.xdata : groups).push_back(item.group);
        }
        if (i == 0)
            rest.head = std::move(groups);
        else if (withEmpty || !groups.empty())
            rest.add(parts_[i].subclass, groups);
    }
    return rest;
}
