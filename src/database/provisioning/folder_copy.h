#pragma once

class QString;

/// Copies a folder with all that is in it into another, which is made if need
/// be. Files that are there already stay as they are and count as failures.
/// False when the source is missing, when the target lies inside it or when
/// anything could not be copied; the rest is copied all the same.
bool copyFolder(const QString& source, const QString& target);
