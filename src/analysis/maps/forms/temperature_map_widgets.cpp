#include "analysis/maps/forms/temperature_map_widgets.h"

#include "session/forms/named_widget.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>

namespace {

// Depths and elevations in metres.
QDoubleSpinBox* metres(const char* name)
{
    auto* spin = named<QDoubleSpinBox>(name);
    spin->setRange(-10000.0, 10000.0);
    spin->setDecimals(2);
    spin->setSingleStep(0.5);
    return spin;
}

// What the row headers hold is said in the table's corner.
QLabel* cornerLabel(QTableWidget* table)
{
    auto* shown = named<QLabel>("ValuesCorner");
    shown->setAlignment(Qt::AlignCenter);
    table->setCornerButtonEnabled(false);
    table->verticalHeader()->setMinimumWidth(70);
    if (auto* corner = table->findChild<QAbstractButton*>()) {
        auto* layout = new QHBoxLayout(corner);
        layout->setContentsMargins(2, 0, 2, 0);
        layout->addWidget(shown);
    } else {
        shown->setParent(table);
    }
    return shown;
}

} // namespace

TemperatureMapWidgets::TemperatureMapWidgets(QDialog* dialog)
{
    auto* left = new QVBoxLayout;
    left->addWidget(placeGroup(dialog));
    left->addWidget(samplingGroup(dialog));
    left->addWidget(stateRow(dialog));
    LabelsOutEnabled = named<QCheckBox>("LabelsOutEnabled", QStringLiteral("Выводить значения"), dialog);
    left->addWidget(LabelsOutEnabled);
    left->addStretch();
    StatusLabel = named<QLabel>("StatusLabel", dialog);
    StatusLabel->setWordWrap(true);
    left->addWidget(StatusLabel);

    auto* columns = new QHBoxLayout;
    columns->addLayout(left);
    QWidget* shown = tables(dialog);
    shown->setMinimumWidth(620);
    columns->addWidget(shown, 1);

    ExportCSVBTN = named<QPushButton>("ExportCSVBTN", QStringLiteral("Экспорт в .csv"), dialog);
    CopyClipBTN = named<QPushButton>("CopyClipBTN", QStringLiteral("Экспорт в буфер"), dialog);
    okButton = named<QPushButton>("okButton", QStringLiteral("OK"), dialog);
    okButton->setDefault(true);
    cancelButton = named<QPushButton>("cancelButton", QStringLiteral("Отмена"), dialog);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(ExportCSVBTN);
    buttons->addWidget(CopyClipBTN);
    buttons->addStretch();
    buttons->addWidget(okButton);
    buttons->addWidget(cancelButton);

    auto* all = new QVBoxLayout(dialog);
    all->addLayout(columns, 1);
    all->addLayout(buttons);
    dialog->resize(1120, 600);
}

QWidget* TemperatureMapWidgets::placeGroup(QDialog* dialog)
{
    auto* group = new QGroupBox(QStringLiteral("Термоскважины"), dialog);
    ByPosition = named<QRadioButton>("ByPosition", QStringLiteral("По позиции"));
    ByPosition->setChecked(true);
    PositionContourList = named<QComboBox>("PositionContourList");
    ByDataBase = named<QRadioButton>("ByDataBase", QStringLiteral("По всей базе"));
    BoundLayer = named<QComboBox>("BoundLayer");
    BoundStatus = named<QLabel>("BoundStatus", QStringLiteral("Не загружена"));
    MeasData = named<QComboBox>("MeasData");
    MeasData->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    MeasData->setMinimumContentsLength(20);

    auto* layout = new QGridLayout(group);
    layout->addWidget(ByPosition, 0, 0, 1, 2);
    layout->addWidget(label("Контуры позиции"), 1, 0);
    layout->addWidget(PositionContourList, 1, 1);
    layout->addWidget(ByDataBase, 2, 0, 1, 2);
    layout->addWidget(label("Слой"), 3, 0);
    layout->addWidget(BoundLayer, 3, 1);
    layout->addWidget(BoundStatus, 4, 1);
    layout->addWidget(label("Цикл измерений"), 5, 0);
    layout->addWidget(MeasData, 5, 1);
    layout->setColumnStretch(1, 1);
    return group;
}

QWidget* TemperatureMapWidgets::samplingGroup(QDialog* dialog)
{
    auto* group = new QGroupBox(QStringLiteral("Значение по"), dialog);
    DeepSampling = named<QRadioButton>("DeepSampling", QStringLiteral("Глубине"));
    DeepSampling->setChecked(true);
    HSampling = named<QRadioButton>("HSampling", QStringLiteral("Абс. Отметке"));
    AverageSampling = named<QRadioButton>("AverageSampling", QStringLiteral("Средневзвешенное по глубине"));
    DeepSpin = metres("DeepSpin");
    EndPoint = named<QCheckBox>("EndPoint", QStringLiteral("по забою"));
    IntervalBegin = metres("IntervalBegin");
    IntervalEnd = metres("IntervalEnd");
    ToEndSamplihg = named<QCheckBox>("ToEndSamplihg", QStringLiteral("до забоя"));

    auto* layout = new QGridLayout(group);
    layout->addWidget(DeepSampling, 0, 0);
    layout->addWidget(HSampling, 0, 1, 1, 3);
    layout->addWidget(label("Значение глубины (отметки)"), 1, 0, 1, 2);
    layout->addWidget(DeepSpin, 1, 2);
    layout->addWidget(EndPoint, 1, 3);
    layout->addWidget(AverageSampling, 2, 0, 1, 4);
    layout->addWidget(label("Интервал  от"), 3, 0);
    layout->addWidget(IntervalBegin, 3, 1);
    layout->addWidget(IntervalEnd, 3, 2);
    layout->addWidget(ToEndSamplihg, 3, 3);
    return group;
}

QWidget* TemperatureMapWidgets::stateRow(QDialog* dialog)
{
    auto* row = new QWidget(dialog);
    SelectedStatesLb = named<QLabel>("SelectedStatesLb");
    SelectedStatesLb->setWordWrap(true);
    StateFilterBtn = named<QPushButton>("StateFilterBtn", QStringLiteral("Фильтр"));
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label("Состояния:"));
    layout->addWidget(SelectedStatesLb, 1);
    layout->addWidget(StateFilterBtn);
    return row;
}

QWidget* TemperatureMapWidgets::tables(QDialog* dialog)
{
    auto* tabs = named<QTabWidget>("Tables", dialog);
    PointData = named<QTableWidget>("PointData");
    PointData->verticalHeader()->hide();
    PointData->setSelectionBehavior(QAbstractItemView::SelectRows);
    ValuesData = named<QTableWidget>("ValuesData");
    ValuesData->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ValuesCorner = cornerLabel(ValuesData);
    tabs->addTab(PointData, QStringLiteral("Точки"));
    tabs->addTab(ValuesData, QStringLiteral("Значения"));
    return tabs;
}
