// The layer editors, found by object names on a real database.
#include "elements/geology/forms/layer_editors.h"

#include "elements/geology/ground_project.h"
#include "support/form_texts.h"
#include "support/pictures.h"
#include "support/statement_relay.h"

#include <script/modal_driver.h>

#include <QAbstractItemDelegate>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

using Model = GroundLayersModel;

namespace {

class LayerEditors : public GroundProject {
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
        GroundProject::TearDown();
    }
    static QTableView* table(const QDialog& form) { return form.findChild<QTableView*>("LayersTable"); }
    static void press(const QDialog& form, const char* name) { form.findChild<QPushButton*>(name)->click(); }
    static void put(const QDialog& form, int row, int column, const QString& text)
    {
        table(form)->model()->setData(table(form)->model()->index(row, column), text);
    }

    ModalDriver driver;

private:
    QString moduleDir_;
};

} // namespace

TEST_F(LayerEditors, SayWhatTheyAlwaysSaid)
{
    const TSLayerEditorDialog thermal(well);
    EXPECT_EQ(thermal.objectName(), "TSLayerEditorDialog");
    EXPECT_EQ(thermal.windowTitle(), "Редактор слоёв");
    EXPECT_EQ(textsOf(thermal),
              QStringList({"Добавить слой", "Удалить слой", "Сохранить", "Закрыть", "Скопировать из ИГС"}));
    EXPECT_EQ(titlesOf(*table(thermal)),
              QStringList({"Глубина от (м)", "Глубина до (м)", "ИГЭ", "Описание", "Штриховка"}));
    const IGSLayerEditorDialog geological(near);
    EXPECT_EQ(geological.objectName(), "IGSLayerEditorDialog");
    EXPECT_EQ(textsOf(geological), QStringList({"Добавить слой", "Удалить слой", "Сохранить", "Закрыть"}));
}

TEST_F(LayerEditors, ShowTheLayersOfTheirWell)
{
    IGSLayerEditorDialog form(near);
    ASSERT_EQ(form.model().rowCount(), 2);
    EXPECT_EQ(table(form)->model()->index(1, Model::Ground).data(), QVariant("1а - Суглинок"));
    EXPECT_EQ(TSLayerEditorDialog(well).model().rowCount(), 1);
    EXPECT_TRUE(takePicture(form, "layer-editor"));
}

TEST_F(LayerEditors, AGroundIsChosenOutOfTheCatalogue)
{
    IGSLayerEditorDialog form(near);
    const QModelIndex cell = table(form)->model()->index(0, Model::Ground);
    const auto* delegate = table(form)->itemDelegateForColumn(Model::Ground);
    QStyleOptionViewItem option;
    auto* box = qobject_cast<QComboBox*>(delegate->createEditor(table(form)->viewport(), option, cell));
    ASSERT_NE(box, nullptr);
    QStringList offered;
    for (int i = 0; i < box->count(); ++i)
        offered << box->itemText(i);
    EXPECT_EQ(offered, QStringList({"Не указан", "1а - Суглинок", "2 - Песок"}));
    delegate->setEditorData(box, cell);
    EXPECT_EQ(box->currentText(), "2 - Песок");
    box->setCurrentIndex(1);
    delegate->setModelData(box, table(form)->model(), cell);
    EXPECT_EQ(form.model().layers()[0].ground.id, loam);
    box->setCurrentIndex(0);
    delegate->setModelData(box, table(form)->model(), cell);
    EXPECT_EQ(form.model().layers()[0].ground.id, -1);
    delete box;
}

TEST_F(LayerEditors, DepthsTakeNumbersAlone)
{
    IGSLayerEditorDialog form(near);
    for (int column : {int(Model::From), int(Model::To)}) {
        QStyleOptionViewItem option;
        const QModelIndex cell = table(form)->model()->index(0, column);
        auto* line = qobject_cast<QLineEdit*>(
            table(form)->itemDelegateForColumn(column)->createEditor(table(form)->viewport(), option, cell));
        ASSERT_NE(line, nullptr);
        QString typed = "1а";
        int place = 0;
        EXPECT_EQ(line->validator()->validate(typed, place), QValidator::Invalid);
        delete line;
    }
}

