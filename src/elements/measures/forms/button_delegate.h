// A push button in the cells of a table that hold a thermal well's measure.
#pragma once

#include "elements/measures/family_measures.h"

#include <QAbstractItemView>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

/// A cell whose display role holds a TSMeasure* is a button; its caption is the
/// cell's text in the user role. Other cells are plain ones whose line edit
/// keeps the user role and the display role the same.
class ButtonDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit ButtonDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    bool eventFilter(QObject* object, QEvent* event) override;

signals:
    void btnClicked(TSMeasure* measure);

private:
    void press(const QModelIndex& index, const QWidget* widget);
    void letGo();

    QPersistentModelIndex pressed_;
    QPointer<QAbstractItemView> view_; // that holds the pressed button
};
