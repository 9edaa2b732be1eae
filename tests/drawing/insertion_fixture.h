#pragma once
// The insertion commands over a project and a drawing with all definitions.

#include "drawing/insertion.h"
#include "drawing/insertion_family.h"
#include "elements/element_block.h"
#include "support/element_drawing.h"
#include "support/position_session.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

class Insertion : public ::testing::Test {
protected:
    Insertion()
    {
        drawing.addAllKinds();
        session().placementScale = 2.0;
        for (const Family& family : families())
            enumeratorOf(family.key) = {"ЭЛ", 7, 3};
    }
    ~Insertion() override
    {
        session().placementScale = 1.0;
        for (const Family& family : families())
            enumeratorOf(family.key) = Enumerator();
    }
    void run(int kind)
    {
        insertElements(kind, [this]() {
            ++catalogAsked;
            return chosen;
        });
    }
    QVector<QStringList> rowsOf(const Family& family, const QString& columns)
    {
        return database->rows("select " + columns + " from " + family.elements + " order by element_id");
    }

    PositionSession database;
    ElementDrawing drawing;
    ScriptedPrompts host;
    std::optional<int> chosen = 33;
    int catalogAsked = 0;
};
