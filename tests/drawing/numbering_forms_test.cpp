#include "drawing/forms/enumerator_form.h"
#include "drawing/forms/insertion_commands.h"
#include "drawing/forms/tsg_catalog_selector.h"
#include "drawing/insertion_family.h"
#include "drawing/next_name.h"
#include "support/element_drawing.h"
#include "support/form_texts.h"
#include "support/position_session.h"
#include "support/scripted_prompts.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

QString preview(const QWidget& form) { return child<QLabel>(form, "TextLabel")->text(); }

void savePicture(QWidget& form, const QString& name)
{
    const QString folder = qEnvironmentVariable("TERVA_PICTURES");
    if (folder.isEmpty())
        return;
    form.show();
    QApplication::processEvents();
    form.grab().save(QDir(folder).filePath(name));
}

// Does something with the dialog that exec() will show.
void whenShown(const std::function<void(QDialog&)>& action)
{
    QTimer::singleShot(0, qApp, [action]() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        action(*dialog);
    });
}

} // namespace

TEST(NextName, IsPrefixAndPaddedCounter)
{
    EXPECT_EQ(nextName({"ДМ", 7, 3}), "ДМ007");
    EXPECT_EQ(nextName({"ДМ", 1234, 3}), "ДМ1234");
    EXPECT_EQ(nextName({" ГГС", 1, 1}), " ГГС1");
    EXPECT_EQ(nextName({"", 5, 0}), "5");
    EXPECT_EQ(nextName({"X", -5, 3}), "X0-5");
}

TEST(NextName, LookingUsesNoNumberAndTakingUsesOne)
{
    Enumerator enumerator{"ДМ", 7, 3};
    EXPECT_EQ(nextName(enumerator), "ДМ007");
    EXPECT_EQ(enumerator.counter, 7);
    EXPECT_EQ(takeName(enumerator), "ДМ007");
    EXPECT_EQ(takeName(enumerator), "ДМ008");
    EXPECT_EQ(enumerator.counter, 9);
}

TEST(EnumeratorForm, ShowsTheRecordAndItsNextName)
{
    Enumerator enumerator{"ТС.", 12, 4};
    EnumeratorForm form(enumerator);
    EXPECT_EQ(form.windowTitle(), "Настройка нумерации");
    EXPECT_EQ(child<QLineEdit>(form, "Prefix")->text(), "ТС.");
    EXPECT_EQ(child<QLineEdit>(form, "Counter")->text(), "12");
    EXPECT_EQ(child<QSpinBox>(form, "Trailing")->value(), 4);
    EXPECT_EQ(preview(form), "ТС.0012");
    EXPECT_EQ(form.minimumWidth(), 320) << "the title and a name of some length are read whole";
    savePicture(form, "enumerator_form.png");
}

TEST(EnumeratorForm, PreviewFollowsEveryField)
{
    Enumerator enumerator{"ТС.", 12, 4};
    EnumeratorForm form(enumerator);
    child<QLineEdit>(form, "Prefix")->setText("<b>Т</b>");
    EXPECT_EQ(preview(form), "<b>Т</b>0012");
    child<QLineEdit>(form, "Counter")->setText("8");
    EXPECT_EQ(preview(form), "<b>Т</b>0008");
    child<QSpinBox>(form, "Trailing")->setValue(2);
    EXPECT_EQ(preview(form), "<b>Т</b>08");
    child<QLineEdit>(form, "Counter")->setText("-5");
    child<QSpinBox>(form, "Trailing")->setValue(3);
    EXPECT_EQ(preview(form), "<b>Т</b>0-5");
    child<QLineEdit>(form, "Counter")->setText("восемь");
    EXPECT_EQ(preview(form), "<b>Т</b>000");
    EXPECT_EQ(enumerator, (Enumerator{"ТС.", 12, 4}));
}

TEST(EnumeratorForm, OkWritesAndCancelDoesNot)
{
    Enumerator enumerator{"ТС.", 12, 4};
    EnumeratorForm cancelled(enumerator);
    child<QLineEdit>(cancelled, "Prefix")->setText("А");
    child<QPushButton>(cancelled, "CancelBtn")->click();
    EXPECT_EQ(cancelled.result(), int(QDialog::Rejected));
    EXPECT_EQ(enumerator, (Enumerator{"ТС.", 12, 4}));

    EnumeratorForm accepted(enumerator);
    child<QLineEdit>(accepted, "Prefix")->setText("А");
    child<QLineEdit>(accepted, "Counter")->setText("x");
    child<QSpinBox>(accepted, "Trailing")->setValue(6);
    child<QPushButton>(accepted, "OkBtn")->click();
    EXPECT_EQ(accepted.result(), int(QDialog::Accepted));
    EXPECT_EQ(enumerator, (Enumerator{"А", 0, 6}));
}

