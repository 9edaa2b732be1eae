// The catalogue of ground elements and the dialog of an entry.
#include "elements/geology/forms/ege_catalog_form.h"
#include "elements/geology/forms/ege_edit_dialog.h"
#include "elements/geology/forms/geology_commands.h"
#include "elements/geology/ground_project.h"
#include "support/form_texts.h"
#include "support/full_disk.h"
#include "support/pictures.h"
#include "support/statement_relay.h"

#include <script/modal_driver.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFormLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>

namespace {

class EgeForms : public GroundProject {
protected:
    void SetUp() override
    {
        GroundProject::SetUp();
        moduleDir_ = session().moduleDir;
        session().moduleDir = QStringLiteral(TERVA_SOURCE_DIR "/share/");
    }
    void TearDown() override
    {
        EXPECT_TRUE(driver.done()) << driver.report();
        session().moduleDir = moduleDir_;
        session().projectId = 1;
        GroundProject::TearDown();
    }
    static QTableWidget* table(const QDialog& form) { return form.findChild<QTableWidget*>("EGETable"); }
    static void press(const QDialog& form, const char* name) { form.findChild<QPushButton*>(name)->click(); }
    static void choose(const QDialog& form, int row) { table(form)->setCurrentCell(row, 0); }
    static QStringList row(const QDialog& form, int row)
    {
        QStringList texts;
        for (int column = 0; column < table(form)->columnCount(); ++column)
            texts << table(form)->item(row, column)->text();
        return texts;
    }
    QString file(const QByteArray& bytes)
    {
        const QString path = folder.filePath("ege.csv");
        QFile written(path);
        EXPECT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(bytes);
        return path;
    }
    QByteArray bytesOf(const QString& path)
    {
        QFile read(path);
        return read.open(QIODevice::ReadOnly) ? read.readAll() : QByteArray();
    }
    QVector<QStringList> entries()
    {
        return database->rows("select code, name, project_id from geology_ege_catalog order by code");
    }

    ModalDriver driver;
    QTemporaryDir folder;

private:
    QString moduleDir_;
};

QStringList captionsOf(const QDialog& dialog)
{
    QStringList shown;
    const auto* form = dialog.findChild<QFormLayout*>();
    for (int row = 0; row < form->rowCount(); ++row) {
        const QWidget* field = form->itemAt(row, QFormLayout::FieldRole)->widget();
        const auto* caption = qobject_cast<QLabel*>(form->itemAt(row, QFormLayout::LabelRole)->widget());
        shown << field->objectName() + "=" + caption->text();
    }
    return shown;
}

} // namespace

TEST_F(EgeForms, TheCatalogueSaysWhatItAlwaysSaid)
{
    const EGECatalogForm form;
    EXPECT_EQ(form.objectName(), "EGECatalogForm");
    EXPECT_EQ(form.windowTitle(), "Каталог ИГЭ");
    EXPECT_EQ(textsOf(form), QStringList({"Создать", "Импорт из CSV", "Экспорт в CSV", "Закрыть"}));
    EXPECT_EQ(titlesOf(*table(form)), QStringList({"Код", "Название", "Описание", "Штриховка"}));
}

