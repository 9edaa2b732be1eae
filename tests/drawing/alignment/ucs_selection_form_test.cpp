#include "drawing/alignment/forms/ucs_selection_form.h"

#include "alignment_fixture.h"
#include "support/pictures.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <script/modal_driver.h>

namespace {

const char* const fieldNames[] = {"OrigX",  "OrigY",  "OrigZ",  "xAxisX", "xAxisY",
                                  "xAxisZ", "yAxisX", "yAxisY", "yAxisZ"};

class UcsForm : public AlignmentFixture {
protected:
    void SetUp() override
    {
        database->exec("truncate ucs_data restart identity;"
                       "insert into ucs_data (ucs_name, ucs_data) values "
                       "('Юг', 'Юг&1&2.5&3&0&1&0&-1&0&0'), ('Север', 'Север&0&0&0&1&0&0&0&1&0'), "
                       "('Старая & плохая', 'Старая & плохая&0&0&0&1&0&0&0&1&0'), ('Без текста', null)");
    }
    static QListWidget& list(const QDialog& form) { return *form.findChild<QListWidget*>("UCSList"); }
    static QLineEdit& field(const QDialog& form, const char* name) { return *form.findChild<QLineEdit*>(name); }
    static QPushButton& button(const QDialog& form, const char* name) { return *form.findChild<QPushButton*>(name); }
    static void choose(QDialog& form, const QString& name)
    {
        const auto found = list(form).findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name;
        list(form).setCurrentItem(found.front());
    }
    static QStringList shown(const QDialog& form)
    {
        QStringList texts;
        for (const char* name : fieldNames)
            texts.append(field(form, name).text());
        return texts;
    }
    QString stored(const QString& name)
    {
        return database->value("select ucs_data from ucs_data where ucs_name = '" + name + "'");
    }
};

} // namespace

TEST_F(UcsForm, ListsSystemsByNameAndShowsTheirNumbers)
{
    UCSSelectionForm form;
    EXPECT_EQ(form.windowTitle(), "Выбор ПСК");
    QStringList names, captions;
    for (int i = 0; i < list(form).count(); ++i)
        names.append(list(form).item(i)->text());
    EXPECT_EQ(names,
              database->rows("select array_to_string(array_agg(ucs_name order by ucs_name), ';') from ucs_data")
                  .value(0)
                  .value(0)
                  .split(';'));
    for (const QLabel* caption : form.findChildren<QLabel*>())
        captions.append(caption->text());
    EXPECT_EQ(captions, (QStringList{"Базовая точка", "Ось Х", "Ось Y"}));
    choose(form, "Юг");
    EXPECT_EQ(shown(form),
              (QStringList{"1.000000", "2.500000", "3.000000", "0.000000", "1.000000", "0.000000", "-1.000000",
                           "0.000000", "0.000000"}));
    EXPECT_EQ(form.shownUcs()->name, "Юг");
    EXPECT_EQ(form.shownUcs()->origin(), NcGePoint3d(1, 2.5, 3));
    EXPECT_TRUE(takePicture(form, "ucs_selection_form"));
}

TEST_F(UcsForm, ATextWithoutTenFieldsShowsNoNumbersAndCannotBeApplied)
{
    UCSSelectionForm form;
    for (const char* name : {"Старая & плохая", "Без текста"}) {
        choose(form, "Юг");
        EXPECT_TRUE(button(form, "OkBtn").isEnabled());
        choose(form, name);
        EXPECT_EQ(shown(form).join(""), "");
        EXPECT_FALSE(form.shownUcs()) << name;
        EXPECT_FALSE(button(form, "OkBtn").isEnabled());
        EXPECT_FALSE(button(form, "SaveBTN").isEnabled());
    }
}

TEST_F(UcsForm, AFieldWithoutANumberAllowsNothing)
{
    UCSSelectionForm form;
    choose(form, "Юг");
    for (const char* bad : {"", "-", "."}) {
        field(form, "xAxisY").setText(bad);
        EXPECT_FALSE(form.shownUcs());
        EXPECT_FALSE(button(form, "OkBtn").isEnabled());
    }
    field(form, "xAxisY").setText("0.5");
    EXPECT_EQ(form.shownUcs()->xAxis(), NcGeVector3d(0, 0.5, 0));
    EXPECT_TRUE(button(form, "OkBtn").isEnabled());
}

TEST_F(UcsForm, SavingStoresNameAndNumbersOfThatRowAlone)
{
    UCSSelectionForm form;
    choose(form, "Юг");
    list(form).currentItem()->setText("Ю'г & <2>");
    field(form, "OrigX").setText("7.1234567");
    button(form, "SaveBTN").click();
    EXPECT_EQ(stored("Ю г    2 "),
              "Ю г    2 &7.123457&2.500000&3.000000&0.000000&1.000000&0.000000&-1.000000&0.000000&0.000000");
    EXPECT_EQ(list(form).currentItem()->text(), "Ю г    2 ");
    EXPECT_EQ(stored("Север"), "Север&0&0&0&1&0&0&0&1&0");
    EXPECT_EQ(database->value("select count(*) from ucs_data"), "4");
    EXPECT_TRUE(form.isEnabled());
    choose(form, "Север");
    choose(form, "Ю г    2 ");
    EXPECT_EQ(field(form, "OrigX").text(), "7.123457");
}

TEST_F(UcsForm, ASpoiledSystemIsMendedBySaving)
{
    UCSSelectionForm form;
    choose(form, "Старая & плохая");
    for (const char* name : fieldNames)
        field(form, name).setText("1");
    button(form, "SaveBTN").click();
    EXPECT_EQ(stored("Старая   плохая"),
              "Старая   плохая&1.000000&1.000000&1.000000&1.000000&1.000000&1.000000&1.000000&1.000000&1.000000");
}

TEST_F(UcsForm, TheContextMenuDeletes)
{
    UCSSelectionForm form;
    choose(form, "Юг");
    const QString row = QString::number(list(form).currentRow());
    ModalDriver driver;
    form.show();
    driver.window("Выбор ПСК").step("menu", {"UCSList", row, "0"}).step("choose", {"Удалить"});
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database->value("select count(*) from ucs_data"), "3");
    EXPECT_EQ(list(form).findItems("Юг", Qt::MatchExactly).size(), 0);
    EXPECT_EQ(database->value("select count(*) from ucs_data where ucs_name = 'Юг'"), "0");
}

TEST_F(UcsForm, WithoutAServerNothingIsLost)
{
    UCSSelectionForm form;
    choose(form, "Юг");
    database.disconnect();
    list(form).currentItem()->setText("Иная");
    button(form, "SaveBTN").click();
    EXPECT_EQ(list(form).currentItem()->text(), "Иная");
    database.connect();
    EXPECT_EQ(stored("Юг"), "Юг&1&2.5&3&0&1&0&-1&0&0");

    database.disconnect();
    const UCSSelectionForm empty;
    EXPECT_EQ(list(empty).count(), 0);
    EXPECT_FALSE(empty.shownUcs());
    EXPECT_FALSE(button(empty, "OkBtn").isEnabled());
}
