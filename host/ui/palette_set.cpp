// Palette sets: docks of the main window, or windows of their own without one.
#include "ui/palette_watch.h"

#include <drawing/application.h>
#include <nrx/application.h>

#include <QDockWidget>
#include <QEvent>
#include <QGuiApplication>
#include <QMainWindow>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QTabWidget>
#include <algorithm>
#include <utility>

namespace {

// On a small screen a page is scrolled; where there is room it is as wide as its form asks, also when the form
// comes later.
class PageArea : public QScrollArea {
public:
    explicit PageArea(QWidget* page)
    {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setWidget(page);
    }
    QSize minimumSizeHint() const override
    {
        constexpr int widest = 460;
        const QScreen* screen = QGuiApplication::primaryScreen();
        const int room = screen ? std::min(widest, screen->availableSize().width() * 3 / 5) : widest;
        const QSize usual = QScrollArea::minimumSizeHint();
        return {std::max(usual.width(), std::min(room, widget()->minimumSizeHint().width())), usual.height()};
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest)
            updateGeometry();
        return QScrollArea::eventFilter(watched, event);
    }
};

} // namespace

struct hostUiPaletteSet::Data {
    QPointer<QDockWidget> dock;
    QTabWidget* tabs = nullptr;
    bool shown = false, restored = false;
    std::vector<std::unique_ptr<hostQtPalette>> pages;

    ~Data() { destroyWindow(); }

    void destroyWindow()
    {
        pages.clear();
        delete dock;
    }

    void add(hostQtPalette* page)
    {
        tabs->addTab(new PageArea(page->widget_), page->title_);
        pages.emplace_back(page);
    }

    void show(bool visible)
    {
        // A window of its own opens as large as its forms ask, within reason.
        if (visible && !shown && dock->isWindow())
            dock->resize(dock->size().expandedTo(dock->sizeHint()).expandedTo({270, 300}).boundedTo({900, 800}));
        if (visible && !shown && !restored)
            joinSide();
        dock->setVisible(visible);
        if (visible && !shown && !restored)
            takeWidth();
        shown = shown || visible;
        if (visible)
            dock->raise();
    }

    // A tab beside what stands on its side already: one below the other they would have half of the height each.
    void joinSide()
    {
        auto* main = qobject_cast<QMainWindow*>(dock->parentWidget());
        if (!main || dock->isFloating())
            return;
        const Qt::DockWidgetArea side = main->dockWidgetArea(dock);
        QDockWidget* beside = nullptr; // one in sight rather than one that is closed
        for (QDockWidget* other : main->findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            const bool there = other != dock && !other->isFloating() && main->dockWidgetArea(other) == side;
            if (there && (!beside || !other->isHidden()))
                beside = other;
        }
        if (beside)
            main->tabifyDockWidget(beside, dock);
    }

    // Behind another one's tab it lies outside of the window.
    bool isBehind() const
    {
        const auto* main = qobject_cast<const QMainWindow*>(dock->parentWidget());
        return main && main->isVisible() && !dock->isFloating() && !main->tabifiedDockWidgets(dock).isEmpty()
            && dock->geometry().right() < 0;
    }

    // Wide enough for its forms, but never so wide that the drawing is squeezed.
    void takeWidth()
    {
        auto* main = qobject_cast<QMainWindow*>(dock->parentWidget());
        if (!main || dock->isFloating())
            return;
        const int most = std::max(280, main->width() * 2 / 5);
        main->resizeDocks({dock.data()}, {qBound(280, tabs->sizeHint().width(), most)}, Qt::Horizontal);
    }

    // The main window took its docks along: the pages' widgets are gone.
    void forgetWidgets()
    {
        for (const auto& page : pages)
            page->widget_ = nullptr;
    }
};

namespace {

PaletteWatch watch;

// The parts of a call, joined by blanks.
template <class... Parts>
void heard(const char* call, const Parts&... parts)
{
    if (!watch)
        return;
    QString text = QString::fromLatin1(call);
    (text.append(QStringLiteral(" %1").arg(parts)), ...);
    watch(text);
}

QString hex(unsigned style) { return QStringLiteral("0x") + QString::number(style, 16); }

bool alive(const hostUiPaletteSet* set) { return set && set->data_ && set->data_->dock; }

QMainWindow* mainWindowOf(QWidget* parent) { return qobject_cast<QMainWindow*>(parent ? parent : ndsw_ncadMainWnd()); }

} // namespace

void setPaletteWatch(PaletteWatch wanted) { watch = std::move(wanted); }

QWinWidget::QWinWidget(QWidget* hostWindow) : QWidget(hostWindow) { hide(); }

