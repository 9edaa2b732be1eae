// The commands that draw maps: each asks for a border line, opens its form, and
// draws the map.
#pragma once

// TERVA_TEMPERATURE_MAP
void buildTemperatureMap();
// TERVA_TEMP_DIFF_MAP
void buildTemperatureDiffMap();
// TERVA_DEFORMATION_MAP
void buildDeformationMap();
