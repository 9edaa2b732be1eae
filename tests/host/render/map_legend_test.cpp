// The legend of a printed map.
#include "scene.h"

#include <drawing/host_access.h>
#include <render/map_legend.h>

#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class MapLegendTest : public ::testing::Test {
protected:
    MapLegendTest() { QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia)); }
    ~MapLegendTest() override { QLocale::setDefault(QLocale::system()); }

    NcDbObjectId band(double left, const QColor& color)
    {
        NcDbHatch* hatch = square(left, 0, 10);
        hatch->setColor(NcCmColor::fromRGB(color.red(), color.green(), color.blue()));
        return scene.add(hatch, QStringLiteral("Карта"), -1);
    }
    void group(const QString& name, const QString& description, const NcDbObjectIdArray& members)
    {
        NcDbDictionary* groups = nullptr;
        scene.drawing.getGroupDictionary(groups, kForWrite);
        auto* made = new NcDbGroup(description);
        NcDbObjectId id;
        groups->setAt(name, made, id);
        made->append(members);
        made->close();
        groups->close();
    }
    void addMap()
    {
        group(QStringLiteral("TERVA_HATCH_1"),
              QStringLiteral("Карта температур, °С\nцикл: 3 - 01.10.25 - 15.10.25\nглубина: 6,00 м\n"
                             "#a1c2f0 -2.4 -2.2\n#ffeeaa -0.25 0.2\n#ffffff"),
              {band(0, QColor(0xa1, 0xc2, 0xf0)), band(10, QColor(0xff, 0xee, 0xaa)), band(20, Qt::white)});
    }
    Sheet sheet(double x, double y)
    {
        Sheet sheet;
        sheet.scale = 100.0; // 39.5 by 28.7 units
        sheet.center = {x, y};
        return sheet;
    }
    QStringList legend(const Sheet& sheet)
    {
        QStringList lines;
        for (const Sheet::Sign& sign : legendOf(scene.drawing, scene.record(), sheet))
            lines << sign.text;
        return lines;
    }

    Scene scene;
};

} // namespace

TEST_F(MapLegendTest, TheBandsOfAMapStandWithTheirRanges)
{
    scene.addLayer(QStringLiteral("Карта"), 7);
    scene.addLayer(QStringLiteral("Сваи"), 1);
    addMap();
    scene.add(new NcDbLine({0, 0, 0}, {10, 0, 0}), QStringLiteral("Сваи"));
    EXPECT_EQ(legend(sheet(15, 5)),
              (QStringList{"Карта температур, °С", "цикл: 3 - 01.10.25 - 15.10.25", "глубина: 6,00 м", "-2,40 … -2,20",
                           "-0,25 … +0,20", "вне шкалы", "Слои", "Сваи"}));
    const std::vector<Sheet::Sign> signs = legendOf(scene.drawing, scene.record(), sheet(15, 5));
    EXPECT_EQ(signs[0].kind, Sheet::Sign::Heading);
    EXPECT_EQ(signs[1].kind, Sheet::Sign::Note);
    EXPECT_EQ(signs[3].kind, Sheet::Sign::Patch);
    EXPECT_EQ(signs[3].color, QColor(0xa1, 0xc2, 0xf0));
}

TEST_F(MapLegendTest, OnlyBandsInTheFieldAreTold)
{
    addMap();
    EXPECT_EQ(legend(sheet(-12, 5)).filter(QStringLiteral("…")), QStringList{"-2,40 … -2,20"});
    EXPECT_TRUE(legend(sheet(500, 5)).isEmpty());
}

TEST_F(MapLegendTest, AGroupThatIsNoMapIsNone)
{
    group(QStringLiteral("TERVA_VALS_1"), QString(), {band(0, Qt::red)});
    group(QStringLiteral("G"), QStringLiteral("Группа\nцикл: 3"), {band(10, Qt::red)});
    EXPECT_TRUE(mapsIn(scene.drawing, scene.record(), QRectF(-100, -100, 500, 500)).empty());
}

TEST_F(MapLegendTest, TheOnlyMapInTheFieldTellsCycleAndDepth)
{
    addMap();
    Sheet one = sheet(15, 5);
    one.cycle = QStringLiteral("текущий");
    tellMap(scene.drawing, scene.record(), one);
    EXPECT_EQ(one.cycle, QStringLiteral("3 - 01.10.25 - 15.10.25"));
    EXPECT_EQ(one.depth, QStringLiteral("6,00 м"));
    Sheet away = sheet(500, 5);
    away.cycle = QStringLiteral("текущий");
    tellMap(scene.drawing, scene.record(), away);
    EXPECT_EQ(away.cycle, QStringLiteral("текущий"));
    group(QStringLiteral("TERVA_HATCH_2"), QStringLiteral("Другая\n#ff0000 1 2"), {band(5, Qt::red)});
    Sheet two = sheet(15, 5);
    tellMap(scene.drawing, scene.record(), two);
    EXPECT_TRUE(two.depth.isEmpty()) << "of two maps none is the sheet's";
}

TEST_F(MapLegendTest, TheDescriptionSurvivesTheFile)
{
    addMap();
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.dxf"));
    ASSERT_TRUE(isOk(scene.drawing.saveAs(path)));
    NcDbDatabase read(false);
    ASSERT_TRUE(isOk(read.readDwgFile(path)));
    const std::vector<DrawnMap> maps = mapsIn(read, recordDrawing(read), QRectF(-100, -100, 500, 500));
    ASSERT_EQ(maps.size(), 1u);
    EXPECT_EQ(maps[0].title, QStringLiteral("Карта температур, °С"));
    EXPECT_EQ(maps[0].bands.size(), 3u);
}

TEST_F(MapLegendTest, ItIsOnThePrintedSheet)
{
    addMap();
    QTemporaryDir folder;
    Sheet printed = sheet(15, 5);
    printed.signs = legendOf(scene.drawing, scene.record(), printed);
    // More rows than the sheet is high go into a second column.
    for (int i = 0; i < 60; ++i)
        printed.signs.push_back({Qt::red, QStringLiteral("строка %1").arg(i), Sheet::Sign::Patch});
    const QString path = folder.filePath(QStringLiteral("a.pdf"));
    ASSERT_EQ(writeSheet(printed, scene.record(), path).toStdString(), "");
    QProcess text;
    text.start(QStringLiteral("pdftotext"), {"-layout", path, "-"});
    ASSERT_TRUE(text.waitForFinished(60000));
    const QString told = QString::fromUtf8(text.readAllStandardOutput());
    for (const char* words :
         {"Карта температур, °С", "глубина: 6,00 м", "-2,40 … -2,20", "вне шкалы", "строка 0", "строка 59"})
        EXPECT_TRUE(told.contains(QString::fromUtf8(words))) << words << '\n' << told.toStdString();
}
