// The states of elements: their table and their dialog.
#include "database/catalogues/forms/state_form.h"
#include "database/catalogues/forms/states_table.h"
#include "support/pictures.h"
#include "support/position_session.h"

#include <drawing/prompt_backend.h>
#include <script/modal_driver.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <gtest/gtest.h>

namespace {

// A user who answers the host's box of colours.
class ColourBox : public PromptBackend {
public:
    ColourBox() : before_(setPromptBackend(this)) { }
    ~ColourBox() override { setPromptBackend(before_); }
    PromptReply ask(const PromptRequest& request) override
    {
        PromptReply reply;
        if (request.kind != PromptRequest::Color || answer < 0)
            return reply;
        offered = request.color.colorIndex();
        reply.status = kPromptNormal;
        reply.color.setColorIndex(answer);
        return reply;
    }
    void print(const QString& text) override { console += text; }

    int answer = -1; ///< -1 closes the box
    int offered = -1;
    QString console;

private:
    PromptBackend* before_;
};

class States : public ::testing::Test {
protected:
    void SetUp() override
    {
        database_->exec("insert into states values ('lost', 'Утрачен', 1), ('plan', 'Проектный', 3)");
        session().reloadStates();
        session().stateFilter = {{"exist", "Существующий"}, {"lost", "Утрачен"}};
        table_.showFilter();
        table_.setObjectName("page");
        table_.show();
    }
    void TearDown() override
    {
        EXPECT_TRUE(driver_.done()) << driver_.report();
        session().stateFilter.clear();
    }
    QTableWidget& cells() { return *table_.findChild<QTableWidget*>("StatesTable"); }
    int rowOf(const QString& state)
    {
        for (int row = 0; row < cells().rowCount(); ++row) {
            if (cells().item(row, 0)->data(Qt::UserRole + 1) == state)
                return row;
        }
        ADD_FAILURE() << "no row of " << state.toStdString();
        return 0;
    }
    void fromMenu(const QString& state, const QString& entry)
    {
        driver_.window("page")
            .step("menu", {"StatesTable", QString::number(rowOf(state)), "0"})
            .step("choose", {entry});
    }

    PositionSession database_;
    ColourBox colours_;
    ModalDriver driver_;
    StatesTable table_;
};

} // namespace

TEST_F(States, AreShownWithTheirColoursAndTheFilterTicked)
{
    ASSERT_EQ(cells().rowCount(), 3);
    EXPECT_EQ(cells().horizontalHeaderItem(0)->text(), QString("Состояние"));
    EXPECT_EQ(cells().horizontalHeaderItem(1)->text(), QString("Цвет "));
    EXPECT_EQ(cells().item(rowOf("lost"), 0)->text(), QString("Утрачен"));
    EXPECT_EQ(cells().item(rowOf("lost"), 0)->checkState(), Qt::Checked);
    EXPECT_EQ(cells().item(rowOf("plan"), 0)->checkState(), Qt::Unchecked);
    EXPECT_EQ(cells().item(rowOf("lost"), 1)->background().color(), QColor(255, 0, 0));
    EXPECT_EQ(table_.checkedStates(), session().stateFilter);
    EXPECT_TRUE(table_.findChildren<QPushButton*>().isEmpty());
}

TEST_F(States, ANewOneIsMadeFromTheMenu)
{
    cells().item(rowOf("plan"), 0)->setCheckState(Qt::Checked);
    fromMenu("exist", "Создать");
    driver_.expect("Состояние")
        .check("StateID", "stateid")
        .check("Note", "Описание")
        .set("StateID", "gone1")
        .set("Note", "Нет")
        .press("ColorIndex")
        .check("ColorIndex", "2")
        .press("OkBtn");
    colours_.answer = 2;
    driver_.play();
    EXPECT_EQ(database_->rows("select note, colorindex from states where state_id = 'gone1'"),
              (QVector<QStringList>{{"Нет", "2"}}));
    EXPECT_EQ(session().states.value("gone1"), QString("Нет"));
    EXPECT_EQ(cells().item(rowOf("plan"), 0)->checkState(), Qt::Checked) << "what the user ticked stays";
    EXPECT_EQ(cells().item(rowOf("gone1"), 0)->checkState(), Qt::Unchecked);
}

TEST_F(States, ADoubleClickOnTheNameEdits)
{
    driver_.window("page").step("double", {"StatesTable", QString::number(rowOf("lost")), "0"});
    driver_.expect("Состояние")
        .step("state", {"StateID", "disabled"})
        .check("StateID", "lost")
        .check("ColorIndex", "1")
        .set("Note", "Пропал")
        .press("OkBtn");
    driver_.play();
    EXPECT_EQ(database_->value("select note from states where state_id = 'lost'"), QString("Пропал"));
    EXPECT_EQ(cells().item(rowOf("lost"), 0)->text(), QString("Пропал"));
}

