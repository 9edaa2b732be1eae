#include "form_actions.h"

#include "box_actions.h"
#include "item_access.h"
#include "widget_access.h"

#include <render/picture_export.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDir>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPixmap>
#include <QProgressDialog>

namespace {

using Words = QStringList;

QString noWidget(const QString& name) { return QStringLiteral("нет поля «") + name + QStringLiteral("»"); }

QString differs(const QString& what, const QString& met, const QString& expected)
{
    return what + QStringLiteral(": ожидалось «") + expected + QStringLiteral("», встречено «") + met
        + QStringLiteral("»");
}

QString doText(QWidget* window, const Words& words)
{
    const bool part = words.size() == 2;
    if (part && words[0] != QLatin1String("contains"))
        return QStringLiteral("неизвестное слово «") + words[0] + QStringLiteral("»");
    const QString& expected = words.last();
    QStringList met;
    if (const auto text = boxText(window))
        met << *text;
    else
        for (const QLabel* label : window->findChildren<QLabel*>())
            if (label->isVisible() && !label->text().isEmpty())
                met << label->text();
    for (const QString& text : met)
        if (part ? text.contains(expected) : text == expected)
            return {};
    return differs(QStringLiteral("текст окна"), met.join(QStringLiteral("» «")), expected);
}

QString doSet(QWidget* window, const Words& words)
{
    QWidget* widget = findNamedWidget(window, words[0]);
    if (!widget)
        widget = findButton(window, words[0]);
    if (!widget)
        return noWidget(words[0]);
    const QString wrong = setWidgetValue(widget, words[1]);
    return wrong.isEmpty() ? wrong : words[0] + QStringLiteral(": ") + wrong;
}

QString doCheck(QWidget* window, const Words& words)
{
    const QWidget* widget = findNamedWidget(window, words[0]);
    if (!widget)
        widget = findButton(window, words[0]);
    QString value;
    if (!widget)
        return noWidget(words[0]);
    if (!widgetValue(widget, value))
        return describeWidget(widget) + QStringLiteral(": нет значения");
    return sameValue(value, words[1]) ? QString() : differs(words[0], value, words[1]);
}

QString doContains(QWidget* window, const Words& words)
{
    const QWidget* widget = findNamedWidget(window, words[0]);
    QString value;
    if (!widget || !widgetValue(widget, value))
        return noWidget(words[0]);
    return value.contains(words[1]) ? QString() : differs(words[0], value, words[1]);
}

QString doItems(QWidget* window, const Words& words)
{
    const QWidget* widget = findNamedWidget(window, words[0]);
    QStringList items;
    if (!widget || !widgetItems(widget, items))
        return noWidget(words[0]);
    const QStringList expected = words.mid(1);
    return items == expected ? QString()
                             : differs(words[0], items.join(QLatin1Char('|')), expected.join(QLatin1Char('|')));
}

QString doState(QWidget* window, const Words& words)
{
    const QWidget* widget = findNamedWidget(window, words[0]);
    if (!widget)
        widget = findButton(window, words[0]);
    if (!widget)
        return noWidget(words[0]);
    const struct {
        const char* name;
        bool holds;
    } states[] = {
        {"enabled", widget->isEnabled()}, {"disabled", !widget->isEnabled()}, {"visible", widget->isVisible()},
        {"hidden", !widget->isVisible()}, {"focused", widget->hasFocus()},
    };
    for (const auto& state : states)
        if (words[1] == QLatin1String(state.name))
            return state.holds ? QString() : words[0] + QStringLiteral(": не ") + words[1];
    return QStringLiteral("неизвестное состояние «") + words[1] + QStringLiteral("»");
}

QAbstractItemView* findView(QWidget* window, const QString& name)
{
    return qobject_cast<QAbstractItemView*>(findNamedWidget(window, name));
}

QString doRows(QWidget* window, const Words& words)
{
    QAbstractItemView* view = findView(window, words[0]);
    if (!view || !view->model())
        return noWidget(words[0]);
    const QString met = QString::number(view->model()->rowCount(view->rootIndex()));
    return met == words[1] ? QString() : differs(words[0] + QStringLiteral(", строк"), met, words[1]);
}

QString doCell(QWidget* window, const Words& words)
{
    QAbstractItemView* view = findView(window, words[0]);
    if (!view)
        return noWidget(words[0]);
    const QString wrong = setCell(view, words[1], words[2], words[3]);
    return wrong.isEmpty() ? wrong : words[0] + QStringLiteral(": ") + wrong;
}

QString doCheckCell(QWidget* window, const Words& words)
{
    QAbstractItemView* view = findView(window, words[0]);
    if (!view)
        return noWidget(words[0]);
    QString wrong;
    const QModelIndex index = findCell(view, words[1], words[2], wrong);
    if (!index.isValid())
        return words[0] + QStringLiteral(": ") + wrong;
    const QString text = cellText(index, view);
    if (sameValue(text, words[3]) || (!cellCheckMark(index).isEmpty() && cellCheckMark(index) == words[3]))
        return {};
    return differs(words[0] + QStringLiteral(" [") + words[1] + QLatin1Char(',') + words[2] + QLatin1Char(']'), text,
                   words[3]);
}

QString doRow(QWidget* window, const Words& words)
{
    QAbstractItemView* view = findView(window, words[0]);
    if (!view)
        return noWidget(words[0]);
    return selectRow(view, words[1], words.value(2) == QLatin1String("add"));
}

QString doubleClick(QWidget* window, const QString& name)
{
    QWidget* widget = findNamedWidget(window, name);
    if (!widget)
        return noWidget(name);
    QMouseEvent click(QEvent::MouseButtonDblClick, widget->rect().center(), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &click);
    return {};
}

QString doDouble(QWidget* window, const Words& words)
{
    if (words.size() == 1)
        return doubleClick(window, words[0]);
    QAbstractItemView* view = findView(window, words[0]);
    if (!view)
        return noWidget(words[0]);
    QString wrong;
    const QModelIndex index = findCell(view, words[1], words.value(2, QStringLiteral("0")), wrong);
    if (!index.isValid())
        return wrong;
    view->setCurrentIndex(index);
    QMetaObject::invokeMethod(view, "doubleClicked", Q_ARG(QModelIndex, index));
    return {};
}

QString doKey(QWidget* window, const Words& words)
{
    QWidget* widget = findNamedWidget(window, words[0]);
    const QKeySequence keys(words[1]);
    if (!widget)
        return noWidget(words[0]);
    if (keys.count() != 1 || keys[0] == Qt::Key_unknown)
        return QStringLiteral("неизвестная клавиша «") + words[1] + QStringLiteral("»");
    const auto modifiers = Qt::KeyboardModifiers(keys[0] & int(Qt::KeyboardModifierMask));
    const int key = keys[0] & ~int(Qt::KeyboardModifierMask);
    QKeyEvent down(QEvent::KeyPress, key, modifiers), up(QEvent::KeyRelease, key, modifiers);
    QCoreApplication::sendEvent(widget, &down);
    QCoreApplication::sendEvent(widget, &up);
    return {};
}

QString doPress(QWidget* window, const Words& words)
{
    QAbstractButton* button = findBoxButton(window, words[0]);
    if (!button)
        button = findButton(window, words[0]);
    if (!button)
        return QStringLiteral("нет кнопки «") + words[0] + QStringLiteral("»");
    if (!button->isVisible())
        return QStringLiteral("кнопка «") + words[0] + QStringLiteral("» не видна");
    if (!button->isEnabled())
        return QStringLiteral("кнопка «") + words[0] + QStringLiteral("» недоступна");
    button->setFocus();
    button->click();
    return {};
}

QString doMenu(QWidget* window, const Words& words)
{
    QWidget* widget = findNamedWidget(window, words[0]);
    if (!widget)
        return noWidget(words[0]);
    QPoint at = widget->rect().center();
    if (auto* view = qobject_cast<QAbstractItemView*>(widget)) {
        QString wrong;
        if (words.size() == 3) {
            const QModelIndex index = findCell(view, words[1], words[2], wrong);
            if (!index.isValid())
                return wrong;
            // As a press of the right button on a selected row: what is selected stays so.
            if (view->selectionModel()->rowIntersectsSelection(index.row(), index.parent()))
                view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
            else
                view->setCurrentIndex(index);
            at = view->visualRect(index).center();
        }
        widget = view->viewport();
    }
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
    QCoreApplication::sendEvent(widget, &event);
    return {};
}

QString doChoose(QWidget*, const Words& words)
{
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        return QStringLiteral("меню не открыто");
    for (QAction* action : menu->actions()) {
        if (QString(action->text()).remove(QLatin1Char('&')) != words[0])
            continue;
        if (!action->isEnabled())
            return QStringLiteral("пункт «") + words[0] + QStringLiteral("» недоступен");
        menu->setActiveAction(action);
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(menu, &enter);
        return {};
    }
    return QStringLiteral("в меню нет пункта «") + words[0] + QStringLiteral("»");
}

QString doScreenshot(QWidget* window, const Words& words) { return saveWindowPicture(*window, words[0]); }

QString doClose(QWidget* window, const Words&)
{
    if (auto* dialog = qobject_cast<QDialog*>(window))
        dialog->reject();
    else
        window->close();
    return {};
}

QString doNothing(QWidget*, const Words&) { return {}; }

struct Verb {
    const char* name;
    int least, most; // words; -1 for any number
    QString (*perform)(QWidget*, const Words&);
};

const Verb kVerbs[] = {
    {"dialog", 1, 1, doNothing},
    {"window", 1, 1, doNothing},
    {"call", 0, 0, doNothing},
    {"wait", 1, 1, doNothing},
    {"text", 1, 2, doText},
    {"set", 2, 2, doSet},
    {"check", 2, 2, doCheck},
    {"contains", 2, 2, doContains},
    {"items", 1, -1, doItems},
    {"state", 2, 2, doState},
    {"rows", 2, 2, doRows},
    {"cell", 4, 4, doCell},
    {"check-cell", 4, 4, doCheckCell},
    {"row", 2, 3, doRow},
    {"double", 1, 3, doDouble},
    {"key", 2, 2, doKey},
    {"press", 1, 2, doPress},
    {"menu", 1, 3, doMenu},
    {"choose", 1, 1, doChoose},
    {"files", 1, -1, chooseFiles},
    {"color", 1, 1, chooseColor},
    {"screenshot", 1, 1, doScreenshot},
    {"close", 0, 0, doClose},
};

const Verb* findVerb(const QString& name)
{
    for (const Verb& verb : kVerbs)
        if (name == QLatin1String(verb.name))
            return &verb;
    return nullptr;
}

} // namespace