TEST_F(LayerEditors, StoreAllLayersAndClose)
{
    TSLayerEditorDialog form(well);
    put(form, 0, Model::To, "2");
    press(form, "AddLayerBtn");
    put(form, 1, Model::Description, "новый");
    driver.expect("Успех").text("Слои успешно сохранены").press("OK");
    press(form, "SaveBtn");
    EXPECT_EQ(form.result(), int(QDialog::Accepted));
    EXPECT_EQ(stored(), QVector<QStringList>({{"1", "101", "0", "2", "прежний"}, {"1", QString(), "2", "3", "новый"}}));
}

TEST_F(LayerEditors, TellTheFirstBadRowAndStoreNothing)
{
    TSLayerEditorDialog form(well);
    press(form, "AddLayerBtn");
    put(form, 1, Model::To, "9");
    driver.expect("Ошибка валидации")
        .text("Ошибка в строке 2: Глубина конца должна быть больше глубины начала")
        .press("OK");
    press(form, "SaveBtn");
    put(form, 0, Model::From, "-1");
    driver.expect("Ошибка валидации").text("Ошибка в строке 1: Глубина начала не может быть отрицательной").press("OK");
    press(form, "SaveBtn");
    EXPECT_EQ(stored(), QVector<QStringList>({{"1", "101", "0", "9", "прежний"}}));
    EXPECT_TRUE(form.model().isChanged());
}

TEST_F(LayerEditors, ALayerIsRemovedOnRequest)
{
    IGSLayerEditorDialog form(near);
    press(form, "DeleteLayerBtn"); // nothing is chosen
    table(form)->setCurrentIndex(table(form)->model()->index(0, 0));
    driver.expect("Подтверждение").text("Удалить выбранный слой?").press("Нет");
    press(form, "DeleteLayerBtn");
    EXPECT_EQ(form.model().rowCount(), 2);
    driver.expect("Подтверждение").text("Удалить выбранный слой?").press("Да");
    press(form, "DeleteLayerBtn");
    ASSERT_EQ(form.model().rowCount(), 1);
    EXPECT_EQ(form.model().layers()[0].ground.id, loam);
    EXPECT_EQ(stored("igs_geology_layers").size(), 3) << "until it is saved";
}

TEST_F(LayerEditors, AskBeforeChangesAreLost)
{
    IGSLayerEditorDialog form(near);
    form.show();
    press(form, "AddLayerBtn");
    driver.expect("Подтверждение").text("Изменения не сохранятся").press("Нет");
    press(form, "CloseBtn");
    EXPECT_TRUE(form.isVisible());
    driver.expect("Подтверждение").text("Изменения не сохранятся").press("Да");
    press(form, "CloseBtn");
    EXPECT_FALSE(form.isVisible());
    IGSLayerEditorDialog untouched(near);
    untouched.show();
    press(untouched, "CloseBtn");
    EXPECT_FALSE(untouched.isVisible());
}

TEST_F(LayerEditors, LayersOfAGeologicalWellAreTakenOverAndStoredLater)
{
    TSLayerEditorDialog form(well);
    driver.expect("Скопировать из ИГС")
        .step("items", {"SourceCombo", "С-1 на расстоянии 5 м. dZ - 1.50 м.", "С-2 на расстоянии 30 м. dZ - -1.75 м."})
        .press("OkBtn");
    driver.expect("Подтверждение").text("Данное действие сотрет текущие слои.\n Продолжить?").press("Да");
    driver.expect("Успех").text("Слои успешно вставлены из геологической скважины (2 слоёв)").press("OK");
    press(form, "CopyFromIGSBtn");
    EXPECT_EQ(form.model().rowCount(), 2);
    EXPECT_TRUE(form.model().isChanged());
    EXPECT_EQ(stored(), QVector<QStringList>({{"1", "101", "0", "9", "прежний"}}))
        << "the old ones stay in the database";
    EXPECT_TRUE(takePicture(form, "layer-editor-thermal"));
    driver.expect("Успех").text("Слои успешно сохранены").press("OK");
    press(form, "SaveBtn");
    EXPECT_EQ(stored(), QVector<QStringList>({{"1", "101", "0", "1.5", ""}, {"1", "102", "1.5", "4.25", "мёрзлый"}}));
}

