#include "undo.h"

#include "object_copy.h"
#include "open_drawings.h"

namespace {

DrawingState stateOf(const NcDatabaseData& drawing)
{
    DrawingState state;
    state.handleSeed = drawing.handleSeed;
    state.sequenceSeed = drawing.sequenceSeed;
    state.currentSpace = drawing.currentSpace;
    state.currentLayer = drawing.currentLayer;
    state.currentViewport = drawing.currentViewport;
    state.dimtxt = drawing.dimtxt;
    state.dimscale = drawing.dimscale;
    state.summary = drawing.summary.entries();
    state.ucs = drawing.ucs;
    return state;
}

void setState(NcDatabaseData& drawing, const DrawingState& state)
{
    drawing.handleSeed = state.handleSeed;
    drawing.sequenceSeed = state.sequenceSeed;
    drawing.currentSpace = state.currentSpace;
    drawing.currentLayer = state.currentLayer;
    drawing.currentViewport = state.currentViewport;
    drawing.dimtxt = state.dimtxt;
    drawing.dimscale = state.dimscale;
    NcDbDatabaseSummaryInfo summary;
    for (const auto& entry : state.summary)
        summary.addCustomSummaryInfo(entry.first, entry.second);
    drawing.summary = summary;
    drawing.ucs = state.ucs;
}

bool sameMatrix(const NcGeMatrix3d& a, const NcGeMatrix3d& b)
{
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            if (a.entry[row][column] != b.entry[row][column])
                return false;
    return true;
}

bool sameState(const DrawingState& a, const DrawingState& b)
{
    return a.handleSeed == b.handleSeed && a.currentSpace == b.currentSpace && a.currentLayer == b.currentLayer
        && a.currentViewport == b.currentViewport && a.dimtxt == b.dimtxt && a.dimscale == b.dimscale
        && a.summary == b.summary && sameMatrix(a.ucs, b.ucs);
}

bool isView(const NcDbObject& object) { return object.isKindOf(NcDbAbstractViewTableRecord::desc()); }

// What was only opened, and not changed, is no part of the step.
void dropUntouched(UndoStep& step)
{
    for (auto change = step.changes.begin(); change != step.changes.end();)
        change = change->second.touched || change->second.created ? std::next(change) : step.changes.erase(change);
    for (auto tail = step.tails.begin(); tail != step.tails.end();)
        tail = tail->second.added.empty() ? step.tails.erase(tail) : std::next(tail);
}

} // namespace

UndoStep& UndoJournal::openStep()
{
    if (!open_) {
        open_ = std::make_unique<UndoStep>();
        open_->state = stateOf(HostAccess::data(database_));
    }
    return *open_;
}

void UndoJournal::note(NcDbObject& object)
{
    if (!isRecording() || isView(object))
        return;
    UndoStep::Change& change = openStep().changes[HostAccess::data(object).handle];
    if (change.other || change.created)
        return;
    change.other = fullCopy(object);
}

void UndoJournal::noteCreated(NcDbObjectId id)
{
    if (isRecording())
        openStep().changes[id.handle()].created = true;
}

void UndoJournal::noteTail(const NcDbObject& owner, size_t size)
{
    if (isRecording())
        openStep().tails.emplace(HostAccess::data(owner).handle, UndoStep::Tail{size, {}});
}

void UndoJournal::noteDrawing()
{
    if (isRecording())
        openStep();
}

void UndoJournal::noteTouched(const NcDbObject& object)
{
    if (!isRecording() || isView(object))
        return;
    if (open_) {
        const auto found = open_->changes.find(HostAccess::data(object).handle);
        if (found != open_->changes.end() && (found->second.other || found->second.created)) {
            found->second.touched = true;
            return;
        }
    }
    ++unnoted_;
    forgetAll();
}

bool UndoJournal::hasOpenChanges() const
{
    if (!open_)
        return false;
    for (const auto& change : open_->changes)
        if (change.second.touched || change.second.created)
            return true;
    return !sameState(open_->state, stateOf(HostAccess::data(database_)));
}

void UndoJournal::closeStep(const QString& name)
{
    if (!open_)
        return;
    const std::unique_ptr<UndoStep> step = std::move(open_);
    for (auto& tail : step->tails) {
        NcDbObject* owner = HostAccess::object({&database_, tail.first});
        const NcDbObjectIdArray* list = owner ? listOf(*owner) : nullptr;
        if (list && list->size() > tail.second.before)
            tail.second.added.assign(list->begin() + std::ptrdiff_t(tail.second.before), list->end());
    }
    dropUntouched(*step);
    if (step->changes.empty() && step->tails.empty() && sameState(step->state, stateOf(HostAccess::data(database_))))
        return;
    step->name = name;
    done_.push_back(std::move(*step));
    undone_.clear();
}

