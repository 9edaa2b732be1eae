#pragma once
// The ids of drawings (wp:docPr). Word wants them different from each other in
// all parts of a document.

#include <QByteArray>
#include <QDomElement>
#include <QSet>
#include <QString>

namespace docx {

using DrawingIds = QSet<qint64>;

/// The largest id that Word accepts.
constexpr qint64 largestDrawingId = 0x7fffffff;

/// True for every element that bears such an id, whatever its prefix.
bool isDrawingProperties(const QDomElement& element);

/// The ids of drawings under `root`.
DrawingIds drawingIds(const QDomElement& root);

/// The ids in a part that is not held as a tree: a header, footnotes.
DrawingIds drawingIds(const QByteArray& xml);

/// Takes ids out of the process-wide counter's way as long as it lives: an open
/// template reserves those it has.
class ReservedDrawingIds {
public:
    explicit ReservedDrawingIds(const DrawingIds& ids);
    ~ReservedDrawingIds();
    ReservedDrawingIds(const ReservedDrawingIds&) = delete;
    ReservedDrawingIds& operator=(const ReservedDrawingIds&) = delete;

private:
    DrawingIds ids_;
};

/// The next id of the process-wide counter: it starts at 1 and grows by one,
/// passing over reserved ids. For the UI thread only.
qint64 nextDrawingId();

} // namespace docx
