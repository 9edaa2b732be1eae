#pragma once
// Wells with logs in a fresh database, and an empty drawing with layers for maps.

#include "analysis/maps/epochs.h"
#include "analysis/maps/map_place.h"
#include "hostkit/layers.h"
#include "hostkit/model_space.h"
#include "support/session_database.h"

#include <drawing/application.h>

#include <cstring>

class MapFixture : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        closeAllDocuments();
        ncDocManagerPtr()->appContextNewDocument(QString());
        ensureLayer(QStringLiteral("MAP"), 7);
        ensureLayer(QStringLiteral("BORDER"), 7);
        database.exec(
            "insert into devices (device_id, name, serial) overriding system value values (1, 'К', 'SN');"
            "insert into performers (performer_id, fullname, name) overriding system value values (1, 'О', 'О');"
            "insert into states (state_id, note, colorindex) values ('lost', 'Утрачен', 1);");
        session().reloadStates();
        session().baseCycleId = 1;
    }
    void TearDown() override
    {
        closeAllDocuments();
        session().predictions.clear();
        session().predictionOrder.clear();
        session().baseCycleId = -1;
        SessionDatabase::TearDown();
    }

    static MapPlace position(int id = 1)
    {
        MapPlace place;
        place.positionId = id;
        return place;
    }
    static Epochs cycles(int base = 1, int current = 2)
    {
        Epochs epochs;
        epochs.base = base;
        epochs.current = current;
        return epochs;
    }

    void addWell(int id, const char* name, double x, double y, double z, double h, const char* log,
                 const char* state = "exist", int position = 1, int cycle = 2)
    {
        database.exec(
            QStringLiteral("insert into ts_elements (element_id, type_id, element_name, state_id, position_id, "
                           "x, y, z, h, block_rotation, marker_rotation, scale) overriding system value values (%1, "
                           "'ts', '%2', '%3', %4, "
                           "%5, %6, %7, %8, 0, 0, 1)")
                .arg(id)
                .arg(name)
                .arg(state)
                .arg(position)
                .arg(x)
                .arg(y)
                .arg(z)
                .arg(h));
        if (log)
            addLog(id, cycle, log);
    }
    void addLog(int well, int cycle, const char* log)
    {
        database.exec(
            QStringLiteral("insert into ts_meas (element_id, cycle_id, device_id, date, t_vozd, meas, performer_id) "
                           "values (%1, %2, 1, '2023-07-15', 0, '%3', 1)")
                .arg(well)
                .arg(cycle)
                .arg(log));
    }

    void addMark(int id, const char* name, double x, double y, const char* state = "exist", int position = 1)
    {
        database.exec(QStringLiteral("insert into dm_elements (element_id, type_id, element_name, state_id, "
                                     "position_id, x, y, z, h) overriding system value values (%1, 'dm', '%2', '%3', "
                                     "%4, %5, %6, 0, 0)")
                          .arg(id)
                          .arg(name)
                          .arg(state)
                          .arg(position)
                          .arg(x, 0, 'f', 4)
                          .arg(y, 0, 'f', 4));
    }
    // An elevation in metres, or the word NULL.
    void addElevation(int mark, int cycle, const char* elevation)
    {
        database.exec(QStringLiteral("insert into dm_meas (element_id, cycle_id, date, meas) values (%1, %2, "
                                     "'2023-07-15', %3)")
                          .arg(mark)
                          .arg(cycle)
                          .arg(elevation));
    }
    // A stored forecast without marks.
    void addForecast(int id, const char* name)
    {
        database.exec(QStringLiteral("insert into dm_predictions (prediction_id, name, prediction_date) overriding "
                                     "system value values (%1, '%2', '2026-01-01')")
                          .arg(id)
                          .arg(name));
        session().reloadPredictions();
    }
    void addForecastElevation(int mark, int forecast, double elevation)
    {
        database.exec(QStringLiteral("insert into dm_predictions_data (element_id, prediction_id, prediction_date, "
                                     "meas) values (%1, %2, '2026-01-01', %3)")
                          .arg(mark)
                          .arg(forecast)
                          .arg(elevation, 0, 'f', 4));
    }

    // Five wells in a square with one in its middle, colder to the east.
    void addSquare()
    {
        addWell(1, "ТС.1", 0, 0, 100, 0.5, "1.00:-0.20|3.00:-0.40");
        addWell(2, "ТС.2", 100, 0, 100, 0.5, "1.00:-4.00|3.00:-4.50");
        addWell(3, "ТС.3", 100, 100, 100, 0.5, "1.00:-4.20|3.00:-4.60");
        addWell(4, "ТС.4", 0, 100, 100, 0.5, "1.00:-0.10|3.00:-0.30");
        addWell(5, "ТС.5", 50, 50, 100, 0.5, "1.00:-2.00|3.00:-2.50");
    }

    NcDbObjectId addBorder(const std::vector<NcGePoint2d>& corners, const QString& layer = QStringLiteral("BORDER"))
    {
        auto polyline = std::make_unique<NcDbPolyline>();
        for (const NcGePoint2d& corner : corners)
            polyline->addVertexAt(polyline->numVerts(), corner);
        polyline->setClosed(true);
        polyline->setLayer(layer);
        return appendToModelSpace(std::move(polyline));
    }

    template <class Entity>
    static NcDbObjectIdArray entities(const QString& layer = QString())
    {
        NcDbObjectIdArray found;
        const auto space = openModelSpace(kForRead);
        const std::unique_ptr<NcDbBlockTableRecordIterator> walk(space->newIterator());
        for (; !walk->done(); walk->step()) {
            NcDbObjectId id;
            walk->getEntityId(id);
            const Opened<Entity> entity(id, kForRead);
            if (entity && (layer.isEmpty() || entity->layer() == layer))
                found.push_back(id);
        }
        return found;
    }

    static QStringList groupNames()
    {
        NcDbDictionary* opened = nullptr;
        workingDatabase()->getGroupDictionary(opened, kForRead);
        const Opened<NcDbDictionary> groups(opened);
        QStringList names;
        for (const QString& key : groups->keys())
            names << key;
        return names;
    }
};
