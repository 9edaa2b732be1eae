#include "nesting.h"

#include "host_access.h"

#include <algorithm>

namespace {

// Deeper or fuller than any drawing that people made; a fuller one could not be shown either.
constexpr int kDeepest = 64;
constexpr double kMostEntities = 3e6;

// A block whose contents are being counted.
struct Step {
    quint64 block = 0;
    double own = 0.0;
    std::vector<std::pair<quint64, int>> inside; // definitions and how often they are used
    size_t next = 0;
};

class NestingWalk {
public:
    explicit NestingWalk(const NcDbDatabase& database) : database_(database) { }

    BlockNesting walk()
    {
        const auto* table = HostAccess::objectAs<NcDbSymbolTable>(database_.blockTableId());
        for (NcDbObjectId id : table ? HostAccess::records(*table) : NcDbObjectIdArray())
            if (HostAccess::isLiving(id) && !counted_.count(id.handle()))
                count(id.handle());
        return result_;
    }

private:
    struct Count {
        bool done = false;
        int depth = 0;
        double entities = 0.0;
    };

    NcDbObjectId idOf(quint64 handle) const { return {const_cast<NcDbDatabase*>(&database_), handle}; }

    Step stepInto(quint64 handle)
    {
        counted_[handle];
        Step step;
        step.block = handle;
        std::map<quint64, int> uses;
        const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(idOf(handle));
        for (NcDbObjectId id : block ? HostAccess::entities(*block) : NcDbObjectIdArray()) {
            if (!HostAccess::isLiving(id))
                continue;
            step.own += 1.0;
            const auto* reference = HostAccess::objectAs<NcDbBlockReference>(id);
            if (reference && HostAccess::objectAs<NcDbBlockTableRecord>(reference->blockTableRecord()))
                ++uses[reference->blockTableRecord().handle()];
        }
        step.inside.assign(uses.begin(), uses.end());
        return step;
    }

    // No recursion: a file may nest blocks deeper than the program's stack.
    void count(quint64 first)
    {
        std::vector<Step> steps{stepInto(first)};
        while (!steps.empty()) {
            Step& step = steps.back();
            if (step.next < step.inside.size()) {
                const quint64 inside = step.inside[step.next++].first;
                const auto known = counted_.find(inside);
                if (known == counted_.end())
                    steps.push_back(stepInto(inside));
                else if (!known->second.done)
                    result_.circle = idOf(inside);
                continue;
            }
            finish(step);
            steps.pop_back();
        }
    }

    void finish(const Step& step)
    {
        Count& count = counted_[step.block];
        count.done = true;
        count.entities = step.own;
        for (const auto& use : step.inside) {
            const Count& inside = counted_[use.first];
            count.depth = std::max(count.depth, inside.depth + 1);
            count.entities += use.second * inside.entities;
        }
        result_.depth = std::max(result_.depth, count.depth);
        result_.entities = std::max(result_.entities, count.entities);
    }

    const NcDbDatabase& database_;
    std::map<quint64, Count> counted_;
    BlockNesting result_;
};

std::vector<NcDbObjectId>& entries()
{
    thread_local std::vector<NcDbObjectId> all;
    return all;
}

} // namespace

BlockNesting blockNesting(const NcDbDatabase& database) { return NestingWalk(database).walk(); }

QString nestingFault(const NcDbDatabase& database)
{
    const BlockNesting nesting = blockNesting(database);
    if (const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(nesting.circle))
        return QStringLiteral("Блок содержит сам себя: ") + block->getName();
    if (nesting.depth > kDeepest)
        return QStringLiteral("Блоки вложены друг в друга слишком глубоко: ") + QString::number(nesting.depth);
    if (nesting.entities > kMostEntities)
        return QStringLiteral("Вложенные блоки показывают слишком много объектов.");
    return QString();
}

DefinitionEntry::DefinitionEntry(NcDbObjectId definition)
    : entered_(std::find(entries().begin(), entries().end(), definition) == entries().end())
{
    if (entered_)
        entries().push_back(definition);
}

DefinitionEntry::~DefinitionEntry()
{
    if (entered_)
        entries().pop_back();
}
