#pragma once
// Questions for files and folders. A question that names no place starts where
// one of the same title ended last; a name without a suffix gets that of the
// filter. An empty answer: the user left the question.

#include <QString>

class QWidget;

namespace formkit {

struct FileQuestion {
    QString title;
    QString filter;                  ///< e.g. "*.terva" or "csv (*.csv);;txt (*.txt)"
    QString start = QString();       ///< a file or a folder; empty: where the last one ended
    QString* chosenFilter = nullptr; ///< preset and answer, for those with several
};

QString askFileToOpen(QWidget* parent, const FileQuestion& question);
/// Asks before it gives the name of a file that is there.
QString askFileToSave(QWidget* parent, const FileQuestion& question);
QString askFolder(QWidget* parent, const QString& title, const QString& start = QString());

/// The suffix that a filter gives to a name without one: that of its first
/// pattern, empty for "*" and "*.*".
QString suffixOf(const QString& filter);

} // namespace formkit
