#pragma once
// A project database with two positions and the module's session working on
// the first of them; a member of a fixture, beside prompts and a drawing.

#include "support/session_wiring.h"

class PositionSession {
public:
    static constexpr int position = 7;
    static constexpr int otherPosition = 8;

    PositionSession()
    {
        database_.exec("insert into projects (project_id, name) overriding system value values (1, 'Проект');"
                       "insert into objects (object_id, project_id, object) values (1, 1, 'Объект');"
                       "insert into subobjects (subobject_id, object_id, subobject) values (1, 1, 'Подобъект');"
                       "insert into positions (position_id, subobject_id, position) values (7, 1, 'Позиция'), "
                       "(8, 1, 'Другая');");
        connect();
        session().projectId = 1;
        session().currentPositionId = position;
    }
    ~PositionSession()
    {
        disconnect();
        session().currentPositionId = -1;
        session().projectId = -1;
    }
    PositionSession(const PositionSession&) = delete;
    PositionSession& operator=(const PositionSession&) = delete;

    TestDatabase* operator->() { return &database_; }

    void connect() { connectSession(database_); }
    /// The session is left without a connection, and with nowhere to reconnect to.
    void disconnect() { disconnectSession(); }

private:
    TestDatabase database_;
};
