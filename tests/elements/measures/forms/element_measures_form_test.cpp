#include "elements/measures/forms/element_measures_form.h"

#include "elements/list/forms/cycle_table_view.h"
#include "elements/measures/forms/measure_commands.h"
#include "elements/measures/measured_elements.h"
#include "support/pictures.h"

#include <script/modal_driver.h>

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

class MeasuresForm : public MeasuredElements {
protected:
    MeasuresForm()
    {
        for (const FamilyValues& values : familyValues)
            fillFamily(values);
        session().baseCycleId = 1;
        session().currentCycleId = 2;
    }
    static CycleTableView* view(const QDialog& form) { return form.findChild<CycleTableView*>("MeasView"); }
    static void choose(const QDialog& form, const char* combo, const QString& text)
    {
        auto* box = form.findChild<QComboBox*>(combo);
        ASSERT_GE(box->findText(text), 0) << text;
        box->setCurrentIndex(box->findText(text));
    }
    static void press(const QDialog& form, const char* name) { form.findChild<QPushButton*>(name)->click(); }
    static QStringList items(const QDialog& form, const char* combo)
    {
        const auto* box = form.findChild<QComboBox*>(combo);
        QStringList texts;
        for (int i = 0; i < box->count(); ++i)
            texts.append(box->itemText(i));
        return texts;
    }
    static QVector<QStringList> shown(const QDialog& form)
    {
        const QAbstractItemModel* model = view(form)->model();
        QVector<QStringList> rows;
        for (int row = 0; row < model->rowCount(); ++row) {
            rows.append(QStringList());
            for (int column = 0; column < model->columnCount(); ++column)
                rows.last().append(model->index(row, column).data().toString());
        }
        return rows;
    }
    static void unmark(const QDialog& form, int row)
    {
        QAbstractItemModel* model = view(form)->model();
        ASSERT_TRUE(model->setData(model->index(row, 0), Qt::Unchecked, Qt::CheckStateRole));
    }

    ModalDriver driver;
    QTemporaryDir folder;
};

} // namespace

TEST_F(MeasuresForm, SaysWhatItIs)
{
    const ElementMeasuresForm form;
    EXPECT_EQ(form.windowTitle(), "Управление измерениями элементов ГМН");
    QStringList captions, buttons;
    for (const QLabel* label : form.findChildren<QLabel*>())
        captions.append(label->text());
    EXPECT_EQ(captions, (QStringList{"Тип элемента ГМН", "Исходный цикл", "Позиция", "Цикл назначения"}));
    for (const QPushButton* button : form.findChildren<QPushButton*>())
        buttons << button->objectName() << button->text();
    EXPECT_EQ(buttons,
              (QStringList{"CopyMeasBTN", "Перенести измерения", "DeleteMeasBTN", "Удалить измерения для всего цикла",
                           "ExportMeasBTN", "Экспорт измерений", "CloseBtn", "Закрыть"}));
    EXPECT_EQ(items(form, "ElementTypeCombo"),
              (QStringList{"Деформационные марки", "Термометрические скважины", "Реперы", "Точки снегомерной съемки",
                           "Гидрогеологические скважины", "Термостабилизационные элементы"}));
    EXPECT_EQ(items(form, "PositionCombo"), (QStringList{"Все", "Проект", "Объект", "Подобъект", "Позиция", "Другая"}));
    EXPECT_EQ(items(form, "BaseCyclesCombo"), items(form, "CurrentCyclesCombo"));
    EXPECT_EQ(items(form, "BaseCyclesCombo").size(), 3);
    EXPECT_EQ(form.findChild<QComboBox*>("BaseCyclesCombo")->currentData().toInt(), 1);
    EXPECT_EQ(form.findChild<QComboBox*>("CurrentCyclesCombo")->currentData().toInt(), 2);
}

