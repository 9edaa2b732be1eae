// One record with what was kept of it and what this system adds: each kept part
// follows what is written of the subclass in which it stood.
#pragma once

#include "own_data.h"
#include "writer.h"

#include <drawing/object_data.h>

#include <optional>

class DxfRecordWriter {
public:
    // `kept` may be null. References of kept control groups to handles that
    // `isDead` names are left out.
    DxfRecordWriter(DxfWriter& out, const QString& type, quint64 handle, quint64 owner, const NcObjectData* kept,
                    const DxfIsDead& isDead);

    // Ends the subclass before and begins another.
    void subclass(const char* name);
    bool keeps(const char* subclass) const { return rest_.body(QLatin1String(subclass)) != nullptr; }
    // Whether a group is kept for the present subclass.
    bool keepsCode(int code) const;
    const DxfRest& rest() const { return rest_; }
    quint64 objectHandle() const { return handle_; }
    bool isDead(quint64 handle) const { return isDead_(handle); }

    void text(int code, const QString& value) { out_.text(code, value); }
    void real(int code, double value) { out_.real(code, value); }
    void integer(int code, qint64 value) { out_.integer(code, value); }
    void handle(int code, quint64 value) { out_.handle(code, value); }
    void point(int code, const NcGePoint3d& p) { out_.point(code, p); }
    void point2d(int code, double x, double y) { out_.point2d(code, x, y); }
    void vector(int code, const NcGeVector3d& v) { out_.vector(code, v); }
    void groups(const DxfGroups& groups) { out_.groups(groups); }
    // In degrees, as the format wants it; where no number of degrees gives the
    // equal radians these are said in the extension data.
    void angle(int code, double radians);
    // A number that readers get by another computation than ours.
    void exact(int code, double value);
    // Bits of which only those of `mask` are ours, the others as they were read.
    void flags(int code, int value, int mask);
    // Takes a group of the present subclass out of what is kept; null when there is none.
    std::optional<QString> takeKept(int code);
    OwnData& own() { return own_; }

    // Writes what is left of the kept parts, and the extension data; once.
    void finish();

private:
    void writeKept(const DxfGroups& groups);
    void endSubclass();
    void writeOwn();
    void writeExtension(const QString& application, const DxfGroups& groups);

    DxfWriter& out_;
    quint64 handle_;
    bool finished_ = false;
    const NcObjectData* kept_;
    const DxfIsDead& isDead_;
    DxfRest rest_;
    OwnData own_;
    QString current_;
    std::vector<QString> written_;
};

double radiansOf(double degrees);

// Subclass under which whole records are kept beside an object.
extern const char* const kKeptVerbatim;

// What a record still holds goes to the object it was read into, and back. Of a
// record that is not understood at all its empty subclasses are kept too.
void keepRest(const DxfFields& fields, NcObjectData& data, bool withEmpty = false);
DxfRest restOf(const NcObjectData& data);
// Groups as in NcObjectData::foreignGroups, those of a subclass together.
DxfGroups flatGroups(const DxfRest& rest);
