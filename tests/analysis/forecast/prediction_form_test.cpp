// The forecast of deformations on a real database, as its form shows it.
#include "analysis/forecast/forms/device_choice.h"
#include "analysis/forecast/forms/dm_prediction_form.h"
#include "analysis/forecast/forms/dm_prediction_list_form.h"
#include "analysis/forecast/forms/forecast_commands.h"
#include "analysis/forecast/prediction_chart.h"
#include "analysis/forecast/predictions.h"
#include "support/form_texts.h"
#include "support/pictures.h"
#include "support/session_database.h"

#include <script/modal_driver.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {

class Prediction : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        database.exec(
            "insert into cycles (cycle_id, number, date_start, date_end, description) overriding system value values "
            "(3, 3, '2024-07-01', '2024-07-31', 'Лето'), (4, 4, '2025-07-01', '2025-07-31', 'Лето');"
            "insert into devices (device_id, name, serial, description) overriding system value values "
            "(1, 'Нивелир', 'SN-7', 'цифровой'), (2, 'Без номера', '', '');"
            "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
            "overriding system value values (1, 'dm', 'ДМ_1', 'exist', 1, 0, 0, 0, 0), "
            "(2, 'dm', 'ДМ_2', 'exist', 1, 5, 0, 0, 0), (3, 'dm', 'ДМ_3', 'exist', 2, 9, 0, 0, 0);"
            "insert into dm_meas (element_id, cycle_id, date, meas) values "
            "(1, 1, '2022-12-10', 100.0), (1, 2, '2023-07-10', 99.995), (1, 3, '2024-07-10', 99.985), "
            "(1, 4, '2025-07-10', 99.977), (2, 1, '2022-12-10', 50.0), (2, 4, '2025-07-10', 50.001), "
            "(3, 1, '2022-12-10', 10.0), (3, 2, '2023-07-10', 10.1), (3, 3, '2024-07-10', 10.2);");
        ProjectSession& s = session();
        s.reloadCycles();
        s.projectId = s.currentObjectId = s.currentSubobjectId = 1;
        s.baseCycleId = 1;
        s.currentCycleId = 4;
    }
    void TearDown() override
    {
        session().currentObjectId = session().currentSubobjectId = session().baseCycleId = -1;
        session().predictions.clear();
        session().predictionOrder.clear();
        SessionDatabase::TearDown();
    }
    static QTableWidget& elements(const QWidget& form) { return *child<QTableWidget>(form, "ElementsView"); }
    static QStringList row(const QTableWidget& table, int row)
    {
        QStringList texts;
        for (int column = 0; column < table.columnCount(); ++column)
            texts << table.item(row, column)->text();
        return texts;
    }
    static void choose(const QWidget& form, const char* combo, const QVariant& id)
    {
        auto* box = child<QComboBox>(form, combo);
        ASSERT_GE(box->findData(id), 0) << combo;
        box->setCurrentIndex(box->findData(id));
    }
    static void setDate(const QWidget& form, const QDate& date)
    {
        child<QDateEdit>(form, "PredictionDate")->setDate(date);
    }
    static QPixmap chart(const QWidget& form) { return child<QLabel>(form, "ChartLabel")->pixmap(Qt::ReturnByValue); }
    void storeOne(const QString& name = "Ф")
    {
        QString problem;
        ASSERT_TRUE(storePrediction({name, {2027, 1, 1}, 1, 4, {{1, "99.9600"}, {2, "50.0000"}}}, &problem)) << problem;
    }
    ModalDriver driver;
};

} // namespace

