#include "exchange/elements/forms/import_elements_dialog.h"

#include "exchange/forms/role_view.h"
#include "support/console_capture.h"
#include "support/element_drawing.h"
#include "support/form_texts.h"
#include "support/pictures.h"
#include "support/position_session.h"

#include <script/modal_driver.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QTabWidget>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class ElementsDialog : public ::testing::Test {
protected:
    void SetUp() override { drawing.addAllKinds(); }
    void TearDown() override { session().importColumns = ProjectSession().importColumns; }
    void openPath(ImportElementsDialog& dialog, const QString& path)
    {
        driver.expect("Открыть файл").files({path});
        child<QPushButton>(dialog, "OpenFileBtn")->click();
        EXPECT_TRUE(driver.done()) << driver.report();
    }
    void open(ImportElementsDialog& dialog, const QByteArray& bytes)
    {
        QFile file(folder.filePath("elements.csv"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        openPath(dialog, file.fileName());
    }
    static QTableWidget* preview(ImportElementsDialog& dialog) { return child<QTableWidget>(dialog, "ImportPrewiew"); }
    static QStringList titles(ImportElementsDialog& dialog)
    {
        QStringList texts;
        for (int i = 0; i < preview(dialog)->columnCount(); ++i)
            texts << preview(dialog)->horizontalHeaderItem(i)->text();
        return texts;
    }
    static void chooseType(ImportElementsDialog& dialog, const QString& typeId)
    {
        auto* types = child<QComboBox>(dialog, "ElTypeCombo");
        types->setCurrentIndex(types->findData(typeId));
    }

    // Name, x, y and mark by the place; of several at one place the first counts.
    using Places = QMap<QPair<double, double>, QPair<QString, double>>;
    static Places placesOf(const QList<QByteArray>& lines)
    {
        Places places;
        for (const QByteArray& line : lines) {
            const QStringList cells = QString::fromUtf8(line).trimmed().replace(',', '.').split(';');
            const QPair<double, double> place(cells[1].toDouble(), cells[2].toDouble());
            if (!places.contains(place))
                places.insert(place, {cells[0], cells[3].toDouble()});
        }
        return places;
    }
    Places storedPlaces()
    {
        Places places;
        for (const QStringList& row : database->rows("select element_name, x, y, z from rp_elements"))
            places.insert({row[1].toDouble(), row[2].toDouble()}, {row[0], row[3].toDouble()});
        return places;
    }

    ElementDrawing drawing;
    PositionSession database;
    QTemporaryDir folder;
    ConsoleCapture console;
    ModalDriver driver;
};

} // namespace

