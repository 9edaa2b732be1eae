// The forms: what they say, what they begin with, what the user's choices do.
#include "analysis/profiles/forms/create_profile_form.h"
#include "analysis/profiles/forms/deformation_lines_form.h"
#include "analysis/profiles/forms/profile_list_widget.h"
#include "analysis/profiles/forms/temperature_profile_form.h"
#include "profile_fixture.h"
#include "support/pictures.h"

namespace {

class ProfileForms : public ProfileFixture {
protected:
    void SetUp() override
    {
        ProfileFixture::SetUp();
        addWells();
        addMarks();
    }
    static QStringList itemsOf(const QWidget& form, const char* name)
    {
        QStringList items;
        const auto* combo = child<QComboBox>(form, name);
        for (int i = 0; i < combo->count(); ++i)
            items << combo->itemText(i);
        return items;
    }
    static QStringList usedNames(const SectionForm& form)
    {
        QStringList names;
        for (const SectionWell& well : form.usedWells())
            names << well.name;
        return names;
    }
    static QString current(const QWidget& form, const char* name)
    {
        return child<QComboBox>(form, name)->currentText();
    }
};

const QStringList kLineTexts = {"Линия профиля", "Линия", "Не указана", "Длина", "--", "Вершин", "--"};
const QStringList kSectionTexts = {
    "Разрез",      "Глубине",        "Абс. Отметке", "Масштаб горизонтальный", "Масштаб вертикальный",
    "Шаг пикетов", "Замеры до забоя"};

} // namespace

// --- what they say ------------------------------------------------------------------

TEST_F(ProfileForms, TheTemperatureProfileSays)
{
    const TemperatureProfileForm form;
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Профиль температур."));
    for (const char* text : {"Линия профиля",
                             "Длина",
                             "Вершин",
                             "Термоскважины",
                             "По позиции",
                             "По всей базе",
                             "Привязка к линии",
                             "Точно",
                             "Коридор",
                             "Замеры",
                             "Цикл измерений",
                             "Разрез",
                             "Глубине",
                             "Абс. Отметке",
                             "Масштаб горизонтальный",
                             "Масштаб вертикальный",
                             "Шаг пикетов",
                             "Замеры до забоя",
                             "Профили позиции",
                             "Удалить",
                             "Записать в БД",
                             "Экспорт в .CSV",
                             "Экспорт в буфер обмена"})
        EXPECT_TRUE(textsOf(form).contains(QString::fromUtf8(text))) << text;
    EXPECT_EQ(titlesOf(*child<QTableWidget>(form, "PointData")),
              (QStringList{"Имя", "Расстояние, м", "От линии, м", "Замеров", "Глубина, м", "Использовать"}));
    EXPECT_EQ(titlesOf(*child<QTableWidget>(form, "ProfilesTable")), QStringList("Имя"));
    const QStringList scales = {"1:500", "1:1000", "1:2000", "1:5000", "1:10000", "1:50", "1:100", "1:200"};
    EXPECT_EQ(itemsOf(form, "HorizontalScale"), scales);
    EXPECT_EQ(itemsOf(form, "VerticalScale"), scales);
    EXPECT_EQ(itemsOf(form, "PicketStep"), (QStringList{"100 м.", "200 м.", "500 м.", "1000 м."}));
    EXPECT_EQ(current(form, "HorizontalScale"), QStringLiteral("1:500"));
    EXPECT_EQ(current(form, "VerticalScale"), QStringLiteral("1:100"));
    EXPECT_EQ(current(form, "PicketStep"), QStringLiteral("100 м."));
    EXPECT_EQ(child<QComboBox>(form, "MeasData")->currentData().toInt(), 2) << "the current cycle";
    EXPECT_TRUE(child<QRadioButton>(form, "DeepSampling")->isChecked());
    EXPECT_TRUE(child<QRadioButton>(form, "SelectByPosition")->isChecked());
    EXPECT_TRUE(child<QRadioButton>(form, "MatcTolerance")->isChecked());
    EXPECT_EQ(child<QDoubleSpinBox>(form, "Tolerance")->value(), 1.0);
    EXPECT_EQ(label(form, "PolySelected"), QStringLiteral("Не указана"));
    EXPECT_EQ(label(form, "ProfLength"), QStringLiteral("--"));
}

