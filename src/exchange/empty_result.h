// Why a survey file gave no row.
#pragma once

#include "exchange/import_family.h"
#include "exchange/text_file.h"

/// How a file was read.
struct ReadingChoice {
    int format = 0; ///< of the family's templates
    QString separator;
    TextEncoding encoding = TextEncoding::Utf8;
};

/// A Russian sentence naming the likely cause: the template, the encoding or
/// the separator with which the file would have a header line. Reads the file
/// again; empty when it has no line, which readTextFile() tells.
QString emptyCause(const ImportFamily& family, const QString& path, const ReadingChoice& chosen);
