#include "formkit/layout.h"

#include "formkit/tab_order.h"
#include "formkit/unit.h"
#include "formkit/widgets.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QScrollArea>
#include <QSplitter>
#include <algorithm>

namespace formkit {

namespace {

QWidget* fieldIn(const QLayout* layout);

// What is written or chosen in: the widget, or the first such in it. Null for none.
QWidget* fieldOf(QWidget* widget)
{
    if (!widget || qobject_cast<QAbstractButton*>(widget) || qobject_cast<QGroupBox*>(widget)
        || qobject_cast<QTabWidget*>(widget))
        return nullptr;
    return widget->focusPolicy() & Qt::TabFocus ? widget : fieldIn(widget->layout());
}

QWidget* fieldIn(const QLayout* layout)
{
    QWidget* field = nullptr;
    for (int i = 0; layout && !field && i < layout->count(); ++i)
        field =
            layout->itemAt(i)->layout() ? fieldIn(layout->itemAt(i)->layout()) : fieldOf(layout->itemAt(i)->widget());
    return field;
}

// A caption is no value that the form shows; a sign for a key in it would be taken for one.
bool isCaption(const QLabel& label)
{
    return !label.buddy() && !label.text().isEmpty() && !label.text().contains(QLatin1Char('&'))
        && !(label.textInteractionFlags() & Qt::TextSelectableByMouse);
}

// Keys and readers of the screen go by it from the caption to the field.
void lead(QLabel* caption, QWidget* field)
{
    if (!caption || !field)
        return;
    caption->setBuddy(field);
    takeUnitFrom(caption->text(), field);
}

} // namespace

Item::Item(const QString& caption) : widget_(label(caption)) { }

void Item::nameBy(const Item& before) const
{
    auto* caption = qobject_cast<QLabel*>(before.widget_);
    if (caption && isCaption(*caption))
        lead(caption, widget_ ? fieldOf(widget_) : fieldIn(layout_));
}

void Item::putInto(QBoxLayout& layout) const
{
    if (widget_)
        layout.addWidget(widget_, share_);
    else if (layout_)
        layout.addLayout(layout_, share_);
    else
        layout.addStretch(share_);
}

void Item::putInto(QGridLayout& layout, int row, int column) const
{
    if (share_ > 0)
        layout.setColumnStretch(column, share_);
    if (widget_)
        layout.addWidget(widget_, row, column, 1, columns_);
    else if (layout_)
        layout.addLayout(layout_, row, column, 1, columns_);
}

void Item::putInto(QFormLayout& layout, const QString& caption) const
{
    // A null caption takes the whole line, an empty one keeps the field in its column.
    if (widget_)
        caption.isNull() ? layout.addRow(widget_) : layout.addRow(caption, widget_);
    else if (layout_)
        caption.isNull() ? layout.addRow(layout_) : layout.addRow(caption, layout_);
    if (caption.isEmpty() || caption.contains(QLatin1Char('&')))
        return;
    if (widget_)
        lead(qobject_cast<QLabel*>(layout.labelForField(widget_)), fieldOf(widget_));
    else if (layout_)
        lead(qobject_cast<QLabel*>(layout.labelForField(layout_)), fieldIn(layout_));
}

QWidget* Item::asWidget() const { return widget_ || !layout_ ? widget_ : Inside(new QWidget).put(layout_); }

Item stretch() { return growing(nothing()); }

Item nothing() { return {}; }

Item growing(Item item, int share)
{
    item.share_ = share;
    return item;
}

Item wide(int columns, Item item)
{
    item.columns_ = columns;
    return item;
}

namespace {

template <class Items>
void nameFields(const Items& items)
{
    const Item* before = nullptr;
    for (const Item& item : items) {
        if (before)
            item.nameBy(*before);
        before = &item;
    }
}

template <class Items>
QBoxLayout* fillBox(QBoxLayout* layout, const Items& items)
{
    for (const Item& item : items)
        item.putInto(*layout);
    nameFields(items);
    return layout;
}

} // namespace

QBoxLayout* row(std::initializer_list<Item> items) { return fillBox(new QHBoxLayout, items); }

QBoxLayout* column(std::initializer_list<Item> items) { return fillBox(new QVBoxLayout, items); }

QBoxLayout* column(const std::vector<Item>& items) { return fillBox(new QVBoxLayout, items); }

QGridLayout* grid(const std::vector<Cells>& rows)
{
    auto* layout = new QGridLayout;
    int row = 0;
    for (const Cells& cells : rows) {
        int column = 0;
        for (const Item& item : cells) {
            item.putInto(*layout, row, column);
            column += item.columns();
        }
        nameFields(cells);
        ++row;
    }
    return layout;
}

QFormLayout* lines(std::initializer_list<Line> lines)
{
    auto* layout = new QFormLayout;
    for (const Line& line : lines)
        line.item.putInto(*layout, line.caption);
    return layout;
}

namespace {

using Stops = std::vector<QWidget*>;

void gather(const QWidget& widget, Stops& stops);

// What is laid out, row by row; a cell that is wide is met once.
void gather(const QLayout& layout, Stops& stops)
{
    std::vector<QLayoutItem*> items;
    const auto* grid = qobject_cast<const QGridLayout*>(&layout);
    for (int row = 0; grid && row < grid->rowCount(); ++row)
        for (int column = 0; column < grid->columnCount(); ++column)
            if (QLayoutItem* item = grid->itemAtPosition(row, column);
                item && std::find(items.begin(), items.end(), item) == items.end())
                items.push_back(item);
    for (int i = 0; !grid && i < layout.count(); ++i)
        items.push_back(layout.itemAt(i));
    for (QLayoutItem* item : items) {
        if (item->layout())
            gather(*item->layout(), stops);
        if (!item->widget())
            continue;
        stops.push_back(item->widget());
        gather(*item->widget(), stops);
    }
}

// What a widget shows inside of itself.
void gather(const QWidget& widget, Stops& stops)
{
    const auto* tabs = qobject_cast<const QTabWidget*>(&widget);
    const auto* splitter = qobject_cast<const QSplitter*>(&widget);
    const auto* scrolled = qobject_cast<const QScrollArea*>(&widget);
    for (int i = 0; tabs && i < tabs->count(); ++i)
        gather(*tabs->widget(i), stops);
    for (int i = 0; splitter && i < splitter->count(); ++i) {
        stops.push_back(splitter->widget(i));
        gather(*splitter->widget(i), stops);
    }
    if (scrolled && scrolled->widget())
        gather(*scrolled->widget(), stops);
    if (!tabs && !splitter && !scrolled && widget.layout())
        gather(*widget.layout(), stops);
}

} // namespace

void orderTabs(const QWidget& form)
{
    Stops stops;
    gather(form, stops);
    QWidget* last = nullptr;
    for (QWidget* stop : stops) {
        if (stop->focusPolicy() == Qt::NoFocus && !stop->focusProxy())
            continue;
        if (last)
            QWidget::setTabOrder(last, stop);
        last = stop;
    }
}

QWidget* Inside::put(QLayout* layout)
{
    widget_->setLayout(layout);
    orderTabs(*widget_);
    return widget_;
}

Inside layOut(QWidget* form) { return Inside(form); }

Inside group(const QString& title) { return Inside(new QGroupBox(title)); }

QWidget* pane(QLayout* content)
{
    content->setContentsMargins(0, 0, 0, 0);
    return Inside(new QWidget).put(content);
}

Tabs tabs(const QString& name) { return Tabs(named<QTabWidget>(name)); }

QTabWidget* Tabs::pages(std::initializer_list<Page> pages)
{
    for (const Page& page : pages)
        widget_->addTab(page.content.asWidget(), page.title);
    return widget_;
}

} // namespace formkit
