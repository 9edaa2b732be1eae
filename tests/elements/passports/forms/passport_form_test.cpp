// The passports: what they say, what they write, how they are reached.
#include "elements/passports/forms/element_passport.h"

#include "charts/forms/chart_label.h"
#include "elements/forms/image_cropper.h"
#include "elements/forms/label_clickable.h"
#include "elements/forms/passports.h"
#include "elements/passports/forms/inspector_pane.h"
#include "elements/passports/forms/passport_opening.h"
#include "elements/passports/passport_elements.h"
#include "support/element_drawing.h"
#include "support/form_texts.h"
#include "support/pictures.h"

#include <drawing/editor_reactors.h>
#include <script/modal_driver.h>

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

namespace {

struct PassportCase {
    FamilyKey family;
    const char* name;
    const char* title;
    QStringList tabs;
    QStringList fields; ///< captions of the first page
};

const QStringList usualTabs = {"Общие", "Измерения", "Графика"};
const QStringList plainFields = {"ID:", "Имя", "Позиция", "Состояние"};
const QStringList placeFields = {"X", "Y", "Абс. Отметка", "Высота на землей"};

const PassportCase passportCases[] = {
    {FamilyKey::Dm, "DMElementPassport", "Паспорт деформационной марки Т-10", usualTabs,
     plainFields + QStringList{"Тип конструкции"} + placeFields},
    {FamilyKey::Ts,
     "TSElementPassport",
     "Паспорт термоскважины Т-10",
     {"Общие", "Измерения", "Геология", "Графика", "Огибающие", "Изотермы"},
     plainFields + QStringList{"Тип конструкции", "Проектная глубина", "Глубина"} + placeFields},
    {FamilyKey::Rp, "RPElementPassport", "Паспорт репера Т-10", usualTabs,
     plainFields + QStringList{"Тип конструкции"} + placeFields},
    {FamilyKey::Ggs, "GGSElementPassport", "Паспорт гидрогеологической скважины Т-10", usualTabs,
     plainFields + QStringList{"Тип конструкции"} + placeFields},
    {FamilyKey::Igs,
     "IGSElementPassport",
     "Паспорт геологической скважины: Т-10",
     {"Общие данные", "Слои литологии"},
     {"ID:", "Название:", "Тип:", "Позиция:", "Состояние:", "Координата X:", "Координата Y:",
      "Абсолютная отметка устья:", "Высота:", "Дата бурения:", "Уровень грунтовых вод (м):", "Описание:"}},
    {FamilyKey::Tss, "TSSElementPassport", "Паспорт точки снегомерной съемки  Т-10", usualTabs,
     plainFields + QStringList{"Тип конструкции"} + placeFields},
    {FamilyKey::Tsg, "TSGElementPassport", "Паспорт термостабилизационного элемента Т-10", usualTabs,
     plainFields + QStringList{"Тип конструкции", "Тип СОУ"} + placeFields + QStringList{"Заглубление"}},
};

void PrintTo(const PassportCase& c, std::ostream* out) { *out << c.name; }

QStringList captionsOf(const QWidget& page)
{
    QStringList captions;
    for (const QFormLayout* layout : page.findChildren<QFormLayout*>()) {
        for (int row = 0; row < layout->rowCount(); ++row)
            captions << static_cast<QLabel*>(layout->itemAt(row, QFormLayout::LabelRole)->widget())->text();
    }
    captions.sort();
    return captions;
}

class Passports : public PassportElements {
protected:
    static QTabWidget* tabs(ElementPassport& form) { return child<QTabWidget>(form, "Tabs"); }
    static void press(QWidget& form, const char* name) { child<QPushButton>(form, name)->click(); }
    static QString field(QWidget& form, const char* name)
    {
        if (const auto* combo = form.findChild<QComboBox*>(name))
            return combo->currentData().toString();
        return child<QLineEdit>(form, name)->text();
    }
    static void type(QWidget& form, const char* name, const QString& text)
    {
        child<QLineEdit>(form, name)->setText(text);
    }
    static void choose(QWidget& form, const char* name, const QVariant& data)
    {
        auto* combo = child<QComboBox>(form, name);
        combo->setCurrentIndex(combo->findData(data));
    }
    // Opens the view's menu on the cell and chooses.
    void menu(QWidget& form, const char* view, int row, int column, const char* entry)
    {
        form.show();
        driver.window(form.objectName())
            .step("menu", {view, QString::number(row), QString::number(column)})
            .step("choose", {entry});
    }

