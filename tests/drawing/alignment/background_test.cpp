// TERVA_DWG_BACKGROUND
#include "drawing/alignment/background.h"

#include "alignment_fixture.h"

#include <script/modal_driver.h>

namespace {

const QString layerTitle = "Обработка подосновы для проекта";
const QString layerLabel = "Выберите слой для сборки подложки:";

template <class Entity>
Entity& entity(NcDbObjectId id)
{
    return *HostAccess::objectAs<Entity>(id);
}

class Background : public AlignmentFixture {
protected:
    Background()
    {
        addLayer("Подложка");
        addLayer("Дороги", "Штриховая");
    }
    static NcDbObjectId addToBlock(const QString& name, std::unique_ptr<NcDbEntity> made, const QString& layer)
    {
        NcDbObjectId block = HostAccess::recordId(drawing(), drawing().blockTableId(), name);
        if (block.isNull()) {
            ElementDrawing::addDefinition(drawing(), name, {});
            block = HostAccess::recordId(drawing(), drawing().blockTableId(), name);
        }
        HostAccess::layer(*made) = layer;
        return HostAccess::addEntity(*HostAccess::objectAs<NcDbBlockTableRecord>(block), std::move(made));
    }
    static std::unique_ptr<NcDbLine> line() { return std::make_unique<NcDbLine>(NcGePoint3d(), NcGePoint3d(1, 0, 0)); }
    static int blockCount()
    {
        return int(HostAccess::records(*HostAccess::objectAs<NcDbBlockTable>(drawing().blockTableId())).size());
    }
    static QString expectedConsole(int blocks, int done)
    {
        return QString("Количество блоков: %1\n\nБлоков: %2\n").arg(blocks).arg(done);
    }
    static QString fileLine() { return "Текущий файл чертежа: " + ncDocManagerPtr()->curDocument()->fileName(); }
};

// Tells of nothing and goes on.
WorkProgress quiet(const QString&)
{
    return [](int, int) { return true; };
}

} // namespace

