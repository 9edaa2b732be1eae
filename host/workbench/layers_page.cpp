#include "layers_page.h"

#include "desk_icons.h"
#include "layers_panel.h"

#include <QAction>
#include <QLineEdit>
#include <QToolBar>
#include <QVBoxLayout>

LayersPage::LayersPage(QWidget* parent) : QWidget(parent), list_(new LayersPanel), filter_(new QLineEdit)
{
    auto* bar = new QToolBar;
    bar->setIconSize({18, 18});
    addTool(bar, "create", QStringLiteral("Новый слой"), "layerNew", &LayersPanel::addNew);
    addTool(bar, "edit", QStringLiteral("Переименовать слой"), "layerRename", &LayersPanel::renameChosen);
    addTool(bar, "delete", QStringLiteral("Удалить слой"), "layerDelete", &LayersPanel::eraseChosen);
    addTool(bar, "check", QStringLiteral("Сделать слой текущим"), "layerCurrent", &LayersPanel::makeChosenCurrent);
    addTool(bar, "linetype", QStringLiteral("Тип линии слоя"), "layerLineType", &LayersPanel::chooseLineType);
    filter_->setObjectName(QStringLiteral("layerFilter"));
    filter_->setPlaceholderText(QStringLiteral("Найти слой"));
    filter_->setClearButtonEnabled(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 2, 4, 4);
    column->setSpacing(3);
    column->addWidget(bar);
    column->addWidget(filter_);
    column->addWidget(list_);
    connect(filter_, &QLineEdit::textChanged, list_, &LayersPanel::setFilter);
    connect(list_, &LayersPanel::refused, this, &LayersPage::refused);
}

void LayersPage::addTool(QToolBar* bar, const char* icon, const QString& caption, const char* name,
                         void (LayersPanel::*act)())
{
    QAction* action = bar->addAction(deskIcon(QString::fromLatin1(icon)), caption, list_, act);
    action->setObjectName(QString::fromLatin1(name));
    action->setStatusTip(caption);
}

void LayersPage::setDrawing(NcDbDatabase* drawing) { list_->setDrawing(drawing); }
