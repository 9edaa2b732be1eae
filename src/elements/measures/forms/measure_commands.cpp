#include "elements/measures/forms/measure_commands.h"

#include "elements/measures/forms/element_measures_form.h"
#include "formkit/modal.h"
#include "hostkit/console.h"
#include "session/project_session.h"

void manageMeasures()
{
    if (!session().checkConnection())
        say("\nНе установлено соединение с базой данных\n");
    runModal<ElementMeasuresForm>();
}
