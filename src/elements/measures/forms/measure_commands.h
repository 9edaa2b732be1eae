#pragma once
// Handlers of the commands on stored measures.

void manageMeasures();
