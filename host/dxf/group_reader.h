// From the bytes of a drawing file to its groups.
#pragma once

#include "group.h"

#include <QByteArray>

// The bytes as groups up to and without the closing EOF record; comments (code
// 999) are left out. The version stands in the file's own header: from AC1021 on
// texts are UTF-8, before it they are in the drawing's code page. False when the
// bytes are not groups to the end: a binary file, another text, a file cut short.
bool readGroups(const QByteArray& bytes, DxfGroups& groups);
