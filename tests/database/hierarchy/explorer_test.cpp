// The project tree as its user sees and changes it.
#include "database/hierarchy/explorer_fixture.h"
#include "support/pictures.h"

#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <QToolButton>

TEST_F(Explorer, HasItsWidgetsWithTheirTips)
{
    QStringList found;
    for (const QToolButton* tool : explorer_.findChildren<QToolButton*>()) {
        if (tool->objectName().isEmpty() || tool->parent() != &explorer_)
            continue;
        found << tool->objectName() + "=" + tool->text() + "|" + tool->toolTip();
        EXPECT_FALSE(tool->icon().isNull()) << tool->objectName().toStdString();
    }
    EXPECT_EQ(found,
              (QStringList{"create_btn=+|Создать", "delete_btn=X|Удалить", "move_btn=M|Переместить в раздел",
                           "moveUp_btn=UP|Сдвинуть вверх", "moveDown_btn=DN|Сдвинуть вниз",
                           "collapseAll_btn=C|Свернуть до подобъектов", "refresh_btn=R|Обновить"}));
    EXPECT_EQ(explorer_.findChild<QLineEdit*>("filter")->toolTip(), QString("Фильтр"));
    EXPECT_FALSE(explorer_.findChild<QCheckBox*>("ShowStatCB")->isChecked());
}

TEST_F(Explorer, ShowsTheTreeInItsOrder)
{
    EXPECT_EQ(childrenOf(place::project), (QStringList{"Объект", "Цех"}));
    EXPECT_EQ(childrenOf(place::object), (QStringList{"Подобъект", "Пустой"}));
    EXPECT_EQ(childrenOf(place::subobject), (QStringList{"Позиция", "Другая"}));
    const ProjectNode node = nodeAt(place::other);
    EXPECT_EQ(node.id, 8);
    EXPECT_EQ(node.level, 3);
    EXPECT_EQ(QString::number(node.appearence),
              database_->value("select appearence from positions where "
                               "position_id = 8"));
    EXPECT_TRUE(at(place::other).flags() & Qt::ItemIsEditable);
    EXPECT_FALSE(at(place::other).data(Qt::DecorationRole).isNull());
    EXPECT_TRUE(tree().isExpanded(at(place::subobject)));
    EXPECT_TRUE(tree().isHeaderHidden());
    EXPECT_EQ(tree().model()->columnCount(), 1);
    EXPECT_TRUE(takePicture(explorer_, "ProjectExplorerWidget"));
}

TEST_F(Explorer, TheCurrentNodesAreUnderlined)
{
    const auto underlined = [this](const QString& path) {
        return at(path).data(Qt::FontRole).value<QFont>().underline();
    };
    EXPECT_TRUE(underlined(place::object) && underlined(place::subobject) && underlined(place::position));
    EXPECT_FALSE(underlined(place::project) || underlined(place::other) || underlined(place::project + "/Цех"));
    EXPECT_EQ(session().currentPositionItem, explorer_.findPositionItem(7));
    explorer_.refreshTree();
    EXPECT_EQ(session().currentPositionItem, explorer_.findPositionItem(7)) << "of the new tree";
    session().currentPositionId = 77;
    explorer_.refreshTree();
    EXPECT_EQ(session().currentPositionItem, nullptr);
    EXPECT_EQ(explorer_.findPositionItem(77), nullptr);
}

