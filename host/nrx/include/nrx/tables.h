// Symbol tables, dictionaries, groups and the draw order.
#pragma once

#include "block.h"

#include <QHash>

struct DynamicDefinition; // the stand-in's own: parameters of a dynamic block

class NRX_API NcDbSymbolTableRecord : public NcDbObject {
    NCRX_DECLARE(NcDbSymbolTableRecord)
public:
    QString getName() const { return name_; }
    // Refused when another record of the table has the name.
    NcStatus setName(const QString& name);

protected:
    QString name_;
};

class NRX_API NcDbSymbolTableIterator {
public:
    explicit NcDbSymbolTableIterator(NcDbObjectIdArray ids) : ids_(std::move(ids)) { }
    bool done() const { return at_ >= ids_.size(); }
    void step() { ++at_; }
    NcStatus getRecordId(NcDbObjectId& id) const;

private:
    NcDbObjectIdArray ids_;
    size_t at_ = 0;
};

// Records by name, ignoring case; in the order in which they were added.
class NRX_API NcDbSymbolTable : public NcDbObject {
    NCRX_DECLARE(NcDbSymbolTable)
public:
    bool has(const QString& name) const;
    NcStatus getAt(const QString& name, NcDbObjectId& id) const;
    NcDbSymbolTableIterator* newIterator() const;
    // The table then owns the record. Needs the table open for write.
    NcStatus add(NcDbObjectId& id, NcDbSymbolTableRecord* record);

    template <class Record>
    NcStatus getAt(const QString& name, Record*& record, NcOpenMode mode) const
    {
        NcDbObjectId id;
        record = nullptr;
        const NcStatus status = getAt(name, id);
        return isOk(status) ? ncdbOpenObject(record, id, mode) : status;
    }

protected:
    NcDbObjectIdArray records_;
    QHash<QString, NcDbObjectId> byName_; // by folded name, records that were not erased
};

class NRX_API NcDbLayerTableRecord : public NcDbSymbolTableRecord {
    NCRX_DECLARE(NcDbLayerTableRecord)
public:
    NcDbLayerTableRecord();
    void setColor(const NcCmColor& color);
    NcCmColor color() const { return color_; }
    // By name.
    QString linetype() const { return linetype_; }
    void setLinetype(const QString& name);
    bool isLocked() const { return locked_; }
    void setIsLocked(bool locked);
    bool isOff() const { return off_; }
    void setIsOff(bool off);
    bool isFrozen() const { return frozen_; }
    void setIsFrozen(bool frozen);

private:
    NcCmColor color_;
    QString linetype_ = QStringLiteral("Continuous");
    bool locked_ = false, off_ = false, frozen_ = false;
};

class NRX_API NcDbLayerTable : public NcDbSymbolTable {
    NCRX_DECLARE(NcDbLayerTable)
};

class NRX_API NcDbBlockTableRecordIterator {
public:
    explicit NcDbBlockTableRecordIterator(NcDbObjectIdArray ids) : ids_(std::move(ids)) { }
    // From the first entity; erased ones are passed over.
    void start();
    bool done() const { return at_ >= ids_.size(); }
    void step();
    NcStatus getEntity(NcDbEntity*& entity, NcOpenMode mode) const;
    NcStatus getEntityId(NcDbObjectId& id) const;

private:
    NcDbObjectIdArray ids_;
    size_t at_ = 0;
};

class NRX_API NcDbBlockTableRecord : public NcDbSymbolTableRecord {
    NCRX_DECLARE(NcDbBlockTableRecord)
public:
    NcDbBlockTableRecord();
    ~NcDbBlockTableRecord() override;

    // The record then owns the entity. Refused on a locked layer and when the
    // record is not open for write.
    NcStatus appendNcDbEntity(NcDbObjectId& id, NcDbEntity* entity);
    NcStatus appendNcDbEntity(NcDbEntity* entity);
    // A snapshot in drawing order of creation; its user deletes it.
    NcDbBlockTableRecordIterator* newIterator() const;
    bool isAnonymous() const;
    bool isLayout() const { return layout_; }
    NcGePoint3d origin() const { return origin_; }
    // Of the references that were not erased, in any block.
    NcDbObjectIdArray getBlockReferenceIds() const;
    // Opened for write; made when the block has none yet.
    NcStatus getSortentsTable(NcDbSortentsTable*& table);

private:
    bool layout_ = false;
    NcGePoint3d origin_;
    NcDbObjectIdArray entities_;
    NcDbObjectId sortents_;
    std::unique_ptr<DynamicDefinition> dynamic_; // null for a plain block
};

class NRX_API NcDbBlockTable : public NcDbSymbolTable {
    NCRX_DECLARE(NcDbBlockTable)
};

// Draw order of one block.
class NRX_API NcDbSortentsTable : public NcDbObject {
    NCRX_DECLARE(NcDbSortentsTable)
public:
    // The ids keep their order among themselves and lie under all else.
    NcStatus moveToBottom(const NcDbObjectIdArray& ids);
    NcStatus moveToTop(const NcDbObjectIdArray& ids);
    // All entities of the block from bottom to top.
    NcDbObjectIdArray getFullDrawOrder() const;

private:
    NcStatus move(const NcDbObjectIdArray& ids, bool bottom);