TEST_F(States, ADoubleClickOnTheColourChoosesAnother)
{
    driver_.window("page").step("double", {"StatesTable", QString::number(rowOf("plan")), "1"});
    driver_.play();
    EXPECT_EQ(database_->value("select colorindex from states where state_id = 'plan'"), QString("3")) << "closed";
    colours_.answer = 5;
    driver_.window("page").step("double", {"StatesTable", QString::number(rowOf("plan")), "1"});
    driver_.play();
    EXPECT_EQ(colours_.offered, 3) << "the box starts with the present one";
    EXPECT_EQ(database_->value("select colorindex from states where state_id = 'plan'"), QString("5"));
    EXPECT_EQ(cells().item(rowOf("plan"), 1)->background().color(), QColor(0, 0, 255));
    EXPECT_EQ(session().stateColors.value("plan"), 5);
}

TEST_F(States, AnIdHasLettersAndDigitsOnly)
{
    StateForm form;
    form.showNew();
    const auto* id = form.findChild<QLineEdit*>("StateID");
    int place = 0;
    for (QString typed : {"a b", "Ж", "a-1"})
        EXPECT_EQ(id->validator()->validate(typed, place), QValidator::Invalid) << typed.toStdString();
    QString good = "Ab9";
    EXPECT_EQ(id->validator()->validate(good, place), QValidator::Acceptable);
}

TEST_F(States, TheDialogSaysWhatItAlwaysSaid)
{
    StateForm form;
    ASSERT_TRUE(form.showStored("lost"));
    QStringList captions{form.windowTitle()};
    for (const QLabel* caption : form.findChildren<QLabel*>())
        captions << caption->text();
    EXPECT_EQ(captions, (QStringList{"Состояние", "ID:", "Описание:", "Цвет:"}));
    EXPECT_EQ(form.findChild<QPushButton*>("OkBtn")->text(), QString("OK"));
    EXPECT_EQ(form.findChild<QPushButton*>("CancelBtn")->text(), QString(" Отмена"));
    EXPECT_EQ(form.findChild<QPushButton*>("ColorIndex")->styleSheet(),
              QString("background-color: rgb(255, 0, 0); border: 0px;"));
    EXPECT_TRUE(takePicture(form, "StateForm"));
}

TEST_F(States, OneInUseIsNotDeleted)
{
    for (const char* family : {"dm", "rp", "ggs", "ts", "tss", "tsg"}) {
        const QString table = QString(family) + "_elements";
        database_->exec("insert into " + table + " (element_name, state_id, position_id) values ('Э', 'lost', 7)");
        fromMenu("lost", "Удалить");
        driver_.expect("Внимание")
            .text("В базе данных присутствуют элементы с указанным состоянием.\n Его удалить невозможно.")
            .press("OK");
        driver_.play();
        database_->exec("delete from " + table);
    }
    EXPECT_EQ(cells().rowCount(), 3);
}

TEST_F(States, GeologicalWellsAreNotCounted)
{
    database_->exec("insert into igs_elements (element_name, state_id, position_id) values ('Э', 'lost', 7)");
    fromMenu("lost", "Удалить");
    driver_.expect("Внимание").text("Удалить состояние обекта lost ( Утрачен ) \n").press("Yes");
    driver_.play();
    EXPECT_EQ(cells().rowCount(), 3) << "the database refuses, and nothing is told";
}

TEST_F(States, DeletingAsksWithNoAsItsDefault)
{
    fromMenu("plan", "Удалить");
    driver_.expect("Внимание")
        .call([](QWidget* window) -> QString {
            for (const QPushButton* button : window->findChildren<QPushButton*>()) {
                if (button->isDefault())
                    return button->text().contains("N") || button->text().contains("Нет") ? QString() : button->text();
            }
            return "no default";
        })
        .press("No");
    driver_.play();
    EXPECT_EQ(cells().rowCount(), 3);
    fromMenu("plan", "Удалить");
    driver_.expect("Внимание").press("Yes");
    driver_.play();
    EXPECT_EQ(cells().rowCount(), 2);
    EXPECT_FALSE(session().states.contains("plan"));
}

TEST_F(States, ALostServerLeavesTheTableEmpty)
{
    database_.disconnect();
    table_.showFilter();
    EXPECT_EQ(cells().rowCount(), 0);
    EXPECT_EQ(colours_.console, QString());
    database_.connect();
    table_.showFilter();
    EXPECT_EQ(cells().rowCount(), 3);
}
