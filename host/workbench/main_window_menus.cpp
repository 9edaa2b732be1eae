// The window's menus.
#include "command_table.h"
#include "main_window.h"

#include <drawing/application.h>

#include <QDockWidget>
#include <QMenuBar>
#include <QSet>

namespace {

const QString kLightGroundKey = QStringLiteral("lightGround");

QStringList hostCommandNames()
{
    QStringList names;
    for (const CommandInfo& info : hostCommands())
        names << info.globalName << info.aliases;
    return names;
}

} // namespace

void MainWindow::buildFileMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Файл"));
    menu->addAction(QStringLiteral("&Новый"), this, &MainWindow::newDrawing, QKeySequence::New);
    menu->addAction(QStringLiteral("&Открыть…"), this, &MainWindow::chooseDrawing, QKeySequence::Open);
    recent_ = menu->addMenu(QStringLiteral("Н&едавние"));
    connect(recent_, &QMenu::aboutToShow, this, &MainWindow::fillRecent);
    menu->addSeparator();
    const auto save = [this](bool askName) {
        if (DrawingView* view = currentView())
            saveDrawing(&view->document(), askName);
    };
    menu->addAction(
        QStringLiteral("&Сохранить"), this, [save] { save(false); }, QKeySequence::Save);
    menu->addAction(QStringLiteral("Сохранить &как…"), this, [save] { save(true); });
    menu->addAction(QStringLiteral("&Экспорт рисунка…"), this, &MainWindow::exportDrawing);
    menu->addSeparator();
    menu->addAction(QStringLiteral("Исполнить с&ценарий…"), this, &MainWindow::chooseScript);
    menu->addSeparator();
    menu->addAction(QStringLiteral("В&ыход"), this, &QWidget::close, QKeySequence::Quit);
}

void MainWindow::buildViewMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Вид"));
    menu->addAction(
        QStringLiteral("Показать &всё"), this,
        [this] {
            if (DrawingView* view = currentView())
                view->zoomExtents();
        },
        QKeySequence(Qt::Key_F3));
    menu->addAction(
        QStringLiteral("&Перерисовать"), this, [] { emit HostEvents::instance()->viewChanged(); },
        QKeySequence(Qt::Key_F5));
    lightGround_ = menu->addAction(QStringLiteral("&Светлый фон"));
    lightGround_->setObjectName(QStringLiteral("lightGround"));
    lightGround_->setCheckable(true);
    lightGround_->setChecked(settings_->value(kLightGroundKey, true).toBool());
    connect(lightGround_, &QAction::toggled, this, [this](bool light) {
        settings_->setValue(kLightGroundKey, light);
        for (DrawingView* view : findChildren<DrawingView*>())
            view->setLightGround(light);
    });
    panels_ = menu->addMenu(QStringLiteral("П&анели"));
    connect(panels_, &QMenu::aboutToShow, this, [this] {
        panels_->clear();
        for (QDockWidget* dock : findChildren<QDockWidget*>())
            panels_->addAction(dock->toggleViewAction());
    });
}

// Menus by area from the table; commands that it does not name stand last, by
// their own names.
void MainWindow::buildCommandMenus()
{
    for (QMenu* menu : qAsConst(commandMenus_))
        menu->deleteLater();
    commandMenus_.clear();

    QStringList names = hostCommandNames();
    QStringList unnamed;
    for (const CommandInfo& info : registeredCommands())
        unnamed << info.localName;
    names += unnamed;
    QHash<QString, QMenu*> menus;
    const auto menuOf = [&](const QString& title) {
        QMenu*& menu = menus[title];
        if (!menu) {
            menu = menuBar()->addMenu(title);
            commandMenus_ << menu;
        }
        return menu;
    };
    const auto addCommand = [this](QMenu* menu, const QString& caption, const QString& command) {
        QAction* action = menu->addAction(caption, this, [this, command] { runCommandByName(command); });
        action->setObjectName(command);
        action->setStatusTip(command);
    };
    for (const MenuRow& row : readMenuTable()) {
        if (row.command.isEmpty() && menus.contains(row.menu))
            menuOf(row.menu)->addSeparator();
        else if (unnamed.removeOne(row.command))
            addCommand(menuOf(row.menu), row.caption, row.command);
    }
    for (const QString& command : qAsConst(unnamed))
        addCommand(menuOf(QStringLiteral("Прочее")), command, command);
    line_->setNames(names);
}
