// Marks along an angled line, measured in two cycles.
#pragma once

#include "analysis/profiles/profile_line.h"
#include "hostkit/layers.h"
#include "hostkit/model_space.h"
#include "support/form_texts.h"
#include "support/scripted_prompts.h"
#include "support/session_database.h"

#include <drawing/application.h>
#include <script/modal_driver.h>

class SettlementFixture : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        closeAllDocuments();
        ncDocManagerPtr()->appContextNewDocument(QString());
        database.exec(
            "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
            "overriding system value values (1, 'dm', 'М.1', 'exist', 1, 0, 0, 10, 0), "
            "(2, 'dm', 'М.2', 'exist', 1, 50, 0.5, 10, 0), (3, 'dm', 'М.3', 'exist', 1, 100, 60, 10, 0), "
            "(4, 'dm', 'М.4', 'exist', 1, 99.8, 80, 10, 0), (5, 'dm', 'М.5', 'exist', 1, 20, 1, 10, 0), "
            "(6, 'dm', 'М.6', 'exist', 2, 100, 100, 10, 0);"
            "insert into dm_meas (element_id, cycle_id, date, meas) values (1, 1, '2022-12-10', 10), "
            "(2, 1, '2022-12-10', 10), (3, 1, '2022-12-10', 10), (4, 1, '2022-12-10', 10), (5, 1, '2022-12-10', 10), "
            "(6, 1, '2022-12-10', 10), (1, 2, '2023-07-10', 9.998), (2, 2, '2023-07-10', 9.988), "
            "(3, 2, '2023-07-10', 10.004), (5, 2, '2023-07-10', 9.99), (6, 2, '2023-07-10', 9.98)");
        session().baseCycleId = 1;
        session().currentPositionName = QStringLiteral("Позиция 1");
    }
    void TearDown() override
    {
        closeAllDocuments();
        session().baseCycleId = -1;
        session().currentPositionName.clear();
        session().predictions.clear();
        session().predictionOrder.clear();
        SessionDatabase::TearDown();
    }

    // Along the first three marks, then up past the others: 200 m.
    static ProfileLine angle() { return ProfileLine({{0, 0, 0}, {100, 0, 0}, {100, 100, 0}}, false); }
    static NcDbObjectId drawAngle()
    {
        auto line = std::make_unique<NcDbPolyline>();
        for (const NcGePoint2d& corner : {NcGePoint2d(0, 0), NcGePoint2d(100, 0), NcGePoint2d(100, 100)})
            line->addVertexAt(line->numVerts(), corner);
        return appendToModelSpace(std::move(line));
    }
    void storeProfile(int id, const char* name, const char* marks)
    {
        database.exec(QStringLiteral("insert into deformation_profiles (profile_id, position_id, profile_name, geom) "
                                     "overriding system value values (%1, 1, '%2', "
                                     "ST_GeomFromText('LINESTRING(0 0,100 0,100 100)',9999));"
                                     "insert into deformation_profiles_points (profile_id, element_id, param, dist) "
                                     "values %3")
                          .arg(id)
                          .arg(name, marks));
    }
    static QStringList names(const QTableWidget& table)
    {
        QStringList texts;
        for (int line = 0; line < table.rowCount(); ++line)
            texts << table.item(line, 0)->text();
        return texts;
    }
    static QStringList row(const QTableWidget& table, int line)
    {
        QStringList texts;
        for (int column = 0; column < table.columnCount(); ++column)
            texts << table.item(line, column)->text();
        return texts;
    }
    static const QTableWidget& marks(const QWidget& form) { return *child<QTableWidget>(form, "SettlesTable"); }
    static QString status(const QWidget& form) { return child<QLabel>(form, "StatusLabel")->text(); }

    template <class Entity>
    static NcDbObjectIdArray entities()
    {
        NcDbObjectIdArray found;
        for (const NcDbObjectId id : entitiesOfModelSpace().value_or(NcDbObjectIdArray())) {
            if (const Opened<Entity> entity(id, kForRead); entity)
                found.push_back(id);
        }
        return found;
    }

    ModalDriver driver;
};
