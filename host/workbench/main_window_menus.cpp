// The window's menus and tool bars.
#include "command_menus.h"
#include "desk_icons.h"
#include "desk_theme.h"
#include "drawing_aids.h"
#include "main_window.h"
#include "manual_window.h"

#include <drawing/application.h>

#include <QCoreApplication>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace {

const QString kLightGroundKey = QStringLiteral("lightGround"), kDarkKey = QStringLiteral("darkTheme");

QStringList hostCommandNames()
{
    QStringList names;
    for (const CommandInfo& info : hostCommands())
        names << info.globalName << info.aliases;
    return names;
}

} // namespace

QAction* MainWindow::addFileAction(const char* icon, const QString& caption, const QString& tip,
                                   const QKeySequence& keys, void (MainWindow::*act)(), bool onBar)
{
    auto* action = new QAction(deskIcon(QString::fromLatin1(icon)), caption, this);
    action->setObjectName(QString::fromLatin1(icon));
    action->setShortcut(keys);
    action->setStatusTip(tip);
    const QString shown = keys.toString(QKeySequence::NativeText);
    action->setToolTip(QString(caption).remove(QLatin1Char('&'))
                       + (shown.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(shown)) + QLatin1Char('\n') + tip);
    connect(action, &QAction::triggered, this, act);
    menus_->menu(QStringLiteral("Файл"))->addAction(action);
    if (onBar)
        menus_->bar(QStringLiteral("Файл"))->addAction(action);
    return action;
}

void MainWindow::buildFileMenu()
{
    QMenu* menu = menus_->menu(QStringLiteral("Файл"));
    addFileAction("new-drawing", QStringLiteral("&Новый"), QStringLiteral("Новый чертёж"), QKeySequence::New,
                  &MainWindow::newDrawing, true);
    addFileAction("open", QStringLiteral("&Открыть…"), QStringLiteral("Открыть чертёж"), QKeySequence::Open,
                  &MainWindow::chooseDrawing, true);
    recent_ = menu->addMenu(QStringLiteral("Не&давние"));
    connect(recent_, &QMenu::aboutToShow, this, &MainWindow::fillRecent);
    menu->addSeparator();
    addFileAction("save", QStringLiteral("&Сохранить"), QStringLiteral("Сохранить чертёж"), QKeySequence::Save,
                  &MainWindow::saveCurrent, true);
    addFileAction("save", QStringLiteral("Сохранить &как…"), QStringLiteral("Сохранить чертёж под другим именем"),
                  QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), &MainWindow::saveCurrentAs, false)
        ->setObjectName(QStringLiteral("saveAs"));
    addFileAction("print", QStringLiteral("&Печать…"), QStringLiteral("Напечатать чертёж в масштабе"),
                  QKeySequence::Print, &MainWindow::printDrawing, true);
    addFileAction("export", QStringLiteral("&Экспорт рисунка…"), QStringLiteral("Записать чертёж картинкой или файлом"),
                  {}, &MainWindow::exportDrawing, false);
    menu->addSeparator();
    addFileAction("script", QStringLiteral("Исполнить с&ценарий…"), QStringLiteral("Исполнить команды из файла"), {},
                  &MainWindow::chooseScript, false);
    menu->addSeparator();
    QAction* quit = menu->addAction(QStringLiteral("В&ыход"), this, &QWidget::close, QKeySequence::Quit);
    quit->setStatusTip(QStringLiteral("Закрыть программу"));
}

