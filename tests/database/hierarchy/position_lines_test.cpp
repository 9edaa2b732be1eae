// Contours by command, stored lines in the drawing, stored drawings, and the
// position that becomes current: the tree and the open drawing.
#include "database/hierarchy/contour_line.h"
#include "database/hierarchy/explorer_fixture.h"
#include "database/hierarchy/forms/contours_list_widget.h"
#include "database/hierarchy/forms/geometry_draw_filter_form.h"
#include "database/hierarchy/forms/hierarchy_commands.h"
#include "database/hierarchy/stored_drawing.h"
#include "hostkit/model_space.h"
#include "support/pictures.h"

#include <drawing/application.h>
#include <nrx/application.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {

class Lines : public Explorer {
protected:
    void SetUp() override
    {
        Explorer::SetUp();
        session().tempDir = folder_.path();
        addTemplateFolder(QCoreApplication::applicationDirPath());
        ncDocManagerPtr()->appContextNewDocument(QString());
    }
    void TearDown() override
    {
        closeAllDocuments();
        session().tempDir.clear();
        Explorer::TearDown();
    }

    static NcDbObjectId polyline(const std::vector<NcGePoint2d>& points, double bulge = 0.0)
    {
        auto line = std::make_unique<NcDbPolyline>();
        for (size_t i = 0; i < points.size(); ++i)
            line->addVertexAt(int(i), points[i], i == 0 ? bulge : 0.0);
        return appendToModelSpace(std::move(line));
    }
    // The vertices of what is drawn, an entity a text.
    static QStringList drawn()
    {
        QStringList lines;
        const NcDbObjectIdArray ids = entitiesOfModelSpace().value_or(NcDbObjectIdArray());
        for (const NcDbObjectId id : ids) {
            const Opened<NcDbPolyline> line(id, kForRead);
            if (!line)
                continue;
            QStringList vertices;
            for (int i = 0; i < line->numVerts(); ++i) {
                NcGePoint3d p;
                line->getPointAt(i, p);
                vertices << QString("%1,%2").arg(p.x).arg(p.y);
            }
            lines << vertices.join(' ') + (line->isClosed() ? " closed" : "");
        }
        return lines;
    }
    void addStoredLines()
    {
        database_->exec(
            "insert into contours (contour_id, position_id, contour_name) overriding system value values "
            "(1, 7, 'Граница'), (2, 8, 'Чужая');"
            "insert into contours_points (contour_id, x, y, param, dist) values (1, 5, 0, 1, 5), (1, 0, 0, 0, 0), "
            "(2, 1, 1, 0, 0), (2, 2, 2, 1, 1);"
            "insert into deformation_profiles (position_id, profile_name, geom) values "
            "(7, 'Д1', ST_GeomFromText('LINESTRING(10 0,20 0,30 5)', 9999)), "
            "(7, 'Д2', ST_GeomFromText('LINESTRING(10 1,20 1)', 9999)), (7, 'Без линии', null);"
            "insert into termal_profiles (position_id, profile_name, geom) values "
            "(7, 'Т', ST_GeomFromText('LINESTRING(0 9,9 9)', 9999))");
    }

    QTemporaryDir folder_;
};

} // namespace

TEST_F(Lines, APickedPolylineBecomesAContourOfTheCurrentPosition)
{
    const NcDbObjectId line = polyline({{0, 0}, {3, 4}, {3, 10.5}});
    for (const bool typed : {true, false}) {
        host_.entity(line);
        typed ? host_.keyword("Current") : host_.enter();
        host_.console.clear();
        driver_.expect("Сохранить контур").check("input", "Контур").set("input", "Граница").press("OK");
        addPositionContour();
        EXPECT_EQ(host_.console, QString("\n Выбор 'Current'\nКонтур 'Граница' сохранен в БД"));
    }
    EXPECT_EQ(host_.asked.mid(0, 2), (QStringList{"Укажите линию контура", "Позиция [Текущая/Выбор]  <Текущая>"}));
    EXPECT_EQ(host_.words.first(), QString("Текущая/Current Выбор/Select"));
    EXPECT_EQ(database_->rows("select position_id, contour_name, ST_AsText(geom), ST_SRID(geom) from contours").first(),
              (QStringList{"7", "Граница", "LINESTRING(0 0,3 4,3 10.5)", "9999"}));
    EXPECT_EQ(database_->rows("select x, y, param, dist from contours_points where contour_id = "
                              "(select min(contour_id) from contours) order by param"),
              (QVector<QStringList>{{"0", "0", "0", "0"}, {"3", "4", "1", "5"}, {"3", "10.5", "2", "11.5"}}));
}

TEST_F(Lines, AnotherPositionIsChosenFromAll)
{
    const NcDbObjectId line = polyline({{0, 0}, {1, 0}});
    host_.entity(line).keyword("Select");
    driver_.expect("Выбор позиции")
        .step("items", {"Positions", "Позиция", "Другая"})
        .set("Positions", "Другая")
        .press("Ок");
    driver_.expect("Сохранить контур").press("OK");
    addPositionContour();
    EXPECT_EQ(database_->rows("select position_id, contour_name from contours"),
              (QVector<QStringList>{{"8", "Контур"}}));
}

