#include "analysis/maps/forms/temperature_map_command.h"

#include "analysis/maps/forms/temperature_map_form.h"

void buildTemperatureMap() { runMap<TemperatureMapForm>(); }
