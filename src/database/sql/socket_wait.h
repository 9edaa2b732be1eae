#pragma once
// Waiting for a socket, which neither the client library nor the toolkit offers
// without an event loop or a buffer of its own.

namespace sql {

/// Returns as soon as there is something to read, or room to write if that is
/// asked for, or after so many milliseconds. True for the first two.
bool waitForSocket(int socket, bool alsoToWrite, int milliseconds);

} // namespace sql