TEST_F(ProfileForms, TheDifferenceProfileSays)
{
    const TemperatureDiffProfileForm form;
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Профиль разности температур."));
    for (const char* text : {"Исходный цикл измерений", "Текущий цикл измерений"})
        EXPECT_TRUE(textsOf(form).contains(QString::fromUtf8(text))) << text;
    EXPECT_EQ(child<QComboBox>(form, "BaseCycleCombo")->currentData().toInt(), 1);
    EXPECT_EQ(child<QComboBox>(form, "MeasData")->currentData().toInt(), 2);
    EXPECT_EQ(form.mapType(), 2) << "the colour map of the dynamics";
    EXPECT_EQ(TemperatureProfileForm().mapType(), 0);
}

TEST_F(ProfileForms, TheEpuresSay)
{
    const DeformationLinesForm form;
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Эпюры деформаций"));
    for (const char* text : {"Деформационные марки", "Коридор, м", "Исходный цикл", "Текущий цикл", "Прогноз",
                             "Масштаб", "Список профилей", "Максимальная  осадка,мм 0.00", "Средняя  осадка, мм 0.00"})
        EXPECT_TRUE(textsOf(form).contains(QString::fromUtf8(text))) << text;
    EXPECT_EQ(titlesOf(*child<QTableWidget>(form, "ProfilesTable")),
              (QStringList{"Имя", "Расстояние, м", "Цикл 2", "Выводить"}));
    EXPECT_EQ(titlesOf(*child<QTableWidget>(form, "SettlesTable")),
              (QStringList{"Имя", "Цикл 1", "Цикл 2", "Осадка, мм", "Разность \n осадок, мм", "Расстояние, м",
                           "Отн. разн. \n осадки"}));
    EXPECT_EQ(itemsOf(form, "ScaleCombo"),
              (QStringList{"1:50", "1:100", "1:200", "1:500", "1:1000", "1:2000", "1:5000", "1:10000"}));
    EXPECT_EQ(current(form, "ScaleCombo"), QStringLiteral("1:500"));
    EXPECT_FALSE(child<QCheckBox>(form, "UsePredictionCheck")->isChecked());
    EXPECT_FALSE(child<QComboBox>(form, "PredictionsList")->isEnabled());
    EXPECT_EQ(label(form, "StatusLabel"), QStringLiteral("Линия не указана, и у позиции нет сохранённых профилей."));
}

TEST_F(ProfileForms, TheFormOfANewProfileSays)
{
    const CreateProfileForm wells(temperatureProfiles(), straight());
    EXPECT_EQ(wells.windowTitle(), QStringLiteral("Создание профиля"));
    EXPECT_EQ(titlesOf(*child<QTableWidget>(wells, "PointData")),
              (QStringList{"Имя", "X", "Y", "Расстояние, м", "От линии, м", "Использовать"}));
    for (const QString& text : kSectionTexts)
        EXPECT_TRUE(textsOf(wells).contains(text)) << text.toStdString();
    EXPECT_EQ(label(wells, "PolySelected"), QStringLiteral("Указана"));
    EXPECT_EQ(label(wells, "ProfLength"), QStringLiteral("100.00 м"));
    EXPECT_EQ(label(wells, "ProfVertexCount"), QStringLiteral("3"));
    EXPECT_EQ(column(*child<QTableWidget>(wells, "PointData"), 0), (QStringList{"ТС.1", "ТС.2", "ТС.4", "ТС.3"}));
    const CreateProfileForm marks(deformationProfiles(), straight());
    EXPECT_TRUE(textsOf(marks).contains(QStringLiteral("Деформационные марки")));
    EXPECT_FALSE(textsOf(marks).contains(QStringLiteral("Разрез")));
    EXPECT_EQ(column(*child<QTableWidget>(marks, "PointData"), 0), (QStringList{"М1", "М2", "М3", "М4"}));
}

