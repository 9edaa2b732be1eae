#include "database/forms/field_rows.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

QLineEdit* addLineRow(QFormLayout* form, const QString& label, const char* name)
{
    auto* field = new QLineEdit;
    field->setObjectName(QString::fromLatin1(name));
    form->addRow(label, field);
    return field;
}

PathRow addPathRow(QFormLayout* form, const QString& label, const char* fieldName, const char* buttonName)
{
    auto* field = new QLineEdit;
    field->setObjectName(QString::fromLatin1(fieldName));
    QPushButton* button = makeButton(QStringLiteral("..."), buttonName);
    button->setFixedWidth(button->minimumWidth());
    auto* row = new QHBoxLayout;
    row->addWidget(field);
    row->addWidget(button);
    form->addRow(label, row);
    return {field, button};
}

QPushButton* makeButton(const QString& caption, const char* name)
{
    auto* button = new QPushButton(caption);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    keepRoomFor(button, caption);
    return button;
}

void keepRoomFor(QPushButton* button, const QString& caption)
{
    const int margins = 28;
    button->setMinimumWidth(qMax(button->minimumWidth(), button->fontMetrics().horizontalAdvance(caption) + margins));
}

QPlainTextEdit* makeLog(const char* name, int lines)
{
    auto* log = new QPlainTextEdit;
    log->setObjectName(QString::fromLatin1(name));
    log->setReadOnly(true);
    log->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setLeastLines(log, lines);
    return log;
}

void appendToLog(QPlainTextEdit* log, const QString& text)
{
    log->moveCursor(QTextCursor::End);
    log->insertPlainText(text);
    log->ensureCursorVisible();
}

void setLeastLines(QPlainTextEdit* edit, int lines)
{
    edit->setMinimumHeight(edit->fontMetrics().lineSpacing() * lines + 12);
}