TEST_F(EgeForms, TheDialogIsMadeOfTheCommentsOfTheDatabase)
{
    EGEEditDialog dialog;
    dialog.showNew();
    EXPECT_EQ(dialog.windowTitle(), "Создание ИГЭ");
    const QStringList captions = captionsOf(dialog);
    ASSERT_EQ(captions.size(), 34);
    EXPECT_EQ(captions.mid(0, 7),
              QStringList({"code=* Код ИГЭ", "name=* Наименование грунта", "description=Описание",
                           "hatch_pattern_name=Штриховка", "hatch_scale=Масштаб штриховки", "color_hex=Цвет",
                           "rho=Плотность грунта ρ, г/см³"}));
    EXPECT_EQ(captions.last(), "sand_granularity=Крупность песка");
    QStringList defaults;
    for (const char* name : {"code", "hatch_scale", "color_hex", "d_sal", "salinization_type", "rho"})
        defaults << dialog.fields().text(name);
    EXPECT_EQ(defaults, QStringList({"", "1.0", "#FFFFFF", "0.0", "NON_SALINE", ""}));
    EXPECT_EQ(dialog.findChild<QPushButton*>("color_hex")->styleSheet(),
              "QPushButton { background-color: #ffffff; border: 1px solid #888; }");
    EXPECT_TRUE(dialog.findChild<QLineEdit*>("rho")->validator() != nullptr);
    EXPECT_EQ(dialog.findChild<QLineEdit*>("soil_type_sp25")->validator(), nullptr);
    const auto* pattern = dialog.findChild<QComboBox*>("hatch_pattern_name");
    EXPECT_EQ(pattern->itemText(0), "");
    EXPECT_GE(pattern->findText("clay.pat"), 1);
    EXPECT_TRUE(takePicture(dialog, "ege-edit"));
    EXPECT_LE(dialog.minimumSizeHint().height(), 560) << "there is a screen of 800 by 600";
}

TEST_F(EgeForms, EntriesAreShownWithTheirHatch)
{
    EGECatalogForm form;
    ASSERT_EQ(table(form)->rowCount(), 2);
    EXPECT_EQ(row(form, 0), QStringList({"1а", "Суглинок", "", "#FFFFFF"}));
    EXPECT_EQ(row(form, 1), QStringList({"2", "Песок", "", "#FFEEAA"}));
    EXPECT_TRUE(takePicture(form, "ege-catalog"));
    const QPixmap hatch = table(form)->viewport()->grab(table(form)->visualItemRect(table(form)->item(1, 3)));
    EXPECT_EQ(hatch.toImage().pixelColor(hatch.width() - 3, 2), QColor("#FFEEAA"));
}

TEST_F(EgeForms, AnEntryIsCreatedInTheSessionsProject)
{
    EGECatalogForm form;
    driver.expect("Создание ИГЭ").set("code", "3").set("name", "O'Нил").set("rho", "1.9").press("SaveBtn");
    press(form, "CreateBTN");
    EXPECT_EQ(table(form)->rowCount(), 3);
    EXPECT_EQ(row(form, table(form)->currentRow()).value(0), "3") << "the new one is chosen";
    EXPECT_EQ(database->rows("select name, project_id, rho, rho_s, d_sal, hatch_scale, color_hex, salinization_type "
                             "from geology_ege_catalog where code = '3'"),
              QVector<QStringList>({{"O'Нил", "1", "1.9", QString(), "0", "1", "#FFFFFF", "NON_SALINE"}}));
}

TEST_F(EgeForms, RequiredFieldsAndCodesAreChecked)
{
    EGECatalogForm form;
    driver.expect("Создание ИГЭ").press("SaveBtn");
    driver.expect("Ошибка валидации").text("Поле 'Код ИГЭ' обязательно для заполнения").press("OK");
    driver.expect("Создание ИГЭ").set("code", "2").press("SaveBtn");
    driver.expect("Ошибка валидации").text("Поле 'Наименование грунта' обязательно для заполнения").press("OK");
    driver.expect("Создание ИГЭ").set("name", "Ил").press("SaveBtn");
    driver.expect("Ошибка валидации")
        .text("Код '2' уже существует в текущем проекте. Укажите уникальный код.")
        .press("OK");
    driver.expect("Создание ИГЭ").press("CancelBtn");
    press(form, "CreateBTN");
    EXPECT_EQ(entries().size(), 2);
}

TEST_F(EgeForms, AnotherProjectMayHaveTheSameCode)
{
    database->exec("insert into projects (project_id, name) overriding system value values (2, 'Другой')");
    session().projectId = 2;
    EGECatalogForm form;
    driver.expect("Создание ИГЭ").set("code", "2").set("name", "Ил").press("SaveBtn");
    press(form, "CreateBTN");
    EXPECT_EQ(entries(), QVector<QStringList>({{"1а", "Суглинок", "1"}, {"2", "Песок", "1"}, {"2", "Ил", "2"}}));
}