TEST_F(ProfileForms, TheListOfProfilesSays)
{
    const DeformationProfileListForm form;
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Профили деформаций"));
    EXPECT_EQ(textsOf(form), (QStringList{"Удалить", "Выбрать", "Закрыть"}));
    EXPECT_EQ(form.chosenProfile(), -1);
}

// --- wells ----------------------------------------------------------------------------

TEST_F(ProfileForms, ALineCatchesItsWellsAndTellsOfThoseWithoutALog)
{
    TemperatureProfileForm form;
    form.setLine(straight());
    const auto* table = child<QTableWidget>(form, "PointData");
    EXPECT_EQ(column(*table, 0), (QStringList{"ТС.1", "ТС.2", "ТС.4", "ТС.3"}));
    EXPECT_EQ(column(*table, 1), (QStringList{"0.00", "40.00", "60.00", "90.00"}));
    EXPECT_EQ(column(*table, 3), (QStringList{"3", "3", "0", "3"}));
    EXPECT_EQ(column(*table, 4), (QStringList{"5.00", "6.00", "--", "5.00"}));
    EXPECT_EQ(label(form, "StatusLabel"), QStringLiteral("Без замеров: ТС.4."));
    EXPECT_FALSE(child<QWidget>(form, "ProfilesList")->isEnabled()) << "a line was picked";
    child<QDoubleSpinBox>(form, "Tolerance")->setValue(8.5);
    EXPECT_EQ(usedNames(form), (QStringList{"ТС.1", "ТС.2", "ТС.5", "ТС.4", "ТС.3"}));
    child<QRadioButton>(form, "MatchPreciss")->setChecked(true);
    EXPECT_EQ(usedNames(form), (QStringList{"ТС.4", "ТС.3"}));
    EXPECT_FALSE(child<QDoubleSpinBox>(form, "Tolerance")->isEnabled());
    child<QRadioButton>(form, "SelectByDataBase")->setChecked(true);
    EXPECT_EQ(usedNames(form), (QStringList{"ТС.4", "Чужая", "ТС.3"}));
    table->item(0, 5)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(usedNames(form), (QStringList{"Чужая", "ТС.3"}));
}

TEST_F(ProfileForms, TheDifferenceIsOfBothCycles)
{
    TemperatureDiffProfileForm form;
    form.setLine(straight());
    const std::vector<SectionWell> wells = form.usedWells();
    ASSERT_EQ(wells.size(), 4u);
    EXPECT_EQ(wells[0].log, (TemperatureLog{{1, 1.0}, {3, 1.0}})) << "5 m was not reached before";
    EXPECT_EQ(form.titles().cycle, QStringLiteral("2"));
    EXPECT_TRUE(form.titles().difference);
    EXPECT_EQ(form.titles().cycleTexts,
              QStringLiteral("Исходный: 1 - 01.12.22 - 31.12.22 - Зима; текущий: "
                             "2 - 01.07.23 - 31.07.23 - Лето"));
    child<QComboBox>(form, "BaseCycleCombo")->setCurrentIndex(child<QComboBox>(form, "BaseCycleCombo")->findData(2));
    EXPECT_EQ(form.usedWells()[0].log, (TemperatureLog{{1, 0.0}, {3, 0.0}, {5, 0.0}}));
}

