// The module's icons on light and on dark windows.
#include "formkit/icons.h"
#include "session/project_session.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPalette>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class Icons : public ::testing::Test {
protected:
    void SetUp() override
    {
        before_ = session().moduleDir;
        palette_ = QApplication::palette();
        session().moduleDir = folder_.path() + QLatin1Char('/');
        QDir(folder_.path()).mkdir(QStringLiteral("icons"));
        QFile drawing(folder_.filePath(QStringLiteral("icons/pipe.svg")));
        ASSERT_TRUE(drawing.open(QIODevice::WriteOnly));
        // A dark blue square in the upper left quarter.
        drawing.write("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"24\" height=\"24\">"
                      "<rect width=\"12\" height=\"12\" fill=\"#102040\"/></svg>");
    }
    void TearDown() override
    {
        session().moduleDir = before_;
        QApplication::setPalette(palette_);
    }
    static QImage shownOn(const QColor& window)
    {
        QPalette palette;
        palette.setColor(QPalette::Window, window);
        QApplication::setPalette(palette);
        return formkit::icon(QStringLiteral("pipe")).pixmap(24, 24).toImage();
    }

private:
    QTemporaryDir folder_;
    QString before_;
    QPalette palette_;
};

} // namespace

TEST_F(Icons, DarkLinesAreLightOnADarkWindowAndKeepTheirHue)
{
    const QImage light = shownOn(Qt::white), dark = shownOn(QColor(40, 44, 48));
    EXPECT_EQ(light.pixelColor(4, 4), QColor(0x10, 0x20, 0x40));
    const QColor turned = dark.pixelColor(4, 4);
    EXPECT_NEAR(turned.lightness(), 255 - QColor(0x10, 0x20, 0x40).lightness(), 2);
    EXPECT_NEAR(turned.hslHue(), QColor(0x10, 0x20, 0x40).hslHue(), 3);
    EXPECT_EQ(light.pixelColor(18, 18).alpha(), 0);
    EXPECT_EQ(dark.pixelColor(18, 18).alpha(), 0) << "what is clear stays clear";
}

TEST_F(Icons, OneThatIsShownFollowsTheWindow)
{
    QApplication::setPalette(QPalette(QColor(240, 240, 240)));
    const QIcon icon = formkit::icon(QStringLiteral("pipe"));
    const int before = icon.pixmap(24, 24).toImage().pixelColor(4, 4).lightness();
    QApplication::setPalette(QPalette(QColor(40, 44, 48)));
    EXPECT_GT(icon.pixmap(24, 24).toImage().pixelColor(4, 4).lightness(), before + 100);
}

TEST_F(Icons, OneThatIsNotDeliveredIsNone) { EXPECT_TRUE(formkit::icon(QStringLiteral("none")).isNull()); }
