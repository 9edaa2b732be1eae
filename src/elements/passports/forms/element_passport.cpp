#include "elements/passports/forms/element_passport.h"

#include "base/placeholders.h"
#include "elements/list/element_changes.h"
#include "elements/passports/forms/inspector_pane.h"
#include "elements/passports/forms/passport_document.h"
#include "elements/passports/forms/passport_tabs.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/tab_order.h"
#include "formkit/widgets.h"
#include "hostkit/console.h"

using namespace formkit;

ElementPassport::ElementPassport(FamilyKey family, int elementId, QWidget* parent)
    : QDialog(parent),
      record_(PassportRecord::withLists(family)),
      elementId_(elementId),
      tabs_(named<QTabWidget>("Tabs"))
{
    nameForm(this, record_.family().passportName, record_.family().plainTitle);
    layOut(this).column({
        growing(tabs_),
        row({show_ = button("ShowBtn", "Показать в чертеже", this, &ElementPassport::showInDrawing), stretch(),
             apply_ = button("ApplyBtn", "Применить", this, &ElementPassport::apply),
             export_ = button("ExportDocBtn", "Экспорт в документ", this, &ElementPassport::exportDocument),
             endButtons(this, {rejects("CloseBtn", "Закрыть")})}),
    });
    for (const PassportTab& tab : passportTabs(family))
        addPage(tab.make(record_), tab);
    orderTabs(*this);
    resize(1100, 660);
    load();
}

// The pages show the record until they go.
ElementPassport::~ElementPassport() { delete tabs_; }

void ElementPassport::addPage(PassportPage* page, const PassportTab& tab)
{
    nameForm(page, tab.name, QString());
    tabs_->addTab(page, tab.title);
    pages_.push_back(page);
    connect(page, &PassportPage::measuresChanged, this, [this, page] {
        for (PassportPage* other : pages_) {
            if (other != page)
                other->showMeasures();
        }
    });
}

void ElementPassport::load()
{
    const PassportFamily& family = record_.family();
    if (record_.row.read(elementId_) && !family.loading.isEmpty())
        setWindowTitle(fill(family.loading, record_.row.name()));
    record_.readMeasures();
    record_.readInspections();
    for (PassportPage* page : pages_)
        page->showRecord();
    if (isLoaded())
        setWindowTitle(fill(family.title, record_.row.name()));
    for (QPushButton* button : {apply_, show_})
        button->setEnabled(isLoaded());
    export_->setEnabled(isLoaded() && family.tables().hasProfile);
}

void ElementPassport::apply()
{
    for (const PassportPage* page : pages_) {
        const QString wrong = page->fault();
        if (!wrong.isEmpty())
            return warn(this, wrong);
    }
    for (PassportPage* page : pages_) {
        if (!page->store())
            return; // what was typed stays
    }
    const QString name = record_.row.name();
    setWindowTitle(fill(record_.family().title, name));
    say(fill("\nЭлемент %1 успешно обновлен", name));
    reloadInspectorPanes(record_.family().family, record_.id());
    for (PassportPage* page : pages_)
        page->tellStored();
}

void ElementPassport::exportDocument() { exportPassportDocument(this, record_.id(), record_.row.name()); }

void ElementPassport::showInDrawing()
{
    const PassportRow& row = record_.row;
    ListedElement element;
    element.family = &listFamilies()[record_.family().family];
    element.id = row.id();
    element.name = row.name();
    element.typeId = row.value(TypeId);
    element.positionId = row.value(PositionId).toInt();
    element.x = row.value(PlaceX);
    element.y = row.value(PlaceY);
    ::showInDrawing(element);
}
