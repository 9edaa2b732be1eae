// The checks at the very start of a command.
#pragma once

// Codes as the command table writes them. The wordings and line breaks differ
// from command to command on purpose: users and scripts know them so.
enum class Guard {
    None,
    C1,
    C2,
    C3,
    C4,
    C5, // a live connection, which may reconnect
    P1,
    P2,
    P3,
    P4 // a current position; touches no database
};

// Prints the guard's message and returns false if the check fails.
bool passes(Guard guard);

// The message of a guard, to the letter; empty for None.
const char* guardMessage(Guard guard);
