#include "exchange/forms/catalogue_box.h"

#include "session/project_session.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

struct CatalogueRow {
    const char* title;
    const char* listName;
    const char* statement; ///< the key first, then what is shown
    int texts;
};

const CatalogueRow& rowOf(Catalogue catalogue)
{
    static const CatalogueRow rows[] = {
        {"Циклы измерений", "Cycles",
         "select cycle_id, number, TO_CHAR(date_start::date, 'dd.mm.yy') as date_start, TO_CHAR(date_end::date, "
         "'dd.mm.yy') as date_end, description, date_start as ds from cycles order by ds",
         4},
        {"Оборудование", "Devices", "select device_id, name, serial, description from devices order by device_id", 3},
        {"Исполнители", "Performers", "select performer_id,fullname,name,post from performers order by performer_id;",
         3},
    };
    return rows[int(catalogue)];
}

QListWidget* catalogueList(const CatalogueRow& catalogue)
{
    auto* list = new QListWidget;
    list->setObjectName(QString::fromUtf8(catalogue.listName));
    const sql::Result rows = session().run(QString::fromUtf8(catalogue.statement));
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        QStringList texts;
        for (int column = 1; column <= catalogue.texts; ++column)
            texts.append(rows.getvalue(row, column));
        auto* item = new QListWidgetItem(texts.join(QStringLiteral(" - ")), list);
        item->setData(Qt::UserRole, rows.toInt(row, 0));
    }
    return list;
}

} // namespace

void openCatalogue(Catalogue catalogue, QWidget* parent)
{
    const CatalogueRow& row = rowOf(catalogue);
    QDialog box(parent);
    box.setWindowTitle(QString::fromUtf8(row.title));
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
    auto* layout = new QVBoxLayout(&box);
    layout->addWidget(catalogueList(row));
    layout->addWidget(buttons);
    box.resize(480, 320);
    box.exec();
}
