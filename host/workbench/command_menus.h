// Menus and tool bars made of tables of commands, in an order of their own.
#pragma once

#include "command_table.h"
#include "desk_state.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <functional>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

class CommandMenus : public QObject {
    Q_OBJECT
public:
    // `run` gets the name of the command that was chosen.
    CommandMenus(QMainWindow& window, std::function<void(const QString&)> run);

    // A menu of the bar by its title, "Правка"; null when there is none of it.
    QMenu* menu(const QString& title) const;
    QToolBar* bar(const QString& title) const;
    // All menus and bars anew: the rows whose commands are known, then, in a menu
    // of their own, known commands that no row names.
    void build(const QVector<MenuRow>& rows, const QStringList& known, const QStringList& unnamed);
    // Greys what would do nothing and says why.
    void refresh(const DeskState& state);

signals:
    void aboutToShow();

private:
    QMenu* menuOf(const QString& path);
    QAction* actionOf(const MenuRow& row);
    void clear();

    QMainWindow& window_;
    std::function<void(const QString&)> run_;
    QHash<QString, QMenu*> menus_;
    QHash<QString, QToolBar*> bars_;
    QList<QPointer<QObject>> made_; // by build
    QList<QAction*> actions_;
};
