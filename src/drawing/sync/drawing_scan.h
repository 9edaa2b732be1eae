// The walk over a drawing that carries its blocks into the database and audits
// them on the way.
#pragma once

#include "drawing/sync/element_rows.h"
#include "drawing/sync/family_rows.h"
#include "drawing/sync/sync_questions.h"
#include "elements/element_block.h"

class DrawingScan {
public:
    explicit DrawingScan(SyncMode mode) : mode_(mode) { }

    /// Clears the error layer, reads the rows' ids and goes through model space
    /// in its order. False when it could not begin or came to a block whose id
    /// is no number; what was written until then stays.
    ///
    /// Costs three statements a block and a few at the start; nothing is looked
    /// up by a walk.
    bool run();

    /// What the run has met.
    RowsOfFamilies& rows() { return rows_; }

    /// One line on the elements that the server did not take and why; nothing
    /// when it took all.
    void tellRefused() const { refused_.tell(); }

private:
    bool look(NcDbObjectId reference);
    bool takeRowName(ElementBlock& block) const;
    void process(ElementBlock& block, int id, const Family& family, bool rowKnown);
    void write(ElementBlock& block, int id, const Family& family, bool rowKnown);

    SyncMode mode_;
    StateColors colors_;
    RowsOfFamilies rows_;
    RefusedRows refused_;
};
