#include "class_table.h"
#include "entity_clone.h"
#include "entity_shape.h"
#include "text_parts.h"

NCRX_DEFINE(NcDbText, NcDbEntity)

NcStatus NcDbText::setTextString(const QString& text) { return assign(text_, text); }

void NcDbText::setHeight(double height) { assign(height_, height); }

void NcDbText::setRotation(double radians) { assign(rotation_, radians); }

void NcDbText::setWidthFactor(double factor) { assign(widthFactor_, factor); }

void NcDbText::setPosition(const NcGePoint3d& p) { assign(position_, p); }

void NcDbText::setAlignmentPoint(const NcGePoint3d& p) { assign(alignment_, p); }

void NcDbText::setHorizontalMode(int mode)
{
    if (mode >= kTextLeft && mode <= kTextFit)
        assign(horizontal_, mode);
}

void NcDbText::setVerticalMode(int mode)
{
    if (mode >= kTextBase && mode <= kTextTop)
        assign(vertical_, mode);
}

NcStatus NcDbText::transformBy(const NcGeMatrix3d& matrix)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const PlaneChange plane(matrix);
    position_ = matrix * position_;
    alignment_ = matrix * alignment_;
    height_ *= plane.scale;
    rotation_ = plane.angle(rotation_);
    changed();
    return NcStatus::Ok;
}

std::optional<NcGeExtents> NcDbText::extents() const
{
    const bool plain = horizontal_ == kTextLeft && vertical_ == kTextBase;
    const double fromLeft = horizontal_ == kTextRight              ? 1.0
        : horizontal_ == kTextCenter || horizontal_ == kTextMiddle ? 0.5
                                                                   : 0.0;
    const double fromBottom = vertical_ == kTextTop               ? 1.0
        : vertical_ == kTextVertMid || horizontal_ == kTextMiddle ? 0.5
                                                                  : 0.0;
    ExtentsBuilder box;
    addTextBox(box, plain ? position_ : alignment_, textWidth(text_, height_ * widthFactor_), height_, fromLeft,
               fromBottom, rotation_);
    return box.result();
}

NcDbEntity* NcDbText::clone() const
{
    return cloned(*this, [&](NcDbText& copy) { copyText(*this, copy); });
}

void copyText(const NcDbText& from, NcDbText& to)
{
    HostAccess::position(to) = from.position();
    HostAccess::alignment(to) = from.alignmentPoint();
    HostAccess::text(to) = from.textString();
    HostAccess::height(to) = from.height();
    HostAccess::rotation(to) = from.rotation();
    HostAccess::widthFactor(to) = from.widthFactor();
    HostAccess::horizontal(to) = from.horizontalMode();
    HostAccess::vertical(to) = from.verticalMode();
}