TEST_F(ElementsDialog, CaptionsAndStartingValues)
{
    ImportElementsDialog dialog;
    QStringList captions = {dialog.windowTitle()};
    for (const char* name : {"OpenFileBtn", "ImportByRows", "ImportByColumns", "AttribUpdate", "ImportBtn", "CloseBtn"})
        captions << child<QAbstractButton>(dialog, name)->text();
    captions << child<QComboBox>(dialog, "ImportTemplate")->currentText()
             << child<QComboBox>(dialog, "ElTypeCombo")->itemText(0)
             << child<QComboBox>(dialog, "PositionsCombo")->currentText()
             << child<QTabWidget>(dialog, "Pages")->tabText(1);
    EXPECT_EQ(captions,
              QStringList({"Импорт элементов ГМН", "Открыть", "По строкам", "По столбцам",
                           "Обновление аттрибутов по всей базе", "Импорт", "Закрыть", "По умолчанию(*.csv)",
                           "Тип элемента", "Позиция", "Просмотр"}));
    EXPECT_EQ(titles(dialog),
              QStringList({"Имя", "X", "Y", "Абс.отметка", "Отм. земли", "Заглубление", "h", "Позиция",
                           "Поворот маркера", "Статус"}));
    EXPECT_EQ(child<QComboBox>(dialog, "ElTypeCombo")->count(), 18) << "17 types, none first";
    EXPECT_TRUE(child<QRadioButton>(dialog, "ImportByRows")->isChecked());
    EXPECT_FALSE(child<QCheckBox>(dialog, "AttribUpdate")->isChecked());
    const ColumnRoles& roles = child<RoleView>(dialog, "RawInput")->roles();
    EXPECT_EQ(roles.columnOf(ElementRole::Name), 0);
    EXPECT_EQ(roles.columnOf(ElementRole::X), 2);
    EXPECT_EQ(roles.columnOf(ElementRole::Y), 1);
    EXPECT_FALSE(roles.has(ElementRole::Position));
    EXPECT_TRUE(child<QComboBox>(dialog, "CatalogCombo")->isHidden());
    chooseType(dialog, "tsg");
    EXPECT_FALSE(child<QComboBox>(dialog, "CatalogCombo")->isHidden());
    const auto captionIsHidden = [&dialog] {
        for (const QLabel* caption : dialog.findChildren<QLabel*>()) {
            if (caption->text() == "Тип конструкции")
                return caption->isHidden();
        }
        ADD_FAILURE() << "the catalogue has no caption";
        return false;
    };
    EXPECT_FALSE(captionIsHidden());
    for (const char* without : {"dm", ""}) {
        chooseType(dialog, without);
        EXPECT_TRUE(child<QComboBox>(dialog, "CatalogCombo")->isHidden()) << without;
        EXPECT_TRUE(captionIsHidden()) << without;
    }
    chooseType(dialog, "tsg");
    child<QCheckBox>(dialog, "AttribUpdate")->setChecked(true);
    EXPECT_EQ(titles(dialog),
              QStringList({"ID", "Имя", "Тип", "X", "Y", "Абс.отметка", "Отм. земли", "h", "Позиция", "Поворот маркера",
                           "Статус", "Заглубление"}));
}

