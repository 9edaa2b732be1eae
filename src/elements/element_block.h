// A monitoring element held in memory, filled from either of the two places
// where it lives and written to either: a row of its family's table in the
// project database, and a dynamic block reference in the drawing. The
// reference's attribute "element_id" holds the row's key; the name of its
// block definition gives the kind, the kind the family, the family the tables.
//
// A record lives for one step of one command: it holds nothing open in the
// drawing and no connection of its own. Statements run on the session's.
#pragma once

#include "elements/families/families.h"
#include "elements/families/kind_defaults.h"
#include "elements/families/kinds.h"

#include <nrx/object.h>

#include <optional>

/// state_id to colour index.
using StateColors = QMap<QString, int>;

/// One query of `states`; empty without a connection. What walks many elements
/// reads the colours once and hands them to every record.
StateColors readStateColors();

struct ElementBlock {
    int kind = noKind;
    QString blockName;
    TextMap attributes;        ///< by tag
    TextMap dynProps;          ///< by property name
    TextListMap allowedValues; ///< of the list-valued dynamic properties
    StateColors stateColors;
    double x = 0.0, y = 0.0, z = 0.0; ///< insertion point, world coordinates
    double h = 0.0;                   ///< height
    double e = 0.0;                   ///< burial depth
    int catalogId = -1;               ///< of a thermostabiliser
    double blockRotation = 0.0;       ///< radians
    double scale = 1.0;
    int colorIndex = 5; ///< of the state
    QString stateId = QStringLiteral("exist");
    QString group; ///< the kind's layer
    int positionId = -1;

    /// No kind yet.
    ElementBlock();
    explicit ElementBlock(const StateColors& colors);
    /// A fresh element of the kind with the kind's defaults.
    explicit ElementBlock(int kind);
    ElementBlock(int kind, const StateColors& colors);
    /// What a block of the drawing says. No kind and empty maps for anything
    /// that is not a dynamic block of the registry.
    explicit ElementBlock(NcDbObjectId reference);
    ElementBlock(NcDbObjectId reference, const StateColors& colors);

    // --- the record ------------------------------------------------------------
    /// Starts over as a fresh element of the kind, the place in the plan excepted.
    void setKind(int kind);
    /// Turns the element into one of another kind. False, with nothing changed,
    /// when it has an attribute that the other kind lacks; dynamic properties
    /// that it lacks are dropped.
    bool changeKind(int newKind);
    /// Both change a key that is there and return false for one that is not.
    bool setAttribute(const QString& tag, const QString& text);
    bool setDynProp(const QString& name, const QString& text);
    bool hasAttribute(const QString& tag) const { return attributes.contains(tag); }
    bool hasDynProp(const QString& name) const { return dynProps.contains(name); }
    /// The state and its colour, 5 for a state without one.
    void setState(const QString& stateName);
    /// The row's key: the whole number that the attribute begins with. The one
    /// reading of it; nothing when there is none.
    std::optional<int> elementKey() const;
    /// The same, -1 for none.
    int elementId() const { return elementKey().value_or(-1); }
    /// The attribute "name"; empty for a kind without one.
    QString name() const { return attributes.value(QStringLiteral("name")); }
    /// The family of the kind, or null.
    const Family* family() const { return familyOfKind(kind); }

    /// All dynamic properties in one text: "name:value" in the order of the
    /// map, joined by "|".
    QString propsText() const;
    /// Pieces without ":" are passed over. The first name that the kind does
    /// not have ends the reading with false; what was set until then stays.
    bool parseProps(const QString& text);

    // --- the row ---------------------------------------------------------------
    /// The marker's absolute rotation: the block's plus the property "Угол1",
    /// less a full turn when the sum exceeds it.
    double markerRotation() const;
    /// False for a kind without a family and when there is no such row.
    bool loadFromDatabase(int elementId);
    /// Writes what the drawing owns (neither z nor h), then the properties, also
    /// when the first was refused. False when either fails; `refusal` then takes
    /// the server's code of the first that failed, empty for one that never
    /// reached it.
    bool updateRow(QString* refusal = nullptr) const;
    /// Writes all columns but the state, the position only when it is set.
    bool updateRowFull() const;
    /// Inserts the row with the state "exist" and prints the statement; the new
    /// key becomes the attribute "element_id". Then the properties, and "OK".
    /// False when either fails; nothing is rolled back.
    bool insertRow(int position);

    // --- the block -------------------------------------------------------------
    // Locked layers are unlocked for the change and locked again. What the
    // drawing refuses is printed.

    /// Adds the block to model space. False when the drawing lacks the
    /// definition or takes no block.
    bool insertBlock() const;
    /// Moves, recolours and rewrites the block after this record. False only
    /// when it cannot be opened.
    bool applyToBlock(NcDbObjectId reference) const;
    /// Puts a new block in the old one's place: scale and rotation come from
    /// the drawing into the record, all else from the record. False, with no
    /// new block, when the old one cannot be erased.
    bool replaceBlock(NcDbObjectId reference);
    /// Brings scale and rotation by transformations about the insertion point,
    /// so that the attributes keep step.
    void applyScaleAndRotation(NcDbObjectId reference) const;

private:
    void fillFromReference(NcDbObjectId reference, const StateColors* colors);
    void applyDynProps(NcDbObjectId reference) const;
};
