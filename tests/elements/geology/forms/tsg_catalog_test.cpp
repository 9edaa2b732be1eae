// The catalogue of thermostabiliser types.
#include "elements/geology/forms/geology_commands.h"
#include "elements/geology/forms/heat_exchange_table.h"
#include "elements/geology/forms/tsg_catalog_form.h"
#include "elements/geology/forms/tsg_entry_pane.h"
#include "support/console_capture.h"
#include "support/form_texts.h"
#include "support/full_disk.h"
#include "support/pictures.h"
#include "support/position_session.h"
#include "support/statement_relay.h"

#include <script/modal_driver.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextCodec>
#include <gtest/gtest.h>

namespace {

class TsgForms : public ::testing::Test {
protected:
    void SetUp() override
    {
        database->exec("insert into tsg_catalog (catalog_id, name, note, condensator_area, condensator_radius, "
                       "condensatot_eff, vaporizer_area, vaporizer_length, vaporizer_radius, vaporizer_eff, "
                       "exchanger_area, exchanger_length, exchanger_radius, exchanger_switch, heat_exchange_params) "
                       "overriding system value values (1, 'ТК-32', 'Типовой', 2.5, 0.016, 0.9, 1.1, 10, 0.017, 0.8, "
                       "3, 4, 0.02, 1, '0:5.1|2:9.4'), (2, 'ТК-38', null, null, null, null, null, null, null, null, "
                       "null, null, null, null, null);"
                       "alter table tsg_catalog alter catalog_id restart with 10");
    }
    void TearDown() override { EXPECT_TRUE(driver.done()) << driver.report(); }

    static QTableWidget* table(const QDialog& form) { return form.findChild<QTableWidget*>("CatalogTable"); }
    static HeatExchangeTable* pairs(const QDialog& form) { return form.findChild<HeatExchangeTable*>("HeatExchange"); }
    static void press(const QDialog& form, const char* name) { form.findChild<QPushButton*>(name)->click(); }
    static QLineEdit* line(const QDialog& form, const char* name) { return form.findChild<QLineEdit*>(name); }
    static QString title(const QDialog& form) { return form.findChild<QLabel*>("TitleLabel")->text(); }
    static void choose(const QDialog& form, int row)
    {
        table(form)->setCurrentCell(row, 0);
        QCoreApplication::processEvents();
    }
    void menu(QDialog& form, const QString& entry)
    {
        form.show();
        driver.window("TSGCatalogForm").step("menu", {"HeatExchange", "0", "0"}).step("choose", {entry});
    }
    QStringList names()
    {
        QStringList names;
        for (const QStringList& row : database->rows("select name from tsg_catalog order by catalog_id"))
            names << row[0];
        return names;
    }

    PositionSession database;
    ConsoleCapture console;
    ModalDriver driver;
    QTemporaryDir folder;
};

} // namespace

TEST_F(TsgForms, TheCatalogueSaysWhatItAlwaysSaid)
{
    const TSGCatalogForm form;
    EXPECT_EQ(form.objectName(), "TSGCatalogForm");
    EXPECT_EQ(form.windowTitle(), "Типовые элементы ТСГ");
    EXPECT_EQ(titlesOf(*table(form)), QStringList({"Наименование", "Примечание"}));
    QStringList buttons;
    for (const QPushButton* button : form.findChildren<QPushButton*>())
        buttons << button->text();
    EXPECT_EQ(buttons, QStringList({"Новый", "Копировать", "Удалить", "Сохранить", "Закрыть"}));
    const QStringList texts = textsOf(form);
    for (const char* caption : {"Наименование", "Примечание", "Конденсатор", "Испаритель", "Теплообменник", "Скорость",
                                "Площадь, м²", "Длина, м", "Радиус, м", "Эффективность", "Включён"})
        EXPECT_TRUE(texts.contains(caption)) << caption;
    EXPECT_EQ(pairs(form)->verticalHeaderItem(0)->text(), "Скорость ветра м/с");
    EXPECT_EQ(pairs(form)->verticalHeaderItem(1)->text(), " a конд.");
    EXPECT_FALSE(form.findChild<TSGEntryPane*>()->isEnabled()) << "nothing is chosen";
}

TEST_F(TsgForms, TheChosenEntryIsShown)
{
    TSGCatalogForm form;
    ASSERT_EQ(table(form)->rowCount(), 2);
    EXPECT_EQ(table(form)->item(0, 1)->text(), "Типовой");
    choose(form, 0);
    EXPECT_EQ(title(form), "СОУ: ТК-32");
    EXPECT_EQ(line(form, "condensatot_eff")->text(), "0.9");
    EXPECT_EQ(line(form, "vaporizer_length")->text(), "10");
    EXPECT_TRUE(form.findChild<QCheckBox*>("exchanger_switch")->isChecked());
    ASSERT_EQ(pairs(form)->columnCount(), 2);
    EXPECT_EQ(pairs(form)->item(1, 1)->text(), "9.4");
    EXPECT_TRUE(takePicture(form, "tsg-catalog"));
    choose(form, 1);
    EXPECT_EQ(title(form), "СОУ: ТК-38");
    EXPECT_EQ(line(form, "condensatot_eff")->text(), "");
    EXPECT_EQ(pairs(form)->columnCount(), 0);
}

