// Profiles on the server: rows, elements, and the measures along them.
#include "analysis/profiles/deformation_profile.h"
#include "analysis/profiles/deformation_table.h"
#include "analysis/profiles/section_wells.h"
#include "profile_fixture.h"

namespace {

class StoredProfile : public ProfileFixture {
protected:
    void SetUp() override
    {
        ProfileFixture::SetUp();
        addWells();
        addMarks();
    }
    QStringList names(const std::vector<SectionWell>& wells)
    {
        QStringList names;
        for (const SectionWell& well : wells)
            names << well.name;
        return names;
    }
};

const MovementRange kCycles{1, 2, false};

} // namespace

TEST_F(StoredProfile, TemperatureProfileKeepsItsViewLineAndWells)
{
    const int id = storeTemperatureProfile();
    EXPECT_EQ(database.rows("select position_id, profile_name, origx, origy, hscale, vscale, pkstep, byelevation, "
                            "tofooter, ST_AsText(geom), ST_SRID(geom) from termal_profiles"),
              (QVector<QStringList>{
                  {"1", "Профиль 1", "0", "0", "1", "5", "200", "1", "0", "LINESTRING(0 0,50 0,100 0)", "9999"}}));
    EXPECT_EQ(database.rows("select element_id, param, dist from termal_profiles_points order by param"),
              (QVector<QStringList>{{"1", "0", "0"}, {"2", "0.8", "40"}, {"3", "1.8", "90"}}));
    ProfileRecord record;
    int lost = -1;
    ASSERT_TRUE(loadProfile(temperatureProfiles(), id, record, &lost));
    EXPECT_EQ(lost, 0);
    EXPECT_EQ(record.view.vertical, 5.0);
    EXPECT_TRUE(record.view.byElevation);
    EXPECT_EQ(ProfileLine::ofText(record.lineText).length(), 100.0);
    ASSERT_EQ(record.points.size(), 3u);
    EXPECT_EQ(record.points[1].name, QStringLiteral("ТС.2"));
    EXPECT_EQ(record.points[1].dist, 40.0);
}

TEST_F(StoredProfile, IsUpdatedWhereThePositionHasItElseInserted)
{
    const int id = storeTemperatureProfile();
    ProfileRecord record;
    ASSERT_TRUE(loadProfile(temperatureProfiles(), id, record));
    record.name = QStringLiteral("Иное имя");
    record.points.pop_back();
    ASSERT_TRUE(storeProfile(temperatureProfiles(), record, nullptr));
    EXPECT_EQ(record.id, id);
    EXPECT_EQ(database.rows("select profile_id, profile_name from termal_profiles"),
              (QVector<QStringList>{{QString::number(id), "Иное имя"}}));
    EXPECT_EQ(database.value("select count(*) from termal_profiles_points"), QStringLiteral("2"));
    database.exec("delete from termal_profiles");
    ASSERT_TRUE(storeProfile(temperatureProfiles(), record, nullptr));
    EXPECT_NE(record.id, id) << "deleted meanwhile: it is stored anew";
    EXPECT_EQ(database.value("select count(*) from termal_profiles_points"), QStringLiteral("2"));
}

TEST_F(StoredProfile, ARefusedUpdateLosesNothing)
{
    const int id = storeDeformationProfile({{1, 0}, {2, 20}}, "Ось А");
    ProfileRecord record;
    ASSERT_TRUE(loadProfile(deformationProfiles(), id, record));
    record.name = QStringLiteral("Б");
    record.points[0].id = 999; // a mark that is not there
    QString problem;
    EXPECT_FALSE(storeProfile(deformationProfiles(), record, &problem));
    EXPECT_FALSE(problem.isEmpty());
    EXPECT_EQ(database.rows("select profile_name, count(*) from deformation_profiles join "
                            "deformation_profiles_points using (profile_id) group by 1"),
              (QVector<QStringList>{{"Ось А", "2"}}));
}

TEST_F(StoredProfile, ANewOneWithoutItsElementsIsTakenBack)
{
    ProfileRecord record;
    record.positionId = 1;
    record.name = QStringLiteral("А");
    record.lineText = straight().text();
    record.points.resize(1);
    record.points[0].id = 999;
    QString problem;
    EXPECT_FALSE(storeProfile(deformationProfiles(), record, &problem));
    EXPECT_FALSE(problem.isEmpty());
    EXPECT_EQ(record.id, -1);
    EXPECT_EQ(database.value("select count(*) from deformation_profiles"), QStringLiteral("0"));
}

TEST_F(StoredProfile, NamesWithApostrophesAreRefusedAndTold)
{
    ProfileRecord record;
    record.positionId = 1;
    record.name = QStringLiteral("О'Нил");
    record.lineText = straight().text();
    QString problem;
    EXPECT_FALSE(storeProfile(deformationProfiles(), record, &problem));
    EXPECT_TRUE(problem.contains(QStringLiteral("апостроф"))) << problem.toStdString();
    EXPECT_EQ(database.value("select count(*) from deformation_profiles"), QStringLiteral("0"));
    record.name = QStringLiteral("%1 и %99");
    EXPECT_TRUE(storeProfile(deformationProfiles(), record, &problem));
    EXPECT_EQ(database.value("select profile_name from deformation_profiles"), record.name);
}

