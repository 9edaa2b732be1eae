// The form and the command of the deformation map.
#include "analysis/maps/forms/deformation_map_form.h"
#include "analysis/maps/forms/map_commands.h"
#include "analysis/maps/map_form_fixture.h"
#include "support/pictures.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

class DeformationMap : public MapFormFixture {
protected:
    // Five marks in a square, sunk to the east; a sixth is measured once only.
    void SetUp() override
    {
        MapFixture::SetUp();
        const char* const now[] = {"99.9995", "99.995", "99.985", "100.0008", "99.99"};
        const double xs[] = {0, 100, 100, 0, 50};
        const double ys[] = {0, 0, 100, 100, 50};
        for (int i = 0; i < 5; ++i) {
            addMark(i + 1, qPrintable(QStringLiteral("М%1").arg(i + 1)), xs[i], ys[i]);
            addElevation(i + 1, 1, "100");
            addElevation(i + 1, 2, now[i]);
        }
        addMark(6, "М6", 20, 70);
        addElevation(6, 1, "100");
        session().currentPositionName = QStringLiteral("Позиция 1");
    }
    void TearDown() override
    {
        session().currentPositionName.clear();
        MapFixture::TearDown();
    }
};

const QString kTitle = QStringLiteral("Построение карты деформаций");
const QString kWarning =
    QStringLiteral("Набор данных содержит вырожденные точки, их использование может привести к непредсказуемым "
                   "результатам\n Снимите отключите выделенные точки для корректной работы.\n<Игнорировать> Продолжить "
                   "выполнение.\n<Возврат> Отключить точки. \n<Закрыть> Закрыть окно.");

} // namespace

TEST_F(DeformationMap, SaysWhatItSays)
{
    DeformationMapForm form;
    expectCaptions(form, "DeformationMapForm", kTitle, {"Деформационные марки", "Позиция", "Позиция 1", "Прогноз"});
    EXPECT_EQ(titlesOf(points(form)), (QStringList{"Имя", "X", "Y", "Абс.отметка", "Перемещение(мм)", "Использовать"}));
    EXPECT_EQ(titlesOf(values(form)), (QStringList{"Имя", "X", "Y", "Цикл 1  (м)", "Цикл 2  (м)", "Перемещение(мм)"}));
    EXPECT_EQ(child<QLabel>(form, "Position")->text(), QStringLiteral("Позиция 1"));
    EXPECT_FALSE(child<QCheckBox>(form, "UsePredictionCheck")->isChecked());
    EXPECT_FALSE(child<QComboBox>(form, "PredictionsList")->isEnabled());
    EXPECT_FALSE(form.labelsWanted());
    EXPECT_EQ(form.levelMapId(), session().deformationColormapId);
    EXPECT_TRUE(takePicture(form, QStringLiteral("deformation-map-small")));
}

TEST_F(DeformationMap, ShowsMovementsAndTicksThoseThatHaveOne)
{
    DeformationMapForm form;
    EXPECT_EQ(row(points(form), "М2").mid(0, 5), (QStringList{"М2", "100.00", "0.00", "100.00", "-5.00"}));
    EXPECT_EQ(row(values(form), "М2"), (QStringList{"М2", "100.00", "0.00", "100.0000", "99.9950", "-5.00"}));
    EXPECT_EQ(row(points(form), "М6").mid(3, 2), (QStringList{"", ""})) << "what is missing is an empty cell";
    EXPECT_EQ(row(values(form), "М6"), (QStringList{"М6", "20.00", "70.00", "100.0000", "", ""}));
    EXPECT_EQ(use(points(form), "М6")->checkState(), Qt::Unchecked);
    EXPECT_EQ(use(points(form), "М2")->checkState(), Qt::Checked);
    const geometry::PointList used = form.usedPoints();
    ASSERT_EQ(used.size(), 5u);
    EXPECT_NEAR(used[2].z, -15.0, 1e-9) << "the map is in millimetres";
    EXPECT_EQ(redRows(points(form)), QStringList());
    EXPECT_EQ(status(form), QString());
}

TEST_F(DeformationMap, AForecastStandsInTheCurrentCyclesPlace)
{
    addForecast(5, "Зима");
    addForecastElevation(1, 5, 99.95);
    addForecastElevation(6, 5, 99.9);
    DeformationMapForm form;
    child<QCheckBox>(form, "UsePredictionCheck")->setChecked(true);
    EXPECT_TRUE(child<QComboBox>(form, "PredictionsList")->isEnabled());
    EXPECT_FALSE(child<QComboBox>(form, "MeasData")->isEnabled());
    EXPECT_EQ(titlesOf(values(form)).value(4), QStringLiteral("Прогноз \n Зима"));
    EXPECT_EQ(form.usedNames(), (QStringList{"М1", "М6"}));
    EXPECT_EQ(row(points(form), "М6").mid(3, 2), (QStringList{"99.90", "-100.00"}));
    EXPECT_EQ(row(points(form), "М2").mid(3, 2), (QStringList{"", ""}));
    child<QCheckBox>(form, "UsePredictionCheck")->setChecked(false);
    EXPECT_EQ(form.usedNames().size(), 5);
}

TEST_F(DeformationMap, WithoutForecastsTheColumnIsPlain)
{
    DeformationMapForm form;
    child<QCheckBox>(form, "UsePredictionCheck")->setChecked(true);
    EXPECT_EQ(titlesOf(values(form)).value(4), QStringLiteral("Прогноз"));
    EXPECT_TRUE(form.usedPoints().empty());
    EXPECT_EQ(status(form), QStringLiteral("Не выбрано ни одной точки со значением."));
    EXPECT_EQ(row(values(form), "М1").value(3), QStringLiteral("100.0000")) << "the base stays";
}

