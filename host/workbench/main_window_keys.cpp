// Keys that reach the command line from anywhere in the window.
#include "main_window.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QValidator>

namespace {

// Widgets that have a use for letters of their own.
bool takesText(const QWidget* widget)
{
    const auto* combo = qobject_cast<const QComboBox*>(widget);
    const auto* plain = qobject_cast<const QPlainTextEdit*>(widget);
    const auto* rich = qobject_cast<const QTextEdit*>(widget);
    const auto* items = qobject_cast<const QAbstractItemView*>(widget);
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget)
        || (combo && combo->isEditable()) || (plain && !plain->isReadOnly()) || (rich && !rich->isReadOnly())
        || (items && items->editTriggers() != QAbstractItemView::NoEditTriggers);
}

// A line that takes numbers and no letters.
bool takesNumbersAlone(const QLineEdit* line)
{
    QString number = QStringLiteral("-1.5"), letter = QStringLiteral("a");
    int place = 0;
    return line && line->validator() && line->validator()->validate(number, place) == QValidator::Acceptable
        && line->validator()->validate(letter, place) == QValidator::Invalid;
}

// Whether the widget is a field for a number in a dialog; that of a cell belongs to its table.
bool isNumberField(const QWidget* widget)
{
    const auto* line = qobject_cast<const QLineEdit*>(widget);
    return qobject_cast<const QDialog*>(widget->window())
        && (qobject_cast<const QAbstractSpinBox*>(widget)
            || (takesNumbersAlone(line)
                && !qobject_cast<const QAbstractItemView*>(line->parentWidget()->parentWidget())));
}

// A number takes a point and a comma alike; the field shows that of the user's
// locale. The other one is typed for the user.
bool typeDecimalMark(QWidget* widget, const QKeyEvent& key)
{
    const auto* field = qobject_cast<const QDoubleSpinBox*>(widget);
    if (!field || (key.text() != QLatin1String(".") && key.text() != QLatin1String(",")))
        return false;
    const QString mark = field->locale().decimalPoint();
    if (key.text() == mark)
        return false;
    QKeyEvent typed(QEvent::KeyPress, mark == QLatin1String(",") ? Qt::Key_Comma : Qt::Key_Period, key.modifiers(),
                    mark);
    QCoreApplication::sendEvent(widget, &typed);
    return true;
}

bool isEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

} // namespace

bool MainWindow::takeStrayKey(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        emit line_->cancelled();
    else if (isEnter(event->key()) && prompts_.isAsking())
        prompts_.finish();
    else if (!event->text().isEmpty() && event->text().at(0).isPrint() && !event->text().at(0).isSpace()
             && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        line_->type(event->text());
    else
        return false;
    return true;
}

bool MainWindow::takeKey(QWidget* widget, QKeyEvent* key)
{
    // Enter in a number field is done with the field, not with the form.
    if (isEnter(key->key()) && isNumberField(widget)) {
        if (auto* spin = qobject_cast<QAbstractSpinBox*>(widget))
            spin->interpretText();
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &tab);
        return true;
    }
    if (typeDecimalMark(widget, *key))
        return true;
    const bool stray = widget->window() == this && widget == QApplication::focusWidget()
        && !QApplication::activeModalWidget() && !QApplication::activePopupWidget() && !takesText(widget)
        && !qobject_cast<DrawingView*>(widget);
    return stray && takeStrayKey(key);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = event->type() == QEvent::KeyPress ? qobject_cast<QWidget*>(watched) : nullptr;
    return (widget && takeKey(widget, static_cast<QKeyEvent*>(event))) || QMainWindow::eventFilter(watched, event);
}
