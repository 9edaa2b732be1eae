// Layers of ground: reading, checking, replacing them, and where they come from.
#include "elements/geology/ground_layers.h"

#include "elements/geology/ground_project.h"
#include "elements/geology/layer_sources.h"
#include "elements/geology/well_name.h"
#include "support/statement_relay.h"

#include <limits>

namespace {

GroundLayer layer(double from, double to, int ground = -1, const QString& description = QString())
{
    GroundLayer made;
    made.from = from;
    made.to = to;
    made.ground.id = ground;
    made.description = description;
    return made;
}

const QSet<int> known = {101, 102};

class Layers : public GroundProject { };

// The session speaks through a relay that keeps and spoils statements.
class RelayedLayers : public GroundProject {
protected:
    void SetUp() override
    {
        GroundProject::SetUp();
        session().sqlPort = relay.port();
        ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    }
    void TearDown() override
    {
        session().connection.finish();
        GroundProject::TearDown();
    }

    StatementRelay relay;
};

} // namespace

TEST(LayerRow, MustNotBeginAboveTheMouthNorEndWhereItBegins)
{
    const GroundLayers layers = {layer(0, 1.5), layer(-0.1, 2), layer(2, 2), layer(3, 2.5),
                                 layer(0, std::numeric_limits<double>::quiet_NaN())};
    EXPECT_EQ(layerFault(layers, 0), "");
    EXPECT_EQ(layerFault(layers, 1), "Глубина начала не может быть отрицательной");
    for (int row : {2, 3, 4})
        EXPECT_EQ(layerFault(layers, row), "Глубина конца должна быть больше глубины начала");
    EXPECT_EQ(layerFault(layers, 5), "Неверный индекс строки");
    EXPECT_EQ(layerFault(layers, -1), "Неверный индекс строки");
}

TEST(LayerRow, MayOverlapOthersAndLeaveGaps)
{
    const GroundLayers layers = {layer(0, 5), layer(1, 2), layer(20, 30)};
    for (int row = 0; row < layers.size(); ++row)
        EXPECT_EQ(layerFault(layers, row), "");
}

TEST(GroundColor, IsWrittenWithItsMark)
{
    EXPECT_EQ(groundColor("#102030"), "#102030");
    EXPECT_EQ(groundColor("102030"), "#102030");
    EXPECT_EQ(groundColor(" "), "#FFFFFF");
    EXPECT_EQ(groundColor(QString()), "#FFFFFF");
}

TEST_F(Layers, AreReadFromTheTopWithTheirGround)
{
    const auto layers = loadLayers(geologicalWellLayers, near);
    ASSERT_TRUE(layers);
    ASSERT_EQ(layers->size(), 2);
    const GroundLayer &top = layers->at(0), &below = layers->at(1);
    EXPECT_GT(top.id, 0);
    EXPECT_EQ(top.from, 0.0);
    EXPECT_EQ(top.to, 1.5);
    EXPECT_EQ(top.ground.id, sand);
    EXPECT_EQ(top.ground.text(), "2 - Песок");
    EXPECT_EQ(top.ground.look.pattern, "sand");
    EXPECT_EQ(top.ground.look.scale, 0.5);
    EXPECT_EQ(top.ground.look.color, "#FFEEAA");
    EXPECT_EQ(top.description, "");
    EXPECT_EQ(below.ground.look.color, "#FFFFFF") << "a missing one";
    EXPECT_EQ(below.ground.look.scale, 1.0) << "a missing one";
    EXPECT_EQ(below.description, "мёрзлый");
}

TEST_F(Layers, WithoutGroundHaveNone)
{
    const auto layers = loadLayers(geologicalWellLayers, far);
    ASSERT_EQ(layers.value_or(GroundLayers()).size(), 1);
    EXPECT_EQ(layers->at(0).ground.id, -1);
    EXPECT_EQ(layers->at(0).ground.text(), "");
    EXPECT_EQ(loadLayers(geologicalWellLayers, bare)->size(), 0);
    EXPECT_EQ(loadLayers(geologicalWellLayers, 999)->size(), 0);
}