TEST_F(StoredProfile, IsOfferedTheFirstFreeName)
{
    EXPECT_EQ(presetName(temperatureProfiles(), 1), QStringLiteral("Профиль 1"));
    storeTemperatureProfile("Профиль 2");
    EXPECT_EQ(presetName(temperatureProfiles(), 1), QStringLiteral("Профиль 3")) << "2 is taken";
    EXPECT_EQ(presetName(temperatureProfiles(), 2), QStringLiteral("Профиль 1"));
}

TEST_F(StoredProfile, WithoutAGeometryItsElementsAreTheLine)
{
    const int id = storeTemperatureProfile();
    database.exec("update termal_profiles set geom = null, origx = null, hscale = null");
    ProfileRecord record;
    ASSERT_TRUE(loadProfile(temperatureProfiles(), id, record));
    EXPECT_EQ(ProfileLine::ofText(record.lineText).vertexCount(), 3);
    EXPECT_EQ(record.view.horizontal, SectionView().horizontal);
    EXPECT_FALSE(loadProfile(temperatureProfiles(), id + 1, record));
}

TEST_F(StoredProfile, WellsComeFromThePositionOrTheWholeBase)
{
    std::vector<SectionWell> wells;
    ASSERT_TRUE(loadSectionWells(2, {1, {}}, wells));
    keepCaught(wells, straight(), 1.0);
    EXPECT_EQ(names(wells), (QStringList{"ТС.1", "ТС.2", "ТС.4", "ТС.3"}));
    EXPECT_EQ(wells[1].log, (TemperatureLog{{1, -1}, {3, -3}, {6, -4}}));
    EXPECT_EQ(wells[1].ground(), 100.5);
    EXPECT_TRUE(wells[2].log.empty()) << "without a measure in the cycle it stands without a log";
    ASSERT_TRUE(loadSectionWells(2, {std::nullopt, {}}, wells));
    keepCaught(wells, straight(), 1.0);
    EXPECT_EQ(names(wells), (QStringList{"ТС.1", "ТС.2", "ТС.4", "Чужая", "ТС.3"}));
}

TEST_F(StoredProfile, AWellMeasuredTwiceCountsOnce)
{
    database.exec("insert into ts_meas (element_id, cycle_id, date, meas) values (1, 2, '2023-07-20', '1.00:7.00')");
    std::vector<SectionWell> wells;
    ASSERT_TRUE(loadSectionWells(2, {1, {}}, wells));
    EXPECT_EQ(wells.size(), 5u);
}

TEST_F(StoredProfile, SpoiltLogsGiveWhatCanBeRead)
{
    database.exec(
        "update ts_meas set meas = '1.00:-0.50|2.00:nan|3.00:inf|4.00:-1.00|вздор|5.00:-2' where element_id = 1 "
        "and cycle_id = 2; update ts_elements set x = null where element_id = 2; update ts_elements set z = "
        "'NaN' where element_id = 3");
    std::vector<SectionWell> wells;
    ASSERT_TRUE(loadSectionWells(2, {1, {}}, wells));
    keepCaught(wells, straight(), 1.0);
    EXPECT_EQ(names(wells), (QStringList{"ТС.1", "ТС.4", "ТС.3"})) << "a well without a place stands nowhere";
    EXPECT_EQ(wells[0].log, (TemperatureLog{{1, -0.5}, {4, -1}}));
    EXPECT_EQ(wells[2].ground(), -0.5) << "an elevation that is no number counts as 0";
}

TEST_F(StoredProfile, WellsOfAProfileKeepItsOrderAndPlaces)
{
    const int id = storeTemperatureProfile();
    database.exec(
        "update ts_elements set position_id = 2 where element_id = 3; delete from ts_meas where element_id = 2;"
        "update termal_profiles_points set param = -1 where element_id = 3");
    ProfileRecord record;
    ASSERT_TRUE(loadProfile(temperatureProfiles(), id, record));
    std::vector<SectionWell> wells;
    ASSERT_TRUE(loadSectionWells(2, {1, record.points}, wells));
    EXPECT_EQ(names(wells), (QStringList{"ТС.3", "ТС.1", "ТС.2"})) << "wherever they belong now";
    EXPECT_EQ(wells[0].dist, 90.0);
    EXPECT_TRUE(wells[2].log.empty());
}

TEST_F(StoredProfile, ADeletedWellLeavesTheOthers)
{
    const int id = storeTemperatureProfile();
    database.exec(
        "update ts_elements set y = null where element_id = 1; delete from ts_meas where element_id = 2; delete "
        "from ts_elements where element_id = 2");
    ProfileRecord record;
    int lost = 0;
    ASSERT_TRUE(loadProfile(temperatureProfiles(), id, record, &lost));
    EXPECT_EQ(record.points.size(), 1u);
    EXPECT_EQ(lost, 1) << "one without a place; the deleted one has taken its row along";
}

