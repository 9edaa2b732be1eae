// The look at one measure of a thermal well.
#include "charts/forms/ts_data_viewer.h"
#include "elements/measures/family_measures.h"
#include "support/pictures.h"

#include <QCoreApplication>
#include <QLabel>
#include <QStandardItemModel>
#include <QTableView>
#include <functional>
#include <gtest/gtest.h>

namespace {

class DataViewer : public ::testing::Test {
protected:
    DataViewer()
    {
        measure.elementName = "ТС-7";
        // A sound log with one reading that jumps and one that is missing.
        const double temperatures[] = {3.21, 1.4, -0.35, -1.9, 2.8, -2.755, -2.9, -3.05, -3.1, BaseMeasure::noValue,
                                       -3.15};
        double depth = 0.5;
        for (double temperature : temperatures) {
            measure.profile.append({depth, temperature});
            depth += depth < 3.0 ? 0.5 : 1.0;
        }
        measure.outliers = {{2.5, 2.8}};
        measure.gradients = {{2.5, 2.8}, {3.0, -2.755}};
        measure.depthFrom = 1.0;
        measure.depthTo = 6.0;
        measure.mean = -1.62;
        measure.previousMean = -1.95;
    }

    QLabel* label() { return viewer.findChild<QLabel*>("ChartLabel"); }
    QTableView* table() { return viewer.findChild<QTableView*>("DataView"); }
    QString cell(int row, int column) { return table()->model()->index(row, column).data().toString(); }

    TSMeasure measure;
    TSDataViewer viewer;
};

} // namespace

TEST_F(DataViewer, TitleAndTableShowTheMeasure)
{
    viewer.setMeasure(measure);
    EXPECT_EQ(viewer.windowTitle(), "Просмотр данных измерения: ТС-7");
    const QAbstractItemModel* model = table()->model();
    EXPECT_TRUE(qobject_cast<const QStandardItemModel*>(model));
    EXPECT_EQ(model->headerData(0, Qt::Horizontal).toString(), "Глубина, м");
    EXPECT_EQ(model->headerData(1, Qt::Horizontal).toString(), "Температура, °C");
    EXPECT_EQ(model->rowCount(), 11);
    EXPECT_EQ(cell(0, 0), "0.50");
    EXPECT_EQ(cell(0, 1), "3.21");
    EXPECT_EQ(cell(5, 1), "-2.75");
    EXPECT_EQ(cell(9, 1), "inf");
    EXPECT_FALSE(model->flags(model->index(0, 0)) & Qt::ItemIsEditable);
    EXPECT_FALSE(model->flags(model->index(0, 1)) & Qt::ItemIsEditable);
    EXPECT_TRUE(takePicture(viewer, "ts-data-viewer"));
}

TEST_F(DataViewer, OfReadingsAtOneDepthTheLastIsShown)
{
    measure.profile = {{2.0, 1.0}, {1.0, 5.0}, {2.0, 3.0}};
    viewer.setMeasure(measure);
    EXPECT_EQ(table()->model()->rowCount(), 2);
    EXPECT_EQ(cell(0, 0), "1.00");
    EXPECT_EQ(cell(1, 1), "3.00");
}

TEST_F(DataViewer, ThePictureHasTheLabelsSizeAndFollowsIt)
{
    viewer.show();
    QCoreApplication::processEvents();
    viewer.setMeasure(measure);
    EXPECT_TRUE(label()->hasScaledContents());
    const auto pictureSize = [this] { // in dots of the form, however sharp
        const QPixmap picture = label()->pixmap(Qt::ReturnByValue);
        return (QSizeF(picture.size()) / picture.devicePixelRatioF()).toSize();
    };
    ASSERT_TRUE(pictureSize() == label()->size());
    const QSize before = label()->size();
    viewer.resize(1000, 640);
    QCoreApplication::processEvents();
    EXPECT_NE(label()->size(), before);
    EXPECT_EQ(pictureSize(), label()->size());
    viewer.resize(500, 300);
    QCoreApplication::processEvents();
    EXPECT_EQ(pictureSize(), label()->size());
    EXPECT_TRUE(takePicture(viewer, "ts-data-viewer-small"));
}

TEST_F(DataViewer, ThePictureShowsMarksBoundsAndMeans)
{
    viewer.setMeasure(measure);
    const QImage all = label()->pixmap(Qt::ReturnByValue).toImage();
    const auto without = [&](const std::function<void(TSMeasure&)>& change) {
        TSMeasure changed = measure;
        change(changed);
        TSDataViewer other;
        other.setMeasure(changed);
        return other.findChild<QLabel*>("ChartLabel")->pixmap(Qt::ReturnByValue).toImage();
    };
    EXPECT_EQ(without([](TSMeasure&) {}), all);
    EXPECT_NE(without([](TSMeasure& m) { m.outliers.clear(); }), all);
    EXPECT_NE(without([](TSMeasure& m) { m.gradients.clear(); }), all);
    EXPECT_NE(without([](TSMeasure& m) { m.depthFrom = BaseMeasure::noValue; }), all);
    EXPECT_NE(without([](TSMeasure& m) { m.depthTo = BaseMeasure::noValue; }), all);
    EXPECT_NE(without([](TSMeasure& m) { m.mean = BaseMeasure::noValue; }), all);
    EXPECT_NE(without([](TSMeasure& m) { m.previousMean = BaseMeasure::noValue; }), all);
}

TEST_F(DataViewer, WithoutAProfileATextStandsInThePicturesPlace)
{
    measure.profile.clear();
    viewer.setMeasure(measure);
    EXPECT_EQ(label()->text(), "Нет данных для отображения");
    EXPECT_TRUE(label()->pixmap(Qt::ReturnByValue).isNull());
    EXPECT_EQ(table()->model()->rowCount(), 0);
    viewer.show();
    viewer.resize(700, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(label()->text(), "Нет данных для отображения");
    EXPECT_TRUE(takePicture(viewer, "ts-data-viewer-empty"));
}

TEST_F(DataViewer, ASecondMeasureReplacesTheFirst)
{
    viewer.setMeasure(measure);
    TSMeasure empty;
    empty.elementName = "ТС-8";
    viewer.setMeasure(empty);
    EXPECT_EQ(label()->text(), "Нет данных для отображения");
    viewer.setMeasure(measure);
    EXPECT_FALSE(label()->pixmap(Qt::ReturnByValue).isNull());
    EXPECT_EQ(table()->model()->rowCount(), 11);
}
