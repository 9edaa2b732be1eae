#include "drawing_fixture.h"

namespace {

class Objects : public DrawingTest { };

TEST_F(Objects, AFreshObjectHasNoIdAndTakesChanges)
{
    NcDbLine line({0, 0, 0}, {1, 1, 0});
    EXPECT_TRUE(line.objectId().isNull());
    line.setEndPoint({5, 0, 0});
    EXPECT_EQ(line.endPoint(), NcGePoint3d(5, 0, 0));
    EXPECT_EQ(line.close(), NcStatus::NotInDatabase);
    EXPECT_EQ(line.erase(), NcStatus::NotInDatabase);
}

TEST_F(Objects, AnAppendedObjectIsOpenUntilItIsClosed)
{
    NcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(ncdbOpenObject(space, modelSpace(), kForWrite), NcStatus::Ok);
    auto* line = new NcDbLine;
    EXPECT_EQ(space->appendNcDbEntity(line), NcStatus::Ok);
    EXPECT_EQ(HostAccess::openObjectCount(), 2);
    NcDbObject* second = nullptr;
    EXPECT_EQ(ncdbOpenNcDbObject(second, line->objectId(), kForRead), NcStatus::WasOpenForWrite);
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(line->close(), NcStatus::Ok);
    EXPECT_EQ(line->close(), NcStatus::InvalidInput) << "a second close is one too many";
    space->close();
    EXPECT_EQ(HostAccess::openObjectCount(), 0);
}

TEST_F(Objects, ManyReadersButOneWriter)
{
    const NcDbObjectId id = add(new NcDbLine);
    NcDbObject *a = nullptr, *b = nullptr, *writer = nullptr;
    EXPECT_EQ(ncdbOpenNcDbObject(a, id, kForRead), NcStatus::Ok);
    EXPECT_EQ(ncdbOpenNcDbObject(b, id, kForRead), NcStatus::Ok);
    EXPECT_EQ(ncdbOpenNcDbObject(writer, id, kForWrite), NcStatus::WasOpenForRead);
    a->close();
    b->close();
    EXPECT_EQ(ncdbOpenNcDbObject(writer, id, kForWrite), NcStatus::Ok);
    EXPECT_EQ(ncdbOpenNcDbObject(a, id, kForWrite), NcStatus::WasOpenForWrite);
    writer->close();
}

TEST_F(Objects, OpeningTestsTheClass)
{
    const NcDbObjectId id = add(new NcDbLine);
    NcDbBlockReference* reference = nullptr;
    EXPECT_EQ(ncdbOpenObject(reference, id, kForRead), NcStatus::NotThatClass);
    NcDbEntity* entity = nullptr;
    EXPECT_EQ(ncdbOpenObject(entity, id, kForRead), NcStatus::Ok);
    EXPECT_STREQ(entity->isA()->name(), "NcDbLine");
    entity->close();
}

TEST_F(Objects, OpeningNothingFails)
{
    NcDbObject* object = reinterpret_cast<NcDbObject*>(8);
    EXPECT_EQ(ncdbOpenNcDbObject(object, NcDbObjectId(), kForRead), NcStatus::InvalidInput);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(ncdbOpenNcDbObject(object, NcDbObjectId(&drawing, 0xFFFF), kForRead), NcStatus::NotFound);
}

TEST_F(Objects, AnIdOfADrawingThatIsGoneIsNotValid)
{
    NcDbObjectId id;
    {
        NcDbDatabase other;
        id = other.clayer();
        EXPECT_TRUE(id.isValid());
    }
    EXPECT_FALSE(id.isValid());
    NcDbObject* object = nullptr;
    EXPECT_EQ(ncdbOpenNcDbObject(object, id, kForRead), NcStatus::NotFound);
}

TEST_F(Objects, SettersChangeNothingOfAnObjectOpenForRead)
{
    const NcDbObjectId id = add(new NcDbText({1, 2, 0}, QStringLiteral("a"), 2.5));
    NcDbText* text = nullptr;
    ASSERT_EQ(ncdbOpenObject(text, id, kForRead), NcStatus::Ok);
    EXPECT_EQ(text->setTextString(QStringLiteral("b")), NcStatus::NotOpenForWrite);
    text->setHeight(7);
    EXPECT_EQ(text->setColorIndex(3), NcStatus::NotOpenForWrite);
    EXPECT_EQ(text->transformBy(NcGeMatrix3d::translation({1, 0, 0})), NcStatus::NotOpenForWrite);
    EXPECT_EQ(text->erase(), NcStatus::NotOpenForWrite);
    text->close();
    EXPECT_EQ(read<NcDbText>(id).textString(), QStringLiteral("a"));
    EXPECT_EQ(read<NcDbText>(id).height(), 2.5);
    EXPECT_EQ(read<NcDbText>(id).position(), NcGePoint3d(1, 2, 0));
    EXPECT_EQ(read<NcDbText>(id).colorIndex(), 256);
}

TEST_F(Objects, AnErasedObjectOpensOnlyWhenAskedAndComesBack)
{
    const NcDbObjectId id = add(new NcDbLine);
    EXPECT_EQ(erase(id), NcStatus::Ok);
    EXPECT_TRUE(id.isErased());
    EXPECT_TRUE(id.isValid());
    NcDbObject* object = nullptr;
    EXPECT_EQ(ncdbOpenNcDbObject(object, id, kForRead), NcStatus::WasErased);
    EXPECT_EQ(erase(id, false), NcStatus::Ok);
    EXPECT_EQ(ncdbOpenNcDbObject(object, id, kForRead), NcStatus::Ok);
    object->close();
}

TEST_F(Objects, AnObjectBelongsToOneOwner)
{
    NcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(ncdbOpenObject(space, modelSpace(), kForWrite), NcStatus::Ok);
    auto* line = new NcDbLine;
    EXPECT_EQ(space->appendNcDbEntity(line), NcStatus::Ok);
    EXPECT_EQ(space->appendNcDbEntity(line), NcStatus::AlreadyInDatabase);
    EXPECT_EQ(line->ownerId(), modelSpace());
    line->close();
    space->close();
    EXPECT_EQ(space->appendNcDbEntity(nullptr), NcStatus::InvalidInput);
}

TEST_F(Objects, AppendingNeedsTheBlockOpenForWrite)
{
    NcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(ncdbOpenObject(space, modelSpace(), kForRead), NcStatus::Ok);
    NcDbLine line;
    EXPECT_EQ(space->appendNcDbEntity(&line), NcStatus::NotOpenForWrite);
    space->close();
}

TEST_F(Objects, SelectionNamesAndIdsTurnIntoEachOther)
{
    const NcDbObjectId id = add(new NcDbLine);
    NcSelectionName name;
    EXPECT_EQ(ncdbGetAdsName(name, id), NcStatus::Ok);
    NcDbObjectId back;
    EXPECT_EQ(ncdbGetObjectId(back, name), NcStatus::Ok);
    EXPECT_EQ(back, id);
    EXPECT_EQ(ncdbGetObjectId(back, NcSelectionName()), NcStatus::NotFound);
    EXPECT_TRUE(back.isNull());
    EXPECT_EQ(ncdbGetAdsName(name, NcDbObjectId()), NcStatus::NotFound);
}

TEST_F(Objects, ADrawingWithOpenObjectsIsNotReadInto)
{
    NcDbLayerTable* table = nullptr;
    ASSERT_EQ(drawing.getSymbolTable(table, kForRead), NcStatus::Ok);
    EXPECT_EQ(drawing.readDwgFile(QStringLiteral("/nowhere/at/all.dwg")), NcStatus::WasOpenForWrite);
    table->close();
}

TEST_F(Objects, AFileThatCannotBeReadLeavesTheDrawing)
{
    const NcDbObjectId id = add(new NcDbLine);
    EXPECT_EQ(drawing.readDwgFile(QStringLiteral("/nowhere/at/all.dwg")), NcStatus::FileAccess);
    EXPECT_TRUE(id.isValid());
    EXPECT_TRUE(drawing.clayer().isValid());
}

TEST_F(Objects, ListenersHearOfEachChange)
{
    struct Listener : DrawingListener {
        void objectChanged(NcDbObjectId id) override { heard.push_back(id); }
        NcDbObjectIdArray heard;
    } listener;
    HostAccess::data(drawing).listeners.push_back(&listener);
    const NcDbObjectId id = add(new NcDbLine);
    EXPECT_EQ(listener.heard, NcDbObjectIdArray{id});
    const quint64 before = HostAccess::data(drawing).changeCount;
    change<NcDbLine>(id, [](NcDbLine& line) { line.setEndPoint({3, 3, 0}); });
    EXPECT_EQ(listener.heard.size(), 2u);
    EXPECT_GT(HostAccess::data(drawing).changeCount, before);
    HostAccess::data(drawing).listeners.clear();
}

} // namespace