class NumberingCommand : public ::testing::TestWithParam<FamilyKey> { };

TEST_P(NumberingCommand, EditsTheFamilysOwnNumbering)
{
    const Enumerator before = enumeratorOf(GetParam());
    whenShown([](QDialog& dialog) {
        child<QLineEdit>(dialog, "Prefix")->setText("НОВ");
        child<QPushButton>(dialog, "OkBtn")->click();
    });
    editNumbering(GetParam());
    EXPECT_EQ(enumeratorOf(GetParam()), (Enumerator{"НОВ", before.counter, before.trailing}));
    for (const Family& other : families()) {
        if (other.key != GetParam()) {
            EXPECT_NE(enumeratorOf(other.key).prefix, "НОВ") << other.shortKey;
        }
    }
    enumeratorOf(GetParam()) = before;
}

INSTANTIATE_TEST_SUITE_P(Families, NumberingCommand,
                         ::testing::Values(FamilyKey::Dm, FamilyKey::Ts, FamilyKey::Rp, FamilyKey::Ggs, FamilyKey::Igs,
                                           FamilyKey::Tss, FamilyKey::Tsg));

namespace {

class Catalog : public ::testing::Test {
protected:
    void fillCatalog()
    {
        database->exec("insert into tsg_catalog (catalog_id, name, note) values (9, 'ТК32', 'вертикальный'), "
                       "(4, 'ГЕТ', null), (5, '%1', '%2')");
    }
    PositionSession database;
    ScriptedPrompts host;
    ElementDrawing drawing;
};

} // namespace

TEST_F(Catalog, ListsConstructionsByTheirKey)
{
    fillCatalog();
    TSGCatalogSelector form;
    EXPECT_EQ(form.windowTitle(), "Укажите тип конструкции СОУ");
    QStringList labels;
    for (const QLabel* label : form.findChildren<QLabel*>())
        labels.append(label->text());
    EXPECT_EQ(labels, QStringList{"Тип СОУ"});
    auto& list = *child<QComboBox>(form, "CatalogList");
    ASSERT_EQ(list.count(), 3);
    EXPECT_EQ(list.itemText(0), "ГЕТ ()");
    EXPECT_EQ(list.itemText(1), "%1 (%2)");
    EXPECT_EQ(list.itemText(2), "ТК32 (вертикальный)");
    EXPECT_EQ(form.catalogId(), 4);
    list.setCurrentIndex(2);
    EXPECT_EQ(form.catalogId(), 9);
    savePicture(form, "tsg_catalog_selector.png");
}

TEST_F(Catalog, OkGivesTheChosenKeyAndClosingNone)
{
    fillCatalog();
    whenShown([](QDialog& dialog) {
        child<QComboBox>(dialog, "CatalogList")->setCurrentIndex(2);
        child<QPushButton>(dialog, "OkBtn")->click();
    });
    EXPECT_EQ(TSGCatalogSelector::choose(), 9);
    whenShown([](QDialog& dialog) { child<QPushButton>(dialog, "CancelBTn")->click(); });
    EXPECT_EQ(TSGCatalogSelector::choose(), std::nullopt);
    whenShown([](QDialog& dialog) { dialog.close(); });
    EXPECT_EQ(TSGCatalogSelector::choose(), std::nullopt);
}

TEST_F(Catalog, EmptyCatalogueOffersNoChoice)
{
    whenShown([](QDialog& dialog) { child<QPushButton>(dialog, "OkBtn")->click(); });
    EXPECT_EQ(TSGCatalogSelector::choose(), std::nullopt);
    database.disconnect();
    TSGCatalogSelector form;
    EXPECT_EQ(form.catalogId(), std::nullopt);
}

TEST_F(Catalog, CommandInsertsTheChosenConstruction)
{
    fillCatalog();
    drawing.addAllKinds();
    host.keyword("No").text("Т-1").enter().enter().point(1, 2);
    whenShown([](QDialog& dialog) {
        child<QComboBox>(dialog, "CatalogList")->setCurrentIndex(1);
        child<QPushButton>(dialog, "OkBtn")->click();
    });
    insertCommand<19>();
    EXPECT_EQ(database->rows("select type_id, element_name, catalog_id, e, h from tsg_elements").value(0),
              (QStringList{"tsg_vs", "Т-1", "5", "5", "1"}));
    EXPECT_TRUE(host.allAnswersUsed());
}
