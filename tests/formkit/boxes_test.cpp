// Boxes, progress, file questions, forms that are asked: answered as a user would.
#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/modal.h"
#include "formkit/progress_box.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"

#include <script/modal_driver.h>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

using namespace formkit;

namespace {

class Boxes : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_TRUE(driver_.done()) << driver_.report(); }

    std::function<QString(QWidget*)> isBox(QMessageBox::Icon icon)
    {
        return [icon](QWidget* window) -> QString {
            auto* box = qobject_cast<QMessageBox*>(window);
            if (!box || box->icon() != icon)
                return "another icon";
            return box->textFormat() == Qt::PlainText ? QString() : QString("not plain text");
        };
    }

    ModalDriver driver_;
    QWidget form_;
};

TEST_F(Boxes, TellUnderTheirTitle)
{
    driver_.expect("Внимание").text("<b>так</b>").call(isBox(QMessageBox::Warning)).press("OK");
    warn(&form_, "<b>так</b>");
    driver_.expect("Успех").text("Готово").call(isBox(QMessageBox::Information)).press("OK");
    inform(nullptr, "Готово", "Успех");
}

TEST_F(Boxes, AskAndAreAnswered)
{
    driver_.expect("Внимание").text("Удалить?").call(isBox(QMessageBox::Question)).press("Yes");
    EXPECT_TRUE(confirm(&form_, "Удалить?"));
    driver_.expect("Удаление БД")
        .call(isBox(QMessageBox::Critical))
        .call([](QWidget* window) -> QString {
            auto* box = qobject_cast<QMessageBox*>(window);
            return box->defaultButton() == box->button(QMessageBox::No) ? QString() : QString("another default");
        })
        .close();
    EXPECT_FALSE(confirm(nullptr, {"Удалить?", "Удаление БД", Look::Critical, Preset::No}));
}

TEST_F(Boxes, AnswersOfTheirOwnAreCounted)
{
    const QVector<Answer> answers = {{"Да", true}, {"Нет", false}, {"Нет для всех", false}};
    driver_.expect("Внимание").press("Нет для всех");
    EXPECT_EQ(ask(&form_, "?", answers, 1), 2);
    driver_.expect("Внимание").press("Да");
    EXPECT_EQ(ask(&form_, "?", answers, 1), 0);
    driver_.expect("Внимание").close();
    EXPECT_EQ(ask(&form_, "?", answers, 1), 1);
}

class NumberForm : public QDialog {
public:
    explicit NumberForm(int start, QWidget* parent = nullptr) : QDialog(parent)
    {
        nameForm(this, "NumberForm", "Число");
        layOut(this).column({number_ = spin("Number", 0, 99, start), button("Go", "Дальше", this, &QDialog::accept)});
    }
    int number() const { return number_->value(); }
    std::optional<int> unlessZero() const { return number() ? std::optional<int>(number()) : std::nullopt; }

private:
    QSpinBox* number_;
};

TEST_F(Boxes, AFormIsAskedInOneCall)
{
    driver_.expect("Число").check("Number", "5").set("Number", "7").press("Go");
    EXPECT_EQ(askModal(&NumberForm::number, 5), std::optional<int>(7));
    driver_.expect("Число").close();
    EXPECT_EQ(askOver(&form_, &NumberForm::number, 5), std::nullopt);
    driver_.expect("Число").press("Go");
    EXPECT_EQ(askModal(&NumberForm::unlessZero, 0), std::nullopt);
}

TEST_F(Boxes, ASavedFileGetsTheSuffixOfItsFilter)
{
    QTemporaryDir folder;
    driver_.expect("Куда").files({folder.filePath("карта")});
    EXPECT_EQ(askFileToSave(&form_, {"Куда", "cmp (*.cmp)", folder.path() + "/"}), folder.filePath("карта.cmp"));
    driver_.expect("Куда").files({folder.filePath("карта.txt")});
    EXPECT_EQ(askFileToSave(&form_, {"Куда", "cmp (*.cmp)", folder.path() + "/"}), folder.filePath("карта.txt"));
    QFile there(folder.filePath("есть.cmp"));
    ASSERT_TRUE(there.open(QIODevice::WriteOnly));
    for (const char* answer : {"No", "Yes"}) {
        driver_.expect("Куда").files({folder.filePath("есть")});
        driver_.expect("Внимание").text("Файл '" + there.fileName() + "' уже существует.\nЗаменить его?").press(answer);
        EXPECT_EQ(askFileToSave(&form_, {"Куда", "cmp (*.cmp)", folder.path() + "/"}).isEmpty(),
                  answer == QString("No"));
    }
    EXPECT_EQ(suffixOf("*.terva"), QString("terva"));
    EXPECT_EQ(suffixOf("csv (*.csv *.txt)"), QString("csv"));
    EXPECT_EQ(suffixOf("Все (*.*)"), QString());
}