TEST_F(Prediction, CaptionsTitlesAndDefaults)
{
    DMPredictionForm form;
    EXPECT_EQ(form.windowTitle(), "Построение прогноза деформаций");
    QStringList captions;
    for (const QGroupBox* group : form.findChildren<QGroupBox*>())
        captions << group->title();
    for (const QLabel* label : form.findChildren<QLabel*>()) {
        if (label->objectName().isEmpty())
            captions << label->text();
    }
    for (const char* name : {"ListPredictionsBTN", "ExportBTN", "WriteBTN", "CloseBtn"})
        captions << child<QPushButton>(form, name)->text();
    captions << child<QCheckBox>(form, "BandCheck")->text();
    EXPECT_EQ(
        captions,
        (QStringList{"Элементы", "Прогноз", "Проект", "Объект", "Подобъект", "Позиция", "Исходный цикл", "Текущий цикл",
                     "Дата прогноза", "Имя прогноза", "Список...", "Экспорт", "Записать", "Закрыть", "Полоса 95 %"}));
    EXPECT_FALSE(child<QCheckBox>(form, "BandCheck")->isChecked());
    EXPECT_EQ(child<QComboBox>(form, "PositionCombo")->currentText(), "Позиция 1");
    EXPECT_EQ(child<QComboBox>(form, "BaseCyclesCombo")->currentText(), "1 - 01.12.22 - 31.12.22 - Зима");
    EXPECT_EQ(child<QComboBox>(form, "CurrentCyclesCombo")->currentData(), 4);
    const QDate today = QDate::currentDate();
    EXPECT_EQ(child<QDateEdit>(form, "PredictionDate")->date(), today);
    EXPECT_EQ(child<QLineEdit>(form, "PredictionName")->text(), "Прогноз на дату " + today.toString("dd-MM-yyyy"));
    EXPECT_EQ(titlesOf(elements(form)).mid(0, 5), (QStringList{"Имя", "Цикл 1", "Цикл 2", "Цикл 3", "Цикл 4"}));
    EXPECT_TRUE(chart(form).isNull());
}

TEST_F(Prediction, RowsOfThePositionAndOfAll)
{
    DMPredictionForm form;
    setDate(form, {2027, 1, 1});
    ASSERT_EQ(elements(form).rowCount(), 2);
    const QStringList first = row(elements(form), 0);
    EXPECT_EQ(first.mid(0, 6), (QStringList{"ДМ_1", "100.0000", "99.9950", "99.9850", "99.9770", "100.0000"}));
    EXPECT_EQ(row(elements(form), 1),
              (QStringList{"ДМ_2", "50.0000", "--", "--", "50.0010", "--", "--", "--", "--", "", "", "2", "--", "--"}));
    EXPECT_FALSE(elements(form).item(1, 10)->flags() & Qt::ItemIsUserCheckable) << "no trend is offered";
    // The displayed deformation belongs to the displayed forecast.
    EXPECT_NEAR(first[8].toDouble(), (first[7].toDouble() - 100.0) * 1000.0, 0.06);

    choose(form, "PositionCombo", -1);
    EXPECT_EQ(elements(form).rowCount(), 3) << "the subobject";
    choose(form, "ObjectCombo", -1);
    EXPECT_EQ(child<QComboBox>(form, "PositionCombo")->count(), 1) << "only Все is left below";
    EXPECT_EQ(elements(form).rowCount(), 3) << "the project";
    choose(form, "ProjectCombo", -1);
    EXPECT_EQ(elements(form).rowCount(), 3) << "all";
}

TEST_F(Prediction, MarksWithTooFewDaysAreCountedInALine)
{
    DMPredictionForm form;
    const auto* line = child<QLabel>(form, "ShortageNote");
    EXPECT_EQ(line->text(), "Нет прогноза: в выбранных циклах меньше 3 дней измерений (марок: 1 из 2)") << "ДМ_2";
    choose(form, "CurrentCyclesCombo", 2);
    EXPECT_EQ(line->text(), "Нет прогноза: в выбранных циклах меньше 3 дней измерений (марок: 2 из 2)");
    database.exec("delete from dm_elements where element_id = 2");
    choose(form, "PositionCombo", -1);
    choose(form, "CurrentCyclesCombo", 4);
    EXPECT_EQ(line->text(), "") << "both that are left have three days or more";
}

