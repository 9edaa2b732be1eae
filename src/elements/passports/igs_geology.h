#pragma once
// What is told of a geological well beyond its element: when it was drilled,
// the level of ground water, a description.

#include <QDate>
#include <QString>

struct IgsGeology {
    QString description;
    QDate drilled;      ///< invalid: not known
    QString waterLevel; ///< a number as typed; empty: not known
};

/// How dates are shown and typed.
QString drillingDateFormat();
/// An empty text is no date; false for a text that is none either.
bool readDrillingDate(const QString& text, QDate& date);

class IgsGeologyRow {
public:
    /// The stored values; those of a well without a row are empty.
    IgsGeology read(int elementId);

    enum class Writer { Passport, Inspector };
    /// Updates the row, or inserts it where read() found none. False when the
    /// server refuses.
    bool write(int elementId, const IgsGeology& geology, Writer writer);

private:
    int id_ = -1;
};
