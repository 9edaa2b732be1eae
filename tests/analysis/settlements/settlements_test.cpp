// The settlement form: which marks its line catches, and what it says of them.
#include "analysis/settlements/forms/settlements_map_form.h"
#include "analysis/settlements/settlement_texts.h"
#include "settlement_fixture.h"
#include "support/pictures.h"
#include "support/statement_relay.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTemporaryDir>

namespace {

using Settlements = SettlementFixture;

void showAlong(SettlementsMapForm& form, const ProfileLine& line) { form.setLine(line); }

} // namespace

TEST_F(Settlements, SaysWhatItSays)
{
    SettlementsMapForm form;
    showAlong(form, angle());
    EXPECT_EQ(form.objectName(), QStringLiteral("SettlementsMapForm"));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Профиль деформаций"));
    const QStringList texts = textsOf(form);
    for (const char* text :
         {"Позиция", "Позиция 1", "Исходный цикл", "Текущий цикл", "Прогноз", "По позиции", "По всей базе", "Точно",
          "Коридор, м", "Длина", "200.00 м", "Вершин", "3", "Выводить значения", "Записать в БД", "Экспорт в .CSV",
          "Экспорт в буфер обмена", "Максимальная  осадка,мм 12.00", "Средняя  осадка, мм 6.00"})
        EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
    EXPECT_EQ(titlesOf(marks(form)),
              (QStringList{"Имя", "Цикл 1 01.12.22-31.12.22", "Цикл 2 01.07.23-31.07.23", "Осадка, мм",
                           "Разность \n осадок, мм", "Расстояние, м", "Отн. разн. \n осадки"}));
    EXPECT_EQ(child<QComboBox>(form, "BaseCyclesCombo")->currentData().toInt(), 1);
    EXPECT_EQ(child<QComboBox>(form, "CurrentCyclesCombo")->currentData().toInt(), 2);
    EXPECT_FALSE(child<QCheckBox>(form, "UsePredictionCheck")->isChecked());
    EXPECT_FALSE(child<QComboBox>(form, "PredictionsList")->isEnabled());
    EXPECT_TRUE(child<QRadioButton>(form, "SelectByPosition")->isChecked());
    EXPECT_TRUE(child<QRadioButton>(form, "MatcTolerance")->isChecked());
    EXPECT_EQ(child<QDoubleSpinBox>(form, "Tolerance")->value(), 1.0);
    EXPECT_TRUE(child<QCheckBox>(form, "LabelsEnabled")->isChecked());
    EXPECT_EQ(child<QLabel>(form, "PolySelected")->text(), QStringLiteral("Указана"));
    EXPECT_TRUE(takePicture(form, QStringLiteral("settlements")));
    for (const int cycle : {1, 2})
        EXPECT_GT(marks(form).columnWidth(cycle),
                  form.fontMetrics().horizontalAdvance(QStringLiteral("01.12.22-31.12.22")))
            << "the dates are not cut";
}

TEST_F(Settlements, CatchMarksNearerThanTheCorridorInTheOrderOfTheLine)
{
    SettlementsMapForm form;
    showAlong(form, angle());
    EXPECT_EQ(names(marks(form)), (QStringList{"М.1", "М.2", "М.3", "М.4"})) << "М.5 stands 1 m off, М.6 elsewhere";
    child<QDoubleSpinBox>(form, "Tolerance")->setValue(1.01);
    EXPECT_EQ(names(marks(form)), (QStringList{"М.1", "М.5", "М.2", "М.3", "М.4"}));
    child<QRadioButton>(form, "SelectByDataBase")->setChecked(true);
    EXPECT_EQ(names(marks(form)).last(), QStringLiteral("М.6"));
    child<QRadioButton>(form, "MatchPreciss")->setChecked(true);
    EXPECT_EQ(names(marks(form)), (QStringList{"М.1", "М.3", "М.6"})) << "a centimetre";
    EXPECT_FALSE(child<QDoubleSpinBox>(form, "Tolerance")->isEnabled());
}

TEST_F(Settlements, TheOtherWayRoundTheLineTurnsTheOrder)
{
    SettlementsMapForm form;
    showAlong(form, ProfileLine({{100, 100, 0}, {100, 0, 0}, {0, 0, 0}}, false));
    EXPECT_EQ(names(marks(form)), (QStringList{"М.4", "М.3", "М.2", "М.1"}));
}

