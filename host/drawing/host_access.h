// The stand-in's key to the private parts of the interface's classes: for its
// file format, its painters and its tests. The module never sees it.
#pragma once

#include "database_data.h"
#include "dynamic_definition.h"

// A pair of accessors of one private member, for a changeable and a constant
// object. Writing through them checks nothing and tells nobody: call
// HostAccess::touch afterwards, or HostAccess::finishLoading after many.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define HOST_MEMBER(Class, name, member)                                                                               \
    static auto& name(Class& object) { return object.member; }                                                         \
    static const auto& name(const Class& object) { return object.member; }
// NOLINTEND(bugprone-macro-parentheses)

struct NRX_API HostAccess {
    // --- every object
    static NcObjectData& data(NcDbObject& object) { return *object.data_; }
    static const NcObjectData& data(const NcDbObject& object) { return *object.data_; }
    static NcDatabaseData& data(NcDbDatabase& database) { return *database.data_; }
    static const NcDatabaseData& data(const NcDbDatabase& database) { return *database.data_; }

    // The object, erased or not, without opening it; null for a foreign id.
    static NcDbObject* object(NcDbObjectId id);
    template <class T>
    static T* objectAs(NcDbObjectId id)
    {
        NcDbObject* found = object(id);
        return found && found->isKindOf(T::desc()) ? static_cast<T*>(found) : nullptr;
    }
    // There and not erased.
    static bool isLiving(NcDbObjectId id);
    // Opened and not closed, over all drawings: 0 between commands.
    static int openObjectCount();
    static void touch(NcDbObject& object) { object.changed(); }
    // To be called before an object is changed that nobody opened for write, and
    // before the drawing's own figures are: undo needs what was there.
    static void noteChange(NcDbObject& object);
    static void noteDrawing(NcDbDatabase& database);

    // --- building a drawing (files, clones)
    // The drawing takes the object under `handle`, or under a fresh one when it
    // is 0 or taken, as a closed object of `owner`. Nothing is entered in the
    // owner: see the three below.
    static NcDbObjectId adopt(NcDbDatabase& database, std::unique_ptr<NcDbObject> object, NcDbObjectId owner,
                              quint64 handle = 0);
    static NcDbObjectId addRecord(NcDbSymbolTable& table, std::unique_ptr<NcDbSymbolTableRecord> record,
                                  const QString& name, quint64 handle = 0);
    static NcDbObjectId addEntity(NcDbBlockTableRecord& block, std::unique_ptr<NcDbEntity> entity, quint64 handle = 0);
    static NcDbObjectId addAttribute(NcDbBlockReference& reference, std::unique_ptr<NcDbAttribute> attribute,
                                     quint64 handle = 0);
    // Gives an object another handle; false when that is taken. Ids of the
    // drawing's own tables follow, owners of what it holds do not: early use only.
    static bool setHandle(NcDbObject& object, quint64 handle);
    // A file's handles that no object here bears are not given out.
    static void reserveHandle(NcDbDatabase& database, quint64 handle);
    // The empty tables, the named objects and the group dictionary.
    static void addTables(NcDbDatabase& database);
    // Layer "0", *Model_Space, *Paper_Space, the viewport "*Active",
    // each if it is not there.
    static void addDefaults(NcDbDatabase& database);
    // While loading, changes are neither indexed nor told, and the drawing's own
    // tables are out of the way of the file's handles: give them theirs by
    // setHandle. finishLoading adds the defaults and brings the index, spaces
    // and listeners up to date. NcDbDatabase::readDwgFile calls both around
    // readDrawing; a second call of finishLoading does no harm.
    static void beginLoading(NcDbDatabase& database);
    static void finishLoading(NcDbDatabase& database);

    // --- names
    static void setName(NcDbSymbolTableRecord& record, const QString& name);
    // Keeps the table's names in step with a record that was erased or brought back.
    // All names of a table anew.
    static void rebuildNames(NcDbObjectId table);
    static void updateName(NcDbSymbolTable& table, NcDbSymbolTableRecord& record);
    static NcDbObjectId recordId(const NcDbDatabase& database, NcDbObjectId table, const QString& name);
    // Null when the layer is missing.
    static const NcDbLayerTableRecord* layerOf(const NcDbEntity& entity);
    HOST_MEMBER(NcDbSymbolTable, records, records_)
    HOST_MEMBER(NcDbSymbolTableRecord, plainName, name_)

