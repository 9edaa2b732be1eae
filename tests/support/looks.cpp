#include "support/looks.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QValidator>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// What the frame of a window takes; beside a desktop's panel a form may have to
// scroll, which the window sees to.
constexpr int kFrame = 40;
constexpr int kCaptionMargin = 6;

QString nameOf(const QWidget& widget)
{
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    const auto* caption = qobject_cast<const QLabel*>(&widget);
    const QString text = button ? button->text() : caption ? caption->text().left(40) : QString();
    return QString::fromLatin1(widget.metaObject()->className()) + ' ' + widget.objectName() + " \"" + text + '"';
}

template <class Kind>
bool isWithin(const QWidget& widget)
{
    for (const QWidget* above = widget.parentWidget(); above; above = above->parentWidget())
        if (qobject_cast<const Kind*>(above))
            return true;
    return false;
}

// Parts that other widgets are made of, and what scrolls.
bool isPart(const QWidget& widget)
{
    return isWithin<QAbstractItemView>(widget) || isWithin<QTabBar>(widget) || isWithin<QComboBox>(widget)
        || isWithin<QAbstractSpinBox>(widget) || isWithin<QLineEdit>(widget);
}

// What only scrolls others is as large as all of them.
bool isFrame(const QWidget& widget) { return qobject_cast<const QScrollArea*>(&widget) != nullptr; }

bool showsText(const QWidget& widget)
{
    const auto* caption = qobject_cast<const QLabel*>(&widget);
    if (caption)
        return !caption->wordWrap() && caption->textFormat() != Qt::RichText && !caption->text().isEmpty();
    const auto* tool = qobject_cast<const QToolButton*>(&widget);
    return qobject_cast<const QPushButton*>(&widget) || qobject_cast<const QCheckBox*>(&widget)
        || qobject_cast<const QRadioButton*>(&widget) || (tool && tool->icon().isNull());
}

// A style gives a button more than its caption needs; "..." stands in less.
QSize roomWanted(const QWidget& widget)
{
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    QSize wanted = widget.minimumSizeHint();
    if (button && !qobject_cast<const QCheckBox*>(button) && !qobject_cast<const QRadioButton*>(button)) {
        const QString text = QString(button->text()).remove('&');
        const int icon = button->icon().isNull() ? 0 : button->iconSize().width() + kCaptionMargin;
        wanted.setWidth(button->fontMetrics().horizontalAdvance(text) + icon + kCaptionMargin);
    }
    return wanted;
}

bool isLookedAt(const QWidget& widget)
{
    return widget.isVisible() && !isPart(widget)
        && (showsText(widget) || qobject_cast<const QAbstractButton*>(&widget)
            || qobject_cast<const QAbstractSpinBox*>(&widget) || qobject_cast<const QComboBox*>(&widget)
            || qobject_cast<const QLineEdit*>(&widget));
}

QRect placeIn(const QWidget& form, const QWidget& widget)
{
    return QRect(widget.mapTo(const_cast<QWidget*>(&form), QPoint()), widget.size());
}

// The outermost area of the form in which the widget is scrolled.
const QScrollArea* areaAround(const QWidget& form, const QWidget& widget)
{
    const QScrollArea* found = nullptr;
    for (const QWidget* above = widget.parentWidget(); above && above != &form; above = above->parentWidget())
        if (const auto* area = qobject_cast<const QScrollArea*>(above))
            found = area;
    return found;
}

// --- units

// A line that takes numbers and no letters.
bool takesNumbersAlone(const QLineEdit& line)
{
    QString number = QStringLiteral("-1.5"), letter = QStringLiteral("a");
    int place = 0;
    return line.validator() && line.validator()->validate(number, place) == QValidator::Acceptable
        && line.validator()->validate(letter, place) == QValidator::Invalid;
}

bool isNumberField(const QWidget& widget)
{
    const auto* line = qobject_cast<const QLineEdit*>(&widget);
    return (line && takesNumbersAlone(*line))
        || (qobject_cast<const QAbstractSpinBox*>(&widget) && !qobject_cast<const QDateTimeEdit*>(&widget));
}

// --- reading order

struct Stop {
    QRect place;
    QString name;
};
using Stops = std::vector<Stop>;

