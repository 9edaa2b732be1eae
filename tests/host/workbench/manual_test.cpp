// The manual that is delivered with the program.
#include "window_fixture.h"

#include <workbench/manual_window.h>

#include <QCoreApplication>
#include <QFile>
#include <QListWidget>
#include <QTextBlock>

TEST_F(MainWindowTest, TheDeliveredManualShowsItsChaptersAndPictures)
{
    const QString page = manualPage(QCoreApplication::applicationDirPath());
    ASSERT_TRUE(page.endsWith(QStringLiteral("guide/README.md"))) << page;
    ManualWindow manual(page);
    manual.show();
    auto* chapters = manual.findChild<QListWidget*>(QStringLiteral("manualChapters"));
    auto* shown = manual.findChild<QTextBrowser*>(QStringLiteral("manualPage"));
    ASSERT_GT(chapters->count(), 10);
    EXPECT_EQ(chapters->item(1)->text(), QStringLiteral("Первый день"));
    for (int row = 0; row < chapters->count(); ++row) {
        chapters->setCurrentRow(row);
        EXPECT_GT(shown->toPlainText().size(), 200) << chapters->item(row)->text();
        int pictures = 0;
        for (QTextBlock block = shown->document()->begin(); block.isValid(); block = block.next())
            for (auto part = block.begin(); !part.atEnd(); ++part)
                if (part.fragment().charFormat().isImageFormat()) {
                    const QString name = part.fragment().charFormat().toImageFormat().name();
                    EXPECT_TRUE(QFile::exists(shown->source().resolved(QUrl(name)).toLocalFile())) << name;
                    ++pictures;
                }
        EXPECT_GE(pictures, row == 1 ? 5 : 0) << "the first day is shown";
    }
    shown->setSource(shown->source().resolved(QUrl(QStringLiteral("maps.md"))));
    EXPECT_EQ(chapters->currentItem()->text(), QStringLiteral("Карты"));
}

TEST_F(MainWindowTest, F1OpensTheDeliveredManualBesideTheOneOfTheServer)
{
    QTest::keyClick(edit(), Qt::Key_F1);
    auto* manual = window->findChild<ManualWindow*>();
    ASSERT_NE(manual, nullptr);
    EXPECT_TRUE(manual->isVisible());
    manual->close();
    window->runLine(QStringLiteral("MANUAL"));
    EXPECT_TRUE(manual->isVisible());
    EXPECT_EQ(manualPage(QStringLiteral("/proc")), QString());
}