TEST_F(MeasuresForm, ShowsWhichElementHasWhatInWhichCycle)
{
    ElementMeasuresForm form;
    const QVector<QStringList> all = {
        {"Д-1", "--", "--", "--"}, {"Т-2", "06.01.2021", "07.02.2021", "--"}, {"Т-10", "05.01.2021", "--", "--"}};
    EXPECT_EQ(shown(form), all);
    EXPECT_TRUE(takePicture(form, "element-measures"));
    for (const QString& family : items(form, "ElementTypeCombo")) {
        choose(form, "ElementTypeCombo", family);
        EXPECT_EQ(shown(form), all) << family;
    }
    choose(form, "PositionCombo", "Другая");
    EXPECT_EQ(shown(form), all.mid(0, 1));
    choose(form, "PositionCombo", "Объект");
    EXPECT_EQ(shown(form), all);
    database->exec("delete from tsg_meas where meas_id = 1");
    choose(form, "BaseCyclesCombo", items(form, "BaseCyclesCombo")[1]);
    EXPECT_EQ(shown(form)[2], (QStringList{"Т-10", "--", "--", "--"})) << "a change of cycle reads anew";
}

TEST_F(MeasuresForm, ADoubleClickOpensTheFamilysDialog)
{
    ElementMeasuresForm form;
    form.show();
    driver.window("ElementMeasuresForm").step("double", {"MeasView", "Т-10", "Цикл 1"});
    driver.expect("Измерение деформационной марки").check("ElementName", "Т-10").set("dateTimeEdit", "08.01.2021");
    driver.expect("Измерение деформационной марки").press("ApplyBTN");
    driver.window("ElementMeasuresForm").step("double", {"MeasView", "Т-10", "Цикл 2"});
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(shown(form)[2], (QStringList{"Т-10", "08.01.2021", "--", "--"}));
}

TEST_F(MeasuresForm, CopiesTheMarkedAndAsksOnceForAll)
{
    ElementMeasuresForm form;
    insertMeasure(familyValues[0], 4, 3, 1, "'2021-01-04'", "7");
    insertMeasure(familyValues[0], 5, 3, 2, "'2021-02-04'", "8");
    driver.expect("Внимание")
        .text("Для выделенных элементов будут скопированы измерения \n из цикла 1 в цикл 2")
        .press("Да");
    driver.expect("Внимание!").text("Элемент уже содержит измерения, заменить их ? ").press("Да для всех");
    choose(form, "PositionCombo", "Проект");
    press(form, "CopyMeasBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(shown(form),
              (QVector<QStringList>{{"Д-1", "04.01.2021", "04.01.2021", "--"},
                                    {"Т-2", "06.01.2021", "06.01.2021", "--"},
                                    {"Т-10", "05.01.2021", "05.01.2021", "--"}}));
}

