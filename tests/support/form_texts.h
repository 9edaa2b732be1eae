#pragma once
// A form seen from outside: its widgets by name, and what it says as plain lists
// that a reader checks at a glance.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QStringList>
#include <QTabWidget>

#include <gtest/gtest.h>

/// A widget of the form by its object name; null, with a failure that names it, when it has none.
template <class Widget>
Widget* child(const QWidget& form, const char* name)
{
    auto* found = form.findChild<Widget*>(QString::fromUtf8(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

/// Captions of labels, buttons and groups in the order in which they were laid
/// out; those without a text are passed over.
inline QStringList textsOf(const QWidget& form)
{
    QStringList texts;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        const auto* caption = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const auto* group = qobject_cast<const QGroupBox*>(widget);
        const QString text = caption ? caption->text() : button ? button->text() : group ? group->title() : QString();
        if (!text.isEmpty())
            texts << text;
    }
    return texts;
}

/// The titles of the pages.
inline QStringList tabsOf(const QWidget& form)
{
    QStringList titles;
    for (const QTabWidget* tabs : form.findChildren<QTabWidget*>()) {
        for (int page = 0; page < tabs->count(); ++page)
            titles << tabs->tabText(page);
    }
    return titles;
}

/// The titles of a table's columns.
inline QStringList titlesOf(const QAbstractItemView& table)
{
    QStringList titles;
    for (int column = 0; column < table.model()->columnCount(); ++column)
        titles << table.model()->headerData(column, Qt::Horizontal).toString();
    return titles;
}