TEST_F(Explorer, CountsStandInColumns)
{
    database_->exec("insert into ts_elements (element_name, state_id, position_id) values ('Т', 'exist', 7), "
                    "('Т', 'exist', 7); insert into igs_elements (element_name, state_id, position_id) values "
                    "('С', 'exist', 8); insert into contours (position_id, contour_name) values (7, 'К')");
    explorer_.findChild<QCheckBox*>("ShowStatCB")->click();
    QStringList titles;
    for (int column = 0; column < tree().model()->columnCount(); ++column)
        titles << tree().model()->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(titles, (QStringList{"Наименование", "ДМ", "РП", "ТС", "ТСС", "ТСГ", "ГГС", "ИГС", "ДП", "ТП", "К"}));
    EXPECT_FALSE(tree().isHeaderHidden());
    const auto counts = [this](const QString& path) {
        QStringList row;
        for (int column = 1; column < 11; ++column)
            row << at(path).sibling(at(path).row(), column).data().toString();
        return row;
    };
    EXPECT_EQ(counts(place::position), (QStringList{"0", "0", "2", "0", "0", "0", "0", "0", "0", "1"}));
    EXPECT_EQ(counts(place::other), (QStringList{"0", "0", "0", "0", "0", "0", "1", "0", "0", "0"}));
    EXPECT_FALSE(at(place::position).sibling(0, 3).flags() & Qt::ItemIsEditable);
    explorer_.resize(780, 300);
    EXPECT_TRUE(takePicture(explorer_, "ProjectExplorerWidget-counts"));
    explorer_.findChild<QCheckBox*>("ShowStatCB")->click();
    EXPECT_EQ(tree().model()->columnCount(), 1);
}

TEST_F(Explorer, WithoutTheViewOfCountsNoneAreShown)
{
    database_->exec("alter view positions_counts rename to hidden_counts");
    explorer_.findChild<QCheckBox*>("ShowStatCB")->click();
    EXPECT_EQ(tree().model()->columnCount(), 1);
    EXPECT_TRUE(tree().isHeaderHidden());
    database_->exec("alter view hidden_counts rename to positions_counts");
}

TEST_F(Explorer, TheFilterKeepsTheWayToAMatch)
{
    auto* filter = explorer_.findChild<QLineEdit*>("filter");
    filter->setText("ДРУГ");
    EXPECT_EQ(childrenOf(place::project), QStringList("Объект"));
    EXPECT_EQ(childrenOf(place::object), QStringList("Подобъект"));
    EXPECT_EQ(childrenOf(place::subobject), QStringList("Другая"));
    EXPECT_TRUE(tree().isExpanded(at(place::subobject)));
    filter->setText("^Цех$");
    EXPECT_EQ(childrenOf(place::project), QStringList("Цех"));
    filter->setText("[");
    EXPECT_EQ(tree().model()->rowCount(), 0) << "no expression at all";
    filter->clear();
    EXPECT_EQ(childrenOf(place::project).size(), 2);
}

TEST_F(Explorer, CollapsesToTheSubobjects)
{
    button("collapseAll_btn").click();
    EXPECT_TRUE(tree().isExpanded(at(place::project)));
    EXPECT_TRUE(tree().isExpanded(at(place::object)));
    EXPECT_FALSE(tree().isExpanded(at(place::subobject)));
}

TEST_F(Explorer, ButtonsFollowTheChoice)
{
    const struct {
        QString path;
        bool create;
        bool erase;
    } cases[] = {{place::project, true, false},
                 {place::object, true, true},
                 {place::subobject, true, true},
                 {place::position, false, true}};
    for (const auto& c : cases) {
        choose(c.path);
        EXPECT_EQ(button("create_btn").isEnabled(), c.create) << c.path.toStdString();
        EXPECT_EQ(button("delete_btn").isEnabled(), c.erase) << c.path.toStdString();
    }
}

TEST_F(Explorer, NothingChosenNothingHappens)
{
    tree().setCurrentIndex({});
    for (const char* name : {"create_btn", "delete_btn", "move_btn", "moveUp_btn", "moveDown_btn"})
        button(name).click();
    EXPECT_EQ(database_->value("select count(*) from objects"), QString("2"));
    emit tree().customContextMenuRequested(tree().viewport()->rect().bottomRight());
}