TEST_F(ProfileForms, AStoredProfileFillsFieldsAndScales)
{
    storeTemperatureProfile("А");
    storeTemperatureProfile("Б");
    database.exec(
        "update termal_profiles set hscale = 4, pkstep = 50, byelevation = 0, tofooter = 1 where profile_name = 'Б'");
    TemperatureProfileForm form;
    form.offerStored();
    EXPECT_TRUE(child<QWidget>(form, "ProfilesList")->isEnabled());
    EXPECT_EQ(current(form, "HorizontalScale"), QStringLiteral("1:1000")) << "the first one is taken";
    EXPECT_EQ(current(form, "VerticalScale"), QStringLiteral("1:200"));
    EXPECT_EQ(current(form, "PicketStep"), QStringLiteral("200 м."));
    EXPECT_TRUE(child<QRadioButton>(form, "HSampling")->isChecked());
    EXPECT_EQ(label(form, "PolySelected"), QStringLiteral("Из профиля"));
    EXPECT_EQ(label(form, "ProfLength"), QStringLiteral("100.00 м"));
    EXPECT_EQ(usedNames(form), (QStringList{"ТС.1", "ТС.2", "ТС.3"}));
    child<QTableWidget>(form, "ProfilesTable")->setCurrentCell(1, 0);
    EXPECT_EQ(current(form, "HorizontalScale"), QStringLiteral("1:250")) << "none of the choices";
    EXPECT_EQ(current(form, "PicketStep"), QStringLiteral("50 м."));
    EXPECT_TRUE(child<QRadioButton>(form, "DeepSampling")->isChecked());
    EXPECT_TRUE(child<QCheckBox>(form, "ToFooter")->isChecked());
    EXPECT_FALSE(child<QRadioButton>(form, "SelectByDataBase")->isEnabled()) << "it knows its wells";
}

TEST_F(ProfileForms, AStoredProfileWhoseWellsAreGoneSaysSo)
{
    const int id = storeTemperatureProfile("А");
    database.exec("delete from termal_profiles_points");
    TemperatureProfileForm form;
    form.offerStored();
    EXPECT_TRUE(usedNames(form).isEmpty());
    EXPECT_EQ(label(form, "StatusLabel"), QStringLiteral("Вдоль линии нет ни одной скважины."));
    database.exec(
        QStringLiteral("insert into termal_profiles_points (profile_id, element_id, param, dist) values (%1, 1, 0, 0),"
                       "(%1, 3, 1, 90); update ts_elements set x = null where element_id = 3")
            .arg(id));
    TemperatureProfileForm again;
    again.offerStored();
    EXPECT_EQ(usedNames(again), QStringList("ТС.1"));
    EXPECT_EQ(label(again, "StatusLabel"),
              QStringLiteral("Скважин профиля больше нет в базе: 1.\n"
                             "Скважина одна: изотерм не будет."));
}

TEST_F(ProfileForms, AProfileThatSomebodyElseDeletedIsNotShown)
{
    storeTemperatureProfile("А");
    storeTemperatureProfile("Б");
    TemperatureProfileForm form;
    form.offerStored();
    database.exec("delete from termal_profiles where profile_name = 'Б'");
    child<QTableWidget>(form, "ProfilesTable")->setCurrentCell(1, 0);
    EXPECT_EQ(label(form, "PolySelected"), QStringLiteral("Не указана"));
    EXPECT_EQ(label(form, "StatusLabel"), QStringLiteral("Ошибка соединения с базой данных"));
    EXPECT_TRUE(usedNames(form).isEmpty());
}

TEST_F(ProfileForms, WithoutProfilesAndWithoutAServerTheStatusSaysSo)
{
    TemperatureProfileForm form;
    form.offerStored();
    EXPECT_EQ(label(form, "StatusLabel"), QStringLiteral("У позиции нет сохранённых профилей."));
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Не выбрано ни одной скважины."))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "okButton")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(form.result(), int(QDialog::Rejected));
    loseServer();
    form.setLine(straight());
    EXPECT_EQ(label(form, "StatusLabel"), QStringLiteral("Ошибка соединения с базой данных"));
}

