// A sheet of paper with a part of a drawing at a scale, as it is printed: frame,
// title block, scale bar, arrow to the north, legend. All in millimetres from the
// upper left corner; a millimetre of the sheet is one on paper.
#pragma once

#include "display_list.h"

#include <QPainter>
#include <QStringList>
#include <set>

struct Sheet {
    struct Sign {
        enum Kind { Line, Patch, Heading, Note };
        QColor color;
        QString text;
        Kind kind = Line;
    };

    QString paper = QStringLiteral("A3");
    bool landscape = true;
    // Model units are metres: 1:500 shows a metre as 2 mm. A layout's are millimetres.
    double scale = 500.0;
    bool millimetres = false;
    QPointF center; // of the world, in the middle of the field
    bool frame = true, titleBlock = true, scaleBar = true, northArrow = true, legend = true;
    // Of the title block; empty lines are left out.
    QString organisation, project, title, author, date, cycle, depth;
    std::vector<Sign> signs;
};

// "A4" to "A0".
NRX_API QStringList paperNames();
// The usual scales, 1:100 to 1:5000.
NRX_API std::vector<double> usualScales();
// "1:500" or "500" is 500; 0 for what is no scale.
NRX_API double readScale(const QString& text);

NRX_API QSizeF paperSize(const Sheet& sheet);
// Where the drawing stands: inside of the frame.
NRX_API QRectF fieldOf(const Sheet& sheet);
// What of the world is in the field.
NRX_API QRectF shownWorld(const Sheet& sheet);
NRX_API double millimetresOfUnit(const Sheet& sheet);
// The largest usual scale at which the window fits the field, or the smallest one.
NRX_API double fittingScale(const Sheet& sheet, const QRectF& window);
// A round length of the bar, in the drawing's units, and in how many parts.
NRX_API double barLength(const Sheet& sheet);
// Layers that show in the field, each by its colour; without what was told before.
NRX_API std::vector<Sheet::Sign> signsOf(const DisplayList& list, const Sheet& sheet,
                                         const std::set<NcDbObjectId>& told = {});

// `dots` of the painter make a millimetre.
NRX_API void paintSheet(QPainter& painter, const Sheet& sheet, const DisplayList& list, double dots);
// Returns what is wrong; nothing is written of work that was stopped (drawing/long_work.h).
NRX_API QString writeSheet(const Sheet& sheet, const DisplayList& list, const QString& path);