TEST_F(Explorer, MenusGoByTheLevel)
{
    const QStringList shared{"Вывести элементы ГМН", "Вывести геометрию", "Переименовать"};
    const QStringList below =
        shared + QStringList{"Переместить вверх", "Переместить вниз", "Переместить в раздел", "Удалить"};
    const QStringList ofPosition = QStringList{"Установить текущей", "Показать чертеж"} + below;
    const QVector<QPair<QString, QStringList>> cases = {
        {place::project, shared}, {place::object, below}, {place::subobject, below}, {place::position, ofPosition}};
    for (const auto& c : cases) {
        QStringList entries;
        QTimer::singleShot(0, [&entries] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (const QAction* action : menu->actions())
                entries << action->text();
            menu->close();
        });
        emit tree().customContextMenuRequested(tree().visualRect(at(c.first)).center());
        EXPECT_EQ(entries, c.second) << c.first.toStdString();
    }
}

TEST_F(Explorer, NodesAreCreatedBelowTheChosenOne)
{
    choose(place::project);
    button("create_btn").click();
    EXPECT_EQ(childrenOf(place::project).last(), QString("Новый объект"));
    choose(place::project + "/Новый объект");
    button("create_btn").click();
    choose(place::project + "/Новый объект/Новый подобъект");
    button("create_btn").click();
    button("create_btn").click();
    const QString made = place::project + "/Новый объект/Новый подобъект/Новая позиция";
    EXPECT_EQ(
        database_
            ->rows("select position, subobject, object, p.appearence::text from positions p "
                   "join subobjects using (subobject_id) join objects using (object_id) "
                   "where object = 'Новый объект' order by position_id")
            .first(),
        (QStringList{"Новая позиция", "Новый подобъект", "Новый объект", QString::number(nodeAt(made).appearence)}));
    EXPECT_EQ(childrenOf(place::project + "/Новый объект/Новый подобъект").size(), 2);
    const QStringList before = childrenOf(place::project);
    explorer_.refreshTree();
    EXPECT_EQ(childrenOf(place::project), before) << "a new node is the last one";
}

TEST_F(Explorer, RenamingInTheTreeIsWritten)
{
    const QString renamed[] = {"Город", "Новый корпус", "Секция", "П-1"};
    QString path;
    for (const QString& before : {place::project, place::object, place::subobject, place::position}) {
        const int level = before.count('/');
        const QString here = path.isEmpty() ? before : path + before.mid(before.lastIndexOf('/'));
        tree().model()->setData(at(here), renamed[level]);
        path += (path.isEmpty() ? QString() : QString("/")) + renamed[level];
    }
    EXPECT_EQ(database_->rows("select name, object, subobject, position from projects join objects using (project_id) "
                              "join subobjects using (object_id) join positions using (subobject_id) "
                              "where position_id = 7"),
              (QVector<QStringList>{{"Город", "Новый корпус", "Секция", "П-1"}}));
    EXPECT_NE(session().projectName, QString("Город")) << "the session learns at the next load";
}

TEST_F(Explorer, RenamingByTheMenuAsks)
{
    fromMenu(place::position, "Переименовать");
    driver_.expect("Переименовать").check("Name", "Позиция").set("Name", "П-2").press("ОК");
    driver_.play();
    EXPECT_EQ(database_->value("select position from positions where position_id = 7"), QString("П-2"));
    fromMenu(place::subobject + "/П-2", "Переименовать");
    driver_.expect("Переименовать").set("Name", "П-3").press("Отмена");
    driver_.play();
    EXPECT_EQ(childrenOf(place::subobject).first(), QString("П-2"));
}

TEST_F(Explorer, ANameWithAnApostropheIsShownUntilTheNextRefresh)
{
    tree().model()->setData(at(place::position), "П'1");
    EXPECT_EQ(childrenOf(place::subobject).first(), QString("П'1"));
    explorer_.refreshTree();
    EXPECT_EQ(childrenOf(place::subobject).first(), QString("Позиция"));
}

