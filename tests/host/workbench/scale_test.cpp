// The window and the host's own forms on small screens and at scales above 1; run
// once more with QT_SCALE_FACTOR (terva_test_at_scales).
#include "support/looks.h"
#include "window_fixture.h"

#include <workbench/form_places.h>
#include <workbench/print_dialog.h>
#include <workbench/start_page.h>

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QToolBar>

namespace {

using OnSmallScreens = MainWindowTest;

// A form of so many lines with two buttons below.
class TallForm : public QDialog {
public:
    explicit TallForm(int lines, QWidget* parent = nullptr) : QDialog(parent)
    {
        setObjectName(QStringLiteral("tall"));
        auto* column = new QVBoxLayout(this);
        auto* fields = new QFormLayout;
        column->addLayout(fields);
        for (int i = 0; i < lines; ++i)
            fields->addRow(QStringLiteral("Строка %1").arg(i), new QLineEdit);
        auto* ends = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        column->addWidget(ends);
        connect(ends, &QDialogButtonBox::accepted, this, &QDialog::accept);
    }
    bool areButtonsInSight() const
    {
        const QRect room = screen()->availableGeometry();
        for (const QPushButton* button : findChildren<QPushButton*>())
            if (!room.contains(QRect(button->mapToGlobal(QPoint()), button->size()))
                || button->visibleRegion().boundingRect() != button->rect())
                return false;
        return true;
    }
};

} // namespace

TEST_F(OnSmallScreens, TheWindowIsMadeAsSmallAsTheyAreAtEveryScale)
{
    const QSize least = window->minimumSizeHint();
    EXPECT_LE(least.width(), 780);
    EXPECT_LE(least.height(), 540);
    window->setWindowState(Qt::WindowNoState);
    window->resize(784, 552);
    QTest::qWait(20);
    EXPECT_EQ(window->size(), QSize(784, 552));
    EXPECT_GT(view()->width(), 200) << "the drawing keeps its room";
    EXPECT_GT(view()->height(), 150);
    EXPECT_TRUE(window->rect().contains(QRect(edit()->mapTo(window.get(), QPoint()), edit()->size())));
    for (const QToolBar* bar : window->findChildren<QToolBar*>())
        EXPECT_TRUE(!bar->isVisible() || bar->parentWidget() != window.get()
                    || window->rect().contains(bar->geometry()))
            << bar->windowTitle();
}

TEST_F(OnSmallScreens, APlaceOffTheScreenComesBackAtEveryScale)
{
    window->setWindowState(Qt::WindowNoState);
    window->setGeometry(6000, 4000, 300, 240);
    const QByteArray away = window->saveGeometry();
    closeAllDocuments();
    window.reset();
    QSettings(folder.filePath(QStringLiteral("p.ini")), QSettings::IniFormat)
        .setValue(QStringLiteral("geometry"), away);
    window = std::make_unique<MainWindow>(folder.filePath(QStringLiteral("p.ini")));
    window->show();
    const QRect room = window->screen()->availableGeometry();
    EXPECT_TRUE(room.contains(window->geometry().topLeft())) << window->x() << ',' << window->y();
    EXPECT_TRUE(room.contains(window->geometry().center()));
}

TEST_F(OnSmallScreens, AFormThatIsTallerThanTheScreenScrollsAndShowsItsButtonsAtEveryScale)
{
    TallForm form(60, window.get());
    form.show();
    QTest::qWait(20);
    EXPECT_TRUE(form.screen()->availableGeometry().contains(form.geometry()));
    EXPECT_TRUE(form.areButtonsInSight());
    auto* area = form.findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(area->findChildren<QLineEdit*>().size(), 60) << "all lines lie in it";
    EXPECT_TRUE(area->findChildren<QDialogButtonBox*>().isEmpty()) << "its buttons do not";
    QTest::mouseClick(form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_EQ(form.result(), int(QDialog::Accepted));
}

TEST_F(OnSmallScreens, AFormOpensWhereItWasAndNeverOutsideAtEveryScale)
{
    const QRect room = window->screen()->availableGeometry();
    QRect kept(room.x() + 20, room.y() + 40, 260, 220);
    {
        TallForm form(3, window.get());
        form.show();
        EXPECT_EQ(form.findChild<QScrollArea*>(), nullptr) << "this one fits";
        form.setGeometry(kept);
        form.close();
    }
    TallForm form(3, window.get());
    form.show();
    EXPECT_EQ(form.geometry(), kept);
    form.setGeometry(room.right() + 3000, -900, 260, 220);
    form.close();
    form.show();
    EXPECT_TRUE(room.contains(form.geometry())) << "back on the screen";
    EXPECT_EQ(placeWithin({900, 900, 300, 200}, {0, 0, 640, 480}), QRect(340, 280, 300, 200));
    EXPECT_EQ(placeWithin({-50, 10, 3000, 200}, {0, 0, 640, 480}), QRect(0, 10, 640, 200));
}

TEST_F(OnSmallScreens, TheFormsOfTheHostAreWholeAtEveryScale)
{
    QSettings settings(folder.filePath(QStringLiteral("s.ini")), QSettings::IniFormat);
    PrintDialog print(*view()->document().database(), Sheet(), {}, settings);
    print.show();
    StartPage start;
    start.setRecent({}, {});
    start.show();
    QTest::qWait(20);
    for (const QWidget* form : {static_cast<QWidget*>(&print), static_cast<QWidget*>(&start)}) {
        EXPECT_EQ(cutOff(*form), QStringList()) << form->objectName();
        EXPECT_EQ(tooLarge(*form), QString()) << form->objectName();
        EXPECT_EQ(tabFaults(*form), QStringList()) << form->objectName();
    }
}

// A thin line is as thin as the screen draws, not as a dot of scale 1.
TEST_F(OnSmallScreens, TheDrawingIsSharpAtEveryScale)
{
    showHundred();
    window->runLine(QStringLiteral("LINE -40,-30 40,35 \"\""));
    const double scale = view()->devicePixelRatioF();
    const QImage picture = view()->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
    EXPECT_EQ(picture.width(), qRound(view()->width() * scale));
    // Through the middle of the drawing, far from the axes: how many dots are dark in a column.
    const int column = int(picture.width() * 0.6);
    int dark = 0;
    for (int row = 0; row < picture.height(); ++row)
        dark += picture.pixelColor(column, row).lightness() < 200;
    EXPECT_GE(dark, 1);
    EXPECT_LE(dark, 5) << "blown up from a smaller picture it would be thicker";
    const double wanted =
        picture.height() / 2.0 - (column - picture.width() / 2.0) * 65.0 / 80.0 - 2.5 * picture.height() / 100.0;
    int nearest = picture.height();
    for (int row = 0; row < picture.height(); ++row)
        if (picture.pixelColor(column, row).lightness() < 200)
            nearest = std::min(nearest, std::abs(row - int(wanted)));
    EXPECT_LE(nearest, 3) << "where the point of the drawing stands";
}