TEST_F(Lines, ExactlyOnePositionMustBeChosen)
{
    const NcDbObjectId line = polyline({{0, 0}, {1, 0}});
    for (int wanted : {0, 2}) {
        host_.console.clear();
        host_.entity(line).keyword("Select");
        ExpectedWindow choice = driver_.expect("Выбор позиции");
        for (int row = 0; row < wanted; ++row)
            choice.step("row", {"Positions", QString::number(row), "add"});
        choice.press("Ок");
        addPositionContour();
        EXPECT_TRUE(host_.console.endsWith("Необходимо выбрать позицию")) << wanted;
    }
}

TEST_F(Lines, OnlyAPolylineWithANameIsTaken)
{
    const NcDbObjectId line = appendToModelSpace(std::make_unique<NcDbLine>(NcGePoint3d(), NcGePoint3d(1, 0, 0)));
    host_.entity(line).enter();
    addPositionContour();
    EXPECT_TRUE(host_.console.endsWith("Необходимо выбрать полилинию"));
    const NcDbObjectId good = polyline({{0, 0}, {1, 0}});
    host_.entity(good).enter();
    driver_.expect("Сохранить контур").set("input", "").press("OK");
    addPositionContour();
    host_.entity(good).enter();
    driver_.expect("Сохранить контур").press("Отмена");
    addPositionContour();
    host_.entity(good).cancel();
    addPositionContour();
    host_.cancel();
    addPositionContour();
    EXPECT_EQ(database_->value("select count(*) from contours"), QString("0"));
}

TEST_F(Lines, ANameWithAnApostropheIsToldAsAFailure)
{
    host_.entity(polyline({{0, 0}, {1, 0}})).enter();
    driver_.expect("Сохранить контур").set("input", "К'1").press("OK");
    addPositionContour();
    EXPECT_TRUE(host_.console.contains("\nОшибка записи в БД "));
    EXPECT_FALSE(host_.console.contains("сохранен"));
    EXPECT_EQ(database_->value("select count(*) from contours"), QString("0"));
}

TEST_F(Lines, DistancesFollowArcs)
{
    const auto points = contourPointsOf(polyline({{0, 0}, {2, 0}, {2, 1}}, 1.0)); // half a circle of radius 1
    ASSERT_TRUE(points);
    EXPECT_NEAR((*points)[1].distance, 3.14159265, 1e-6);
    EXPECT_NEAR((*points)[2].distance, 4.14159265, 1e-6);
}

TEST_F(Lines, AContourIsChangedWithAndWithoutItsLine)
{
    addStoredLines();
    ContourRecord contour;
    EXPECT_FALSE(contour.load(77));
    ASSERT_TRUE(contour.load(1));
    EXPECT_EQ(contour.points.size(), 2u);
    EXPECT_EQ(contour.points.back().x, 5.0) << "by the parameter";
    contour.points.push_back({5, 5, 2, 10});
    contour.positionId = 8;
    EXPECT_TRUE(contour.update());
    EXPECT_EQ(database_->value("select count(*) from contours_points where contour_id = 1"), QString("3"));
    contour.points.clear();
    contour.name = "Другая";
    EXPECT_TRUE(contour.update());
    EXPECT_EQ(database_->rows("select position_id, contour_name, ST_AsText(geom) from contours where contour_id = 1"),
              (QVector<QStringList>{{"8", "Другая", "LINESTRING(0 0,5 0,5 5)"}}));
}

TEST_F(Lines, TheCurrentPositionsLinesAreDrawn)
{
    addStoredLines();
    driver_.expect("Вывод геометрии").press("ОК");
    drawPositionLines();
    EXPECT_EQ(drawn(), (QStringList{"0,0 5,0", "10,0 20,0 30,5", "10,1 20,1", "0,9 9,9"}));
}

TEST_F(Lines, ANodesLinesAreDrawnByKind)
{
    addStoredLines();
    fromMenu(place::object, "Вывести геометрию");
    driver_.expect("Вывод геометрии").set("DeformationProfiles", "off").set("TemperatureProfiles", "off").press("ОК");
    driver_.play();
    EXPECT_EQ(drawn(), (QStringList{"0,0 5,0", "1,1 2,2"}));
    driver_.expect("Вывод геометрии").press("Отмена");
    drawPositionLines();
    EXPECT_EQ(drawn().size(), 2);
}

TEST_F(Lines, WithoutADocumentNothingIsAsked)
{
    closeAllDocuments();
    drawPositionLines();
    EXPECT_EQ(host_.console, QString("Нет активного документа"));
}

TEST_F(Lines, TheFilterSaysWhatItDraws)
{
    GeometryDrawFilterForm form;
    QStringList captions{form.windowTitle()};
    for (const QAbstractButton* button : form.findChildren<QAbstractButton*>())
        captions << button->text() + (button->isChecked() ? "+" : "");
    EXPECT_EQ(
        captions,
        (QStringList{"Вывод геометрии", "Контуры+", "Профили деформаций+", "Профили температур+", "ОК", "Отмена"}));
    EXPECT_TRUE(takePicture(form, "GeometryDrawFilterForm"));
}