TEST_F(Explorer, ANodeWithChildrenStays)
{
    for (const QString& path : {place::object, place::subobject}) {
        const QString name = path.mid(path.lastIndexOf('/') + 1);
        choose(path);
        driver_.expect("Удаление объектов").text("Удалить " + name + "?").press("Yes");
        driver_.expect("Ошибка").text("Удаление невозможно \n \"" + name + "\" содержит вложенные объекты").press("OK");
        button("delete_btn").click();
        EXPECT_TRUE(at(path).isValid());
    }
}

TEST_F(Explorer, ANodeWithoutChildrenGoes)
{
    choose(place::object + "/Пустой");
    driver_.expect("Удаление объектов").press("No");
    button("delete_btn").click();
    EXPECT_EQ(childrenOf(place::object).size(), 2);
    driver_.expect("Удаление объектов").press("Yes");
    button("delete_btn").click();
    EXPECT_EQ(childrenOf(place::object), QStringList("Подобъект"));
    EXPECT_EQ(database_->value("select count(*) from subobjects"), QString("1"));
}

TEST_F(Explorer, APositionTakesItsElementsWithItWhenTheUserSaysSo)
{
    database_->exec("insert into tsg_elements (element_name, state_id, position_id) values ('Т', 'exist', 8)");
    choose(place::other);
    for (const char* answer : {"No", "Yes"}) {
        driver_.expect("Удаление объектов").press("Yes");
        driver_.expect("Внимание").text("Позиция содержит элементы ГМН \n Удалить их?").press(answer);
        button("delete_btn").click();
    }
    EXPECT_EQ(childrenOf(place::subobject), QStringList("Позиция"));
    EXPECT_EQ(database_->value("select count(*) from tsg_elements"), QString("0"));
}

TEST_F(Explorer, GeologicalWellsGoUnasked)
{
    database_->exec("insert into igs_elements (element_name, state_id, position_id) values ('С', 'exist', 8)");
    choose(place::other);
    driver_.expect("Удаление объектов").press("Yes");
    button("delete_btn").click();
    EXPECT_EQ(database_->value("select count(*) from igs_elements"), QString("0"));
}

TEST_F(Explorer, TheCurrentPositionDeletedLeavesItsIdBehind)
{
    choose(place::position);
    driver_.expect("Удаление объектов").press("Yes");
    button("delete_btn").click();
    EXPECT_EQ(session().currentPositionId, 7);
    EXPECT_EQ(session().currentPositionItem, nullptr);
}

TEST_F(Explorer, ANodeMovesToAnotherParent)
{
    choose(place::position);
    driver_.expect("Переместить в ")
        .check("Parent", "Подобъект")
        .step("items", {"Parent", "Подобъект", "Пустой"})
        .set("Parent", "Пустой")
        .press("OK");
    button("move_btn").click();
    EXPECT_EQ(childrenOf(place::object + "/Пустой"), QStringList("Позиция"));
    EXPECT_EQ(tree().currentIndex(), at(place::object + "/Пустой/Позиция")) << "the choice goes with it";

    choose(place::object + "/Пустой");
    driver_.expect("Переместить в ").set("Parent", "Цех").press("OK");
    button("move_btn").click();
    EXPECT_EQ(childrenOf(place::project + "/Цех"), QStringList("Пустой"));

    choose(place::object);
    driver_.expect("Переместить в ").step("items", {"Parent", "Проект"}).press("Отмена");
    button("move_btn").click();
    choose(place::project);
    button("move_btn").click(); // a project has nowhere to go
}

