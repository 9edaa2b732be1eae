// What a fresh block of each kind carries: its attributes, its dynamic
// properties and which of these take their value from a list. A key that a
// kind does not have is not there.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// Both ordered by UTF-16 code unit.
using TextMap = QMap<QString, QString>;
using TextListMap = QMap<QString, QStringList>;

struct KindDefaults {
    TextMap attributes;        ///< by tag
    TextMap dynProps;          ///< by property name; a list-valued one starts with the first text of its list
    TextListMap allowedValues; ///< of the list-valued properties
};

/// All empty for a number without a kind.
KindDefaults defaultsOfKind(int kind);
