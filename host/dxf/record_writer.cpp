#include "record_writer.h"

#include <algorithm>
#include <cmath>

namespace {

const QString kExact = QStringLiteral("exact");

// The number of degrees that reads as these radians, if there is one.
bool degreesOf(double radians, double& degrees)
{
    degrees = radians * 180.0 / M_PI;
    for (const double candidate : {degrees, std::nextafter(degrees, -1e300), std::nextafter(degrees, 1e300)}) {
        if (radiansOf(candidate) == radians) {
            degrees = candidate;
            return true;
        }
    }
    return false;
}

} // namespace

const char* const kKeptVerbatim = "*";

double radiansOf(double degrees) { return degrees * M_PI / 180.0; }

DxfRecordWriter::DxfRecordWriter(DxfWriter& out, const QString& type, quint64 handle, quint64 owner,
                                 const NcObjectData* kept, const DxfIsDead& isDead)
    : out_(out), handle_(handle), kept_(kept), isDead_(isDead)
{
    if (kept_)
        rest_ = restOf(*kept_);
    out_.group(0, type);
    out_.handle(type == QLatin1String("DIMSTYLE") ? 105 : 5, handle);
    if (kept_ && kept_->extensionDictionary && !isDead_(kept_->extensionDictionary)) {
        out_.group(102, QStringLiteral("{ACAD_XDICTIONARY"));
        out_.handle(360, kept_->extensionDictionary);
        out_.group(102, QStringLiteral("}"));
    }
    writeKept(rest_.head);
    out_.handle(330, owner);
}

void DxfRecordWriter::writeKept(const DxfGroups& groups) { out_.groups(withoutDeadReferences(groups, isDead_)); }

void DxfRecordWriter::endSubclass()
{
    if (current_.isEmpty())
        return;
    for (DxfRest::Body& body : rest_.bodies) {
        if (body.subclass != current_)
            continue;
        writeKept(body.groups);
        body.groups.clear(); // a text has two subclasses of one name
    }
    written_.push_back(current_);
    current_.clear();
}

void DxfRecordWriter::subclass(const char* name)
{
    endSubclass();
    current_ = QLatin1String(name);
    out_.group(100, current_);
}

void DxfRecordWriter::angle(int code, double radians)
{
    double degrees = 0.0;
    const bool same = degreesOf(radians, degrees);
    out_.real(code, degrees);
    if (!same && std::isfinite(radians))
        exact(code, radians);
}

void DxfRecordWriter::exact(int code, double value)
{
    own_.entry(kExact).addInteger(code);
    own_.entry(kExact).addReal(value);
}

bool DxfRecordWriter::keepsCode(int code) const
{
    const DxfGroups* kept = rest_.body(current_);
    return kept && std::any_of(kept->begin(), kept->end(), [&](const DxfGroup& group) { return group.code == code; });
}

std::optional<QString> DxfRecordWriter::takeKept(int code)
{
    for (DxfRest::Body& body : rest_.bodies) {
        if (body.subclass != current_)
            continue;
        for (auto group = body.groups.begin(); group != body.groups.end(); ++group) {
            if (group->code != code)
                continue;
            const QString value = group->value;
            body.groups.erase(group);
            return value;
        }
    }
    return {};
}

void DxfRecordWriter::flags(int code, int value, int mask)
{
    const std::optional<QString> kept = takeKept(code);
    integer(code, value | (kept ? integerOf(*kept) & ~mask : 0));
}

void DxfRecordWriter::writeExtension(const QString& application, const DxfGroups& groups)
{
    out_.group(1001, application);
    out_.groups(groups);
}

void DxfRecordWriter::writeOwn()
{
    if (own_.isEmpty())
        return;
    DxfGroups groups = own_.groups();
    if (isTooLong(groups)) {
        out_.longData.push_back({handle_, std::move(groups)});
        OwnData shortForm;
        shortForm.entry(QStringLiteral("elsewhere")).addInteger(1);
        groups = shortForm.groups();
    }
    writeExtension(QLatin1String(ownApplication()), groups);
}

void DxfRecordWriter::finish()
{
    if (finished_)
        return;
    finished_ = true;
    endSubclass();
    for (const DxfRest::Body& body : rest_.bodies) {
        const bool written = std::find(written_.begin(), written_.end(), body.subclass) != written_.end();
        if (written || body.subclass == QLatin1String(kKeptVerbatim))
            continue;
        out_.group(100, body.subclass);
        writeKept(body.groups);
    }
    if (kept_) {
        for (const auto& xdata : kept_->xdata)
            writeExtension(xdata.first, xdata.second);
    }
    writeOwn();
}

void keepRest(const DxfFields& fields, NcObjectData& data, bool withEmpty)
{
    const DxfRest rest = fields.rest(withEmpty);
    data.foreignGroups = flatGroups(rest);
    for (const DxfGroup& group : rest.xdata) {
        if (group.code == 1001)
            data.xdata.push_back({group.value.trimmed(), {}});
        else if (!data.xdata.empty())
            data.xdata.back().second.push_back(group);
    }
}

DxfRest restOf(const NcObjectData& data)
{
    DxfRest rest;
    QString subclass;
    for (const DxfGroup& group : data.foreignGroups) {
        if (group.code == 100)
            rest.add(subclass = group.value, {});
        else if (subclass.isEmpty())
            rest.head.push_back(group);
        else
            rest.add(subclass, {group});
    }
    return rest;
}

DxfGroups flatGroups(const DxfRest& rest)
{
    DxfGroups groups = rest.head;
    for (const DxfRest::Body& body : rest.bodies) {
        groups.push_back({100, body.subclass});
        groups.insert(groups.end(), body.groups.begin(), body.groups.end());
    }
    return groups;
}
