#include "exchange/forms/profile_view.h"

#include "base/text.h"
#include "elements/measures/family_measures.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QTableWidgetItem* numberItem(double number)
{
    auto* item = new QTableWidgetItem(fixed(number, 2));
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

QTableWidget* profileTable(const TemperatureProfile& profile)
{
    auto* table = new QTableWidget(profile.size(), 2);
    table->setObjectName(QStringLiteral("DataView"));
    table->setHorizontalHeaderLabels({QStringLiteral("Глубина, м"), QStringLiteral("Температура, °C ")});
    for (int row = 0; row < profile.size(); ++row) {
        table->setItem(row, 0, numberItem(profile[row].first));
        table->setItem(row, 1, numberItem(profile[row].second));
    }
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    return table;
}

} // namespace

void showProfile(const TSMeasure& measure, QWidget* parent)
{
    QDialog box(parent);
    box.setObjectName(QStringLiteral("ProfileView"));
    box.setWindowTitle(QStringLiteral("Просмотр"));
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(QStringLiteral("Закрыть"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("CloseBtn"));
    QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
    auto* layout = new QVBoxLayout(&box);
    layout->addWidget(new QLabel(measure.elementName + QLatin1Char(' ')
                                 + measure.date.toString(QStringLiteral("dd.MM.yyyy hh:mm"))));
    layout->addWidget(profileTable(measure.profile));
    layout->addWidget(buttons);
    box.resize(320, 420);
    box.exec();
}