TEST_F(StoredProfile, MovementsAreThoseOfTheCyclesOrTheForecast)
{
    database.exec("insert into dm_predictions (prediction_id, name, prediction_date) overriding system value values "
                  "(2, 'П', '2030-01-01');"
                  "insert into dm_predictions_data (element_id, prediction_id, prediction_date, meas) values "
                  "(1, 2, '2030-01-01', 9.5)");
    const int id = storeDeformationProfile({{1, 0}, {2, 20}, {3, 50}, {4, 90}}, "Ось А");
    DeformationProfileClass profile;
    ASSERT_TRUE(profile.load(id, kCycles));
    EXPECT_EQ(profile.name, QStringLiteral("Ось А"));
    EXPECT_EQ(profile.length, 90.0);
    ASSERT_EQ(profile.points.size(), 4u);
    EXPECT_NEAR(profile.points[1].delta, -0.05, 1e-12);
    EXPECT_FALSE(profile.points[2].valid);
    EXPECT_NEAR(profile.deltaMaxAbs, 0.05, 1e-12);
    EXPECT_NEAR(profile.relativeMax, 0.03 / std::hypot(20, 0.5), 1e-12) << "М3 parts the pairs";
    ASSERT_TRUE(profile.load(id, {1, 2, true}));
    EXPECT_NEAR(profile.points[0].delta, -0.5, 1e-12) << "the forecast and the cycle have one number here";
    EXPECT_FALSE(profile.points[1].valid) << "no forecast for it";
    EXPECT_FALSE(profile.load(id + 1, kCycles));
}

TEST_F(StoredProfile, AMarkMeasuredTwiceInACycleCountsOnce)
{
    database.exec("insert into dm_meas (element_id, cycle_id, date, meas) values (1, 2, '2023-02-01', 5)");
    const int id = storeDeformationProfile({{1, 0}, {2, 20}}, "Ось А");
    DeformationProfileClass profile;
    ASSERT_TRUE(profile.load(id, kCycles));
    EXPECT_EQ(profile.points.size(), 2u);
    EXPECT_EQ(profile.repeated, QStringList("М1"));
    ASSERT_TRUE(profile.load(straight(), 1.0, 1, kCycles));
    EXPECT_EQ(profile.points.size(), 4u);
    EXPECT_EQ(profile.repeated, QStringList("М1"));
}

TEST_F(StoredProfile, MarksAreCaughtBesideAStraightLineToo)
{
    DeformationProfileClass profile;
    ASSERT_TRUE(profile.load(straight(), 1.0, 1, kCycles));
    ASSERT_EQ(profile.points.size(), 4u) << "М5 stands 5 m off; М2 half a metre beside a line along the x axis";
    EXPECT_EQ(profile.points[1].name, QStringLiteral("М2"));
    EXPECT_EQ(profile.points[1].offset, 0.5);
    EXPECT_EQ(profile.length, 100.0);
    ASSERT_TRUE(profile.load(straight(), Corridor::tight, 1, kCycles));
    EXPECT_EQ(profile.points.size(), 3u);
    ASSERT_TRUE(profile.load(straight(), 1.0, 2, kCycles));
    EXPECT_TRUE(profile.points.empty()) << "of the other position";
    ASSERT_TRUE(profile.load(straight(), 1.0, std::nullopt, kCycles));
    EXPECT_EQ(profile.points.size(), 4u);
    ASSERT_TRUE(profile.load(ProfileLine(), 1.0, 1, kCycles));
    EXPECT_TRUE(profile.points.empty());
}

TEST_F(StoredProfile, TheLimitIsThePositionsMeanSettlementInMetres)
{
    EXPECT_TRUE(std::isinf(settlementLimit(1)));
    addNorms("3");
    EXPECT_EQ(settlementLimit(1), 0.03);
    EXPECT_TRUE(std::isinf(settlementLimit(2)));
}

TEST_F(StoredProfile, WithoutAServerThereIsNothingAndItIsSaid)
{
    const int id = storeDeformationProfile({{1, 0}}, "Ось А");
    loseServer();
    ProfileRecord record;
    DeformationProfileClass profile;
    std::vector<SectionWell> wells;
    std::vector<LineElement> elements;
    EXPECT_FALSE(loadProfile(deformationProfiles(), id, record));
    EXPECT_FALSE(profile.load(id, kCycles));
    EXPECT_FALSE(profile.load(straight(), 1.0, 1, kCycles));
    EXPECT_FALSE(loadSectionWells(2, {1, {}}, wells));
    EXPECT_FALSE(loadLineElements(deformationProfiles(), straight(), 1.0, 1, elements));
    record.positionId = 1;
    QString problem;
    EXPECT_FALSE(storeProfile(deformationProfiles(), record, &problem));
    EXPECT_TRUE(positionProfiles(deformationProfiles(), 1).empty());
}