TEST_F(Prediction, TheNarrowestChosenLevelFilters)
{
    database.exec(
        "insert into projects (project_id, name) overriding system value values (2, 'Другой');"
        "insert into objects (object_id, project_id, object) overriding system value values (2, 1, 'О2'), (3, 2, 'О3');"
        "insert into subobjects (subobject_id, object_id, subobject) overriding system value values (2, 1, 'П2'), "
        "(3, 2, 'П3'), (4, 3, 'П4');"
        "insert into positions (position_id, subobject_id, position) overriding system value values (3, 2, '3'), "
        "(4, 3, '4'), (5, 4, '5');"
        "insert into dm_elements (element_id, type_id, element_name, position_id) overriding system value values "
        "(4, 'dm', 'ДМ_4', 3), (5, 'dm', 'ДМ_5', 4), (6, 'dm', 'ДМ_6', 5);");
    QVector<MarkMeasures> marks;
    QVector<int> counts;
    ForecastScope scope;
    const auto count = [&] {
        EXPECT_TRUE(loadMarks(scope, marks));
        counts << marks.size();
    };
    count();
    for (int ForecastScope::*level :
         {&ForecastScope::project, &ForecastScope::object, &ForecastScope::subobject, &ForecastScope::position}) {
        scope.*level = 1;
        count();
    }
    EXPECT_EQ(counts, (QVector<int>{6, 5, 4, 3, 2}));
}

TEST_F(Prediction, TheOrderOfTheTwoCyclesDoesNotMatter)
{
    DMPredictionForm form;
    setDate(form, {2027, 1, 1});
    choose(form, "BaseCyclesCombo", 2);
    const QStringList straight = row(elements(form), 0);
    EXPECT_EQ(straight.size(), 13);
    choose(form, "BaseCyclesCombo", 4);
    choose(form, "CurrentCyclesCombo", 2);
    EXPECT_EQ(row(elements(form), 0), straight);
    EXPECT_EQ(straight[4], "99.9950") << "the base is that of the first cycle of the list";

    child<QLineEdit>(form, "PredictionName")->setText("Обратный");
    driver.expect("Сохранить прогноз").press("OK");
    child<QPushButton>(form, "WriteBTN")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.rows("select name, begin_cycle_id, end_cycle_id from dm_predictions"),
              (QVector<QStringList>{{"Обратный", "2", "4"}}));
}

TEST_F(Prediction, TheNameFollowsTheDateUntilTheUserGivesOne)
{
    DMPredictionForm form;
    setDate(form, {2027, 3, 9});
    EXPECT_EQ(child<QLineEdit>(form, "PredictionName")->text(), "Прогноз на дату 09-03-2027");
    EXPECT_EQ(child<QLabel>(form, "ChartHeading")->text(), "Прогноз на дату 09-03-2027 (Позиция 1)");
    child<QLineEdit>(form, "PredictionName")->setText("Мой");
    setDate(form, {2028, 3, 9});
    EXPECT_EQ(child<QLineEdit>(form, "PredictionName")->text(), "Мой");
}

TEST_F(Prediction, TheChartShowsWhatIsTicked)
{
    DMPredictionForm form;
    form.show();
    setDate(form, {2027, 1, 1});
    QTableWidgetItem* measures = elements(form).item(0, 9);
    QTableWidgetItem* trend = elements(form).item(0, 10);
    measures->setCheckState(Qt::Checked);
    const QImage points = chart(form).toImage();
    EXPECT_FALSE(points.isNull());
    trend->setCheckState(Qt::Checked);
    const QImage line = chart(form).toImage();
    EXPECT_NE(points, line);
    child<QCheckBox>(form, "BandCheck")->setChecked(true);
    EXPECT_NE(chart(form).toImage(), line);
    EXPECT_TRUE(takePicture(form, "deformation-prediction"));
    elements(form).item(1, 9)->setCheckState(Qt::Checked);
    setDate(form, {2027, 6, 1});
    EXPECT_EQ(elements(form).item(0, 10)->checkState(), Qt::Checked) << "what was ticked stays";
    for (int at : {0, 1}) {
        elements(form).item(at, 9)->setCheckState(Qt::Unchecked);
        elements(form).item(at, 10)->setCheckState(Qt::Unchecked);
    }
    EXPECT_TRUE(chart(form).isNull());
}

