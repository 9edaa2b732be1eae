#pragma once
// The five fields of a connection. Every form that shows them names them in its
// own words; what stands in them is read and written here.

#include "formkit/field_pane.h"
#include "session/connection_parameters.h"

struct ConnectionCaptions {
    const char* host;
    const char* port;
    const char* database;
    const char* user;
    const char* password;
};

formkit::FieldList connectionFields(const ConnectionCaptions& captions);

ConnectionParameters connectionIn(const formkit::FieldPane& pane);
void showConnection(formkit::FieldPane& pane, const ConnectionParameters& parameters);

ConnectionParameters connectionOf(const ProjectSession& session);
void putConnection(ProjectSession& session, const ConnectionParameters& parameters);
