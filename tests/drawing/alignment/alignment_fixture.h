#pragma once
// A drawing that is an open document, with the definitions of all kinds; a
// database with two positions; prompts from a list.

#include "drawing/alignment/element_blocks.h"
#include "entry/command_table.h"
#include "hostkit/model_space.h"
#include "support/element_drawing.h"
#include "support/position_session.h"
#include "support/scripted_prompts.h"

#include <drawing/application.h>

#include <cmath>
#include <gtest/gtest.h>

constexpr double quarterTurn = M_PI / 2;

class AlignmentFixture : public ::testing::Test {
protected:
    AlignmentFixture()
    {
        closeAllDocuments();
        ncDocManagerPtr()->appContextNewDocument(QString());
        for (int kind = 0; kind < kindCount; ++kind) {
            if (!kinds()[size_t(kind)].blockName.isEmpty())
                ElementDrawing::addKind(drawing(), kind);
        }
    }
    ~AlignmentFixture() override { closeAllDocuments(); }

    static NcDbDatabase& drawing() { return *workingDatabase(); }
    static NcDatabaseData& data() { return HostAccess::data(drawing()); }

    /// The command as the host runs it, guards included.
    static void run(const char* name)
    {
        for (const Command& command : commandTable()) {
            if (qstrcmp(command.name, name) == 0)
                return runCommand(command);
        }
        FAIL() << name;
    }

    struct Place {
        double x = 0.0, y = 0.0, rotation = 0.0, scale = 1.0;
    };
    static NcDbObjectId insert(int kind, int elementId, const Place& place, const TextMap& properties = {})
    {
        ElementBlock element(kind, StateColors());
        element.setAttribute("element_id", QString::number(elementId));
        element.setAttribute("name", QString("Э%1").arg(elementId));
        element.x = place.x;
        element.y = place.y;
        element.z = 1.5;
        element.blockRotation = place.rotation;
        element.scale = place.scale;
        for (auto it = properties.begin(); it != properties.end(); ++it)
            EXPECT_TRUE(element.setDynProp(it.key(), it.value())) << it.key();
        EXPECT_TRUE(element.insertBlock());
        return entitiesOfModelSpace()->back();
    }

    static double property(NcDbObjectId id, const char* name)
    {
        return ElementDrawing::dynProp(id, QString::fromUtf8(name)).toDouble();
    }
    static double rotation(NcDbObjectId id) { return ElementDrawing::reference(id).rotation(); }
    /// The label's vector of the block, in its own coordinates.
    static void expectVector(NcDbObjectId id, const QString& name, double x, double y)
    {
        EXPECT_NEAR(ElementDrawing::dynProp(id, name + " X").toDouble(), x, 6e-5) << name;
        EXPECT_NEAR(ElementDrawing::dynProp(id, name + " Y").toDouble(), y, 6e-5) << name;
    }
    /// Everything that a block holds, to see that it was left alone.
    static QStringList state(NcDbObjectId id)
    {
        const ElementBlock e = elementOf(id);
        QStringList texts{e.blockName, e.propsText(), e.group};
        for (const double value : {e.x, e.y, e.z, e.blockRotation, e.scale, double(e.colorIndex)})
            texts.append(QString::number(value, 'g', 15));
        return texts;
    }

    static void turnUcs(double angle, const NcGePoint3d& origin = {})
    {
        NcGeMatrix3d ucs;
        ncedSetCurrentUCS(ucs.setCoordSystem(origin, {std::cos(angle), std::sin(angle), 0},
                                             {-std::sin(angle), std::cos(angle), 0}, {0, 0, 1}));
    }

    static NcDbObjectId add(std::unique_ptr<NcDbEntity> entity, const QString& layer = "0")
    {
        EXPECT_TRUE(isOk(entity->setLayer(layer)));
        return appendToModelSpace(std::move(entity));
    }
    static void addLayer(const QString& name, const QString& linetype = "Continuous")
    {
        auto layer = std::make_unique<NcDbLayerTableRecord>();
        layer->setLinetype(linetype);
        HostAccess::addRecord(*HostAccess::objectAs<NcDbLayerTable>(drawing().layerTableId()), std::move(layer), name);
    }

    QStringList faults() const
    {
        QStringList texts;
        for (const AuditFinding& finding : audit(drawing()))
            texts.append(finding.text);
        if (HostAccess::openObjectCount() != 0)
            texts.append(QString("open objects: %1").arg(HostAccess::openObjectCount()));
        return texts;
    }

    PositionSession database;
    ScriptedPrompts host;
};
