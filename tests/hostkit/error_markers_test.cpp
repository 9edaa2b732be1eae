#include "hostkit/error_markers.h"

#include "hostkit/layers.h"
#include "hostkit/model_space.h"
#include "support/element_drawing.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace {

class ErrorMarkers : public ::testing::Test {
protected:
    const NcDbLayerTableRecord* layer(const QString& name)
    {
        const NcDbObjectId id = HostAccess::recordId(drawing.database(), drawing.database().layerTableId(), name);
        return id.isNull() ? nullptr : HostAccess::objectAs<NcDbLayerTableRecord>(id);
    }
    // Living entities of model space, as texts: "circle x y z r", "line x y z x y z".
    QStringList shapes(const QString& onLayer = errorLayerName())
    {
        QStringList texts;
        auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(drawing.database()).modelSpace);
        for (const NcDbObjectId& id : HostAccess::entities(*space)) {
            if (!HostAccess::isLiving(id) || HostAccess::objectAs<NcDbEntity>(id)->layer() != onLayer)
                continue;
            if (const auto* circle = HostAccess::objectAs<NcDbCircle>(id)) {
                EXPECT_EQ(circle->normal(), NcGeVector3d(0, 0, 1));
                texts.append("circle " + point(circle->center()) + " " + number(circle->radius()));
            } else if (const auto* line = HostAccess::objectAs<NcDbLine>(id)) {
                texts.append("line " + point(line->startPoint()) + " " + point(line->endPoint()));
            } else {
                texts.append("other");
            }
        }
        return texts;
    }
    static QString number(double value) { return QString::number(value, 'f', 3); }
    static QString point(const NcGePoint3d& p) { return number(p.x) + " " + number(p.y) + " " + number(p.z); }

    ElementDrawing drawing;
    ScriptedPrompts host;
};

const NcGePoint3d at(100, 200, 30);
const QStringList cross = {"line 97.764 197.764 0.000 102.236 202.236 0.000",
                           "line 97.764 202.236 0.000 102.236 197.764 0.000"};

} // namespace

TEST_F(ErrorMarkers, LayerIsMadeRedAndLocked)
{
    EXPECT_EQ(errorLayerName(), "TERVA_ERROR_SYNC");
    ASSERT_EQ(layer("TERVA_ERROR_SYNC"), nullptr);
    ensureErrorLayer();
    ASSERT_NE(layer("TERVA_ERROR_SYNC"), nullptr);
    EXPECT_EQ(layer("TERVA_ERROR_SYNC")->color().colorIndex(), 1);
    EXPECT_TRUE(layer("TERVA_ERROR_SYNC")->isLocked());
    ensureErrorLayer();
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(ErrorMarkers, LayerOfAnotherColourKeepsItAndIsLocked)
{
    ensureLayer("TERVA_ERROR_SYNC", 3);
    ensureErrorLayer();
    EXPECT_EQ(layer("TERVA_ERROR_SYNC")->color().colorIndex(), 3);
    EXPECT_TRUE(layer("TERVA_ERROR_SYNC")->isLocked());
}

TEST_F(ErrorMarkers, CircleLiesAtTheHeightOfItsCentreOnTheLockedLayer)
{
    ensureErrorLayer();
    addErrorCircle(at, 5.0);
    EXPECT_EQ(shapes(), QStringList{"circle 100.000 200.000 30.000 5.000"});
    EXPECT_TRUE(layer("TERVA_ERROR_SYNC")->isLocked());
    EXPECT_EQ(host.console, "");
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(ErrorMarkers, CrossLiesAtHeightZeroAndItsSizeIsASquare)
{
    ensureErrorLayer();
    addErrorCross(at, 5.0);
    EXPECT_EQ(shapes(), cross);
    addErrorCross(at, 4.0);
    EXPECT_EQ(shapes().value(2), "line 98.000 198.000 0.000 102.000 202.000 0.000");
    EXPECT_TRUE(layer("TERVA_ERROR_SYNC")->isLocked());
}

TEST_F(ErrorMarkers, FourMarkersHaveTheirShapes)
{
    const struct {
        ErrorMarker marker;
        QStringList shapes;
    } rows[] = {
        {ErrorMarker::NameDuplicate, {"circle 100.000 200.000 30.000 5.000", "circle 100.000 200.000 30.000 5.500"}},
        {ErrorMarker::IdDuplicate,
         {"circle 100.000 200.000 30.000 5.000", "circle 100.000 200.000 30.000 5.500",
          "circle 100.000 200.000 30.000 6.000"}},
        {ErrorMarker::NotInDatabase, cross},
        {ErrorMarker::NotInPosition, cross + QStringList{"circle 100.000 200.000 30.000 5.000"}},
    };
    for (const auto& row : rows) {
        clearErrorLayer();
        addErrorMarker(row.marker, at);
        EXPECT_EQ(shapes(), row.shapes);
        EXPECT_TRUE(layer("TERVA_ERROR_SYNC")->isLocked());
    }
}

TEST_F(ErrorMarkers, WithoutTheLayerTheShapeIsReportedAndStillDrawn)
{
    addErrorCircle(at, 5.0);
    EXPECT_EQ(host.console, "Error set layer \n");
    EXPECT_EQ(shapes("0").size(), 1);
}

TEST_F(ErrorMarkers, ClearingErasesWhatLiesOnTheLayerAndNothingElse)
{
    ensureErrorLayer();
    addErrorMarker(ErrorMarker::NotInPosition, at);
    appendToModelSpace(std::make_unique<NcDbCircle>(at, NcGeVector3d(0, 0, 1), 7.0));
    clearErrorLayer();
    EXPECT_EQ(shapes(), QStringList());
    EXPECT_EQ(shapes("0").size(), 1);
    EXPECT_TRUE(layer("TERVA_ERROR_SYNC")->isLocked());
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(ErrorMarkers, ClearingAnEmptyDrawingMakesTheLayer)
{
    clearErrorLayer();
    ASSERT_NE(layer("TERVA_ERROR_SYNC"), nullptr);
    EXPECT_TRUE(layer("TERVA_ERROR_SYNC")->isLocked());
}
