// The window's menus.
#include "command_table.h"
#include "drawing_aids.h"
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

void MainWindow::addCommand(QMenu* menu, const QString& caption, const QString& command, const QKeySequence& keys)
{
    QAction* action = menu->addAction(caption, this, [this, command] { runCommandByName(command); });
    action->setObjectName(command);
    action->setStatusTip(command);
    action->setShortcut(keys);
}

void MainWindow::buildEditMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Правка"));
    addCommand(menu, QStringLiteral("&Отменить"), QStringLiteral("U"), QKeySequence(Qt::CTRL | Qt::Key_Z));
    addCommand(menu, QStringLiteral("&Вернуть"), QStringLiteral("REDO"),
               QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    menu->addSeparator();
    addCommand(menu, QStringLiteral("Вы&резать"), QStringLiteral("CUTCLIP"), QKeySequence::Cut);
    addCommand(menu, QStringLiteral("&Копировать"), QStringLiteral("COPYCLIP"), QKeySequence::Copy);
    addCommand(menu, QStringLiteral("В&ставить"), QStringLiteral("PASTECLIP"), QKeySequence::Paste);
    addCommand(menu, QStringLiteral("Вставить на &место"), QStringLiteral("PASTEORIG"),
               QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V));
    addCommand(menu, QStringLiteral("&Удалить"), QStringLiteral("ERASE"), QKeySequence(Qt::Key_Delete));
    menu->addSeparator();
    addCommand(menu, QStringLiteral("Выбрать в&сё"), QStringLiteral("SELECTALL"), QKeySequence::SelectAll);
    addCommand(menu, QStringLiteral("&Быстрый выбор…"), QStringLiteral("QSELECT"));
    menu->addSeparator();
    addCommand(menu, QStringLiteral("&Перенести"), QStringLiteral("MOVE"));
    addCommand(menu, QStringLiteral("Скопировать со сдвигом"), QStringLiteral("COPY"));
    addCommand(menu, QStringLiteral("Повернут&ь"), QStringLiteral("ROTATE"));
    addCommand(menu, QStringLiteral("&Масштабировать"), QStringLiteral("SCALE"));
    addCommand(menu, QStringLiteral("&Зеркало"), QStringLiteral("MIRROR"));
    addCommand(menu, QStringLiteral("По&добие"), QStringLiteral("OFFSET"));
    addCommand(menu, QStringLiteral("Рас&членить"), QStringLiteral("EXPLODE"));
}

void MainWindow::buildDrawMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Чертить"));
    addCommand(menu, QStringLiteral("&Отрезок"), QStringLiteral("LINE"));
    addCommand(menu, QStringLiteral("&Полилиния"), QStringLiteral("PLINE"));
    addCommand(menu, QStringLiteral("О&кружность"), QStringLiteral("CIRCLE"));
    addCommand(menu, QStringLiteral("&Текст"), QStringLiteral("TEXT"));
    menu->addSeparator();
    addCommand(menu, QStringLiteral("&Расстояние"), QStringLiteral("DIST"));
    addCommand(menu, QStringLiteral("Коор&динаты точки"), QStringLiteral("ID"));
    addCommand(menu, QStringLiteral("П&лощадь"), QStringLiteral("AREA"));
    menu->addSeparator();
    snaps_ =
        addAid(QStringLiteral("При&вязка"), Qt::Key_F3, true, [](bool on) { DrawingAids::instance().setSnaps(on); });
    ortho_ = addAid(QStringLiteral("Орт&о"), Qt::Key_F8, false, [](bool on) { DrawingAids::instance().setOrtho(on); });
    polar_ = addAid(QStringLiteral("Пол&ярное отслеживание"), Qt::Key_F10, false,
                    [](bool on) { DrawingAids::instance().setPolar(on); });
    menu->addActions({snaps_, ortho_, polar_});
    connect(&DrawingAids::instance(), &DrawingAids::changed, this, &MainWindow::showAids);
    showAids();
}

QAction* MainWindow::addAid(const QString& caption, const QKeySequence& key, bool on, void (*set)(bool))
{
    auto* action = new QAction(caption, this);
    action->setCheckable(true);
    action->setChecked(on);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, set);
    return action;
}

void MainWindow::showAids()
{
    const DrawingAids& aids = DrawingAids::instance();
    snaps_->setChecked(aids.snaps());
    ortho_->setChecked(aids.ortho());
    polar_->setChecked(aids.polar());
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
        QKeySequence(Qt::Key_F4));
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
