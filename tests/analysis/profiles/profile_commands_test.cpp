// The commands as a whole: what they ask, what they draw, and what they say
// when something stands in the way.
#include "analysis/profiles/forms/profile_commands.h"
#include "hostkit/groups.h"
#include "profile_fixture.h"
#include "support/statement_relay.h"

#include <gtest/gtest.h>

namespace {

constexpr int kMostStatements = 200;

class ProfileCommands : public ProfileFixture {
protected:
    void SetUp() override
    {
        ProfileFixture::SetUp();
        addWells();
        addMarks();
    }

    static QStringList groupsOf(const QString& prefix)
    {
        QStringList found;
        for (const QString& name : groupNames()) {
            if (name.startsWith(prefix))
                found << name;
        }
        return found;
    }
    static size_t membersOf(const QString& prefix)
    {
        const QStringList groups = groupsOf(prefix);
        return groups.size() == 1 ? membersOfGroup(groups[0]).size() : 0;
    }
    size_t drawn() { return entities<NcDbEntity>().size(); }

    void answerSection(const char* title = "Профиль температур.")
    {
        driver.expect(QString::fromUtf8(title)).press(QStringLiteral("okButton"));
        driver.expect(QStringLiteral("Построение изоконтуров"))
            .set(QStringLiteral("HatchOutLayer"), QStringLiteral("MAP"))
            .set(QStringLiteral("IsoLineOutCheck"), QStringLiteral("on"))
            .set(QStringLiteral("IsoLineOutLayer"), QStringLiteral("MAP"))
            .press(QStringLiteral("okButton"));
    }
};

} // namespace

TEST_F(ProfileCommands, TheTemperatureProfileIsDrawnInOneGroup)
{
    ScriptedPrompts host;
    host.pick(addLine()).point(1000, 500);
    answerSection();
    buildTemperatureProfile();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(host.asked, (QStringList{"Укажите линию профиля (ESC список в позиции)", "Точка вставки профиля:"}));
    EXPECT_GE(entities<NcDbHatch>(QStringLiteral("MAP")).size(), 3u) << "-4 to 1 touches several bands";
    EXPECT_GE(entities<NcDbPolyline>(QStringLiteral("MAP")).size(), 3u);
    const QStringList texts = drawnTexts();
    for (const char* text : {"Масштаб", "Горизонтальный 1:500", "Вертикальный 1:100", "Расстояние, м.", "Пикет, м.",
                             "Цикл 2", "ТС.1", "ТС.4", "-0.50", "1.00", "D=6.00", "Z=94.50", "Пикет 0", "+40.00"})
        EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
    EXPECT_FALSE(texts.contains(QStringLiteral("Чужая")));
    EXPECT_EQ(membersOf(QStringLiteral("TERVA_PROF_")), drawn() - 1) << "all but the line that was picked";
    EXPECT_EQ(groupsOf(QStringLiteral("TERVA_HATCH_")).size(), 1);
}

TEST_F(ProfileCommands, TheSectionLiesAtTheInsertionPointAndAtItsScale)
{
    ScriptedPrompts host;
    host.pick(addLine()).point(1000, 500);
    answerSection();
    buildTemperatureProfile();
    ASSERT_TRUE(driver.done()) << driver.report();
    for (const NcDbObjectId id : entities<NcDbHatch>(QStringLiteral("MAP"))) {
        const auto box = Opened<NcDbEntity>(id, kForRead)->extents();
        ASSERT_TRUE(box);
        EXPECT_GE(box->min.x, 1000 - 1e-6);
        EXPECT_LE(box->max.x, 1000 + 2 * 90 + 1e-6) << "90 m at 1:500";
        EXPECT_GE(box->min.y, 500 - 1e-6);
        EXPECT_LE(box->max.y, 500 + 10 * 5 + 1e-6) << "from 6 m to 1 m at 1:100";
    }
}