// A child without a size of its own: a form over it stands in the middle of the
// window that it lies in.
void QWinWidget::showCentered()
{
    if (const QWidget* host = parentWidget())
        setGeometry(QRect(host->rect().center(), QSize(0, 0)));
}

hostQtPalette::~hostQtPalette() { delete widget_; }

QWidget* hostQtPalette::paletteWidget() const { return widget_; }

hostUiPaletteSet::hostUiPaletteSet() = default;

hostUiPaletteSet::~hostUiPaletteSet() = default;

QWidget* hostUiPaletteSet::window() const { return data_ ? data_->dock.data() : nullptr; }

bool hostUiPaletteSet_Create(hostUiPaletteSet* set, const QString& title, unsigned windowStyle, const QRect& rectangle,
                             QWidget* parent, unsigned paletteStyle)
{
    heard("create", title, hex(windowStyle), rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height(),
          parent ? "parent" : "no parent", paletteStyle);
    if (!set || set->data_)
        return false;
    set->data_ = std::make_unique<hostUiPaletteSet::Data>();
    auto* dock = new QDockWidget(title);
    dock->setObjectName(title);
    // By which a window that is opened anew asks for the palette again.
    dock->setProperty("paletteCommand", activeCommand());
    dock->hide();
    auto* tabs = new QTabWidget(dock);
    tabs->setObjectName("Pages"); // for scripts
    tabs->setDocumentMode(true);
    dock->setWidget(tabs);
    set->data_->dock = dock;
    set->data_->tabs = tabs;
    hostUiPaletteSet::Data* data = set->data_.get();
    QObject::connect(dock, &QObject::destroyed, [data] { data->forgetWidgets(); });
    // Once it has a place in the window, the one that the user left it in is not found any more.
    QMainWindow* main = mainWindowOf(parent);
    data->restored = main && main->restoreDockWidget(dock);
    if (main && !data->restored)
        main->addDockWidget(Qt::RightDockWidgetArea, dock);
    if (!main)
        dock->setGeometry(rectangle);
    dock->hide();
    return true;
}

void hostUiPaletteSet_EnableDocking(hostUiPaletteSet* set, unsigned sides)
{
    heard("dock", sides);
    if (alive(set))
        set->data_->dock->setAllowedAreas(sides == kDockAnySide ? Qt::AllDockWidgetAreas : Qt::NoDockWidgetArea);
}

void hostUiPaletteSet_RestoreControlBar(hostUiPaletteSet* set, unsigned dockBar)
{
    Q_UNUSED(set) // it stands there since it was made
    heard("restore", dockBar);
}

bool hostQtPalette_Create(hostQtPalette* palette, unsigned style, const QString& title)
{
    heard("page", title, hex(style));
    if (!palette || palette->widget_)
        return false;
    palette->title_ = title;
    palette->widget_ = new QWidget;
    palette->widget_->setObjectName(title);
    return true;
}

int hostUiPaletteSet_AddPalette(hostUiPaletteSet* set, hostQtPalette* palette)
{
    heard("add");
    if (!alive(set) || !palette || !palette->paletteWidget())
        return -1;
    set->data_->add(palette);
    return int(set->data_->pages.size()) - 1;
}

hostQtPalette* hostUiPaletteSet_GetPalette(const hostUiPaletteSet* set, int index)
{
    return set && set->data_ && index >= 0 && index < int(set->data_->pages.size())
        ? set->data_->pages[size_t(index)].get()
        : nullptr;
}

int hostUiPaletteSet_GetPaletteCount(const hostUiPaletteSet* set)
{
    return set && set->data_ ? int(set->data_->pages.size()) : 0;
}

QWidget* hostQtPalette_paletteWidget(hostQtPalette* palette) { return palette ? palette->paletteWidget() : nullptr; }

bool hostUiPaletteSet_SetActivePalette(hostUiPaletteSet* set, int index)
{
    heard("activate", index);
    if (!alive(set) || index < 0 || index >= set->data_->tabs->count())
        return false;
    set->data_->tabs->setCurrentIndex(index);
    return true;
}

void hostUiPaletteSet_Show(hostUiPaletteSet* set, bool visible)
{
    heard("show", visible ? "on" : "off");
    if (!alive(set))
        return;
    set->data_->show(visible);
}

bool IsWindowVisible(const hostUiPaletteSet* set)
{
    return alive(set) && !set->data_->dock->isHidden() && !set->data_->isBehind();
}

QRect hostUiPaletteSet_GetClientRect(const hostUiPaletteSet* set)
{
    heard("client rectangle");
    return alive(set) ? QRect(QPoint(0, 0), set->data_->tabs->size()) : QRect();
}

void hostUiPaletteSet_DestroyWindow(hostUiPaletteSet* set)
{
    if (set)
        set->data_.reset();
}
