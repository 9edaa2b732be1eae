// TERVA_TEMPERATURE_MAP
#pragma once

// Asks for a border line, opens the temperature map, and draws it.
void buildTemperatureMap();
