#pragma once
// A session of one's own on a fresh database, with a folder for its files.

#include "session/project_dialogs.h"
#include "support/console_capture.h"
#include "support/session_wiring.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

/// Ends every connection to the database but the test's own.
inline void endConnections(TestDatabase& database)
{
    database.exec("select pg_terminate_backend(pid) from pg_stat_activity "
                  "where datname = current_database() and pid <> pg_backend_pid()");
}

/// A role that may log in but read nothing of ours; dropped at the end.
class PlainRole {
public:
    explicit PlainRole(TestDatabase& database) : database_(database), name_(database.name() + "_role")
    {
        database_.exec("create role " + name_ + " login password 'plain'");
    }
    ~PlainRole() { database_.exec("drop owned by " + name_ + "; drop role " + name_); }
    QString name() const { return name_; }

private:
    TestDatabase& database_;
    QString name_;
};

/// Dialogs that answer from a list and remember what they were asked.
class ScriptedDialogs final : public ProjectDialogs {
public:
    ScriptedDialogs() { setProjectDialogs(this); }
    ~ScriptedDialogs() override { setProjectDialogs(nullptr); }

    QString openProjectFile(const QString& start) override { return answer("open:" + start); }
    QString saveProjectFile(const QString& start) override { return answer("save:" + start); }
    QString chooseFolder(const QString& title, const QString& start) override
    {
        return answer("folder:" + title + ":" + start);
    }
    bool askConnection(ConnectionParameters& parameters) override
    {
        asked << "connection:" + mainConnInfo(parameters);
        if (connections.isEmpty())
            return false;
        parameters = connections.takeFirst();
        return true;
    }
    void tellTrouble(const QString& text) override { asked << "trouble:" + text; }

    QStringList answers;
    QVector<ConnectionParameters> connections;
    QStringList asked;

private:
    QString answer(const QString& question)
    {
        asked << question;
        return answers.isEmpty() ? QString() : answers.takeFirst();
    }
};

class SessionTest : public ::testing::Test {
protected:
    void SetUp() override { pointAt(session_, database_.name()); }

    /// One project with one object, subobject and the positions 1 and 2.
    void makeHierarchy()
    {
        database_.exec("insert into projects (project_id, name, owner, location, code) overriding system value "
                       "values (7, 'Город', 'Владелец', 'Место', 'Ш-1');"
                       "insert into objects (object_id, project_id, object, appearence) values (3, 7, 'Объект', 1);"
                       "insert into subobjects (subobject_id, object_id, subobject, appearence) "
                       "values (4, 3, 'Подобъект', 1);"
                       "insert into positions (position_id, subobject_id, position, appearence) "
                       "values (1, 4, 'Позиция 1', 1), (2, 4, 'Позиция 2', 2);");
    }

    TestDatabase database_;
    ConsoleCapture console_;
    QTemporaryDir folder_;
    ProjectSession session_;
};
