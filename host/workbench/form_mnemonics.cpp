#include "form_mnemonics.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCalendarWidget>
#include <QColorDialog>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTextDocument>
#include <QToolButton>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

const QChar kSign = QLatin1Char('&');

using Letters = QSet<QChar>;

// Letters that look alike in both alphabets are one.
QChar lookOf(QChar letter)
{
    static const QString latin = QStringLiteral("ABCEHKMOPTXY"), cyrillic = QStringLiteral("АВСЕНКМОРТХУ");
    const QChar large = letter.toUpper();
    const int at = latin.indexOf(large);
    return at < 0 ? large : cyrillic.at(at);
}

// Nobody says these by themselves.
bool isSoftSign(QChar letter) { return QStringLiteral("ЪЫЬ").contains(letter.toUpper()); }

// The place of the sign before the letter; -1 for none.
int signIn(const QString& caption)
{
    for (int i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != kSign)
            continue;
        if (caption[i + 1] != kSign)
            return i;
        ++i;
    }
    return -1;
}

// Who chooses first.
enum Rank { Button, Tab, Choice, Caption, Group, NotSeen, End };
constexpr int kRanks = End + 1;

struct Place {
    Rank rank;
    QString text;
    std::function<void(const QString&)> show;
    QChar letter = QChar(); // that it has
};

// What is seen together, and the pages of which one is seen at a time.
struct Scope {
    std::vector<Place> places;
    std::vector<std::vector<QWidget*>> books;
};

bool isEnd(const QString& text)
{
    return QStringList{QStringLiteral("OK"), QStringLiteral("ОК"), QStringLiteral("Отмена"), QStringLiteral("Cancel")}
        .contains(withoutMnemonic(text), Qt::CaseInsensitive);
}

void addButton(QAbstractButton& button, Scope& scope)
{
    const auto* tool = qobject_cast<const QToolButton*>(&button);
    const bool icon = tool && !tool->icon().isNull() && tool->toolButtonStyle() == Qt::ToolButtonIconOnly;
    // A key of its own is not taken away, and a text that is the button's value not changed.
    const bool owns = !button.shortcut().isEmpty() && signIn(button.text()) < 0;
    if (icon || owns || button.property("showsValue").toBool())
        return;
    const bool pressed = !button.isCheckable();
    const Rank rank = button.isHidden() ? NotSeen : isEnd(button.text()) ? End : pressed ? Button : Choice;
    scope.places.push_back({rank, button.text(), [&button](const QString& text) { button.setText(text); }});
}

void addTabs(QTabWidget& tabs, Scope& scope)
{
    std::vector<QWidget*> pages;
    for (int i = 0; i < tabs.count(); ++i) {
        scope.places.push_back({Tab, tabs.tabText(i), [&tabs, i](const QString& text) { tabs.setTabText(i, text); }});
        pages.push_back(tabs.widget(i));
    }
    scope.books.push_back(pages);
}

void addCaption(QLabel& label, Scope& scope)
{
    const QWidget* field = label.buddy();
    if (field && !Qt::mightBeRichText(label.text()) && (field->focusPolicy() != Qt::NoFocus || field->focusProxy()))
        scope.places.push_back({label.isHidden() ? NotSeen : Caption, label.text(),
                                [&label](const QString& text) { label.setText(text); }});
}

// Fields are made of widgets too.
bool isWhole(const QWidget& widget)
{
    return qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QAbstractSpinBox*>(&widget)
        || qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QLineEdit*>(&widget)
        || qobject_cast<const QTabBar*>(&widget) || qobject_cast<const QCalendarWidget*>(&widget);
}