// Whether a line through the form parts the first so many stops from the others.
bool isParted(const Stops& stops, size_t first)
{
    const auto edge = [&](size_t from, size_t to, auto value, bool greatest) {
        int found = value(stops[from].place);
        for (size_t i = from; i < to; ++i)
            found = greatest ? std::max(found, value(stops[i].place)) : std::min(found, value(stops[i].place));
        return found;
    };
    const auto top = [](const QRect& rect) { return rect.top(); };
    const auto bottom = [](const QRect& rect) { return rect.bottom(); };
    const auto left = [](const QRect& rect) { return rect.left(); };
    const auto right = [](const QRect& rect) { return rect.right(); };
    return edge(0, first, bottom, true) < edge(first, stops.size(), top, false)
        || edge(0, first, right, true) < edge(first, stops.size(), left, false);
}

void check(const Stops& stops, QStringList& faults)
{
    if (stops.size() < 2)
        return;
    for (size_t first = 1; first < stops.size(); ++first)
        if (isParted(stops, first)) {
            const auto middle = stops.begin() + std::ptrdiff_t(first);
            check(Stops(stops.begin(), middle), faults);
            check(Stops(middle, stops.end()), faults);
            return;
        }
    QStringList names;
    for (const Stop& stop : stops)
        names << stop.name;
    faults << names.join(QStringLiteral(", "));
}

} // namespace

QStringList cutOff(const QWidget& form)
{
    QStringList cut;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        // One that takes any width shows what may be long, a path or a name.
        if (!isLookedAt(*widget) || widget->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
            continue;
        const QSize wanted = roomWanted(*widget);
        if (showsText(*widget) && (widget->width() < wanted.width() || widget->height() < wanted.height()))
            cut << nameOf(*widget)
                    + QStringLiteral(" is %1x%2 and wants %3x%4")
                          .arg(widget->width())
                          .arg(widget->height())
                          .arg(wanted.width())
                          .arg(wanted.height());
        else if (!isWithin<QAbstractScrollArea>(*widget) && !form.rect().contains(placeIn(form, *widget)))
            cut << nameOf(*widget) + QStringLiteral(" stands outside of the form");
    }
    return cut;
}

QString tooLarge(const QWidget& form)
{
    const double scale = form.devicePixelRatioF();
    const QSize screen = scale < 1.25 ? QSize(1366, 768) : scale < 1.75 ? QSize(1920, 1080) : QSize(2560, 1440);
    const QSize room = QSize(int(screen.width() / scale), int(screen.height() / scale) - kFrame);
    const QSize least = form.minimumSizeHint().expandedTo(form.minimumSize());
    if (least.width() <= room.width() && least.height() <= room.height())
        return {};
    return QStringLiteral("needs %1x%2, has %3x%4")
        .arg(least.width())
        .arg(least.height())
        .arg(room.width())
        .arg(room.height());
}

QStringList unitFaults(const QWidget& form)
{
    QStringList faults;
    for (const QWidget* widget : form.findChildren<QWidget*>())
        if (isNumberField(*widget) && !isPart(*widget) && !widget->property("unit").isValid())
            faults << nameOf(*widget);
    return faults;
}

QList<QWidget*> tabStops(const QWidget& form)
{
    QList<QWidget*> stops;
    for (QWidget* widget = form.nextInFocusChain(); widget && widget != &form; widget = widget->nextInFocusChain())
        if (form.isAncestorOf(widget) && (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget->isVisible()
            && widget->isEnabledTo(&form) && !widget->focusProxy() && !isPart(*widget) && !isFrame(*widget))
            stops << widget;
    return stops;
}

QStringList tabFaults(const QWidget& form)
{
    QStringList faults;
    Stops stops, scrolled;
    const QScrollArea* area = nullptr; // in which the last stop lies: it counts as one
    for (const QWidget* widget : tabStops(form)) {
        const QScrollArea* around = areaAround(form, *widget);
        if (around && around != area)
            stops.push_back({placeIn(form, *around), nameOf(*widget)});
        if (around != area)
            check(std::exchange(scrolled, {}), faults);
        (around ? scrolled : stops).push_back({placeIn(form, *widget), nameOf(*widget)});
        area = around;
    }
    check(scrolled, faults);
    check(stops, faults);
    return faults;
}
