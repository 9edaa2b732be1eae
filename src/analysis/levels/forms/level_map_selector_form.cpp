#include "analysis/levels/forms/level_map_selector_form.h"

#include "session/project_session.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

LeveMapSelectorForm::LeveMapSelectorForm(int id, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Выбор цветовой схемы"));
    setMinimumWidth(320);
    levelMap_ = new QComboBox(this);
    levelMap_->setObjectName(QStringLiteral("LevelMap"));
    session().reloadLevelMaps();
    const QMap<int, QString>& maps = session().levelMaps;
    for (auto map = maps.begin(); map != maps.end(); ++map)
        levelMap_->addItem(map.value(), map.key());
    levelMap_->setCurrentIndex(qMax(0, levelMap_->findData(id)));

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(QStringLiteral("Выбрать"), QDialogButtonBox::AcceptRole)
        ->setObjectName(QStringLiteral("SelectBtn"));
    buttons->addButton(QStringLiteral("Отмена"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("CancelBtn"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(levelMap_);
    layout->addWidget(buttons);
}

int LeveMapSelectorForm::levelMapId() const { return levelMap_->currentData().toInt(); }