void gather(QWidget& parent, Scope& scope)
{
    for (QObject* child : parent.children()) {
        auto* widget = qobject_cast<QWidget*>(child);
        if (!widget || widget->isWindow() || isWhole(*widget))
            continue;
        if (auto* tabs = qobject_cast<QTabWidget*>(widget)) {
            addTabs(*tabs, scope);
            continue;
        }
        if (auto* stack = qobject_cast<QStackedWidget*>(widget)) {
            std::vector<QWidget*> pages;
            for (int i = 0; i < stack->count(); ++i)
                pages.push_back(stack->widget(i));
            scope.books.push_back(pages);
            continue;
        }
        if (auto* button = qobject_cast<QAbstractButton*>(widget))
            addButton(*button, scope);
        else if (auto* label = qobject_cast<QLabel*>(widget))
            addCaption(*label, scope);
        else if (auto* group = qobject_cast<QGroupBox*>(widget))
            scope.places.push_back({group->isHidden() ? NotSeen : Group, group->title(),
                                    [group](const QString& text) { group->setTitle(text); }});
        gather(*widget, scope);
    }
}

// How well a letter of a caption serves: the first one, the first one of a word, any other.
enum Fitness { First, OfWord, Any };

bool fits(const QString& text, int at, Fitness wanted)
{
    if (!text[at].isLetter() || isSoftSign(text[at]))
        return false;
    const bool begins = at == 0 || !text[at - 1].isLetter();
    if (wanted == First)
        return begins && std::none_of(text.begin(), text.begin() + at, [](QChar c) { return c.isLetter(); });
    return wanted == Any || begins;
}

void giveLetter(Place& place, Fitness wanted, Letters& taken)
{
    for (int i = 0; place.letter.isNull() && i < place.text.size(); ++i) {
        if (!fits(place.text, i, wanted) || taken.contains(lookOf(place.text[i])))
            continue;
        place.letter = lookOf(place.text[i]);
        taken.insert(place.letter);
        place.show(QString(place.text).insert(i, kSign));
    }
}

// Those that have letters keep them, unless two have the same one.
void keepLetters(Scope& scope, Letters& taken)
{
    for (Place& place : scope.places) {
        const QChar letter = mnemonicOf(place.text);
        if (letter.isNull())
            continue;
        if (taken.contains(lookOf(letter))) {
            place.text = withoutMnemonic(place.text);
            place.show(place.text);
            continue;
        }
        place.letter = lookOf(letter);
        taken.insert(place.letter);
    }
}

void giveLetters(Scope& scope, int firstRank, int lastRank, Letters& taken)
{
    for (int rank = firstRank; rank <= lastRank; ++rank)
        for (const Fitness wanted : {First, OfWord, Any})
            for (Place& place : scope.places)
                if (place.rank == rank)
                    giveLetter(place, wanted, taken);
}

// All letters that were given in the widget.
Letters serve(QWidget& parent, Letters taken)
{
    Scope scope;
    gather(parent, scope);
    keepLetters(scope, taken);
    giveLetters(scope, Button, Group, taken);
    Letters all = taken;
    for (const std::vector<QWidget*>& pages : scope.books)
        for (QWidget* page : pages)
            all |= serve(*page, taken);
    giveLetters(scope, NotSeen, End, all);
    return all;
}

} // namespace

QChar mnemonicOf(const QString& caption)
{
    const int sign = signIn(caption);
    return sign < 0 ? QChar() : caption[sign + 1].toUpper();
}

QString withoutMnemonic(const QString& caption)
{
    const int sign = signIn(caption);
    return sign < 0 ? caption : QString(caption).remove(sign, 1);
}

void giveMnemonics(QWidget& form) { serve(form, {}); }

FormMnemonics::FormMnemonics(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

bool FormMnemonics::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && !event->spontaneous()) {
        auto* form = qobject_cast<QDialog*>(watched);
        const bool toolkits = qobject_cast<QFileDialog*>(form) || qobject_cast<QColorDialog*>(form);
        if (form && form->isWindow() && !toolkits)
            giveMnemonics(*form);
    }
    return QObject::eventFilter(watched, event);
}
