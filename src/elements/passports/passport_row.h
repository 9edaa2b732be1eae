#pragma once
// The row of one element as its passport and its inspector read and write it.

#include "elements/passports/passport_family.h"

class PassportRow {
public:
    explicit PassportRow(const PassportFamily& family) : family_(&family) { }

    const PassportFamily& family() const { return *family_; }
    int id() const { return id_; } ///< -1 until one was read
    bool isRead() const { return id_ != -1; }
    /// As stored, in the order of ElementColumn; numbers as the server wrote them.
    const QStringList& values() const { return values_; }
    QString value(int column) const { return values_.value(column); }
    QString name() const { return value(ElementName); }

    /// False when there is no such row; nothing is then held.
    bool read(int elementId);
    bool readForInspector(int elementId);

    /// The warning that keeps a passport from writing these values; empty when
    /// nothing does. Another name must be free in the position.
    QString passportFault(const QStringList& values) const;
    /// The same of an inspector, which looks at all elements of the family;
    /// `before` is the name that the element has had until now.
    QString inspectorFault(const QString& before, const QStringList& values) const;

    /// Numbers go as they were typed. False, with the old values kept, when the
    /// server refuses.
    bool update(const QStringList& values);
    bool updateFromInspector(const QStringList& values);

    /// The state, and what else of the row follows the latest inspection.
    void readAfterInspection();

private:
    bool take(int elementId, const char* select, int firstColumn);
    bool write(const char* update, const QStringList& values);

    const PassportFamily* family_;
    int id_ = -1;
    QStringList values_;
};
