#include "main_window.h"

#include "layers_panel.h"

#include <drawing/typed_answers.h>
#include <nrx/application.h>
#include <script/script_runner.h>

#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>

namespace {

constexpr int kMostTries = 50;
constexpr int kTryMilliseconds = 20;

std::unique_ptr<QSettings> openSettings(const QString& profile)
{
    return profile.isEmpty() ? std::make_unique<QSettings>(QStringLiteral("terva"), QStringLiteral("workbench"))
                             : std::make_unique<QSettings>(profile, QSettings::IniFormat);
}

} // namespace

MainWindow::MainWindow(const QString& profile)
    : settings_(openSettings(profile)),
      tabs_(new QTabWidget),
      line_(new CommandLine),
      layers_(new LayersPanel),
      prompts_(*line_, [this] { return currentView(); })
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowTitle(QStringLiteral("Терва"));
    resize(1280, 800);
    tabs_->setObjectName(QStringLiteral("documentTabs"));
    tabs_->setDocumentMode(true);
    tabs_->setTabsClosable(true);
    tabs_->setMovable(true);
    setCentralWidget(tabs_);
    buildDocks();
    buildFileMenu();
    buildViewMenu();
    buildCommandMenus();
    buildStatusBar();
    connectHost();
    setMainWindow(this);
    setPromptBackend(&prompts_);
    if (!restoreGeometry(settings_->value(QStringLiteral("geometry")).toByteArray()))
        setWindowState(Qt::WindowMaximized);
    restoreState(settings_->value(QStringLiteral("state")).toByteArray());
}

MainWindow::~MainWindow()
{
    disconnect(HostEvents::instance(), nullptr, this, nullptr);
    layers_->setDrawing(nullptr);
    // Views look at their drawings to the end; the drawings outlive the window.
    delete tabs_;
    setPromptBackend(nullptr);
    setMainWindow(nullptr);
}

void MainWindow::buildDocks()
{
    const auto addDock = [this](const QString& title, const char* name, QWidget* widget, Qt::DockWidgetArea area) {
        auto* dock = new QDockWidget(title, this);
        dock->setObjectName(QString::fromLatin1(name));
        dock->setWidget(widget);
        addDockWidget(area, dock);
        return dock;
    };
    QDockWidget* line = addDock(QStringLiteral("Командная строка"), "commandDock", line_, Qt::BottomDockWidgetArea);
    QDockWidget* layers = addDock(QStringLiteral("Слои"), "layersDock", layers_, Qt::LeftDockWidgetArea);
    resizeDocks({line}, {170}, Qt::Vertical);
    resizeDocks({layers}, {230}, Qt::Horizontal);
    connect(line_, &CommandLine::entered, this, &MainWindow::runLine);
    connect(line_, &CommandLine::cancelled, this, [this] {
        if (prompts_.isAsking())
            prompts_.cancel();
        else
            setPickfirst({});
    });
}

void MainWindow::buildStatusBar()
{
    coordinates_ = new QLabel;
    coordinates_->setObjectName(QStringLiteral("coordinates"));
    coordinates_->setMinimumWidth(260);
    hint_ = new QLabel(QStringLiteral("Колесо: масштаб, средняя кнопка: сдвиг, Esc: отмена"));
    statusBar()->addWidget(coordinates_);
    statusBar()->addPermanentWidget(hint_);
}

void MainWindow::connectHost()
{
    HostEvents* events = HostEvents::instance();
    connect(events, &HostEvents::documentOpened, this, &MainWindow::addDocument);
    connect(events, &HostEvents::documentActivated, this, &MainWindow::showDocument);
    connect(events, &HostEvents::documentClosing, this, &MainWindow::removeDocument);
    connect(events, &HostEvents::documentSaved, this, &MainWindow::showTitles);
    connect(events, &HostEvents::commandEnded, this, &MainWindow::showTitles);
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
    if (!document->isUntitled())
        QTimer::singleShot(0, this, &MainWindow::closeUntouchedStart);
}

// The empty drawing that the program starts with gives way to the first file.
void MainWindow::closeUntouchedStart()
{
    if (!activeCommand().isEmpty()) {
        QTimer::singleShot(kTryMilliseconds, this, &MainWindow::closeUntouchedStart);
        return;
    }
    Document& first = static_cast<DrawingView*>(tabs_->widget(0))->document();
    if (tabs_->count() == 2 && first.isUntitled() && !first.isModified())
        ncDocManagerPtr()->closeDocument(&first);
}