TEST_F(EgeForms, AnEntryIsEditedFromTheMenu)
{
    EGECatalogForm form;
    form.show();
    driver.window("EGECatalogForm").step("menu", {"EGETable", "1", "0"}).step("choose", {"Редактировать"});
    driver.expect("Редактирование ИГЭ")
        .check("code", "2")
        .check("hatch_pattern_name", "sand.pat")
        .set("hatch_pattern_name", "clay.pat")
        .set("description", "Мелкий")
        .press("SaveBtn");
    driver.play();
    EXPECT_EQ(row(form, 1), QStringList({"2", "Песок", "Мелкий", "#FFEEAA"}));
    EXPECT_EQ(database->value("select hatch_pattern_name from geology_ege_catalog where ege_id = 101"), "clay.pat");
    EXPECT_EQ(database->value("select hatch_scale from geology_ege_catalog where ege_id = 101"), "0.5");
}

TEST_F(EgeForms, APatternThatIsNoFileOfTheFolderStays)
{
    database->exec(
        "update geology_ege_catalog set hatch_pattern_name = 'СВОЯ', color_hex = '00FF00' where ege_id = 101");
    EGEEditDialog dialog;
    ASSERT_TRUE(dialog.showStored("101"));
    EXPECT_EQ(dialog.windowTitle(), "Редактирование ИГЭ");
    EXPECT_EQ(dialog.fields().text("hatch_pattern_name"), "СВОЯ");
    EXPECT_EQ(dialog.fields().text("color_hex"), "#00FF00");
    dialog.accept();
    EXPECT_EQ(database->value("select hatch_pattern_name from geology_ege_catalog where ege_id = 101"), "СВОЯ");
    EXPECT_FALSE(EGEEditDialog().showStored("999"));
}

TEST_F(EgeForms, WhatLayersAreMadeOfIsNotDeleted)
{
    EGECatalogForm form;
    form.show();
    driver.window("EGECatalogForm").step("menu", {"EGETable", "1", "0"}).step("choose", {"Удалить"});
    driver.expect("Внимание").text("Невозможно удалить ИГЭ. Он используется в 2 слоях.").press("OK");
    driver.play();
    EXPECT_EQ(entries().size(), 2);

    database->exec("delete from ts_geology_layers; delete from igs_geology_layers");
    for (const char* answer : {"Нет", "Да"}) {
        driver.window("EGECatalogForm").step("menu", {"EGETable", "1", "0"}).step("choose", {"Удалить"});
        driver.expect("Внимание").text("Удалить ИГЭ 2 ?").press(answer);
        driver.play();
    }
    EXPECT_EQ(entries(), QVector<QStringList>({{"1а", "Суглинок", "1"}}));
    EXPECT_EQ(table(form)->rowCount(), 1);
}

TEST_F(EgeForms, TheMenuEditsAndDeletesAndCreatesNothing)
{
    EGECatalogForm form;
    form.show();
    choose(form, 1);
    QStringList entries;
    QTimer::singleShot(0, &form, [&entries] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (const QAction* action : menu->actions())
            entries << action->text();
        menu->close();
    });
    emit table(form)->customContextMenuRequested(QPoint(5, 5));
    EXPECT_EQ(entries, QStringList({"Редактировать", "Удалить"}));
}

TEST_F(EgeForms, TheCatalogueGoesOutToAFileAndBack)
{
    EGECatalogForm form;
    const QString path = folder.filePath("каталог.csv");
    driver.expect("Экспорт в CSV").files({path});
    press(form, "ExportBTN");
    const QByteArray written = bytesOf(path);
    EXPECT_TRUE(written.startsWith("\xEF\xBB\xBF"
                                   "code;name;description;"))
        << written.toStdString();

    database->exec("delete from ts_geology_layers; delete from igs_geology_layers; delete from geology_ege_catalog "
                   "where ege_id = 101; update geology_ege_catalog set name = 'другое'");
    driver.expect("Импорт из CSV").files({path});
    driver.expect("Импорт завершен").text("Создано новых: 1\nОбновлено существующих: 1").press("OK");
    press(form, "ImportBTN");
    EXPECT_EQ(entries(), QVector<QStringList>({{"1а", "Суглинок", "1"}, {"2", "Песок", "1"}}));
    EXPECT_EQ(table(form)->rowCount(), 2);
}