    // --- tables
    HOST_MEMBER(NcDbLayerTableRecord, color, color_)
    HOST_MEMBER(NcDbLayerTableRecord, linetype, linetype_)
    HOST_MEMBER(NcDbLayerTableRecord, locked, locked_)
    HOST_MEMBER(NcDbLayerTableRecord, off, off_)
    HOST_MEMBER(NcDbLayerTableRecord, frozen, frozen_)
    HOST_MEMBER(NcDbBlockTableRecord, layout, layout_)
    HOST_MEMBER(NcDbBlockTableRecord, origin, origin_)
    // In order of creation, erased ones too.
    HOST_MEMBER(NcDbBlockTableRecord, entities, entities_)
    HOST_MEMBER(NcDbBlockTableRecord, sortents, sortents_)
    HOST_MEMBER(NcDbBlockTableRecord, dynamic, dynamic_)
    HOST_MEMBER(NcDbSortentsTable, block, block_)
    HOST_MEMBER(NcDbSortentsTable, order, order_)
    HOST_MEMBER(NcDbDictionary, entries, entries_)
    HOST_MEMBER(NcDbGroup, description, description_)
    HOST_MEMBER(NcDbGroup, members, members_)
    HOST_MEMBER(NcDbUCSTableRecord, origin, origin_)
    HOST_MEMBER(NcDbUCSTableRecord, xAxis, x_)
    HOST_MEMBER(NcDbUCSTableRecord, yAxis, y_)
    HOST_MEMBER(NcDbAbstractViewTableRecord, center, center_)
    HOST_MEMBER(NcDbAbstractViewTableRecord, height, height_)
    HOST_MEMBER(NcDbAbstractViewTableRecord, width, width_)
    HOST_MEMBER(NcDbAbstractViewTableRecord, ucsOrigin, ucsOrigin_)
    HOST_MEMBER(NcDbAbstractViewTableRecord, ucsX, ucsX_)
    HOST_MEMBER(NcDbAbstractViewTableRecord, ucsY, ucsY_)
    HOST_MEMBER(NcDbViewport, center, center_)
    HOST_MEMBER(NcDbViewport, width, width_)
    HOST_MEMBER(NcDbViewport, height, height_)
    HOST_MEMBER(NcDbViewport, twist, twist_)
    HOST_MEMBER(NcDbViewport, viewHeight, viewHeight_)
    HOST_MEMBER(NcDbViewport, viewCenter, viewCenter_)
    HOST_MEMBER(NcDbViewport, viewTarget, viewTarget_)
    HOST_MEMBER(NcDbViewport, viewDirection, viewDirection_)
    HOST_MEMBER(NcDbViewport, ucsOrigin, ucsOrigin_)
    HOST_MEMBER(NcDbViewport, ucsX, ucsX_)
    HOST_MEMBER(NcDbViewport, ucsY, ucsY_)
    HOST_MEMBER(NcDbViewport, clip, clip_)

