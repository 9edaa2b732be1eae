#include "database/audit/audit_log.h"

#include "database/administration/connected_users.h"
#include "session/project_session.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int kPortion = 2000; // rows; enough for the round trips not to count

sql::Result run(const Statement& statement) { return session().run(statement); }

// The portions and their number must tell of one state of the log. Nothing is
// written, so the end is always the same.
class Reading {
public:
    Reading() { begun_ = run("begin transaction isolation level repeatable read, read only").isCommand(); }
    ~Reading()
    {
        if (begun_)
            run("rollback");
    }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    bool hasBegun() const { return begun_; }

private:
    bool begun_;
};

QString timeText(const QDateTime& time) { return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")); }

void take(const sql::Result& rows, AuditEntries& entries)
{
    AuditEntries::Texts texts;
    for (int row = 0; row < rows.ntuples(); ++row) {
        for (int column = 0; column < AuditEntries::ColumnCount; ++column)
            texts[size_t(column)] = rows.bytes(row, column);
        entries.add(texts);
    }
}

} // namespace

Statement auditStatement(const AuditPeriod& period)
{
    return compose("select table_name, operation, changed_by, TO_CHAR(changed_at, 'YYYY-MM-DD "
                   "HH24:MI:SS') as changed_time, old_data::text, new_data::text from audit_log where "
                   "changed_at between '%1'::timestamp and '%2'::timestamp ",
                   timeText(period.start), timeText(period.end));
}

AuditLoad loadAuditLog(const AuditPeriod& period, AuditEntries& entries,
                       const std::function<bool(int done, int total)>& step)
{
    const Reading reading;
    if (!reading.hasBegun())
        return AuditLoad::Failed;
    const sql::Result counted = run(compose("select count(*) from audit_log where changed_at between "
                                            "'%1'::timestamp and '%2'::timestamp",
                                            timeText(period.start), timeText(period.end)));
    if (!counted.hasRow()
        || !run(Statement("declare audit_entries no scroll cursor for ") + auditStatement(period)).isCommand())
        return AuditLoad::Failed;
    const int total = counted.toInt(0, 0);
    while (step(entries.count(), total)) {
        const sql::Result rows = run(compose("fetch forward %1 from audit_entries", kPortion));
        if (!rows.isTuples())
            return AuditLoad::Failed;
        if (rows.ntuples() == 0)
            return entries.finish() ? AuditLoad::Done : AuditLoad::Failed;
        take(rows, entries);
    }
    return AuditLoad::Cancelled;
}

std::optional<QString> emptyAuditLog()
{
    if (run("TRUNCATE TABLE audit_log").isCommand())
        return std::nullopt;
    return session().connection.errorMessage();
}

QStringList otherConnections()
{
    enum Column { Pid, UserName, IpAddress, ClientPort, ConnectedAt, State, Query };
    const sql::Result rows =
        run("SELECT pid, usename AS user_name, client_addr AS ip_address, client_port, backend_start "
            "AS connected_at, state,query FROM pg_stat_activity WHERE datname = current_database() "
            "\tAND pid <> pg_backend_pid() ");
    return connectedUsers(rows, UserName, IpAddress);
}

QVector<AuditField> auditFields(const QString& json)
{
    QVector<AuditField> fields;
    const QJsonObject row = QJsonDocument::fromJson(json.toUtf8()).object();
    for (auto field = row.begin(); field != row.end(); ++field)
        fields.append({field.key(), field.value().toVariant().toString()});
    return fields;
}
