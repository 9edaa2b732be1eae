// The two questions as forms.
#include "exchange/inspections/forms/inspections_bulk_export_dialog.h"
#include "exchange/inspections/forms/inspections_bulk_import_dialog.h"
#include "exchange/inspections/forms/inspections_commands.h"
#include "support/pictures.h"
#include "support/session_database.h"

#include <script/modal_driver.h>

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

class BulkDialogs : public SessionDatabase {
protected:
    static QStringList captions(const QDialog& dialog)
    {
        QStringList texts = {dialog.windowTitle()};
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            texts << label->text();
        for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
            texts << button->text();
        return texts;
    }
    static QComboBox* cycles(const QDialog& dialog) { return dialog.findChild<QComboBox*>("CycleCombo"); }

    QTemporaryDir folder;
    ModalDriver driver;
};

} // namespace

TEST_F(BulkDialogs, CaptionsAndStartingValues)
{
    InspectionsBulkExportDialog out;
    EXPECT_EQ(captions(out),
              QStringList({"Массовый экспорт инспекций", "Выберите цикл для экспорта:", "Путь для сохранения:",
                           "Обзор...", "Только аналитические позиции (type=1)", "Экспортировать", "Отмена"}));
    EXPECT_EQ(out.path(), QDir::currentPath() + "/inspections_export.json.gz");
    EXPECT_FALSE(out.analyticOnly());
    EXPECT_EQ(out.cycleId(), 2);
    EXPECT_EQ(cycles(out)->itemText(0), "1 | 01.12.22 | 31.12.22 | Зима");
    InspectionsBulkImportDialog in;
    EXPECT_EQ(captions(in),
              QStringList({"Массовый импорт обследований", "Выберите цикл для импорта:", "Выберите JSON файл:",
                           "Обзор...", "Импортировать", "Отмена"}));
    EXPECT_EQ(in.path(), "");
    EXPECT_EQ(in.cycleId(), 2);
    EXPECT_TRUE(takePicture(out, "inspections-export"));
    EXPECT_TRUE(takePicture(in, "inspections-import"));
}

TEST_F(BulkDialogs, WithoutACurrentCycleTheImportHasNone)
{
    session().currentCycleId = -1;
    EXPECT_EQ(InspectionsBulkImportDialog().cycleId(), -1);
    EXPECT_EQ(InspectionsBulkExportDialog().cycleId(), 1) << "the first";
}

TEST_F(BulkDialogs, FilesAreAskedFor)
{
    InspectionsBulkExportDialog out;
    driver.expect("Сохранить экспорт").files({folder.filePath("цикл.gz")});
    out.findChild<QPushButton*>("BrowseBtn")->click();
    EXPECT_EQ(out.path(), folder.filePath("цикл.gz"));
    driver.expect("Сохранить экспорт").close();
    out.findChild<QPushButton*>("BrowseBtn")->click();
    EXPECT_EQ(out.path(), folder.filePath("цикл.gz")) << "a question that was left changes nothing";
    InspectionsBulkImportDialog in;
    QFile file(folder.filePath("поле.md"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    driver.expect("Выберите JSON файл для импорта").files({file.fileName()});
    in.findChild<QPushButton*>("BrowseBtn")->click();
    EXPECT_EQ(in.path(), file.fileName());
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(BulkDialogs, WithoutAFileNothingBegins)
{
    InspectionsBulkImportDialog in;
    driver.expect("Внимание").text("Не указан файл").press("OK");
    in.accept();
    EXPECT_NE(in.result(), int(QDialog::Accepted));
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(BulkDialogs, WithoutACycleTheCommandsEnd)
{
    session().currentCycleId = -1;
    driver.expect("Массовый импорт обследований").set("PathEdit", folder.filePath("нет.json")).press("ApplyBtn");
    importInspectionsCommand();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), "\nОшибка: Цикл не выбран.\n");

    const QString path = folder.filePath("цикл.gz");
    driver.expect("Массовый экспорт инспекций").set("PathEdit", path).press("CancelBtn");
    exportInspectionsCommand();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), "");
    driver.expect("Массовый экспорт инспекций").set("PathEdit", path).press("ApplyBtn");
    exportInspectionsCommand();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(console.text().endsWith("Экспорт (Tree) успешно завершен: " + path + "\n")) << console.text();
    EXPECT_TRUE(QFile::exists(path));
}
