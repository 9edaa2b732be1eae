#pragma once
// Names that users gave, as parts of names that systems take.

#include <QString>

/// The name with a blank in the place of each of <>\/"':?*|,= : none of them
/// stands in the name of a file or of a coordinate system.
QString plainName(const QString& name);
