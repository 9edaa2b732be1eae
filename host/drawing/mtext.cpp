#include "class_table.h"
#include "entity_clone.h"
#include "entity_shape.h"

#include <algorithm>

NCRX_DEFINE(NcDbMText, NcDbEntity)

namespace {
// Lines stand that many text heights apart.
const double kLineSpacing = 5.0 / 3.0;
} // namespace

void NcDbMText::setContents(const QString& text) { assign(contents_, text); }

void NcDbMText::setLocation(const NcGePoint3d& p) { assign(location_, p); }

void NcDbMText::setTextHeight(double height) { assign(height_, height); }

void NcDbMText::setWidth(double width) { assign(width_, width); }

void NcDbMText::setRotation(double radians) { assign(rotation_, radians); }

void NcDbMText::setAttachment(int attachment)
{
    if (attachment >= 1 && attachment <= 9)
        assign(attachment_, attachment);
}

void NcDbMText::setBackgroundFill(bool on) { assign(backgroundFill_, on); }

void NcDbMText::setUseBackgroundColor(bool on) { assign(useBackgroundColor_, on); }

void NcDbMText::setBackgroundScaleFactor(double factor) { assign(backgroundScale_, factor); }

NcStatus NcDbMText::transformBy(const NcGeMatrix3d& matrix)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const PlaneChange plane(matrix);
    location_ = matrix * location_;
    height_ *= plane.scale;
    width_ *= plane.scale;
    rotation_ = plane.angle(rotation_);
    changed();
    return NcStatus::Ok;
}

std::optional<NcGeExtents> NcDbMText::extents() const
{
    QString plain = contents_;
    const QStringList lines = plain.replace(QLatin1String("\\P"), QLatin1String("\n")).split(QLatin1Char('\n'));
    double width = width_;
    for (const QString& line : lines)
        width = std::max(width, textWidth(line, height_));
    const double height = height_ * (1.0 + (lines.size() - 1) * kLineSpacing);
    const int row = (attachment_ - 1) / 3, column = (attachment_ - 1) % 3;
    ExtentsBuilder box;
    addTextBox(box, location_, width, height, column / 2.0, 1.0 - row / 2.0, rotation_);
    return box.result();
}

NcDbEntity* NcDbMText::clone() const
{
    return cloned(*this, [&](NcDbMText& copy) {
        copy.contents_ = contents_;
        copy.location_ = location_;
        copy.height_ = height_;
        copy.width_ = width_;
        copy.rotation_ = rotation_;
        copy.attachment_ = attachment_;
        copy.backgroundFill_ = backgroundFill_;
        copy.useBackgroundColor_ = useBackgroundColor_;
        copy.backgroundScale_ = backgroundScale_;
    });
}
