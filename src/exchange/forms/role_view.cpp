#include "exchange/forms/role_view.h"

#include "formkit/widgets.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>

RoleView::RoleView(const QStringList& roles, QWidget* parent) : QTableView(parent), texts_(roles), roles_(roles.size())
{
    setModel(&lines_);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalHeader(makeHeader("RawColumns", Qt::Horizontal));
    setVerticalHeader(makeHeader("RawRows", Qt::Vertical));
}

QHeaderView* RoleView::makeHeader(const QString& name, Qt::Orientation direction)
{
    auto* header = formkit::named<QHeaderView>(name, direction);
    header->setSectionsClickable(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QHeaderView::customContextMenuRequested, this,
            [this, direction](const QPoint& at) { openMenu(direction, at); });
    return header;
}

void RoleView::setLines(const QStringList& lines, const QString& separator) { lines_.setLines(lines, separator); }

void RoleView::setDirection(Qt::Orientation columnsOrRows)
{
    direction_ = columnsOrRows;
    showRoles();
}

void RoleView::setRoles(const ColumnRoles& roles)
{
    roles_ = roles;
    showRoles();
    emit rolesChanged();
}

void RoleView::openMenu(Qt::Orientation direction, const QPoint& at)
{
    QHeaderView* header = direction == Qt::Horizontal ? horizontalHeader() : verticalHeader();
    const int column = header->logicalIndexAt(at);
    if (direction != direction_ || column < 0)
        return;
    QMenu menu(header);
    for (const QString& text : texts_)
        menu.addAction(text)->setData(menu.actions().size() - 1);
    menu.addAction("Убрать")->setData(-1);
    const QAction* chosen = menu.exec(header->mapToGlobal(at));
    if (!chosen)
        return;
    ColumnRoles roles = roles_;
    const int role = chosen->data().toInt();
    if (role >= 0)
        roles.give(role, column);
    else
        roles.clear(column);
    setRoles(roles);
}

void RoleView::showRoles()
{
    QHash<int, QString> titles;
    for (int role = 0; role < texts_.size(); ++role) {
        if (roles_.has(role))
            titles.insert(roles_.columnOf(role), texts_[role]);
    }
    lines_.setTitles(direction_, titles);
}
