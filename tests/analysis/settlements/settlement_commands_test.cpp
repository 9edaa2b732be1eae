// The command from its prompt to the drawing, and what it keeps.
#include "analysis/profiles/deformation_profile.h"
#include "analysis/settlements/forms/settlement_commands.h"
#include "analysis/settlements/forms/settlements_map_form.h"
#include "hostkit/groups.h"
#include "settlement_fixture.h"

#include <cmath>

namespace {

class SettlementsCommand : public SettlementFixture {
protected:
    static constexpr const char* title = "Профиль деформаций";

    // Blocks of the drawing: their height and colour.
    static QStringList blocks()
    {
        QStringList told;
        for (const NcDbObjectId id : entities<NcDbHatch>()) {
            const Opened<NcDbHatch> hatch(id, kForRead);
            double low = INFINITY, high = -INFINITY;
            for (const NcGePoint2d& corner : hatch->loopAt(0).points) {
                low = std::min(low, corner.y);
                high = std::max(high, corner.y);
            }
            told << QStringLiteral("%1..%2 c%3").arg(low, 0, 'f', 2).arg(high, 0, 'f', 2).arg(hatch->colorIndex());
        }
        return told;
    }
    static QStringList texts()
    {
        QStringList told;
        for (const NcDbObjectId id : entities<NcDbText>())
            told << Opened<NcDbText>(id, kForRead)->textString();
        return told;
    }
};

} // namespace

TEST_F(SettlementsCommand, DrawsTheEpureOnTheLine)
{
    ensureLayer(QStringLiteral("Эпюры"), 3);
    database.exec("insert into positions_attributes (position_id, averagediff) values (1, 1.1);"
                  "delete from dm_elements where element_id > 2");
    const NcDbObjectId line = drawAngle();
    ScriptedPrompts prompts;
    prompts.pick(line);
    driver.expect(title).press(QStringLiteral("okButton"));
    showSettlements();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(prompts.asked, QStringList{"Укажите линию профиля (ESC - список существующих)"});
    EXPECT_EQ(blocks(), (QStringList{"-0.33..0.00 c256", "-2.00..0.00 c1"})) << "the largest is two units long";
    EXPECT_EQ(texts(), (QStringList{"-2.00", "-12.00"}));
    const QStringList groups = groupNames(QStringLiteral("TERVA_DEF_"));
    ASSERT_EQ(groups.size(), 1);
    EXPECT_EQ(membersOfGroup(groups[0]).size(), entities<NcDbHatch>().size() + entities<NcDbText>().size());
    const Opened<NcDbText> value(entities<NcDbText>().front(), kForRead);
    EXPECT_EQ(value->height(), 1.0);
    EXPECT_EQ(value->horizontalMode(), 1);
    EXPECT_EQ(value->verticalMode(), 2);
    EXPECT_EQ(value->layer(), currentLayer());
}

TEST_F(SettlementsCommand, DoesWithoutValuesWhenTheyAreUnticked)
{
    const NcDbObjectId line = drawAngle();
    ScriptedPrompts prompts;
    prompts.pick(line);
    driver.expect(title).set(QStringLiteral("LabelsEnabled"), QStringLiteral("off")).press(QStringLiteral("okButton"));
    showSettlements();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(entities<NcDbHatch>().size(), 3u);
    EXPECT_TRUE(texts().isEmpty());
}

TEST_F(SettlementsCommand, WantsAPolyline)
{
    const NcDbObjectId point = appendToModelSpace(std::make_unique<NcDbPoint>());
    ScriptedPrompts prompts;
    prompts.pick(point);
    showSettlements();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(prompts.console, QStringLiteral("Необходимо выбрать полилинию"));
}

TEST_F(SettlementsCommand, EscOffersTheStoredProfiles)
{
    storeProfile(1, "Ось А", "(1, 1, 0, 0), (1, 5, 0.2, 20), (1, 3, 1.6, 160)");
    storeProfile(2, "Ось Б", "(2, 2, 0.5, 50)");
    ScriptedPrompts prompts;
    prompts.cancel();
    driver.expect(title)
        .call([](QWidget* form) -> QString {
            const QString shown = names(marks(*form)).join(' ') + " | " + status(*form);
            return shown == "М.1 М.5 М.3 | " ? QString() : shown;
        })
        .press(QStringLiteral("okButton"));
    showSettlements();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(entities<NcDbHatch>().size(), 3u);
}

TEST_F(SettlementsCommand, EscWithoutStoredProfilesSaysSo)
{
    ScriptedPrompts prompts;
    prompts.cancel();
    driver.expect(title)
        .call([](QWidget* form) -> QString {
            return status(*form) == "У позиции нет сохранённых профилей." ? QString() : status(*form);
        })
        .press(QStringLiteral("cancelButton"));
    showSettlements();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(entities<NcDbHatch>().empty());
}

TEST_F(SettlementsCommand, WithoutAMeasuredMarkNothingIsDrawn)
{
    database.exec("delete from dm_meas");
    SettlementsMapForm form;
    form.setLine(angle());
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Вдоль линии нет ни одной марки с замерами: чертить нечего."))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "okButton")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_NE(form.result(), int(QDialog::Accepted));
}

TEST_F(SettlementsCommand, WhatHasNotMovedHasNoHeight)
{
    database.exec("update dm_meas set meas = 10");
    SettlementsMapForm form;
    form.setLine(angle());
    const Sketch sketch = form.epure();
    for (const SketchText& text : sketch.texts)
        EXPECT_EQ(text.text, QStringLiteral("0.00"));
    for (const SketchBlock& block : sketch.blocks) {
        for (const geometry::Point3& corner : block.corners)
            EXPECT_TRUE(std::isfinite(corner.x) && std::isfinite(corner.y));
    }
}

TEST_F(SettlementsCommand, KeepsTheLineAsAProfile)
{
    SettlementsMapForm form;
    form.setLine(angle());
    driver.expect(QStringLiteral("*"))
        .text(QStringLiteral("Имя профиля"))
        .check(QStringLiteral("input"), QStringLiteral("Профиль 1"))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "WriteDBbtn")->click();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(console.text().contains("Профиль Профиль 1 записан в базу данных")) << console.text().toStdString();
    EXPECT_EQ(database.value("select position_id || ' ' || profile_name || ' ' || ST_AsText(geom) from "
                             "deformation_profiles"),
              QStringLiteral("1 Профиль 1 LINESTRING(0 0,100 0,100 100)"));
    EXPECT_EQ(
        database.rows("select element_id, round(param::numeric, 3), round(dist::numeric, 2) from "
                      "deformation_profiles_points order by param"),
        (QVector<QStringList>{
            {"1", "0.000", "0.00"}, {"2", "0.500", "50.00"}, {"3", "1.600", "160.00"}, {"4", "1.800", "180.00"}}));
}

TEST_F(SettlementsCommand, ARefusedNameIsToldAndTheFormGoesOn)
{
    SettlementsMapForm form;
    form.setLine(angle());
    driver.expect(QStringLiteral("*"))
        .set(QStringLiteral("input"), QStringLiteral("О'Нил"))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "WriteDBbtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(console.text().contains("Ошибка записи в БД")) << console.text().toStdString();
    EXPECT_EQ(database.value("select count(*) from deformation_profiles"), QStringLiteral("0"));
    EXPECT_EQ(marks(form).rowCount(), 4) << "what was shown stays";
}
