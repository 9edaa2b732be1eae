#pragma once
// What the user has saved in a working copy and nowhere else must not be lost
// when the copy is laid anew.
//
// The database does not say when a drawing was stored. So a small file beside
// the working copy remembers what was laid there: a copy that still is what was
// laid, or what is stored now, holds nothing of its own. By the same note one
// sees that somebody else has stored a drawing since.

#include <QByteArray>
#include <QString>

/// Remembers the file as it stands now. A missing one is forgotten.
void rememberLaidCopy(const QString& path);
/// Remembers what the database stores now, since it was just put there.
void rememberStored(const QString& path, const QByteArray& stored);
/// Whether what is stored is what was laid or put there last.
bool isRemembered(const QString& path, const QByteArray& stored);

/// Whether the file was saved since it was laid or stored last. False where no
/// note tells: that is no working copy.
bool wasSavedSince(const QString& path);

/// Moves the file to a dated name beside it when it was saved since it was laid
/// and differs from what is stored, and tells where. False when it cannot be
/// moved, which is told: the file must then not be written over.
bool keepSavedCopy(const QString& path, const QByteArray& stored);
