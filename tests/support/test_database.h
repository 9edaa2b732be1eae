#pragma once
// Databases for tests: a real server, a fresh database of one's own with the
// project schema laid, dropped at the end.
//
// The server is told by TERVA_PG_HOST, TERVA_PG_PORT, TERVA_PG_USER and
// TERVA_PG_PASSWORD (tools/pg env). A test that needs it and does not find
// them fails.

#include "database/sql/connection.h"

#include <QString>
#include <QStringList>
#include <QVector>

class TestServer {
public:
    static QString host();
    static QString port();
    static QString user();
    static QString password();

    /// False, with a test failure that says what to do, when the server is not told.
    static bool isKnown();

    /// A connection string of the system's own form for a database of this server.
    static QString conninfo(const QString& database);
};

class TestDatabase {
public:
    enum class Content {
        Schema, ///< what share/database.sql lays: a copy of a template, or one that a test of this
                ///< program has left, made as new
        Fresh,  ///< the same, but always a copy: for plans, which follow the statistics of what was there
        Empty,  ///< not a single table of ours
    };

    explicit TestDatabase(Content content = Content::Schema);
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    QString name() const;
    QString conninfo() const;
    sql::Connection& connection();

    /// Runs one or more statements. A failure fails the test with the server's message.
    bool exec(const QString& script);
    /// The first cell of a query; a failed query fails the test.
    QString value(const QString& query);
    /// All rows as texts; absent values are null strings.
    QVector<QStringList> rows(const QString& query);

    /// The text of share/database.sql.
    static QString schemaScript();

private:
    void create(const sql::Connection& server);

    Content content_;
    QString name_;
    sql::Connection connection_;
};
