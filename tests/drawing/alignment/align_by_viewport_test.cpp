// TERVA_ALIGN_BY_VP from the sheet to the blocks.
#include "alignment_fixture.h"
#include "drawing/alignment/viewport_frame.h"

namespace {

const QString pickPrompt = "\nУкажите видовой экран";
const QString scopePrompt = "Обрабатывать элементы по [Позиции/Чертежу]  <Позиции>";

class AlignByViewport : public AlignmentFixture {
protected:
    // A window of 100 by 50 on the sheet, at half the size of the model: it sees
    // x from -90 to 110 and y from -30 to 70.
    AlignByViewport()
    {
        auto window = std::make_unique<NcDbViewport>();
        window->setGeometry({100, 100, 0}, 100, 50);
        window->setView({10, 20}, 100);
        window->setUcs({0, 0, 0}, {0, 1, 0}, {-1, 0, 0});
        viewport = toSheet(std::move(window));
        data().currentSpace = data().paperSpace;
    }
    static NcDbObjectId toSheet(std::unique_ptr<NcDbEntity> entity)
    {
        auto& sheet = *HostAccess::objectAs<NcDbBlockTableRecord>(data().paperSpace);
        return HostAccess::addEntity(sheet, std::move(entity));
    }
    NcDbViewport& window() { return *HostAccess::objectAs<NcDbViewport>(viewport); }
    void clipBy(std::unique_ptr<NcDbEntity> entity) { HostAccess::clip(window()) = toSheet(std::move(entity)); }
    static std::unique_ptr<NcDbPolyline> polyline(const std::vector<NcGePoint2d>& points)
    {
        auto line = std::make_unique<NcDbPolyline>();
        for (const NcGePoint2d& p : points)
            line->addVertexAt(line->numVerts(), p);
        line->setClosed(true);
        return line;
    }
    void run() { AlignmentFixture::run("TERVA_ALIGN_BY_VP"); }
    static bool isTurned(NcDbObjectId id) { return std::fabs(rotation(id) - quarterTurn) < 1e-9; }

    NcDbObjectId viewport;
};

} // namespace

