// TERVA_DEFORMATION_PREDICTION
#pragma once

/// Opens the forecast of deformations. That there is a connection and a current
/// position is seen to before.
void predictDeformations();
