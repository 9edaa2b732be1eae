#include "exchange/measure_import.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "exchange/import_lock.h"
#include "hostkit/console.h"
#include "session/project_session.h"

namespace {

// One run: what was answered so far.
class Run {
public:
    Run(const ImportFamily& family, const ImportQuestion& ask) : family_(family), ask_(ask) { }

    // Whether the row was written.
    bool take(const ImportCandidate& row)
    {
        BaseMeasure& measure = *row.measure;
        if (measure.date.isNull() || !measure.date.isValid()) {
            const QDateTime middle = measure.cycleMiddle();
            if (!middle.isNull())
                measure.date = middle;
        }
        if (!row.checked || !passesCheck(measure))
            return false;
        const Statement statement = statementFor(measure);
        if (statement.isEmpty() || !execute(statement, measure.elementName))
            return false;
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
            ask_(family_.word + measure.elementName + " содержит невалидные данные .\n Импортировать их? ");
        // Both answers "for all" end the questions and let the rows through.
        if (answer == ImportAnswer::YesToAll || answer == ImportAnswer::NoToAll)
            askInvalid_ = false;
        return answer != ImportAnswer::No;
    }

    // Empty when the row is not to be written.
    Statement statementFor(BaseMeasure& measure)
    {
        const int stored = measure.findMeasureId();
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
            ask_(family_.word + measure.elementName
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
    Run run(family, ask);
    Outcome outcome;
    int done = 0;
    for (const ImportCandidate& row : rows) {
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
