// A drawing of its own for each test, and short ways to fill it.
#pragma once

#include <drawing/audit.h>
#include <drawing/host_access.h>

#include <gtest/gtest.h>

#include <cmath>

const double kPi = 3.141592653589793;

class DrawingTest : public ::testing::Test {
protected:
    void SetUp() override { ncdbHostApplicationServices()->setWorkingDatabase(&drawing); }

    // No test leaves anything open, and each leaves a sound drawing unless it says so.
    void TearDown() override
    {
        EXPECT_EQ(HostAccess::openObjectCount(), 0);
        if (checkSoundness)
            for (const AuditFinding& finding : audit(drawing))
                ADD_FAILURE() << finding.text.toStdString();
        ncdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }

    NcDbObjectId blockNamed(const QString& name) { return HostAccess::recordId(drawing, drawing.blockTableId(), name); }
    NcDbObjectId modelSpace() { return blockNamed(QStringLiteral("*Model_Space")); }

    NcStatus append(NcDbEntity* entity, NcDbObjectId block, NcDbObjectId* id = nullptr)
    {
        NcDbBlockTableRecord* record = nullptr;
        EXPECT_EQ(ncdbOpenObject(record, block, kForWrite), NcStatus::Ok);
        NcDbObjectId given;
        const NcStatus status = record->appendNcDbEntity(given, entity);
        record->close();
        if (isOk(status))
            entity->close();
        else
            delete entity;
        if (id)
            *id = given;
        return status;
    }
    NcDbObjectId add(NcDbEntity* entity, NcDbObjectId block = {})
    {
        NcDbObjectId id;
        EXPECT_EQ(append(entity, block.isNull() ? modelSpace() : block, &id), NcStatus::Ok);
        return id;
    }

    NcDbObjectId addLayer(const QString& name)
    {
        NcDbLayerTable* table = nullptr;
        EXPECT_EQ(drawing.getSymbolTable(table, kForWrite), NcStatus::Ok);
        auto* layer = new NcDbLayerTableRecord;
        layer->setName(name);
        NcDbObjectId id;
        EXPECT_EQ(table->add(id, layer), NcStatus::Ok);
        layer->close();
        table->close();
        return id;
    }

    NcDbObjectId addBlock(const QString& name) { return addBlockTo(drawing, name); }
    static NcDbObjectId addBlockTo(NcDbDatabase& database, const QString& name)
    {
        NcDbBlockTable* table = nullptr;
        EXPECT_EQ(database.getSymbolTable(table, kForWrite), NcStatus::Ok);
        auto* block = new NcDbBlockTableRecord;
        block->setName(name);
        NcDbObjectId id;
        EXPECT_EQ(table->add(id, block), NcStatus::Ok);
        block->close();
        table->close();
        return id;
    }

    NcDbObjectId addTag(NcDbObjectId block, const QString& tag, const NcGePoint3d& at = {})
    {
        auto* definition = new NcDbAttributeDefinition;
        definition->setTag(tag);
        definition->setPosition(at);
        definition->setAlignmentPoint(at);
        return add(definition, block);
    }

    // A reference in model space with one attribute, as a command makes it.
    NcDbObjectId insert(NcDbObjectId block, const QString& tag, const QString& text, const NcGePoint3d& at = {})
    {
        const NcDbObjectId id = add(new NcDbBlockReference(at, block));
        addAttribute(id, tag, text);
        return id;
    }
    NcDbObjectId addAttribute(NcDbObjectId reference, const QString& tag, const QString& text)
    {
        NcDbBlockReference* opened = nullptr;
        EXPECT_EQ(ncdbOpenObject(opened, reference, kForWrite), NcStatus::Ok);
        auto* attribute = new NcDbAttribute;
        attribute->setPosition(opened->position());
        attribute->setTag(tag);
        attribute->setTextString(text);
        NcDbObjectId id;
        EXPECT_EQ(opened->appendAttribute(id, attribute), NcStatus::Ok);
        attribute->close();
        opened->close();
        return id;
    }

    // Opens, changes, closes.
    template <class T, class Change>
    void change(NcDbObjectId id, const Change& what)
    {
        T* object = nullptr;
        ASSERT_EQ(ncdbOpenObject(object, id, kForWrite), NcStatus::Ok);
        what(*object);
        object->close();
    }
    NcStatus erase(NcDbObjectId id, bool erasing = true)
    {
        NcDbObject* object = nullptr;
        const NcStatus status = ncdbOpenNcDbObject(object, id, kForWrite, NcDbObject::desc(), true);
        if (!isOk(status))
            return status;
        const NcStatus result = object->erase(erasing);
        object->close();
        return result;
    }
    template <class T>
    const T& read(NcDbObjectId id)
    {
        return *HostAccess::objectAs<T>(id);
    }

    NcDbDatabase drawing;
    bool checkSoundness = true;
};

inline void expectPoint(const NcGePoint3d& p, double x, double y, double z = 0.0)
{
    EXPECT_NEAR(p.x, x, 1e-9);
    EXPECT_NEAR(p.y, y, 1e-9);
    EXPECT_NEAR(p.z, z, 1e-9);
}
