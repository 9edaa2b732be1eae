// The registry of element kinds: what a block definition is called, what its
// rows say and where both are kept. A kind is known by its number everywhere;
// the numbers are stable, so the unused ones stay in the table.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

/// No kind: what a look-up returns when nothing matches.
constexpr int noKind = 9999;
constexpr int kindCount = 22;

struct Kind {
    QString blockName;    ///< definition in the drawing; empty in an unused row
    QString typeId;       ///< type_id of the element row
    QString layer;        ///< of the block reference; "0" without a family
    QString elementTable; ///< empty without a family
};

/// Indexed by the kind's number.
const std::array<Kind, kindCount>& kinds();

/// Whether the number is an index of the registry.
bool isKind(int kind);

/// The first row with exactly this block name (type_id), noKind when there is
/// none. Unused rows hold empty names: an empty text finds row 1, so callers
/// pass names that are not empty.
int kindByBlockName(const QString& blockName);
int kindByTypeId(const QString& typeId);

/// Empty when no row has the type_id.
QString blockNameByTypeId(const QString& typeId);

/// The layers that elements lie on, in the order in which they are made.
const QStringList& elementLayers();
