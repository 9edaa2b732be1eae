// The panels around the drawing: their places, and those of the module's palettes.
#include "layers_page.h"
#include "main_window.h"
#include "properties_panel.h"

#include <drawing/application.h>

#include <QAction>
#include <QDockWidget>
#include <QToolBar>

namespace {

const QString kPalettesKey = QStringLiteral("palettes"), kFrontKey = QStringLiteral("frontPanels");
constexpr int kLineHeight = 150, kLayersWidth = 270, kRightWidth = 340;

// The command that made the palette; empty for the host's own panels.
QString commandOf(const QDockWidget& dock) { return dock.property("paletteCommand").toString(); }

// Of several on one side, the one whose tab is chosen.
bool isInFront(const QDockWidget& dock) { return !dock.isHidden() && dock.geometry().right() >= 0; }

} // namespace

void MainWindow::buildDocks()
{
    const auto addDock = [this](const QString& title, const char* name, QWidget* widget, Qt::DockWidgetArea area) {
        auto* dock = new QDockWidget(title, this);
        dock->setObjectName(QString::fromLatin1(name));
        dock->setWidget(widget);
        addDockWidget(area, dock);
        return dock;
    };
    properties_ = new PropertiesPanel;
    addDock(QStringLiteral("Командная строка"), "commandDock", line_, Qt::BottomDockWidgetArea);
    addDock(QStringLiteral("Слои"), "layersDock", layers_, Qt::LeftDockWidgetArea);
    QDockWidget* properties =
        addDock(QStringLiteral("Свойства"), "propertiesDock", properties_, Qt::RightDockWidgetArea);
    properties->toggleViewAction()->setShortcut(QKeySequence(QStringLiteral("Ctrl+1")));
    properties->toggleViewAction()->setObjectName(QStringLiteral("propertiesAction"));
    addAction(properties->toggleViewAction());
    connect(properties->toggleViewAction(), &QAction::triggered, properties, [properties](bool shown) {
        if (shown)
            properties->raise();
    });
    placeDocks();
    const auto say = [this](const QString& why) { prompts_.console().line(why); };
    connect(properties_, &PropertiesPanel::refused, this, say);
    connect(layers_, &LayersPage::refused, this, say);
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

// Everything where it stands when the program is new.
void MainWindow::placeDocks()
{
    auto* line = findChild<QDockWidget*>(QStringLiteral("commandDock"));
    auto* layers = findChild<QDockWidget*>(QStringLiteral("layersDock"));
    auto* properties = findChild<QDockWidget*>(QStringLiteral("propertiesDock"));
    QDockWidget* right = properties;
    for (QDockWidget* dock : findChildren<QDockWidget*>()) {
        dock->setFloating(false);
        if (commandOf(*dock).isEmpty())
            continue;
        addDockWidget(Qt::RightDockWidgetArea, dock);
        tabifyDockWidget(right, dock);
        right = dock;
    }
    addDockWidget(Qt::BottomDockWidgetArea, line);
    addDockWidget(Qt::LeftDockWidgetArea, layers);
    line->show();
    layers->show();
    properties->hide();
    right->raise();
    resizeDocks({line}, {kLineHeight}, Qt::Vertical);
    resizeDocks({layers, right}, {kLayersWidth, kRightWidth}, Qt::Horizontal);
}

void MainWindow::resetLayout()
{
    for (QToolBar* bar : findChildren<QToolBar*>())
        if (bar->parentWidget() == this && !bar->actions().isEmpty()) {
            addToolBar(Qt::TopToolBarArea, bar);
            bar->show();
        }
    placeDocks();
}

void MainWindow::notePalettes()
{
    QStringList commands, front;
    for (const QDockWidget* dock : findChildren<QDockWidget*>()) {
        if (!commandOf(*dock).isEmpty() && !dock->isHidden() && !commands.contains(commandOf(*dock)))
            commands << commandOf(*dock);
        if (isInFront(*dock))
            front << dock->objectName();
    }
    settings_->setValue(kPalettesKey, commands);
    settings_->setValue(kFrontKey, front);
}

// The module makes its palettes on first use only, so those that were open are
// asked for; their places are known from the state of the window.
void MainWindow::restorePalettes()
{
    const QStringList commands = settings_->value(kPalettesKey).toStringList();
    for (const QString& command : commands)
        if (hasCommand(command) && activeCommand().isEmpty())
            runCommandWords({command});
    const QStringList front = settings_->value(kFrontKey).toStringList();
    for (QDockWidget* dock : findChildren<QDockWidget*>())
        if (front.contains(dock->objectName()))
            dock->raise();
}
