#pragma once
// Forms that are lists of fields: one call a row.

#include <QString>

class QFormLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QWidget;

/// A row with a line edit.
QLineEdit* addLineRow(QFormLayout* form, const QString& label, const char* name);

struct PathRow {
    QLineEdit* field;
    QPushButton* button;
};
/// A row with a line edit and a button "..." that chooses what stands in it.
PathRow addPathRow(QFormLayout* form, const QString& label, const char* fieldName, const char* buttonName);

QPushButton* makeButton(const QString& caption, const char* name);

/// Makes the button wide enough for the caption, which it may get later.
void keepRoomFor(QPushButton* button, const QString& caption);

/// A read-only log of at least so many lines.
QPlainTextEdit* makeLog(const char* name, int lines);
/// Adds the text at the log's end as it stands: line breaks are the text's own.
void appendToLog(QPlainTextEdit* log, const QString& text);

/// Makes room for so many lines of text.
void setLeastLines(QPlainTextEdit* edit, int lines);
