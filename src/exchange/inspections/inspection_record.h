// One inspection of the field tool's document as it goes to its table.
#pragma once

#include "base/statement.h"

#include <QJsonObject>
#include <QStringList>

struct ExchangedFamily;

class ExchangedRecord {
public:
    /// `group` is the key under which the record stands: a family's prefix.
    ExchangedRecord(const QString& group, const QJsonObject& record, int cycleId);

    int elementId() const { return elementId_; } ///< 0 without one

    Statement find() const;
    Statement insert() const;
    Statement update(int inspectId) const;

    /// Whether the element's own row is told too, and how: thermal wells'.
    bool tellsElement() const { return !element_.isEmpty(); }
    Statement updateElement() const;

    bool hasPhoto() const { return hasPhoto_; }
    const QString& photo() const { return photo_; } ///< in base64
    Statement storePhoto() const;

private:
    void takeElementValues(const ExchangedFamily& family, QJsonObject& row);
    Identifier table() const;

    QString group_;
    int cycleId_;
    int elementId_ = 0;
    QVector<Statement> columns_;
    QVector<Statement> values_;
    QVector<Statement> element_; ///< "column = value" of the well
    QString photo_;
    bool hasPhoto_ = false;
};