void MainWindow::buildViewMenu()
{
    QMenu* menu = menus_->menu(QStringLiteral("Вид"));
    const auto add = [&](const char* icon, const QString& caption, const QKeySequence& keys,
                         const std::function<void()>& act) {
        QAction* action = menu->addAction(deskIcon(QString::fromLatin1(icon)), caption, this, act, keys);
        action->setStatusTip(QString(caption).remove(QLatin1Char('&')));
        return action;
    };
    QAction* all = add("zoom-all", QStringLiteral("Показать &всё"), Qt::Key_F4, [this] {
        if (DrawingView* view = currentView())
            view->zoomExtents();
    });
    menus_->bar(QStringLiteral("Файл"))->addAction(all);
    add("refresh", QStringLiteral("Пере&рисовать"), Qt::Key_F5, [] { emit HostEvents::instance()->viewChanged(); });
    menu->addSeparator();
    buildAids(menu);
    menu->addSeparator();
    lightGround_ = menu->addAction(QStringLiteral("&Светлый фон"));
    lightGround_->setObjectName(QStringLiteral("lightGround"));
    lightGround_->setStatusTip(QStringLiteral("Чертёж на светлом фоне, как на бумаге"));
    lightGround_->setCheckable(true);
    lightGround_->setChecked(settings_->value(kLightGroundKey, true).toBool());
    connect(lightGround_, &QAction::toggled, this, [this](bool light) {
        settings_->setValue(kLightGroundKey, light);
        for (DrawingView* view : findChildren<DrawingView*>())
            view->setLightGround(light);
    });
    auto* dark = menu->addAction(QStringLiteral("&Тёмное оформление"));
    dark->setObjectName(QStringLiteral("darkTheme"));
    dark->setStatusTip(QStringLiteral("Тёмные окна и панели"));
    dark->setCheckable(true);
    dark->setChecked(settings_->value(kDarkKey, false).toBool());
    setDarkTheme(dark->isChecked());
    connect(dark, &QAction::toggled, this, [this](bool on) {
        settings_->setValue(kDarkKey, on);
        setDarkTheme(on);
    });
    menu->addSeparator();
    panels_ = menu->addMenu(deskIcon(QStringLiteral("properties")), QStringLiteral("П&анели"));
    connect(panels_, &QMenu::aboutToShow, this, [this] {
        panels_->clear();
        for (QDockWidget* dock : findChildren<QDockWidget*>())
            panels_->addAction(dock->toggleViewAction());
        panels_->addSeparator();
        for (QToolBar* bar : findChildren<QToolBar*>())
            if (bar->parentWidget() == this && !bar->actions().isEmpty())
                panels_->addAction(bar->toggleViewAction());
    });
    add("", QStringLiteral("Рас&положение по умолчанию"), {}, [this] { resetLayout(); });
    add("terva", QStringLiteral("&Начальная страница"), {}, [this] {
        showStartPage();
    })->setObjectName(QStringLiteral("startPageAction"));
}

void MainWindow::buildHelpMenu()
{
    QMenu* menu = menus_->menu(QStringLiteral("Справка"));
    QAction* manual = menu->addAction(deskIcon(QStringLiteral("help")), QStringLiteral("&Руководство"), this,
                                      &MainWindow::showManual, Qt::Key_F1);
    manual->setObjectName(QStringLiteral("manualAction"));
    manual->setStatusTip(QStringLiteral("Открыть руководство, поставленное с программой"));
}

void MainWindow::showManual()
{
    const QString page = manualPage(QCoreApplication::applicationDirPath());
    if (page.isEmpty())
        return tell(QStringLiteral("Руководство не поставлено с программой; команда TERVA_HELP открывает его в сети."));
    if (!manual_)
        manual_ = new ManualWindow(page, this);
    manual_->show();
    manual_->raise();
    manual_->activateWindow();
}

void MainWindow::buildAids(QMenu* menu)
{
    snaps_ =
        addAid(QStringLiteral("Пр&ивязка"), Qt::Key_F3, true, [](bool on) { DrawingAids::instance().setSnaps(on); });
    ortho_ = addAid(QStringLiteral("Орт&о"), Qt::Key_F8, false, [](bool on) { DrawingAids::instance().setOrtho(on); });
    polar_ = addAid(QStringLiteral("Пол&ярное отслеживание"), Qt::Key_F10, false,
                    [](bool on) { DrawingAids::instance().setPolar(on); });
    snaps_->setIcon(deskIcon(QStringLiteral("snap")));
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

// From the tables; what they do not name stands in a menu of its own.
void MainWindow::buildCommandMenus()
{
    const QStringList own = hostCommandNames();
    QStringList unnamed;
    for (const CommandInfo& info : registeredCommands())
        unnamed << info.localName;
    menus_->build(hostMenuTable() + readMenuTable(), own + unnamed, unnamed);
    line_->setNames(own + unnamed);
    showDesk();
}
