#include "main_window.h"

#include "busy_box.h"
#include "command_menus.h"
#include "desk_icons.h"
#include "desk_state.h"
#include "drawing_keeper.h"
#include "edit_dialogs.h"
#include "form_mnemonics.h"
#include "form_places.h"
#include "layers_page.h"
#include "properties_panel.h"

#include <drawing/editor_reactors.h>
#include <nrx/application.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QScreen>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTimer>

namespace {

constexpr int kTryMilliseconds = 20;
constexpr int kFirstKeepMilliseconds = 60 * 1000;
const QString kHistoryKey = QStringLiteral("history");

std::unique_ptr<QSettings> openSettings(const QString& profile)
{
    return profile.isEmpty() ? std::make_unique<QSettings>(QStringLiteral("terva"), QStringLiteral("workbench"))
                             : std::make_unique<QSettings>(profile, QSettings::IniFormat);
}

// Beside the settings of a profile, else where programs keep their data.
QString copiesFolder(const QString& profile)
{
    return profile.isEmpty()
        ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/terva/unsaved")
        : profile + QStringLiteral(".unsaved");
}

} // namespace

MainWindow::MainWindow(const QString& profile)
    : settings_(openSettings(profile)),
      tabs_(new QTabWidget),
      line_(new CommandLine),
      layers_(new LayersPage),
      prompts_(*line_, [this] { return currentView(); }),
      keeper_(std::make_unique<DrawingKeeper>(copiesFolder(profile)))
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowTitle(QStringLiteral("Терва"));
    QApplication::setWindowIcon(deskIcon(QStringLiteral("terva")));
    resize(1280, 800);
    tabs_->setObjectName(QStringLiteral("documentTabs"));
    tabs_->setDocumentMode(true);
    tabs_->setTabsClosable(true);
    tabs_->setMovable(true);
    setCentralWidget(tabs_);
    setAcceptDrops(true);
    menus_ = new CommandMenus(*this, [this](const QString& command) { runCommandByName(command); });
    buildDocks();
    buildFileMenu();
    buildViewMenu();
    buildHelpMenu();
    buildCommandMenus();
    buildStatusBar();
    registerDeskCommands();
    connectHost();
    showDesk();
    setMainWindow(this);
    setPromptBackend(&prompts_);
    setWorkBox([this](const QString& title) { return std::make_shared<BusyBox>(this, title); });
    line_->setHistory(settings_->value(kHistoryKey).toStringList());
    qApp->installEventFilter(this);
    new FormPlaces(*settings_, this);
    new FormMnemonics(this);
    if (!restoreGeometry(settings_->value(QStringLiteral("geometry")).toByteArray()))
        setWindowState(Qt::WindowMaximized);
    else if (!isMaximized() && !isFullScreen())
        setGeometry(placeWithin(geometry(), screen()->availableGeometry())); // another screen than that day
    restoreState(settings_->value(QStringLiteral("state")).toByteArray());
    keepTimer_.setSingleShot(true);
    connect(&keepTimer_, &QTimer::timeout, this, &MainWindow::keepCopies);
    keepTimer_.start(qMin(kFirstKeepMilliseconds, keepMilliseconds()));
}

MainWindow::~MainWindow()
{
    qApp->removeEventFilter(this);
    disconnect(HostEvents::instance(), nullptr, this, nullptr);
    showInPanels(nullptr);
    // Views look at their drawings to the end; the drawings outlive the window.
    delete tabs_;
    setPromptBackend(nullptr);
    setWorkBox({});
    setMainWindow(nullptr);
}

void MainWindow::connectHost()
{
    HostEvents* events = HostEvents::instance();
    connect(events, &HostEvents::documentOpened, this, &MainWindow::addDocument);
    connect(events, &HostEvents::documentActivated, this, &MainWindow::showDocument);
    connect(events, &HostEvents::documentClosing, this, &MainWindow::removeDocument);
    connect(events, &HostEvents::documentSaved, this, &MainWindow::noteSaved);
    connect(events, &HostEvents::commandStarted, this, [this](const QString& command) {
        if (command != QLatin1String("SCREENSHOT")) // it shows what stands in front
            leaveStartPage();
    });
    connect(events, &HostEvents::commandEnded, this, &MainWindow::showDesk);
    connect(menus_, &CommandMenus::aboutToShow, this, &MainWindow::showDesk);
    connect(events, &HostEvents::commandsChanged, this, &MainWindow::buildCommandMenus);
    connect(tabs_, &QTabWidget::tabCloseRequested, this, &MainWindow::closeTab);
    connect(tabs_, &QTabWidget::currentChanged, this, [this] {
        if (DrawingView* view = currentView())
            ncDocManagerPtr()->activateDocument(&view->document());
    });
    for (int i = 0; i < ncDocManagerPtr()->documentCount(); ++i)
        addDocument(ncDocManagerPtr()->document(i));
    showDocument(ncDocManagerPtr()->curDocument());
}

