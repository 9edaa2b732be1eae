#include "session/forms/connection_fields.h"

#include "session/project_session.h"

#include <array>

using namespace formkit;

namespace {

struct Row {
    const char* name;
    const char* ConnectionCaptions::*caption;
    QString ConnectionParameters::*value;
    QString ProjectSession::*kept;
};

const std::array<Row, 5> rows = {{
    {"SQL_host", &ConnectionCaptions::host, &ConnectionParameters::host, &ProjectSession::sqlHost},
    {"SQL_port", &ConnectionCaptions::port, &ConnectionParameters::port, &ProjectSession::sqlPort},
    {"Database", &ConnectionCaptions::database, &ConnectionParameters::database, &ProjectSession::sqlDatabase},
    {"Username", &ConnectionCaptions::user, &ConnectionParameters::user, &ProjectSession::sqlUser},
    {"Password", &ConnectionCaptions::password, &ConnectionParameters::password, &ProjectSession::sqlPass},
}};

} // namespace

FieldList connectionFields(const ConnectionCaptions& captions)
{
    FieldList fields;
    for (const Row& row : rows)
        fields.push_back(Field::text(row.name, captions.*row.caption));
    fields.back().kind = FieldKind::Password;
    return fields;
}

ConnectionParameters connectionIn(const FieldPane& pane)
{
    ConnectionParameters parameters;
    for (const Row& row : rows)
        parameters.*row.value = pane.text(row.name);
    return parameters;
}

void showConnection(FieldPane& pane, const ConnectionParameters& parameters)
{
    for (const Row& row : rows)
        pane.setText(row.name, parameters.*row.value);
}

ConnectionParameters connectionOf(const ProjectSession& session)
{
    ConnectionParameters parameters;
    for (const Row& row : rows)
        parameters.*row.value = session.*row.kept;
    return parameters;
}

void putConnection(ProjectSession& session, const ConnectionParameters& parameters)
{
    for (const Row& row : rows)
        session.*row.kept = parameters.*row.value;
}
