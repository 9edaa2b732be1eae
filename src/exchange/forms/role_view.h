// The raw cells of a file, whose columns (or rows) the user gives their roles by
// the menu of their headers.
#pragma once

#include "exchange/column_roles.h"
#include "exchange/raw_lines.h"

#include <QTableView>

class RoleView : public QTableView {
    Q_OBJECT

public:
    /// The menu holds a text a role and, at its end, the one that takes a role away.
    explicit RoleView(const QStringList& roles, QWidget* parent = nullptr);

    void setLines(const QStringList& lines, const QString& separator);
    /// Whose headers bear the roles.
    void setDirection(Qt::Orientation columnsOrRows);

    const ColumnRoles& roles() const { return roles_; }
    void setRoles(const ColumnRoles& roles);

signals:
    void rolesChanged();

private:
    QHeaderView* makeHeader(const QString& name, Qt::Orientation direction);
    void openMenu(Qt::Orientation direction, const QPoint& at);
    void showRoles();

    QStringList texts_;
    ColumnRoles roles_;
    RawLines lines_;
    Qt::Orientation direction_ = Qt::Horizontal;
};