    // --- entities
    HOST_MEMBER(NcDbEntity, color, color_)
    HOST_MEMBER(NcDbEntity, layer, layer_)
    HOST_MEMBER(NcDbEntity, linetype, linetype_)
    HOST_MEMBER(NcDbEntity, visible, visible_)
    HOST_MEMBER(NcDbPoint, position, position_)
    HOST_MEMBER(NcDbLine, start, start_)
    HOST_MEMBER(NcDbLine, end, end_)
    HOST_MEMBER(NcDbCircle, center, center_)
    HOST_MEMBER(NcDbCircle, normal, normal_)
    HOST_MEMBER(NcDbCircle, radius, radius_)
    HOST_MEMBER(NcDbArc, center, center_)
    HOST_MEMBER(NcDbArc, radius, radius_)
    HOST_MEMBER(NcDbArc, startAngle, start_)
    HOST_MEMBER(NcDbArc, endAngle, end_)
    HOST_MEMBER(NcDbPolyline, vertices, vertices_)
    HOST_MEMBER(NcDbPolyline, closed, closed_)
    HOST_MEMBER(NcDbPolyline, elevation, elevation_)
    HOST_MEMBER(NcDb2dPolyline, points, points_)
    HOST_MEMBER(NcDb2dPolyline, bulges, bulges_)
    HOST_MEMBER(NcDb2dPolyline, closed, closed_)
    HOST_MEMBER(NcDbText, position, position_)
    HOST_MEMBER(NcDbText, alignment, alignment_)
    HOST_MEMBER(NcDbText, text, text_)
    HOST_MEMBER(NcDbText, height, height_)
    HOST_MEMBER(NcDbText, rotation, rotation_)
    HOST_MEMBER(NcDbText, widthFactor, widthFactor_)
    HOST_MEMBER(NcDbText, horizontal, horizontal_)
    HOST_MEMBER(NcDbText, vertical, vertical_)
    HOST_MEMBER(NcDbMText, contents, contents_)
    HOST_MEMBER(NcDbMText, location, location_)
    HOST_MEMBER(NcDbMText, height, height_)
    HOST_MEMBER(NcDbMText, width, width_)
    HOST_MEMBER(NcDbMText, rotation, rotation_)
    HOST_MEMBER(NcDbMText, attachment, attachment_)
    HOST_MEMBER(NcDbMText, backgroundFill, backgroundFill_)
    HOST_MEMBER(NcDbMText, useBackgroundColor, useBackgroundColor_)
    HOST_MEMBER(NcDbMText, backgroundScale, backgroundScale_)
    HOST_MEMBER(NcDbTable, rows, rows_)
    HOST_MEMBER(NcDbTable, columns, columns_)
    HOST_MEMBER(NcDbTable, position, position_)
    HOST_MEMBER(NcDbTable, direction, direction_)
    HOST_MEMBER(NcDbTable, heights, heights_)
    HOST_MEMBER(NcDbTable, widths, widths_)
    HOST_MEMBER(NcDbTable, cells, cells_)
    // Merged ranges: {minRow, maxRow, minColumn, maxColumn}.
    HOST_MEMBER(NcDbTable, merges, merges_)
    HOST_MEMBER(NcDbHatch, normal, normal_)
    HOST_MEMBER(NcDbHatch, elevation, elevation_)
    HOST_MEMBER(NcDbHatch, associative, associative_)
    HOST_MEMBER(NcDbHatch, evaluated, evaluated_)
    HOST_MEMBER(NcDbHatch, patternType, patternType_)
    HOST_MEMBER(NcDbHatch, pattern, pattern_)
    HOST_MEMBER(NcDbHatch, patternScale, patternScale_)
    HOST_MEMBER(NcDbHatch, style, style_)
    HOST_MEMBER(NcDbHatch, loops, loops_)

    // --- blocks
    HOST_MEMBER(NcDbAttributeDefinition, tag, tag_)
    HOST_MEMBER(NcDbAttributeDefinition, prompt, prompt_)
    HOST_MEMBER(NcDbAttributeDefinition, constant, constant_)
    HOST_MEMBER(NcDbAttributeDefinition, invisible, invisible_)
    HOST_MEMBER(NcDbAttribute, tag, tag_)
    HOST_MEMBER(NcDbAttribute, invisible, invisible_)
    HOST_MEMBER(NcDbAttribute, fieldLength, fieldLength_)
    HOST_MEMBER(NcDbAttribute, mtext, mtext_)
    HOST_MEMBER(NcDbBlockReference, position, position_)
    HOST_MEMBER(NcDbBlockReference, definition, definition_)
    HOST_MEMBER(NcDbBlockReference, rotation, rotation_)
    HOST_MEMBER(NcDbBlockReference, scale, scale_)
    HOST_MEMBER(NcDbBlockReference, normal, normal_)
    // Erased ones too.
    HOST_MEMBER(NcDbBlockReference, attributes, attributes_)
    // Values of dynamic properties that the reference has of its own, printed.
    HOST_MEMBER(NcDbBlockReference, dynamicValues, dynamicValues_)
    static NcDbEvalVariant evalVariant(int type, const QString& printed);
};

#undef HOST_MEMBER
