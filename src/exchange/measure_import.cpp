#include "exchange/measure_import.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "exchange/import_lock.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QSet>
#include <algorithm>

namespace {

constexpr size_t rowsAhead = 200;

// Which rows of the import have a measure already, asked for many at once: over a slow link the
// round trips are what takes the time. Other imports of the family wait meanwhile, so the answer
// holds for the few seconds that these rows take; while a question stands open it does not.
class StoredMeasures {
public:
    StoredMeasures(const ImportFamily& family, const std::vector<ImportCandidate>& rows)
        : family_(*measureFamily(family.family)), rows_(rows)
    { }

    // True also when the server did not tell.
    bool mayHave(size_t row)
    {
        if (row >= end_)
            readAhead(row);
        return !known_ || keys_.contains(keyOf(row));
    }
    // As the server told.
    bool has(size_t row) const { return known_ && keys_.contains(keyOf(row)); }
    void written(size_t row) { keys_.insert(keyOf(row)); }
    void growOld() { end_ = 0; }

private:
    using Key = QPair<int, int>; // element, cycle
    Key keyOf(size_t row) const { return {rows_[row].measure->elementId, rows_[row].measure->cycleId}; }

    void readAhead(size_t first)
    {
        enum Column { Element, Cycle };
        end_ = std::min(first + rowsAhead, rows_.size());
        QSet<int> elements, cycles;
        for (size_t row = first; row < end_; ++row) {
            elements.insert(keyOf(row).first);
            cycles.insert(keyOf(row).second);
        }
        const sql::Result stored = session().run(
            compose("select distinct element_id, cycle_id from %1 where element_id in (%2) and cycle_id in (%3)",
                    Identifier(family_.measureTable), IdList(elements), IdList(cycles)));
        known_ = stored.isTuples();
        keys_.clear();
        for (int row = 0; known_ && row < stored.ntuples(); ++row)
            keys_.insert({stored.toInt(row, Element), stored.toInt(row, Cycle)});
    }

    const MeasureFamily& family_;
    const std::vector<ImportCandidate>& rows_;
    QSet<Key> keys_;
    size_t end_ = 0; // rows before it were asked for
    bool known_ = false;
};

// One run: what was answered so far.
class Run {
public:
    Run(const ImportFamily& family, const std::vector<ImportCandidate>& rows, const ImportQuestion& ask)
        : family_(family), rows_(rows), stored_(family, rows), ask_(ask)
    { }

    // Whether the row was written.
    bool take(size_t at)
    {
        const ImportCandidate& row = rows_[at];
        BaseMeasure& measure = *row.measure;
        if (measure.date.isNull() || !measure.date.isValid()) {
            const QDateTime middle = measure.cycleMiddle();
            if (!middle.isNull())
                measure.date = middle;
        }
        if (!row.checked || !passesCheck(measure))
            return false;
        const Statement statement = statementFor(at);
        if (statement.isEmpty() || !execute(statement, measure.elementName))
            return false;
        stored_.written(at);
        replaced_ += replaces_;
        return true;
    }
    // How many measures that were stored before.
    int replaced() const { return replaced_; }

private:
    bool passesCheck(BaseMeasure& measure)
    {
        if (!family_.check || family_.check->verdict(measure) == Verdict::Valid || !measure.isComplete())
            return true;
        // Who wants no stored measure touched wants no doubtful one either.
        if (overwrite_ == Overwrite::Never)
            return false;
        if (!askInvalid_)
            return true;
        const ImportAnswer answer =
            question(family_.word + measure.elementName + " содержит невалидные данные .\n Импортировать их? ");
        // Both answers "for all" end the questions and let the rows through.
        if (answer == ImportAnswer::YesToAll || answer == ImportAnswer::NoToAll)
            askInvalid_ = false;
        return answer != ImportAnswer::No;
    }

    ImportAnswer question(const QString& text)
    {
        stored_.growOld();
        return ask_(text);
    }

    // Empty when the row is not to be written.
    Statement statementFor(size_t at)
    {
        BaseMeasure& measure = *rows_[at].measure;
        measure.exists = false;
        const int stored = stored_.mayHave(at) ? measure.findMeasureId() : -1;
        if (stored == -1 && stored_.has(at)) { // the server does not say which: a second one would stand beside it
            say(fill(family_.failure, measure.elementName));
            return {};
        }
        replaces_ = stored != -1;
        if (!replaces_)
            return measure.insertSql();
        return mayOverwrite(measure) ? measure.updateSql(stored) : Statement();
    }

    bool mayOverwrite(const BaseMeasure& measure)
    {
        if (overwrite_ != Overwrite::Ask)
            return overwrite_ == Overwrite::Always;
        const ImportAnswer answer =
            question(family_.word + measure.elementName
                     + " уже содержит измерения для заданного цикла.\n Перезаписать данные измерений? ");
        if (answer == ImportAnswer::YesToAll)
            overwrite_ = Overwrite::Always;
        if (answer == ImportAnswer::NoToAll)
            overwrite_ = Overwrite::Never;
        return answer == ImportAnswer::Yes || answer == ImportAnswer::YesToAll;
    }

    bool execute(const Statement& statement, const QString& name)
    {
        const sql::Result result = session().run(statement);
        const bool done = result.isCommand() || result.isTuples();
        say(fill(done ? family_.success : family_.failure, name));
        return done;
    }

    enum class Overwrite { Ask, Always, Never };

    const ImportFamily& family_;
    const std::vector<ImportCandidate>& rows_;
    StoredMeasures stored_;
    const ImportQuestion& ask_;
    bool replaces_ = false; // the row in hand
    int replaced_ = 0;
    bool askInvalid_ = true;
    Overwrite overwrite_ = Overwrite::Ask;
};

struct Outcome {
    int written = 0;
    int replaced = 0; ///< of them, measures that stood before
};

Outcome takeRows(const ImportFamily& family, const std::vector<ImportCandidate>& rows, const ImportQuestion& ask,
                 const ImportProgress& progress)
{
    const ImportLock lock(family.family);
    if (lock.isTaken()) {
        say("\nЭти измерения сейчас импортирует другой пользователь. Повторите импорт, когда он закончит\n");
        return {};
    }
    Run run(family, rows, ask);
    Outcome outcome;
    int done = 0;
    for (size_t row = 0; row < rows.size(); ++row) {
        outcome.written += run.take(row);
        if (progress && !progress(++done))
            break;
    }
    if (done < int(rows.size()) && progress)
        say(fill("\nИмпорт остановлен. Обработано строк: %1 из %2\n", done, int(rows.size())));
    outcome.replaced = run.replaced();
    return outcome;
}

} // namespace

int importMeasures(const ImportFamily& family, const std::vector<ImportCandidate>& rows, const ImportQuestion& ask,
                   const ImportProgress& progress)
{
    const Outcome outcome = rows.empty() ? Outcome() : takeRows(family, rows, ask, progress);
    const int written = outcome.written;
    if (written == 0)
        say("Импорт измерений завершен. Ничего не изменилось");
    else
        say(fill("Импорт измерений завершен. В базе данных создано (обновлено) измерений - %1 ", written));
    if (outcome.replaced > 0)
        say(fill("\nИз них заменено хранившихся раньше - %1\n", outcome.replaced));
    return written;
}
