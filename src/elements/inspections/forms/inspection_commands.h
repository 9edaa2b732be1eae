#pragma once
// Handlers of the commands on inspections.

void manageInspections();