TEST_F(Lines, ContoursAreListedDrawnAndDeleted)
{
    addStoredLines();
    ContoursListWidget list;
    list.setObjectName("contours");
    list.setPosition(7);
    list.show();
    auto* table = list.findChild<QTableWidget*>("ContoursTable");
    EXPECT_EQ(table->horizontalHeaderItem(0)->text(), QString("Выбор"));
    EXPECT_EQ(table->horizontalHeaderItem(1)->text(), QString("Имя"));
    ASSERT_EQ(table->rowCount(), 1);
    EXPECT_EQ(table->item(0, 1)->text(), QString("Граница"));
    EXPECT_TRUE(list.checkedContours().isEmpty());
    table->item(0, 0)->setCheckState(Qt::Checked);
    EXPECT_EQ(list.checkedContours(), QVector<int>{1});
    list.resize(260, 160);
    EXPECT_TRUE(takePicture(list, "ContoursListWidget"));

    driver_.window("contours").step("menu", {"ContoursTable", "0", "1"}).step("choose", {"Вывести"});
    driver_.play();
    EXPECT_EQ(drawn(), QStringList("0,0 5,0"));
    for (const char* answer : {"No", "Yes"}) {
        driver_.window("contours").step("menu", {"ContoursTable", "0", "1"}).step("choose", {"Удалить"});
        driver_.expect("Внимание").text("Удалить контур 'Граница' ?").press(answer);
        driver_.play();
    }
    EXPECT_EQ(table->rowCount(), 0);
    EXPECT_EQ(database_->value("select count(*) from contours"), QString("1"));
}

TEST_F(Lines, ThePositionBecomesCurrentInTheTree)
{
    fromMenu(place::other, "Установить текущей");
    driver_.play();
    EXPECT_EQ(session().currentPositionId, 8);
    EXPECT_EQ(session().currentPositionItem, explorer_.findPositionItem(8));
    EXPECT_TRUE(host_.console.endsWith("Установлена текущая позиция ID=8"));
    EXPECT_TRUE(at(place::other).data(Qt::FontRole).value<QFont>().underline());
    EXPECT_FALSE(at(place::position).data(Qt::FontRole).value<QFont>().underline());
    EXPECT_NE(ncDocManagerPtr()->findByFileName(session().drawingPath(8)), nullptr);
}

TEST_F(Lines, AStoredDrawingIsShownUnderThePositionsName)
{
    fromMenu(place::other, "Показать чертеж");
    driver_.expect("Внимание").text("Для данной позиции еще не загружены файлы").press("OK");
    driver_.play();

    polyline({{0, 0}, {7, 7}});
    const QString saved = folder_.filePath("saved.dwg");
    ncDocManagerPtr()->saveDocumentAs(ncDocManagerPtr()->curDocument(), saved);
    QFile file(saved);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    database_->exec("insert into positions_files (position_id, content) values (8, decode('"
                    + QString::fromLatin1(file.readAll().toHex()) + "', 'hex'));"
                    + "update positions set position = 'К/2:\"а\"' where position_id = 8");
    explorer_.refreshTree();
    showStoredDrawing(8);
    const QString path = folder_.filePath("ID8_К 2  а .dwg");
    NcApDocument* shown = ncDocManagerPtr()->findByFileName(path);
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(drawn(), QStringList("0,0 7,7"));
    NcDbDatabaseSummaryInfo info;
    ncdbGetSummaryInfo(shown->database(), info);
    QString id;
    EXPECT_TRUE(isOk(info.getCustomSummaryInfo("position_id", id)));
    EXPECT_EQ(id, QString("8"));
    EXPECT_EQ(session().currentPositionId, 7);
    showStoredDrawing(8); // once more, over the copy that is open
    EXPECT_NE(ncDocManagerPtr()->findByFileName(path), nullptr);

    session().tempDir = folder_.filePath("missing");
    host_.console.clear();
    showStoredDrawing(8);
    EXPECT_EQ(host_.console, "\n Не удается создать файл " + folder_.filePath("missing") + "/ID8_К 2  а .dwg");
}

TEST_F(Lines, ElementsOpenADrawingThatKnowsItsProject)
{
    closeAllDocuments();
    addTemplateFolder(QCoreApplication::applicationDirPath()); // closing all forgets it
    session().projectName = "Город";
    fromMenu(place::object, "Вывести элементы ГМН");
    driver_.expect("Выбор элементов").press("Отмена");
    driver_.play();
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 0);
    fromMenu(place::object, "Вывести элементы ГМН");
    driver_.expect("Выбор элементов").press("Применить");
    driver_.play();
    ASSERT_EQ(ncDocManagerPtr()->documentCount(), 1);
    NcDbDatabaseSummaryInfo info;
    ncdbGetSummaryInfo(ncDocManagerPtr()->curDocument()->database(), info);
    QString project;
    EXPECT_TRUE(isOk(info.getCustomSummaryInfo("project", project)));
    EXPECT_EQ(project, QString("Город"));
    session().projectName.clear();
}