TEST_F(TsgForms, AnEntryIsStoredWithAllItsNumbers)
{
    TSGCatalogForm form;
    choose(form, 1);
    line(form, "note")->setText("Новое");
    line(form, "exchanger_radius")->setText("0.5");
    form.findChild<QCheckBox*>("exchanger_switch")->setChecked(true);
    pairs(form)->setColumnCount(1);
    pairs(form)->setItem(0, 0, new QTableWidgetItem("3"));
    pairs(form)->setItem(1, 0, new QTableWidgetItem("7.5"));
    press(form, "SaveBTN");
    EXPECT_EQ(database->rows("select name, note, condensator_area, exchanger_radius, exchanger_switch, "
                             "heat_exchange_params from tsg_catalog where catalog_id = 2"),
              QVector<QStringList>({{"ТК-38", "Новое", QString(), "0.5", "1", "3:7.5"}}));
    EXPECT_EQ(title(form), "СОУ: ТК-38");
    EXPECT_EQ(table(form)->item(table(form)->currentRow(), 1)->text(), "Новое");
    EXPECT_EQ(database->value("select note from tsg_catalog where catalog_id = 1"), "Типовой");
}

TEST_F(TsgForms, NewAndCopiedEntriesAreStoredAtOnce)
{
    TSGCatalogForm form;
    press(form, "CreateBTN");
    EXPECT_EQ(title(form), "СОУ: Новый СОУ");
    driver.expect("Внимание").text("Такое имя уже есть в базе данных").press("OK");
    press(form, "CreateBTN");
    choose(form, 0);
    press(form, "CopyBTN");
    EXPECT_EQ(title(form), "СОУ: ТК-32(копия)");
    driver.expect("Внимание").text("Такое имя уже есть в базе данных").press("OK");
    choose(form, 0);
    press(form, "CopyBTN");
    EXPECT_EQ(names(), QStringList({"ТК-32", "ТК-38", "Новый СОУ", "ТК-32(копия)"}));
    EXPECT_EQ(database->value("select heat_exchange_params from tsg_catalog where name = 'ТК-32(копия)'"),
              "0:5.1|2:9.4");
    EXPECT_EQ(database->value("select vaporizer_length from tsg_catalog where name = 'ТК-32(копия)'"), "10");
}

TEST_F(TsgForms, ANameOfAnotherEntryIsNotTaken)
{
    TSGCatalogForm form;
    choose(form, 1);
    line(form, "name")->setText("ТК-32");
    driver.expect("Внимание").text("Такое имя уже есть в базе данных").press("OK");
    press(form, "SaveBTN");
    EXPECT_EQ(names(), QStringList({"ТК-32", "ТК-38"}));
    line(form, "name")->setText("");
    driver.expect("Внимание").text("Поле 'Наименование' обязательно для заполнения").press("OK");
    press(form, "SaveBTN");
    line(form, "name")->setText("O'Нил");
    driver.expect("Ошибка базы данных").textContains("Не удалось сохранить СОУ:\n\nЗапрос не отправлен").press("OK");
    press(form, "SaveBTN");
    EXPECT_EQ(names(), QStringList({"ТК-32", "ТК-38"}));
    EXPECT_EQ(line(form, "name")->text(), "O'Нил") << "what the user entered stays";
}

TEST_F(TsgForms, AnEntryIsDeletedOnRequest)
{
    TSGCatalogForm form;
    driver.expect("Внимание").text("Ничего не выбрано!").press("OK");
    press(form, "DeleteBTN");
    driver.expect("Внимание").text("Ничего не выбрано!").press("OK");
    press(form, "CopyBTN");
    choose(form, 0);
    driver.expect("Внимание").text("Удалить СОУ ТК-32 ?").press("Нет");
    press(form, "DeleteBTN");
    driver.expect("Внимание").text("Удалить СОУ ТК-32 ?").press("Да");
    press(form, "DeleteBTN");
    EXPECT_EQ(names(), QStringList({"ТК-38"}));
    EXPECT_EQ(table(form)->rowCount(), 1);
}