    ModalDriver driver;
};

class EachPassport : public Passports, public ::testing::WithParamInterface<PassportCase> {
protected:
    EachPassport() { fillElements(GetParam().family); }
    const Family& tables() const { return family(GetParam().family); }
};

} // namespace

TEST_P(EachPassport, SaysWhatItIs)
{
    ElementPassport form(GetParam().family, 1);
    EXPECT_EQ(form.objectName(), GetParam().name);
    EXPECT_EQ(form.windowTitle(), GetParam().title);
    EXPECT_EQ(tabsOf(form), GetParam().tabs);
    QStringList expected = GetParam().fields;
    expected.sort();
    EXPECT_EQ(captionsOf(*tabs(form)->widget(0)), expected);
    EXPECT_EQ(child<QPushButton>(form, "ApplyBtn")->text(), "Применить");
    EXPECT_EQ(child<QPushButton>(form, "ExportDocBtn")->text(), "Экспорт в документ");
    EXPECT_EQ(child<QPushButton>(form, "CloseBtn")->text(), "Закрыть");
    EXPECT_EQ(child<QPushButton>(form, "ShowBtn")->text(), "Показать в чертеже");
    EXPECT_EQ(child<QPushButton>(form, "ExportDocBtn")->isEnabled(), GetParam().family == FamilyKey::Ts);
    EXPECT_EQ(child<QLabel>(form, "ID_Label")->text(), "1");
    EXPECT_EQ(field(form, "ElementName"), "Т-10");
    EXPECT_EQ(field(form, "StateCombo"), "exist");
    EXPECT_EQ(field(form, "PositionCombo"), "7");
    EXPECT_EQ(field(form, "X"), "101");
    EXPECT_EQ(field(form, "H"), "1.5");
    if (!GetParam().tabs.contains("Графика"))
        return;
    QStringList groups;
    for (const QGroupBox* box : form.findChildren<QGroupBox*>())
        groups << box->title();
    for (const char* title : {"Обследование", "Координаты", "Фотография", "Абрис"})
        EXPECT_TRUE(groups.contains(title)) << title;
    EXPECT_TRUE(groups.contains(GetParam().family == FamilyKey::Ts ? "Колонка" : "Общий вид"));
}

TEST_P(EachPassport, WithoutARowIsEmptyAndHasNoTitleOfItsOwn)
{
    ElementPassport form(GetParam().family, 99);
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(form.windowTitle(), passportFamily(GetParam().family).plainTitle);
    EXPECT_EQ(child<QLabel>(form, "ID_Label")->text(), "");
    for (const char* name : {"ElementName", "X", "Y", "Z", "H", "TypeCombo", "PositionCombo", "StateCombo"})
        EXPECT_EQ(field(form, name), "") << name;
    for (const char* name : {"ApplyBtn", "ExportDocBtn", "ShowBtn"})
        EXPECT_FALSE(child<QPushButton>(form, name)->isEnabled()) << name;
    form.show();
    for (int tab = 0; tab < tabs(form)->count(); ++tab)
        tabs(form)->setCurrentIndex(tab);
    database.disconnect();
    const ElementPassport lost(GetParam().family, 1);
    EXPECT_FALSE(lost.isLoaded());
}

TEST_P(EachPassport, AppliesTheRowAndNotTheDrawing)
{
    ElementDrawing drawing;
    drawing.addAllKinds();
    ElementBlock block(tables().kinds.first());
    block.setAttribute("element_id", "1");
    block.insertBlock();
    ElementPassport form(GetParam().family, 1);
    type(form, "ElementName", "Новая");
    type(form, "X", "-7.25");
    choose(form, "PositionCombo", "8");
    choose(form, "StateCombo", "broken");
    if (GetParam().family == FamilyKey::Igs)
        driver.expect("Успех").text("Данные сохранены").press("OK");
    press(form, "ApplyBtn");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), "\nЭлемент Новая успешно обновлен");
    EXPECT_EQ(database->rows(fill("select element_name, x, position_id, state_id from %1 where element_id = 1",
                                  tables().elements)),
              (QVector<QStringList>{{"Новая", "-7.25", "8", "broken"}}));
    EXPECT_TRUE(form.windowTitle().endsWith("Новая"));
    EXPECT_EQ(ElementDrawing::reference(drawing.references()[0]).position().x, 0.0);
    press(form, "ShowBtn");
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(EachPassport, ANameOfThePositionIsRefused)
{
    ElementPassport form(GetParam().family, 1);
    type(form, "ElementName", "Т-2");
    driver.expect("Внимание")
        .text(GetParam().family == FamilyKey::Igs ? "Скважина с таким названием уже существует в данной позиции"
                                                  : "Имя \"Т-2\" уже есть в базе данных")
        .press("OK");
    press(form, "ApplyBtn");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), "");
    EXPECT_EQ(cell("element_name", tables(), 1), "Т-10");
    type(form, "ElementName", "Д-1"); // stands in another position
    if (GetParam().family == FamilyKey::Igs)
        driver.expect("Успех").press("OK");
    press(form, "ApplyBtn");
    EXPECT_EQ(cell("element_name", tables(), 1), "Д-1");
}

