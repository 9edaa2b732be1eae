// Mending the numbers of elements that were picked in the wrong order.
#pragma once

/// The command: the user picks a block and types the number that it should
/// bear; elements picked before it move up by one. Rows and blocks must agree
/// beforehand, else the user is told to synchronise. The rows are written in
/// one transaction, the blocks after it; neither is undone.
void renumberElements();
