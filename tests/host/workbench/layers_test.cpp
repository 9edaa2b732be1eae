// The panel of layers.
#include "window_fixture.h"

#include <workbench/layers_panel.h>

#include <drawing/entity_properties.h>
#include <drawing/host_access.h>
#include <drawing/layer_operations.h>
#include <drawing/undo.h>

#include <QAction>

namespace {

class Layers : public MainWindowTest {
protected:
    NcDbDatabase& drawing() { return *view()->document().database(); }
    LayersPanel* list() { return window->findChild<LayersPanel*>(); }
    QStringList names() { return layerNames(drawing()); }
    NcDbObjectId layer(const char* name)
    {
        return HostAccess::recordId(drawing(), drawing().layerTableId(), QString::fromUtf8(name));
    }
    void choose(const QString& name)
    {
        QTest::qWait(80);
        for (int row = 0; row < list()->rowCount(); ++row)
            if (list()->item(row, 3)->text() == name)
                list()->setCurrentCell(row, 3);
    }
    void trigger(const char* tool)
    {
        window->findChild<QAction*>(QString::fromLatin1(tool))->trigger();
        QTest::qWait(80);
    }
    QStringList shown()
    {
        QStringList rows;
        for (int row = 0; row < list()->rowCount(); ++row)
            if (!list()->isRowHidden(row))
                rows << list()->item(row, 3)->text();
        return rows;
    }
};

} // namespace

TEST_F(Layers, ANewOneIsMadeAndUndone)
{
    trigger("layerNew");
    EXPECT_EQ(names(), (QStringList{"0", "Слой1"}));
    trigger("layerNew");
    EXPECT_EQ(names(), (QStringList{"0", "Слой1", "Слой2"}));
    window->runLine(QStringLiteral("U"));
    EXPECT_EQ(names(), (QStringList{"0", "Слой1"}));
}

TEST_F(Layers, WhatLiesOnARenamedOneFollows)
{
    ASSERT_EQ(addLayer(drawing(), QStringLiteral("Карта")), QString());
    drawing().setClayer(layer("Карта"));
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    choose(QStringLiteral("Карта"));
    list()->currentItem()->setText(QStringLiteral("План"));
    EXPECT_EQ(names(), (QStringList{"0", "План"}));
    const auto layerOfCircle = [&] {
        return HostAccess::objectAs<NcDbEntity>(livingEntities(drawing()).front())->layer();
    };
    EXPECT_EQ(layerOfCircle(), QStringLiteral("План"));
    window->runLine(QStringLiteral("U"));
    EXPECT_EQ(layerOfCircle(), QStringLiteral("Карта"));
}

TEST_F(Layers, AnEmptyOneIsErasedAnotherSaysWhyNot)
{
    addLayer(drawing(), QStringLiteral("Пусто"));
    addLayer(drawing(), QStringLiteral("Полно"));
    drawing().setClayer(layer("Полно"));
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    EXPECT_EQ(eraseLayer(drawing(), layer("Полно")),
              QStringLiteral("Текущий слой не удаляется: сначала сделайте текущим другой."));
    choose(QStringLiteral("0"));
    trigger("layerCurrent");
    EXPECT_EQ(drawing().clayer(), layer("0"));
    choose(QStringLiteral("Полно"));
    trigger("layerDelete");
    EXPECT_TRUE(history().contains(QStringLiteral("Слой «Полно» не удалён: на нём объектов: 1.")));
    choose(QStringLiteral("Пусто"));
    trigger("layerDelete");
    EXPECT_EQ(names(), (QStringList{"0", "Полно"}));
    EXPECT_EQ(eraseLayer(drawing(), layer("0")), QStringLiteral("Слой 0 не удаляется."));
}

TEST_F(Layers, NamesThatAFileCannotHoldAreRefused)
{
    for (const char* name : {"", "  ", "а/б", "a*", "a\nb", "0"})
        EXPECT_NE(addLayer(drawing(), QString::fromUtf8(name)), QString()) << name;
    EXPECT_EQ(names(), QStringList{"0"});
    addLayer(drawing(), QStringLiteral("Карта"));
    EXPECT_NE(renameLayer(drawing(), layer("Карта"), QStringLiteral("0")), QString());
    EXPECT_NE(renameLayer(drawing(), layer("0"), QStringLiteral("Ноль")), QString());
    EXPECT_EQ(renameLayer(drawing(), layer("Карта"), QStringLiteral(" Карта ")), QString());
    EXPECT_EQ(renameLayer(drawing(), layer("Карта"), QStringLiteral("карта")), QString()) << "its own name otherwise";
    EXPECT_EQ(names(), (QStringList{"0", "карта"}));
}

TEST_F(Layers, TheFilterListsWhatHoldsIt)
{
    addLayer(drawing(), QStringLiteral("Карта температур"));
    addLayer(drawing(), QStringLiteral("План"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return shown().size() == 3; }));
    auto* filter = window->findChild<QLineEdit*>(QStringLiteral("layerFilter"));
    filter->setText(QStringLiteral("темп"));
    EXPECT_EQ(shown(), QStringList{QStringLiteral("Карта температур")});
    filter->clear();
    EXPECT_EQ(shown().size(), 3);
}

TEST_F(Layers, TheyAreListedAfterTheStartDrawingGaveWay)
{
    const QString path = folder.filePath(QStringLiteral("a.dxf"));
    window->runLine(QStringLiteral("LAYER Создать Карта"));
    ASSERT_TRUE(isOk(ncDocManagerPtr()->saveDocumentAs(ncDocManagerPtr()->curDocument(), path)));
    closeAllDocuments();
    openStartDocument();
    ASSERT_TRUE(window->openDrawing(path));
    QTest::qWait(100);
    ASSERT_EQ(ncDocManagerPtr()->documentCount(), 1);
    EXPECT_EQ(shown(), (QStringList{"0", "Карта"}));
}
