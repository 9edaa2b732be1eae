// The module's session on a project that a bench fills, in a database of the test server.
#pragma once

#include "support/session_wiring.h"

class BenchProject {
public:
    /// A project, an object and a subobject of id 1, its positions of ids 1 to `positions`, and the bench's own
    /// content. No audit is kept, and the server knows its tables' sizes.
    explicit BenchProject(const char* content, int positions = 1)
    {
        database_.exec("set app.audit_enabled = 'off';"
                       "insert into projects (project_id, name) overriding system value values (1, 'П');"
                       "insert into objects (object_id, project_id, object) overriding system value values (1, 1, 'О');"
                       "insert into subobjects (subobject_id, object_id, subobject) overriding system value "
                       "values (1, 1, 'С');"
                       "insert into positions (position_id, subobject_id, position, appearence) overriding system "
                       "value select i, 1, 'Позиция ' || i, i from generate_series(1, "
                       + QString::number(positions) + ") i;" + QString::fromUtf8(content) + "analyze");
        connectSession(database_);
        session().connected = true;
        session().currentPositionId = 1;
        session().reloadCycles();
    }
    ~BenchProject() { session().connection.finish(); }
    BenchProject(const BenchProject&) = delete;
    BenchProject& operator=(const BenchProject&) = delete;

    static void chooseCycles(int base, int current)
    {
        session().baseCycleId = base;
        session().currentCycleId = current;
    }

private:
    TestDatabase database_;
};
