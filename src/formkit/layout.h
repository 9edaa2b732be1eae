#pragma once
// Layouts as nested lists, so that the code of a form reads as the form looks; a
// caption is the buddy of the field behind it:
//
//   layOut(this).column({
//       group("Граница:").grid({
//           {"Со слоя", growing(layer_ = combo("BoundLayer"))},
//           {wide(2, calculate_ = check("Calculate", "Вычислять"))},
//       }),
//       stretch(),
//       row({status_ = note("StatusLabel"), stretch(), endButtons(this, {ok(), cancel()})}),
//   });

#include <QBoxLayout>
#include <QFormLayout>
#include <QGridLayout>
#include <QTabWidget>
#include <initializer_list>
#include <vector>

namespace formkit {

/// What stands at one place of a layout. A text is a caption.
class Item {
public:
    Item(QWidget* widget) : widget_(widget) { }
    Item(QLayout* layout) : layout_(layout) { }
    Item(const QString& caption);
    Item(const char* caption) : Item(QString::fromUtf8(caption)) { }

    void putInto(QBoxLayout& layout) const;
    void putInto(QGridLayout& layout, int row, int column) const;
    void putInto(QFormLayout& layout, const QString& caption) const;
    /// As one widget; a layout gets one of its own, with the usual margins.
    QWidget* asWidget() const;
    int columns() const { return columns_; }
    /// Makes the field of this item, its first one, what the caption before it leads to.
    void nameBy(const Item& before) const;

private:
    friend Item stretch();
    friend Item growing(Item item, int share);
    friend Item wide(int columns, Item item);
    friend Item nothing();
    Item() = default;

    QWidget* widget_ = nullptr; // neither: room alone
    QLayout* layout_ = nullptr;
    int share_ = 0;   // of the room that is left over
    int columns_ = 1; // of a grid
};

Item stretch();                         ///< takes the room that is left
Item growing(Item item, int share = 1); ///< takes its share of the room that is left
Item wide(int columns, Item item);      ///< over several columns of a grid
Item nothing();                         ///< an empty cell

QBoxLayout* row(std::initializer_list<Item> items);
QBoxLayout* column(std::initializer_list<Item> items);
QBoxLayout* column(const std::vector<Item>& items); ///< as many as data has

using Cells = std::vector<Item>;
/// Rows of cells from the top. A column that holds a growing cell takes its share.
QGridLayout* grid(const std::vector<Cells>& rows);

/// A field with its caption before it; without one it takes the whole line.
struct Line {
    Line(const QString& caption, Item item) : caption(caption), item(item) { }
    Line(const char* caption, Item item) : Line(QString::fromUtf8(caption), item) { }
    Line(Item item) : item(item) { }
    QString caption;
    Item item;
};
QFormLayout* lines(std::initializer_list<Line> lines);

/// A widget that waits for its layout; each call returns the widget.
class Inside {
public:
    explicit Inside(QWidget* widget) : widget_(widget) { }
    QWidget* row(std::initializer_list<Item> items) { return put(formkit::row(items)); }
    QWidget* column(std::initializer_list<Item> items) { return put(formkit::column(items)); }
    QWidget* column(const std::vector<Item>& items) { return put(formkit::column(items)); }
    QWidget* grid(const std::vector<Cells>& rows) { return put(formkit::grid(rows)); }
    QWidget* lines(std::initializer_list<Line> items) { return put(formkit::lines(items)); }
    QWidget* put(QLayout* layout);

private:
    QWidget* widget_;
};

Inside layOut(QWidget* form);       ///< the whole form
Inside group(const QString& title); ///< a box with a title
QWidget* pane(QLayout* content);    ///< a widget around a layout, without margins of its own

struct Page {
    Page(const QString& title, Item content) : title(title), content(content) { }
    Page(const char* title, Item content) : Page(QString::fromUtf8(title), content) { }
    QString title;
    Item content;
};
class Tabs {
public:
    explicit Tabs(QTabWidget* widget) : widget_(widget) { }
    QTabWidget* pages(std::initializer_list<Page> pages);

private:
    QTabWidget* widget_;
};
Tabs tabs(const QString& name);

} // namespace formkit
