#include "elements/inspections/forms/inspection_commands.h"

#include "elements/inspections/forms/elements_inspections_form.h"
#include "formkit/modal.h"
#include "hostkit/console.h"

void manageInspections()
{
    if (!session().checkConnection())
        say("\nНе установлено соединение с базой данных\n");
    runModal<ElementsInspectionsForm>();
}