TEST_F(ElementsDialog, WithoutATypeOrAPositionNothingBegins)
{
    session().currentPositionId = -1;
    ImportElementsDialog dialog;
    open(dialog, "М-1;1;2\n");
    driver.expect("Внимание").text("Не выбран тип элемента").press("OK");
    child<QPushButton>(dialog, "ImportBtn")->click();
    chooseType(dialog, "dm");
    driver.expect("Внимание").text("Нет информации о позиции элемента").press("OK");
    child<QPushButton>(dialog, "ImportBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database->value("select count(*) from dm_elements"), "0");
    ColumnRoles roles = child<RoleView>(dialog, "RawInput")->roles();
    roles.give(ElementRole::Position, 3);
    child<RoleView>(dialog, "RawInput")->setRoles(roles);
    child<QPushButton>(dialog, "ImportBtn")->click();
    EXPECT_TRUE(console.text().contains("Нет информации о позиции элемента М-1"));
}

TEST_F(ElementsDialog, AChangedRoleIsReadAtOnce)
{
    ImportElementsDialog dialog;
    open(dialog, "М-1;10;20\n");
    chooseType(dialog, "dm");
    ASSERT_EQ(preview(dialog)->rowCount(), 1);
    EXPECT_EQ(preview(dialog)->item(0, 1)->text(), "20.0000");
    auto* raw = child<RoleView>(dialog, "RawInput");
    ColumnRoles roles = raw->roles();
    roles.give(ElementRole::X, 1);
    roles.give(ElementRole::Y, 2);
    raw->setRoles(roles);
    EXPECT_EQ(preview(dialog)->item(0, 1)->text(), "10.0000");
}

TEST_F(ElementsDialog, RolesAndDirectionAreTheUsers)
{
    ImportElementsDialog dialog;
    open(dialog, "М-1;М-2\n10;20\n1;2\n");
    chooseType(dialog, "dm");
    child<QRadioButton>(dialog, "ImportByColumns")->setChecked(true);
    ASSERT_EQ(preview(dialog)->rowCount(), 2);
    EXPECT_EQ(preview(dialog)->item(1, 0)->text(), "М-2");
    EXPECT_EQ(preview(dialog)->item(1, 1)->text(), "2.0000");
    EXPECT_EQ(preview(dialog)->item(1, 9)->text(), "ОК");
    auto* raw = child<RoleView>(dialog, "RawInput");
    EXPECT_EQ(raw->model()->headerData(2, Qt::Vertical).toString(), "X");
    EXPECT_EQ(raw->model()->headerData(0, Qt::Horizontal).toString(), "1");
    child<QPushButton>(dialog, "ImportBtn")->click();
    EXPECT_EQ(database->rows("select element_name, x, y from dm_elements order by 1"),
              QVector<QStringList>({{"М-1", "1", "10"}, {"М-2", "2", "20"}}));
    EXPECT_TRUE(preview(dialog)->item(0, 0)->text().startsWith("М-1 (ID:")) << "now they are known";
    child<QTabWidget>(dialog, "Pages")->setCurrentIndex(1);
    EXPECT_TRUE(takePicture(dialog, "elements-import"));
    EXPECT_EQ(ImportElementsDialog().findChild<RoleView*>("RawInput")->roles().columnOf(ElementRole::X), 2);
}

TEST_F(ElementsDialog, AttributesAreUpdatedByNameOverTheWholeBase)
{
    database->exec("insert into rp_elements (element_id, type_id, element_name, state_id, position_id, x, y) "
                   "overriding system value values (5, 'rp_gr', 'Р-1', 'exist', 8, 1, 1);"
                   "insert into rp_dynprops (element_id, props) values (5, '')");
    ImportElementsDialog dialog;
    child<QCheckBox>(dialog, "AttribUpdate")->setChecked(true);
    open(dialog, "Р-1;7;8\nР-2;7;8\n");
    EXPECT_EQ(preview(dialog)->item(0, 3)->text(), "8.0000<-1.0000");
    EXPECT_EQ(preview(dialog)->item(1, 10)->text(), "Имя не найдено");
    child<QPushButton>(dialog, "ImportBtn")->click();
    EXPECT_EQ(database->rows("select x, y from rp_elements"), QVector<QStringList>({{"8", "7"}}));
    EXPECT_EQ(preview(dialog)->item(0, 3)->text(), "8.0000") << "the preview follows";
}

// Surveys and boreholes as their owners publish them: name, easting, northing, mark.
TEST_F(ElementsDialog, RealFilesAreImportedWhole)
{
    const QString data = qEnvironmentVariable("TERVA_DATA", QStringLiteral(TERVA_SOURCE_DIR "/tests/data"));
    int files = 0;
    for (QDirIterator walk(data, {"elements.csv"}, QDir::Files, QDirIterator::Subdirectories); walk.hasNext();
         ++files) {
        const QString path = walk.next();
        database->exec("delete from rp_elements");
        ImportElementsDialog dialog;
        chooseType(dialog, "rp_gr");
        ColumnRoles roles = child<RoleView>(dialog, "RawInput")->roles();
        roles.give(ElementRole::X, 1);
        roles.give(ElementRole::Y, 2);
        roles.give(ElementRole::AbsoluteMark, 3);
        child<RoleView>(dialog, "RawInput")->setRoles(roles);
        openPath(dialog, path);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QList<QByteArray> lines = file.readAll().trimmed().split('\n');
        ASSERT_EQ(preview(dialog)->rowCount(), lines.size()) << path;
        QSet<QByteArray> places; // deeper wells are drilled beside the first: one point for several
        for (const QByteArray& line : lines)
            places.insert(line.split(';').mid(1, 2).join(';'));
        if (places.size() < lines.size())
            driver.expect("Внимание").textContains("совпадают с бд").press("Нет (все)");
        for (int row = 0; row < lines.size(); ++row)
            EXPECT_EQ(preview(dialog)->item(row, 9)->text(), "ОК") << path << lines[row].toStdString();
        child<QPushButton>(dialog, "ImportBtn")->click();
        EXPECT_TRUE(driver.done()) << driver.report();
        EXPECT_EQ(database->value("select count(*) from rp_elements").toInt(), places.size()) << path;
        EXPECT_EQ(storedPlaces(), placesOf(lines)) << path;
    }
    EXPECT_GT(files, 0);
}