TEST_F(AlignByViewport, TurnsWhatIsSeenAndScalesItsLabels)
{
    const NcDbObjectId seen = insert(0, 1, {0, 0}, {{"Положение1 X", "3"}, {"Положение1 Y", "4"}, {"Угол1", "0.5"}});
    const NcDbObjectId beyond = insert(0, 2, {200, 0}, {{"Угол1", "0.5"}});
    const QStringList before = state(beyond);
    host.pick(viewport).keyword("Drawing");
    run();
    EXPECT_EQ(host.asked, (QStringList{pickPrompt, scopePrompt}));
    EXPECT_EQ(host.console, "\n Выбор 'Drawing'");
    EXPECT_TRUE(isTurned(seen));
    expectVector(seen, "Положение1", 2, -1.5);
    EXPECT_EQ(property(seen, "Угол1"), 0.0);
    EXPECT_EQ(state(beyond), before);
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(AlignByViewport, EveryRunScalesTheLabelsAnew)
{
    const NcDbObjectId seen = insert(0, 1, {0, 0}, {{"Положение1 X", "8"}, {"Положение1 Y", "0"}});
    host.pick(viewport).keyword("Drawing").pick(viewport).keyword("Drawing");
    run();
    expectVector(seen, "Положение1", 0, -4);
    run();
    expectVector(seen, "Положение1", 0, -2);
}

TEST_F(AlignByViewport, TheBoundaryItselfIsInside)
{
    const NcDbObjectId onEdge = insert(2, 1, {110, 0});
    const NcDbObjectId onCorner = insert(2, 2, {-90, -30});
    const NcDbObjectId nearEdge = insert(2, 3, {10, 70 + 5e-7});
    const NcDbObjectId off = insert(2, 4, {110 + 2e-6, 0});
    // The ray from the middle of a square runs through its corner.
    HostAccess::width(window()) = 50;
    const NcDbObjectId middle = insert(2, 5, {10, 20});
    host.pick(viewport).keyword("Drawing");
    run();
    EXPECT_TRUE(isTurned(middle));
    EXPECT_FALSE(isTurned(onEdge)) << "the window is a square now";

    HostAccess::width(window()) = 100;
    host.pick(viewport).keyword("Drawing");
    run();
    EXPECT_TRUE(isTurned(onEdge));
    EXPECT_TRUE(isTurned(onCorner));
    EXPECT_TRUE(isTurned(nearEdge));
    EXPECT_FALSE(isTurned(off));
}

TEST_F(AlignByViewport, ATwistTurnsWhatIsSeen)
{
    HostAccess::twist(window()) = quarterTurn;
    HostAccess::viewTarget(window()) = {1000, 500, 0};
    // x from -30 to 70 and y from -110 to 90 about the target.
    const NcDbObjectId inside = insert(2, 1, {1000 + 60, 500 - 100});
    const NcDbObjectId outside = insert(2, 2, {1000 + 100, 500});
    host.pick(viewport).keyword("Drawing");
    run();
    EXPECT_TRUE(isTurned(inside));
    EXPECT_FALSE(isTurned(outside));
}

TEST_F(AlignByViewport, TheSheetIsCarriedBackAsItIsShown)
{
    HostAccess::twist(window()) = 0.3;
    HostAccess::viewTarget(window()) = {7, -4, 2};
    const NcGePoint3d p = *sheetToModel(window()) * NcGePoint3d(130, 90, 0);
    // How the window shows a point of the model.
    const double x = p.x - 7, y = p.y + 4;
    const double shownX = x * std::cos(0.3) - y * std::sin(0.3) - 10,
                 shownY = x * std::sin(0.3) + y * std::cos(0.3) - 20;
    EXPECT_NEAR(100 + 0.5 * shownX, 130, 1e-9);
    EXPECT_NEAR(100 + 0.5 * shownY, 90, 1e-9);
}

TEST_F(AlignByViewport, APolylineMayBoundTheWindow)
{
    // On the sheet a triangle under the diagonal of the window.
    clipBy(polyline({{50, 75}, {150, 75}, {150, 125}}));
    const NcDbObjectId below = insert(2, 1, {100, -20});
    const NcDbObjectId above = insert(2, 2, {-80, 60});
    host.pick(viewport).keyword("Drawing");
    run();
    EXPECT_TRUE(isTurned(below));
    EXPECT_FALSE(isTurned(above));
}

TEST_F(AlignByViewport, AnyOtherBoundaryIsRefused)
{
    clipBy(std::make_unique<NcDbCircle>(NcGePoint3d(100, 100, 0), NcGeVector3d(0, 0, 1), 20));
    const NcDbObjectId id = insert(2, 1, {0, 0});
    host.pick(viewport).keyword("Drawing");
    run();
    EXPECT_EQ(host.asked, QStringList{pickPrompt});
    EXPECT_EQ(host.console, "\n Данный тип граници не поддерживается.");
    EXPECT_FALSE(isTurned(id));
}

TEST_F(AlignByViewport, ABoundaryThatCannotBeToldIsRefused)
{
    const QString message = "\nОшибка при вычислении координат границы.";
    HostAccess::viewHeight(window()) = 0.0;
    host.pick(viewport);
    run();
    EXPECT_EQ(host.console, message);

    host.console.clear();
    HostAccess::viewHeight(window()) = 100.0;
    HostAccess::viewDirection(window()) = {0, 0, 0};
    host.pick(viewport);
    run();
    EXPECT_EQ(host.console, message);

    host.console.clear();
    HostAccess::viewDirection(window()) = {0, 0, 1};
    clipBy(polyline({{50, 75}, {150, 75}}));
    host.pick(viewport);
    run();
    EXPECT_EQ(host.console, message);
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(AlignByViewport, WorksOnTheSheetOnly)
{
    const QString message = "\n Необходимо переключиться в пространство листа.";
    data().currentSpace = data().modelSpace;
    run();
    EXPECT_EQ(host.console, message);

    host.console.clear();
    data().currentSpace = data().paperSpace;
    setCurrentViewport(drawing(), viewport);
    run();
    EXPECT_EQ(host.console, message) << "inside a window of the sheet";
    EXPECT_EQ(host.asked, QStringList());
}

TEST_F(AlignByViewport, NothingPickedOrSomethingElseIsAnError)
{
    const NcDbObjectId circle = toSheet(std::make_unique<NcDbCircle>(NcGePoint3d(), NcGeVector3d(0, 0, 1), 20));
    host.cancel().enter().pick(circle);
    run();
    run();
    run();
    EXPECT_EQ(host.asked, (QStringList{pickPrompt, pickPrompt, pickPrompt}));
    EXPECT_EQ(host.console, "\nОшибка быбора\nОшибка быбора\nОшибка быбора");
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(AlignByViewport, EscAtTheScopeLeavesTheDrawing)
{
    const NcDbObjectId id = insert(0, 1, {0, 0});
    const QStringList before = state(id);
    host.pick(viewport).cancel().pick(viewport).enter();
    run();
    run();
    EXPECT_EQ(host.console, "");
    EXPECT_EQ(state(id), before);
    EXPECT_TRUE(host.allAnswersUsed());
}

TEST_F(AlignByViewport, PositionNarrowsWhatIsSeen)
{
    database->exec("insert into ts_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h, "
                   "block_rotation, marker_rotation, scale) overriding system value values "
                   "(1, 'ts', 'Э', 'exist', 7, 0, 0, 0, 0, 0, 0, 1), (2, 'ts', 'Э', 'exist', 8, 0, 0, 0, 0, 0, 0, 1), "
                   "(3, 'ts', 'Э', 'exist', 7, 0, 0, 0, 0, 0, 0, 1)");
    const NcDbObjectId own = insert(2, 1, {0, 0});
    const NcDbObjectId foreign = insert(2, 2, {1, 0});
    const NcDbObjectId unseen = insert(2, 3, {500, 0});
    host.pick(viewport).keyword("Position");
    run();
    EXPECT_TRUE(isTurned(own));
    EXPECT_FALSE(isTurned(foreign));
    EXPECT_FALSE(isTurned(unseen));

    session().currentPositionId = -1;
    host.console.clear();
    host.pick(viewport).keyword("Position");
    run();
    EXPECT_EQ(host.console, "\n Выбор 'Position'Не выбрана текущая позиция");
}

TEST_F(AlignByViewport, NeedsAConnectionAndAnOpenModelSpace)
{
    const NcDbObjectId id = insert(0, 1, {0, 0});
    {
        const Opened<NcDbBlockTableRecord> held = openModelSpace(kForWrite);
        host.pick(viewport).keyword("Drawing");
        run();
    }
    EXPECT_EQ(host.console, "\n Выбор 'Drawing'\nОшибка открытия пространства модели");
    EXPECT_FALSE(isTurned(id));

    host.console.clear();
    database.disconnect();
    run();
    EXPECT_EQ(host.console, "Не установлено соединение с базой данных");
    EXPECT_EQ(host.asked.size(), 2);
}
