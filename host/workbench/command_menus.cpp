#include "command_menus.h"

#include "desk_icons.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <algorithm>

namespace {

// As the work goes.
const char* const kMenus[] = {"&Файл",  "&Проект", "П&равка",      "&Вид",    "&Элементы", "&Измерения", "&Чертёж",
                              "&Карты", "&Отчёты", "&Справочники", "С&ервис", "Прочее",    "Справк&а"};
const char* const kBars[] = {"Файл", "Правка", "Чертёж", "Проект", "Элементы", "Измерения", "Карты"};
const QString kOther = QStringLiteral("Прочее"), kNoMenu = QStringLiteral("-");

QString plain(QString title) { return title.remove(QLatin1Char('&')); }

} // namespace

CommandMenus::CommandMenus(QMainWindow& window, std::function<void(const QString&)> run)
    : QObject(&window), window_(window), run_(std::move(run))
{
    for (const char* title : kMenus) {
        QMenu* menu = window.menuBar()->addMenu(QString::fromUtf8(title));
        menu->setToolTipsVisible(true);
        menus_.insert(plain(menu->title()), menu);
        connect(menu, &QMenu::aboutToShow, this, &CommandMenus::aboutToShow);
    }
    for (const char* title : kBars) {
        QToolBar* bar = window.addToolBar(QString::fromUtf8(title));
        bar->setObjectName(QStringLiteral("bar:") + bar->windowTitle());
        bar->setIconSize({20, 20});
        bars_.insert(bar->windowTitle(), bar);
    }
}

QMenu* CommandMenus::menu(const QString& title) const { return menus_.value(title); }

QToolBar* CommandMenus::bar(const QString& title) const { return bars_.value(title); }

void CommandMenus::clear()
{
    for (const auto& object : qAsConst(made_))
        delete object.data();
    made_.clear();
    actions_.clear();
    for (auto menu = menus_.begin(); menu != menus_.end();)
        menu = menu.key().contains(QLatin1Char('/')) ? menus_.erase(menu) : std::next(menu);
}

QMenu* CommandMenus::menuOf(const QString& path)
{
    const QString key = plain(path);
    if (QMenu* known = menus_.value(key))
        return known;
    const int cut = path.lastIndexOf(QLatin1Char('/'));
    QMenu* over = cut < 0 ? menus_.value(kOther) : menuOf(path.left(cut));
    QMenu* made = over->addMenu(path.mid(cut + 1));
    made->setToolTipsVisible(true);
    menus_.insert(key, made);
    made_ << made;
    return made;
}

QAction* CommandMenus::actionOf(const MenuRow& row)
{
    auto* action = new QAction(deskIcon(row.icon), row.caption, &window_);
    action->setObjectName(row.command);
    action->setData(row.tip);
    action->setShortcut(QKeySequence(row.keys));
    connect(action, &QAction::triggered, this, [this, command = row.command] { run_(command); });
    made_ << action;
    actions_ << action;
    return action;
}

void CommandMenus::build(const QVector<MenuRow>& rows, const QStringList& known, const QStringList& unnamed)
{
    clear();
    QStringList left = unnamed;
    for (const MenuRow& row : rows) {
        left.removeOne(row.command);
        if (row.menu == kNoMenu || (!row.command.isEmpty() && !known.contains(row.command)))
            continue;
        QMenu* menu = menuOf(row.menu);
        if (row.command.isEmpty()) {
            if (!menu->isEmpty())
                made_ << menu->addSeparator();
            continue;
        }
        QAction* action = actionOf(row);
        menu->addAction(action);
        if (QToolBar* bar = bars_.value(row.bar))
            bar->addAction(action);
    }
    for (const QString& command : qAsConst(left))
        menuOf(kOther)->addAction(actionOf({kOther, command, command, {}, {}, {}, {}}));
    for (QMenu* menu : qAsConst(menus_))
        menu->menuAction()->setVisible(!menu->isEmpty());
    for (QToolBar* bar : qAsConst(bars_))
        bar->toggleViewAction()->setVisible(!bar->actions().isEmpty());
}

void CommandMenus::refresh(const DeskState& state)
{
    for (QAction* action : qAsConst(actions_)) {
        const QString refusal = state.refusals.value(action->objectName());
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        QStringList tip = {plain(action->text()) + (keys.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(keys))};
        if (!action->data().toString().isEmpty())
            tip << action->data().toString();
        if (!refusal.isEmpty())
            tip << refusal;
        action->setEnabled(refusal.isEmpty());
        action->setToolTip(tip.join(QLatin1Char('\n')));
        action->setStatusTip((refusal.isEmpty() ? action->data().toString() : refusal)
                             + QStringLiteral("  [%1]").arg(action->objectName()));
    }
}
