#include "start_page.h"

#include "desk_icons.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

StartPage::StartPage(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("startPage"));
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(32, 24, 32, 24);
    page->setSpacing(12);
    auto* title = new QLabel(QStringLiteral("Терва"));
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 2.2);
    title->setFont(large);
    page->addWidget(title);
    auto* word = new QLabel(QStringLiteral("Чертежи и данные геотехнического мониторинга"));
    word->setEnabled(false);
    page->addWidget(word);

    auto* buttons = new QHBoxLayout;
    page->addLayout(buttons);
    addButton(buttons, "project-open", QStringLiteral("&Открыть проект…"), "startOpenProject", &StartPage::openProject);
    addButton(buttons, "project-new", QStringLiteral("&Новый проект…"), "startNewProject", &StartPage::newProject);
    addButton(buttons, "open", QStringLiteral("Открыть &чертёж…"), "startOpenDrawing", &StartPage::openDrawing);
    addButton(buttons, "new-drawing", QStringLiteral("Нов&ый чертёж"), "startNewDrawing", &StartPage::newDrawing);
    buttons->addStretch(1);

    auto* lists = new QHBoxLayout;
    lists->setSpacing(24);
    page->addLayout(lists, 1);
    projects_ = addColumn(lists, QStringLiteral("Недавние проекты"), "recentProjects");
    drawings_ = addColumn(lists, QStringLiteral("Недавние чертежи"), "recentDrawings");
    connect(projects_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { emit projectChosen(item->data(Qt::UserRole).toString()); });
    connect(drawings_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { emit drawingChosen(item->data(Qt::UserRole).toString()); });
}

void StartPage::addButton(QLayout* column, const char* icon, const QString& caption, const char* name,
                          void (StartPage::*chosen)())
{
    auto* button = new QPushButton(deskIcon(QString::fromLatin1(icon)), caption);
    button->setObjectName(QString::fromLatin1(name));
    button->setIconSize({22, 22});
    button->setMinimumHeight(36);
    connect(button, &QPushButton::clicked, this, chosen);
    column->addWidget(button);
}

QListWidget* StartPage::addColumn(QLayout* row, const QString& title, const char* name)
{
    auto* column = new QVBoxLayout;
    static_cast<QHBoxLayout*>(row)->addLayout(column, 1);
    column->addWidget(new QLabel(title));
    auto* list = new QListWidget;
    list->setObjectName(QString::fromLatin1(name));
    list->setIconSize({24, 24});
    list->setAlternatingRowColors(true);
    list->setTextElideMode(Qt::ElideMiddle);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(list, &QListWidget::itemClicked, list, &QListWidget::itemActivated);
    column->addWidget(list, 1);
    return list;
}

void StartPage::fill(QListWidget& list, const QStringList& paths, const QString& icon)
{
    list.clear();
    for (const QString& path : paths) {
        const QFileInfo file(path);
        auto* item = new QListWidgetItem(deskIcon(icon), file.fileName() + QLatin1Char('\n') + file.path(), &list);
        item->setData(Qt::UserRole, path);
        item->setToolTip(path);
        if (!file.exists())
            item->setFlags(Qt::NoItemFlags);
    }
    if (paths.isEmpty()) {
        auto* item = new QListWidgetItem(QStringLiteral("Пока пусто"), &list);
        item->setFlags(Qt::NoItemFlags);
    }
}

void StartPage::setRecent(const QStringList& projects, const QStringList& drawings)
{
    fill(*projects_, projects, QStringLiteral("project-open"));
    fill(*drawings_, drawings, QStringLiteral("open"));
}
