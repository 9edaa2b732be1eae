// Extension data beside a record may take 16 kilobytes at most. What is longer
// stands in records of a dictionary, named by the handle of what they belong to.
#pragma once

#include "document.h"

struct DxfLongData {
    quint64 handle;   // of the record that they belong to
    DxfGroups groups; // as extension data, without the application's name
};

// Whether the data have to stand elsewhere.
bool isTooLong(const DxfGroups& xdata);

// The dictionary and its records; `handles` gives free ones, the dictionary's first.
DxfRecords longDataRecords(const std::vector<DxfLongData>& data, quint64 root, const std::vector<quint64>& handles);
// The key of the dictionary in the root.
QString longDataKey();

// Puts the data of such records back beside what they belong to, and takes the
// records out.
void restoreLongData(DxfDocument& document);
