#include "exchange/forms/import_controls.h"

#include "exchange/forms/measures_view.h"
#include "formkit/layout.h"

#include <QDialog>
#include <QHeaderView>
#include <QProgressBar>

using namespace formkit;

namespace {

constexpr int kNarrow = 48; // pixels of a button beside a field
constexpr int kChoice = 10; // characters that a box of choices has room for

QPushButton* narrowButton(const QString& name, const QString& caption)
{
    return within(kNarrow, button(name, caption));
}

QPushButton* forAll(const QString& name) { return narrowButton(name, "Все"); }

QPushButton* dots(const QString& name) { return narrowButton(name, "..."); }

} // namespace

ImportControls::ImportControls(QDialog* dialog)
{
    layOut(dialog).column({
        row({
            OpenFileBtn = button("OpenFileBtn", "Открыть файл"),
            growing(FileName = readOnly(edit("FileName"))),
            "Шаблон",
            ImportTemplate = narrowCombo("ImportTemplate", kChoice),
        }),
        row({encodingGroup(), separatorGroup(), growing(elementsGroup())}),
        forAllGroup(),
        growing(tabs("").pages({
            {"Измерения", measuresView = named<MeasuresView>("measuresView")},
            {"Просмотр", RawInput = rawTable()},
        })),
        RemarkLabel = hidden(note("RemarkLabel")),
        ReadProgress = named<QProgressBar>("ReadProgress"),
        row({
            growing(SummaryLabel = note("SummaryLabel")),
            ImportBtn = button("ImportBtn", "Импорт"),
            CopyErrorsBtn = button("CopyErrorsBtn", "Копировать ошибки"),
            CloseBtn = button("CloseBtn", "Закрыть"),
        }),
    });
    ReadProgress->setFormat(QStringLiteral("%p% (%v / %m)"));
    ReadProgress->setValue(0);
    dialog->resize(1240, 700);
}

QWidget* ImportControls::elementsGroup()
{
    return group("Элементы")
        .grid({
            {ProjectPosition = radio("ProjectPosition", "Установленная позиция проекта", true), "Позиция",
             growing(PositionCombo = narrowCombo("PositionCombo", kChoice))},
            {AllDatabase = radio("AllDatabase", "По всей базе"), wide(2, PositionLabel = note("PositionLabel"))},
        });
}

QWidget* ImportControls::forAllGroup()
{
    forAll_ = grid({
        {wide(3, "Цикл измерений "), wide(3, "Инструмент"), wide(3, "Оператор")},
        {growing(CyclesCombo = narrowCombo("CyclesCombo", kChoice)), BTNCyclesToAll = forAll("BTNCyclesToAll"),
         BTNCycleList = dots("BTNCycleList"), growing(DeviceCombo = narrowCombo("DeviceCombo", kChoice)),
         BTNToolToAll = forAll("BTNToolToAll"), BTNDevicesList = dots("BTNDevicesList"),
         growing(OperatorCombo = narrowCombo("OperatorCombo", kChoice)), BTNOperatorToAll = forAll("BTNOperatorToAll"),
         BTNPerformersList = dots("BTNPerformersList")},
    });
    return group("Для всех строк").put(forAll_);
}

QPushButton* ImportControls::addForAll(const QString& caption, QWidget* value, const QString& buttonName)
{
    const int column = forAll_->columnCount();
    QPushButton* toAll = forAll(buttonName);
    Item(caption).putInto(*forAll_, 0, column);
    growing(value).putInto(*forAll_, 1, column);
    Item(toAll).putInto(*forAll_, 1, column + 1);
    return toAll;
}

QTableView* ImportControls::rawTable()
{
    auto* view = named<QTableView>("RawInput");
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->horizontalHeader()->setDefaultSectionSize(140);
    return view;
}
