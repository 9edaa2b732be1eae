#include "elements/measures/forms/button_delegate.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>

namespace {

TSMeasure* measureOf(const QModelIndex& index) { return index.data(Qt::DisplayRole).value<TSMeasure*>(); }

QStyleOptionButton buttonOption(const QStyleOptionViewItem& option, const QModelIndex& index, bool down)
{
    QStyleOptionButton button;
    button.rect = option.rect;
    button.text = index.data(Qt::UserRole).toString();
    button.palette = option.palette;
    button.fontMetrics = option.fontMetrics;
    button.direction = option.direction;
    button.state = QStyle::State_Enabled | (down ? QStyle::State_Sunken : QStyle::State_Raised);
    return button;
}

} // namespace

ButtonDelegate::ButtonDelegate(QObject* parent) : QStyledItemDelegate(parent)
{
    qRegisterMetaType<TSMeasure*>("TSMeasure*");
}

void ButtonDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (!measureOf(index)) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    const QStyleOptionButton button = buttonOption(option, index, pressed_ == index);
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_PushButton, &button, painter, option.widget);
}

QWidget* ButtonDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    if (measureOf(index) || !(index.flags() & Qt::ItemIsEditable))
        return nullptr;
    return QStyledItemDelegate::createEditor(parent, option, index);
}

void ButtonDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (!line) {
        QStyledItemDelegate::setEditorData(editor, index);
        return;
    }
    const QVariant user = index.data(Qt::UserRole);
    line->setText((user.isValid() ? user : index.data(Qt::DisplayRole)).toString());
}

void ButtonDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const auto* line = qobject_cast<QLineEdit*>(editor);
    if (!line) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    model->setData(index, line->text(), Qt::UserRole);
    model->setData(index, line->text(), Qt::DisplayRole);
}

bool ButtonDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                                 const QModelIndex& index)
{
    TSMeasure* measure = measureOf(index);
    if (event->type() == QEvent::MouseButtonPress && measure
        && option.rect.contains(static_cast<QMouseEvent*>(event)->pos())) {
        press(index, option.widget);
        return true;
    }
    if (event->type() == QEvent::MouseButtonRelease && measure && pressed_ == index) {
        letGo();
        emit btnClicked(measure);
        return true;
    }
    return QStyledItemDelegate::editorEvent(event, model, option, index);
}

// A view tells its delegate of a release only on the cell that was pressed; the
// button must come up wherever the mouse is let go.
bool ButtonDelegate::eventFilter(QObject* object, QEvent* event)
{
    if (!view_ || object != view_->viewport())
        return QStyledItemDelegate::eventFilter(object, event);
    if (event->type() == QEvent::MouseButtonRelease
        && view_->indexAt(static_cast<QMouseEvent*>(event)->pos()) != pressed_)
        letGo();
    return false;
}

void ButtonDelegate::press(const QModelIndex& index, const QWidget* widget)
{
    pressed_ = index;
    view_ = qobject_cast<QAbstractItemView*>(const_cast<QWidget*>(widget));
    if (!view_)
        return;
    view_->viewport()->installEventFilter(this);
    view_->viewport()->update();
}

void ButtonDelegate::letGo()
{
    pressed_ = QPersistentModelIndex();
    if (!view_)
        return;
    view_->viewport()->removeEventFilter(this);
    view_->viewport()->update();
    view_ = nullptr;
}