TEST_F(ProfileForms, AProfileIsStoredFromItsLine)
{
    CreateProfileForm form(temperatureProfiles(), straight());
    child<QTableWidget>(form, "PointData")->item(2, 5)->setCheckState(Qt::Unchecked);
    child<QComboBox>(form, "VerticalScale")->setCurrentText(QStringLiteral("1:50"));
    driver.expect(QStringLiteral("Сохранение профиля"))
        .check(QStringLiteral("input"), QStringLiteral("Профиль 1"))
        .set(QStringLiteral("input"), QStringLiteral("Вдоль оси А"))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "WriteDBbtn")->click();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), QStringLiteral("\nПрофиль Вдоль оси А записан в базу данных\n"));
    EXPECT_EQ(database.rows("select profile_name, hscale, vscale, pkstep, byelevation, tofooter from termal_profiles"),
              (QVector<QStringList>{{"Вдоль оси А", "2", "20", "100", "0", "0"}}));
    EXPECT_EQ(database.rows("select element_id, param, dist from termal_profiles_points order by param"),
              (QVector<QStringList>{{"1", "0", "0"}, {"2", "0.8", "40"}, {"3", "1.8", "90"}}));
    driver.expect(QStringLiteral("Сохранение профиля"))
        .check(QStringLiteral("input"), QStringLiteral("Вдоль оси А"))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "WriteDBbtn")->click();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.value("select count(*) from termal_profiles"), QStringLiteral("1"))
        << "the same one, not a second";
}

TEST_F(ProfileForms, WhatCannotBeStoredIsTold)
{
    CreateProfileForm form(deformationProfiles(), straight());
    driver.expect(QStringLiteral("Сохранение профиля"))
        .set(QStringLiteral("input"), QStringLiteral("О'Нил"))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "WriteDBbtn")->click();
    EXPECT_TRUE(label(form, "StatusLabel").startsWith(QStringLiteral("Ошибка записи в БД ")))
        << label(form, "StatusLabel").toStdString();
    driver.expect(QStringLiteral("Сохранение профиля")).close();
    child<QPushButton>(form, "WriteDBbtn")->click();
    driver.expect(QStringLiteral("Сохранение профиля"))
        .set(QStringLiteral("input"), QString())
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "WriteDBbtn")->click();
    child<QRadioButton>(form, "MatchPreciss")->setChecked(true);
    auto* table = child<QTableWidget>(form, "PointData");
    for (int row = 0; row < table->rowCount(); ++row)
        table->item(row, 5)->setCheckState(Qt::Unchecked);
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Вдоль линии не выбрано ни одного элемента: сохранять нечего."))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "WriteDBbtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.value("select count(*) from deformation_profiles"), QStringLiteral("0"));
    const CreateProfileForm point(deformationProfiles(), ProfileLine({{0, 0, 0}}, false));
    EXPECT_EQ(label(point, "StatusLabel"), QStringLiteral("У линии нет длины"));
}

TEST_F(ProfileForms, AStoredProfileTakesNewScalesAndIsDeleted)
{
    storeTemperatureProfile("А");
    TemperatureProfileForm form;
    form.offerStored();
    child<QComboBox>(form, "HorizontalScale")->setCurrentText(QStringLiteral("1:5000"));
    driver.expect(QStringLiteral("Сохранение профиля"))
        .check(QStringLiteral("input"), QStringLiteral("А"))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "WriteDBbtn")->click();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.rows("select profile_name, hscale, ST_AsText(geom) from termal_profiles"),
              (QVector<QStringList>{{"А", "0.2", "LINESTRING(0 0,50 0,100 0)"}}));
    EXPECT_EQ(database.value("select count(*) from termal_profiles_points"), QStringLiteral("3"));
    driver.expect(QStringLiteral("Внимание")).text(QStringLiteral("Удалить профиль А ?")).press(QStringLiteral("Да"));
    child<QPushButton>(*child<QWidget>(form, "ProfilesList"), "DeleteBTN")->click();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.value("select count(*) from termal_profiles"), QStringLiteral("0"));
    EXPECT_TRUE(usedNames(form).isEmpty());
    EXPECT_EQ(label(form, "StatusLabel"), QStringLiteral("У позиции нет сохранённых профилей."));
}

// --- marks ------------------------------------------------------------------------------

