// Which cell of a row holds what: the format of a survey file.
#pragma once

#include "exchange/profile_reader.h"

#include <QString>

/// A field of a file. The caption stands in the header line.
struct TemplateField {
    QString caption;
    QString format; ///< of dates and times: a list joined by ";;", tried in its order
    int index = -1; ///< the column; -1 where the file has none
};

struct ImportTemplate {
    QString filter; ///< name of the format with its file mask
    TemplateField name;
    TemplateField date;
    TemplateField time;
    TemplateField serial;
    TemplateField value;
    TemplateField second;        ///< of families with two values
    int lastRequired = 0;        ///< a row has at least one cell more
    TemplateField dateTime = {}; ///< one cell for both, with dateAndTimeTogether
    bool dateAndTimeTogether = false;
    /// Files of thermal wells: the header holds depths, captions are compared as
    /// they stand and the value's caption too, the value is a plain number.
    bool holdsProfile = false;
    ProfileColumns profile = {};

    int leastCells() const { return lastRequired + 1; }
};