TEST_F(DeformationMap, ValuesGoToAFileAndToTheClipboard)
{
    database.exec("delete from dm_elements where element_id between 3 and 5");
    QTemporaryDir folder;
    DeformationMapForm form;
    driver.expect(QStringLiteral("Экспорт в csv")).files({folder.filePath("marks.csv")});
    child<QPushButton>(form, "ExportCSVBTN")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    QFile file(folder.filePath("marks.csv"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll().mid(3)),
              QStringLiteral("Имя;X;Y;Цикл 1  (м);Цикл 2  (м);Перемещение(мм)\n"
                             "М1;0.00;0.00;100.0000;99.9995;-0.50\n"
                             "М2;100.00;0.00;100.0000;99.9950;-5.00\n"
                             "М6;20.00;70.00;100.0000;;\n"));
    child<QPushButton>(form, "CopyClipBTN")->click();
    EXPECT_EQ(QApplication::clipboard()->text(),
              QStringLiteral("М1\t0.00\t0.00\t100.0000\t99.9995\t-0.50\n"
                             "М2\t100.00\t0.00\t100.0000\t99.9950\t-5.00\n"
                             "М6\t20.00\t70.00\t100.0000\t\t\n"));
}

TEST_F(DeformationMap, DegenerateMarksAreRedAndNamedAndStayTicked)
{
    addMark(7, "М7", 50.09, 50);
    addElevation(7, 1, "100");
    addElevation(7, 2, "99.99");
    DeformationMapForm form;
    EXPECT_EQ(redRows(points(form)), (QStringList{"М5", "М7"}));
    EXPECT_EQ(status(form), QStringLiteral("Вырожденные точки (ближе 0,1 м друг к другу): М5, М7."));
    EXPECT_EQ(use(points(form), "М7")->checkState(), Qt::Checked);
}

TEST_F(DeformationMap, AQuestionAboutDegenerateMarksIsAskedEachTime)
{
    addMark(7, "М7", 50, 50.05);
    DeformationMapForm form;
    const auto answered = [&](const QString& button) {
        form.setResult(-1);
        form.show();
        driver.expect(QStringLiteral("Внимание")).text(kWarning).press(button);
        form.findChild<QPushButton*>("okButton")->click();
        EXPECT_TRUE(driver.done()) << driver.report();
    };
    answered(QStringLiteral("Возврат"));
    EXPECT_TRUE(form.isVisible()) << "the user goes on in the form";
    use(points(form), "М7")->setCheckState(Qt::Unchecked);
    answered(QStringLiteral("Закрыть"));
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.result(), int(QDialog::Rejected));
    answered(QStringLiteral("Игнорировать"));
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.result(), int(QDialog::Accepted));
}

TEST_F(DeformationMap, AMarkMeasuredTwiceIsTold)
{
    addElevation(3, 1, "100.5");
    DeformationMapForm form;
    EXPECT_EQ(status(form), QStringLiteral("Измерены в одном цикле несколько раз (перемещения нет): М3."));
    EXPECT_EQ(points(form).rowCount(), 6) << "it stays in the table";
    EXPECT_EQ(use(points(form), "М3")->checkState(), Qt::Unchecked);
}

TEST_F(DeformationMap, MarksAtOnePlaceAreTold)
{
    addMark(7, "М7", 50, 50);
    addElevation(7, 1, "100");
    addElevation(7, 2, "99.9");
    DeformationMapForm form;
    EXPECT_EQ(status(form),
              QStringLiteral("Вырожденные точки (ближе 0,1 м друг к другу): М5, М7.\nВ одном месте с "
                             "разными значениями (карта возьмёт первое): М5, М7."));
    EXPECT_EQ(form.usedPoints().size(), 6u);
}

TEST_F(DeformationMap, APositionWithoutMarksAndALostServerHaveALine)
{
    session().currentPositionId = 2;
    EXPECT_EQ(status(DeformationMapForm()), QStringLiteral("Не выбрано ни одной точки со значением."));
    loseServer();
    EXPECT_EQ(status(DeformationMapForm()), QStringLiteral("Ошибка соединения с базой данных"));
}

TEST_F(DeformationMap, TheCommandDrawsTheMapAndTwoLabelsAMark)
{
    ncedSetCurrentUCS(NcGeMatrix3d::rotation(M_PI / 6, NcGeVector3d::kZAxis));
    drawWithLabels(kTitle, buildDeformationMap);
    // From -15 to 0.8 mm: the bands that begin at -20, -10, -5, -2, -1, -0.5, 0 and 0.5.
    EXPECT_EQ(entities<NcDbHatch>(QStringLiteral("MAP")).size(), 8u);
    const QStringList drawn = labels();
    ASSERT_EQ(drawn.size(), 10);
    EXPECT_EQ(drawn.mid(0, 4),
              (QStringList{"99.9995 @0,0,0 v3", "-0.50 @0,0,0 v1", "99.9950 @100,0,0 v3", "-5.00 @100,0,0 v1"}));
    EXPECT_EQ(drawn.mid(6, 2), (QStringList{"100.0008 @0,100,0 v3", "0.80 @0,100,0 v1"})) << "no sign before it";
    EXPECT_EQ(groupNames().filter(QStringLiteral("TERVA_VALS_")).size(), 1);
    const Opened<NcDbText> text(entities<NcDbText>().front(), kForRead);
    EXPECT_NEAR(text->rotation(), M_PI / 6, 1e-12);
    EXPECT_EQ(text->layer(), currentLayer());
}
