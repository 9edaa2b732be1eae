#pragma once
// A working copy lies in a folder that several programs may share. A small file
// beside it says who has it open, so that none lays it anew under another's hands.

#include <QString>

/// Takes the drawing for this program. False when another program holds it,
/// which is told with its user, machine and process. What a program that has
/// ended left behind is no hindrance, nor is a folder that takes no lock.
bool lockDrawing(const QString& path);
/// Gives it back; nothing happens to one that this program does not hold.
void unlockDrawing(const QString& path);
/// The file that stands for the lock.
QString drawingLockPath(const QString& path);