TEST_F(Layers, AreReadAlikeWithoutTheirKeys)
{
    const auto keyed = loadLayers(geologicalWellLayers, near), plain = loadGroundColumn(geologicalWellLayers, near);
    ASSERT_TRUE(keyed && plain);
    ASSERT_EQ(keyed->size(), plain->size());
    for (int i = 0; i < keyed->size(); ++i) {
        EXPECT_EQ(plain->at(i).id, -1);
        EXPECT_EQ(plain->at(i).from, keyed->at(i).from);
        EXPECT_EQ(plain->at(i).to, keyed->at(i).to);
        EXPECT_EQ(plain->at(i).ground.text(), keyed->at(i).ground.text());
        EXPECT_EQ(plain->at(i).ground.look.pattern, keyed->at(i).ground.look.pattern);
        EXPECT_EQ(plain->at(i).description, keyed->at(i).description);
    }
}

TEST_F(Layers, ComeOutOfGroundsInTheOrderOfTheirCodes)
{
    database->exec("insert into geology_ege_catalog (ege_id, project_id, code, name) overriding system value values "
                   "(103, 1, '', 'Без кода')");
    const auto grounds = loadGroundElements();
    ASSERT_TRUE(grounds);
    QStringList texts;
    for (const GroundElement& ground : *grounds)
        texts << ground.text();
    EXPECT_EQ(texts, QStringList({" - Без кода", "1а - Суглинок", "2 - Песок"}));
}

TEST_F(Layers, ReplaceAllThatTheWellHad)
{
    QString problem;
    EXPECT_TRUE(saveLayers(thermalWellLayers, well,
                           {layer(0, 1.23456, sand, "O'Нил %1"), layer(1.2, 3, -1), layer(3, 4, loam, "")}, known,
                           problem));
    EXPECT_EQ(problem, "");
    EXPECT_EQ(
        stored(),
        QVector<QStringList>(
            {{"1", "101", "0", "1.235", "O'Нил %1"}, {"1", QString(), "1.2", "3", ""}, {"1", "102", "3", "4", ""}}));
    EXPECT_EQ(stored("igs_geology_layers").size(), 3) << "of other wells";
    EXPECT_TRUE(saveLayers(thermalWellLayers, well, {}, known, problem));
    EXPECT_EQ(stored(), QVector<QStringList>());
}

TEST_F(RelayedLayers, AreWrittenByTheseStatements)
{
    relay.refuse(-1);
    QString problem;
    EXPECT_TRUE(saveLayers(geologicalWellLayers, near, {layer(0, 1.5, sand, "а'б"), layer(1.5, 2)}, known, problem));
    EXPECT_EQ(relay.texts(),
              QStringList({"DELETE FROM igs_geology_layers WHERE element_id = 11",
                           "INSERT INTO igs_geology_layers (element_id, ege_id, depth_from, depth_to, description) "
                           "VALUES (11, 101, 0.000, 1.500, 'а''б')",
                           "INSERT INTO igs_geology_layers (element_id, ege_id, depth_from, depth_to, description) "
                           "VALUES (11, null, 1.500, 2.000, '')"}));
}

TEST_F(RelayedLayers, AnyRefusedStatementIsTold)
{
    const GroundLayers layers = {layer(0, 1, sand), layer(1, 2, loam)};
    const QStringList heads = {"Прежние слои не удалены: ", "Ошибка при сохранении слоя (ege_id=101): ",
                               "Ошибка при сохранении слоя (ege_id=102): "};
    for (int statement = 0; statement < heads.size(); ++statement) {
        relay.refuse(statement + 1);
        QString problem;
        EXPECT_FALSE(saveLayers(thermalWellLayers, well, layers, known, problem));
        EXPECT_TRUE(relay.hasRefused());
        EXPECT_TRUE(problem.startsWith(heads[statement])) << problem;
        EXPECT_GT(problem.size(), heads[statement].size()) << "the server's reason";
        if (statement == 0) {
            EXPECT_EQ(stored(), QVector<QStringList>({{"1", "101", "0", "9", "прежний"}}));
        }
    }
}

