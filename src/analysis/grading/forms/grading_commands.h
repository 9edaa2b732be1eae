// TERVA_POSITION_SUMMARY, TERVA_POSITION_PROPS
#pragma once

/// Opens the states of all positions. That there is a connection is seen to before.
void positionSummary();

/// Opens the passport of the current position, of which there is one.
void positionProperties();
