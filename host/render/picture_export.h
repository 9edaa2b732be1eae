// A drawing as a file that people look at.
#pragma once

#include <nrx/database.h>

#include <QRectF>
#include <QSize>
#include <QString>

class QWidget;

struct PictureOptions {
    QRectF window;            // part of the world; null for everything
    QSize pixels{1600, 1130}; // of a PNG or SVG
    bool whitePaper = true;   // else black, as on the screen
    QString space = QStringLiteral("*Model_Space");
    // Of a PDF: a sheet of A4 or A3, lying or standing as the drawing asks.
    bool largeSheet = true;
    double marginMillimetres = 10.0;
    QString title; // of a PDF or SVG; empty: the name of the file
};

// What a window shows, as a picture of the kind that the path's ending names.
// Returns what is wrong.
NRX_API QString saveWindowPicture(QWidget& window, const QString& path);

// Writes a PNG, SVG, PDF or DXF by the path's ending. Returns what is wrong; nothing
// is written of work that was stopped (drawing/long_work.h).
NRX_API QString exportPicture(NcDbDatabase& drawing, const QString& path, const PictureOptions& options = {});
