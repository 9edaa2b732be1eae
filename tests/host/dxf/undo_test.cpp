// Undo and redo: whatever was done, a drawing goes back to what it was and on
// to what it became, to the last byte of its file.
#include "random_drawing.h"

#include <commands/host_commands.h>
#include <drawing/application.h>
#include <drawing/audit.h>
#include <drawing/edit_operations.h>
#include <drawing/entity_properties.h>
#include <drawing/host_access.h>
#include <drawing/undo.h>
#include <dxf/drawing_file.h>

#include <QFile>

#include <gtest/gtest.h>

#include <random>

namespace {

class Undo : public ::testing::Test {
protected:
    void SetUp() override
    {
        registerHostCommands();
        closeAllDocuments();
        ncDocManagerPtr()->appContextNewDocument(QString());
        drawing = ncDocManagerPtr()->curDocument()->database();
        before = setPromptBackend(&silence);
    }
    void TearDown() override
    {
        EXPECT_EQ(HostAccess::openObjectCount(), 0);
        setPromptBackend(before);
        closeAllDocuments();
    }

    struct Silence : PromptBackend {
        PromptReply ask(const PromptRequest&) override { return {}; }
        void print(const QString& text) override { said += text; }
        QString said;
    };

    QByteArray bytes() { return drawingBytes(*drawing); }
    UndoJournal& journal() { return *journalOf(*drawing); }

    NcDbObjectIdArray space() { return editable(*drawing, livingEntities(*drawing)); }

    NcDbObjectId anyOf(const NcRxClass* cls)
    {
        NcDbObjectIdArray fitting;
        for (NcDbObjectId id : space())
            if (HostAccess::object(id)->isKindOf(cls))
                fitting.push_back(id);
        return fitting.empty() ? NcDbObjectId() : fitting[random() % fitting.size()];
    }

    void pickSome()
    {
        NcDbObjectIdArray some;
        for (NcDbObjectId id : space())
            if (random() % 3 == 0)
                some.push_back(id);
        setPickfirst(some);
    }

    QString number() { return QString::number(int(random() % 2000) - 1000); }
    QString point() { return number() + QLatin1Char(',') + number(); }

    void run(const QStringList& words) { EXPECT_EQ(runCommandWords(words), CommandOutcome::Done); }

    void edit()
    {
        pickSome();
        switch (random() % 12) {
        case 0: return run({"MOVE", point(), point()});
        case 1: return run({"COPY", point(), point(), point()});
        case 2: return run({"ROTATE", point(), number()});
        case 3: return run({"SCALE", point(), "1.5"});
        case 4: return run({"MIRROR", "0,0", point(), random() % 2 ? "Да" : "Нет"});
        case 5: return run({"EXPLODE"});
        case 6: return run({"ERASE"});
        case 7: return run({"COPYCLIP"});
        case 8: return run({"PASTECLIP", point()});
        case 9: return run({"LINE", point(), point(), point()});
        case 10: return run({"CIRCLE", point(), "5"});
        default: return run({"LAYER", "Создать", "слой " + number()});
        }
    }

    // What palettes and modules do between commands and in them.
    void change()
    {
        const UndoGroup group(*drawing, "CHANGE");
        switch (random() % 7) {
        case 6: return setShown();
        case 0: return setProperty();
        case 1: return setAttribute();
        case 2: return order();
        case 3: return makeGroup();
        case 4: return renameLayer();
        default: return noteProperty();
        }
    }

    void setProperty()
    {
        for (auto& property : NcDbDynBlockReference(anyOf(NcDbBlockReference::desc())).getBlockProperties()) {
            const auto allowed = property.getAllowedValues();
            if (!allowed.empty())
                property.setValue(allowed[random() % allowed.size()]);
            else if (property.propertyType() == 40)
                property.setValue(NcDbEvalVariant(double(random() % 100)));
        }
    }

    // As the panel of properties does.
    void setShown()
    {
        const NcDbObjectIdArray ids = {anyOf(NcDbEntity::desc())};
        for (const EntityProperty& property : propertiesOf(ids))
            if (property.kind == EntityProperty::Number && !property.fixed)
                ::setProperty(ids, property.key, double(random() % 100));
    }

