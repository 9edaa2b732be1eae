// What every picture of a chart must hold to, asked of the record.
#pragma once

#include "charts/plotter/plot_record.h"

/// Frame, titles, tick labels, key and value labels lie in the picture.
void expectInsidePicture(const PlotRecord& record);
/// No point's label and no point lies under a key inside the frame.
void expectKeyFreeOfData(const PlotRecord& record);
void expectTickLabelsApart(const PlotRecord& record);
/// No value label covers another.
void expectLabelsApart(const PlotRecord& record);