TEST_F(RelayedLayers, AReadThatIsRefusedIsNoEmptyList)
{
    relay.refuse(1);
    EXPECT_FALSE(loadLayers(thermalWellLayers, well));
    relay.refuse(1);
    EXPECT_FALSE(loadGroundColumn(thermalWellLayers, well));
    relay.refuse(1);
    EXPECT_FALSE(loadGroundElements());
    for (int statement : {1, 2}) {
        relay.refuse(statement);
        EXPECT_FALSE(loadLayerSources(well));
    }
}

TEST_F(Layers, OfAnUnknownGroundAreRefusedBeforeAnythingIsDeleted)
{
    QString problem;
    EXPECT_FALSE(saveLayers(thermalWellLayers, well, {layer(0, 1, sand), layer(1, 2, 77)}, known, problem));
    EXPECT_EQ(problem, "Ошибка: слой имеет невалидный ИГЭ (ege_id = 77)");
    EXPECT_EQ(stored(), QVector<QStringList>({{"1", "101", "0", "9", "прежний"}}));
}

TEST_F(Layers, OfAGroundThatWasDeletedMeanwhileEndTheRunAtTheirRow)
{
    QString problem;
    EXPECT_FALSE(saveLayers(thermalWellLayers, well, {layer(0, 1, sand), layer(1, 2, 77), layer(2, 3, loam)},
                            QSet<int>{101, 77, 102}, problem));
    EXPECT_TRUE(problem.startsWith("Ошибка при сохранении слоя (ege_id=77): ")) << problem;
    EXPECT_EQ(stored(), QVector<QStringList>({{"1", "101", "0", "1", ""}})) << "no transaction is around them";
}

TEST_F(Layers, WithoutAServerAreToldAndNotLost)
{
    database.disconnect();
    QString problem;
    EXPECT_FALSE(saveLayers(thermalWellLayers, well, {layer(0, 1, sand)}, known, problem));
    EXPECT_TRUE(problem.startsWith("Прежние слои не удалены: ")) << problem;
    EXPECT_FALSE(loadLayers(thermalWellLayers, well));
    EXPECT_FALSE(loadLayerSources(well));
    EXPECT_EQ(stored().size(), 1);
}

TEST_F(Layers, MayComeFromTheNearestGeologicalWell)
{
    const auto sources = loadLayerSources(well);
    ASSERT_TRUE(sources);
    QStringList texts;
    for (const LayerSource& source : *sources)
        texts << source.text();
    EXPECT_EQ(texts, QStringList({"С-1 на расстоянии 5 м. dZ - 1.50 м.", "С-2 на расстоянии 30 м. dZ - -1.75 м."}))
        << "of all positions, and none without layers";
    EXPECT_EQ(sources->at(0).elementId, near);
    EXPECT_FALSE(loadLayerSources(999)) << "a well without a row has no place";
}

TEST_F(GroundProject, AWellsNameIsItsPositionsOwn)
{
    EXPECT_EQ(geologicalWellNameFault(near, 7, " "), "Название скважины не может быть пустым");
    const QString taken = "Скважина с таким названием уже существует в данной позиции";
    EXPECT_EQ(geologicalWellNameFault(near, 7, "С-3"), taken);
    EXPECT_EQ(geologicalWellNameFault(near, 7, "С-1"), "") << "its own";
    EXPECT_EQ(geologicalWellNameFault(near, 7, "С-2"), "") << "of another position";
    EXPECT_EQ(geologicalWellNameFault(near, -1, "С-2"), taken) << "without a position the whole table counts";
    EXPECT_EQ(geologicalWellNameFault(near, 7, "O'Нил"), "");
}