TEST_F(Settlements, AreShownWithTheirDifferences)
{
    SettlementsMapForm form;
    showAlong(form, angle());
    EXPECT_EQ(row(marks(form), 0), (QStringList{"М.1", "10.0000", "9.9980", "-2.00", "--", "--", "--"}));
    EXPECT_EQ(row(marks(form), 1), (QStringList{"М.2", "10.0000", "9.9880", "-12.00", "-10.00", "50.00", "0.000200"}));
    EXPECT_EQ(row(marks(form), 3).mid(0, 5), (QStringList{"М.4", "10.0000", "--", "--", "--"}));
    EXPECT_EQ(status(form), QStringLiteral("Нет замера: М.4."));
}

TEST_F(Settlements, AForecastStandsInTheCurrentCyclesPlace)
{
    database.exec("insert into dm_predictions (prediction_id, name, prediction_date) overriding system value values "
                  "(5, 'На зиму', '2026-01-01');"
                  "insert into dm_predictions_data (element_id, prediction_id, prediction_date, meas) values "
                  "(1, 5, '2026-01-01', 9.9)");
    session().reloadPredictions();
    SettlementsMapForm form;
    showAlong(form, angle());
    child<QCheckBox>(form, "UsePredictionCheck")->setChecked(true);
    EXPECT_EQ(titlesOf(marks(form)).value(2), QStringLiteral("Прогноз \n На зиму"));
    EXPECT_EQ(row(marks(form), 0).mid(1, 3), (QStringList{"10.0000", "9.9000", "-100.00"}));
    EXPECT_EQ(row(marks(form), 1).value(3), QStringLiteral("--")) << "the forecast lacks it";
}

TEST_F(Settlements, BeyondTheNormAreRed)
{
    database.exec("insert into positions_attributes (position_id, averagediff) values (1, 1.1)");
    SettlementsMapForm form;
    showAlong(form, angle());
    EXPECT_EQ(marks(form).item(1, 0)->foreground().color(), QColor(255, 0, 0)) << "12 mm of 11";
    EXPECT_NE(marks(form).item(0, 0)->foreground().color(), QColor(255, 0, 0));
}

TEST_F(Settlements, AMarkMeasuredTwiceIsNamedAndItsFirstMeasureCounts)
{
    database.exec("insert into dm_meas (element_id, cycle_id, date, meas) values (2, 2, '2023-07-11', 5)");
    SettlementsMapForm form;
    showAlong(form, angle());
    EXPECT_EQ(names(marks(form)), (QStringList{"М.1", "М.2", "М.3", "М.4"}));
    EXPECT_TRUE(status(form).contains("Измерены в одном цикле несколько раз (взят первый замер): М.2."))
        << status(form).toStdString();
}

TEST_F(Settlements, MarksAtOnePlaceAreTold)
{
    database.exec("update dm_elements set x = 50, y = 0.5 where element_id = 5");
    SettlementsMapForm form;
    showAlong(form, angle());
    EXPECT_TRUE(status(form).contains("В одном месте: М.2, М.5.") || status(form).contains("В одном месте: М.5, М.2."))
        << status(form).toStdString();
    EXPECT_EQ(marks(form).rowCount(), 5);
    EXPECT_EQ(row(marks(form), 2).mid(5), (QStringList{"0.00", "0.000000"})) << "no distance, no ratio";
}

TEST_F(Settlements, NothingCaughtHasALine)
{
    SettlementsMapForm form;
    EXPECT_EQ(status(form), QStringLiteral("Линия не указана."));
    showAlong(form, ProfileLine({{500, 500, 0}, {600, 500, 0}}, false));
    EXPECT_EQ(status(form), QStringLiteral("Вдоль линии нет ни одной марки."));
    database.exec("delete from dm_meas where cycle_id = 2");
    showAlong(form, angle());
    EXPECT_EQ(status(form), QStringLiteral("Ни у одной марки нет замеров с обеих сторон."));
    showAlong(form, ProfileLine({{0, 0, 0}}, false));
    EXPECT_EQ(marks(form).rowCount(), 0) << "a line of one vertex";
    loseServer();
    showAlong(form, angle());
    EXPECT_EQ(status(form), QStringLiteral("Ошибка соединения с базой данных"));
}

TEST_F(Settlements, ArcsAreFollowed)
{
    database.exec("update dm_elements set x = 50, y = 50 where element_id = 2");
    SettlementsMapForm form;
    // A half circle of radius 50 from (0, 0) to (100, 0), above the axis.
    showAlong(form, ProfileLine({{100, 0, 1.0}, {0, 0, 0}}, false));
    EXPECT_EQ(names(marks(form)), (QStringList{"М.2", "М.1"}));
    EXPECT_EQ(child<QLabel>(form, "ProfLength")->text(), QStringLiteral("157.08 м"));
}

