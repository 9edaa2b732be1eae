// Maps of real measurements: in the drawing every point lies in the colour of its value.
#include "analysis/levels/forms/color_map_widget.h"
#include "analysis/levels/level_map.h"
#include "analysis/maps/forms/deformation_map_form.h"
#include "analysis/maps/forms/iso_contours_cmd_dialog.h"
#include "analysis/maps/map_form_fixture.h"
#include "geometry/polygon.h"
#include "kept_picture.h"
#include "real_input.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QSpinBox>

#include <cmath>

namespace {

using geometry::PointList;

const QString kRepository = QStringLiteral(TERVA_SOURCE_DIR);

struct Scale {
    double minimum, maximum;
    int count;
};

// What a drawing says about places: the colours of the hatches that hold them.
class DrawnMap {
public:
    explicit DrawnMap(const NcDbObjectIdArray& hatches)
    {
        for (const NcDbObjectId id : hatches) {
            const Opened<NcDbHatch> hatch(id, kForRead);
            Band band;
            band.color = hatch->color();
            for (int i = 0; i < hatch->numLoops(); ++i) {
                PointList loop;
                for (const NcGePoint2d& corner : hatch->loopAt(i).points)
                    loop.push_back({corner.x, corner.y, 0.0});
                band.loops.push_back(std::move(loop));
            }
            bands_.push_back(std::move(band));
        }
    }
    std::vector<NcCmColor> colorsAt(const geometry::Point3& place) const
    {
        std::vector<NcCmColor> colors;
        for (const Band& band : bands_) {
            int around = 0;
            for (const PointList& loop : band.loops)
                around += geometry::pointInPolygon(place, loop) ? 1 : 0;
            if (around % 2 == 1)
                colors.push_back(band.color);
        }
        return colors;
    }

private:
    struct Band {
        NcCmColor color;
        std::vector<PointList> loops;
    };
    std::vector<Band> bands_;
};

class RealMap : public MapFormFixture {
protected:
    // Without smoothing, which moves lines off what was measured.
    void draw(const PointList& points, const std::function<void(IsoContoursCmdDialog&)>& scale)
    {
        IsoContoursCmdDialog dialog;
        dialog.SetPoints(points);
        child<QCheckBox>(dialog, "CalculateBoundCheck")->setChecked(true);
        child<QCheckBox>(dialog, "SplineLine")->setChecked(smoothed);
        child<QComboBox>(dialog, "HatchOutLayer")->setCurrentText(QStringLiteral("MAP"));
        child<QCheckBox>(dialog, "IsoLineOutCheck")->setChecked(true);
        child<QComboBox>(dialog, "IsoLineOutLayer")->setCurrentText(QStringLiteral("BORDER"));
        scale(dialog);
        levels = child<ColorMapWidget>(dialog, "ColorMap")->current();
        ASSERT_TRUE(dialog.build());
    }
    void draw(const PointList& points, const Scale& scale)
    {
        draw(points, [&scale](IsoContoursCmdDialog& dialog) {
            dialog.SetLevelMapID(LevelMap::User);
            child<QDoubleSpinBox>(dialog, "LevelMin")->setValue(scale.minimum);
            child<QDoubleSpinBox>(dialog, "LevelMax")->setValue(scale.maximum);
            child<QSpinBox>(dialog, "LevelCountSpin")->setValue(scale.count);
        });
    }

    // The share of points that lie in one hatch alone, that of their value's colour; in none where the
    // scale does not reach. A value at a level may lie on either side. Points of the border are looked
    // at a hair inside.
    double readBack(const PointList& points, size_t step = 1) const
    {
        const DrawnMap map(entities<NcDbHatch>(QStringLiteral("MAP")));
        geometry::Point3 middle{0, 0, 0};
        for (const geometry::Point3& point : points)
            middle = {middle.x + point.x / double(points.size()), middle.y + point.y / double(points.size()), 0.0};
        int right = 0, looked = 0;
        for (size_t i = 0; i < points.size(); i += step) {
            const geometry::Point3 place{points[i].x + (middle.x - points[i].x) * 1e-9,
                                         points[i].y + (middle.y - points[i].y) * 1e-9, 0.0};
            const std::vector<NcCmColor> colors = map.colorsAt(place);
            ++looked;
            const bool isRight =
                isOnScale(points[i].z) ? colors.size() == 1 && isColorOf(points[i].z, colors.front()) : colors.empty();
            right += isRight ? 1 : 0;
            if (!isRight && !smoothed)
                ADD_FAILURE() << points[i].z << " at " << points[i].x << ", " << points[i].y << ": " << colors.size()
                              << " hatches";
        }
        return double(right) / looked;
    }
    bool isOnScale(double value) const { return levels.minimum <= value && value < levels.maximum; }
    bool isColorOf(double value, const NcCmColor& color) const
    {
        for (const double near : {value, value - 1e-6, value + 1e-6}) {
            const LevelRange* range = levels.rangeOf(near);
            if (range && range->color == color)
                return true;
        }
        return false;
    }

