// Elements of the whole database that a file knows by their names, and the
// change of what it says about them.
#pragma once

#include "exchange/elements/element_import.h"

#include <QHash>

struct KnownElement {
    int id = -1;
    QString typeId;
    QString name;
    double x = 0.0, y = 0.0, z = 0.0, h = 0.0;
    int positionId = -1;
    QString position;
    double rotation = 0.0; ///< of the marker
};

class BaseElements {
public:
    /// Reads all families at once. False when the server does not answer.
    bool load();

    QVector<KnownElement> named(const QString& name) const { return byName_.value(name); }
    /// -1 when there is none.
    int positionId(const QString& name) const { return positions_.value(name, -1); }

private:
    QHash<QString, QVector<KnownElement>> byName_;
    QHash<QString, int> positions_;
};

enum class UpdateState { Ok, DuplicateName, NoName, NoPosition };

UpdateState updateState(const ElementRecord& record, const BaseElements& base);

/// Writes what the file gives for each element that one row alone stands for.
/// Returns how many were changed.
int updateElements(const QVector<ElementRecord>& records, const BaseElements& base,
                   const ElementImportProgress& progress = {});
