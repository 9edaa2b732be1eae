// What the window tells of the work: title, status bar, greyed commands, the
// start page.
#include "command_menus.h"
#include "drawing_aids.h"
#include "main_window.h"
#include "recent_files.h"
#include "shown_number.h"
#include "start_page.h"

#include <QAction>
#include <QFileInfo>
#include <QLabel>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolButton>

namespace {

constexpr int kDeskMilliseconds = 1500;
constexpr int kNarrow = 1000, kLeastLabel = 80; // dots
const QString kMouseHint = QStringLiteral("Колесо: масштаб, средняя кнопка: сдвиг, Esc: отмена");
const QString kProjects = QStringLiteral("recentProjects"), kDrawings = QStringLiteral("recent");

QLabel* statusLabel(QStatusBar* bar, const char* name)
{
    auto* label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setMargin(2);
    bar->addPermanentWidget(label);
    return label;
}

// On a narrow window a label gives way rather than lie over its neighbour; its tip
// tells all.
void keepRoom(QLabel* label, int wanted)
{
    label->setMinimumWidth(label->window()->width() < kNarrow ? qMin(wanted, kLeastLabel) : wanted);
}

void tellIn(QLabel* label, const QString& text, const QString& tip)
{
    label->setText(text);
    keepRoom(label, text.isEmpty() ? 0 : label->sizeHint().width());
    label->setToolTip(tip);
    label->setVisible(!text.isEmpty());
}

QString cyclesText(const DeskState& desk)
{
    QStringList parts;
    if (!desk.baseCycle.isEmpty())
        parts << QStringLiteral("баз. ") + desk.baseCycle;
    if (!desk.currentCycle.isEmpty())
        parts << QStringLiteral("тек. ") + desk.currentCycle;
    return parts.isEmpty() ? QString() : QStringLiteral("Циклы: ") + parts.join(QStringLiteral(", "));
}

} // namespace

void MainWindow::buildStatusBar()
{
    deskProject_ = statusLabel(statusBar(), "deskProject");
    deskCycles_ = statusLabel(statusBar(), "deskCycles");
    deskConnection_ = statusLabel(statusBar(), "deskConnection");
    coordinates_ = statusLabel(statusBar(), "coordinates");
    const std::pair<QAction*, const char*> aids[] = {{snaps_, "ПРИВЯЗКА"}, {ortho_, "ОРТО"}, {polar_, "ПОЛЯР"}};
    for (const auto& aid : aids) {
        auto* button = new QToolButton;
        button->setDefaultAction(aid.first);
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        aid.first->setIconText(QString::fromUtf8(aid.second));
        aid.first->setToolTip(aid.first->text().remove(QLatin1Char('&')) + QStringLiteral(" (")
                              + aid.first->shortcut().toString() + QLatin1Char(')'));
        statusBar()->addPermanentWidget(button);
    }
    statusBar()->showMessage(kMouseHint);
    connect(&deskTimer_, &QTimer::timeout, this, &MainWindow::showDesk);
    deskTimer_.start(kDeskMilliseconds);
}

void MainWindow::showCursor(const NcGePoint3d& world)
{
    NcGePoint3d p = world;
    ncdbWcs2Ucs(world, p);
    coordinates_->setText(QStringLiteral("X ") + shownNumber(p.x) + QStringLiteral("   Y ") + shownNumber(p.y));
}

void MainWindow::showDesk()
{
    if (!deskConnection_)
        return;
    const QString before = desk_.projectFile;
    desk_ = readDeskState();
    if (desk_.hasProject() && desk_.projectFile != before)
        RecentFiles(*settings_, kProjects).note(desk_.projectFile);
    const QString place = desk_.position.isEmpty() ? QStringLiteral("позиция не выбрана") : desk_.position;
    tellIn(deskProject_, desk_.hasProject() ? place : QString(),
           QStringLiteral("Текущая позиция\nПроект: ") + desk_.project + QLatin1Char('\n') + desk_.projectFile);
    tellIn(deskCycles_, desk_.hasProject() ? cyclesText(desk_) : QString(), QStringLiteral("Базовый и текущий циклы"));
    const QString connection = desk_.connection == QStringLiteral("да") ? QStringLiteral("База: ") + desk_.database
        : desk_.connection == QStringLiteral("потеряна") ? QStringLiteral("Связь с базой потеряна")
                                                         : QStringLiteral("Без базы");
    tellIn(deskConnection_, desk_.known ? connection : QString(), QStringLiteral("Подключение к базе данных"));
    keepRoom(coordinates_, fontMetrics().horizontalAdvance(QStringLiteral("X 0000000.000   Y 0000000.000")));
    // Beside what a project has to say there is no room for it.
    if (desk_.hasProject() && statusBar()->currentMessage() == kMouseHint)
        statusBar()->clearMessage();
    menus_->refresh(desk_);
    showTitles();
}

void MainWindow::showTitles()
{
    for (int i = 0; i < tabs_->count(); ++i) {
        const auto* view = qobject_cast<DrawingView*>(tabs_->widget(i));
        if (!view)
            continue;
        const QString mark = view->document().isModified() ? QStringLiteral("*") : QString();
        const QString title = QFileInfo(view->document().fileName()).fileName() + mark;
        if (tabs_->tabText(i) != title)
            tabs_->setTabText(i, title);
        tabs_->setTabToolTip(i, view->document().fileName());
    }
    QStringList parts;
    if (tabs_->count())
        parts << tabs_->tabText(tabs_->currentIndex());
    if (!desk_.position.isEmpty())
        parts << desk_.position;
    if (!desk_.project.isEmpty() && desk_.hasProject())
        parts << desk_.project;
    parts << QStringLiteral("Терва");
    setWindowTitle(parts.join(QStringLiteral(" — ")));
}

// --- the start page

void MainWindow::showStartPage()
{
    if (!start_) {
        start_ = new StartPage;
        connect(start_, &StartPage::projectChosen, this, &MainWindow::openProject);
        connect(start_, &StartPage::drawingChosen, this, &MainWindow::openDrawing);
        connect(start_, &StartPage::newDrawing, this, &MainWindow::newDrawing);
        connect(start_, &StartPage::openDrawing, this, &MainWindow::chooseDrawing);
        connect(start_, &StartPage::openProject, this,
                [this] { runCommandByName(QStringLiteral("TERVA_LOADPROJECT")); });
        connect(start_, &StartPage::newProject, this,
                [this] { runCommandByName(QStringLiteral("TERVA_NEW_PROJECT")); });
    }
    start_->setRecent(RecentFiles(*settings_, kProjects).paths(), RecentFiles(*settings_, kDrawings).paths());
    if (tabs_->indexOf(start_) < 0)
        tabs_->insertTab(0, start_, QStringLiteral("Начало"));
    tabs_->setCurrentWidget(start_);
    showTitles();
}

// A command works on a drawing: the one that it works on comes to the front.
void MainWindow::leaveStartPage()
{
    DrawingView* view = start_ && tabs_->currentWidget() == start_ ? viewOf(ncDocManagerPtr()->curDocument()) : nullptr;
    if (view)
        tabs_->setCurrentWidget(view);
}