    void setAttribute()
    {
        const auto* reference = HostAccess::objectAs<NcDbBlockReference>(anyOf(NcDbBlockReference::desc()));
        NcDbAttribute* attribute = nullptr;
        for (NcDbObjectId id : reference ? HostAccess::attributes(*reference) : NcDbObjectIdArray())
            if (isOk(ncdbOpenObject(attribute, id, kForWrite))) {
                attribute->setTextString("текст " + number());
                attribute->close();
            }
    }

    void order()
    {
        NcDbBlockTableRecord* block = nullptr;
        NcDbSortentsTable* table = nullptr;
        const NcDbObjectIdArray all = space();
        ASSERT_EQ(ncdbOpenObject(block, drawing->currentSpaceId(), kForWrite), NcStatus::Ok);
        if (!all.empty() && isOk(block->getSortentsTable(table))) {
            table->moveToBottom({all[random() % all.size()]});
            table->close();
        }
        block->close();
    }

    void makeGroup()
    {
        NcDbDictionary* groups = nullptr;
        ASSERT_EQ(drawing->getGroupDictionary(groups, kForWrite), NcStatus::Ok);
        auto* made = new NcDbGroup("a group");
        NcDbObjectId id;
        ASSERT_EQ(groups->setAt("G" + QString::number(random() % 3), made, id), NcStatus::Ok);
        made->append(space());
        made->close();
        groups->close();
    }

    void renameLayer()
    {
        NcDbLayerTableRecord* layer = nullptr;
        for (NcDbObjectId id : HostAccess::records(*HostAccess::objectAs<NcDbLayerTable>(drawing->layerTableId()))) {
            if (random() % 2 || !isOk(ncdbOpenObject(layer, id, kForWrite)))
                continue;
            if (layer->getName() != "0")
                layer->setName("имя " + number());
            layer->setColor(NcCmColor::fromIndex(int(random() % 250) + 1));
            layer->close();
        }
    }

    void noteProperty()
    {
        NcDbDatabaseSummaryInfo info;
        ncdbGetSummaryInfo(drawing, info);
        info.addCustomSummaryInfo("key" + number(), number());
        ncdbPutSummaryInfo(drawing, info);
        NcGeMatrix3d ucs;
        ncedSetCurrentUCS(NcGeMatrix3d::rotation(0.1 * double(random() % 60), NcGeVector3d::kZAxis));
    }

    void expectSound()
    {
        for (const AuditFinding& finding : audit(*drawing))
            if (finding.rule == AuditFinding::StaleIndex || finding.rule == AuditFinding::MissingEntity
                || finding.rule == AuditFinding::MissingRecord || finding.rule == AuditFinding::WrongHandle
                || finding.rule == AuditFinding::DoubledName)
                ADD_FAILURE() << finding.text.toStdString();
    }

    std::mt19937 random{1};
    NcDbDatabase* drawing = nullptr;
    Silence silence;
    PromptBackend* before = nullptr;
};

} // namespace

TEST_F(Undo, AnyRunOfCommandsGoesBackToTheStartAndOnToTheEnd)
{
    int steps = 0;
    for (unsigned seed = 0; seed < 6; ++seed) {
        closeAllDocuments();
        ncDocManagerPtr()->appContextNewDocument(QString());
        drawing = ncDocManagerPtr()->curDocument()->database();
        fillRandomly(*drawing, seed);
        HostAccess::finishLoading(*drawing); // enters all in the index
        journal().forgetAll();
        random.seed(seed + 77);
        std::vector<QByteArray> states{bytes()};
        while (states.size() < 40) {
            const size_t known = journal().steps();
            random() % 3 ? edit() : change();
            if (journal().steps() > known)
                states.push_back(bytes());
            else
                ASSERT_EQ(bytes(), states.back()) << "a change that is no step, seed " << seed;
        }
        ASSERT_EQ(journal().unnoted(), 0);
        ASSERT_EQ(journal().steps(), states.size() - 1);
        for (size_t i = states.size() - 1; i > 0; --i) {
            const QString name = journal().undo();
            ASSERT_FALSE(name.isNull());
            ASSERT_EQ(bytes(), states[i - 1])
                << "undoing " << name.toStdString() << ", seed " << seed << ", step " << i;
        }
        EXPECT_TRUE(journal().undo().isNull());
        expectSound();
        for (size_t i = 1; i < states.size(); ++i, ++steps) {
            const QString name = journal().redo();
            ASSERT_EQ(bytes(), states[i]) << "redoing " << name.toStdString() << ", seed " << seed << ", step " << i;
        }
        EXPECT_TRUE(journal().redo().isNull());
        expectSound();
    }
    EXPECT_GT(steps, 200);
}

