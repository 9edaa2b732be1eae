#include "text_stamps.h"

#include "text_painting.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace {

constexpr double kLargest = 48.0;   // dots of the height of capitals
constexpr int kSteps = 4;           // places between two dots, each way
constexpr double kSizeSteps = 64.0; // of a dot: sizes that differ by less are one
constexpr double kFarthest = 1e6;   // dots from the picture's corner
constexpr size_t kMostBytes = 16 * 1024 * 1024;

// A shape as it lies on the dots, but for whole dots.
struct Lie {
    quint64 shape;
    int size[4]; // of the linear part
    int x, y;    // between the dots
    QRgb color;
    bool rim;

    bool operator==(const Lie& o) const
    {
        return shape == o.shape && std::equal(size, size + 4, o.size) && x == o.x && y == o.y && color == o.color
            && rim == o.rim;
    }
};

struct LieHash {
    size_t operator()(const Lie& lie) const
    {
        size_t hash = size_t(lie.shape) * 2 + lie.rim;
        for (const int part : {lie.size[0], lie.size[1], lie.size[2], lie.size[3], lie.x, lie.y, int(lie.color)})
            hash = hash * 1000003u ^ size_t(part);
        return hash;
    }
};

struct Stamp {
    QImage image;
    QPoint corner; // from the dot of the shape's origin
};

Stamp makeStamp(const QPainterPath& shape, const Lie& lie)
{
    const QTransform placing(lie.size[0] / kSizeSteps, lie.size[1] / kSizeSteps, lie.size[2] / kSizeSteps,
                             lie.size[3] / kSizeSteps, double(lie.x) / kSteps, double(lie.y) / kSteps);
    const QPainterPath path = placing.map(shape);
    const QRect box = path.boundingRect().toAlignedRect().adjusted(-1, -1, 1, 1);
    if (path.isEmpty())
        return {};
    Stamp stamp{QImage(box.size(), QImage::Format_ARGB32_Premultiplied), box.topLeft()};
    stamp.image.fill(Qt::transparent);
    QPainter painter(&stamp.image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-box.topLeft());
    painter.fillPath(path, QColor::fromRgba(lie.color));
    return stamp;
}

class Stamps {
public:
    const Stamp& of(const TextPiece& piece, const Lie& lie)
    {
        const auto found = stamps_.find(lie);
        if (found != stamps_.end())
            return found->second;
        if (bytes_ > kMostBytes) {
            stamps_.clear();
            bytes_ = 0;
        }
        const Stamp& made = stamps_.emplace(lie, makeStamp(piece.path(lie.rim), lie)).first->second;
        bytes_ += size_t(made.image.sizeInBytes()) + sizeof(Lie) + sizeof(Stamp);
        return made;
    }

private:
    std::unordered_map<Lie, Stamp, LieHash> stamps_;
    size_t bytes_ = 0;
};

Stamps& stamps()
{
    static Stamps kept;
    return kept;
}

int rounded(double value) { return int(std::lround(value * kSizeSteps)); }

// Where on the screen the characters of one text go.
void stampPieces(QPainter& painter, const std::vector<TextPiece>& pieces, const QTransform& toDots, const QColor& color,
                 bool rim)
{
    for (const TextPiece& piece : pieces) {
        const QTransform placing = piece.placing * toDots;
        const int x = int(std::lround(placing.dx() * kSteps)), y = int(std::lround(placing.dy() * kSteps));
        const int dotX = int(std::floor(double(x) / kSteps)), dotY = int(std::floor(double(y) / kSteps));
        const Lie lie{piece.id,
                      {rounded(placing.m11()), rounded(placing.m12()), rounded(placing.m21()), rounded(placing.m22())},
                      x - dotX * kSteps,
                      y - dotY * kSteps,
                      color.rgba(),
                      rim};
        const Stamp& stamp = stamps().of(piece, lie);
        if (!stamp.image.isNull())
            painter.drawImage(stamp.corner + QPoint(dotX, dotY), stamp.image);
    }
}

} // namespace

bool stampText(QPainter& painter, const FigureText& text, const QTransform& toDevice, const QColor& color,
               const QColor& rim)
{
    const QTransform world = painter.worldTransform();
    const QTransform toDots = toDevice * world;
    const QTransform placing = text.placing * toDots;
    const double height = std::hypot(placing.m21(), placing.m22()), width = std::hypot(placing.m11(), placing.m12());
    const bool near = std::abs(placing.dx()) < kFarthest && std::abs(placing.dy()) < kFarthest;
    if (!placing.isAffine() || !near || !(std::max(height, width) <= kLargest) || painter.deviceTransform() != world)
        return false;
    const std::vector<TextPiece> pieces = textPieces(text);
    painter.resetTransform();
    if (rim.isValid())
        stampPieces(painter, pieces, toDots, rim, true);
    stampPieces(painter, pieces, toDots, color, false);
    painter.setWorldTransform(world);
    return true;
}
