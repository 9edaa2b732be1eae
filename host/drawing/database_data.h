// The stand-in's own part of a drawing.
#pragma once

#include "attribute_index.h"
#include "object_data.h"
#include "object_table.h"

#include <nrx/database.h>

// Told about changes of one drawing: views, the draw-order cache, palettes.
// Calls come while the change is under way: note it and act later.
class NRX_API DrawingListener {
public:
    virtual ~DrawingListener() = default;
    // Appended, changed, erased or brought back.
    virtual void objectChanged(NcDbObjectId id) = 0;
    // All was replaced (a file was read into the drawing).
    virtual void drawingReplaced() { }
};

// A section of a file that this system does not know.
struct ForeignSection {
    QString name;
    DxfGroups groups; // between the section's head and its end
};

// A variable of the file's header, by its name with the leading '$'.
struct HeaderVariable {
    QString name;
    DxfGroups groups;
};

class UndoJournal;

struct NcDatabaseData {
    ObjectTable objects;
    quint64 handleSeed = 1; // the next free handle
    quint64 sequenceSeed = 1;

    NcDbObjectId blockTable, layerTable, ucsTable, viewportTable;
    NcDbObjectId namedObjects, groupDictionary;
    NcDbObjectId modelSpace, paperSpace, currentSpace, currentLayer;

    double dimtxt = 2.5, dimscale = 1.0;
    NcDbDatabaseSummaryInfo summary;
    NcGeMatrix3d ucs;             // UCS to WCS
    NcDbObjectId currentViewport; // null in model space

    // Kept for the file: header variables that are not told above, records and
    // sections that this system does not know, in the file's order.
    std::vector<HeaderVariable> header;
    DxfRecords foreignClasses;
    std::vector<std::pair<QString, DxfRecords>> foreignTables; // by the table's name: LTYPE, STYLE, ...
    DxfRecords foreignObjects;
    std::vector<ForeignSection> foreignSections;

    AttributeIndex index;
    std::shared_ptr<UndoJournal> journal; // null for a drawing that nobody edits
    std::vector<DrawingListener*> listeners;
    int openObjects = 0;     // opened (or just appended) and not closed
    quint64 changeCount = 0; // rises with every change
    bool loading = false;    // the index and the listeners wait for finishLoading
};
