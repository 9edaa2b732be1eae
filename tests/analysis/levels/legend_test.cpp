// The legend in the drawing, through its command.
#include "analysis/levels/forms/level_map_selector_form.h"
#include "analysis/levels/forms/map_legend_form.h"
#include "hostkit/layers.h"
#include "hostkit/model_space.h"
#include "support/pictures.h"
#include "support/session_database.h"

#include <drawing/application.h>
#include <script/modal_driver.h>

#include <cmath>

namespace {

// Answers the one prompt of the command.
class PointAnswer final : public PromptBackend {
public:
    explicit PointAnswer(bool give) : give_(give), before_(setPromptBackend(this)) { }
    ~PointAnswer() override { setPromptBackend(before_); }
    PromptReply ask(const PromptRequest& request) override
    {
        prompt = request.prompt;
        PromptReply reply;
        if (give_) {
            reply.status = kPromptNormal;
            reply.point = NcGePoint3d(5, 6, 0);
        }
        return reply;
    }
    void print(const QString& text) override { printed += text; }
    QString prompt, printed;

private:
    bool give_;
    PromptBackend* before_;
};

class Legend : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        closeAllDocuments();
        ncDocManagerPtr()->appContextNewDocument(QString());
    }
    void TearDown() override
    {
        closeAllDocuments();
        SessionDatabase::TearDown();
    }
    static NcDbObjectIdArray tables()
    {
        NcDbObjectIdArray found;
        const auto space = openModelSpace(kForRead);
        const std::unique_ptr<NcDbBlockTableRecordIterator> walk(space->newIterator());
        for (; !walk->done(); walk->step()) {
            NcDbObjectId id;
            walk->getEntityId(id);
            if (const Opened<NcDbTable> table(id, kForRead); table)
                found.push_back(id);
        }
        return found;
    }
    ModalDriver driver;
};

} // namespace

TEST_F(Legend, IsATableOfTheChosenMap)
{
    driver.expect(QStringLiteral("Вставка легенды"))
        .set(QStringLiteral("TemperatureOut"), QStringLiteral("on"))
        .set(QStringLiteral("LevelMapType"), QStringLiteral("Карта температур"))
        .press(QStringLiteral("okButton"));
    PointAnswer answer(true);
    insertMapLegend();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(answer.prompt, QStringLiteral("Точка вставки легенды:"));

    ASSERT_EQ(tables().size(), 1u);
    const Opened<NcDbTable> table(tables()[0], kForRead);
    EXPECT_EQ(table->numRows(), 16);
    EXPECT_EQ(table->numColumns(), 4);
    EXPECT_EQ(table->textString(0, 0), QStringLiteral("Температура, %%dС"));
    EXPECT_EQ(table->textString(1, 0), QStringLiteral("Номер"));
    EXPECT_EQ(table->textString(1, 3), QStringLiteral("Цвет"));
    EXPECT_EQ(table->textString(2, 0), QStringLiteral("1"));
    EXPECT_EQ(table->textString(2, 1), QStringLiteral("-20.0"));
    EXPECT_EQ(table->textString(10, 1), QStringLiteral("0.0")) << "no plus before zero";
    EXPECT_EQ(table->textString(10, 2), QStringLiteral("+0.5"));
    EXPECT_EQ(table->rowHeight(3), 10.0);
    EXPECT_EQ(table->columnWidth(0), 15.0);
    EXPECT_EQ(table->columnWidth(3), 20.0);
    EXPECT_EQ(table->cell(2, 1)->textHeight, 2.0);
    EXPECT_TRUE(table->cell(2, 3)->hasBackground);
    EXPECT_EQ(table->cell(2, 3)->background.red(), 130);
    EXPECT_EQ(table->position().x, 5.0);
}

TEST_F(Legend, IsDrawnOnALockedCurrentLayerToo)
{
    setLayerLocked(currentLayer(), true);
    EXPECT_TRUE(insertLegend(LevelMap(LevelMap::Temperature), LegendKind::Temperature, {5, 6, 0}));
    EXPECT_EQ(tables().size(), 1u);
}

TEST_F(Legend, StartsOnTheMapOfDeformations)
{
    MapLegendForm form;
    EXPECT_EQ(form.kind(), LegendKind::Deformation);
    EXPECT_EQ(form.levelMap().id, int(LevelMap::Deformation));
}

TEST_F(Legend, WithoutAPointSaysSoAndInsertsNothing)
{
    driver.expect(QStringLiteral("Вставка легенды")).press(QStringLiteral("okButton"));
    PointAnswer answer(false);
    insertMapLegend();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(answer.printed, QStringLiteral("Необходимо указать точку вставки легенды"));
    EXPECT_TRUE(tables().empty());
}

TEST_F(Legend, LiesAlongTheUserCoordinateSystem)
{
    ncedSetCurrentUCS(NcGeMatrix3d::rotation(M_PI / 2, NcGeVector3d::kZAxis));
    ASSERT_TRUE(insertLegend(LevelMap(LevelMap::Deformation), LegendKind::Deformation, {1, 0, 0}));
    const Opened<NcDbTable> table(tables()[0], kForRead);
    EXPECT_NEAR(table->position().y, 1.0, 1e-12);
    EXPECT_NEAR(table->direction().y, 1.0, 1e-12);
    EXPECT_EQ(table->textString(0, 0), QStringLiteral("Величина вертикальных перемещений, мм"));
    EXPECT_EQ(table->numRows(), 18);
}

TEST_F(Legend, PictureOfTheFormAndTheSelector)
{
    MapLegendForm form;
    EXPECT_TRUE(takePicture(form, QStringLiteral("MapLegendForm")));
    LeveMapSelectorForm selector(LevelMap::Temperature);
    EXPECT_TRUE(takePicture(selector, QStringLiteral("LeveMapSelectorForm")));
}
