#pragma once
// Ground as it is drawn in cells of tables: the pattern on its colour.

#include "charts/hatch/hatch_pattern.h"
#include "elements/geology/ground_layers.h"

#include <QHash>
#include <QImage>

class GroundHatches {
public:
    /// A pattern is read from the folder once.
    explicit GroundHatches(const QString& folder) : folder_(folder) { }

    /// The colour alone where there is no such pattern.
    QImage picture(const GroundLook& look, const QSize& size, double ratio = 1.0);

    /// The folder of patterns beside the module.
    static QString deliveredFolder();
    /// The pattern files of the folder, by name.
    static QStringList patternFiles(const QString& folder);

private:
    const HatchPattern& pattern(const QString& name);

    QString folder_;
    QHash<QString, HatchPattern> read_;
};