TEST_F(Prediction, ChartSeriesAxesAndNames)
{
    MarkMeasures mark;
    mark.name = "ДМ_1";
    for (int year = 0; year < 4; ++year)
        mark.add(year, {2020 + year, 1, 1}, 10.0 - 0.01 * year);
    const MarkForecast forecast = forecastOf(mark, {0, 1, 2, 3}, {2030, 1, 1});
    DMPredictionChartJK chart;
    chart.setPictureSize(400, 300);
    chart.plotMeasures(mark.name, forecast.samples, 0);
    chart.plotTrend(mark.name, forecast, {2030, 1, 1}, 0);
    chart.plotBand(forecast, {2030, 1, 1}, 0);
    EXPECT_FALSE(chart.render().isNull());
    const PlotContents& plot = chart.plotter().contents();
    ASSERT_EQ(plot.graphs.size(), 4);
    EXPECT_EQ(plot.graphs[0].title, "ДМ\\_1");
    EXPECT_EQ(plot.graphs[1].title, "Тренд ДМ\\_1");
    EXPECT_EQ(plot.graphs[2].title, "");
    EXPECT_EQ(plot.x.label, "Дата");
    EXPECT_EQ(plot.x.tickFormat, "MM.yy");
    EXPECT_EQ(plot.y.label, "Вертикальное перемещение");
    EXPECT_EQ(plot.store.values(plot.graphs[0].yColumn).first(), 10.0) << "metres";
    EXPECT_EQ(plot.store.values(plot.graphs[1].xColumn).last(), abscissaOf({2030, 1, 1}));
}

TEST_F(Prediction, IsStoredAsItIsShown)
{
    DMPredictionForm form;
    setDate(form, {2027, 1, 1});
    choose(form, "PositionCombo", -1);
    driver.expect("Сохранить прогноз").text("Имя").set("input", "Зимний").press("OK");
    child<QPushButton>(form, "WriteBTN")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), "Прогоз 'Зимний' сохранен в БД");
    EXPECT_EQ(database.rows("select name, prediction_date, begin_cycle_id, end_cycle_id from dm_predictions"),
              (QVector<QStringList>{{"Зимний", "2027-01-01", "1", "4"}}));
    const auto rows = database.rows("select element_id, prediction_date, meas from dm_predictions_data order by 1");
    ASSERT_EQ(rows.size(), 2) << "the mark without a forecast has no row";
    EXPECT_EQ(rows[0].mid(0, 2), (QStringList{"1", "2027-01-01"}));
    EXPECT_EQ(rows[0][2].toDouble(), row(elements(form), 0)[7].toDouble()) << "rounded as displayed";
    form.reject();
    EXPECT_EQ(form.result(), QDialog::Accepted) << "the session is to read its forecasts anew";
}

TEST_F(Prediction, NothingIsStoredWithoutAName)
{
    DMPredictionForm form;
    driver.expect("Сохранить прогноз").press("Cancel");
    driver.expect("Сохранить прогноз").set("input", "").press("OK");
    child<QPushButton>(form, "WriteBTN")->click();
    child<QPushButton>(form, "WriteBTN")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), "");
    EXPECT_EQ(database.value("select count(*) from dm_predictions"), "0");
    form.reject();
    EXPECT_EQ(form.result(), QDialog::Rejected);
}

TEST_F(Prediction, WithoutAForecastThereIsNothingToStore)
{
    database.exec("delete from dm_meas where cycle_id > 2");
    DMPredictionForm form;
    driver.expect("Сохранить прогноз").press("OK");
    driver.expect("Внимание").text("Ни у одной марки нет прогноза: записывать нечего").press("OK");
    child<QPushButton>(form, "WriteBTN")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.value("select count(*) from dm_predictions"), "0");
}

