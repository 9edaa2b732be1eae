#pragma once
// How many statements have failed: for work that reads much and goes on without
// what it could not read, to say so at its end.

namespace sql {

/// Of the whole process since its start: refused by the server, given up, or
/// asked of a server that was not there. What was not sent because its texts
/// would have made another statement of it is not counted.
int failedStatements();

} // namespace sql
