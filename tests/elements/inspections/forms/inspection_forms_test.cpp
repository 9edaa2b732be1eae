// The form of one inspection and the form over all.
#include "elements/forms/image_cropper.h"
#include "elements/forms/image_uploader.h"
#include "elements/forms/label_clickable.h"
#include "elements/inspections/forms/elements_inspections_form.h"
#include "elements/inspections/forms/inspection_commands.h"
#include "elements/inspections/forms/inspection_form.h"
#include "elements/inspections/inspected_elements.h"
#include "elements/list/forms/cycle_table_view.h"
#include "support/pictures.h"

#include <script/modal_driver.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace {

struct FormCase {
    FamilyFindings findings;
    const char* name;
    const char* title;
    QStringList captions; ///< behind those that all have
};

const FormCase formCases[] = {
    {familyFindings[0],
     "DMInspectionForm",
     "Ведомость обследования ДМ",
     {"Имя деформационной марки", "Маркировка имени", "Маркировка марки", "Целостность конструкции ДМ",
      "Установка рейки", "Удовлетворительное состояние ДМ", "Высокая рейка"}},
    {familyFindings[1],
     "TSInspectionForm",
     "Ведомость обследования ТС",
     {"Имя термоскважины", "Маркировка имени", "Защитный кожух", "Крышка защитного кожуха", "Крышка термотрубки",
      "Утеплитель", "Наличие ледяной пробки в ТТ", "Наличие воды в ТТ", "Удовлетворительное состояние ТС", "Глубина, м",
      "Высота над землей(h), м"}},
    {familyFindings[2],
     "RPInspectionForm",
     "Ведомость обследования РП",
     {"Имя репера", "Ограждение", "Защитный колодец", "Крышка защитного колодца", "Обсадная труба", "Марка",
      "Удовлетворительное состояние RP", "Сальник"}},
    {familyFindings[3],
     "TSSInspectionForm",
     "Ведомость обследования ТСС",
     {"Имя точки снегомерной съемки", "Удовлетворительное состояние ТСC"}},
    {familyFindings[4],
     "GGSInspectionForm",
     "Ведомость обследования ГГС",
     {"Имя гидрогеологической скважины", "Удовлетворительное состояние ГГС", "Маркировка имени", "Защитный кожух",
      "Крышка защитного кожуха", "Крышка ствола", "Утеплитель", "Наличие ледяной пробки ", "Наличие воды в стволе",
      "Высота над землей(h), м", "Уровень грунтовых вод, м"}},
    {familyFindings[5],
     "TSGInspectionForm",
     "Ведомость обследования ТСГ",
     {"Имя термостабилизационного элемента", "Целостность конструкции ТСГ", "Удовлетворительное состояние ТСГ"}},
};

void PrintTo(const FormCase& c, std::ostream* out) { *out << c.name; }

class OneInspection : public InspectedElements, public ::testing::WithParamInterface<FormCase> {
protected:
    OneInspection() : form((fillFamily(GetParam().findings), GetParam().findings.family)) { }
    void save() { form.findChild<QPushButton*>("ApplyBTN")->click(); }
    QStringList captions() const
    {
        const auto* layout = static_cast<QFormLayout*>(form.fields().layout());
        QStringList met;
        for (int row = 0; row < layout->rowCount(); ++row) {
            const auto* box = qobject_cast<QCheckBox*>(layout->itemAt(row, QFormLayout::FieldRole)->widget());
            met.append(box ? box->text()
                           : static_cast<QLabel*>(layout->itemAt(row, QFormLayout::LabelRole)->widget())->text());
        }
        return met;
    }
    void setCycle(int id)
    {
        auto* combo = form.findChild<QComboBox*>("CycleCombo");
        combo->setCurrentIndex(combo->findData(id));
    }

    InspectionForm form;
    ModalDriver driver;
};

} // namespace

TEST_P(OneInspection, SaysWhatItIs)
{
    EXPECT_EQ(form.objectName(), GetParam().name);
    EXPECT_EQ(form.windowTitle(), GetParam().title);
    QStringList expected = GetParam().captions;
    expected.insert(1, "Цикл измерений");
    EXPECT_EQ(captions(), (QStringList{"ID обследования"} + expected + QStringList{"Состояние", "Примечание"}));
    EXPECT_EQ(form.findChild<QGroupBox*>()->title(), "Фото");
    EXPECT_EQ(form.findChild<QLabel*>("PhotoLabel")->text(), "Двойной клик для загрузки");
    EXPECT_EQ(form.findChild<QPushButton*>("ApplyBTN")->text(), "Сохранить");
    EXPECT_EQ(form.findChild<QPushButton*>("CancelBTN")->text(), "Отмена");
}

