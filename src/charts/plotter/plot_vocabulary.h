// The words in which a chart is described: symbols, places of the key, drawing
// of axes. Their numbers are those by which the charts are told.
#pragma once

#include <QtGlobal>

/// What marks a point.
enum class PlotSymbol {
    None = 0,
    FilledCircle = 5,
    FilledSquare = 7,
    FilledDiamond = 11,
    FilledOctagon = 55,
};

/// Where the key stands.
enum class KeyPosition {
    InsideTopRight = 0x1401,
    InsideBottomRight = 0x4401,
    AboveRight = 0x4410,
    AboveMiddle = 0x4210,
};

/// How the entries of the key stand.
enum class KeyLayout {
    OneColumn = 0,
    OneRow = 1,
    WrappedRows = 3,
};

/// Where a value label stands, seen from its point.
enum class LabelPosition {
    AwayFromXAxis = 3, ///< above a positive value, below a negative one
};

/// What a value label says.
enum class LabelType {
    YValue = 1,
};

/// What the ticks of an axis say.
enum class TickLabels {
    Number = 0,
    DateTime = 7, ///< milliseconds since 1970, shown in local time
};

/// What is drawn of an axis at one of its three places.
enum class AxisDrawing {
    None = 0,
    Line = 1,
    Full = 15, ///< line, ticks, tick labels and label
};

/// The axis that a graph belongs to in the vertical; x is common to all.
enum class PlotAxisKey {
    Primary,
    Secondary,
};