TEST_F(TsgForms, ChangesAreNotLostWithoutAQuestion)
{
    TSGCatalogForm form;
    form.show();
    choose(form, 0);
    line(form, "note")->setText("иное");
    driver.expect("Подтверждение").text("Изменения не сохранятся").press("Нет");
    choose(form, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(table(form)->currentRow(), 0);
    EXPECT_EQ(line(form, "note")->text(), "иное");
    driver.expect("Подтверждение").press("Нет");
    press(form, "CloseBTN");
    EXPECT_TRUE(form.isVisible());
    driver.expect("Подтверждение").press("Да");
    choose(form, 1);
    EXPECT_EQ(title(form), "СОУ: ТК-38");
    pairs(form)->setColumnCount(1);
    pairs(form)->setItem(0, 0, new QTableWidgetItem("1"));
    driver.expect("Подтверждение").press("Да");
    press(form, "CloseBTN");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(database->value("select note from tsg_catalog where catalog_id = 1"), "Типовой");
}

TEST_F(TsgForms, PairsAreEditedByTheirMenu)
{
    TSGCatalogForm form;
    choose(form, 0);
    pairs(form)->setCurrentCell(0, 0);
    menu(form, "Создать столбец");
    driver.play();
    ASSERT_EQ(pairs(form)->columnCount(), 3);
    EXPECT_EQ(pairs(form)->item(0, 1)->text(), "") << "behind the current one";
    driver.expect("Внимание").text("В столбце 2 нужны скорость и коэффициент").press("OK");
    press(form, "SaveBTN");
    pairs(form)->setCurrentCell(0, 1);
    menu(form, "Удалить столбец");
    driver.play();
    EXPECT_EQ(pairs(form)->columnCount(), 2);
    menu(form, "Очистить");
    driver.play();
    EXPECT_EQ(pairs(form)->columnCount(), 0);
    press(form, "SaveBTN");
    EXPECT_EQ(database->value("select heat_exchange_params from tsg_catalog where catalog_id = 1"), "");
}

TEST_F(TsgForms, PairsGoOutToAFileAndBack)
{
    TSGCatalogForm form;
    choose(form, 0);
    const QString path = folder.filePath("пары.csv");
    menu(form, "Экспорт CSV");
    driver.expect("Экспорт CSV")
        .call([](QWidget* box) {
            const auto* name = box->findChild<QLineEdit*>();
            return name && name->text() == "Параметры теплообмена СОУ ТК-32.csv" ? QString() : "another name";
        })
        .files({path});
    driver.play();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QTextCodec::codecForName("Windows-1251")->toUnicode(file.readAll()),
              "Скорость ветра м/с; a конд.\n0;5.1\n2;9.4\n");
    choose(form, 1);
    pairs(form)->setColumnCount(1);
    menu(form, "Импорт CSV");
    driver.expect("Импорт CSV").files({path});
    driver.play();
    ASSERT_EQ(pairs(form)->columnCount(), 2);
    EXPECT_EQ(pairs(form)->item(1, 0)->text(), "5.1");
    press(form, "SaveBTN");
    EXPECT_EQ(database->value("select heat_exchange_params from tsg_catalog where catalog_id = 2"), "0:5.1|2:9.4");
}

TEST_F(TsgForms, AFileWithoutPairsIsTold)
{
    TSGCatalogForm form;
    choose(form, 0);
    QFile file(folder.filePath("пусто.csv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("a;b\n");
    file.close();
    menu(form, "Импорт CSV");
    driver.expect("Импорт CSV").files({file.fileName()});
    driver.expect("Внимание").text("В файле нет пар скорости и коэффициента").press("OK");
    driver.play();
    EXPECT_EQ(pairs(form)->columnCount(), 2);
    menu(form, "Экспорт CSV");
    const FileSizeLimit full(20);
    driver.expect("Экспорт CSV").files({folder.filePath("полный.csv")});
    driver.expect("Ошибка").textContains("Не удалось записать файл").press("OK");
    driver.play();
    EXPECT_FALSE(QFile::exists(folder.filePath("полный.csv")));
}

TEST_F(TsgForms, TheCommandOutlivesEveryStatementThatFails)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    int refused = 0;
    for (int statement = 1; statement <= 3; ++statement) {
        relay.refuse(statement);
        driver.expect("Типовые элементы ТСГ").press("CloseBTN");
        openThermostabiliserCatalogue();
        refused += relay.hasRefused();
    }
    EXPECT_EQ(refused, 3) << "keys, two entries";
    for (int statement = 1; statement <= 2; ++statement) {
        TSGCatalogForm form;
        choose(form, 0);
        line(form, "note")->setText("записка");
        relay.refuse(statement);
        if (statement == 2)
            driver.expect("Ошибка базы данных").textContains("Не удалось сохранить СОУ").press("OK");
        press(form, "SaveBTN");
    }
    EXPECT_EQ(names(), QStringList({"ТК-32", "ТК-38"}));
    session().connection.finish();
}
