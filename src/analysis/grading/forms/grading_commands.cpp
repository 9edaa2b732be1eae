#include "analysis/grading/forms/grading_commands.h"

#include "analysis/grading/forms/position_passport.h"
#include "analysis/grading/forms/positions_analytic_states_form.h"
#include "formkit/modal.h"
#include "session/project_session.h"

void positionSummary() { runModal<PositionsAnalyticStatesForm>(); }

void positionProperties() { runModal<PositionPassport>(session().currentPositionId); }
