// The commands of profiles. Guards stand in the command table.
#pragma once

/// TERVA_TEMPERATURE_PROFILE: the section of one cycle along a line.
void buildTemperatureProfile();
/// TERVA_TEMP_DIFF_PROFILE: the section of the difference of two cycles.
void buildTemperatureDiffProfile();
/// TERVA_DEF_LINES_PROFILE: the epures of settlement along a line or stored profiles.
void buildDeformationLines();
/// TERVA_POSITION_ADD_DM_PROFILE, TERVA_POSITION_ADD_TS_PROFILE: a picked line becomes a stored profile.
void addDeformationProfile();
void addTemperatureProfile();
