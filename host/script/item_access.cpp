#include "item_access.h"

#include "widget_access.h"

#include <QAbstractItemDelegate>
#include <QHeaderView>
#include <QStyleOptionViewItem>
#include <QTableView>
#include <QTreeView>

namespace {

QString textOf(const QModelIndex& index) { return index.data(Qt::DisplayRole).toString(); }

QModelIndex treePath(QAbstractItemModel* model, const QString& path)
{
    QModelIndex at;
    const QStringList parts = path.split(QLatin1Char('/'));
    for (const QString& part : parts) {
        QModelIndex found;
        for (int row = 0; row < model->rowCount(at) && !found.isValid(); ++row)
            if (textOf(model->index(row, 0, at)) == part)
                found = model->index(row, 0, at);
        if (!found.isValid())
            return {};
        at = found;
    }
    return at;
}

int rowNumber(QAbstractItemModel* model, const QModelIndex& root, const QString& text)
{
    for (int row = 0; row < model->rowCount(root); ++row)
        for (int column = 0; column < model->columnCount(root); ++column)
            if (textOf(model->index(row, column, root)) == text)
                return row;
    return -1;
}

QModelIndex findRow(QAbstractItemView* view, const QString& row)
{
    QAbstractItemModel* model = view->model();
    if (qobject_cast<QTreeView*>(view))
        return treePath(model, row);
    bool numeric = false;
    int number = row.toInt(&numeric);
    if (!numeric || number < 0 || number >= model->rowCount(view->rootIndex()))
        number = rowNumber(model, view->rootIndex(), row);
    return number < 0 ? QModelIndex() : model->index(number, 0, view->rootIndex());
}

int findColumn(QAbstractItemView* view, const QString& column)
{
    QAbstractItemModel* model = view->model();
    bool numeric = false;
    const int number = column.toInt(&numeric);
    const int count = model->columnCount(view->rootIndex());
    if (numeric && number >= 0 && number < count)
        return number;
    for (int i = 0; i < count; ++i)
        if (model->headerData(i, Qt::Horizontal).toString() == column)
            return i;
    return -1;
}

QString editThroughDelegate(QAbstractItemView* view, const QModelIndex& index, const QString& value)
{
    if (!(index.flags() & Qt::ItemIsEditable) || view->editTriggers() == QAbstractItemView::NoEditTriggers)
        return QStringLiteral("ячейка не правится");
    QAbstractItemDelegate* delegate = view->itemDelegate(index);
    QStyleOptionViewItem option;
    option.rect = view->visualRect(index);
    QWidget* editor = delegate->createEditor(view->viewport(), option, index);
    if (!editor)
        return QStringLiteral("ячейка не правится");
    delegate->setEditorData(editor, index);
    QString wrong = setWidgetValue(editor, value);
    if (wrong.isEmpty())
        delegate->setModelData(editor, view->model(), index);
    delegate->destroyEditor(editor, index);
    return wrong;
}

QString setCheckMark(QAbstractItemView* view, const QModelIndex& index, bool on)
{
    if (!index.data(Qt::CheckStateRole).isValid() || !(index.flags() & Qt::ItemIsUserCheckable))
        return QStringLiteral("в ячейке нет флажка");
    view->model()->setData(index, on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    return {};
}

// The widget in a cell, or the one that a mere holder in the cell centres.
QWidget* cellWidget(QAbstractItemView* view, const QModelIndex& index)
{
    QWidget* widget = view->indexWidget(index);
    QString value;
    if (!widget || widgetValue(widget, value))
        return widget;
    for (QWidget* inner : widget->findChildren<QWidget*>())
        if (widgetValue(inner, value))
            return inner;
    return widget;
}

} // namespace

QModelIndex findCell(QAbstractItemView* view, const QString& row, const QString& column, QString& error)
{
    if (!view->model()) {
        error = QStringLiteral("таблица пуста");
        return {};
    }
    const QModelIndex first = findRow(view, row);
    if (!first.isValid()) {
        error = QStringLiteral("нет строки «") + row + QStringLiteral("»");
        return {};
    }
    const int number = findColumn(view, column);
    if (number < 0) {
        error = QStringLiteral("нет столбца «") + column + QStringLiteral("»");
        return {};
    }
    return first.sibling(first.row(), number);
}

QString setCell(QAbstractItemView* view, const QString& row, const QString& column, const QString& value)
{
    QString error;
    const QModelIndex index = findCell(view, row, column, error);
    if (!index.isValid())
        return error;
    view->setCurrentIndex(index);
    if (value == QLatin1String("checked") || value == QLatin1String("unchecked"))
        return setCheckMark(view, index, value == QLatin1String("checked"));
    if (QWidget* widget = cellWidget(view, index))
        return setWidgetValue(widget, value);
    return editThroughDelegate(view, index, value);
}

QString cellText(const QModelIndex& index, QAbstractItemView* view)
{
    QString value;
    QWidget* widget = cellWidget(view, index);
    return widget && widgetValue(widget, value) ? value : textOf(index);
}

QString cellCheckMark(const QModelIndex& index)
{
    const QVariant state = index.data(Qt::CheckStateRole);
    if (!state.isValid())
        return {};
    return state.toInt() == Qt::Checked ? QStringLiteral("checked") : QStringLiteral("unchecked");
}

QString selectRow(QAbstractItemView* view, const QString& row, bool extend)
{
    QString error;
    const QModelIndex index = findCell(view, row, QStringLiteral("0"), error);
    if (!index.isValid())
        return error;
    using Flag = QItemSelectionModel;
    QItemSelectionModel::SelectionFlags how = extend ? Flag::Select : Flag::ClearAndSelect;
    if (view->selectionBehavior() == QAbstractItemView::SelectRows)
        how |= Flag::Rows;
    view->selectionModel()->setCurrentIndex(index, how);
    QMetaObject::invokeMethod(view, "clicked", Q_ARG(QModelIndex, index));
    return {};
}
