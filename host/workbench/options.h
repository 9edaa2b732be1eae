// What the program was told on its command line.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

struct Options {
    QString batch;                              // script to play without a window
    QString play;                               // script to play in the window, which then closes
    QString start;                              // script to play in the window, which then stays
    QStringList modules;                        // given with --module
    QVector<QPair<QString, QString>> variables; // of the script
    QStringList drawings;                       // to open
    double stepTimeout = 60.0;                  // seconds
    bool defaultModule = true;                  // load the module beside the program
    QString profile;                            // file of the window's settings; empty: the user's
};

// False with the text to print in `message`: help (`good` true) or a mistake.
bool parseOptions(const QStringList& arguments, Options& options, QString& message, bool& good);