TEST_P(OneInspection, AStoredOneIsShownAndSavedUnchanged)
{
    const auto before = stored(GetParam().findings);
    ASSERT_TRUE(form.load(1));
    EXPECT_EQ(form.fields().text("InspectionID"), "1");
    EXPECT_EQ(form.fields().text("ElementName"), "Т-10");
    EXPECT_EQ(form.findChild<QComboBox*>("CycleCombo")->currentText(), "Цикл 1 от 01.01.21 до 31.01.21 (зима) ");
    EXPECT_EQ(form.fields().text("StateCombo"), "exist");
    EXPECT_FALSE(form.fields().isDirty());
    EXPECT_TRUE(takePicture(form, QString("inspection-%1").arg(GetParam().findings.prefix)));
    save();
    EXPECT_EQ(form.result(), QDialog::Accepted) << "its own cycle is no conflict";
    EXPECT_EQ(stored(GetParam().findings), before);
    EXPECT_FALSE(form.load(99));
}

TEST_P(OneInspection, ANewOneIsInserted)
{
    form.startNew(3, 2);
    EXPECT_EQ(form.fields().text("InspectionID"), "--");
    EXPECT_EQ(form.fields().text("ElementName"), "Д-1");
    form.findChild<QCheckBox*>("inspectresult")->setChecked(true);
    form.findChild<QPlainTextEdit*>("Note")->setPlainText("осмотрена");
    save();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(form.record().inspectId, 1000);
    EXPECT_EQ(database
                  ->rows(fill("select element_id,cycle_id,inspectresult,note,state_id from %1_inspection where "
                              "inspect_id = 1000",
                              GetParam().findings.prefix))
                  .value(0),
              (QStringList{"3", "2", "1", "осмотрена", "exist"}));
}

TEST_P(OneInspection, ACycleThatIsTakenIsRefused)
{
    const QString refusal = "Выбранный  выбранный цикл уже содержит ведомость обследования";
    const auto before = stored(GetParam().findings);
    form.startNew(2, 1);
    form.show();
    driver.expect("Внимание").text(refusal).press("OK");
    save();
    EXPECT_TRUE(form.isVisible());
    ASSERT_TRUE(form.load(3));
    setCycle(1);
    driver.expect("Внимание").text(refusal).press("OK");
    save();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(stored(GetParam().findings), before);
    setCycle(3);
    save();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(stored(GetParam().findings)[2][1], "3");
}

TEST_P(OneInspection, WhatIsRefusedStaysInTheForm)
{
    ASSERT_TRUE(form.load(1));
    form.show();
    form.findChild<QPlainTextEdit*>("Note")->setPlainText("д'Арк");
    save();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.fields().text("Note"), "д'Арк");
    form.findChild<QPlainTextEdit*>("Note")->setPlainText("иначе");
    database.disconnect();
    save();
    EXPECT_TRUE(form.isVisible());
    database.connect();
    save();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(database->value(fill("select note from %1_inspection where inspect_id = 1", GetParam().findings.prefix)),
              "иначе");
}

TEST_P(OneInspection, ADoubleClickOnThePhotoAsksForOne)
{
    ASSERT_TRUE(form.load(1));
    form.show();
    driver.expect("Загрузка изображения").call([](QWidget* window) {
        auto* uploader = static_cast<ImageUploader*>(window);
        uploader->findChild<ImageCropper*>()->setPixmap(picture());
        QTest::keyClick(uploader, Qt::Key_Return);
        return QString();
    });
    driver.expect("Загрузка изображения").press("OkBtn");
    auto* label = form.findChild<QLabelClickable*>("PhotoLabel");
    QTest::mouseDClick(label, Qt::LeftButton);
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(label->photo().size(), QSize(40, 30));
    EXPECT_EQ(label->text(), "");
    save();
    InspectionRecord read(*inspectionFamily(GetParam().findings.family));
    ASSERT_TRUE(read.load(1));
    EXPECT_EQ(read.photo().size(), QSize(40, 30));
}

INSTANTIATE_TEST_SUITE_P(Families, OneInspection, ::testing::ValuesIn(formCases));