bool isFormVerb(const QString& verb) { return findVerb(verb) != nullptr; }

QString checkFormStep(const FormStep& step)
{
    const Verb* verb = findVerb(step.verb);
    if (!verb)
        return QStringLiteral("неизвестное действие «") + step.verb + QStringLiteral("»");
    const int count = step.words.size();
    if (count < verb->least || (verb->most >= 0 && count > verb->most))
        return QStringLiteral("действие «") + step.verb + QStringLiteral("»: неверное число слов");
    return {};
}

QString performFormStep(QWidget* window, const FormStep& step)
{
    QString wrong = checkFormStep(step);
    if (!wrong.isEmpty())
        return wrong;
    return step.call ? step.call(window) : findVerb(step.verb)->perform(window, step.words);
}

std::optional<QString> boxText(const QWidget* window)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(window))
        return box->informativeText().isEmpty() ? box->text()
                                                : box->text() + QLatin1Char('\n') + box->informativeText();
    if (const auto* input = qobject_cast<const QInputDialog*>(window))
        return input->labelText();
    if (const auto* progress = qobject_cast<const QProgressDialog*>(window))
        return progress->labelText();
    return std::nullopt;
}

QString describeWindow(const QWidget* window)
{
    QString text = QStringLiteral("«") + window->windowTitle() + QStringLiteral("»");
    if (const auto box = boxText(window); box && !box->isEmpty())
        text += QStringLiteral(" с текстом «") + *box + QStringLiteral("»");
    return text;
}
