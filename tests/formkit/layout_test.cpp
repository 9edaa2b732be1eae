// Layouts as nested lists.
#include "formkit/end_buttons.h"
#include "formkit/field_pane.h"
#include "formkit/layout.h"
#include "formkit/unit.h"
#include "formkit/widgets.h"
#include "support/looks.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <gtest/gtest.h>

using namespace formkit;

namespace {

TEST(FormLayout, AGridStandsAsItIsWritten)
{
    QWidget form;
    QLineEdit* layer = nullptr;
    QCheckBox* calculated = nullptr;
    layOut(&form).grid({
        {"Слой", growing(layer = edit("Layer", "0")), button("Read", "Прочитать")},
        {nothing(), wide(2, calculated = check("Calculated", "Вычислять", true))},
    });
    auto* cells = qobject_cast<QGridLayout*>(form.layout());
    ASSERT_TRUE(cells);
    EXPECT_EQ(qobject_cast<QLabel*>(cells->itemAtPosition(0, 0)->widget())->text(), QString("Слой"));
    EXPECT_EQ(cells->itemAtPosition(0, 1)->widget(), layer);
    EXPECT_EQ(cells->itemAtPosition(1, 0), nullptr);
    EXPECT_EQ(cells->itemAtPosition(1, 1)->widget(), calculated);
    EXPECT_EQ(cells->itemAtPosition(1, 2)->widget(), calculated);
    EXPECT_EQ(cells->columnStretch(0), 0);
    EXPECT_EQ(cells->columnStretch(1), 1);
    EXPECT_EQ(layer->window(), &form);
    EXPECT_EQ(form.findChild<QLineEdit*>("Layer")->text(), QString("0"));
    EXPECT_TRUE(form.findChild<QCheckBox*>("Calculated")->isChecked());
}

TEST(FormLayout, BoxesNestAndShareTheRoom)
{
    QWidget form;
    layOut(&form).column({
        row({"a", stretch(), edit("E")}),
        group("Группа").lines({
            {"Имя", edit("Name")},
            {QString(), check("On", "Да")},
            {wide(1, edit("Whole"))},
        }),
        growing(tabs("Pages").pages({{"Раз", column({edit("One")})}, {"Два", edit("Two")}}), 2),
    });
    auto* outer = qobject_cast<QVBoxLayout*>(form.layout());
    ASSERT_TRUE(outer);
    ASSERT_EQ(outer->count(), 3);
    EXPECT_EQ(outer->stretch(2), 2);
    const auto* first = qobject_cast<QHBoxLayout*>(outer->itemAt(0)->layout());
    ASSERT_TRUE(first);
    EXPECT_TRUE(first->itemAt(1)->spacerItem());
    EXPECT_EQ(first->stretch(1), 1);

    auto* box = form.findChild<QGroupBox*>();
    EXPECT_EQ(box->title(), QString("Группа"));
    auto* fields = qobject_cast<QFormLayout*>(box->layout());
    ASSERT_EQ(fields->rowCount(), 3);
    EXPECT_EQ(qobject_cast<QLabel*>(fields->labelForField(form.findChild<QLineEdit*>("Name")))->text(), QString("Имя"));
    EXPECT_TRUE(fields->itemAt(1, QFormLayout::FieldRole));
    EXPECT_EQ(fields->itemAt(2, QFormLayout::SpanningRole)->widget(), form.findChild<QLineEdit*>("Whole"));

    auto* pages = form.findChild<QTabWidget*>("Pages");
    ASSERT_EQ(pages->count(), 2);
    EXPECT_EQ(pages->tabText(1), QString("Два"));
    EXPECT_EQ(pages->widget(1), form.findChild<QLineEdit*>("Two"));
    EXPECT_GT(pages->widget(0)->layout()->contentsMargins().left(), 0);
}

TEST(FormLayout, EndButtonsAcceptAndReject)
{
    QDialog form;
    layOut(&form).column({endButtons(&form, {rejects("No", "Нет"), accepts("Yes", "Да"), accepts("Also", "Тоже")})});
    EXPECT_TRUE(form.findChild<QPushButton*>("Yes")->isDefault());
    EXPECT_FALSE(form.findChild<QPushButton*>("Also")->isDefault());
    int result = -1;
    QObject::connect(&form, &QDialog::finished, &form, [&result](int ended) { result = ended; });
    form.show();
    form.findChild<QPushButton*>("Yes")->click();
    EXPECT_EQ(result, int(QDialog::Accepted));
    form.show();
    form.findChild<QPushButton*>("No")->click();
    EXPECT_EQ(result, int(QDialog::Rejected));
}

TEST(FormWidgets, CarryTheirNamesAndStarts)
{
    const std::unique_ptr<QLineEdit> number(numberEdit("N", "1.5"));
    EXPECT_EQ(number->objectName(), QString("N"));
    int place = 0;
    for (const char* typed : {"-2.5", "+", ".5", ""}) {
        QString text = typed;
        EXPECT_NE(number->validator()->validate(text, place), QValidator::Invalid) << typed;
    }
    for (const char* typed : {"a", "1,5,0", "1e5", " 1"}) {
        QString text = typed;
        EXPECT_EQ(number->validator()->validate(text, place), QValidator::Invalid) << typed;
    }
    const std::unique_ptr<QPushButton> pressed(button("B", "Жми"));
    EXPECT_FALSE(pressed->autoDefault());
    const std::unique_ptr<QDoubleSpinBox> real(realSpin("R", -5, 5, 0.1, 3));
    real->setValue(1.2346);
    EXPECT_EQ(real->value(), 1.235);
    EXPECT_EQ(real->singleStep(), 0.1);
    const std::unique_ptr<QComboBox> choice(combo("C", {{"раз", 1}, {"два", 2}}));
    EXPECT_EQ(choice->itemData(1).toInt(), 2);
    const std::unique_ptr<QLineEdit> told(disabled(tipped(within(64, edit("T")), "Подсказка")));
    EXPECT_EQ(told->toolTip(), QString("Подсказка"));
    EXPECT_EQ(told->maximumWidth(), 64);
    EXPECT_FALSE(told->isEnabled());
    const std::unique_ptr<QPlainTextEdit> log(logBox("L", 3));
    appendToLog(log.get(), "a\n");
    appendToLog(log.get(), "b");
    EXPECT_EQ(log->toPlainText(), QString("a\nb"));
    EXPECT_TRUE(log->isReadOnly());
}

TEST(NumberEdit, TakesACommaForAPoint)
{
    const std::unique_ptr<QLineEdit> number(numberEdit("N"));
    QString text = "-1,5";
    int place = 0;
    EXPECT_EQ(number->validator()->validate(text, place), QValidator::Acceptable);
    EXPECT_EQ(text, QString("-1.5"));
    number->insert("2,25");
    EXPECT_EQ(number->text(), QString("2.25")) << "what is pasted";
}

// The reading order, however the widgets happened to be made.
TEST(FormLayout, TabGoesAsOneReads)
{
    auto* last = new QLineEdit;
    auto* third = new QPushButton("3");
    auto* second = new QComboBox;
    auto* first = new QLineEdit;
    QDialog form;
    auto* ends = endButtons(&form, {ok(), cancel()});
    auto* box = group("Группа").grid({{"Раз", first}, {"Два", second}, {nothing(), third}});
    layOut(&form).column({box, tabs("Pages").pages({{"Лист", row({stretch(), last})}}), ends});
    form.show();
    const QList<QWidget*> stops = tabStops(form);
    ASSERT_EQ(stops.size(), 7);
    EXPECT_EQ(stops.mid(0, 3), (QList<QWidget*>{first, second, third}));
    EXPECT_TRUE(qobject_cast<QTabBar*>(stops[3]));
    EXPECT_EQ(stops[4], last);
    EXPECT_EQ(tabFaults(form), QStringList());

    QWidget::setTabOrder(third, second);
    EXPECT_EQ(tabFaults(form).size(), 1) << "the look at forms would notice";
}

// What Alt and the caption's letter lead to, and what a reader of the screen says.
QWidget* namedBy(const QWidget& form, const char* caption)
{
    for (const QLabel* label : form.findChildren<QLabel*>())
        if (label->text() == QString::fromUtf8(caption))
            return label->buddy();
    ADD_FAILURE() << "no caption " << caption;
    return nullptr;
}

TEST(FormLayout, ACaptionLeadsToTheFieldBehindIt)
{
    QWidget form;
    layOut(&form).column({
        group("Группа").grid({
            {"В сетке", growing(edit("InGrid")), button("Read", "Прочитать")},
            {"Перед рядом", row({edit("InRow"), dotsButton("Dots")})},
            {"Перед значением", readOut("Value", "5")},
            {"Перед кнопкой", button("Pressed", "...")},
            {nothing(), "Перед местом", nothing(), edit("Far")},
        }),
        row({"В ряду", combo("Combo"), "Далеко", stretch(), spin("Spin", 0, 5)}),
        lines({{"В строке", pane(row({edit("InPane"), dotsButton("More")}))}, {"Строка", row({edit("InLine")})}}),
        note("Status", "Всё хорошо"),
        listBox("List"),
        column({"Над полем", linesEdit("Below", 2)}),
    });
    EXPECT_EQ(namedBy(form, "В сетке")->objectName(), QString("InGrid"));
    EXPECT_EQ(namedBy(form, "Перед рядом")->objectName(), QString("InRow"));
    EXPECT_EQ(namedBy(form, "Перед значением"), nullptr) << "nothing is written there";
    EXPECT_EQ(namedBy(form, "Перед кнопкой"), nullptr) << "a button has a caption of its own";
    EXPECT_EQ(namedBy(form, "Перед местом"), nullptr);
    EXPECT_EQ(namedBy(form, "В ряду")->objectName(), QString("Combo"));
    EXPECT_EQ(namedBy(form, "Далеко"), nullptr);
    EXPECT_EQ(namedBy(form, "В строке")->objectName(), QString("InPane"));
    EXPECT_EQ(namedBy(form, "Строка")->objectName(), QString("InLine"));
    EXPECT_EQ(namedBy(form, "Над полем")->objectName(), QString("Below"));

    FieldPane pane({Field::text("Name", "Имя"),
                    Field::path("Path", "Путь", "Choose", [](QWidget*, const QString& now) { return now; })});
    EXPECT_EQ(namedBy(pane, "Имя")->objectName(), QString("Name"));
    EXPECT_EQ(namedBy(pane, "Путь")->objectName(), QString("Path"));
}

TEST(FormLayout, ASignForAKeyInACaptionIsNoKey)
{
    QWidget form;
    layOut(&form).row({"Песок & глина", edit("E")});
    EXPECT_EQ(namedBy(form, "Песок & глина"), nullptr) << "as a buddy's caption it would lose the sign";
}

TEST(Units, StandInCaptionsBehindACommaOrInBrackets)
{
    const std::vector<std::pair<const char*, const char*>> rows = {
        {"Абсолютная отметка, м", "м"},
        {"Уровень грунтовых вод (м):", "м"},
        {"Теплопроводность талого грунта λth, Вт/(м·°C)", "Вт/(м·°C)"},
        {"Сопротивление под нижним концом сваи R (опытное), кПа", "кПа"},
        {"Шаг изотерм, °C", "°C"},
        {"Эффективность", ""},
        {"Высота(h)", ""},
        {"Расстояние <", ""},
        {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(unitIn(QString::fromUtf8(row.first)), QString::fromUtf8(row.second)) << row.first;
}

TEST(Units, AreToldByTheFieldsTip)
{
    const std::unique_ptr<QDoubleSpinBox> depth(inUnit("м", tipped(realSpin("D", 0, 9), "От устья")));
    EXPECT_EQ(depth->toolTip(), QString("От устья\nЕдиница измерения: м"));
    EXPECT_EQ(depth->accessibleDescription(), QString("Единица измерения: м"));
    EXPECT_EQ(depth->statusTip(), QString("Единица измерения: м"));
    EXPECT_EQ(depth->whatsThis(), depth->toolTip());
    sayUnit(depth.get(), QStringLiteral("см"));
    EXPECT_EQ(depth->toolTip(), QString("От устья\nЕдиница измерения: см")) << "the last one holds";
    const std::unique_ptr<QSpinBox> count(withoutUnit(tipped(spin("N", 0, 9), "Сколько раз")));
    EXPECT_EQ(count->toolTip(), QString("Сколько раз"));
    EXPECT_TRUE(count->property("unit").isValid());
}

TEST(Units, ComeFromTheCaptionOrTheField)
{
    QWidget form;
    FieldPane* pane = nullptr;
    layOut(&form).column({
        row({"Длина, м", numberEdit("Length"), "Имя, отчество", edit("Person")}),
        pane = new FieldPane({
            Field::number("Depth", "Глубина, м"),
            Field::number("Z", "Отметка").in("мм"),
            Field::integer("Count", "Число", 0, 9).withoutUnit(),
            Field::decimal("Other", "Иное", 0, 1),
            Field::text("Told", "Фамилия, имя"),
        }),
    });
    const auto unit = [&](const char* name) { return form.findChild<QWidget*>(name)->property("unit"); };
    EXPECT_EQ(unit("Length").toString(), QString("м"));
    EXPECT_FALSE(unit("Person").isValid()) << "no number";
    EXPECT_EQ(unit("Depth").toString(), QString("м"));
    EXPECT_EQ(unit("Z").toString(), QString("мм"));
    EXPECT_TRUE(unit("Count").isValid());
    EXPECT_EQ(unit("Count").toString(), QString());
    EXPECT_FALSE(unit("Told").isValid());
    ASSERT_EQ(unitFaults(form).size(), 1) << "the look at forms notices";
    EXPECT_TRUE(unitFaults(form)[0].contains("Other"));
}

TEST(FormWidgets, AButtonCallsItsSlot)
{
    QObject owner;
    int pressed = 0;
    const std::unique_ptr<QPushButton> made(button("B", "Жми", &owner, [&pressed] { ++pressed; }));
    made->click();
    EXPECT_EQ(pressed, 1);
}

} // namespace
