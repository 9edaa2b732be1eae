#pragma once
// The fields of an element's row. A pane a group, which the form that shows
// them puts where it wants them.

#include "elements/passports/passport_record.h"
#include "formkit/field_pane.h"

#include <array>

class ElementFields {
public:
    /// Choices are those of the record's lists; the states are the session's.
    explicit ElementFields(const PassportRecord& record);

    /// Null where the family has no field of the group. Whoever lays it out owns it.
    formkit::FieldPane* pane(PassportGroup group) const { return panes_[size_t(group)]; }

    /// Shows the record's row; empties everything while none is read.
    void showRow();
    /// What the fields say, in the order of the row.
    QStringList values() const;
    void setValue(int column, const QString& value);

private:
    formkit::FieldPane* makePane(PassportGroup group) const;

    const PassportRecord& record_;
    std::array<formkit::FieldPane*, 3> panes_;
};
