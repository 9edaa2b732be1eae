#include "analysis/forecast/forms/forecast_commands.h"

#include "analysis/forecast/forms/dm_prediction_form.h"
#include "formkit/modal.h"
#include "session/project_session.h"

void predictDeformations()
{
    if (runModal<DMPredictionForm>() == QDialog::Accepted)
        session().reloadPredictions();
}
