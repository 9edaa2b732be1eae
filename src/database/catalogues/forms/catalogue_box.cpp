#include "database/catalogues/forms/catalogue_box.h"

#include "database/catalogues/forms/catalogue_forms.h"
#include "database/catalogues/forms/cycles_list_form.h"
#include "formkit/layout.h"

using namespace formkit;

namespace {

template <class Form>
CatalogueList* make()
{
    return new Form;
}

struct Row {
    const char* title;
    CatalogueList* (*make)();
};

// In the order of the kinds.
const Row rows[] = {
    {"Циклы измерений", make<CyclesListForm>},
    {"Оборудование", make<DevicesListForm>},
    {"Исполнители", make<PerformersListForm>},
};

} // namespace

void openCatalogue(CatalogueKind kind, QWidget* parent)
{
    const Row& row = rows[int(kind)];
    QDialog box(parent);
    box.setWindowTitle(row.title);
    CatalogueList* list = row.make();
    layOut(&box).column({growing(list), endButtons(&box, {ok()})});
    list->refresh();
    box.resize(480, 360);
    box.exec();
}
