// The table in which layers are edited, and how ground is drawn in it.
#include "elements/geology/ground_hatches.h"
#include "elements/geology/ground_layers_model.h"

#include <QSet>
#include <gtest/gtest.h>

using Model = GroundLayersModel;

namespace {

QString patterns() { return QStringLiteral(TERVA_SOURCE_DIR "/share/pats"); }

GroundElement ground(int id, const QString& code) { return {id, code, "Грунт", {"clay", 2.0, "#112233"}}; }

class LayersTable : public ::testing::Test {
protected:
    void SetUp() override
    {
        model.setGrounds({ground(1, "А"), ground(2, "Б")});
        GroundLayer first, second;
        first.to = 1.5;
        first.ground = ground(1, "А");
        second.from = 1.5;
        second.to = 4.125;
        second.description = "сухой";
        model.showStored({first, second});
    }
    QStringList row(int number) const
    {
        QStringList texts;
        for (int column = 0; column < model.columnCount(); ++column)
            texts << model.index(number, column).data().toString();
        return texts;
    }
    bool put(int row, int column, const QVariant& value, int role = Qt::EditRole)
    {
        return model.setData(model.index(row, column), value, role);
    }

    Model model;
};

int coloursOf(const QImage& picture)
{
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            colours.insert(picture.pixel(x, y));
    }
    return colours.size();
}

} // namespace

TEST_F(LayersTable, ShowsDepthsGroundAndDescription)
{
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column)
        titles << model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    EXPECT_EQ(titles, QStringList({"Глубина от (м)", "Глубина до (м)", "ИГЭ", "Описание", "Штриховка"}));
    EXPECT_EQ(row(0), QStringList({"0.00", "1.50", "А - Грунт", "", ""}));
    EXPECT_EQ(row(1), QStringList({"1.50", "4.125", "", "сухой", ""}));
    EXPECT_EQ(model.index(0, Model::Hatch).data(Model::LookRole).value<GroundLook>().pattern, "clay");
    EXPECT_EQ(model.index(1, Model::Ground).data(Model::KeyRole), QVariant(-1));
    EXPECT_FALSE(model.isChanged());
}

TEST_F(LayersTable, TakesNumbersWithPointOrCommaAndRefusesOthers)
{
    EXPECT_TRUE(put(0, Model::To, "2,25"));
    EXPECT_EQ(model.layers()[0].to, 2.25);
    EXPECT_TRUE(put(0, Model::From, " 0.5 "));
    EXPECT_EQ(model.layers()[0].from, 0.5);
    for (const char* wrong : {"", "глубоко", "nan", "inf", "1.2.3"})
        EXPECT_FALSE(put(0, Model::To, wrong)) << wrong;
    EXPECT_EQ(model.layers()[0].to, 2.25);
    EXPECT_TRUE(put(0, Model::From, "-1")) << "a depth above the mouth is for the check to tell";
    EXPECT_TRUE(model.isChanged());
}

TEST_F(LayersTable, TakesGroundsThatItKnows)
{
    EXPECT_FALSE(put(1, Model::Ground, 9, Model::KeyRole));
    EXPECT_FALSE(model.isChanged());
    EXPECT_TRUE(put(1, Model::Ground, 2, Model::KeyRole));
    EXPECT_EQ(row(1)[Model::Ground], "Б - Грунт");
    EXPECT_EQ(model.index(1, Model::Hatch).data(Model::LookRole).value<GroundLook>().color, "#112233");
    EXPECT_TRUE(put(1, Model::Ground, -1, Model::KeyRole));
    EXPECT_EQ(row(1)[Model::Ground], "");
    EXPECT_EQ(model.index(1, Model::Hatch).data(Model::LookRole).value<GroundLook>().color, "#FFFFFF");
}

TEST_F(LayersTable, AddsBelowTheLastAndRemoves)
{
    EXPECT_EQ(model.addLayer(), 2);
    EXPECT_EQ(row(2), QStringList({"4.125", "5.125", "", "", ""}));
    EXPECT_TRUE(model.isChanged());
    model.removeLayer(0);
    EXPECT_EQ(row(0)[Model::Description], "сухой");
    model.removeLayer(7);
    EXPECT_EQ(model.rowCount(), 2);
    model.showStored({});
    EXPECT_FALSE(model.isChanged());
    EXPECT_EQ(model.addLayer(), 0);
    EXPECT_EQ(row(0), QStringList({"0.00", "1.00", "", "", ""}));
}

TEST_F(LayersTable, LayersFromElsewhereAreAChange)
{
    model.replaceAll({});
    EXPECT_TRUE(model.isChanged());
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(LayersTable, TheHatchIsNotEdited)
{
    EXPECT_FALSE(model.flags(model.index(0, Model::Hatch)) & Qt::ItemIsEditable);
    EXPECT_TRUE(model.flags(model.index(0, Model::Ground)) & Qt::ItemIsEditable);
    EXPECT_FALSE(put(0, Model::Hatch, "x"));
}

TEST(GroundHatches, DrawThePatternOnItsColour)
{
    GroundHatches hatches(patterns());
    const QImage clay = hatches.picture({"clay.pat", 1.0, "#FFEEAA"}, QSize(80, 40));
    EXPECT_EQ(clay.size(), QSize(80, 40));
    EXPECT_GT(coloursOf(clay), 1);
    const QImage plain = hatches.picture({"нет такой", 1.0, "FFEEAA"}, QSize(80, 40));
    EXPECT_EQ(coloursOf(plain), 1);
    EXPECT_EQ(plain.pixelColor(3, 3), QColor("#FFEEAA"));
    EXPECT_EQ(hatches.picture({"", 1.0, "цвет"}, QSize(8, 8)).pixelColor(1, 1), QColor(Qt::white));
    EXPECT_TRUE(hatches.picture({"clay", 1.0, "#FFFFFF"}, QSize(0, 5)).isNull());
}

TEST(GroundHatches, NameThePatternFilesOfAFolder)
{
    const QStringList files = GroundHatches::patternFiles(patterns() + "\\");
    EXPECT_TRUE(files.contains("clay.pat"));
    EXPECT_TRUE(files.contains("sand.pat"));
    EXPECT_EQ(GroundHatches::patternFiles("/nowhere"), QStringList());
}
