// What tells the import of one family's measures from another's: titles,
// formats of files, columns, words. The dialog and the run read these rows.
#pragma once

#include "elements/families/families.h"
#include "exchange/import_template.h"
#include "exchange/measure_check.h"

#include <QVector>

/// What a column of the import table shows. The first five are the same in all
/// families, then comes the value.
enum class ImportContent { Status, Element, Cycle, Device, Performer, Value, Second, Profile, Validity };

struct ImportColumn {
    ImportContent content;
    QString header;
};

struct ImportFamily {
    FamilyKey family;
    QString dialogName; ///< object name
    QString title;
    QVector<ImportTemplate> templates;
    QVector<ImportColumn> columns;
    QString word;    ///< of an element, in questions; with a blank at its end
    QString success; ///< console lines; %1 the element's name
    QString failure;
    const MeasureCheck* check; ///< null where measures are not checked
    int progressStep;          ///< lines between two moves of the progress bar
};

/// The six families that carry measures.
const FamilyTable<ImportFamily, measuredFamilyCount>& importFamilies();

/// Null for engineering-geological wells.
const ImportFamily* importFamily(FamilyKey family);