TEST_F(Boxes, AFileQuestionStartsWhereTheLastOneEnded)
{
    QTemporaryDir folder;
    driver_.expect("Помню").files({folder.filePath("a.csv")});
    askFileToSave(&form_, {"Помню", "*.csv", folder.path() + "/"});
    driver_.expect("Помню")
        .call([&folder](QWidget* window) -> QString {
            auto* dialog = qobject_cast<QFileDialog*>(window);
            return dialog && dialog->directory() == QDir(folder.path()) ? QString() : QString("another folder");
        })
        .close();
    EXPECT_EQ(askFileToSave(&form_, {"Помню", "*.csv"}), QString());
}

TEST_F(Boxes, ATableGoesToAFileAndToTheClipboard)
{
    QTableWidget shown(2, 2);
    shown.setHorizontalHeaderLabels({"Имя", "Число"});
    shown.setVerticalHeaderLabels({"1.00", "2.00"});
    shown.setItem(0, 0, textItem("а"));
    shown.setItem(0, 1, numberItem(2.345, 2));
    shown.setItem(1, 1, numberItem(HUGE_VAL, 2, "--"));
    EXPECT_EQ(tableText(&shown, ';'), QString("а;2.35\n;--\n"));
    EXPECT_EQ(tableText(&shown, ';', WithTitles), QString("Имя;Число\nа;2.35\n;--\n"));
    shown.setHorizontalHeaderLabels({"Имя", "Прогноз \n Зима"});
    EXPECT_EQ(tableText(&shown, ';', WithTitles), QString("Имя;Прогноз Зима\nа;2.35\n;--\n")) << "a line is a row";
    shown.setHorizontalHeaderLabels({"Имя", "Число"});
    EXPECT_EQ(tableText(&shown, ';', DecimalComma), QString("а;2,35\n;--\n"));
    shown.item(0, 0)->setText("1.5");
    EXPECT_EQ(tableText(&shown, ';', DecimalComma), QString("1.5;2,35\n;--\n")) << "a name is no number";
    shown.setItem(1, 0, figureItem("-0.50"));
    EXPECT_EQ(tableText(&shown, ';', DecimalComma), QString("1.5;2,35\n-0,50;--\n"));
    delete shown.takeItem(1, 0);
    shown.item(0, 0)->setText("а");
    EXPECT_EQ(tableText(&shown, ';', WithTitles | WithRowTitles), QString(";Имя;Число\n1.00;а;2.35\n2.00;;--\n"));
    copyTable(&shown, WithRowTitles);
    EXPECT_EQ(QApplication::clipboard()->text(), QString("1.00\tа\t2.35\n2.00\t\t--\n"));

    QTemporaryDir folder;
    driver_.expect("Экспорт").files({folder.filePath("t.csv")});
    exportCsv(&form_, &shown, CellsOnly, "Экспорт");
    QFile file(folder.filePath("t.csv"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(),
              QByteArray("\xEF\xBB\xBF"
                         "а;2.35\n;--\n"));
}

TEST(TableItems, NumbersSortAsNumbers)
{
    QTableWidget shown(4, 1);
    const double numbers[] = {10.0, 9.0, HUGE_VAL, -1.0};
    for (int row = 0; row < 4; ++row)
        shown.setItem(row, 0, numberItem(numbers[row], 1, "--"));
    shown.sortItems(0);
    EXPECT_EQ(tableText(&shown, ';'), QString("--\n-1.0\n9.0\n10.0\n"));
    const std::unique_ptr<QTableWidgetItem> ticked(checkItem(true));
    EXPECT_EQ(ticked->checkState(), Qt::Checked);
    EXPECT_FALSE(ticked->flags() & Qt::ItemIsEditable);
}

TEST(Progress, ShowsTheFirstTheLastAndNotEveryStep)
{
    Pace pace;
    EXPECT_TRUE(pace.isDue(0, 1000));
    int due = 0;
    for (int step = 1; step < 1000; ++step)
        due += pace.isDue(step, 1000);
    EXPECT_LT(due, 500);
    EXPECT_TRUE(pace.isDue(1000, 1000));
}

TEST(Progress, ACancelIsHeard)
{
    QWidget form;
    ProgressBox box(&form, "Работа", "Шаги", "Прервать");
    EXPECT_TRUE(box.step(1, 10));
    auto* shown = form.findChild<QProgressDialog*>();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->windowTitle(), QString("Работа"));
    EXPECT_EQ(shown->labelText(), QString("Шаги"));
    EXPECT_EQ(shown->maximum(), 10);
    EXPECT_TRUE(box.step(2, 10, "Другие"));
    EXPECT_EQ(shown->labelText(), QString("Другие"));
    shown->cancel();
    EXPECT_FALSE(box.step(3, 10));
}

TEST(Progress, ABarFollowsEveryStep)
{
    QProgressBar bar;
    BarProgress progress;
    progress.start(&bar, 5);
    EXPECT_EQ(bar.maximum(), 5);
    for (int step = 1; step <= 5; ++step) {
        progress.step(step);
        EXPECT_EQ(bar.value(), step);
    }
    progress.start(&bar, 0);
    EXPECT_EQ(bar.maximum(), 1);
}

} // namespace
