#include "exchange/geology/forms/geology_commands.h"
#include "exchange/geology/forms/igs_geology_import_dialog.h"

#include "exchange/geology/geology_fixture.h"
#include "support/pictures.h"

#include <script/modal_driver.h>

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {

class GeologyDialog : public GeologyProject {
protected:
    void open(IGSGeologyImportDialog& dialog, const QByteArray& bytes)
    {
        QFile file(folder.filePath("wells.csv"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        driver.expect("Открыть файл").files({file.fileName()});
        dialog.findChild<QPushButton*>("OpenFileBtn")->click();
        EXPECT_TRUE(driver.done()) << driver.report();
    }
    static QTableWidget* preview(const IGSGeologyImportDialog& dialog)
    {
        return dialog.findChild<QTableWidget*>("Preview");
    }
    static QStringList titles(const IGSGeologyImportDialog& dialog)
    {
        QStringList texts;
        for (int i = 0; i < preview(dialog)->columnCount(); ++i)
            texts << preview(dialog)->horizontalHeaderItem(i)->text();
        return texts;
    }
    static QStringList cells(const IGSGeologyImportDialog& dialog, int row)
    {
        QStringList texts;
        for (int i = 0; i < preview(dialog)->columnCount(); ++i)
            texts << preview(dialog)->item(row, i)->text();
        return texts;
    }

    QTemporaryDir folder;
    ModalDriver driver;
};

const QByteArray file = "Имя скважины;Дата;Z;ИГЭ;Глубина;ИГЭ;Глубина\n"
                        "С-1;05.06.2021;98,5;1а;1,5;2;4.25\n"
                        "С-2;;;7;3\n"
                        "С-9;05.06.21;;2;3\n"
                        "С-2;05.06.21;;2;3\n";

} // namespace

TEST_F(GeologyDialog, CaptionsAndStartingValues)
{
    IGSGeologyImportDialog dialog;
    EXPECT_EQ(dialog.windowTitle(), "Импорт геологии скважин");
    EXPECT_EQ(titles(dialog), QStringList({"Статус", "Имя скважины", "Дата", "Отметка Z", "Слоев"}));
    QStringList captions;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        captions << label->text();
    for (const QPushButton* button : dialog.findChildren<QPushButton*>())
        captions << button->text();
    EXPECT_EQ(captions, QStringList({"Кодировка", "Разделитель", "Позиция", "Открыть файл", "Импорт", "Закрыть"}));
    auto* encoding = dialog.findChild<QComboBox*>("Encoding");
    EXPECT_EQ(encoding->itemText(0), "Windows-1251");
    EXPECT_EQ(encoding->itemText(1), "UTF-8");
    EXPECT_EQ(dialog.findChild<QLineEdit*>("Separator")->text(), ";");
    EXPECT_EQ(dialog.findChild<QComboBox*>("PositionCombo")->currentText(), "Позиция");
    EXPECT_EQ(dialog.findChild<QComboBox*>("PositionCombo")->itemText(0), "Все позиции");
}

TEST_F(GeologyDialog, EveryWellIsShownWithWhatIsWrong)
{
    IGSGeologyImportDialog dialog;
    dialog.findChild<QComboBox*>("Encoding")->setCurrentIndex(1);
    open(dialog, file);
    EXPECT_EQ(titles(dialog).mid(5), QStringList({"ИГЭ 1", "Подошва 1", "ИГЭ 2", "Подошва 2"}));
    ASSERT_EQ(preview(dialog)->rowCount(), 4);
    EXPECT_EQ(cells(dialog, 0),
              QStringList({"OK", "С-1", "05.06.2021", "98.500", "2", "  1а", "1.50 м", "  2", "4.25 м"}));
    EXPECT_EQ(preview(dialog)->item(0, 8)->toolTip(), "От 1.50 до 4.25");
    EXPECT_EQ(preview(dialog)->item(0, 0)->checkState(), Qt::Checked);
    EXPECT_EQ(cells(dialog, 1), QStringList({"Error", "С-2", "", "", "1", "7", "3.00 м", "---", ""}));
    const QTableWidgetItem* status = preview(dialog)->item(1, 0);
    EXPECT_EQ(status->checkState(), Qt::Unchecked);
    EXPECT_FALSE(status->flags() & Qt::ItemIsEnabled);
    EXPECT_EQ(status->toolTip(), "Данные не валидны (скважина или ИГЭ не найдены)");
    EXPECT_EQ(preview(dialog)->item(1, 5)->foreground().color(), QColor(Qt::red));
    EXPECT_EQ(preview(dialog)->item(1, 5)->toolTip(), "Код ИГЭ не найден в справочнике");
    EXPECT_EQ(preview(dialog)->item(2, 1)->foreground().color(), QColor(Qt::red));
    EXPECT_EQ(preview(dialog)->item(2, 1)->toolTip(), "Скважина не найдена в базе данных");
    EXPECT_TRUE(takePicture(dialog, "geology-import"));
}

TEST_F(GeologyDialog, ChangesOfTheFormatReadTheFileAgain)
{
    IGSGeologyImportDialog dialog;
    open(dialog, file);
    EXPECT_EQ(preview(dialog)->item(0, 0)->text(), "Error") << "another encoding";
    dialog.findChild<QComboBox*>("Encoding")->setCurrentIndex(1);
    EXPECT_EQ(preview(dialog)->rowCount(), 4);
    dialog.findChild<QLineEdit*>("Separator")->setText(":");
    EXPECT_EQ(preview(dialog)->rowCount(), 0);
    dialog.findChild<QLineEdit*>("Separator")->setText(";");
    auto* positions = dialog.findChild<QComboBox*>("PositionCombo");
    positions->setCurrentIndex(positions->findText("Другая"));
    EXPECT_EQ(preview(dialog)->item(0, 0)->text(), "Error") << "another position's wells";
}

TEST_F(GeologyDialog, TickedWellsAreImportedAndTheDialogCloses)
{
    IGSGeologyImportDialog dialog;
    dialog.findChild<QComboBox*>("Encoding")->setCurrentIndex(1);
    open(dialog, file);
    preview(dialog)->item(3, 0)->setCheckState(Qt::Unchecked);
    dialog.findChild<QPushButton*>("ImportBtn")->click();
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(records(), QVector<QStringList>({{"1", "2021-06-05"}}));
    EXPECT_EQ(layers().size(), 2);
    EXPECT_TRUE(console.text().endsWith("\n Импортировано скважин: 1"));
}

TEST_F(GeologyDialog, TheCommandTellsOfItsEnd)
{
    QFile wells(folder.filePath("wells.csv"));
    ASSERT_TRUE(wells.open(QIODevice::WriteOnly));
    wells.write(file);
    wells.close();
    driver.expect("Импорт геологии скважин").press("CloseBtn");
    importGeologyCommand();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(console.take(), "");
    driver.expect("Импорт геологии скважин").set("Encoding", "UTF-8").press("OpenFileBtn");
    driver.expect("Открыть файл").files({wells.fileName()}).press("ImportBtn");
    importGeologyCommand();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(console.text().endsWith("\n Импортировано скважин: 2\n Импорт геологии завершен")) << console.text();
}