TEST_F(Explorer, SiblingsChangePlaces)
{
    const auto places = [this] {
        return database_->rows("select position_id, appearence from positions order by position_id");
    };
    const QVector<QStringList> before = places();
    choose(place::other);
    button("moveUp_btn").click();
    EXPECT_EQ(childrenOf(place::subobject), (QStringList{"Другая", "Позиция"}));
    EXPECT_EQ(tree().currentIndex(), at(place::other));
    const QVector<QStringList> swapped = {{"7", before[1][1]}, {"8", before[0][1]}};
    EXPECT_EQ(places(), swapped);
    EXPECT_EQ(QString::number(nodeAt(place::other).appearence), before[0][1]);
    button("moveUp_btn").click();
    EXPECT_EQ(places(), swapped) << "the subobject above is of another level";
    button("moveDown_btn").click();
    EXPECT_EQ(places(), before);
    explorer_.refreshTree();
    EXPECT_EQ(childrenOf(place::subobject), (QStringList{"Позиция", "Другая"}));
}

TEST_F(Explorer, TheNeighbourIsTheOneInView)
{
    choose(place::project + "/Цех");
    button("moveUp_btn").click();
    EXPECT_EQ(childrenOf(place::project), (QStringList{"Объект", "Цех"})) << "an open neighbour shows its children";
    tree().collapse(at(place::object));
    button("moveUp_btn").click();
    EXPECT_EQ(childrenOf(place::project), (QStringList{"Цех", "Объект"}));
    tree().expand(at(place::object));
    choose(place::object + "/Пустой");
    tree().collapse(at(place::subobject));
    button("moveUp_btn").click();
    EXPECT_EQ(childrenOf(place::object), (QStringList{"Пустой", "Подобъект"}));
    EXPECT_FALSE(tree().isExpanded(at(place::subobject))) << "closed nodes stay closed";
    EXPECT_TRUE(tree().isExpanded(at(place::object)));
}

TEST_F(Explorer, EqualPlacesChangeTheViewAlone)
{
    database_->exec("update positions set appearence = 5");
    explorer_.refreshTree();
    const QStringList before = childrenOf(place::subobject);
    tree().setCurrentIndex(at(place::subobject + "/" + before[1]));
    button("moveUp_btn").click();
    EXPECT_EQ(childrenOf(place::subobject), (QStringList{before[1], before[0]}));
    EXPECT_EQ(database_->value("select count(*) from positions where appearence = 5"), QString("2"));
}

TEST_F(Explorer, SwapsAndMarksAreNoRenaming)
{
    database_->exec("truncate audit_log");
    choose(place::other);
    button("moveUp_btn").click();
    explorer_.refreshTree();
    EXPECT_EQ(database_->value("select count(*) from audit_log"), QString("2")) << "the two places";
}

TEST_F(Explorer, ALostServerShowsNothingAndComesBack)
{
    database_.disconnect();
    explorer_.refreshTree();
    EXPECT_EQ(tree().model()->rowCount(), 0);
    database_.connect();
    explorer_.refreshTree();
    EXPECT_EQ(childrenOf(place::project).size(), 2);
}

// Another session has been at the same nodes.
TEST_F(Explorer, TwoSessionsChangeTheSameNode)
{
    database_->exec("update positions set position = 'Их имя' where position_id = 7;"
                    "delete from positions where position_id = 8");
    tree().model()->setData(at(place::position), "Наше имя");
    EXPECT_EQ(database_->value("select position from positions where position_id = 7"), QString("Наше имя"))
        << "the last one wins";
    tree().model()->setData(at(place::other), "Удалённая");
    choose(place::subobject + "/Удалённая");
    driver_.expect("Удаление объектов").press("Yes");
    button("delete_btn").click();
    EXPECT_EQ(childrenOf(place::subobject), QStringList("Наше имя")) << "what is gone goes without a word";

    database_->exec("delete from subobjects where subobject_id = 2");
    choose(place::object + "/Пустой");
    button("create_btn").click();
    EXPECT_TRUE(childrenOf(place::object + "/Пустой").isEmpty()) << "nothing is made below nothing";
    explorer_.refreshTree();
    EXPECT_EQ(childrenOf(place::object), QStringList("Подобъект"));
}
