#pragma once
// A position with rows, a drawing with blocks, and what a synchronisation asks
// and prints.

#include "base/placeholders.h"
#include "base/text.h"
#include "drawing/sync/database_to_drawing.h"
#include "drawing/sync/drawing_to_database.h"
#include "elements/element_block.h"
#include "expected_texts.h"
#include "hostkit/error_markers.h"
#include "hostkit/model_space.h"
#include "support/element_drawing.h"
#include "support/position_session.h"
#include "support/scripted_prompts.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

/// Fills %d and %s, each once.
inline QString told(QString text, int id, const QString& name = {}, const QString& other = {})
{
    text.replace(QStringLiteral("%d"), QString::number(id));
    for (const QString& next : {name, other}) {
        const int at = text.indexOf(QStringLiteral("%s"));
        if (at >= 0)
            text.replace(at, 2, next);
    }
    return text;
}

class SyncFixture : public ::testing::Test {
protected:
    SyncFixture()
    {
        drawing.addAllKinds();
        session().projectName = "Проект";
        session().connected = true;
        database->exec("insert into states (state_id, note, colorindex) values ('lost', 'Утрачен', 1)");
        setProperty("project", "Проект");
        setProperty("position_id", QString::number(PositionSession::position));
    }
    ~SyncFixture() override
    {
        session().projectName.clear();
        session().connected = false;
    }

    // --- the drawing -------------------------------------------------------------
    void setProperty(const QString& key, const QString& value)
    {
        NcDbDatabaseSummaryInfo info;
        ncdbGetSummaryInfo(workingDatabase(), info);
        if (!isOk(info.setCustomSummaryInfo(key, value)))
            info.addCustomSummaryInfo(key, value);
        ncdbPutSummaryInfo(workingDatabase(), info);
    }
    static NcDbObjectId addBlock(int kind, const QString& id, const QString& name, double x = 0, double y = 0,
                                 double z = 0)
    {
        ElementBlock block(kind, StateColors());
        block.setAttribute("element_id", id);
        block.setAttribute("name", name);
        block.x = x;
        block.y = y;
        block.z = z;
        EXPECT_TRUE(block.insertBlock());
        return entities().back();
    }
    static NcDbObjectId addBlock(int kind, int id, const QString& name, double x = 0, double y = 0, double z = 0)
    {
        return addBlock(kind, QString::number(id), name, x, y, z);
    }
    static NcDbObjectIdArray entities() { return entitiesOfModelSpace().value_or(NcDbObjectIdArray()); }
    static QString attribute(NcDbObjectId id, const QString& tag) { return ElementDrawing::attributes(id).value(tag); }
    /// Shapes on the error layer: "circle R X,Y,Z" and "line X,Y..X,Y", sorted.
    QStringList markers() const
    {
        QStringList shapes;
        for (const NcDbObjectId& id : entities()) {
            const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
            if (entity->layer() != errorLayerName())
                continue;
            if (const auto* circle = HostAccess::objectAs<NcDbCircle>(id))
                shapes << QString("circle %1 %2,%3,%4")
                              .arg(circle->radius())
                              .arg(circle->center().x)
                              .arg(circle->center().y)
                              .arg(circle->center().z);
            if (const auto* line = HostAccess::objectAs<NcDbLine>(id))
                shapes << QString("line %1,%2..%3,%4")
                              .arg(line->startPoint().x)
                              .arg(line->startPoint().y)
                              .arg(line->endPoint().x)
                              .arg(line->endPoint().y);
        }
        shapes.sort();
        return shapes;
    }
    static QString circle(double radius, double x, double y, double z = 0)
    {
        return QString("circle %1 %2,%3,%4").arg(radius).arg(x).arg(y).arg(z);
    }
    static QStringList cross(double x, double y)
    {
        const double arm = std::sqrt(5.0);
        return {QString("line %1,%2..%3,%4").arg(x - arm).arg(y - arm).arg(x + arm).arg(y + arm),
                QString("line %1,%2..%3,%4").arg(x - arm).arg(y + arm).arg(x + arm).arg(y - arm)};
    }
    static QStringList sorted(QStringList shapes)
    {
        shapes.sort();
        return shapes;
    }

    // --- the database ------------------------------------------------------------
    void addRow(const Family& family, int id, const QString& name, int position = PositionSession::position,
                int kind = -1, double x = 100, double y = 200)
    {
        const int made = kind == -1 ? family.kinds.first() : kind;
        database->exec(fill("insert into %1 (element_id, type_id, element_name, state_id, position_id, x, y, z, h, "
                            "block_rotation, marker_rotation, scale) values (%2, '%3', '%4', 'exist', %5, %6, %7, "
                            "3, 4, 0, 0, 1); insert into %8 (element_id, props) values (%2, '%9')",
                            family.elements, id, kinds()[size_t(made)].typeId, name, position, fixed(x, 9), fixed(y, 9),
                            family.dynprops, ElementBlock(made, StateColors()).propsText()));
    }
    QString cell(const Family& family, int id, const QString& column)
    {
        return database->value(QString("select %1 from %2 left join %3 using (element_id) where element_id = %4")
                                   .arg(column, family.elements, family.dynprops)
                                   .arg(id));
    }
    QString ids(const Family& family)
    {
        return database->value(
            QString("select coalesce(string_agg(element_id::text, ',' order by element_id), '') from %1")
                .arg(family.elements));
    }

    // --- runs --------------------------------------------------------------------
    void toDatabase(const QString& keyword)
    {
        host.console.clear();
        host.keyword(keyword);
        syncDrawingToDatabase({[this](const QString& text) { return answer(warned, text); },
                               [this](const QString& text) { return answer(asked, text); }});
        host.dropUnused();
    }
    void toDrawing(unsigned mask = allFamiliesMask)
    {
        host.console.clear();
        clearErrorLayer();
        syncDatabaseToDrawing(PositionSession::position, SyncLevel::Position, mask);
    }
    bool answer(QStringList& list, const QString& text)
    {
        list.append(text);
        return yes;
    }

    PositionSession database;
    ElementDrawing drawing;
    ScriptedPrompts host;
    bool yes = false;   ///< what boxes are answered with
    QStringList warned; ///< texts of the boxes
    QStringList asked;
};

/// The same for each of the seven families.
class EveryFamily : public SyncFixture, public ::testing::WithParamInterface<FamilyKey> {
protected:
    const Family& family() const { return ::family(GetParam()); }
    const ExpectedTexts& texts() const { return expectedTexts(GetParam()); }
    int firstKind() const { return family().kinds.first(); }
    int lastKind() const { return family().kinds.last(); }
};

const auto allFamilyKeys = ::testing::Values(FamilyKey::Dm, FamilyKey::Ts, FamilyKey::Rp, FamilyKey::Ggs,
                                             FamilyKey::Igs, FamilyKey::Tss, FamilyKey::Tsg);

template <class Info>
std::string familyName(const Info& info)
{
    return family(info.param).shortKey.toStdString();
}
