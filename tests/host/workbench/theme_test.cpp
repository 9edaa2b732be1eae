// Dark windows: edges that the toolkit leaves dark are seen.
#include "window_fixture.h"

#include <workbench/desk_theme.h>

#include <QApplication>
#include <QCheckBox>
#include <QListWidget>

namespace {

class Theme : public MainWindowTest {
protected:
    void TearDown() override
    {
        setDarkTheme(false);
        MainWindowTest::TearDown();
    }
    // The strongest contrast of lightness to the first dot, over these dots.
    static int contrast(const QWidget& widget, const QRect& dots)
    {
        const QImage image = const_cast<QWidget&>(widget).grab().toImage();
        const int ground = image.pixelColor(dots.topLeft()).lightness();
        int most = 0;
        for (int x = dots.left(); x <= dots.right(); ++x)
            for (int y = dots.top(); y <= dots.bottom(); ++y)
                most = std::max(most, std::abs(image.pixelColor(x, y).lightness() - ground));
        return most;
    }
};

} // namespace

TEST_F(Theme, FieldsAndBoxesHaveEdgesOnADarkWindow)
{
    setDarkTheme(true);
    QLineEdit field;
    field.resize(120, 26);
    EXPECT_GT(contrast(field, {0, 12, 4, 1}), 50);
    QCheckBox box;
    box.resize(24, 24);
    EXPECT_GT(contrast(box, box.rect()), 50);
    QListWidget list;
    list.resize(100, 40);
    auto* item = new QListWidgetItem(&list);
    item->setCheckState(Qt::Unchecked);
    EXPECT_GT(contrast(list, {list.viewport()->pos() + QPoint(0, 1), QSize(22, 22)}), 50);
}

TEST_F(Theme, ALightWindowIsTheToolkitsOwnAgain)
{
    QLineEdit field;
    field.resize(120, 26);
    const QImage before = field.grab().toImage();
    setDarkTheme(true);
    EXPECT_NE(field.grab().toImage(), before);
    setDarkTheme(false);
    EXPECT_EQ(field.grab().toImage(), before);
}
