// Undo and redo of a drawing: a journal of what every command changed, object by
// object, as it was before.
#pragma once

#include "database_data.h"

#include <set>

// What a drawing holds beside its objects.
struct DrawingState {
    quint64 handleSeed = 1, sequenceSeed = 1;
    NcDbObjectId currentSpace, currentLayer, currentViewport;
    double dimtxt = 2.5, dimscale = 1.0;
    std::vector<std::pair<QString, QString>> summary;
    NcGeMatrix3d ucs;
};

// What one command did, or, once it was undone, what doing it again does: each
// object as it stands on the other side.
struct UndoStep {
    struct Change {
        std::unique_ptr<NcDbObject> other; // null where the object is not there on the other side
        bool touched = false;              // it was not only opened
        bool created = false;
    };
    // Lists of a block or a table only grow: how long one was, and what came behind.
    struct Tail {
        size_t before = 0;
        NcDbObjectIdArray added;
    };

    QString name;
    std::map<quint64, Change> changes; // by handle
    std::map<quint64, Tail> tails;     // by the owner's handle
    DrawingState state;
};

// The journal of one drawing. Changes note themselves (HostAccess::noteChange and
// its kin) and gather in an open step until it is closed under a command's name.
// What is on screen, the views, is no change.
class NRX_API UndoJournal {
public:
    explicit UndoJournal(NcDbDatabase& database) : database_(database) { }

    // Before the object changes; to be called as often as one likes.
    void note(NcDbObject& object);
    void noteCreated(NcDbObjectId id);
    // Before something is put at the end of the owner's list.
    void noteTail(const NcDbObject& owner, size_t size);
    void noteDrawing();
    // After a change. One that was not noted spoils the journal: it forgets all.
    void noteTouched(const NcDbObject& object);

    // Ends the open step; nothing happened when it is empty.
    void closeStep(const QString& name);
    bool canUndo() const { return !done_.empty() || hasOpenChanges(); }
    bool canRedo() const { return !undone_.empty() && !hasOpenChanges(); }
    QString undoName() const { return done_.empty() ? QString() : done_.back().name; }
    QString redoName() const { return undone_.empty() ? QString() : undone_.back().name; }
    size_t steps() const { return done_.size(); }
    // The name of the step; null when there is none, or an object is held open.
    QString undo();
    QString redo();
    void forgetAll();
    // How many changes came without a note; for tests, which want none.
    int unnoted() const { return unnoted_; }

private:
    bool isRecording() const { return !replaying_; }
    UndoStep& openStep();
    bool hasOpenChanges() const;
    void turn(UndoStep& step, bool undoing);
    void turnObjects(UndoStep& step, std::set<NcDbObjectId>& tables);
    void turnTails(UndoStep& step, bool undoing, std::set<NcDbObjectId>& tables);
    void tellChanges(const UndoStep& step);

    NcDbDatabase& database_;
    std::unique_ptr<UndoStep> open_;
    std::vector<UndoStep> done_, undone_;
    bool replaying_ = false;
    int unnoted_ = 0;
};

// Begins to keep a journal of the drawing.
NRX_API void keepJournal(NcDbDatabase& database);
// Null for a drawing without one.
NRX_API UndoJournal* journalOf(const NcDbDatabase& database);
// Ends the open steps of all drawings.
NRX_API void closeUndoSteps(const QString& name);
// Makes one step of all that is done while it lives.
class NRX_API UndoGroup {
public:
    UndoGroup(NcDbDatabase& database, const QString& name);
    ~UndoGroup();
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;

private:
    NcDbDatabase& database_;
    QString name_;
};
