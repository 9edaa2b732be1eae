// Entities of a file and entities of a drawing, one row of a table a kind.
#pragma once

#include "document.h"
#include "record_writer.h"

#include <drawing/host_access.h>

#include <QHash>
#include <QSet>
#include <memory>

// A record being read, with what this system's extension data say of it.
class DxfEntityFields : public DxfFields {
public:
    explicit DxfEntityFields(const DxfGroups& groups);
    // Degrees of a group as radians.
    double angle(int code, double fallback = 0.0);
    // The number that the extension data give exactly, else `computed`.
    double exact(int code, double computed) const;
    const OwnData& own() const { return own_; }

private:
    OwnData own_;
    std::map<int, double> exact_;
};

struct DxfReadContext {
    NcDbDatabase& database;
    bool paper = false; // the entity says that it stands in paper space

    // The null id when there is no such block.
    NcDbObjectId blockNamed(const QString& name) const;
};

// A copy of a definition as the properties of some references say, or the lines
// and texts of a table: written as a block, not there in the drawing.
struct AnonymousBlock {
    QString name;
    std::vector<std::unique_ptr<NcDbEntity>> entities;
    QString keyword;    // how it is marked: "copy" or "table"
    quint64 handle = 0; // of its record, once it was written
};

class DxfWriteContext {
public:
    DxfWriteContext(const NcDbDatabase& database, quint64 firstFreeHandle);

    DxfWriter out;
    const NcDbDatabase& database;
    DxfIsDead isDead;
    std::vector<AnonymousBlock> anonymous;

    // For what stands in the file only: parts of polylines, ends of blocks.
    quint64 newHandle() { return nextHandle_++; }
    quint64 nextHandle() const { return nextHandle_; }
    // The block that a reference points to in the file.
    QString blockNameOf(const NcDbBlockReference& reference);
    // The block that shows a table.
    QString blockNameOf(const NcDbTable& table);

private:
    QString addAnonymous(const char* prefix, std::vector<std::unique_ptr<NcDbEntity>> entities, const char* keyword);

    quint64 nextHandle_;
    QHash<QString, QString> copies_; // name of the copy by definition and values
    QSet<QString> names_;
    QHash<QString, int> counters_;
    std::map<const NcDbTable*, QString> tables_;
};

using ReadEntity = std::unique_ptr<NcDbEntity> (*)(DxfEntityFields&, DxfReadContext&, const DxfEntity&);
using WriteEntity = void (*)(const NcDbEntity&, DxfRecordWriter&, DxfWriteContext&);

struct EntityCodec {
    const char* type;
    const NcRxClass* (*cls)();
    // Null: this record is of a kind of the type that is kept as it stands.
    ReadEntity read;
    // Writes from the first subclass of its own on.
    WriteEntity write;
};

// Whether the entity is written as a block reference of its own making.
const EntityCodec* codecFor(const QString& type);
const EntityCodec* codecFor(const NcDbEntity& entity);

// Where the entity lies, its layer, colour and visibility are read and what is
// left is kept with it. Never null.
std::unique_ptr<NcDbEntity> readEntity(const DxfEntity& record, DxfReadContext& context);
void readAttributes(const DxfEntity& record, NcDbBlockReference& reference, DxfReadContext& context);
void writeEntity(const NcDbEntity& entity, quint64 handle, quint64 owner, bool paper, DxfWriteContext& context);

// Handles as the record gives them, 0 for none.
quint64 recordHandle(const DxfRecord& record);

// The style of texts of which nobody told another.
extern const char* const kTextStyle;

// Rows of the table, by subject.
std::vector<EntityCodec> curveCodecs();
std::vector<EntityCodec> polylineCodecs();
std::vector<EntityCodec> textCodecs();
std::vector<EntityCodec> hatchCodecs();
std::vector<EntityCodec> blockCodecs();
std::vector<EntityCodec> viewportCodecs();

template <class Class>
const Class& as(const NcDbEntity& entity)
{
    return static_cast<const Class&>(entity);
}

// From the coordinates of a plane through the origin with that normal to the
// world, by the format's rule for the plane's axes; and back.
NcGePoint3d planeToWorld(const NcGePoint3d& p, const NcGeVector3d& normal);
NcGePoint3d worldToPlane(const NcGePoint3d& p, const NcGeVector3d& normal);
// Takes a normal that points straight down; such an entity is seen from behind
// and can be said without it.
bool takeDownwardNormal(DxfFields& fields);
