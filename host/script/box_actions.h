// The ready-made boxes: standard buttons, file and colour dialogs.
#pragma once

#include <QAbstractButton>
#include <QStringList>
#include <QWidget>

// A standard button of a box by its Russian or English name, whatever language
// its caption is in: "Да" and "Yes" name the same button.
QAbstractButton* findBoxButton(QWidget* window, const QString& name);
// Types the paths into a file dialog and accepts it. Returns what is wrong.
QString chooseFiles(QWidget* window, const QStringList& paths);
// Chooses a colour "R,G,B" or a palette index in a colour dialog and accepts it.
QString chooseColor(QWidget* window, const QStringList& words);
