// Colours: an index of the host's palette or a true colour.
#pragma once

#include "types.h"

class NRX_API NcCmColorBase {
public:
    enum Method { kByLayer, kByBlock, kByIndex, kByColor };

    virtual ~NcCmColorBase() = default;

    // 0 by block, 1..255 the palette, 256 by layer; other values are refused.
    NcStatus setColorIndex(int index);
    // Palette index; of a true colour the nearest palette entry.
    int colorIndex() const;
    void setRGB(int red, int green, int blue);
    int red() const { return red_; }
    int green() const { return green_; }
    int blue() const { return blue_; }
    Method method() const { return method_; }
    bool isByLayer() const { return method_ == kByLayer; }

    bool operator==(const NcCmColorBase& other) const;
    bool operator!=(const NcCmColorBase& other) const { return !(*this == other); }

private:
    Method method_ = kByLayer;
    int index_ = 256;
    int red_ = 255, green_ = 255, blue_ = 255;
};

class NRX_API NcCmColor : public NcCmColorBase {
public:
    NcCmColor() = default;
    static NcCmColor fromIndex(int index);
    static NcCmColor fromRGB(int red, int green, int blue);
};
