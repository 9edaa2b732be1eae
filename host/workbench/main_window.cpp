#include "main_window.h"

#include "edit_dialogs.h"
#include "layers_panel.h"

#include <drawing/editor_reactors.h>
#include <drawing/typed_answers.h>
#include <nrx/application.h>
#include <script/script_runner.h>

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int kMostTries = 50;
constexpr int kTryMilliseconds = 20;
const QString kHistoryKey = QStringLiteral("history");

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
    buildEditMenu();
    buildDrawMenu();
    buildViewMenu();
    buildCommandMenus();
    buildStatusBar();
    connectHost();
    setMainWindow(this);
    setPromptBackend(&prompts_);
    line_->setHistory(settings_->value(kHistoryKey).toStringList());
    qApp->installEventFilter(this);
    if (!restoreGeometry(settings_->value(QStringLiteral("geometry")).toByteArray()))
        setWindowState(Qt::WindowMaximized);
    restoreState(settings_->value(QStringLiteral("state")).toByteArray());
}

MainWindow::~MainWindow()
{
    qApp->removeEventFilter(this);
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
        DrawingView* view = currentView();
        if (view && view->dropGrip())
            return;
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
    const std::pair<QAction*, const char*> aids[] = {{snaps_, "ПРИВЯЗКА"}, {ortho_, "ОРТО"}, {polar_, "ПОЛЯР"}};
    for (const auto& aid : aids) {
        auto* button = new QToolButton;
        button->setDefaultAction(aid.first);
        aid.first->setIconText(QString::fromUtf8(aid.second));
        aid.first->setToolTip(aid.first->text().remove(QLatin1Char('&')) + QStringLiteral(" (")
                              + aid.first->shortcut().toString() + QLatin1Char(')'));
        statusBar()->addPermanentWidget(button);
    }
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
    QStringList words = typedWords(line);
    if (words.isEmpty() && !lastCommand_.isEmpty())
        words << lastCommand_;
    if (words.isEmpty())
        return;
    prompts_.console().command(line.trimmed().isEmpty() ? words.first() : line.trimmed());
    if (hasCommand(words.first()) && words.first().compare(QLatin1String("U"), Qt::CaseInsensitive) != 0)
        lastCommand_ = words.first();
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

// Enter over the drawing ends what a prompt gathers, or begins the last command anew.
void MainWindow::finishOrRepeat()
{
    if (prompts_.isAsking())
        prompts_.finish();
    else if (!lastCommand_.isEmpty() && activeCommand().isEmpty())
        runCommandByName(lastCommand_);
}

void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    line_->takeFocus();
}

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

// Whether the widget is a field for a number in a dialog.
bool isNumberField(const QWidget* widget)
{
    return qobject_cast<const QAbstractSpinBox*>(widget) && qobject_cast<const QDialog*>(widget->window());
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

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = event->type() == QEvent::KeyPress ? qobject_cast<QWidget*>(watched) : nullptr;
    auto* key = static_cast<QKeyEvent*>(event);
    // Enter in a number field is done with the field, not with the form.
    if (widget && isEnter(key->key()) && isNumberField(widget)) {
        static_cast<QAbstractSpinBox*>(widget)->interpretText();
        widget->nextInFocusChain()->setFocus();
        return true;
    }
    const bool stray = widget && widget->window() == this && widget == QApplication::focusWidget()
        && !QApplication::activeModalWidget() && !QApplication::activePopupWidget() && !takesText(widget)
        && !qobject_cast<DrawingView*>(widget);
    return (stray && takeStrayKey(key)) || QMainWindow::eventFilter(watched, event);
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
    settings_->setValue(kHistoryKey, line_->history());
    settings_->setValue(QStringLiteral("geometry"), saveGeometry());
    settings_->setValue(QStringLiteral("state"), saveState());
    event->accept();
}