TEST_F(ProfileCommands, TheInsertionPointIsInTheUserSystem)
{
    NcGeMatrix3d ucs;
    ucs.setCoordSystem({100, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    ncedSetCurrentUCS(ucs);
    ScriptedPrompts host;
    host.pick(addLine()).point(50, 20);
    answerSection();
    buildTemperatureProfile();
    ncedSetCurrentUCS(NcGeMatrix3d());
    ASSERT_TRUE(driver.done()) << driver.report();
    for (const NcDbObjectId id : entities<NcDbText>()) {
        const Opened<NcDbText> text(id, kForRead);
        if (text->textString() == QStringLiteral("Вертикальный 1:100")) {
            EXPECT_EQ(text->alignmentPoint().x, 100 - 20 - 2);
            EXPECT_EQ(text->alignmentPoint().y, 50);
        }
    }
}

TEST_F(ProfileCommands, TheDifferenceIsDrawnWithItsOwnColourMap)
{
    session().dynamicTemperatureColormapId = -2;
    ScriptedPrompts host;
    host.pick(addLine()).point(0, -500);
    driver.expect(QStringLiteral("Профиль разности температур.")).press(QStringLiteral("okButton"));
    driver.expect(QStringLiteral("Построение изоконтуров"))
        .check(QStringLiteral("LevelMapType"), QStringLiteral("Карта деформаций"))
        .set(QStringLiteral("HatchOutLayer"), QStringLiteral("MAP"))
        .press(QStringLiteral("okButton"));
    buildTemperatureDiffProfile();
    ASSERT_TRUE(driver.done()) << driver.report();
    const QStringList texts = drawnTexts();
    EXPECT_TRUE(texts.contains(QStringLiteral("d+1.00"))) << "-0.5 after -1.5";
    EXPECT_TRUE(texts.contains(QStringLiteral("d+3.00")));
    EXPECT_EQ(groupsOf(QStringLiteral("TERVA_PROF_")).size(), 1);
}

TEST_F(ProfileCommands, EscTakesAStoredProfile)
{
    storeTemperatureProfile("А");
    ScriptedPrompts host;
    host.cancel().point(0, 0);
    answerSection();
    buildTemperatureProfile();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(drawnTexts().contains(QStringLiteral("Абсолютная отметка, м."))) << "as it was stored";
    EXPECT_TRUE(drawnTexts().contains(QStringLiteral("Вертикальный 1:200")));
}

TEST_F(ProfileCommands, WithoutAPointNothingIsDrawn)
{
    const size_t before = (addLine(), drawn());
    for (const bool isEmpty : {true, false}) {
        ScriptedPrompts host;
        host.pick(entities<NcDbPolyline>()[0]);
        isEmpty ? host.enter() : host.cancel();
        driver.expect(QStringLiteral("Профиль температур.")).press(QStringLiteral("okButton"));
        buildTemperatureProfile();
        EXPECT_TRUE(driver.done()) << driver.report();
        EXPECT_EQ(host.console, QStringLiteral("Необходимо указать точку вставки профиля"));
    }
    EXPECT_EQ(drawn(), before);
}

TEST_F(ProfileCommands, CancelDrawsNothing)
{
    const NcDbObjectId line = addLine();
    const size_t before = drawn();
    {
        ScriptedPrompts host;
        host.pick(line).point(0, 0);
        driver.expect(QStringLiteral("Профиль температур.")).press(QStringLiteral("okButton"));
        driver.expect(QStringLiteral("Построение изоконтуров")).press(QStringLiteral("cancelButton"));
        buildTemperatureProfile();
    }
    {
        ScriptedPrompts host;
        host.pick(line);
        driver.expect(QStringLiteral("Эпюры деформаций")).press(QStringLiteral("cancelButton"));
        buildDeformationLines();
        EXPECT_EQ(host.asked.size(), 1) << "no point is asked for";
    }
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(drawn(), before);
    EXPECT_TRUE(groupNames().isEmpty());
}

TEST_F(ProfileCommands, OneWellIsDrawnWithoutIsothermsAndSaysSo)
{
    ScriptedPrompts host;
    host.pick(addLine({{-5, 0}, {5, 0}})).point(0, 0);
    driver.expect(QStringLiteral("Профиль температур.")).press(QStringLiteral("okButton"));
    buildTemperatureProfile();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(host.console.contains(QStringLiteral("Изотермы не построены: нужны замеры не менее чем двух скважин")));
    EXPECT_TRUE(drawnTexts().contains(QStringLiteral("ТС.1")));
    EXPECT_EQ(groupsOf(QStringLiteral("TERVA_PROF_")).size(), 1);
}

TEST_F(ProfileCommands, WellsWithoutLogsAndAtOnePlaceAreDrawnAllTheSame)
{
    database.exec(
        "delete from ts_meas where element_id in (2, 3); update ts_elements set x = 0, y = 0 where element_id "
        "in (1, 2)");
    ScriptedPrompts host;
    host.pick(addLine()).point(0, 0);
    driver.expect(QStringLiteral("Профиль температур.")).press(QStringLiteral("okButton"));
    buildTemperatureProfile();
    ASSERT_TRUE(driver.done()) << driver.report();
    for (const char* name : {"ТС.1", "ТС.2", "ТС.3", "ТС.4"})
        EXPECT_TRUE(drawnTexts().contains(QString::fromUtf8(name))) << name;
}

TEST_F(ProfileCommands, SomethingElseThanAPolylineEndsEveryCommand)
{
    const NcDbObjectId text = appendToModelSpace(std::make_unique<NcDbText>(NcGePoint3d(), QStringLiteral("т"), 2.5));
    for (void (*command)() : {buildTemperatureProfile, buildTemperatureDiffProfile, buildDeformationLines,
                              addDeformationProfile, addTemperatureProfile}) {
        ScriptedPrompts host;
        host.pick(text);
        command();
        EXPECT_EQ(host.console, QStringLiteral("Необходимо выбрать полилинию"));
        EXPECT_TRUE(driver.done()) << driver.report();
    }
}

TEST_F(ProfileCommands, AddingAProfileAsksForItsLine)
{
    for (void (*command)() : {addDeformationProfile, addTemperatureProfile}) {
        ScriptedPrompts left;
        left.cancel();
        command();
        EXPECT_EQ(left.asked, QStringList("Укажите линию профиля"));
        EXPECT_EQ(left.console, QString());
        ScriptedPrompts host;
        host.pick(addLine());
        driver.expect(QStringLiteral("Создание профиля")).press(QStringLiteral("WriteDBbtn"));
        driver.expect(QStringLiteral("Сохранение профиля")).press(QStringLiteral("OK"));
        driver.expect(QStringLiteral("Создание профиля")).press(QStringLiteral("CloseBtn"));
        command();
        ASSERT_TRUE(driver.done()) << driver.report();
        EXPECT_EQ(host.console, QStringLiteral("\nПрофиль Профиль 1 записан в базу данных\n"));
    }
    EXPECT_EQ(database.rows("select profile_name, (select count(*) from deformation_profiles_points) from "
                            "deformation_profiles"),
              (QVector<QStringList>{{"Профиль 1", "4"}}));
    EXPECT_EQ(database.rows("select profile_name, (select count(*) from termal_profiles_points) from termal_profiles"),
              (QVector<QStringList>{{"Профиль 1", "4"}}));
}

TEST_F(ProfileCommands, EpuresHangBelowTheirAxisInOneGroup)
{
    addNorms("3");
    storeDeformationProfile({{1, 0}, {2, 20}, {3, 50}, {4, 90}}, "Ось А");
    ScriptedPrompts host;
    host.cancel().point(1000, 500);
    driver.expect(QStringLiteral("Эпюры деформаций")).press(QStringLiteral("okButton"));
    buildDeformationLines();
    ASSERT_TRUE(driver.done()) << driver.report();
    const QStringList texts = drawnTexts();
    for (const char* text : {"Ось А", " Цикл 2", "0.0", "-20.00", "-50.00", "-10.00", "М3"})
        EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
    const NcDbObjectIdArray blocks = entities<NcDbHatch>();
    ASSERT_EQ(blocks.size(), 3u);
    const Opened<NcDbHatch> worst(blocks[1], kForRead);
    EXPECT_EQ(worst->patternName(), QStringLiteral("SOLID"));
    EXPECT_EQ(worst->colorIndex(), 1) << "50 mm of 30";
    EXPECT_NEAR(worst->extents()->min.y, 498.0, 1e-9) << "the largest is two units long";
    EXPECT_NEAR(worst->extents()->max.y, 500.0, 1e-9);
    EXPECT_EQ(Opened<NcDbHatch>(blocks[0], kForRead)->colorIndex(), 256);
    EXPECT_EQ(membersOf(QStringLiteral("TERVA_DEF_")), drawn());
}

TEST_F(ProfileCommands, TwoProfilesWithinOneSecondHaveTwoGroups)
{
    storeDeformationProfile({{1, 0}, {2, 20}}, "Ось А");
    for (int i = 0; i < 2; ++i) {
        ScriptedPrompts host;
        host.cancel().point(0, -100 * i);
        driver.expect(QStringLiteral("Эпюры деформаций")).press(QStringLiteral("okButton"));
        buildDeformationLines();
    }
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(groupsOf(QStringLiteral("TERVA_DEF_")).size(), 2);
}

TEST_F(ProfileCommands, ALockedCurrentLayerIsDrawnOnAllTheSame)
{
    setLayerLocked(QStringLiteral("0"), true);
    storeDeformationProfile({{1, 0}, {2, 20}}, "Ось А");
    ScriptedPrompts host;
    host.cancel().point(0, 0);
    driver.expect(QStringLiteral("Эпюры деформаций")).press(QStringLiteral("okButton"));
    buildDeformationLines();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(entities<NcDbHatch>(QStringLiteral("0")).size(), 2u);
}

// --- faults -----------------------------------------------------------------------------

namespace {

class RefusedProfileStatement : public ProfileCommands {
protected:
    void useRelay()
    {
        session().sqlPort = relay.port();
        session().connection.open(session().buildConnInfo());
        relay.refuse(-1);
    }
    StatementRelay relay;
};

} // namespace

TEST_F(RefusedProfileStatement, StoresAWholeProfileOrNone)
{
    useRelay();
    const NcDbObjectId line = addLine();
    bool wentThrough = false;
    for (int statement = 1; statement < kMostStatements && !wentThrough; ++statement) {
        const int before = database.value("select count(*) from deformation_profiles").toInt();
        ScriptedPrompts host;
        host.pick(line);
        driver.expect(QStringLiteral("Создание профиля")).press(QStringLiteral("WriteDBbtn"));
        driver.expect(QStringLiteral("*")).press(QStringLiteral("OK"));
        driver.expect(QStringLiteral("Создание профиля")).press(QStringLiteral("CloseBtn"));
        relay.refuse(statement);
        addDeformationProfile();
        wentThrough = !relay.hasRefused();
        relay.refuse(-1);
        const int after = database.value("select count(*) from deformation_profiles").toInt();
        const bool isStored = host.console.contains(QStringLiteral("записан в базу данных"));
        EXPECT_EQ(after, before + (isStored ? 1 : 0)) << statement << host.console.toStdString();
        EXPECT_EQ(
            database.value("select count(*) from deformation_profiles left join deformation_profiles_points using "
                           "(profile_id) where element_id is null"),
            QStringLiteral("0"))
            << statement << ": no profile without its marks";
        EXPECT_TRUE(driver.done()) << statement << driver.report().toStdString();
    }
    EXPECT_TRUE(wentThrough);
}

TEST_F(RefusedProfileStatement, DrawsAProfileOrSaysWhyNot)
{
    storeTemperatureProfile("А");
    storeDeformationProfile({{1, 0}, {2, 20}, {4, 90}}, "Ось А");
    useRelay();
    bool wentThrough = false;
    for (int statement = 1; statement < kMostStatements && !wentThrough; ++statement) {
        QString status;
        int wells = 0;
        const auto look = [&](QWidget* window) -> QString {
            status = window->findChild<QLabel*>(QStringLiteral("StatusLabel"))->text();
            wells = window->findChild<QTableWidget*>(QStringLiteral("PointData"))->rowCount();
            return QString();
        };
        ScriptedPrompts host;
        host.cancel();
        driver.expect(QStringLiteral("Профиль температур.")).call(look).press(QStringLiteral("cancelButton"));
        relay.refuse(statement);
        buildTemperatureProfile();
        wentThrough = !relay.hasRefused();
        relay.refuse(-1);
        EXPECT_TRUE(driver.done()) << statement << driver.report().toStdString();
        EXPECT_TRUE(wells == 3 || !status.isEmpty()) << statement << ": less than there is, and nothing said";
        EXPECT_TRUE(!wentThrough || status.isEmpty())
            << "undisturbed there is nothing to say: " << status.toStdString();
    }
    EXPECT_TRUE(wentThrough);
    EXPECT_EQ(database.value("select count(*) from termal_profiles_points"), QStringLiteral("3"));
    EXPECT_EQ(database.value("select count(*) from deformation_profiles_points"), QStringLiteral("3"));
}