TEST_F(MeasuresForm, WhatIsNotMarkedIsNotCopiedAndStaysUnmarked)
{
    ElementMeasuresForm form;
    unmark(form, 1);
    driver.expect("Внимание").textContains("из цикла 1 в цикл 2").press("Да");
    press(form, "CopyMeasBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(shown(form)[1], (QStringList{"Т-2", "06.01.2021", "07.02.2021", "--"}));
    EXPECT_EQ(shown(form)[2], (QStringList{"Т-10", "05.01.2021", "05.01.2021", "--"}));
    EXPECT_EQ(view(form)->markedRows().size(), 2u);
    driver.expect("Внимание").press("Нет");
    press(form, "CopyMeasBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database->value("select count(*) from dm_meas"), "4");
}

TEST_F(MeasuresForm, ACycleIsNotCopiedOntoItself)
{
    ElementMeasuresForm form;
    EXPECT_TRUE(form.findChild<QPushButton*>("CopyMeasBTN")->isEnabled());
    choose(form, "BaseCyclesCombo", items(form, "BaseCyclesCombo")[1]);
    EXPECT_FALSE(form.findChild<QPushButton*>("CopyMeasBTN")->isEnabled());
}

TEST_F(MeasuresForm, DeletesACyclesMeasuresAfterTheQuestion)
{
    ElementMeasuresForm form;
    driver.expect("Укажите цикл измерений").press("Отмена");
    press(form, "DeleteMeasBTN");
    driver.expect("Укажите цикл измерений").set("CycleCombo", "data:1").press("ОК");
    driver.expect("Внимание").text("Для выделенных элементов будут удалены измерения\n для цикла 1 ").press("Нет");
    press(form, "DeleteMeasBTN");
    EXPECT_EQ(database->value("select count(*) from dm_meas"), "3");
    unmark(form, 2);
    driver.expect("Укажите цикл измерений").set("CycleCombo", "data:1").press("ОК");
    driver.expect("Внимание").press("Да");
    press(form, "DeleteMeasBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(shown(form)[1], (QStringList{"Т-2", "--", "07.02.2021", "--"}));
    EXPECT_EQ(shown(form)[2], (QStringList{"Т-10", "05.01.2021", "--", "--"}));
}

TEST_F(MeasuresForm, ExportsWhatIsMarkedInTheOrderOfTheTable)
{
    ElementMeasuresForm form;
    const QString path = folder.filePath("marks.csv");
    driver.expect("Сохранить измерения").files({path});
    driver.expect("Успех").text("Экспорт успешно завершен.").press("OK");
    press(form, "ExportMeasBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()),
              "Имя;Дата;Отметка;SN прибора\nТ-2;06.01.2021;12.346;SN-1\nТ-2;07.02.2021;13.500;SN-1\n"
              "Т-10;05.01.2021;12.346;SN-1\n");
}

TEST_F(MeasuresForm, TellsWhyNothingIsExported)
{
    ElementMeasuresForm form;
    for (const char* family : {"Точки снегомерной съемки", "Термостабилизационные элементы"}) {
        choose(form, "ElementTypeCombo", family);
        driver.expect("Внимание")
            .text("Экспорт в данный момент поддерживается только для термометрии (ts), деформаций (dm), реперов (rp) и "
                  "гидрогеологии (ggs).")
            .press("OK");
        press(form, "ExportMeasBTN");
    }
    choose(form, "ElementTypeCombo", "Деформационные марки");
    choose(form, "PositionCombo", "Другая");
    driver.expect("Информация").text("Нет данных для экспорта.").press("OK");
    press(form, "ExportMeasBTN");
    choose(form, "PositionCombo", "Все");
    ASSERT_TRUE(QFile(folder.filePath("plain")).open(QIODevice::WriteOnly));
    driver.expect("Сохранить измерения").files({folder.filePath("plain/below.csv")});
    driver.expect("Ошибка").text("Не удалось открыть файл для записи.").press("OK");
    press(form, "ExportMeasBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(MeasuresForm, TheMenuMarksAllNoneAndTheOthers)
{
    ElementMeasuresForm form;
    form.show();
    const struct {
        const char* entry;
        size_t marked;
    } steps[] = {{"Снять все", 0}, {"Инвертировать выбор", 3}, {"Снять все", 0}, {"Выбрать все", 3}};
    for (const auto& step : steps) {
        driver.window("ElementMeasuresForm").step("menu", {"MeasView", "0", "0"}).step("choose", {step.entry});
        driver.play();
        EXPECT_TRUE(driver.done()) << driver.report();
        EXPECT_EQ(view(form)->markedRows().size(), step.marked) << step.entry;
    }
}

TEST_F(MeasuresForm, AServerLostBetweenTheQuestionAndTheWriteChangesNothing)
{
    ElementMeasuresForm form;
    const auto before = shown(form);
    driver.expect("Внимание").textContains("скопированы").call([this](QWidget*) {
        database.disconnect();
        return QString();
    });
    driver.expect("Внимание").press("Да");
    press(form, "CopyMeasBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(shown(form), before);
    database.connect();
    EXPECT_EQ(database->value("select count(*) from dm_meas"), "3");
}

TEST_F(MeasuresForm, WithoutAConnectionTheCommandSaysSoAndShowsAnEmptyForm)
{
    database.disconnect();
    driver.expect("Управление измерениями элементов ГМН").step("rows", {"MeasView", "0"}).close();
    manageMeasures();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.text(), "\nНе установлено соединение с базой данных\n");
}
