#pragma once
// The layers of ground along a well, and the catalogue entries (ИГЭ) that they
// are made of.

#include "base/statement.h"

#include <QMetaType>
#include <QSet>
#include <QVector>
#include <optional>

/// How an entry of the catalogue is hatched.
struct GroundLook {
    QString pattern; ///< name of a hatch pattern; empty for none
    double scale = 1.0;
    QString color = QStringLiteral("#FFFFFF");
};
Q_DECLARE_METATYPE(GroundLook)

/// The colour as it is written and read: with "#", white where there is none.
QString groundColor(const QString& stored);

struct GroundElement {
    int id = -1; ///< -1: no entry
    QString code, name;
    GroundLook look;

    QString text() const; ///< "code - name", empty for no entry
};

struct GroundLayer {
    int id = -1;                 ///< -1 until it is stored
    double from = 0.0, to = 0.0; ///< depths below the mouth, m
    QString description;
    GroundElement ground;
};
using GroundLayers = QVector<GroundLayer>;

/// The tables of layers, by the family of the well.
constexpr const char* thermalWellLayers = "ts_geology_layers";
constexpr const char* geologicalWellLayers = "igs_geology_layers";

/// All entries in the order of their codes; nothing when the server refused.
std::optional<QVector<GroundElement>> loadGroundElements();

/// The layers of a well from the top, with their keys; nothing when the server refused.
std::optional<GroundLayers> loadLayers(const char* table, int elementId);

/// The same without keys: what passports show and what another well takes over.
std::optional<GroundLayers> loadGroundColumn(const char* table, int elementId);

/// What is wrong with the layer at the index; empty when nothing is. Layers may
/// overlap and need not join.
QString layerFault(const GroundLayers& layers, int index);

/// Replaces all layers of the well, a statement a layer and no transaction around
/// them. Ends at the first that fails, with the reason in `problem`; before
/// anything is deleted when a layer has an entry that is not among those known.
bool saveLayers(const char* table, int elementId, const GroundLayers& layers, const QSet<int>& known, QString& problem);
