#include "analysis/maps/forms/iso_contours_widgets.h"

#include "analysis/levels/forms/color_map_widget.h"
#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/unit.h"
#include "formkit/widgets.h"

#include <QDialog>

using namespace formkit;

namespace {

constexpr int kMostPoints = 1000; // that a line may be refined or smoothed by
constexpr int kNumberWidth = 80;

QLineEdit* number(const char* name, const char* value) { return within(kNumberWidth, numberEdit(name, value)); }

QLabel* figure(const char* name)
{
    QLabel* shown = readOut(name);
    shown->setMinimumWidth(70);
    return shown;
}

} // namespace

IsoContoursWidgets::IsoContoursWidgets(QDialog* dialog)
{
    layOut(dialog).column({
        row({
            column({boundPane(), pointPane(), methodPane(), linePane(), stretch()}),
            growing(column({
                ColorMap = named<ColorMapWidget>("ColorMap"),
                outputPane(),
                statisticsPane(),
                stretch(),
            })),
        }),
        row({
            PreviewBTN = hidden(button("PreviewBTN", "Просмотр")),
            stretch(),
            endButtons(dialog, {ok("okButton"), rejects("cancelButton", "Cancel")}),
        }),
    });
}

QWidget* IsoContoursWidgets::boundPane()
{
    return boundGroup = group("Граница:")
                            .grid({
                                {"Со слоя", growing(BoundLayer = combo("BoundLayer")),
                                 SelectBoundBth = button("SelectBoundBth", "Прочитать")},
                                {wide(3, CalculateBoundCheck = check("CalculateBoundCheck", "Вычислять"))},
                            });
}

QWidget* IsoContoursWidgets::pointPane()
{
    return pointGroup = group("Точки поверхности:")
                            .grid({
                                {"Со слоя", growing(PointLayer = combo("PointLayer")),
                                 SelectPointBtn = button("SelectPointBtn", "Прочитать")},
                            });
}

QWidget* IsoContoursWidgets::methodPane()
{
    return group("Метод построения ")
        .grid({
            {wide(4, MethodCombo = combo("MethodCombo"))},
            {MethodParamOneLabel = label("Степень"), MethodParamOne = withoutUnit(number("MethodParamOne", "2.0")),
             MethodParamTwoLabel = label("Точки"), MethodParamTwo = withoutUnit(number("MethodParamTwo", "15"))},
            {hidden(withoutUnit(number("MethodParamThree", "0")))},
        });
}

QWidget* IsoContoursWidgets::linePane()
{
    return group("Линии").grid({
        {wide(2, SplineLine = check("SplineLine", "Сглаживать линии", true)), "Точек",
         SplinePointNum = withoutUnit(spin("SplinePointNum", 1, kMostPoints, 10))},
        {"Натяжение", wide(2, TauSlider = slider("TauSlider", 0, 100, 50)),
         TauValue = withoutUnit(number("TauValue", "0.50"))},
        {wide(2, IsolineFilterCheck = check("IsolineFilterCheck", "Фильтровать линии")), "Расстояние <",
         FilterLinesDistance = inUnit("м", number("FilterLinesDistance", "0.1"))},
        {wide(2, RefineLine = check("RefineLine", "Разбивать отрезки")), "Расстояние >",
         RefineLineDist = inUnit("м", number("RefineLineDist", "50.0"))},
        {wide(2, nothing()), "Число точек", RefineLineCount = withoutUnit(spin("RefineLineCount", 1, kMostPoints, 5))},
    });
}

QWidget* IsoContoursWidgets::statisticsPane()
{
    return group("Поверхность")
        .grid({
            {wide(3, nothing()), "Min", "Max"},
            {"Точек", PointCount = figure("PointCount"), "   X", XMin = figure("XMin"), XMax = figure("XMax")},
            {"Треугольников:", TriangCount = figure("TriangCount"), "   Y", YMin = figure("YMin"),
             YMax = figure("YMax")},
            {"Максимальная длина ребра:", EdgeLength = figure("EdgeLength"), "   Z", ZMin = figure("ZMin"),
             ZMax = figure("ZMax")},
        });
}

QWidget* IsoContoursWidgets::outputPane()
{
    return group("Вывод").grid({
        {HatchOutChek = check("HatchOutChek", "Выводить штриховки на слой", true),
         growing(HatchOutLayer = combo("HatchOutLayer"))},
        {IsoLineOutCheck = check("IsoLineOutCheck", "Выводить изолинии на слой"),
         IsoLineOutLayer = combo("IsoLineOutLayer")},
        {IsoContoursOutCheck = check("IsoContoursOutCheck", "Выводить изоконтура на слой"),
         IsoContoursOutLayer = combo("IsoContoursOutLayer")},
    });
}
