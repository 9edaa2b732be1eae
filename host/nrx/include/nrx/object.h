// Identity, opening and life of what a drawing holds.
#pragma once

#include "geometry.h"

#include <QString>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

class NcDbDatabase;
class NcDbObject;
struct NcObjectData; // the stand-in's own part of an object
struct HostAccess;   // the stand-in's key to private parts

// A class of the interface at run time.
class NRX_API NcRxClass {
public:
    NcRxClass(const char* name, const NcRxClass* parent) : name_(name), parent_(parent) { }
    const char* name() const { return name_; }
    bool isDerivedFrom(const NcRxClass* other) const;

private:
    const char* name_;
    const NcRxClass* parent_;
};

#define NCRX_DECLARE(Class)                                                                                            \
public:                                                                                                                \
    static const NcRxClass* desc();                                                                                    \
    const NcRxClass* isA() const override;                                                                             \
    friend struct HostAccess;

// Names an object of one drawing; a value. Null until the object was appended.
class NRX_API NcDbObjectId {
public:
    NcDbObjectId() = default;
    NcDbObjectId(NcDbDatabase* database, quint64 handle) : database_(database), handle_(handle) { }

    bool isNull() const { return handle_ == 0; }
    // Whether the object exists in its drawing, erased or not.
    bool isValid() const;
    bool isErased() const;
    NcDbDatabase* database() const { return database_; }
    quint64 handle() const { return handle_; }

    bool operator==(const NcDbObjectId& o) const { return database_ == o.database_ && handle_ == o.handle_; }
    bool operator!=(const NcDbObjectId& o) const { return !(*this == o); }
    // By drawing, then by handle, so that ids of two drawings never mix.
    bool operator<(const NcDbObjectId& o) const
    {
        return database_ != o.database_ ? std::less<>()(database_, o.database_) : handle_ < o.handle_;
    }

private:
    NcDbDatabase* database_ = nullptr;
    quint64 handle_ = 0;
};

template <class T>
using NcArray = std::vector<T>;
using NcDbObjectIdArray = NcArray<NcDbObjectId>;

// Base of all that stands in a drawing. An object made with new and never
// appended is deleted by its maker; one that has an id is closed.
class NRX_API NcDbObject {
public:
    NcDbObject();
    virtual ~NcDbObject();
    NcDbObject(const NcDbObject&) = delete;
    NcDbObject& operator=(const NcDbObject&) = delete;

    static const NcRxClass* desc();
    virtual const NcRxClass* isA() const;
    bool isKindOf(const NcRxClass* cls) const { return isA()->isDerivedFrom(cls); }

    NcDbObjectId objectId() const;
    NcDbObjectId ownerId() const;
    NcDbDatabase* database() const;
    bool isErased() const;
    // Needs the object open for write. An erased object stays in its table
    // and can be brought back with erase(false), with the attributes or entities
    // that went with it; not while its owner is erased. Refused on a locked
    // layer, and for what a drawing cannot do without.
    NcStatus erase(bool erasing = true);
    // Ends what ncdbOpenNcDbObject began; nothing for an object without an id.
    NcStatus close();

protected:
    // Whether a setter may change the object: it has no id yet, or is open for
    // write. Setters that return nothing leave an object as it is otherwise.
    bool writable() const;
    // To be called by every setter: notes the change for views and indexes.
    void changed();
    // What nearly every setter does.
    template <class Member, class Value>
    NcStatus assign(Member& member, const Value& value)
    {
        if (!writable())
            return NcStatus::NotOpenForWrite;
        member = value;
        changed();
        return NcStatus::Ok;
    }

    std::unique_ptr<NcObjectData> data_;
    friend struct HostAccess;
};

// Opens an object for read (0) or write (1). Fails, leaving `object` null, when
// the id is null, the object is erased, held open for write (opening for write
// also when it is held for read), or not of `cls`: this is how the class of an
// entity is tested. Any number may hold an object for read.
NRX_API NcStatus ncdbOpenNcDbObject(NcDbObject*& object, NcDbObjectId id, NcOpenMode mode,
                                    const NcRxClass* cls = NcDbObject::desc(), bool openErased = false);

template <class T>
NcStatus ncdbOpenObject(T*& object, NcDbObjectId id, NcOpenMode mode)
{
    NcDbObject* opened = nullptr;
    const NcStatus status = ncdbOpenNcDbObject(opened, id, mode, T::desc());
    object = static_cast<T*>(opened);
    return status;
}

// Selection names of entities, as prompts and selection sets hand them out.
struct NcSelectionName {
    qint64 part[2] = {0, 0};
    bool operator==(const NcSelectionName& o) const { return part[0] == o.part[0] && part[1] == o.part[1]; }
};
NRX_API NcStatus ncdbGetObjectId(NcDbObjectId& id, const NcSelectionName& name);
NRX_API NcStatus ncdbGetAdsName(NcSelectionName& name, NcDbObjectId id);

// Ends the life of an iterator that the host handed out.
template <class T>
void ncdbFree(T* iterator)
{
    delete iterator;
}
