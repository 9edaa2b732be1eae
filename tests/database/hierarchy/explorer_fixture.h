#pragma once
// The project tree on a database with two objects, and a user at it.

#include "database/hierarchy/forms/project_explorer_widget.h"
#include "support/position_session.h"
#include "support/scripted_prompts.h"

#include <script/modal_driver.h>

#include <QAbstractButton>
#include <QTreeView>
#include <gtest/gtest.h>

class Explorer : public ::testing::Test {
protected:
    // Объект > Подобъект > Позиция, Другая; Объект > Пустой; Цех
    void SetUp() override
    {
        database_->exec("insert into objects (object_id, project_id, object) values (2, 1, 'Цех');"
                        "insert into subobjects (subobject_id, object_id, subobject) values (2, 1, 'Пустой');"
                        "alter table objects alter object_id restart with 10;"
                        "alter table subobjects alter subobject_id restart with 10;"
                        "alter table positions alter position_id restart with 10");
        session().currentObjectId = session().currentSubobjectId = 1;
        explorer_.setObjectName("explorer");
        explorer_.resize(280, 420);
        explorer_.refreshTree();
        explorer_.show();
    }
    void TearDown() override
    {
        EXPECT_TRUE(driver_.done()) << driver_.report();
        EXPECT_FALSE(host_.ranDry());
        session().currentObjectId = session().currentSubobjectId = -1;
        session().currentPositionId = PositionSession::position;
    }

    QTreeView& tree() { return *explorer_.findChild<QTreeView*>("ProjectTreeView"); }
    QAbstractButton& button(const char* name) { return *explorer_.findChild<QAbstractButton*>(name); }
    QModelIndex at(const QString& path)
    {
        QModelIndex place;
        for (const QString& name : path.split('/')) {
            QModelIndex found;
            for (int row = 0; row < tree().model()->rowCount(place); ++row) {
                const QModelIndex index = tree().model()->index(row, 0, place);
                if (index.data().toString() == name && !found.isValid())
                    found = index;
            }
            place = found;
            if (!place.isValid())
                break;
        }
        return place;
    }
    void choose(const QString& path)
    {
        ASSERT_TRUE(at(path).isValid()) << path.toStdString();
        tree().setCurrentIndex(at(path));
    }
    QStringList childrenOf(const QString& path)
    {
        QStringList names;
        const QModelIndex place = at(path);
        for (int row = 0; row < tree().model()->rowCount(place); ++row)
            names << tree().model()->index(row, 0, place).data().toString();
        return names;
    }
    ProjectNode nodeAt(const QString& path) { return at(path).data(Qt::UserRole + 1).value<ProjectNode>(); }
    ExpectedWindow fromMenu(const QString& path, const QString& entry)
    {
        return driver_.window("explorer").step("menu", {"ProjectTreeView", path, "0"}).step("choose", {entry});
    }

    PositionSession database_;
    ScriptedPrompts host_;
    ModalDriver driver_;
    ProjectExplorerWidget explorer_;
};

namespace place {
const QString project = QStringLiteral("Проект");
const QString object = project + QStringLiteral("/Объект");
const QString subobject = object + QStringLiteral("/Подобъект");
const QString position = subobject + QStringLiteral("/Позиция");
const QString other = subobject + QStringLiteral("/Другая");
} // namespace place
