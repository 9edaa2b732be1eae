// The three alignment commands. What they change is the drawing alone: rows
// follow with the next synchronisation.
#pragma once

/// TERVA_ALIGN_BY_UCS: blocks and their labels along the X axis of the current
/// user coordinate system.
void alignByUcs();

/// TERVA_ALIGN_LABELS_BY_UCS: the same, but markers keep their rotation on the sheet.
void alignLabelsByUcs();

/// TERVA_ALIGN_BY_VP: what is seen in a viewport of the sheet along the X axis
/// of its coordinate system. Labels are multiplied by the viewport's scale at
/// every run, so the command does not repeat.
void alignByViewport();