TEST_F(Settlements, AreWrittenWithACommaToAFileAndAsShownToTheClipboard)
{
    QTemporaryDir folder;
    SettlementsMapForm form;
    showAlong(form, ProfileLine({{0, 0, 0}, {60, 0, 0}}, false));
    driver.expect(QStringLiteral("Экспорт в csv")).files({folder.filePath("осадки.csv")});
    child<QPushButton>(form, "CSVExpBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    QFile file(folder.filePath("осадки.csv"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll().mid(3)),
              QStringLiteral("Имя;Цикл 1 01.12.22-31.12.22;Цикл 2 01.07.23-31.07.23;Осадка, мм;Разность осадок, "
                             "мм;Расстояние, м;Отн. разн. осадки\n"
                             "М.1;10,0000;9,9980;-2,00;--;--;--\n"
                             "М.2;10,0000;9,9880;-12,00;-10,00;50,00;0,000200\n"));
    child<QPushButton>(form, "ClipExpBtn")->click();
    EXPECT_TRUE(QApplication::clipboard()->text().contains("М.2\t10.0000\t9.9880\t-12.00\t-10.00\t50.00\t0.000200\n"));
}

TEST_F(Settlements, AreReadByOneStatement)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    SettlementsMapForm form;
    relay.cutAfter(-1);
    showAlong(form, ProfileLine({{0, 0, 0}, {60, 20, 0}}, false));
    EXPECT_EQ(relay.texts(),
              QStringList{"select element_name,element_id,x,y,z,h,meas_base,meas_current from dm_elements left join "
                          "(select element_id, meas as meas_base from dm_meas where cycle_id = 1) as msbase using "
                          "(element_id)left join (select element_id, meas as meas_current from dm_meas where cycle_id "
                          "= 2) as mscurr using (element_id)where (x between -1.01 and 61.01) and (y between -1.01 "
                          "and 21.01)  and position_id =1"});
    relay.refuse(1);
    showAlong(form, angle());
    EXPECT_TRUE(relay.hasRefused());
    EXPECT_EQ(status(form), QStringLiteral("Ошибка соединения с базой данных"));
    EXPECT_EQ(marks(form).rowCount(), 0);
    relay.refuse(-1);
    showAlong(form, angle());
    EXPECT_EQ(marks(form).rowCount(), 4) << "the next line is read again";
    session().connection.finish();
}

TEST_F(Settlements, ACycleIsTitledWithItsDates)
{
    EXPECT_EQ(cycleTitle(2), QStringLiteral("Цикл 2 01.07.23-31.07.23"));
    Epochs epochs;
    epochs.current = 1;
    EXPECT_EQ(currentTitle(epochs), QStringLiteral("Цикл 1 01.12.22-31.12.22"));
    epochs.forecast = 77;
    EXPECT_EQ(currentTitle(epochs), QStringLiteral("Прогноз")) << "not in the list";
    EXPECT_TRUE(movementRange(epochs).isPrediction);
    EXPECT_EQ(movementRange(epochs).current, 77);
}

TEST_F(Settlements, WhicheverStatementIsRefusedOrLostItIsSaid)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    relay.cutAfter(-1);
    const auto shown = [] {
        SettlementsMapForm form;
        showAlong(form, angle());
        return QStringLiteral("%1 %2").arg(marks(form).rowCount()).arg(status(form));
    };
    const QString whole = shown();
    ASSERT_TRUE(whole.startsWith("4 ")) << whole.toStdString();
    const QStringList statements = relay.texts();
    ASSERT_GE(statements.size(), 3) << "norms, profiles, marks";
    for (int n = 1; n <= statements.size(); ++n) {
        relay.refuse(n);
        const bool isNeeded = statements[n - 1].contains("meas_base");
        EXPECT_EQ(shown(), isNeeded ? QStringLiteral("0 Ошибка соединения с базой данных") : whole)
            << statements[n - 1].toStdString();
        ASSERT_TRUE(relay.hasRefused());
        if (n == statements.size())
            break; // nothing is asked behind it
        relay.cutAfter(n);
        // A list that meets the lost link heals it on its way; nothing is shown by halves.
        const QString met = shown();
        EXPECT_TRUE(met == whole || met == QStringLiteral("0 Ошибка соединения с базой данных")) << met.toStdString();
        ASSERT_TRUE(relay.hasCut());
        ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    }
    session().connection.finish();
}
