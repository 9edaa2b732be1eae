#pragma once
// A position with an element of every family, its drawing open in the host, and
// a palette for the object inspector.

#include "drawing/inspector/forms/object_inspector.h"
#include "drawing/inspector/forms/object_inspector_page.h"
#include "elements/element_block.h"
#include "elements/passports/forms/inspector_pane.h"
#include "hostkit/model_space.h"
#include "support/console_capture.h"
#include "support/element_drawing.h"
#include "support/position_session.h"

#include <drawing/application.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

class InspectedDrawing : public ::testing::Test {
protected:
    void SetUp() override
    {
        closeAllDocuments();
        openDrawing();
        for (const Family& family : families())
            database->exec(
                QString("insert into %1 (element_id, type_id, element_name, state_id, position_id, x, y, z, h, "
                        "block_rotation, marker_rotation, scale) overriding system value values (1, '%2', "
                        "'Э-1', 'exist', 7, 10, 20, 30, 1, 0, 0, 1); insert into %3 (element_id, props) "
                        "values (1, 'старые')")
                    .arg(family.elements, kinds()[size_t(family.kinds.first())].typeId, family.dynprops));
        session().reloadStates();
        palette->resize(300, 480);
        place.page = [this] { return palette; };
        place.show = [this](bool visible) { palette->setVisible(visible); };
        place.isVisible = [this] { return palette->isVisible(); };
    }
    void TearDown() override
    {
        removeObjectInspector();
        closeAllDocuments();
        delete palette;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static void openDrawing()
    {
        openStartDocument();
        for (int kind = 0; kind < kindCount; ++kind) {
            if (!kinds()[size_t(kind)].blockName.isEmpty())
                ElementDrawing::addKind(*workingDatabase(), kind);
        }
    }
    static NcDbObjectId addBlock(int kind, const QString& id, double x = 10, double y = 20)
    {
        ElementBlock block(kind, StateColors());
        block.setAttribute("element_id", id);
        block.setAttribute("name", "Э-1");
        block.x = x;
        block.y = y;
        EXPECT_TRUE(block.insertBlock());
        return entitiesOfModelSpace()->back();
    }
    static NcDbObjectId addLine()
    {
        return appendToModelSpace(std::make_unique<NcDbLine>(NcGePoint3d(0, 0, 0), NcGePoint3d(1, 1, 0)));
    }
    static void erase(NcDbObjectId id)
    {
        const Opened<NcDbEntity> entity(id, kForWrite);
        ASSERT_TRUE(bool(entity));
        entity->erase();
    }

    void switchInspector() { toggleObjectInspector(place); }
    /// The pane that is shown; null for a text.
    InspectorPane* pane() const { return qobject_cast<InspectorPane*>(palette->content()); }
    /// The text that is shown; null for a pane.
    QString text() const
    {
        const auto* label = qobject_cast<QLabel*>(palette->content());
        return label ? label->text() : QString();
    }
    QString remark() const { return palette->findChild<QLabel*>("RemarkLabel")->text(); }
    QLineEdit* line(const char* name) const { return pane()->findChild<QLineEdit*>(name); }
    QPushButton* applyButton() const { return pane()->findChild<QPushButton*>("ApplyBtn"); }

    PositionSession database;
    ConsoleCapture console;
    ObjectInspectorPage* palette = new ObjectInspectorPage;
    InspectorPlace place;
};

constexpr const char* nothingSelected = "Не выбран элемент ГМН";