TEST_F(Prediction, ARefusedForecastStopsBeforeItsRows)
{
    DMPredictionForm form;
    database.exec("alter table dm_predictions add constraint never check (name <> 'Никак')");
    driver.expect("Сохранить прогноз").set("input", "Никак").press("OK");
    child<QPushButton>(form, "WriteBTN")->click();
    const QString printed = console.take();
    EXPECT_TRUE(printed.startsWith("Ошибка записи в БД ")) << printed;
    EXPECT_TRUE(printed.contains("never")) << printed;
    driver.expect("Сохранить прогноз").set("input", "О'Нил").press("OK");
    child<QPushButton>(form, "WriteBTN")->click();
    EXPECT_TRUE(console.take().startsWith("Ошибка записи в БД ")) << "texts go unescaped";
    EXPECT_EQ(database.value("select count(*) from dm_predictions_data"), "0");
    EXPECT_EQ(database.value("select count(*) from dm_predictions"), "0");
}

TEST_F(Prediction, AFailedLoadLeavesNothing)
{
    DMPredictionForm form;
    elements(form).item(0, 9)->setCheckState(Qt::Checked);
    loseServer();
    console.take();
    choose(form, "PositionCombo", -1);
    EXPECT_TRUE(console.take().contains("Измерения марок не прочитаны: сервер отказал или не отвечает"));
    EXPECT_EQ(elements(form).rowCount(), 0);
    EXPECT_TRUE(chart(form).isNull());
}

TEST_F(Prediction, LoadingTellsWhetherAllMarksWereRead)
{
    ForecastScope scope;
    scope.position = 1;
    QVector<MarkMeasures> marks;
    QVector<int> steps;
    EXPECT_TRUE(loadMarks(scope, marks, [&steps](int done, int total) {
        EXPECT_EQ(total, 2);
        steps.append(done);
        return true;
    }));
    EXPECT_EQ(marks.size(), 2);
    EXPECT_EQ(steps, (QVector<int>{1, 2}));
    EXPECT_FALSE(loadMarks(scope, marks, [](int done, int) { return done < 2; }));
    EXPECT_TRUE(marks.isEmpty()) << "none is better than some";
    loseServer();
    EXPECT_FALSE(loadMarks(scope, marks));
}

TEST_F(Prediction, AMarkMeasuredTwiceInACycleIsTold)
{
    database.exec("insert into dm_meas (element_id, cycle_id, date, meas) values (1, 2, '2023-07-20', 99.9)");
    DMPredictionForm form;
    EXPECT_EQ(console.take(), "\nМарка 'ДМ_1' измерена в цикле 2 не один раз: взято последнее измерение\n");
    EXPECT_EQ(row(elements(form), 0)[2], "99.9000");
}

TEST_F(Prediction, IsExportedAsMeasures)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("прогноз.csv");
    DMPredictionForm form;
    setDate(form, {2027, 1, 1});
    driver.expect("Укажите оборудование").press("ОК");
    driver.expect("Сохранить файл измерений").files({path});
    child<QPushButton>(form, "ExportBTN")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()),
              "Имя;Дата;Отметка;SN прибора\nДМ_1;01.01.2027;" + row(elements(form), 0)[7] + ";00000\n");
}

TEST_F(Prediction, TheDeviceIsChosenOrLeft)
{
    DeviceChoice choice;
    EXPECT_EQ(choice.serial(), "00000");
    auto* devices = child<QComboBox>(choice, "DeviceList");
    EXPECT_EQ(devices->itemText(0), "Нивелир SN-7 цифровой");
    devices->setCurrentIndex(0);
    EXPECT_EQ(choice.serial(), "SN-7");
    devices->setCurrentIndex(1);
    EXPECT_EQ(choice.serial(), "00000") << "a device without a number";
    EXPECT_EQ(child<QPushButton>(choice, "OkBtn")->text(), "ОК");
    EXPECT_EQ(child<QPushButton>(choice, "CancelBtn")->text(), "Отмена");
    EXPECT_TRUE(takePicture(choice, "prediction-device"));

    DMPredictionForm form;
    driver.expect("Укажите оборудование").press("Отмена");
    child<QPushButton>(form, "ExportBTN")->click();
    EXPECT_TRUE(driver.done()) << "no file is asked for: " << driver.report();
}