TEST_F(Background, GathersPlanAndBlocksOnOneLayer)
{
    auto road = line();
    road->setColorIndex(3);
    const NcDbObjectId inPlan = add(std::move(road), "Дороги");
    auto dashed = line();
    dashed->setLinetype("Пунктир");
    const NcDbObjectId own = add(std::move(dashed));
    auto wide = std::make_unique<NcDbPolyline>();
    wide->addVertexAt(0, {0, 0}, 0.0, 0.5, 0.7);
    wide->addVertexAt(1, {1, 0}, 0.0, 0.5, 0.7);
    const NcDbObjectId polyline = add(std::move(wide), "Дороги");
    auto inner = line();
    inner->setColor(NcCmColor::fromRGB(1, 2, 3));
    const NcDbObjectId inBlock = addToBlock("дом", std::move(inner), "Дороги");
    const NcDbObjectId foreign = addToBlock("план|дом", line(), "Дороги");
    const NcDbObjectId element = insert(0, 1, {5, 5});

    const int blocks = blockCount();
    ModalDriver driver;
    driver.expect(layerTitle).text(layerLabel).set("input", "Подложка").press("OK");
    run("TERVA_DWG_BACKGROUND");
    EXPECT_TRUE(driver.done()) << driver.report();
    // Both spaces and the external reference are none of them.
    EXPECT_EQ(host.console, fileLine() + "Выбранный слой: Подложка" + expectedConsole(blocks, blocks - 3));

    for (const NcDbObjectId& id : {inPlan, polyline, inBlock}) {
        EXPECT_EQ(entity<NcDbEntity>(id).layer(), "Подложка");
        EXPECT_EQ(entity<NcDbEntity>(id).linetype(), "Штриховая") << "as the layer that it lay on";
        EXPECT_TRUE(entity<NcDbEntity>(id).color().isByLayer());
    }
    EXPECT_EQ(entity<NcDbEntity>(own).linetype(), "Пунктир");
    EXPECT_EQ(entity<NcDbEntity>(own).layer(), "Подложка");
    double start = -1, end = -1;
    EXPECT_TRUE(isOk(entity<NcDbPolyline>(polyline).getWidthsAt(1, start, end)));
    EXPECT_EQ(start, 0.0);
    EXPECT_EQ(end, 0.0);
    EXPECT_EQ(entity<NcDbEntity>(foreign).layer(), "Дороги");
    EXPECT_EQ(entity<NcDbEntity>(foreign).linetype(), "ByLayer");
    EXPECT_EQ(entity<NcDbEntity>(element).layer(), "Подложка");
    EXPECT_EQ(entity<NcDbEntity>(element).colorIndex(), 256);
    for (const NcDbObjectId& id : HostAccess::attributes(ElementDrawing::reference(element)))
        EXPECT_EQ(entity<NcDbEntity>(id).layer(), "Подложка");
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(Background, PaperSpaceIsLeftAlone)
{
    auto onSheet = line();
    auto& sheet = *HostAccess::objectAs<NcDbBlockTableRecord>(data().paperSpace);
    const NcDbObjectId id = HostAccess::addEntity(sheet, std::move(onSheet));
    prepareBackground("Подложка", quiet);
    EXPECT_EQ(entity<NcDbEntity>(id).layer(), "0");
}

TEST_F(Background, RunningItTwiceChangesNothingMore)
{
    const NcDbObjectId id = add(line(), "Дороги");
    prepareBackground("Подложка", quiet);
    prepareBackground("Подложка", quiet);
    EXPECT_EQ(entity<NcDbEntity>(id).linetype(), "Штриховая");
    EXPECT_EQ(entity<NcDbEntity>(id).layer(), "Подложка");
}

TEST_F(Background, ALockedLayerTakesThePlanToo)
{
    const NcDbObjectId id = add(line(), "Дороги");
    HostAccess::locked(*HostAccess::objectAs<NcDbLayerTableRecord>(
        HostAccess::recordId(drawing(), drawing().layerTableId(), "Подложка"))) = true;
    prepareBackground("Подложка", quiet);
    EXPECT_EQ(entity<NcDbEntity>(id).layer(), "Подложка");
}

TEST_F(Background, TheUserMayEndItAtEveryStep)
{
    const int blocks = blockCount();
    const NcDbObjectId first = add(line(), "Дороги");
    const NcDbObjectId second = add(line(), "Дороги");
    QStringList titles;
    const auto endAfter = [&titles](int steps, const QString& stage) -> WorkStage {
        return [&titles, steps, stage](const QString& title) -> WorkProgress {
            titles.append(title);
            return [steps, stage, title](int done, int) { return title != stage || done < steps; };
        };
    };
    prepareBackground("Подложка", endAfter(0, "Обработка блоков..."));
    EXPECT_EQ(titles, QStringList{"Обработка блоков..."});
    EXPECT_EQ(host.console, expectedConsole(blocks, 0));
    EXPECT_EQ(entity<NcDbEntity>(first).layer(), "Дороги");

    titles.clear();
    prepareBackground("Подложка", endAfter(1, "Обработка элементов плана..."));
    EXPECT_EQ(titles, (QStringList{"Обработка блоков...", "Обработка элементов плана..."}));
    EXPECT_EQ(entity<NcDbEntity>(first).layer(), "Подложка");
    EXPECT_EQ(entity<NcDbEntity>(second).layer(), "Дороги");
}

TEST_F(Background, ProgressRunsToTheTotal)
{
    for (int i = 0; i < 3; ++i)
        add(line());
    QVector<int> seen;
    int last = 0;
    prepareBackground("Подложка", [&](const QString& title) -> WorkProgress {
        return [&, title](int done, int total) {
            if (title == "Обработка элементов плана...") {
                seen.append(done);
                last = total;
            }
            return true;
        };
    });
    EXPECT_EQ(seen, (QVector<int>{0, 1, 2}));
    EXPECT_EQ(last, 3);
}

TEST_F(Background, EscAtTheLayerChangesNothing)
{
    const NcDbObjectId id = add(line(), "Дороги");
    ModalDriver driver;
    driver.expect(layerTitle).close();
    run("TERVA_DWG_BACKGROUND");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(host.console, fileLine());
    EXPECT_EQ(entity<NcDbEntity>(id).layer(), "Дороги");
}

TEST_F(Background, NeedsAnOpenDrawingAlone)
{
    database.disconnect();
    session().currentPositionId = -1;
    ModalDriver driver;
    driver.expect(layerTitle).close();
    run("TERVA_DWG_BACKGROUND");
    EXPECT_TRUE(driver.done()) << driver.report();
    host.console.clear();
    closeAllDocuments();
    run("TERVA_DWG_BACKGROUND");
    EXPECT_EQ(host.console, "Отсутствует открытый чертеж.");
}

TEST_F(Background, TablesHeldElsewhereAreTold)
{
    {
        const Opened<NcDbBlockTable> held(drawing().blockTableId(), kForWrite);
        prepareBackground("Подложка", quiet);
        EXPECT_EQ(host.console, "Не удалось получить таблицу блоков.\n");
    }
    host.console.clear();
    const int blocks = blockCount();
    const Opened<NcDbBlockTableRecord> held = openModelSpace(kForWrite);
    prepareBackground("Подложка", quiet);
    EXPECT_EQ(host.console, expectedConsole(blocks, blocks - 2) + "\nerror opening model_space");
}