    bool smoothed = false;
    LevelMap levels;
};

struct SharedMap {
    const char* file;
    size_t points;
    Scale scale;
    size_t step;
};

class SharedSets : public RealMap, public ::testing::WithParamInterface<SharedMap> { };

} // namespace

TEST_F(RealMap, FiftyBoltsInWallsLieInTheColourOfTheirSettlement)
{
    int id = 0;
    for (const RealBolt& bolt : realBolts(kRepository)) {
        addMark(++id, bolt.name.toUtf8(), bolt.x, bolt.y);
        addElevation(id, 1, bolt.base.toUtf8());
        addElevation(id, 2, bolt.current.toUtf8());
    }
    ASSERT_EQ(id, 50);
    const DeformationMapForm form;
    EXPECT_EQ(status(form), QString()) << "each is measured once in both, none nearer than 0.1 m to another";
    const PointList points = form.usedPoints();
    ASSERT_EQ(points.size(), 50u);
    EXPECT_EQ(row(MapFormFixture::points(form), "11581007").mid(3, 2), (QStringList{"1.22", "-114.70"}));
    EXPECT_EQ(row(MapFormFixture::points(form), "11081261").mid(3, 2), (QStringList{"-0.34", "-1.20"}))
        << "below the city's zero";
    draw(points, [](IsoContoursCmdDialog& dialog) { dialog.SetLevelMapID(LevelMap::Deformation); });
    EXPECT_EQ(readBack(points), 1.0) << "11581007 sank below the scale: it has no colour";
    keepDrawing(QStringLiteral("real-bolts.png"), {1600, 1600});
}

TEST_P(SharedSets, EveryPointLiesInTheColourOfItsValue)
{
    const SharedMap& set = GetParam();
    const PointList points = sharedSet(kRepository, QString::fromUtf8(set.file));
    if (points.empty())
        GTEST_SKIP() << "shared/data/scattered does not lie beside the repository: its terms forbid a copy";
    ASSERT_EQ(points.size(), set.points);
    draw(points, set.scale);
    EXPECT_EQ(readBack(points, set.step), 1.0);
    EXPECT_EQ(groupNames().size(), 1) << "all hatches in one group";
    keepDrawing(QString::fromUtf8(set.file).section('.', 0, 0) + QStringLiteral("-plain.png"), {1600, 1600});
}

TEST_P(SharedSets, SmoothedLinesLeaveFewPointsBeyondTheirColour)
{
    const SharedMap& set = GetParam();
    const PointList points = sharedSet(kRepository, QString::fromUtf8(set.file));
    if (points.empty())
        GTEST_SKIP() << "shared/data/scattered does not lie beside the repository: its terms forbid a copy";
    smoothed = true;
    draw(points, set.scale);
    const double share = readBack(points, set.step);
    RecordProperty("share", int(share * 1000));
    EXPECT_GE(share, 0.9) << share;
    keepDrawing(QString::fromUtf8(set.file).section('.', 0, 0) + QStringLiteral(".png"), {1600, 1600});
}

INSTANTIATE_TEST_SUITE_P(Scattered, SharedSets,
                         ::testing::Values(SharedMap{"topo.xyz.csv", 52, {675, 975, 12}, 1},
                                           SharedMap{"volcano.xyz.csv", 5307, {90, 200, 11}, 7},
                                           SharedMap{"meuse-zinc.xyz.csv", 155, {100, 1900, 9}, 1},
                                           SharedMap{"meuse-elev.xyz.csv", 155, {5, 11, 12}, 1},
                                           SharedMap{"alps-gps-up.xyz.csv", 186, {-3, 3, 12}, 1},
                                           SharedMap{"map-25p-epsg-3857.xyz.csv", 25, {-1, 1, 4}, 1}),
                         [](const auto& info) {
                             return QString(info.param.file).section('.', 0, 0).remove('-').toStdString();
                         });