namespace {

class InspectionsForm : public InspectedElements {
protected:
    InspectionsForm()
    {
        for (const FamilyFindings& findings : familyFindings)
            fillFamily(findings);
        session().baseCycleId = 1;
        session().currentCycleId = 2;
    }
    static CycleTableView* view(const QDialog& form) { return form.findChild<CycleTableView*>("InspectionsView"); }
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
    static void press(const QDialog& form, const char* name) { form.findChild<QPushButton*>(name)->click(); }

    ModalDriver driver;
};

} // namespace

TEST_F(InspectionsForm, SaysWhatItIs)
{
    const ElementsInspectionsForm form;
    EXPECT_EQ(form.windowTitle(), "Управление состоянием элементов ГМН");
    QStringList captions, buttons, families;
    for (const QLabel* label : form.findChildren<QLabel*>())
        captions.append(label->text());
    EXPECT_EQ(captions, (QStringList{"Тип элемента ГМН", "Исходный цикл", "Позиция", "Текущий цикл"}));
    for (const QPushButton* button : form.findChildren<QPushButton*>())
        buttons << button->objectName() << button->text();
    EXPECT_EQ(
        buttons,
        (QStringList{"CreateInspectionBTN", "Создать ВО для всего цикла", "CopyInspectionBTN", "Копировать ведомости",
                     "DeleteInspectionBTN", "Удалить ВО для всего цикла", "CloseBtn", "Закрыть"}));
    const auto* box = form.findChild<QComboBox*>("ElementTypeCombo");
    for (int i = 0; i < box->count(); ++i)
        families << box->itemData(i).toString();
    EXPECT_EQ(families, (QStringList{"dm", "ts", "rp", "tss", "ggs", "tsg"}));
    QStringList titles;
    for (int column = 0; column < view(form)->model()->columnCount(); ++column)
        titles << view(form)->model()->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(titles, (QStringList{"Имя", "Тек.состояние", "Цикл 1", "Цикл 2", "Цикл 3"}));
}

TEST_F(InspectionsForm, ShowsEveryFamilysStates)
{
    ElementsInspectionsForm form;
    auto* box = form.findChild<QComboBox*>("ElementTypeCombo");
    for (int i = 0; i < box->count(); ++i) {
        box->setCurrentIndex(i);
        EXPECT_EQ(shown(form),
                  (QVector<QStringList>{{"Д-1", "Разрушена", "--", "--", "--"},
                                        {"Т-2", "Существующий", "Разрушена", "Существующий", "--"},
                                        {"Т-10", "Существующий", "Существующий", "--", "--"}}))
            << box->currentText();
    }
    EXPECT_TRUE(takePicture(form, "elements-inspections"));
}

TEST_F(InspectionsForm, TheDecisionForAllHoldsForOnePressAlone)
{
    ElementsInspectionsForm form;
    for (int press = 0; press < 2; ++press) {
        driver.expect("Внимание").textContains("из цикла 1 в цикл 2").press("Да");
        driver.expect("Внимание!")
            .text("Деформационная марка Т-2 уже содержит ведомость обследования для цикла 'Цикл 2' \n Заменить её?")
            .press(press == 0 ? "Нет для всех" : "Да для всех");
        this->press(form, "CopyInspectionBTN");
        EXPECT_TRUE(driver.done()) << driver.report();
        EXPECT_EQ(shown(form)[1][3], press == 0 ? "Существующий" : "Разрушена");
    }
    EXPECT_EQ(shown(form)[1][1], "Разрушена") << "the state follows";
}

TEST_F(InspectionsForm, APatternThatIsLeftWritesNothing)
{
    ElementsInspectionsForm form;
    driver.expect("Ведомость обследования ДМ").check("InspectionID", "--").press("CancelBTN");
    press(form, "CreateInspectionBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database->value("select count(*) from dm_inspection"), "3");
}

TEST_F(InspectionsForm, AServerLostBetweenTheQuestionAndTheWriteChangesNothing)
{
    ElementsInspectionsForm form;
    const auto before = shown(form);
    driver.expect("Внимание").textContains("скопированы").call([this](QWidget*) {
        database.disconnect();
        return QString();
    });
    driver.expect("Внимание").press("Да");
    press(form, "CopyInspectionBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(shown(form), before) << "a failed select leaves the table as it was";
    database.connect();
    EXPECT_EQ(database->value("select count(*) from dm_inspection"), "3");
}

TEST_F(InspectionsForm, WithoutAConnectionTheCommandSaysSo)
{
    database.disconnect();
    driver.expect("Управление состоянием элементов ГМН").step("rows", {"InspectionsView", "0"}).close();
    manageInspections();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.text(), "\nНе установлено соединение с базой данных\n");
}
