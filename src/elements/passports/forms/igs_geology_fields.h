#pragma once
// What is told of a geological well beyond its element, as fields.

#include "elements/passports/igs_geology.h"
#include "formkit/field_pane.h"

class IgsGeologyFields {
public:
    IgsGeologyFields();

    /// Whoever lays it out owns it.
    formkit::FieldPane* pane() const { return pane_; }

    void show(const IgsGeology& geology);
    /// What is wrong with them; empty when nothing is.
    QString fault() const;
    IgsGeology geology() const;

private:
    formkit::FieldPane* pane_;
};
