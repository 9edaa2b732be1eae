#include "charts/picture_rules.h"

#include <gtest/gtest.h>

namespace {

void expectInside(const QRectF& outer, const QRectF& inner, const QString& what)
{
    EXPECT_TRUE(inner.isEmpty() || outer.adjusted(-0.5, -0.5, 0.5, 0.5).contains(inner)) << what;
}

const QVector<const PlotRecord::Axis*> axesOf(const PlotRecord& record)
{
    return {&record.x, &record.y, &record.secondaryY};
}

} // namespace

void expectInsidePicture(const PlotRecord& record)
{
    const QRectF picture(QPointF(), QSizeF(record.size));
    expectInside(picture, record.canvas, "frame");
    expectInside(picture, record.key.box, "key");
    for (const QRectF& entry : record.key.entries)
        expectInside(record.key.box, entry, "entry of the key");
    for (const PlotRecord::Axis* axis : axesOf(record)) {
        expectInside(picture, axis->labelBox, axis->label);
        for (int i = 0; i < axis->tickBoxes.size(); ++i)
            expectInside(picture, axis->tickBoxes[i], axis->tickLabels[i]);
    }
    for (const PlotRecord::Label& label : record.labels)
        expectInside(record.canvas, label.box, label.text);
}

void expectKeyFreeOfData(const PlotRecord& record)
{
    for (const PlotRecord::Label& label : record.labels) {
        EXPECT_FALSE(record.key.box.intersects(label.box)) << label.text;
        EXPECT_FALSE(record.key.box.contains(label.point)) << label.text;
    }
    for (const PlotRecord::Picture& picture : record.pictures)
        EXPECT_FALSE(record.key.box.intersects(picture.box.intersected(record.data)));
}

void expectTickLabelsApart(const PlotRecord& record)
{
    for (const PlotRecord::Axis* axis : axesOf(record)) {
        for (int i = 1; i < axis->tickBoxes.size(); ++i)
            EXPECT_FALSE(axis->tickBoxes[i].intersects(axis->tickBoxes[i - 1])) << axis->tickLabels[i];
        for (const QRectF& box : axis->tickBoxes)
            EXPECT_FALSE(box.intersects(axis->labelBox)) << axis->label;
    }
}

void expectLabelsApart(const PlotRecord& record)
{
    for (int i = 0; i < record.labels.size(); ++i) {
        for (int j = 0; j < i; ++j)
            EXPECT_FALSE(record.labels[i].box.adjusted(0.5, 0.5, -0.5, -0.5).intersects(record.labels[j].box))
                << record.labels[i].text << " " << record.labels[j].text;
    }
}
