#include "elements/geology/forms/igs_layer_hatch_delegate.h"

#include <QPainter>

namespace {

constexpr int frame = 2; // of a selected cell, pixels

} // namespace

IGSLayerHatchDelegate::IGSLayerHatchDelegate(int lookRole, QObject* parent)
    : QStyledItemDelegate(parent), lookRole_(lookRole), hatches_(GroundHatches::deliveredFolder())
{ }

void IGSLayerHatchDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QVariant look = index.data(lookRole_);
    if (!look.canConvert<GroundLook>())
        return QStyledItemDelegate::paint(painter, option, index);
    const double ratio = painter->device()->devicePixelRatioF();
    painter->drawImage(option.rect, hatches_.picture(look.value<GroundLook>(), option.rect.size(), ratio));
    if (!(option.state & QStyle::State_Selected))
        return;
    painter->save();
    painter->setPen(QPen(option.palette.color(QPalette::Highlight), frame));
    painter->drawRect(option.rect.adjusted(frame / 2, frame / 2, -frame / 2, -frame / 2));
    painter->restore();
}