TEST_P(EachPassport, WhatIsRefusedStaysInTheFieldsWithoutAWord)
{
    ElementPassport form(GetParam().family, 1);
    type(form, "ElementName", "д'Арк");
    press(form, "ApplyBtn");
    type(form, "ElementName", "Иначе");
    type(form, "Y", "");
    press(form, "ApplyBtn");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), "");
    EXPECT_EQ(field(form, "ElementName"), "Иначе");
    EXPECT_EQ(cell("element_name", tables(), 1), "Т-10");
}

INSTANTIATE_TEST_SUITE_P(Families, EachPassport, ::testing::ValuesIn(passportCases));

TEST_F(Passports, ATitleIsSeenWhileAHydrogeologicalWellIsRead)
{
    fillElements(FamilyKey::Ggs);
    ElementPassport form(FamilyKey::Ggs, 2);
    QStringList titles;
    QObject::connect(&form, &QWidget::windowTitleChanged, [&](const QString& title) { titles << title; });
    form.load();
    EXPECT_EQ(titles,
              (QStringList{"Пассорт гидрогеологической скважины Т-2", "Паспорт гидрогеологической скважины Т-2"}));
    EXPECT_EQ(passportFamily(FamilyKey::Dm).plainTitle, "Пасспорт деформмационной марки");
    EXPECT_EQ(passportFamily(FamilyKey::Ts).plainTitle, "Пасспорт термоскважины");
}

TEST_F(Passports, AnEmptyNameOfAGeologicalWellIsRefused)
{
    fillElements(FamilyKey::Igs);
    ElementPassport form(FamilyKey::Igs, 1);
    type(form, "ElementName", " ");
    driver.expect("Внимание").text("Название скважины не может быть пустым").press("OK");
    press(form, "ApplyBtn");
    type(form, "ElementName", "Т-10");
    type(form, "DrillingDate", "31.02.2021");
    driver.expect("Внимание").textContains("Дата бурения").press("OK");
    press(form, "ApplyBtn");
    EXPECT_EQ(database->value("select count(*) from igs_geology_elements"), "0");
    type(form, "DrillingDate", "12.03.2021");
    type(form, "GroundWaterLevel", "4.5");
    driver.expect("Успех").text("Данные сохранены").press("OK");
    press(form, "ApplyBtn");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database->rows("select element_id, drilling_date, ground_water_level from igs_geology_elements"),
              (QVector<QStringList>{{"1", "2021-03-12", "4.5"}}));
    ElementPassport again(FamilyKey::Igs, 1);
    EXPECT_EQ(field(again, "DrillingDate"), "12.03.2021");
}

TEST_F(Passports, TheConstructionOfAThermostabiliserIsChosen)
{
    fillElements(FamilyKey::Tsg);
    database->exec("update tsg_elements set catalog_id = null where element_id = 2");
    ElementPassport form(FamilyKey::Tsg, 1);
    auto* combo = child<QComboBox>(form, "CatalogList");
    EXPECT_EQ(combo->currentText(), "СОУ-4 (старая)");
    choose(form, "CatalogList", 5);
    type(form, "E", "7.75");
    press(form, "ApplyBtn");
    EXPECT_EQ(database->rows("select e, catalog_id from tsg_elements where element_id = 1"),
              (QVector<QStringList>{{"7.75", "5"}}));
    ElementPassport none(FamilyKey::Tsg, 2);
    EXPECT_EQ(child<QComboBox>(none, "CatalogList")->currentText(), "Не установлено");
    press(none, "ApplyBtn");
    EXPECT_EQ(database->value("select catalog_id from tsg_elements where element_id = 2"), "-1");
}

