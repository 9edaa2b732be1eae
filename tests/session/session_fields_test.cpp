// What a session holds before anything happened.
#include "session_fixture.h"

#include "session/module_folder.h"

#include <QCoreApplication>
#include <QDir>

namespace {

TEST(SessionFields, StartWithTheirDefaults)
{
    const ProjectSession fresh;
    EXPECT_EQ(fresh.dmDefault, (Enumerator{"ДМ", 1, 1}));
    EXPECT_EQ(fresh.tsDefault, (Enumerator{"ТС", 1, 1}));
    EXPECT_EQ(fresh.rpDefault, (Enumerator{"RP", 1, 1}));
    EXPECT_EQ(fresh.tssDefault, (Enumerator{"ТСС", 1, 1}));
    EXPECT_EQ(fresh.ggsDefault, (Enumerator{" ГГС", 1, 1}));
    EXPECT_EQ(fresh.tsgDefault, (Enumerator{"ТСГ", 1, 1}));
    EXPECT_EQ(fresh.igsDefault, (Enumerator{"СКВ", 1, 1}));
    EXPECT_EQ(fresh.defaultState, QString("exist"));
    EXPECT_EQ(fresh.defaultHost, QString("127.0.0.1"));
    EXPECT_EQ(fresh.defaultPort, QString("5432"));
    EXPECT_EQ(fresh.defaultUser, QString("postgres"));
    EXPECT_EQ(fresh.defaultPositionId, -1);
    EXPECT_EQ(fresh.defaultFileId, -1);
    EXPECT_EQ(fresh.defaultBaseCycleId, -1);
    EXPECT_EQ(fresh.defaultCurrentCycleId, -1);
    EXPECT_EQ(fresh.defaultTypeId, 1);
    EXPECT_EQ(fresh.numberPattern.pattern(), QString("^[+-]?\\d*(\\.\\d*)?"));
    EXPECT_EQ(fresh.projectId, -1);
    EXPECT_EQ(fresh.sqlType, 0);
    EXPECT_EQ(fresh.placementScale, 1.0);
    EXPECT_EQ(fresh.importColumns, (std::array<int, 12>{{0, 2, 1, -1, -1, -1, -1, -1, -1, 0, 1, 2}}));
    EXPECT_EQ(fresh.currentFileId, -1);
    EXPECT_EQ(fresh.currentPositionId, -1);
    EXPECT_EQ(fresh.currentSubobjectId, -1);
    EXPECT_EQ(fresh.currentObjectId, -1);
    EXPECT_EQ(fresh.currentPositionItem, nullptr);
    EXPECT_EQ(fresh.baseCycleId, -1);
    EXPECT_EQ(fresh.currentCycleId, -1);
    EXPECT_FALSE(fresh.inspectorOn);
    EXPECT_FALSE(fresh.connection.isOpen());
    EXPECT_EQ(fresh.deformationColormapId, -2);
    EXPECT_EQ(fresh.temperatureColormapId, -3);
    EXPECT_EQ(fresh.dynamicTemperatureColormapId, -3);
    EXPECT_FALSE(fresh.connected);
    EXPECT_TRUE(fresh.auditEnabled);
    EXPECT_FALSE(fresh.superuser);
}

TEST(SessionFields, TextsAndListsStartEmpty)
{
    const ProjectSession fresh;
    for (QString ProjectSession::*text :
         {&ProjectSession::projectCode, &ProjectSession::projectName, &ProjectSession::projectOwner,
          &ProjectSession::projectLocation, &ProjectSession::workDir, &ProjectSession::tempDir,
          &ProjectSession::sqlHost, &ProjectSession::sqlPort, &ProjectSession::sqlDatabase, &ProjectSession::sqlUser,
          &ProjectSession::sqlPass, &ProjectSession::currentDrawingPath, &ProjectSession::currentPositionName,
          &ProjectSession::currentSubobjectName, &ProjectSession::currentObjectName, &ProjectSession::projectFile,
          &ProjectSession::exportPath, &ProjectSession::proj4Text})
        EXPECT_EQ(fresh.*text, QString());
    EXPECT_TRUE(fresh.cycles.isEmpty() && fresh.cycleOrder.isEmpty());
    EXPECT_TRUE(fresh.predictions.isEmpty() && fresh.predictionOrder.isEmpty());
    EXPECT_TRUE(fresh.states.isEmpty() && fresh.stateColors.isEmpty() && fresh.stateFilter.isEmpty());
}

TEST(SessionFields, TheNumberPatternTakesDecimalFields)
{
    // As a validator anchors it.
    const QRegularExpression whole(QRegularExpression::anchoredPattern(ProjectSession().numberPattern.pattern()));
    for (const char* good : {"", "-", "+.5", "1.", "-12.25", "007"})
        EXPECT_TRUE(whole.match(good).hasMatch()) << good;
    for (const char* bad : {"1,5", "1e3", "1.2.3", "--1", " 1", "inf"})
        EXPECT_FALSE(whole.match(bad).hasMatch()) << bad;
}

TEST(SessionFields, NumberingInUseStartsAsTheDefaults)
{
    const ProjectSession fresh;
    EXPECT_EQ(fresh.dmEnumerator, fresh.dmDefault);
    EXPECT_EQ(fresh.tsEnumerator, fresh.tsDefault);
    EXPECT_EQ(fresh.rpEnumerator, fresh.rpDefault);
    EXPECT_EQ(fresh.tssEnumerator, fresh.tssDefault);
    EXPECT_EQ(fresh.ggsEnumerator, fresh.ggsDefault);
    EXPECT_EQ(fresh.tsgEnumerator, fresh.tsgDefault);
    EXPECT_EQ(fresh.igsEnumerator, fresh.igsDefault);
}

TEST(SessionFields, LevelMapsAreTheBuiltInsBeforeAnyConnection)
{
    const ProjectSession fresh;
    const QMap<int, QString> builtIn{{-3, "Карта температур"}, {-2, "Карта деформаций"}, {-1, "Пользовательская"}};
    EXPECT_EQ(fresh.levelMaps, builtIn);
}

TEST(SessionFields, ModuleFolderEndsWithTheSystemsSeparator)
{
    const QString folder = QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + QDir::separator();
    EXPECT_EQ(ProjectSession().moduleDir, folder);
    EXPECT_EQ(ProjectSession().templateDir, folder + "templates");
}

TEST(SessionFields, ThereIsOneSession) { EXPECT_EQ(&session(), &session()); }

TEST(ModuleFolder, IsThePathWithoutItsLastPart)
{
    const QString separator = QDir::separator();
    EXPECT_EQ(folderOfModule("/a b/модули/m.dll"), QDir::toNativeSeparators("/a b/модули/"));
    EXPECT_EQ(folderOfModule("bin/m.dll"), "bin" + separator);
    EXPECT_EQ(folderOfModule("m.dll"), separator) << "no folder";
}

} // namespace
