#include "drawing_fixture.h"

namespace {

class Tables : public DrawingTest { };

QStringList names(const NcDbSymbolTable& table)
{
    QStringList all;
    const std::unique_ptr<NcDbSymbolTableIterator> iterator(table.newIterator());
    for (; !iterator->done(); iterator->step()) {
        NcDbObjectId id;
        EXPECT_EQ(iterator->getRecordId(id), NcStatus::Ok);
        all << HostAccess::objectAs<NcDbSymbolTableRecord>(id)->getName();
    }
    NcDbObjectId beyond;
    EXPECT_EQ(iterator->getRecordId(beyond), NcStatus::InvalidInput);
    return all;
}

TEST_F(Tables, AFreshDrawingHasItsDefaults)
{
    EXPECT_TRUE(blockNamed(QStringLiteral("*Model_Space")).isValid());
    EXPECT_TRUE(blockNamed(QStringLiteral("*Paper_Space")).isValid());
    EXPECT_EQ(drawing.currentSpaceId(), modelSpace());
    EXPECT_EQ(read<NcDbLayerTableRecord>(drawing.clayer()).getName(), QStringLiteral("0"));
    EXPECT_EQ(names(read<NcDbSymbolTable>(drawing.viewportTableId())), QStringList{QStringLiteral("*Active")});
    EXPECT_TRUE(names(read<NcDbSymbolTable>(drawing.ucsTableId())).isEmpty());
    EXPECT_TRUE(audit(drawing).empty());
}

TEST_F(Tables, NamesAreFoundIgnoringCase)
{
    const NcDbObjectId id = addLayer(QStringLiteral("Геология"));
    NcDbLayerTable* table = nullptr;
    ASSERT_EQ(drawing.getSymbolTable(table, kForRead), NcStatus::Ok);
    NcDbObjectId found;
    EXPECT_EQ(table->getAt(QStringLiteral("ГЕОЛОГИЯ"), found), NcStatus::Ok);
    EXPECT_EQ(found, id);
    EXPECT_TRUE(table->has(QStringLiteral("геология")));
    EXPECT_EQ(table->getAt(QStringLiteral("нет"), found), NcStatus::NotFound);
    EXPECT_TRUE(found.isNull());
    NcDbLayerTableRecord* record = nullptr;
    EXPECT_EQ(table->getAt(QStringLiteral("геология"), record, kForRead), NcStatus::Ok);
    record->close();
    EXPECT_EQ(table->getAt(QStringLiteral("нет"), record, kForRead), NcStatus::NotFound);
    EXPECT_EQ(record, nullptr);
    table->close();
}

TEST_F(Tables, RecordsComeInTheOrderOfAdding)
{
    for (const char* name : {"b", "a", "c"})
        addLayer(QLatin1String(name));
    EXPECT_EQ(names(read<NcDbSymbolTable>(drawing.layerTableId())), (QStringList{"0", "b", "a", "c"}));
}

TEST_F(Tables, ANameIsTakenOnce)
{
    addLayer(QStringLiteral("A"));
    NcDbLayerTable* table = nullptr;
    ASSERT_EQ(drawing.getSymbolTable(table, kForWrite), NcStatus::Ok);
    NcDbLayerTableRecord again, nameless;
    again.setName(QStringLiteral("a"));
    NcDbObjectId id;
    EXPECT_EQ(table->add(id, &again), NcStatus::Duplicate);
    EXPECT_EQ(table->add(id, &nameless), NcStatus::InvalidInput);
    NcDbBlockTableRecord block;
    block.setName(QStringLiteral("block"));
    EXPECT_EQ(table->add(id, &block), NcStatus::InvalidInput) << "a layer table takes layers";
    table->close();
    ASSERT_EQ(drawing.getSymbolTable(table, kForRead), NcStatus::Ok);
    again.setName(QStringLiteral("b"));
    EXPECT_EQ(table->add(id, &again), NcStatus::NotOpenForWrite);
    table->close();
}

TEST_F(Tables, RenamingKeepsNamesApart)
{
    const NcDbObjectId a = addLayer(QStringLiteral("A"));
    addLayer(QStringLiteral("B"));
    change<NcDbLayerTableRecord>(a, [](NcDbLayerTableRecord& layer) {
        EXPECT_EQ(layer.setName(QStringLiteral("b")), NcStatus::Duplicate);
        EXPECT_EQ(layer.setName(QString()), NcStatus::InvalidInput);
        EXPECT_EQ(layer.setName(QStringLiteral("a")), NcStatus::Ok) << "its own name in other letters";
        EXPECT_EQ(layer.setName(QStringLiteral("C")), NcStatus::Ok);
    });
    EXPECT_EQ(HostAccess::recordId(drawing, drawing.layerTableId(), QStringLiteral("c")), a);
    EXPECT_TRUE(HostAccess::recordId(drawing, drawing.layerTableId(), QStringLiteral("A")).isNull());
}

TEST_F(Tables, EntitiesFollowTheNameOfTheirLayer)
{
    const NcDbObjectId layer = addLayer(QStringLiteral("Старый"));
    auto* line = new NcDbLine;
    line->setLayer(QStringLiteral("Старый"));
    const NcDbObjectId id = add(line);
    change<NcDbLayerTableRecord>(layer, [](NcDbLayerTableRecord& record) { record.setName(QStringLiteral("Новый")); });
    EXPECT_EQ(read<NcDbLine>(id).layer(), QStringLiteral("Новый"));
}

TEST_F(Tables, AnErasedRecordFreesItsName)
{
    const NcDbObjectId layer = addLayer(QStringLiteral("A"));
    EXPECT_EQ(erase(layer), NcStatus::Ok);
    EXPECT_TRUE(HostAccess::recordId(drawing, drawing.layerTableId(), QStringLiteral("A")).isNull());
    EXPECT_EQ(names(read<NcDbSymbolTable>(drawing.layerTableId())), QStringList{"0"});
    addLayer(QStringLiteral("A"));
    EXPECT_EQ(erase(layer, false), NcStatus::Duplicate) << "the name was taken meanwhile";
    EXPECT_TRUE(layer.isErased());
}

TEST_F(Tables, WhatADrawingCannotDoWithoutIsNotErased)
{
    EXPECT_EQ(erase(drawing.clayer()), NcStatus::InvalidInput);
    EXPECT_EQ(erase(modelSpace()), NcStatus::InvalidInput);
    EXPECT_EQ(erase(drawing.layerTableId()), NcStatus::InvalidInput);
    const NcDbObjectId layer = addLayer(QStringLiteral("A"));
    drawing.setClayer(layer);
    EXPECT_EQ(erase(layer), NcStatus::InvalidInput) << "the current layer";
    EXPECT_EQ(erase(HostAccess::recordId(drawing, drawing.layerTableId(), QStringLiteral("0"))),
              NcStatus::InvalidInput);
}

TEST_F(Tables, TheCurrentLayerMustBeALayerOfTheDrawing)
{
    NcDbDatabase other;
    EXPECT_EQ(drawing.setClayer(other.clayer()), NcStatus::NotFound);
    EXPECT_EQ(drawing.setClayer(modelSpace()), NcStatus::NotFound);
    const NcDbObjectId layer = addLayer(QStringLiteral("A"));
    erase(layer);
    EXPECT_EQ(drawing.setClayer(layer), NcStatus::WasErased);
}

TEST_F(Tables, LayersHaveColourAndStates)
{
    EXPECT_EQ(NcDbLayerTableRecord().color().colorIndex(), 7);
    const NcDbObjectId layer = addLayer(QStringLiteral("A"));
    change<NcDbLayerTableRecord>(layer, [](NcDbLayerTableRecord& record) {
        record.setColor(NcCmColor::fromIndex(1));
        record.setIsOff(true);
        record.setIsFrozen(true);
        record.setIsLocked(true);
    });
    const auto& record = read<NcDbLayerTableRecord>(layer);
    EXPECT_EQ(record.color().colorIndex(), 1);
    EXPECT_TRUE(record.isOff() && record.isFrozen() && record.isLocked());
}

TEST_F(Tables, ABlockWalksItsEntitiesInOrderWithoutTheErased)
{
    NcDbObjectIdArray ids;
    for (int i = 0; i < 5; ++i)
        ids.push_back(add(new NcDbPoint({double(i), 0, 0})));
    erase(ids[0]);
    erase(ids[3]);
    const std::unique_ptr<NcDbBlockTableRecordIterator> iterator(
        read<NcDbBlockTableRecord>(modelSpace()).newIterator());
    NcDbObjectIdArray walked;
    for (iterator->start(); !iterator->done(); iterator->step()) {
        NcDbEntity* entity = nullptr;
        ASSERT_EQ(iterator->getEntity(entity, kForRead), NcStatus::Ok);
        walked.push_back(entity->objectId());
        entity->close();
    }
    EXPECT_EQ(walked, (NcDbObjectIdArray{ids[1], ids[2], ids[4]}));
    NcDbEntity* beyond = nullptr;
    EXPECT_EQ(iterator->getEntity(beyond, kForRead), NcStatus::InvalidInput);
    iterator->step();
    EXPECT_TRUE(iterator->done());
}

TEST_F(Tables, AnIteratorIsASnapshot)
{
    add(new NcDbPoint);
    const std::unique_ptr<NcDbBlockTableRecordIterator> iterator(
        read<NcDbBlockTableRecord>(modelSpace()).newIterator());
    int walked = 0;
    for (; !iterator->done(); iterator->step()) {
        add(new NcDbPoint);
        ++walked;
    }
    EXPECT_EQ(walked, 1);
}

TEST_F(Tables, AnonymousBlocksAndLayoutsAreToldApart)
{
    EXPECT_TRUE(read<NcDbBlockTableRecord>(modelSpace()).isLayout());
    EXPECT_FALSE(read<NcDbBlockTableRecord>(modelSpace()).isAnonymous());
    EXPECT_TRUE(read<NcDbBlockTableRecord>(addBlock(QStringLiteral("*U7"))).isAnonymous());
    EXPECT_FALSE(read<NcDbBlockTableRecord>(addBlock(QStringLiteral("ts_def"))).isAnonymous());
}

TEST_F(Tables, ABlockKnowsItsReferences)
{
    const NcDbObjectId block = addBlock(QStringLiteral("a")), outer = addBlock(QStringLiteral("outer"));
    const NcDbObjectId first = add(new NcDbBlockReference({}, block));
    const NcDbObjectId nested = add(new NcDbBlockReference({}, block), outer);
    EXPECT_EQ(read<NcDbBlockTableRecord>(block).getBlockReferenceIds(), (NcDbObjectIdArray{first, nested}));
    erase(first);
    EXPECT_EQ(read<NcDbBlockTableRecord>(block).getBlockReferenceIds(), NcDbObjectIdArray{nested});
}

TEST_F(Tables, AnErasedBlockTakesItsEntitiesAndBringsThemBack)
{
    const NcDbObjectId block = addBlock(QStringLiteral("a")), inner = addBlock(QStringLiteral("inner"));
    const NcDbObjectId line = add(new NcDbLine, block), gone = add(new NcDbLine, block);
    const NcDbObjectId nested = add(new NcDbBlockReference({}, inner), block);
    erase(gone);
    EXPECT_EQ(erase(block), NcStatus::Ok);
    EXPECT_TRUE(line.isErased());
    EXPECT_TRUE(read<NcDbBlockTableRecord>(inner).getBlockReferenceIds().empty());
    EXPECT_EQ(erase(line, false), NcStatus::WasErased) << "not without its block";
    EXPECT_EQ(erase(block, false), NcStatus::Ok);
    EXPECT_FALSE(line.isErased());
    EXPECT_TRUE(gone.isErased());
    EXPECT_EQ(read<NcDbBlockTableRecord>(inner).getBlockReferenceIds(), NcDbObjectIdArray{nested});
}

TEST_F(Tables, DrawOrderPutsHatchesBelow)
{
    NcDbObjectIdArray ids;
    for (int i = 0; i < 4; ++i)
        ids.push_back(add(new NcDbPoint));
    NcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(ncdbOpenObject(space, modelSpace(), kForWrite), NcStatus::Ok);
    NcDbSortentsTable* order = nullptr;
    ASSERT_EQ(space->getSortentsTable(order), NcStatus::Ok);
    EXPECT_EQ(order->getFullDrawOrder(), ids);
    EXPECT_EQ(order->moveToBottom({ids[3], ids[1]}), NcStatus::Ok);
    EXPECT_EQ(order->getFullDrawOrder(), (NcDbObjectIdArray{ids[1], ids[3], ids[0], ids[2]}));
    EXPECT_EQ(order->moveToTop({ids[1]}), NcStatus::Ok);
    EXPECT_EQ(order->getFullDrawOrder(), (NcDbObjectIdArray{ids[3], ids[0], ids[2], ids[1]}));
    EXPECT_EQ(order->moveToBottom({modelSpace()}), NcStatus::InvalidInput);
    order->close();
    space->close();
    const NcDbObjectId later = add(new NcDbPoint);
    erase(ids[0]);
    const auto& kept = read<NcDbSortentsTable>(HostAccess::sortents(read<NcDbBlockTableRecord>(modelSpace())));
    EXPECT_EQ(kept.getFullDrawOrder(), (NcDbObjectIdArray{ids[3], ids[2], ids[1], later})) << "new ones lie on top";
}

TEST_F(Tables, GroupsForgetErasedMembersAndTakeEachOnce)
{
    const NcDbObjectId a = add(new NcDbPoint), b = add(new NcDbPoint);
    NcDbDictionary* groups = nullptr;
    ASSERT_EQ(drawing.getGroupDictionary(groups, kForWrite), NcStatus::Ok);
    auto* group = new NcDbGroup(QStringLiteral("d"));
    NcDbObjectId id;
    EXPECT_EQ(groups->setAt(QStringLiteral("TERVA_DEF_abc"), group, id), NcStatus::Ok);
    EXPECT_EQ(group->append({a, b, a}), NcStatus::Ok);
    EXPECT_EQ(group->append(NcDbObjectId()), NcStatus::InvalidInput);
    EXPECT_EQ(group->append(drawing.clayer()), NcStatus::InvalidInput) << "only entities";
    EXPECT_EQ(group->numEntities(), 2);
    group->close();
    groups->close();
    erase(a);
    EXPECT_EQ(read<NcDbGroup>(id).allEntityIds(), NcDbObjectIdArray{b});
    erase(a, false);
    EXPECT_EQ(read<NcDbGroup>(id).numEntities(), 2);
}

TEST_F(Tables, DictionaryKeysKeepTheirCaseAndReplace)
{
    NcDbDictionary* groups = nullptr;
    ASSERT_EQ(drawing.getGroupDictionary(groups, kForWrite), NcStatus::Ok);
    const auto put = [&](const QString& key) {
        auto* group = new NcDbGroup;
        const NcDbObjectId member = add(new NcDbPoint);
        group->append(member);
        NcDbObjectId id;
        EXPECT_EQ(groups->setAt(key, group, id), NcStatus::Ok);
        group->close();
        return id;
    };
    const NcDbObjectId lower = put(QStringLiteral("a")), upper = put(QStringLiteral("A"));
    EXPECT_NE(lower, upper);
    const NcDbObjectId newer = put(QStringLiteral("a"));
    NcDbObjectId found;
    EXPECT_EQ(groups->getAt(QStringLiteral("a"), found), NcStatus::Ok);
    EXPECT_EQ(found, newer);
    EXPECT_TRUE(lower.isErased());
    EXPECT_EQ(groups->keys().size(), 2u);
    EXPECT_EQ(groups->remove(QStringLiteral("A")), NcStatus::Ok);
    EXPECT_EQ(groups->remove(QStringLiteral("A")), NcStatus::NotFound);
    EXPECT_FALSE(groups->has(QStringLiteral("A")));
    NcDbObjectId id;
    NcDbGroup group;
    EXPECT_EQ(groups->setAt(QString(), &group, id), NcStatus::InvalidInput);
    EXPECT_EQ(groups->getAt(QStringLiteral("A"), found), NcStatus::NotFound);
    groups->close();
}

TEST_F(Tables, AnErasedGroupIsGoneFromItsDictionary)
{
    NcDbDictionary* groups = nullptr;
    ASSERT_EQ(drawing.getGroupDictionary(groups, kForWrite), NcStatus::Ok);
    auto* group = new NcDbGroup;
    group->append(add(new NcDbPoint));
    NcDbObjectId id;
    groups->setAt(QStringLiteral("g"), group, id);
    group->erase();
    group->close();
    EXPECT_FALSE(groups->has(QStringLiteral("g")));
    EXPECT_TRUE(groups->keys().empty());
    groups->close();
}

TEST_F(Tables, SummaryKeysAreAddedOnceAndSetWhenThere)
{
    NcDbDatabaseSummaryInfo info;
    EXPECT_EQ(ncdbGetSummaryInfo(&drawing, info), NcStatus::Ok);
    EXPECT_EQ(info.setCustomSummaryInfo(QStringLiteral("k"), QStringLiteral("v")), NcStatus::NotFound);
    EXPECT_EQ(info.addCustomSummaryInfo(QStringLiteral("k"), QStringLiteral("v")), NcStatus::Ok);
    EXPECT_EQ(info.addCustomSummaryInfo(QStringLiteral("k"), QStringLiteral("w")), NcStatus::Duplicate);
    EXPECT_EQ(info.setCustomSummaryInfo(QStringLiteral("k"), QStringLiteral("w")), NcStatus::Ok);
    EXPECT_EQ(ncdbPutSummaryInfo(&drawing, info), NcStatus::Ok);
    NcDbDatabaseSummaryInfo back;
    ncdbGetSummaryInfo(&drawing, back);
    QString value;
    EXPECT_EQ(back.getCustomSummaryInfo(QStringLiteral("k"), value), NcStatus::Ok);
    EXPECT_EQ(value, QStringLiteral("w"));
    EXPECT_EQ(back.getCustomSummaryInfo(QStringLiteral("none"), value), NcStatus::NotFound);
    EXPECT_EQ(ncdbGetSummaryInfo(nullptr, back), NcStatus::InvalidInput);
}

TEST_F(Tables, ViewportsTellTheirScaleAndBorder)
{
    auto* viewport = new NcDbViewport;
    viewport->setGeometry({100, 50, 0}, 200, 100);
    viewport->setView({1000, 2000}, 50);
    viewport->setTwistAngle(0.25);
    EXPECT_DOUBLE_EQ(viewport->customScale(), 2.0);
    EXPECT_FALSE(viewport->isNonRectClipOn());
    EXPECT_EQ(viewport->setUcs({}, {1, 0, 0}, {2, 0, 0}), NcStatus::InvalidInput);
    const NcDbObjectId border = add(new NcDbPolyline, blockNamed(QStringLiteral("*Paper_Space")));
    EXPECT_EQ(viewport->setNonRectClipEntityId(drawing.clayer()), NcStatus::NotFound);
    EXPECT_EQ(viewport->setNonRectClipEntityId(border), NcStatus::Ok);
    EXPECT_EQ(viewport->nonRectClipEntityId(), border);
    const NcDbObjectId id = add(viewport, blockNamed(QStringLiteral("*Paper_Space")));
    const std::unique_ptr<NcDbEntity> copy(read<NcDbViewport>(id).clone());
    EXPECT_EQ(static_cast<NcDbViewport&>(*copy).twistAngle(), 0.25);
    expectPoint(copy->extents()->min, 0, 0);
}

} // namespace