TEST_F(ProfileForms, EpuresOfStoredProfilesAreAllWanted)
{
    storeDeformationProfile({{1, 0}, {2, 20}, {3, 50}}, "Ось А");
    storeDeformationProfile({{3, 50}}, "Ось Б");
    addNorms("3");
    DeformationLinesForm form;
    const auto* list = child<QTableWidget>(form, "ProfilesTable");
    EXPECT_EQ(column(*list, 0), (QStringList{"Ось А", "Ось Б"}));
    EXPECT_EQ(column(*list, 1), (QStringList{"50.00", "50.00"}));
    EXPECT_EQ(column(*list, 2), (QStringList{"50.00", "--"}));
    EXPECT_EQ(form.usedProfiles().size(), 2u);
    EXPECT_EQ(label(form, "StatusLabel"), QStringLiteral("Нет замеров с обеих сторон: Ось Б."));
    const auto* marks = child<QTableWidget>(form, "SettlesTable");
    EXPECT_EQ(column(*marks, 3), (QStringList{"-20.00", "-50.00", "--"}));
    EXPECT_EQ(marks->item(1, 3)->foreground().color(), QColor(255, 0, 0)) << "50 mm of 30";
    EXPECT_NE(marks->item(0, 3)->foreground().color(), QColor(255, 0, 0));
    EXPECT_EQ(label(form, "LargestLabel"), QStringLiteral("Максимальная  осадка,мм 50.00"));
    EXPECT_EQ(label(form, "MeanLabel"), QStringLiteral("Средняя  осадка, мм 35.00"));
    child<QTableWidget>(form, "ProfilesTable")->setCurrentCell(1, 0);
    EXPECT_EQ(marks->rowCount(), 1);
    EXPECT_EQ(form.title(), QStringLiteral(" Цикл 2"));
    EXPECT_EQ(form.scale(), 2.0);
}

TEST_F(ProfileForms, WhatTheUserUntickedStaysOutAtAnotherCycle)
{
    storeDeformationProfile({{1, 0}, {2, 20}}, "Ось А");
    storeDeformationProfile({{2, 20}, {4, 90}}, "Ось Б");
    DeformationLinesForm form;
    child<QTableWidget>(form, "ProfilesTable")->item(0, 3)->setCheckState(Qt::Unchecked);
    child<QComboBox>(form, "BaseCyclesCombo")->setCurrentIndex(1);
    ASSERT_EQ(form.usedProfiles().size(), 1u);
    EXPECT_EQ(form.usedProfiles()[0].name, QStringLiteral("Ось Б"));
}

TEST_F(ProfileForms, APickedLineComesFirstAndAlone)
{
    storeDeformationProfile({{1, 0}, {2, 20}}, "Ось А");
    DeformationLinesForm form;
    form.setLine(straight());
    EXPECT_EQ(column(*child<QTableWidget>(form, "ProfilesTable"), 0), (QStringList{"Линия чертежа", "Ось А"}));
    ASSERT_EQ(form.usedProfiles().size(), 1u);
    EXPECT_EQ(form.usedProfiles()[0].points.size(), 4u);
    child<QRadioButton>(form, "MatchPreciss")->setChecked(true);
    EXPECT_EQ(form.usedProfiles()[0].points.size(), 3u);
    driver.expect(QStringLiteral("Сохранение профиля"))
        .check(QStringLiteral("input"), QStringLiteral("Профиль 2"))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "WriteDBbtn")->click();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(column(*child<QTableWidget>(form, "ProfilesTable"), 0),
              (QStringList{"Линия чертежа", "Ось А", "Профиль 2"}));
    EXPECT_EQ(database.value("select count(*) from deformation_profiles_points"), QStringLiteral("5"));
}