TEST_F(Prediction, TheListShowsMarksAndDeletes)
{
    storeOne("Первый");
    storeOne("Второй");
    DMPredictionListForm list;
    EXPECT_EQ(list.windowTitle(), "Список прогнозов деформаций");
    auto* table = child<QTableWidget>(list, "PredictionsView");
    EXPECT_EQ(titlesOf(*table), (QStringList{"Имя", "Дата прогноза", "Исходный цикл", "Текущий цикл", "Число марок"}));
    EXPECT_EQ(row(*table, 0).mid(1), (QStringList{"2027-01-01", "Цикл 1", "Цикл 4", "2"}));
    EXPECT_TRUE(takePicture(list, "prediction-list"));

    driver.window("DMPredictionListForm").step("menu", {"PredictionsView", "0", "0"}).step("choose", {"Выбрать все"});
    driver.window("DMPredictionListForm").step("menu", {"PredictionsView", "0", "0"}).step("choose", {"Инвертировать"});
    driver.window("DMPredictionListForm")
        .step("menu", {"PredictionsView", "0", "0"})
        .step("choose", {"Удалить выбранные"});
    driver.play();
    EXPECT_EQ(table->rowCount(), 2) << "nothing is marked, nothing is asked";
    table->item(0, 0)->setCheckState(Qt::Checked);
    const QString kept = table->item(1, 0)->text();
    driver.window("DMPredictionListForm")
        .step("menu", {"PredictionsView", "0", "0"})
        .step("choose", {"Удалить выбранные"});
    driver.expect("Внимание").text("Удалить выбранные прогнозы деформаций?").press("Да");
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), "Успешное удаление");
    EXPECT_TRUE(list.hasDeleted());
    EXPECT_EQ(database.rows("select name from dm_predictions"), (QVector<QStringList>{{kept}}));
    EXPECT_EQ(database.value("select count(*) from dm_predictions_data"), "2");
}

// Alike but for the order: the session's forecasts stand by their day, the list as the server gives them.
TEST_F(Prediction, TheListLeavesTheOrderToTheServer)
{
    const QString backend = session().run("select pg_backend_pid()").getvalue(0, 0);
    const auto lastStatement = [&] {
        return database.value("select query from pg_stat_activity where pid = " + backend);
    };
    const QString statement =
        "select prediction_id,dm_predictions.prediction_date,name,begin_cycle_id,end_cycle_id, count(meas_id) as "
        "elements from dm_predictions left join dm_predictions_data using (prediction_id) group by prediction_id";
    QVector<StoredPrediction> predictions;
    QString problem;
    ASSERT_TRUE(loadPredictions(predictions, &problem)) << problem;
    EXPECT_EQ(lastStatement(), statement);
    session().reloadPredictions();
    EXPECT_EQ(lastStatement(), statement + " order by dm_predictions.prediction_date ");
}

TEST_F(Prediction, FailuresOfTheListAreTold)
{
    storeOne();
    DMPredictionListForm list;
    auto* table = child<QTableWidget>(list, "PredictionsView");
    table->item(0, 0)->setCheckState(Qt::Checked);
    list.show();
    database.exec("create function never() returns trigger language plpgsql as $$begin raise 'никогда'; end$$;"
                  "create trigger never before delete on dm_predictions execute function never()");
    driver.window("DMPredictionListForm")
        .step("menu", {"PredictionsView", "0", "0"})
        .step("choose", {"Удалить выбранные"});
    driver.expect("Внимание").press("Да");
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(console.take().startsWith("Ошибка удаления 'ERROR:  никогда"));
    EXPECT_FALSE(list.hasDeleted());
    loseServer();
    DMPredictionListForm lost;
    EXPECT_TRUE(console.take().startsWith("Ошибка запроса списка прогнозов '"));
}

TEST_F(Prediction, TheCommandReadsTheForecastsAnew)
{
    storeOne("Стоит");
    driver.expect("Построение прогноза деформаций").press("CloseBtn");
    predictDeformations();
    EXPECT_TRUE(session().predictions.isEmpty()) << "nothing was stored";
    driver.expect("Построение прогноза деформаций").press("WriteBTN");
    driver.expect("Сохранить прогноз").set("input", "Новый").press("OK");
    driver.expect("Построение прогноза деформаций").press("CloseBtn");
    predictDeformations();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(session().predictions.size(), 2);
}
