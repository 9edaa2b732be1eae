#include "charts/forms/ts_data_viewer.h"

#include "base/text.h"
#include "elements/measures/family_measures.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <QHeaderView>
#include <QSplitter>
#include <QStandardItemModel>
#include <QStyle>
#include <QTableView>

using namespace formkit;

namespace {

QStandardItem* numberItem(double number)
{
    auto* item = new QStandardItem(fixed(number, 2));
    item->setEditable(false);
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

} // namespace

TSDataViewer::TSDataViewer(QWidget* parent)
    : QDialog(parent),
      model_(new QStandardItemModel(this)),
      table_(named<QTableView>("DataView")),
      picture_(named<QLabel>("ChartLabel"))
{
    nameForm(this, "TSDataViewer", QString());
    model_->setHorizontalHeaderLabels({QStringLiteral("Глубина, м"), QStringLiteral("Температура, °C")});
    table_->setModel(model_);
    table_->verticalHeader()->hide();
    picture_->setScaledContents(true);
    picture_->setAlignment(Qt::AlignCenter);
    // The picture follows the label, never the label the picture.
    picture_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    picture_->setMinimumSize(280, 200);
    chart_.setPictureSize(400, 300);

    auto* parts = new QSplitter(Qt::Horizontal);
    parts->addWidget(table_);
    parts->addWidget(picture_);
    parts->setStretchFactor(0, 0);
    parts->setStretchFactor(1, 1);
    parts->setChildrenCollapsible(false);
    parts->setSizes({220, 480}); // the table takes what it needs
    connect(parts, &QSplitter::splitterMoved, this, &TSDataViewer::renderPicture);
    layOut(this).column({parts});
    resize(760, 460);
}

void TSDataViewer::setMeasure(const TSMeasure& measure)
{
    setWindowTitle(QStringLiteral("Просмотр данных измерения: ") + measure.elementName);
    const TemperatureCurve profile = logOf(measure.profile);
    fillTable(profile);
    hasProfile_ = !profile.empty();
    if (hasProfile_) {
        plot(measure, profile);
        return;
    }
    picture_->clear();
    picture_->setText(QStringLiteral("Нет данных для отображения"));
}

void TSDataViewer::fillTable(const TemperatureCurve& profile)
{
    model_->removeRows(0, model_->rowCount());
    for (const auto& [depth, temperature] : profile)
        model_->appendRow({numberItem(depth), numberItem(temperature)});
    table_->resizeColumnsToContents();
    // Both columns are to be seen, with room for the scroll bar.
    const int bar = table_->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    table_->setMinimumWidth(table_->horizontalHeader()->length() + bar + 2 * table_->frameWidth() + 4);
}

void TSDataViewer::plot(const TSMeasure& measure, const TemperatureCurve& profile)
{
    chart_.setPictureSize(picture_->width(), picture_->height());
    chart_.setProfile(profile);
    chart_.addMarks(measure.outliers, measure.gradients);
    chart_.addDepthBounds(measure.depthFrom, measure.depthTo);
    chart_.addMeans(measure.mean, measure.previousMean);
    renderPicture();
}

void TSDataViewer::renderPicture()
{
    if (!hasProfile_)
        return;
    chart_.setPictureSize(picture_->width(), picture_->height());
    picture_->setPixmap(chart_.render(picture_->devicePixelRatioF()));
}

void TSDataViewer::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    renderPicture();
}

// The layout settles the label's size when the dialog is shown.
void TSDataViewer::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    renderPicture();
}
