// The stand-in's own part of every object of a drawing.
#pragma once

#include <dxf/group.h>
#include <nrx/object.h>

#include <map>

struct NcObjectData {
    NcDbDatabase* database = nullptr; // null until the object was appended
    quint64 handle = 0;
    NcDbObjectId owner;

    int readers = 0;
    bool openForWrite = false;
    bool erased = false;
    // Erased by the erasing of its owner, and comes back with it: attributes, entities of a block.
    bool erasedWithOwner = false;
    // Rises with each append of the drawing: the order of creation.
    quint64 sequence = 0;

    // What the file said about the object and this system has no word for, in
    // the file's order, kept to be written back.
    DxfGroups foreignGroups;
    // Extension data by the name of the application that owns it; the groups
    // lack the one of code 1001.
    std::vector<std::pair<QString, DxfGroups>> xdata;
    // Handle of a dictionary that belongs to the object; 0 for none. It may be
    // one of the drawing's foreign objects.
    quint64 extensionDictionary = 0;

    NcDbObjectId id() const { return {database, handle}; }
    bool isOpen() const { return openForWrite || readers > 0; }
};
