#pragma once
// A host that plays one script with the verbs of this test's own.

#include <QStringList>

/// Arguments as `terva --batch` takes them: a script, then NAME=VALUE each.
/// The exit code.
int playScenario(const QStringList& arguments);
