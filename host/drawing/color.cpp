#include "palette.h"

#include <nrx/color.h>

#include <algorithm>

NcStatus NcCmColorBase::setColorIndex(int index)
{
    if (index < 0 || index > 256)
        return NcStatus::InvalidInput;
    const PaletteColor color = paletteColor(index);
    method_ = index == 0 ? kByBlock : index == 256 ? kByLayer : kByIndex;
    index_ = index;
    red_ = color.red;
    green_ = color.green;
    blue_ = color.blue;
    return NcStatus::Ok;
}

int NcCmColorBase::colorIndex() const
{
    return method_ == kByColor ? nearestPaletteIndex(red_, green_, blue_) : index_;
}

void NcCmColorBase::setRGB(int red, int green, int blue)
{
    method_ = kByColor;
    red_ = std::clamp(red, 0, 255);
    green_ = std::clamp(green, 0, 255);
    blue_ = std::clamp(blue, 0, 255);
}

bool NcCmColorBase::operator==(const NcCmColorBase& o) const
{
    if (method_ != o.method_)
        return false;
    return method_ == kByColor ? red_ == o.red_ && green_ == o.green_ && blue_ == o.blue_ : index_ == o.index_;
}

NcCmColor NcCmColor::fromIndex(int index)
{
    NcCmColor color;
    color.setColorIndex(index);
    return color;
}

NcCmColor NcCmColor::fromRGB(int red, int green, int blue)
{
    NcCmColor color;
    color.setRGB(red, green, blue);
    return color;
}
