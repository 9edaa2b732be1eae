#include "drawing_aids.h"

DrawingAids& DrawingAids::instance()
{
    static DrawingAids aids;
    return aids;
}

void DrawingAids::setSnaps(bool on)
{
    snaps_ = on;
    emit changed();
}

void DrawingAids::setOrtho(bool on)
{
    ortho_ = on;
    polar_ = polar_ && !on;
    emit changed();
}

void DrawingAids::setPolar(bool on)
{
    polar_ = on;
    ortho_ = ortho_ && !on;
    emit changed();
}
