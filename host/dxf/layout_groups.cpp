#include "layout_groups.h"

#include "writer.h"

namespace {

struct Number {
    int code;
    double value;
};

void add(DxfGroups& groups, std::initializer_list<Number> numbers)
{
    for (const Number& number : numbers)
        groups.push_back({number.code, realText(number.value)});
}

void addInteger(DxfGroups& groups, int code, int value) { groups.push_back({code, QString::number(value)}); }

void addSheet(DxfGroups& groups, bool model)
{
    groups.push_back({100, QStringLiteral("AcDbPlotSettings")});
    groups.push_back({1, {}});
    groups.push_back({2, QStringLiteral("none_device")});
    groups.push_back({4, QStringLiteral("A3")});
    groups.push_back({6, {}});
    add(groups,
        {{40, 7.5},
         {41, 20},
         {42, 7.5},
         {43, 20},
         {44, 420},
         {45, 297},
         {46, 0},
         {47, 0},
         {48, 0},
         {49, 0},
         {140, 0},
         {141, 0},
         {142, 1},
         {143, 1}});
    addInteger(groups, 70, model ? 1024 : 688);
    addInteger(groups, 72, 1);
    addInteger(groups, 73, 0);
    addInteger(groups, 74, 5);
    groups.push_back({7, {}});
    addInteger(groups, 75, 16);
    addInteger(groups, 76, 0);
    addInteger(groups, 77, 2);
    addInteger(groups, 78, 300);
    add(groups, {{147, 1}, {148, 0}, {149, 0}});
}

} // namespace

DxfGroups layoutGroups(const QString& name, int order, quint64 block)
{
    DxfGroups groups;
    addSheet(groups, order == 0);
    groups.push_back({100, QStringLiteral("AcDbLayout")});
    groups.push_back({1, name});
    addInteger(groups, 70, 1);
    addInteger(groups, 71, order);
    add(groups, {{10, 0},    {20, 0},    {11, 420},   {21, 297},   {12, 0},     {22, 0},  {32, 0}, {14, 1e20},
                 {24, 1e20}, {34, 1e20}, {15, -1e20}, {25, -1e20}, {35, -1e20}, {146, 0}, {13, 0}, {23, 0},
                 {33, 0},    {16, 1},    {26, 0},     {36, 0},     {17, 0},     {27, 1},  {37, 0}});
    addInteger(groups, 76, 1);
    groups.push_back({330, handleText(block)});
    return groups;
}

DxfGroups mlineStyleGroups()
{
    DxfGroups groups{{100, QStringLiteral("AcDbMlineStyle")}, {2, QStringLiteral("Standard")}};
    addInteger(groups, 70, 0);
    groups.push_back({3, {}});
    addInteger(groups, 62, 256);
    add(groups, {{51, 90}, {52, 90}});
    addInteger(groups, 71, 2);
    for (double offset : {0.5, -0.5}) {
        add(groups, {{49, offset}});
        addInteger(groups, 62, 256);
        groups.push_back({6, QStringLiteral("BYLAYER")});
    }
    return groups;
}