TEST_F(Passports, MeasuresAreEditedAndDeleted)
{
    fillElements(FamilyKey::Dm);
    ElementPassport form(FamilyKey::Dm, 2);
    form.show();
    tabs(form)->setCurrentIndex(1);
    const auto* model = child<QTableView>(form, "MeasView")->model();
    ASSERT_EQ(model->rowCount(), 2);
    menu(form, "MeasView", 0, 1, "Редактировать данные");
    driver.expect("Измерение деформационной марки").set("meas", "11.5").press("ApplyBTN");
    driver.play();
    EXPECT_EQ(console.take(), "\nИзмерение с  id=2 обновлено");
    EXPECT_EQ(model->index(0, 1).data().toString(), "11.5000");
    menu(form, "MeasView", 1, 0, "Удалить измерение");
    driver.expect("Внимание").text("Измерение будет удалено").press("Нет");
    driver.play();
    EXPECT_EQ(model->rowCount(), 2);
    menu(form, "MeasView", 1, 0, "Удалить измерение");
    driver.expect("Внимание").press("Да");
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(model->rowCount(), 1);
    EXPECT_EQ(database->value("select count(*) from dm_meas where meas_dm_id = 3"), "0");
}

TEST_F(Passports, InspectionsAreCreatedEditedCopiedAndDeleted)
{
    fillElements(FamilyKey::Dm);
    ElementPassport form(FamilyKey::Dm, 1);
    const auto* model = child<QTableView>(form, "InspectionsView")->model();
    const int state = model->rowCount() - 1;
    EXPECT_EQ(model->index(state, 1).data().toString(), "--");
    menu(form, "InspectionsView", 0, 1, "Создать ведомость обследования");
    driver.expect("Ведомость обследования ДМ")
        .check("CycleCombo", "Цикл 2 от 01.02.21 до 28.02.21 () ")
        .set("StateCombo", "Разрушена")
        .press("ApplyBTN");
    driver.play();
    EXPECT_EQ(console.take(), "\nДля деформационной марки Т-10 успешно создана ведомость обследования");
    EXPECT_EQ(model->index(state, 1).data().toString(), "Разрушена");
    EXPECT_EQ(field(form, "StateCombo"), "broken") << "the state follows the latest";
    EXPECT_EQ(cell("state_id", family(FamilyKey::Dm), 1), "broken");

    menu(form, "InspectionsView", 0, 1, "Редактировать ведомость обследования");
    driver.expect("Ведомость обследования ДМ").set("Note", "поправлена").press("ApplyBTN");
    driver.play();
    EXPECT_EQ(console.take(), "\nДля деформационной марки Т-10 обновлена ведомость обследования");

    menu(form, "InspectionsView", 0, 1, "Копировать ведомость обследования");
    driver.expect("Ведомость обследования ДМ")
        .check("InspectionID", "--")
        .check("Note", "поправлена")
        .press("ApplyBTN");
    driver.expect("Внимание").textContains("уже содержит ведомость обследования").press("OK");
    driver.expect("Ведомость обследования ДМ").set("CycleCombo", "data:3").press("ApplyBTN");
    driver.play();
    EXPECT_EQ(console.take(), "\nДля деформационной марки Т-10 создана ведомость обследования");
    EXPECT_EQ(database->value("select note from dm_inspection where element_id = 1 and cycle_id = 3"), "поправлена");

    type(form, "X", "5"); // what is typed meanwhile stays
    menu(form, "InspectionsView", 0, 1, "Удалить ведомость обследования");
    driver.expect("Внимание").press("Да");
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), "\nДля деформационной марки Т-10 удалена ведомость обследования");
    EXPECT_EQ(database->value("select count(*) from dm_inspection where element_id = 1"), "2");
    EXPECT_EQ(field(form, "X"), "5");
}

TEST_F(Passports, TheLastInspectionOfAThermalWellLeavesItsDepthAtNothing)
{
    fillElements(FamilyKey::Ts);
    database->exec("update ts_elements set state_id = 'broken' where element_id = 1");
    ElementPassport form(FamilyKey::Ts, 1);
    menu(form, "InspectionsView", 0, 0, "Удалить ведомость обследования");
    driver.expect("Внимание").press("Да");
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(field(form, "Depth"), "0");
    EXPECT_EQ(field(form, "H"), "0");
    EXPECT_EQ(field(form, "DepthProj"), "12");
    EXPECT_EQ(field(form, "StateCombo"), "broken");
}

