#include "analysis/maps/forms/iso_contours_widgets.h"

#include "analysis/levels/forms/color_map_widget.h"
#include "session/forms/named_widget.h"
#include "session/project_session.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSlider>
#include <QSpinBox>
#include <array>

namespace {

QLineEdit* number(const char* name, const char* value)
{
    auto* edit = named<QLineEdit>(name, QString::fromLatin1(value));
    edit->setValidator(new QRegularExpressionValidator(session().numberPattern, edit));
    edit->setMaximumWidth(80);
    return edit;
}

QSpinBox* count(const char* name, int value)
{
    auto* spin = named<QSpinBox>(name);
    spin->setRange(1, 1000);
    spin->setValue(value);
    return spin;
}

QCheckBox* check(const char* name, const char* caption, bool on)
{
    auto* box = named<QCheckBox>(name, QString::fromUtf8(caption));
    box->setChecked(on);
    return box;
}

QLabel* readOut(const char* name)
{
    auto* shown = named<QLabel>(name);
    shown->setMinimumWidth(70);
    shown->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return shown;
}

} // namespace

IsoContoursWidgets::IsoContoursWidgets(QDialog* dialog)
{
    auto* left = new QVBoxLayout;
    left->addWidget(sourceGroup(dialog));
    left->addWidget(methodGroup(dialog));
    left->addWidget(lineGroup(dialog));
    left->addStretch();
    auto* right = new QVBoxLayout;
    ColorMap = named<ColorMapWidget>("ColorMap", dialog);
    right->addWidget(ColorMap);
    right->addWidget(outputGroup(dialog));
    right->addWidget(statisticsGroup(dialog));
    right->addStretch();

    auto* columns = new QHBoxLayout;
    columns->addLayout(left);
    columns->addLayout(right, 1);
    auto* all = new QVBoxLayout(dialog);
    all->addLayout(columns);
    all->addLayout(buttonRow(dialog));
}

QWidget* IsoContoursWidgets::sourceGroup(QDialog* dialog)
{
    auto* group = new QWidget(dialog);
    boundGroup = new QGroupBox(QStringLiteral("Граница:"), group);
    BoundLayer = named<QComboBox>("BoundLayer");
    SelectBoundBth = named<QPushButton>("SelectBoundBth", QStringLiteral("Прочитать"));
    CalculateBoundCheck = check("CalculateBoundCheck", "Вычислять", false);
    auto* bound = new QGridLayout(boundGroup);
    bound->addWidget(label("Со слоя"), 0, 0);
    bound->addWidget(BoundLayer, 0, 1);
    bound->addWidget(SelectBoundBth, 0, 2);
    bound->addWidget(CalculateBoundCheck, 1, 0, 1, 3);
    bound->setColumnStretch(1, 1);

    pointGroup = new QGroupBox(QStringLiteral("Точки поверхности:"), group);
    PointLayer = named<QComboBox>("PointLayer");
    SelectPointBtn = named<QPushButton>("SelectPointBtn", QStringLiteral("Прочитать"));
    auto* point = new QGridLayout(pointGroup);
    point->addWidget(label("Со слоя"), 0, 0);
    point->addWidget(PointLayer, 0, 1);
    point->addWidget(SelectPointBtn, 0, 2);
    point->setColumnStretch(1, 1);

    auto* layout = new QVBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(boundGroup);
    layout->addWidget(pointGroup);
    return group;
}

QWidget* IsoContoursWidgets::methodGroup(QDialog* dialog)
{
    auto* group = new QGroupBox(QStringLiteral("Метод построения "), dialog);
    MethodCombo = named<QComboBox>("MethodCombo");
    MethodParamOneLabel = label("Степень");
    MethodParamOne = number("MethodParamOne", "2.0");
    MethodParamTwoLabel = label("Точки");
    MethodParamTwo = number("MethodParamTwo", "15");
    MethodParamThree = number("MethodParamThree", "0");
    MethodParamThree->setParent(group);
    MethodParamThree->hide();

    auto* layout = new QGridLayout(group);
    layout->addWidget(MethodCombo, 0, 0, 1, 4);
    layout->addWidget(MethodParamOneLabel, 1, 0);
    layout->addWidget(MethodParamOne, 1, 1);
    layout->addWidget(MethodParamTwoLabel, 1, 2);
    layout->addWidget(MethodParamTwo, 1, 3);
    return group;
}

