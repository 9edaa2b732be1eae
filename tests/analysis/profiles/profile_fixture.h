// Wells and marks along a line in a fresh database, and the line in an empty drawing.
#pragma once

#include "analysis/maps/map_fixture.h"
#include "analysis/profiles/profile_record.h"
#include "support/form_texts.h"
#include "support/scripted_prompts.h"

#include <script/modal_driver.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

class ProfileFixture : public MapFixture {
protected:
    // Three wells by the x axis in both cycles, one without a log, one beside the line.
    void addWells()
    {
        addWell(1, "ТС.1", 0, 0.5, 100, 0.5, "1.00:-0.50|3.00:-1.50|5.00:-2.50");
        addWell(2, "ТС.2", 40, -0.5, 101, 0.5, "1.00:-1.00|3.00:-3.00|6.00:-4.00");
        addWell(3, "ТС.3", 90, 0, 99, 0.5, "1.00:1.00|3.00:-1.00|5.00:-2.00");
        addWell(4, "ТС.4", 60, 0, 100, 0.5, nullptr);
        addWell(5, "ТС.5", 50, 8, 100, 0.5, "1.00:-9.00");
        addWell(6, "Чужая", 70, 0, 100, 0.5, "1.00:-1.00|4.00:-2.00", "exist", 2);
        addLog(1, 1, "1.00:-1.50|3.00:-2.50");
        addLog(2, 1, "1.00:-2.00|3.00:-3.50|6.00:-4.50");
        addLog(3, 1, "1.00:-2.00|3.00:-2.00|5.00:-2.00");
    }

    // An elevation of nullptr was not measured.
    void addMeasured(int id, const char* name, double x, double y, const char* base, const char* current)
    {
        addMark(id, name, x, y);
        if (base)
            addElevation(id, 1, base);
        if (current)
            addElevation(id, 2, current);
    }

    void addMarks()
    {
        addMeasured(1, "М1", 0, 0, "10", "9.98");
        addMeasured(2, "М2", 20, 0.5, "10", "9.95");
        addMeasured(3, "М3", 50, 0, "10", nullptr);
        addMeasured(4, "М4", 90, 0, "10", "9.99");
        addMeasured(5, "М5", 50, 5, "10", "9.0");
    }
    void addNorms(const char* averageDiff)
    {
        database.exec(QStringLiteral("insert into positions_attributes (position_id, averagediff) values (1, %1)")
                          .arg(averageDiff));
    }

    NcDbObjectId addLine(const std::vector<NcGePoint2d>& corners = {{0, 0}, {50, 0}, {100, 0}})
    {
        auto polyline = std::make_unique<NcDbPolyline>();
        for (const NcGePoint2d& corner : corners)
            polyline->addVertexAt(polyline->numVerts(), corner);
        polyline->setLayer(QStringLiteral("BORDER"));
        return appendToModelSpace(std::move(polyline));
    }
    static ProfileLine straight() { return ProfileLine({{0, 0, 0}, {50, 0, 0}, {100, 0, 0}}, false); }

    int storeTemperatureProfile(const QString& name = QStringLiteral("Профиль 1"))
    {
        ProfileRecord record;
        record.positionId = 1;
        record.name = name;
        record.view.horizontal = 1.0;
        record.view.vertical = 5.0;
        record.view.picketStep = 200.0;
        record.view.byElevation = true;
        record.lineText = straight().text();
        for (const auto& [id, dist] : {std::make_pair(1, 0.0), std::make_pair(2, 40.0), std::make_pair(3, 90.0)}) {
            LineElement element;
            element.id = id;
            element.param = dist / 50.0;
            element.dist = dist;
            record.points.push_back(element);
        }
        EXPECT_TRUE(storeProfile(temperatureProfiles(), record, nullptr));
        return record.id;
    }
    int storeDeformationProfile(const std::vector<std::pair<int, double>>& marks, const QString& name)
    {
        ProfileRecord record;
        record.positionId = 1;
        record.name = name;
        record.lineText = straight().text();
        for (const auto& [id, dist] : marks) {
            LineElement element;
            element.id = id;
            element.param = dist / 50.0;
            element.dist = dist;
            record.points.push_back(element);
        }
        EXPECT_TRUE(storeProfile(deformationProfiles(), record, nullptr));
        return record.id;
    }

    static QStringList column(const QTableWidget& table, int column)
    {
        QStringList texts;
        for (int row = 0; row < table.rowCount(); ++row)
            texts << table.item(row, column)->text();
        return texts;
    }
    static QString label(const QWidget& form, const char* name) { return child<QLabel>(form, name)->text(); }
    QStringList drawnTexts()
    {
        QStringList texts;
        for (const NcDbObjectId id : entities<NcDbText>())
            texts << Opened<NcDbText>(id, kForRead)->textString();
        return texts;
    }

    ModalDriver driver;
};