TEST_F(EgeForms, WhatIsWrongWithAFileIsTold)
{
    EGECatalogForm form;
    driver.expect("Импорт из CSV").files({file("name;rho\nПесок;2\n")});
    driver.expect("Ошибка").text("В CSV файле не найдена колонка 'code'").press("OK");
    press(form, "ImportBTN");

    driver.expect("Импорт из CSV").files({file("code;rho\n5;много\n6;2\n")});
    driver.expect("Ошибка базы данных").textContains("Не записаны строки (1):\n1 (5): ").press("OK");
    driver.expect("Импорт завершен").text("Создано новых: 1\nОбновлено существующих: 0").press("OK");
    press(form, "ImportBTN");

    driver.expect("Импорт из CSV").close();
    press(form, "ImportBTN");
}

TEST_F(EgeForms, AnEmptyCatalogueIsNotExported)
{
    database->exec("delete from ts_geology_layers; delete from igs_geology_layers; delete from geology_ege_catalog");
    EGECatalogForm form;
    driver.expect("Внимание").text("Каталог пуст. Нечего экспортировать.").press("OK");
    press(form, "ExportBTN");
}

TEST_F(EgeForms, AFileThatCannotBeWrittenIsTold)
{
    EGECatalogForm form;
    const QString path = file("старое");
    const FileSizeLimit full(20);
    driver.expect("Экспорт в CSV").files({path});
    driver.expect("Внимание").textContains("Заменить его?").press("Да");
    driver.expect("Ошибка").textContains("Не удалось открыть файл для записи").press("OK");
    press(form, "ExportBTN");
    EXPECT_EQ(bytesOf(path), "старое") << "what stood there stays";
}

TEST_F(EgeForms, WithoutAServerEverythingIsToldAndNothingCrashes)
{
    EGECatalogForm form;
    choose(form, 1);
    database.disconnect();
    const char* const structure = "Не удалось прочитать структуру данных ИГЭ из БД";
    driver.expect("Импорт из CSV").files({file("code\n5\n")});
    driver.expect("Ошибка").text(structure).press("OK");
    press(form, "ImportBTN");
    driver.expect("Ошибка").text(structure).press("OK");
    press(form, "ExportBTN");
    driver.expect("Ошибка").text(structure).press("OK");
    driver.expect("Создание ИГЭ").press("SaveBtn");
    driver.expect("Ошибка валидации").text(structure).press("OK");
    driver.expect("Создание ИГЭ").press("CancelBtn");
    press(form, "CreateBTN");
    EXPECT_EQ(entries().size(), 2);
}

TEST_F(EgeForms, ARefusedEntryIsToldAndStaysInItsDialog)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    EGEEditDialog dialog;
    dialog.showNew();
    dialog.fields().setText("code", "9");
    dialog.fields().setText("name", "Ил");
    dialog.show();
    relay.refuse(2); // behind the look at the codes
    driver.expect("Ошибка базы данных").textContains("Не удалось обновить ИГЭ:\n\nERROR").press("OK");
    dialog.accept();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.fields().text("name"), "Ил");
    EXPECT_EQ(entries().size(), 2);
    relay.refuse(-1);
    dialog.accept();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(entries().size(), 3);
    session().connection.finish();
}

// The n-th statement of the whole command fails, for every n: no crash, nothing deleted.
TEST_F(EgeForms, TheCommandOutlivesEveryStatementThatFails)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    int refused = 0;
    for (int statement = 1; statement <= 4; ++statement) {
        relay.refuse(statement);
        driver.expect("Каталог ИГЭ").press("CloseBTN");
        openGroundCatalogue();
        refused += relay.hasRefused();
        EXPECT_TRUE(driver.done()) << driver.report();
    }
    EXPECT_EQ(refused, 4) << "columns, keys, two entries";
    EXPECT_EQ(entries().size(), 2);
    session().connection.finish();
}