    NcDbObjectId block_;
    NcDbObjectIdArray order_;
};

// Named objects; keys keep their case.
class NRX_API NcDbDictionary : public NcDbObject {
    NCRX_DECLARE(NcDbDictionary)
public:
    // The dictionary then owns the object; an older entry of the key is replaced.
    NcStatus setAt(const QString& key, NcDbObject* object, NcDbObjectId& id);
    NcStatus getAt(const QString& key, NcDbObjectId& id) const;
    bool has(const QString& key) const;
    NcStatus remove(const QString& key);
    std::vector<QString> keys() const;

private:
    std::vector<std::pair<QString, NcDbObjectId>> entries_;
};

class NRX_API NcDbGroup : public NcDbObject {
    NCRX_DECLARE(NcDbGroup)
public:
    explicit NcDbGroup(const QString& description = {}) : description_(description) { }
    NcStatus append(NcDbObjectId id);
    NcStatus append(const NcDbObjectIdArray& ids);
    // Entities that were not erased.
    NcDbObjectIdArray allEntityIds() const;
    int numEntities() const { return int(allEntityIds().size()); }
    QString description() const { return description_; }

private:
    QString description_;
    NcDbObjectIdArray members_;
};

class NRX_API NcDbUCSTableRecord : public NcDbSymbolTableRecord {
    NCRX_DECLARE(NcDbUCSTableRecord)
public:
    NcGePoint3d origin() const { return origin_; }
    NcGeVector3d xAxis() const { return x_; }
    NcGeVector3d yAxis() const { return y_; }
    void setOrigin(const NcGePoint3d& origin);
    void setXAxis(const NcGeVector3d& axis);
    void setYAxis(const NcGeVector3d& axis);

private:
    NcGePoint3d origin_;
    NcGeVector3d x_{1, 0, 0}, y_{0, 1, 0};
};

class NRX_API NcDbUCSTable : public NcDbSymbolTable {
    NCRX_DECLARE(NcDbUCSTable)
};

class NRX_API NcDbAbstractViewTableRecord : public NcDbSymbolTableRecord {
    NCRX_DECLARE(NcDbAbstractViewTableRecord)
public:
    NcGePoint2d centerPoint() const { return center_; }
    void setCenterPoint(const NcGePoint2d& p);
    double height() const { return height_; }
    void setHeight(double height);
    double width() const { return width_; }
    void setWidth(double width);
    NcStatus setUcs(const NcGePoint3d& origin, const NcGeVector3d& x, const NcGeVector3d& y);
    // By a record of the UCS table.
    NcStatus setUcs(NcDbObjectId ucs);
    void getUcs(NcGePoint3d& origin, NcGeVector3d& x, NcGeVector3d& y) const;

private:
    NcGePoint2d center_;
    double height_ = 100.0, width_ = 160.0;
    NcGePoint3d ucsOrigin_;
    NcGeVector3d ucsX_{1, 0, 0}, ucsY_{0, 1, 0};
};

// A view of model space; the record "*Active" is the one on screen.
class NRX_API NcDbViewportTableRecord : public NcDbAbstractViewTableRecord {
    NCRX_DECLARE(NcDbViewportTableRecord)
};

class NRX_API NcDbViewportTable : public NcDbSymbolTable {
    NCRX_DECLARE(NcDbViewportTable)
};

// A window of a layout onto model space.
class NRX_API NcDbViewport : public NcDbEntity {
    NCDB_ENTITY(NcDbViewport)
    NcGePoint3d centerPoint() const { return center_; }
    double width() const { return width_; }
    double height() const { return height_; }
    void setGeometry(const NcGePoint3d& centre, double width, double height);
    double twistAngle() const { return twist_; }
    void setTwistAngle(double radians);
    NcGePoint2d viewCenter() const { return viewCenter_; }
    double viewHeight() const { return viewHeight_; }
    void setView(const NcGePoint2d& centre, double height);
    NcGePoint3d viewTarget() const { return viewTarget_; }
    NcGeVector3d viewDirection() const { return viewDirection_; }
    double customScale() const { return viewHeight_ > 0.0 ? height_ / viewHeight_ : 1.0; }
    void getUcs(NcGePoint3d& origin, NcGeVector3d& x, NcGeVector3d& y) const;
    NcStatus setUcs(const NcGePoint3d& origin, const NcGeVector3d& x, const NcGeVector3d& y);
    // An entity of the layout that bounds the window instead of its rectangle.
    bool isNonRectClipOn() const { return !clip_.isNull(); }
    NcDbObjectId nonRectClipEntityId() const { return clip_; }
    NcStatus setNonRectClipEntityId(NcDbObjectId entity);

private:
    NcDbObjectId clip_;
    NcGePoint3d center_;
    double width_ = 0.0, height_ = 0.0, twist_ = 0.0, viewHeight_ = 0.0;
    NcGePoint2d viewCenter_;
    NcGePoint3d viewTarget_;
    NcGeVector3d viewDirection_{0, 0, 1};
    NcGePoint3d ucsOrigin_;
    NcGeVector3d ucsX_{1, 0, 0}, ucsY_{0, 1, 0};
};
