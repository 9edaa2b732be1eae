#pragma once
// The list of projections that is delivered beside the module.

#include <QString>
#include <QVector>
#include <optional>

struct Projection {
    QString name;
    QString proj4;
};

/// The file of the list, below the module's folder.
QString projectionsPath(const QString& moduleDir);

/// Reads the list: UTF-8, a line an entry, name and PROJ definition parted by
/// a tab or else by a semicolon; other lines are passed over and nothing is
/// trimmed. Nothing at all when the file cannot be opened.
std::optional<QVector<Projection>> readProjections(const QString& path);