TEST_F(LayerEditors, NothingIsTakenOverWithoutAnAnswer)
{
    TSLayerEditorDialog form(well);
    driver.expect("Скопировать из ИГС").press("CancelBtn");
    press(form, "CopyFromIGSBtn");
    driver.expect("Скопировать из ИГС").press("OkBtn");
    driver.expect("Подтверждение").press("Нет");
    press(form, "CopyFromIGSBtn");
    EXPECT_FALSE(form.model().isChanged());
}

TEST_F(LayerEditors, WhatKeepsLayersFromBeingTakenOverIsTold)
{
    TSLayerEditorDialog none(-1);
    driver.expect("Ошибка").text("Не установлен element_id термоскважины").press("OK");
    press(none, "CopyFromIGSBtn");

    TSLayerEditorDialog form(well);
    driver.expect("Скопировать из ИГС").press("OkBtn");
    driver.expect("Подтверждение")
        .call([this](QWidget*) {
            database->exec("delete from igs_geology_layers where element_id = 11");
            return QString();
        })
        .press("Да");
    driver.expect("Результат").text("У выбранной скважины нет слоёв").press("OK");
    press(form, "CopyFromIGSBtn");

    database->exec("delete from igs_geology_layers");
    driver.expect("Внимание").text("Не из чего выбирать").press("OK");
    press(form, "CopyFromIGSBtn");
    database.disconnect();
    driver.expect("Ошибка").text("Ошибка БД").press("OK");
    press(form, "CopyFromIGSBtn");
    EXPECT_EQ(form.model().rowCount(), 1);
}

TEST_F(LayerEditors, WhatWasNotReadIsNotSavedOver)
{
    database.disconnect();
    TSLayerEditorDialog form(well);
    EXPECT_FALSE(form.findChild<QPushButton*>("SaveBtn")->isEnabled());
    EXPECT_EQ(form.findChild<QLabel*>("StatusLabel")->text(), "Слои не прочитаны из базы данных, сохранить их нельзя.");
    database.connect();
    form.accept(); // Enter
    EXPECT_EQ(stored().size(), 1);
}

// Whatever statement fails: it is told, the form stays with what the user entered.
TEST_F(LayerEditors, AnyStatementThatFailsWhileTheyStoreIsToldAndTheFormStays)
{
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    for (int statement = 1; statement <= 3; ++statement) {
        TSLayerEditorDialog form(well);
        form.show();
        press(form, "AddLayerBtn");
        put(form, form.model().rowCount() - 1, Model::Description, "новый");
        while (form.model().rowCount() < 2)
            press(form, "AddLayerBtn");
        relay.refuse(statement);
        driver.expect("Ошибка").textContains("ERROR").press("OK");
        press(form, "SaveBtn");
        EXPECT_TRUE(relay.hasRefused()) << statement;
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(form.model().rowCount(), 2);
        relay.refuse(-1);
        driver.expect("Успех").press("OK");
        press(form, "SaveBtn");
        EXPECT_EQ(stored().size(), 2) << "a second try brings all of them";
        database->exec("delete from ts_geology_layers where description = 'новый' or depth_from > 0");
        if (stored().isEmpty())
            database->exec("insert into ts_geology_layers (element_id, depth_from, depth_to) values (1, 0, 9)");
    }
    session().connection.finish();
}