TEST_F(ProfileForms, AForecastStandsInThePlaceOfTheCurrentCycle)
{
    database.exec("insert into dm_predictions (prediction_id, name, prediction_date, begin_cycle_id, end_cycle_id) "
                  "overriding system value values (7, 'П', '2030-01-01', 1, 2);"
                  "insert into dm_predictions_data (element_id, prediction_id, prediction_date, meas) values "
                  "(1, 7, '2030-01-01', 9.9)");
    session().reloadPredictions();
    storeDeformationProfile({{1, 0}, {2, 20}}, "Ось А");
    DeformationLinesForm form;
    EXPECT_TRUE(child<QCheckBox>(form, "UsePredictionCheck")->isEnabled()) << "one forecast is enough";
    child<QCheckBox>(form, "UsePredictionCheck")->setChecked(true);
    EXPECT_FALSE(child<QComboBox>(form, "CurrentCyclesCombo")->isEnabled());
    EXPECT_TRUE(child<QComboBox>(form, "PredictionsList")->isEnabled());
    EXPECT_EQ(column(*child<QTableWidget>(form, "SettlesTable"), 3), (QStringList{"-100.00", "--"}));
    EXPECT_TRUE(titlesOf(*child<QTableWidget>(form, "SettlesTable"))[2].startsWith(QStringLiteral("Прогноз \n ")));
    EXPECT_TRUE(form.title().startsWith(QStringLiteral(" Прогноз ")));
}

TEST_F(ProfileForms, OddLinesAreToldInTheEpures)
{
    storeDeformationProfile({{1, 0}}, "Одна");
    storeDeformationProfile({{2, 20}, {4, 90}}, "Пустая");
    database.exec("delete from deformation_profiles_points where element_id = 2; update dm_elements set x = null where "
                  "element_id = 4");
    DeformationLinesForm form;
    EXPECT_EQ(label(form, "StatusLabel"),
              QStringLiteral("Пустая: вдоль линии нет ни одной марки.\n"
                             "Марка одна, разностей нет: Одна.\n"
                             "Марок профилей больше нет в базе: 1."));
    driver.expect(QStringLiteral("Профили деформаций"))
        .call([](QWidget* window) -> QString {
            return window->findChild<QTableWidget*>("ProfilesTable")->rowCount() == 2 ? QString()
                                                                                      : QStringLiteral("rows");
        })
        .step("row", {"ProfilesTable", "1"})
        .press(QStringLiteral("ChooseBtn"));
    child<QPushButton>(form, "ListProfilesBTN")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(child<QTableWidget>(form, "ProfilesTable")->currentRow(), 1);
    for (int row = 0; row < 2; ++row)
        child<QTableWidget>(form, "ProfilesTable")->item(row, 3)->setCheckState(Qt::Unchecked);
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Не выбрано ни одного профиля."))
        .press(QStringLiteral("OK"));
    child<QPushButton>(form, "okButton")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    loseServer();
    child<QComboBox>(form, "BaseCyclesCombo")->setCurrentIndex(1);
    EXPECT_EQ(label(form, "StatusLabel"), QStringLiteral("Ошибка соединения с базой данных"));
}

// --- pictures ----------------------------------------------------------------------------

TEST_F(ProfileForms, Pictures)
{
    storeTemperatureProfile("Вдоль оси А");
    storeTemperatureProfile("Поперёк здания");
    storeDeformationProfile({{1, 0}, {2, 20}, {3, 50}, {4, 90}}, "Ось А");
    storeDeformationProfile({{1, 0}, {4, 90}}, "Ось Б");
    addNorms("3");
    TemperatureProfileForm temperatures;
    temperatures.offerStored();
    EXPECT_TRUE(takePicture(temperatures, QStringLiteral("temperature-profile")));
    TemperatureDiffProfileForm difference;
    difference.setLine(straight());
    EXPECT_TRUE(takePicture(difference, QStringLiteral("temperature-diff-profile")));
    DeformationLinesForm epures;
    EXPECT_TRUE(takePicture(epures, QStringLiteral("deformation-lines")));
    CreateProfileForm wells(temperatureProfiles(), straight());
    EXPECT_TRUE(takePicture(wells, QStringLiteral("create-profile-wells")));
    CreateProfileForm marks(deformationProfiles(), straight());
    EXPECT_TRUE(takePicture(marks, QStringLiteral("create-profile-marks")));
    DeformationProfileListForm list;
    EXPECT_TRUE(takePicture(list, QStringLiteral("deformation-profile-list")));
}