TEST_F(Passports, PicturesAreUploadedAtOnce)
{
    fillElements(FamilyKey::Dm);
    ElementPassport form(FamilyKey::Dm, 1);
    form.show();
    tabs(form)->setCurrentIndex(2);
    for (const char* name : {"Photo", "NDeskChema", "Column ScreenShot"})
        EXPECT_EQ(child<QLabelClickable>(form, name)->text(), "Двойной клик \n для загрузки");
    driver.expect("Загрузка изображения").call([](QWidget* window) {
        QPixmap made(40, 30);
        made.fill(Qt::darkGreen);
        window->findChild<ImageCropper*>()->setPixmap(made);
        QTest::keyClick(window, Qt::Key_Return);
        return QString();
    });
    driver.expect("Загрузка изображения").press("OkBtn");
    QTest::mouseDClick(child<QLabelClickable>(form, "NDeskChema"), Qt::LeftButton);
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database->rows("select element_id, file_type from dm_files"), (QVector<QStringList>{{"1", "abris"}}));
    ElementPassport again(FamilyKey::Dm, 1);
    again.show();
    tabs(again)->setCurrentIndex(2);
    EXPECT_EQ(child<QLabelClickable>(again, "NDeskChema")->photo().size(), QSize(40, 30));
    EXPECT_TRUE(child<QLabelClickable>(again, "Photo")->photo().isNull());
}

TEST_F(Passports, WithoutATemplateTheDocumentIsToldOf)
{
    fillElements(FamilyKey::Ts);
    ElementPassport form(FamilyKey::Ts, 1);
    session().templateDir = "/nowhere";
    driver.expect("Внимание").textContains("Нет шаблона").press("OK");
    press(form, "ExportDocBtn");
    session().templateDir.clear();
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(Passports, AreOpenedFromTheListAndByADoubleClickOnTheBlock)
{
    fillElements(FamilyKey::Rp);
    ElementDrawing drawing;
    drawing.addAllKinds();
    for (const char* id : {"2", "99", "none"}) {
        ElementBlock block(8);
        block.setAttribute("element_id", id);
        block.insertBlock();
    }
    const QVector<NcDbObjectId> blocks = drawing.references();
    ASSERT_EQ(blocks.size(), 3);
    EXPECT_FALSE(notifyDoubleClick(blocks[0])) << "not installed yet";
    installPassports();
    installPassports();
    driver.expect("Паспорт репера Т-2").press("CloseBtn");
    EXPECT_TRUE(notifyDoubleClick(blocks[0]));
    EXPECT_FALSE(notifyDoubleClick(blocks[1])) << "no such row";
    EXPECT_FALSE(notifyDoubleClick(blocks[2])) << "no key";
    EXPECT_FALSE(notifyDoubleClick(NcDbObjectId()));
    driver.expect("Паспорт репера Т-10").press("CloseBtn");
    openPassport(FamilyKey::Rp, 1, nullptr);
    database.disconnect();
    EXPECT_FALSE(notifyDoubleClick(blocks[0]));
    removePassports();
    database.connect();
    EXPECT_FALSE(notifyDoubleClick(blocks[0]));
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(Passports, OfTwoWhoEditOneMarkTheLaterWins)
{
    fillElements(FamilyKey::Dm);
    database->exec("truncate audit_log");
    ElementPassport first(FamilyKey::Dm, 1), second(FamilyKey::Dm, 1);
    type(first, "X", "1.5");
    type(second, "X", "2.5");
    press(first, "ApplyBtn");
    press(second, "ApplyBtn");
    EXPECT_EQ(cell("x", family(FamilyKey::Dm), 1), "2.5");
    EXPECT_EQ(database->value("select count(*) from audit_log where table_name = 'dm_elements' and operation = "
                              "'UPDATE'"),
              "2");
    first.load();
    EXPECT_EQ(field(first, "X"), "2.5") << "read anew";
}

TEST_F(Passports, LongAndOddNamesAreStoredWhole)
{
    fillElements(FamilyKey::Dm);
    const QString emoji = QString::fromUtf8("М-1 \xF0\x9F\xA7\x8A");
    const QString accents = QString::fromUtf8("Е\xCC\x81-2 %1 %s");
    for (const QString& name : {QString(10000, QChar(u'Ж')), emoji, accents}) {
        ElementPassport form(FamilyKey::Dm, 1);
        type(form, "ElementName", name);
        press(form, "ApplyBtn");
        EXPECT_EQ(cell("element_name", family(FamilyKey::Dm), 1), name);
        EXPECT_EQ(console.take(), "\nЭлемент " + name + " успешно обновлен");
        ElementPassport again(FamilyKey::Dm, 1);
        EXPECT_EQ(field(again, "ElementName"), name);
    }
}
