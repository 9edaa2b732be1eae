#include "analysis/maps/forms/map_commands.h"

#include "analysis/maps/forms/deformation_map_form.h"
#include "analysis/maps/forms/temperature_diff_map_form.h"
#include "analysis/maps/forms/temperature_map_form.h"

void buildTemperatureMap() { runMap<TemperatureMapForm>(); }
void buildTemperatureDiffMap() { runMap<TemperatureDiffMapForm>(); }
void buildDeformationMap() { runMap<DeformationMapForm>(); }
