#pragma once
// Making a project's database and laying its schema.

#include "session/connection_parameters.h"

#include <optional>

/// Creates the database, owned by the user. Nothing when it stands, else the
/// server's message.
std::optional<QString> createDatabase(const ConnectionParameters& parameters);

/// Loads the script into the database as one text, and so in one transaction:
/// a failure leaves the database empty. Nothing when it stands, else what went
/// wrong.
std::optional<QString> loadSchema(const ConnectionParameters& parameters, const QString& schemaPath);