TEST_F(Undo, AStepIsACommandAndSaysItsName)
{
    run({"LINE", "0,0", "1,1", "2,2"});
    run({"CIRCLE", "5,5", "1"});
    EXPECT_EQ(space().size(), 3u);
    run({"U"});
    EXPECT_EQ(space().size(), 2u) << "the circle alone";
    EXPECT_TRUE(silence.said.contains("Отменено: CIRCLE"));
    run({"U"});
    EXPECT_EQ(space().size(), 0u) << "both pieces that the command drew";
    run({"U"});
    EXPECT_TRUE(silence.said.contains("Отменять нечего."));
    run({"REDO"});
    EXPECT_EQ(space().size(), 2u);
    run({"TEXT", "0,0", "1", "0", "a"});
    silence.said.clear();
    run({"REDO"});
    EXPECT_TRUE(silence.said.contains("Возвращать нечего.")) << "something else was done since";
    EXPECT_FALSE(silence.said.contains("Строки базы")) << "the host's own commands write no rows";
}

TEST_F(Undo, WhatOnlyLooksIsNoStep)
{
    run({"LINE", "0,0", "1,1", "2,2"});
    const size_t steps = journal().steps();
    run({"ZOOM", "Границы"});
    run({"DIST", "0,0", "3,4"});
    run({"SELECTALL"});
    NcDbEntity* entity = nullptr;
    ASSERT_EQ(ncdbOpenObject(entity, space().front(), kForWrite), NcStatus::Ok);
    entity->close();
    closeUndoSteps("LOOKED");
    EXPECT_EQ(journal().steps(), steps);
    EXPECT_TRUE(silence.said.contains("Расстояние 5.000, угол 53.13°"));
}

namespace {

// A command of a module; such may write rows.
void drawByModule()
{
    NcDbBlockTableRecord* space = nullptr;
    ncdbOpenObject(space, ncdbHostApplicationServices()->workingDatabase()->currentSpaceId(), kForWrite);
    auto* point = new NcDbPoint({1, 2, 3});
    space->appendNcDbEntity(point);
    point->close();
    space->close();
}

} // namespace

TEST_F(Undo, AModulesCommandLeavesItsRowsAndSaysSo)
{
    GetCommandStack()->addCommand("UNDO_TEST", "DRAW_BY_MODULE", {}, 0, drawByModule, nullptr, -1, nullptr, nullptr);
    run({"DRAW_BY_MODULE"});
    ASSERT_EQ(space().size(), 1u);
    run({"U"});
    EXPECT_TRUE(space().empty());
    EXPECT_TRUE(silence.said.contains(
        "Отменено: DRAW_BY_MODULE\nСтроки базы данных остались такими, как их записала команда."));
    GetCommandStack()->removeGroup("UNDO_TEST");
}

TEST_F(Undo, AnObjectThatIsHeldOpenKeepsTheStep)
{
    run({"LINE", "0,0", "1,1", "2,2"});
    NcDbEntity* entity = nullptr;
    ASSERT_EQ(ncdbOpenObject(entity, space().front(), kForRead), NcStatus::Ok);
    EXPECT_TRUE(journal().undo().isNull());
    entity->close();
    EXPECT_FALSE(journal().undo().isNull());
}

TEST_F(Undo, AFileThatIsReadIntoTheDrawingStartsAnew)
{
    run({"LINE", "0,0", "1,1", "2,2"});
    EXPECT_TRUE(journal().canUndo());
    NcDbDatabase other;
    const QString path = QString::fromLatin1(::testing::TempDir().c_str()) + "undo_test.dxf";
    ASSERT_EQ(other.saveAs(path), NcStatus::Ok);
    ASSERT_EQ(drawing->readDwgFile(path), NcStatus::Ok);
    EXPECT_FALSE(journal().canUndo());
    run({"CIRCLE", "5,5", "1"});
    EXPECT_EQ(journal().undo(), "CIRCLE");
    QFile::remove(path);
}
