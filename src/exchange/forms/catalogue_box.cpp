#include "exchange/forms/catalogue_box.h"

#include "formkit/catalogue_list.h"
#include "formkit/layout.h"

using namespace formkit;

namespace {

struct CatalogueRow {
    const char* title;
    const char* listName;
    const char* statement; ///< the key first, then what is shown
    int texts;
};

const CatalogueRow rows[] = {
    {"Циклы измерений", "Cycles",
     "select cycle_id, number, TO_CHAR(date_start::date, 'dd.mm.yy') as date_start, TO_CHAR(date_end::date, "
     "'dd.mm.yy') as date_end, description, date_start as ds from cycles order by ds",
     4},
    {"Оборудование", "Devices", "select device_id, name, serial, description from devices order by device_id", 3},
    {"Исполнители", "Performers", "select performer_id,fullname,name,post from performers order by performer_id;", 3},
};

} // namespace

void openCatalogue(::Catalogue which, QWidget* parent)
{
    const CatalogueRow& described = rows[int(which)];
    formkit::Catalogue shown;
    shown.listName = described.listName;
    shown.statement = described.statement;
    shown.texts = described.texts;
    auto* list = new CatalogueList(shown);
    list->refresh();

    QDialog box(parent);
    box.setWindowTitle(described.title);
    layOut(&box).column({list, endButtons(&box, {ok()})});
    box.resize(480, 320);
    box.exec();
}
