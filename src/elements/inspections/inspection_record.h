#pragma once
// One inspection of one element in one cycle: findings, state, note, photo.

#include "elements/inspections/inspection_family.h"

#include <QPixmap>
#include <QStringList>

namespace sql {
class Result;
}

class InspectionRecord {
public:
    /// A new one: nothing found, the state of an element without an inspection.
    explicit InspectionRecord(const InspectionFamily& family);

    const InspectionFamily& family() const { return *family_; }

    int inspectId = -1; ///< -1 until it is stored
    int elementId = -1;
    int cycleId = -1;
    QString elementName;
    QStringList values; ///< of the family's columns, in their order

    const QPixmap& photo() const { return photo_; }
    void setPhoto(const QPixmap& photo);

    /// "Цикл 3" and the cycle's description, for questions.
    QString cycleName() const;
    QString questionText() const;

    /// Sets the element and reads its name.
    void setElement(int id);
    /// The stored inspection with its photo; false when it cannot be read.
    bool load(int id);
    /// Fills the record from a row of the family's `select`; name and photo stay.
    void take(const sql::Result& rows, int row);
    /// The key of the element's inspection in the cycle, -1 when there is none.
    int storedIn(int cycle) const;

    /// Each writes the record and then its photo, unless that is null; false when
    /// the record was refused. What is wrong with the photo goes to the console.
    bool insert();
    bool update();

private:
    void loadPhoto();
    void storePhoto();

    const InspectionFamily* family_;
    QPixmap photo_;
    QByteArray png_; ///< of the photo, made once for all records that carry it
};