QString UndoJournal::undo()
{
    if (HostAccess::data(database_).openObjects > 0)
        return QString();
    closeStep(QStringLiteral(""));
    if (done_.empty())
        return QString();
    UndoStep step = std::move(done_.back());
    done_.pop_back();
    turn(step, true);
    undone_.push_back(std::move(step));
    return undone_.back().name;
}

QString UndoJournal::redo()
{
    if (HostAccess::data(database_).openObjects > 0)
        return QString();
    closeStep(QStringLiteral(""));
    if (undone_.empty())
        return QString();
    UndoStep step = std::move(undone_.back());
    undone_.pop_back();
    turn(step, false);
    done_.push_back(std::move(step));
    return done_.back().name;
}

void UndoJournal::forgetAll()
{
    open_.reset();
    done_.clear();
    undone_.clear();
}

void UndoJournal::turn(UndoStep& step, bool undoing)
{
    replaying_ = true;
    NcDatabaseData& drawing = HostAccess::data(database_);
    std::set<NcDbObjectId> tables;
    const DrawingState state = stateOf(drawing);
    // Owners must be there while their lists are shortened and lengthened.
    if (undoing)
        turnTails(step, true, tables);
    turnObjects(step, tables);
    if (!undoing)
        turnTails(step, false, tables);
    setState(drawing, step.state);
    step.state = state;
    for (NcDbObjectId table : tables)
        HostAccess::rebuildNames(table);
    ++drawing.changeCount;
    tellChanges(step);
    replaying_ = false;
}

void UndoJournal::turnTails(UndoStep& step, bool undoing, std::set<NcDbObjectId>& tables)
{
    for (auto& tail : step.tails) {
        NcDbObject* owner = HostAccess::object({&database_, tail.first});
        NcDbObjectIdArray* list = owner ? listOf(*owner) : nullptr;
        if (!list)
            continue;
        if (undoing)
            list->resize(std::min(list->size(), tail.second.before));
        else
            list->insert(list->end(), tail.second.added.begin(), tail.second.added.end());
        if (owner->isKindOf(NcDbSymbolTable::desc()))
            tables.insert(owner->objectId());
    }
}

void UndoJournal::turnObjects(UndoStep& step, std::set<NcDbObjectId>& tables)
{
    auto& objects = HostAccess::data(database_).objects;
    for (auto& change : step.changes) {
        std::unique_ptr<NcDbObject>& other = change.second.other;
        NcDbObject* found = objects.find(change.first);
        const NcDbObject* known = other ? other.get() : found;
        if (known && known->isKindOf(NcDbSymbolTableRecord::desc()))
            tables.insert(known->ownerId());
        if (known && known->isKindOf(NcDbSymbolTable::desc()))
            tables.insert(known->objectId());
        if (!found) {
            if (other)
                objects.put(change.first, std::move(other));
            continue;
        }
        if (!other) {
            other = objects.take(change.first);
            continue;
        }
        exchangeLists(*found, *other);
        other = objects.put(change.first, std::move(other));
    }
}

// The index first: listeners ask it.
void UndoJournal::tellChanges(const UndoStep& step)
{
    NcDatabaseData& drawing = HostAccess::data(database_);
    for (const auto& change : step.changes) {
        const auto* present = HostAccess::objectAs<NcDbBlockReference>({&database_, change.first});
        if (present)
            drawing.index.refresh(*present);
        else if (change.second.other && change.second.other->isKindOf(NcDbBlockReference::desc()))
            drawing.index.forget(change.first);
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>({&database_, change.first});
        const auto* owner = attribute ? HostAccess::objectAs<NcDbBlockReference>(attribute->ownerId()) : nullptr;
        if (owner)
            drawing.index.refresh(*owner);
    }
    for (const auto& change : step.changes)
        for (DrawingListener* listener : drawing.listeners)
            listener->objectChanged({&database_, change.first});
}

void keepJournal(NcDbDatabase& database)
{
    NcDatabaseData& drawing = HostAccess::data(database);
    if (!drawing.journal)
        drawing.journal = std::make_shared<UndoJournal>(database);
}

UndoJournal* journalOf(const NcDbDatabase& database) { return HostAccess::data(database).journal.get(); }

void closeUndoSteps(const QString& name)
{
    for (const NcDbDatabase* database : drawingsAlive())
        if (UndoJournal* journal = journalOf(*database))
            journal->closeStep(name);
}

UndoGroup::UndoGroup(NcDbDatabase& database, const QString& name) : database_(database), name_(name)
{
    if (UndoJournal* journal = journalOf(database_))
        journal->closeStep(QStringLiteral(""));
}

UndoGroup::~UndoGroup()
{
    if (UndoJournal* journal = journalOf(database_))
        journal->closeStep(name_);
}