// --- documents

DrawingView* MainWindow::currentView() const { return qobject_cast<DrawingView*>(tabs_->currentWidget()); }

DrawingView* MainWindow::viewOf(NcApDocument* document) const
{
    for (int i = 0; i < tabs_->count(); ++i) {
        auto* view = qobject_cast<DrawingView*>(tabs_->widget(i));
        if (view && &view->document() == document)
            return view;
    }
    return nullptr;
}

void MainWindow::addDocument(NcApDocument* opened)
{
    auto* document = dynamic_cast<Document*>(opened);
    if (!document || viewOf(document))
        return;
    auto* view = new DrawingView(*document);
    view->setLightGround(lightGround_->isChecked());
    connectView(view);
    tabs_->addTab(view, QFileInfo(document->fileName()).fileName());
    showTitles();
    if (!document->isUntitled()) {
        keeper_->lock(document->fileName());
        QTimer::singleShot(0, this, &MainWindow::closeUntouchedStart);
    }
}

void MainWindow::noteSaved(NcApDocument* saved)
{
    if (auto* document = dynamic_cast<Document*>(saved)) {
        keeper_->lock(document->fileName());
        keeper_->forget(*document);
        if (DrawingView* view = viewOf(document))
            view->setDrawn(false);
        // A command may make its drawing first and give it its file then.
        QTimer::singleShot(0, this, &MainWindow::closeUntouchedStart);
    }
    showTitles();
}

// The empty drawing that the program starts with gives way to the first file.
void MainWindow::closeUntouchedStart()
{
    if (!activeCommand().isEmpty()) {
        QTimer::singleShot(kTryMilliseconds, this, &MainWindow::closeUntouchedStart);
        return;
    }
    auto* first = dynamic_cast<Document*>(ncDocManagerPtr()->document(0));
    if (ncDocManagerPtr()->documentCount() == 2 && first->isUntitled() && !first->isModified())
        ncDocManagerPtr()->closeDocument(first);
}

void MainWindow::connectView(DrawingView* view)
{
    connect(view, &DrawingView::cursorMoved, this, &MainWindow::showCursor);
    connect(view, &DrawingView::pointPicked, &prompts_, &DeskPrompts::takePoint);
    connect(view, &DrawingView::entityPicked, &prompts_, &DeskPrompts::takeEntity);
    connect(view, &DrawingView::entitiesPicked, &prompts_, &DeskPrompts::takeEntities);
    connect(view, &DrawingView::finished, this, &MainWindow::finishOrRepeat);
    connect(view, &DrawingView::editRequested, this, [this](NcDbObjectId id) {
        if (activeCommand().isEmpty() && !notifyDoubleClick(id))
            editEntity(id, this);
    });
    connect(view, &DrawingView::cancelled, line_, &CommandLine::cancelled);
    connect(view, &DrawingView::typed, line_, &CommandLine::type);
}

void MainWindow::removeDocument(NcApDocument* document)
{
    if (document == shown_)
        showInPanels(nullptr);
    if (const auto* closing = dynamic_cast<Document*>(document)) {
        keepUnsaved(*closing);
        keeper_->forget(*closing);
        keeper_->unlock(closing->fileName());
    }
    delete viewOf(document);
}

void MainWindow::showInPanels(NcApDocument* document)
{
    shown_ = document;
    layers_->setDrawing(document ? document->database() : nullptr);
    properties_->setDrawing(dynamic_cast<Document*>(document));
}

void MainWindow::showDocument(NcApDocument* document)
{
    if (DrawingView* view = viewOf(document))
        tabs_->setCurrentWidget(view);
    showInPanels(document);
    showTitles();
}

void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    line_->takeFocus();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    prompts_.cancel();
    event->ignore();
    if (!activeCommand().isEmpty()) {
        QTimer::singleShot(kTryMilliseconds, this, &QWidget::close);
        return;
    }
    for (int i = 0; i < tabs_->count(); ++i)
        if (auto* view = qobject_cast<DrawingView*>(tabs_->widget(i)); view && !mayClose(view->document()))
            return;
    notePalettes();
    settings_->setValue(kHistoryKey, line_->history());
    settings_->setValue(QStringLiteral("geometry"), saveGeometry());
    settings_->setValue(QStringLiteral("state"), saveState());
    event->accept();
}
