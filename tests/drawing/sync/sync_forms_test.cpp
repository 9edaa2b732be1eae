// The choice of families and the boxes of the command.
#include "drawing/forms/element_sync_filter.h"
#include "drawing/forms/sync_commands.h"
#include "support/pictures.h"
#include "sync_fixture.h"

#include <drawing/application.h>
#include <script/modal_driver.h>

#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {

class SyncForms : public SyncFixture { };

struct Box {
    const char* name;
    const char* text; // empty: free
    unsigned bit;
    bool checked, enabled;
};

const Box boxes[] = {
    {"DMSelect", "Деформационные марки", 1, true, true},
    {"TSSelect", "Термоскважины", 2, true, true},
    {"RPSelect", "Реперы", 4, true, true},
    {"GGSSelect", "Гидрогеологические скважины", 8, false, true},
    {"IGSSelect", "Инженерно-геологические скважины", 16, false, true},
    {"SPSelect", "Снегомерные посты", 32, false, true},
    {"TSGSelect", "Термостабилизационные эл-ты", 64, false, true},
    {"SVSelect", "Сваи", 128, false, false},
    {"PKSelect", "", 256, false, false},
};

QCheckBox& check(const ElementSyncFilter& form, const char* name) { return *form.findChild<QCheckBox*>(name); }

} // namespace

TEST_F(SyncForms, FilterStartsWithMarksWellsAndBenchmarks)
{
    ElementSyncFilter form;
    EXPECT_EQ(form.windowTitle(), "Выбор элементов");
    for (const Box& box : boxes) {
        EXPECT_EQ(check(form, box.name).isChecked(), box.checked) << box.name;
        EXPECT_EQ(check(form, box.name).isEnabled(), box.enabled) << box.name;
        if (*box.text) {
            EXPECT_EQ(check(form, box.name).text(), box.text);
        }
    }
    EXPECT_EQ(form.findChild<QPushButton*>("CancelBtn")->text(), "Отмена");
    EXPECT_TRUE(takePicture(form, "element-sync-filter"));
    form.findChild<QPushButton*>("ApplyBtn")->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(form.mask(), 7u);
}

TEST_F(SyncForms, FilterGivesEachBoxItsBit)
{
    for (const Box& chosen : boxes) {
        if (!chosen.enabled)
            continue;
        ElementSyncFilter form;
        for (const Box& box : boxes)
            check(form, box.name).setChecked(box.name == chosen.name);
        form.accept();
        EXPECT_EQ(form.mask(), chosen.bit) << chosen.name;
    }
}

TEST_F(SyncForms, FilterMenuChecksAllEnabledBoxesOrNone)
{
    ElementSyncFilter form;
    ASSERT_EQ(form.contextMenuPolicy(), Qt::ActionsContextMenu);
    ASSERT_EQ(form.actions().size(), 2);
    EXPECT_EQ(form.actions()[0]->text(), "Выбрать все");
    EXPECT_EQ(form.actions()[1]->text(), "Снять все");
    form.actions()[0]->trigger();
    for (const Box& box : boxes)
        EXPECT_EQ(check(form, box.name).isChecked(), box.enabled) << box.name;
    form.actions()[1]->trigger();
    for (const Box& box : boxes)
        EXPECT_FALSE(check(form, box.name).isChecked()) << box.name;
}

TEST_F(SyncForms, TheTreesActionBringsTheChosenFamilies)
{
    addTemplateFolder(QCoreApplication::applicationDirPath());
    addRow(family(FamilyKey::Dm), 1, "М");
    addRow(family(FamilyKey::Ggs), 2, "Г", PositionSession::otherPosition);
    {
        ModalDriver driver;
        driver.expect("Выбор элементов").press("CancelBtn");
        syncNode(1, SyncLevel::Subobject);
        EXPECT_TRUE(driver.done()) << driver.report();
        EXPECT_EQ(ncDocManagerPtr()->documentCount(), 0);
    }
    ModalDriver driver;
    driver.expect("Выбор элементов").set("DMSelect", "off").set("GGSSelect", "on").press("ApplyBtn");
    syncNode(1, SyncLevel::Subobject);
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(findBlockReference("dm_def", "element_id", "1").isNull());
    EXPECT_FALSE(findBlockReference("ggs_def", "element_id", "2").isNull());
    closeAllDocuments();
    ncdbHostApplicationServices()->setWorkingDatabase(&drawing.database());
}

TEST_F(SyncForms, BoxesWarnAskAndTakeNoForGranted)
{
    setProperty("project", "<b>Чужой</b>");
    addRow(family(FamilyKey::Dm), 1, "М");
    host.keyword("Position");
    const auto looks = [](QMessageBox::Icon icon) {
        return [icon](QWidget* window) {
            const auto* box = qobject_cast<QMessageBox*>(window);
            if (!box || box->icon() != icon || box->textFormat() != Qt::PlainText)
                return QString("another kind of box");
            return box->defaultButton() == box->button(QMessageBox::No) ? QString() : QString("another default");
        };
    };
    ModalDriver driver;
    driver.expect("Внимание").textContains("«<b>Чужой</b>»").call(looks(QMessageBox::Critical)).press("Да");
    driver.expect("Внимание").textContains("найдено 1 деформационных").call(looks(QMessageBox::Question)).press("Да");
    drawingToDatabaseCommand();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(ids(family(FamilyKey::Dm)), "");
}
