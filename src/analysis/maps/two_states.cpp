#include "analysis/maps/two_states.h"

#include "session/project_session.h"

#include <unordered_map>

const char* const kElementInTurn = "wanted.element_id";

namespace {

// A statement an element would cost a map of 20,000 marks 40,000 answers to wait for
// (bench/maps). So many together are read before the progress box can have moved.
constexpr size_t kReadTogether = 1000;

class TogetherRead {
public:
    TogetherRead(const IdList& elements, const Statement& ofOne)
        : result_(session().run(compose("select wanted.element_id, found.* from unnest(array[%1]) as wanted "
                                        "(element_id), lateral (%2) as found",
                                        elements, ofOne)))
    {
        for (int row = 0; result_.isTuples() && row < result_.ntuples(); ++row)
            rows_[result_.toInt(row, 0)].push_back(row);
    }

    bool isRefused() const { return !result_.isTuples(); }
    ElementRows of(int element) const
    {
        static const std::vector<int> none;
        const auto found = rows_.find(element);
        return {result_, found == rows_.end() ? none : found->second};
    }

private:
    sql::Result result_;
    std::unordered_map<int, std::vector<int>> rows_; // by element
};

} // namespace

Loaded readTwoStates(const std::vector<MapElement>& elements, const Statement& base, const Statement& current,
                     const TakeElement& take, const MapProgress& progress)
{
    for (size_t first = 0; first < elements.size(); first += kReadTogether) {
        const size_t end = std::min(first + kReadTogether, elements.size());
        std::vector<int> ids;
        for (size_t i = first; i < end; ++i)
            ids.push_back(elements[i].id);
        const TogetherRead before(IdList(ids), base);
        if (before.isRefused())
            return Loaded::Refused;
        const TogetherRead now(IdList(ids), current);
        if (now.isRefused())
            return Loaded::Refused;
        for (size_t i = first; i < end; ++i) {
            take(elements[i], before.of(elements[i].id), now.of(elements[i].id));
            if (progress && !progress(int(i + 1), int(elements.size())))
                return Loaded::Stopped;
        }
    }
    return Loaded::All;
}