void MainWindow::connectView(DrawingView* view)
{
    connect(view, &DrawingView::cursorMoved, this, &MainWindow::showCursor);
    connect(view, &DrawingView::pointPicked, &prompts_, &DeskPrompts::takePoint);
    connect(view, &DrawingView::entityPicked, &prompts_, &DeskPrompts::takeEntity);
    connect(view, &DrawingView::entitiesPicked, &prompts_, &DeskPrompts::takeEntities);
    connect(view, &DrawingView::finished, &prompts_, &DeskPrompts::finish);
    connect(view, &DrawingView::cancelled, line_, &CommandLine::cancelled);
    connect(view, &DrawingView::typed, line_, &CommandLine::type);
}

void MainWindow::removeDocument(NcApDocument* document)
{
    layers_->setDrawing(nullptr);
    delete viewOf(document);
}

void MainWindow::showDocument(NcApDocument* document)
{
    if (DrawingView* view = viewOf(document))
        tabs_->setCurrentWidget(view);
    layers_->setDrawing(document ? document->database() : nullptr);
    showTitles();
}

void MainWindow::showTitles()
{
    for (int i = 0; i < tabs_->count(); ++i) {
        const Document& document = static_cast<DrawingView*>(tabs_->widget(i))->document();
        const QString mark = document.isModified() ? QStringLiteral("*") : QString();
        tabs_->setTabText(i, QFileInfo(document.fileName()).fileName() + mark);
        tabs_->setTabToolTip(i, document.fileName());
    }
    const QString name = tabs_->count() ? tabs_->tabText(tabs_->currentIndex()) + QStringLiteral(" — ") : QString();
    setWindowTitle(name + QStringLiteral("Терва"));
}

void MainWindow::showCursor(const NcGePoint3d& world)
{
    NcGePoint3d p = world;
    ncdbWcs2Ucs(world, p);
    coordinates_->setText(QStringLiteral("X ") + QString::number(p.x, 'f', 3) + QStringLiteral("   Y ")
                          + QString::number(p.y, 'f', 3));
}

// --- commands

void MainWindow::runLine(const QString& line)
{
    if (prompts_.take(line))
        return;
    const QStringList words = typedWords(line);
    if (words.isEmpty())
        return;
    prompts_.console().command(line.trimmed());
    const CommandOutcome outcome = runCommandWords(words);
    if (outcome == CommandOutcome::Unknown)
        prompts_.console().line(QStringLiteral("Неизвестная команда: ") + words.first());
    else if (outcome == CommandOutcome::Busy)
        prompts_.console().line(QStringLiteral("Сначала завершите команду, которая выполняется."));
    else if (activeCommand().isEmpty())
        prompts_.console().line(QString());
}

void MainWindow::greet()
{
    prompts_.console().line(QStringLiteral("Терва готова. Проект открывается в меню «Проект», команды стоят в меню или "
                                           "набираются здесь по имени; Esc отменяет, Enter завершает."));
}

void MainWindow::runCommandByName(const QString& name)
{
    pending_ = name;
    pendingTries_ = 0;
    QTimer::singleShot(0, this, &MainWindow::runPending);
}

void MainWindow::runPending()
{
    if (activeCommand().isEmpty()) {
        runLine(std::exchange(pending_, QString()));
    } else if (++pendingTries_ <= kMostTries) {
        prompts_.cancel();
        QTimer::singleShot(kTryMilliseconds, this, &MainWindow::runPending);
    } else {
        prompts_.console().line(QStringLiteral("Сначала завершите команду, которая выполняется."));
    }
}

QString MainWindow::playScript(const QString& path, const QVector<QPair<QString, QString>>& variables,
                               double stepTimeout)
{
    ScriptRunner runner;
    runner.setStepTimeout(stepTimeout);
    runner.setSink([this](const QString& text) { prompts_.console().print(text); });
    for (const auto& variable : variables)
        runner.setVariable(variable.first, variable.second);
    return runner.playFile(path) ? QString() : runner.failure()->toString();
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
        if (!mayClose(static_cast<DrawingView*>(tabs_->widget(i))->document()))
            return;
    settings_->setValue(QStringLiteral("geometry"), saveGeometry());
    settings_->setValue(QStringLiteral("state"), saveState());
    event->accept();
}