QWidget* IsoContoursWidgets::lineGroup(QDialog* dialog)
{
    auto* group = new QGroupBox(QStringLiteral("Линии"), dialog);
    SplineLine = check("SplineLine", "Сглаживать линии", true);
    TauSlider = named<QSlider>("TauSlider", Qt::Horizontal);
    TauSlider->setRange(0, 100);
    TauSlider->setSingleStep(1);
    TauSlider->setValue(50);
    TauValue = number("TauValue", "0.50");
    SplinePointNum = count("SplinePointNum", 10);
    IsolineFilterCheck = check("IsolineFilterCheck", "Фильтровать линии", false);
    FilterLinesDistance = number("FilterLinesDistance", "0.1");
    RefineLine = check("RefineLine", "Разбивать отрезки", false);
    RefineLineDist = number("RefineLineDist", "50.0");
    RefineLineCount = count("RefineLineCount", 5);

    auto* layout = new QGridLayout(group);
    layout->addWidget(SplineLine, 0, 0, 1, 2);
    layout->addWidget(label("Точек"), 0, 2);
    layout->addWidget(SplinePointNum, 0, 3);
    layout->addWidget(label("Натяжение"), 1, 0);
    layout->addWidget(TauSlider, 1, 1, 1, 2);
    layout->addWidget(TauValue, 1, 3);
    layout->addWidget(IsolineFilterCheck, 2, 0, 1, 2);
    layout->addWidget(label("Расстояние <"), 2, 2);
    layout->addWidget(FilterLinesDistance, 2, 3);
    layout->addWidget(RefineLine, 3, 0, 1, 2);
    layout->addWidget(label("Расстояние >"), 3, 2);
    layout->addWidget(RefineLineDist, 3, 3);
    layout->addWidget(label("Число точек"), 4, 2);
    layout->addWidget(RefineLineCount, 4, 3);
    return group;
}

QWidget* IsoContoursWidgets::statisticsGroup(QDialog* dialog)
{
    auto* group = new QGroupBox(QStringLiteral("Поверхность"), dialog);
    auto* layout = new QGridLayout(group);
    const std::array<std::pair<const char*, QLabel**>, 3> totals = {
        {{"Точек", &PointCount}, {"Треугольников:", &TriangCount}, {"Максимальная длина ребра:", &EdgeLength}}};
    const std::array<const char*, 3> totalNames = {"PointCount", "TriangCount", "EdgeLength"};
    for (int i = 0; i < int(totals.size()); ++i) {
        *totals[size_t(i)].second = readOut(totalNames[size_t(i)]);
        layout->addWidget(label(totals[size_t(i)].first), i + 1, 0);
        layout->addWidget(*totals[size_t(i)].second, i + 1, 1);
    }
    layout->addWidget(label("Min"), 0, 3);
    layout->addWidget(label("Max"), 0, 4);
    struct Axis {
        const char* caption;
        const char* minName;
        const char* maxName;
        QLabel** min;
        QLabel** max;
    };
    const std::array<Axis, 3> axes = {{{"   X", "XMin", "XMax", &XMin, &XMax},
                                       {"   Y", "YMin", "YMax", &YMin, &YMax},
                                       {"   Z", "ZMin", "ZMax", &ZMin, &ZMax}}};
    for (int i = 0; i < int(axes.size()); ++i) {
        const Axis& axis = axes[size_t(i)];
        *axis.min = readOut(axis.minName);
        *axis.max = readOut(axis.maxName);
        layout->addWidget(label(axis.caption), i + 1, 2);
        layout->addWidget(*axis.min, i + 1, 3);
        layout->addWidget(*axis.max, i + 1, 4);
    }
    return group;
}

QWidget* IsoContoursWidgets::outputGroup(QDialog* dialog)
{
    auto* group = new QGroupBox(QStringLiteral("Вывод"), dialog);
    HatchOutChek = check("HatchOutChek", "Выводить штриховки на слой", true);
    HatchOutLayer = named<QComboBox>("HatchOutLayer");
    IsoLineOutCheck = check("IsoLineOutCheck", "Выводить изолинии на слой", false);
    IsoLineOutLayer = named<QComboBox>("IsoLineOutLayer");
    IsoContoursOutCheck = check("IsoContoursOutCheck", "Выводить изоконтура на слой", false);
    IsoContoursOutLayer = named<QComboBox>("IsoContoursOutLayer");
    auto* layout = new QGridLayout(group);
    const std::array<std::pair<QCheckBox*, QComboBox*>, 3> rows = {{{HatchOutChek, HatchOutLayer},
                                                                    {IsoLineOutCheck, IsoLineOutLayer},
                                                                    {IsoContoursOutCheck, IsoContoursOutLayer}}};
    for (int i = 0; i < int(rows.size()); ++i) {
        layout->addWidget(rows[size_t(i)].first, i, 0);
        layout->addWidget(rows[size_t(i)].second, i, 1);
    }
    layout->setColumnStretch(1, 1);
    return group;
}

QLayout* IsoContoursWidgets::buttonRow(QDialog* dialog)
{
    PreviewBTN = named<QPushButton>("PreviewBTN", QStringLiteral("Просмотр"), dialog);
    PreviewBTN->hide();
    okButton = named<QPushButton>("okButton", QStringLiteral("OK"), dialog);
    okButton->setDefault(true);
    cancelButton = named<QPushButton>("cancelButton", QStringLiteral("Cancel"), dialog);
    auto* row = new QHBoxLayout;
    row->addWidget(PreviewBTN);
    row->addStretch();
    row->addWidget(okButton);
    row->addWidget(cancelButton);
    return row;
}
