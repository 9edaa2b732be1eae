// The frame of the import dialogs: controls, formats, mending by hand, import.
#include "exchange/forms/dialog_fixture.h"
#include "exchange/forms/import_combos.h"
#include "exchange/forms/import_commands.h"
#include "exchange/forms/import_questions.h"
#include "support/form_texts.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

namespace {

QStringList headers(QTableView* view)
{
    QStringList texts;
    for (int column = 0; column < view->model()->columnCount(); ++column)
        texts << view->model()->headerData(column, Qt::Horizontal).toString();
    return texts;
}

} // namespace

TEST_F(ImportDialogs, EachFamilyHasItsTitleFormatAndColumns)
{
    const QStringList fixed = {"Имя элемента", "Цикл измерений", "Прибор", "Исполнитель"};
    const QStringList usual = {"По умолчанию(*.csv)"};
    const struct {
        std::unique_ptr<MeasureImportDialog> dialog;
        QString name, title;
        QStringList filters;
        QString first;
        QStringList own;
    } cases[] = {
        {std::make_unique<DMImportCmdDialog>(),
         "DMImportCmdDialog",
         "Импорт измерений деформационных марок",
         usual,
         "Статус",
         {"Значение", "Валидность"}},
        {std::make_unique<RPImportCmdDialog>(),
         "RPImportCmdDialog",
         "Импорт измерений реперов",
         usual,
         "Импорт",
         {"Измерение", "Точность"}},
        {std::make_unique<GGSImportCmdDialog>(),
         "GGSImportCmdDialog",
         "Импорт измерений гидрогеологических скважин",
         usual,
         "Импорт",
         {"Уровень воды"}},
        {std::make_unique<TSGImportCmdDialog>(),
         "TSGImportCmdDialog",
         "Импорт измерений термостабилизационных элементов.",
         usual,
         "Импорт",
         {"Температура\n воздуха", "Температура\n теплообменника"}},
        {std::make_unique<TSSImportCmdDialog>(),
         "TSSImportCmdDialog",
         "Импорт измерений точек снегомерной съемки",
         usual,
         "Импорт",
         {"Плотность снега", "Высота снега"}},
        {std::make_unique<TSImportCmdDialog>(),
         "TSImportCmdDialog",
         wellsTitle,
         {"Термостатика CSV(*.csv)", "РусГеоТех CSV(*.csv)", "Terva CSV(*.csv)"},
         "Статус",
         {"Температура\n воздуха", "Данные", "Валидность"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.dialog->objectName(), c.name);
        EXPECT_EQ(c.dialog->windowTitle(), c.title);
        auto* formats = child<QComboBox>(*c.dialog, "ImportTemplate");
        QStringList filters;
        for (int i = 0; i < formats->count(); ++i)
            filters << formats->itemText(i);
        EXPECT_EQ(filters, c.filters);
        auto* view = child<QTableView>(*c.dialog, "measuresView");
        EXPECT_EQ(headers(view), QStringList(c.first) + fixed + c.own);
        EXPECT_EQ(view->horizontalHeader()->defaultSectionSize(), 160);
        EXPECT_TRUE(view->horizontalHeader()->stretchLastSection());
        EXPECT_EQ(child<QLabel>(*c.dialog, "SummaryLabel")->text(), "Всего: 0 | Без данных: 0 | Верифицированных: 0");
        EXPECT_LE(c.dialog->minimumSizeHint().width(), 1280) << "fits a small laptop's screen";
        EXPECT_LE(c.dialog->minimumSizeHint().height(), 720);
    }
}

TEST_F(ImportDialogs, ControlsHaveTheirCaptionsAndStartingValues)
{
    TSImportCmdDialog dialog;
    const struct {
        const char* name;
        const char* caption;
        bool checked;
    } radios[] = {
        {"EncodingCP1251", "Windows 1251", false},
        {"EncodingUTF8", "UTF-8", true},
        {"SeparatorSemi",
         "Т\x6F"
         "чка с запятой (;)",
         true},
        {"SeparatorComma", "Запятая (,)", false},
        {"SeparatorTab", "Табуляция", false},
        {"SeparatorSpace", "Пробел", false},
        {"SeparatorCustom", "Пользовательский", false},
        {"ProjectPosition", "Установленная позиция проекта", true},
        {"AllDatabase", "По всей базе", false},
    };
    for (const auto& radio : radios) {
        auto* button = child<QRadioButton>(dialog, radio.name);
        EXPECT_EQ(button->text(), QString::fromUtf8(radio.caption));
        EXPECT_EQ(button->isChecked(), radio.checked) << radio.name;
    }
    EXPECT_EQ(child<QPushButton>(dialog, "ImportBtn")->text(), "Импорт");
    EXPECT_EQ(child<QPushButton>(dialog, "CopyErrorsBtn")->text(), "Копировать ошибки");
    EXPECT_EQ(child<QPushButton>(dialog, "CloseBtn")->text(), "Закрыть");
    for (const char* all : {"BTNCyclesToAll", "BTNToolToAll", "BTNOperatorToAll", "BTNEnvTempToAll"})
        EXPECT_EQ(child<QPushButton>(dialog, all)->text(), "Все");
    for (const char* list : {"BTNCycleList", "BTNDevicesList", "BTNPerformersList"})
        EXPECT_EQ(child<QPushButton>(dialog, list)->text(), "...");
    EXPECT_EQ(child<QLineEdit>(dialog, "CustomSepValue")->text(), "|");
    EXPECT_FALSE(child<QLineEdit>(dialog, "CustomSepValue")->isEnabled());
    EXPECT_EQ(child<QProgressBar>(dialog, "ReadProgress")->format(), "%p% (%v / %m)");
    auto* air = child<QDoubleSpinBox>(dialog, "EnvTempSpin");
    EXPECT_EQ(air->minimum(), -100.0);
    EXPECT_EQ(air->maximum(), 100.0);
    EXPECT_EQ(air->singleStep(), 0.1);
    EXPECT_EQ(child<QTableView>(dialog, "measuresView")->horizontalHeader()->defaultSectionSize(), 160);
    child<QRadioButton>(dialog, "SeparatorCustom")->setChecked(true);
    EXPECT_TRUE(child<QLineEdit>(dialog, "CustomSepValue")->isEnabled());
}

TEST_F(ImportDialogs, CombosShowTheCatalogues)
{
    TSImportCmdDialog dialog;
    auto* cycles = child<QComboBox>(dialog, "CyclesCombo");
    ASSERT_EQ(cycles->count(), 3);
    EXPECT_EQ(cycles->itemText(0), "Не выбран цикл");
    EXPECT_EQ(cycles->itemData(0), -1);
    EXPECT_EQ(cycles->itemText(1), "1 - 01.01.21 - 31.01.21 - зима");
    EXPECT_EQ(cycles->itemText(2), "2 - 01.02.21 - 28.02.21 - ");
    EXPECT_EQ(cycles->itemData(2), 2);
    auto* devices = child<QComboBox>(dialog, "DeviceCombo");
    EXPECT_EQ(devices->itemText(0), "Не выбрано устройство");
    EXPECT_EQ(devices->itemText(1), "SN-1 - новая");
    auto* performers = child<QComboBox>(dialog, "OperatorCombo");
    EXPECT_EQ(performers->itemText(0), "Не выбран исполнитель");
    EXPECT_EQ(performers->itemText(1), "Иванов Иван - Иванов");
    auto* positions = child<QComboBox>(dialog, "PositionCombo");
    EXPECT_EQ(positions->currentText(), "Позиция");
    EXPECT_EQ(positions->count(), 2);
    EXPECT_EQ(child<QLabel>(dialog, "PositionLabel")->text(), "Проект/Объект/Подобъект/Позиция");
}

TEST_F(ImportDialogs, WithoutAPositionTheLabelSaysSo)
{
    session().currentPositionId = -1;
    TSImportCmdDialog dialog;
    EXPECT_EQ(child<QComboBox>(dialog, "PositionCombo")->currentIndex(), -1);
    EXPECT_EQ(child<QLabel>(dialog, "PositionLabel")->text(), "Не выбрана позиция проекта");
}

TEST_F(ImportDialogs, AFileIsReadMendedAndImported)
{
    openWells(write(wellFile))
        .check("FileName", folder.filePath("file.csv"))
        .step("rows", {"measuresView", "3"})
        .step("rows", {"RawInput", "4"})
        .check("ReadProgress", "4")
        .check("SummaryLabel", "Всего: 3 | Без данных: 2 | Верифицированных: 0")
        .step("check-cell", {"measuresView", "0", "1", "T.1 (ID: 1)"})
        .step("check-cell", {"measuresView", "2", "6", "Нет данных"})
        .set("OperatorCombo", "data:1")
        .press("BTNOperatorToAll")
        .step("check-cell", {"measuresView", "0", "0", "OK"})
        .step("check-cell", {"measuresView", "0", "0", "checked"})
        .step("check-cell", {"measuresView", "1", "0", "Нет данных"})
        .step("check-cell", {"measuresView", "1", "0", "unchecked"})
        .step("cell", {"measuresView", "1", "5", "-7.5"})
        .step("check-cell", {"measuresView", "1", "0", "checked"})
        .check("SummaryLabel",
               "Всего: 3 | Без данных: 1 | Верифицированных: 2 (из них валидных 0, с "
               "предупреждениями 0, с ошибками 2)")
        .press("ImportBtn");
    driver.expect("Внимание")
        .text("Термоскважина T.1 содержит невалидные данные .\n Импортировать их? ")
        .press("Да для всех")
        .check("ReadProgress", "3")
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_EQ(console.text(),
              "\nИмпорт измерений для деформационной марки T.1 завершен\nИмпорт измерений для "
              "деформационной марки Т-2 завершенИмпорт измерений завершен. В базе данных создано "
              "(обновлено) измерений - 2 ");
    EXPECT_EQ(database->rows("select element_id, cycle_id, device_id, performer_id, t_vozd, meas from ts_meas order "
                             "by element_id"),
              QVector<QStringList>({{"1", "1", "1", "1", "-5", "1.00:-1.00|2.00:-1.10|3.00:-1.20"},
                                    {"2", "1", "1", "1", "-7.5", "1.00:-1.00|2.00:-1.10|3.00:-1.20"}}));
}

TEST_F(ImportDialogs, WhatIsOddAboutAFileIsToldOnTheCommandLine)
{
    openWells(write(QByteArray("\xFF\xFE"
                               "a\0;\0b\0\n\0",
                               10)))
        .step("rows", {"RawInput", "0"})
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_TRUE(console.text().contains("\nФайл записан в кодировке UTF-16.")) << console.text().toStdString();
}

TEST_F(ImportDialogs, AByteOrderMarkChoosesTheEncoding)
{
    openWells(write("\xEF\xBB\xBF" + wellFile))
        .step("rows", {"measuresView", "3"})
        .call([](QWidget* window) -> QString {
            window->findChild<QRadioButton*>("EncodingCP1251")->click();
            return QString();
        })
        .check("EncodingUTF8", "on")
        .check("RemarkLabel", "Файл начинается с метки порядка байтов: его кодировка UTF-8.")
        .step("rows", {"measuresView", "3"})
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, AnEmptyResultNamesItsLikelyCause)
{
    const QString remark = "Не прочитано ни одной строки. Вероятная причина — разделитель: в файле запятая.";
    openWells(write(QString::fromUtf8(wellFile).replace(';', ',').toUtf8()))
        .step("rows", {"measuresView", "0"})
        .check("RemarkLabel", remark)
        .set("SeparatorComma", "on")
        .step("rows", {"measuresView", "3"})
        .call([](QWidget* window) -> QString {
            return window->findChild<QLabel*>("RemarkLabel")->isVisible() ? "stale" : QString();
        })
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_EQ(console.text(), "\n" + remark + "\n");
}

TEST_F(ImportDialogs, CellsAreMendedThroughTheirCombos)
{
    openWells(write(wellFile))
        .step("cell", {"measuresView", "2", "1", "Т-2"})
        .step("check-cell", {"measuresView", "2", "1", "Т-2 (ID: 2)"})
        .step("cell", {"measuresView", "2", "2", "2 - 01.02.21 - 28.02.21 - "})
        .step("cell", {"measuresView", "2", "3", "SN-1 - новая"})
        .step("cell", {"measuresView", "2", "4", "Иванов Иван - Иванов"})
        .step("check-cell", {"measuresView", "2", "0", "Нет данных"})
        .step("cell", {"measuresView", "2", "4", "Не установлено"})
        .step("check-cell", {"measuresView", "2", "0", "Не определен исполнитель. "})
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, OneTemperatureOfTheAirGoesToAllRows)
{
    openWells(write(wellFile))
        .set("EnvTempSpin", "-12.3")
        .press("BTNEnvTempToAll")
        .step("check-cell", {"measuresView", "0", "5", "-12.30"})
        .step("check-cell", {"measuresView", "1", "5", "-12.30"})
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, TheOtherValuesGoToAllRows)
{
    openWells(write(wellFile))
        .set("CyclesCombo", "data:2")
        .press("BTNCyclesToAll")
        .set("DeviceCombo", "data:1")
        .press("BTNToolToAll")
        .step("check-cell", {"measuresView", "2", "2", "2 - 01.02.21 - 28.02.21 - "})
        .step("check-cell", {"measuresView", "2", "3", "SN-1 - новая"})
        .set("CyclesCombo", "data:-1")
        .press("BTNCyclesToAll")
        .step("check-cell", {"measuresView", "0", "2", "Не установлено"})
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, ChangesOfTheFormatReadTheFileAgain)
{
    QByteArray other = QString::fromUtf8(wellFile).replace(';', '#').toUtf8();
    openWells(write(other))
        .step("rows", {"measuresView", "0"})
        .check("SummaryLabel", "Всего: 0 | Без данных: 0 | Верифицированных: 0")
        .set("SeparatorCustom", "on")
        .step("rows", {"measuresView", "0"})
        .set("CustomSepValue", "#")
        .step("rows", {"measuresView", "3"})
        .set("EncodingCP1251", "on")
        .step("rows", {"measuresView", "0"})
        .set("EncodingUTF8", "on")
        .step("rows", {"measuresView", "3"})
        .set("ImportTemplate", "index:0")
        .step("rows", {"measuresView", "0"})
        .set("ImportTemplate", "index:2")
        .set("CustomSepValue", "")
        .step("rows", {"measuresView", "0"})
        .set("SeparatorTab", "on")
        .step("rows", {"measuresView", "0"})
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, EverySeparatorIsTaken)
{
    const QPair<const char*, char> separators[] = {
        {"SeparatorSemi", ';'}, {"SeparatorComma", ','}, {"SeparatorTab", '\t'}, {"SeparatorSpace", ' '}};
    DMImportCmdDialog dialog;
    for (const auto& [name, sign] : separators) {
        QString text = "Имя;Дата;Отметка;SN\u00A0прибора\nТ-1;05.01.2021;1.5;SN-1\n";
        // A caption with a blank of its own cannot stand in a file split at blanks.
        text.replace(QChar(0xA0), sign == ' ' ? '_' : ' ');
        child<QRadioButton>(dialog, name)->setChecked(true);
        child<QLineEdit>(dialog, "FileName")->setText(write(text.replace(';', sign).toUtf8()));
        child<QRadioButton>(dialog, "EncodingCP1251")->setChecked(true);
        child<QRadioButton>(dialog, "EncodingUTF8")->setChecked(true);
        EXPECT_EQ(child<QTableView>(dialog, "measuresView")->model()->rowCount(), sign == ' ' ? 0 : 1) << name;
        EXPECT_EQ(child<QTableView>(dialog, "RawInput")->model()->columnCount(), 4) << name;
    }
}

// The first format of a family stands for the usual file.
TEST_F(ImportDialogs, AFileOfTheFirstFormatSetsTheUsualCodingAndSeparator)
{
    driver.expect("Импорт измерений деформационных марок")
        .set("EncodingCP1251", "on")
        .set("SeparatorTab", "on")
        .press("OpenFileBtn");
    driver.expect("Открыть файл")
        .files({write("Имя;Дата;Отметка;SN прибора\nТ-1;05.01.2021;1.5;SN-1\n")})
        .step("state", {"EncodingUTF8", "enabled"})
        .check("EncodingUTF8", "on")
        .check("SeparatorSemi", "on")
        .step("rows", {"measuresView", "1"})
        .press("CloseBtn");
    importDeformationMarkMeasures();
    driver.expect(wellsTitle).set("EncodingCP1251", "on").set("ImportTemplate", ownFormat).press("OpenFileBtn");
    driver.expect("Открыть файл")
        .files({write(wellFile)})
        .check("EncodingCP1251", "on")
        .check("ImportTemplate", ownFormat)
        .step("rows", {"measuresView", "0"})
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, TheFilterOfTheFileDialogChoosesTheFormat)
{
    const QByteArray file = "Дата замера;Время замера;№ Объекта;Зав.№ косы;1;2;x;y\n"
                            "05.01.21;14:15;Т-1;SN-1;-1;-2;9;9\n";
    driver.expect(wellsTitle).set("ImportTemplate", ownFormat).press("OpenFileBtn");
    driver.expect("Открыть файл")
        .call([](QWidget* window) {
            auto* dialog = qobject_cast<QFileDialog*>(window);
            if (!dialog || dialog->nameFilters().size() != 3 || dialog->selectedNameFilter() != ownFormat)
                return QStringLiteral("другие фильтры");
            dialog->selectNameFilter("РусГеоТех CSV(*.csv)");
            return QString();
        })
        .files({write(file)})
        .check("ImportTemplate", "РусГеоТех CSV(*.csv)")
        .step("rows", {"measuresView", "1"})
        .step("check-cell", {"measuresView", "0", "0", "Не определен исполнитель. "})
        .set("OperatorCombo", "data:1")
        .press("BTNOperatorToAll")
        .step("check-cell", {"measuresView", "0", "0", "Нет данных"})
        .set("EnvTempSpin", "-20")
        .press("BTNEnvTempToAll")
        .step("check-cell", {"measuresView", "0", "0", "OK"})
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, ADialogAtWorkShowsItsProgressAndStaysOpen)
{
    TSImportCmdDialog dialog;
    dialog.show();
    child<QComboBox>(dialog, "ImportTemplate")->setCurrentIndex(2);
    child<QLineEdit>(dialog, "FileName")->setText(write(wellFile));
    QVector<int> steps;
    QObject::connect(child<QProgressBar>(dialog, "ReadProgress"), &QProgressBar::valueChanged, &dialog, [&](int step) {
        steps.append(step);
        dialog.reject();
    });
    child<QRadioButton>(dialog, "EncodingCP1251")->setChecked(true);
    child<QRadioButton>(dialog, "EncodingUTF8")->setChecked(true);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(steps, QVector<int>({1, 2, 3, 4, 0, 1, 2, 3, 4})) << "line by line";
    dialog.reject();
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ImportDialogs, ADialogThatWritesStaysOpen)
{
    TSImportCmdDialog dialog;
    dialog.show();
    child<QComboBox>(dialog, "ImportTemplate")->setCurrentIndex(2);
    child<QLineEdit>(dialog, "FileName")->setText(write(wellFile));
    child<QRadioButton>(dialog, "EncodingCP1251")->setChecked(true);
    child<QRadioButton>(dialog, "EncodingUTF8")->setChecked(true);
    auto* performers = child<QComboBox>(dialog, "OperatorCombo");
    performers->setCurrentIndex(performers->findData(1));
    child<QPushButton>(dialog, "BTNOperatorToAll")->click();
    const auto leave = [&dialog](QWidget*) {
        dialog.reject();
        return dialog.isVisible() ? QString() : QStringLiteral("closed over its own question");
    };
    driver.expect("Внимание").call(leave).press("Да для всех");
    child<QPushButton>(dialog, "ImportBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database->value("select count(*) from ts_meas"), "1");
}

TEST_F(ImportDialogs, AFileDialogThatIsClosedChangesNothing)
{
    driver.expect(wellsTitle).press("OpenFileBtn");
    driver.expect("Открыть файл").close().check("FileName", "").step("rows", {"measuresView", "0"}).press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, TheScopeDecidesWhichElementsAreKnown)
{
    const QByteArray file = "Имя;Дата;Отметка;SN прибора\nД-1;05.01.2021;1.5;SN-1\n";
    driver.expect("Импорт измерений деформационных марок").press("OpenFileBtn");
    driver.expect("Открыть файл")
        .files({write(file)})
        .step("check-cell", {"measuresView", "0", "1", "Д-1 (ID: -1)"})
        .set("AllDatabase", "on")
        .step("check-cell", {"measuresView", "0", "1", "Д-1 (ID: 3)"})
        .step("state", {"PositionCombo", "disabled"})
        .set("ProjectPosition", "on")
        .step("check-cell", {"measuresView", "0", "1", "Д-1 (ID: -1)"})
        .set("PositionCombo", "Другая")
        .step("check-cell", {"measuresView", "0", "1", "Д-1 (ID: 3)"})
        .check("PositionLabel", "Проект/Объект/Подобъект/Другая")
        .press("CloseBtn");
    importDeformationMarkMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, TheButtonOfAProfileShowsIt)
{
    TSImportCmdDialog dialog;
    child<QLineEdit>(dialog, "FileName")->setText(write(wellFile));
    child<QComboBox>(dialog, "ImportTemplate")->setCurrentIndex(2);
    dialog.show();
    auto* view = child<QTableView>(dialog, "measuresView");
    const QModelIndex cell = view->model()->index(0, 6);
    view->scrollTo(cell);
    driver.expect("Просмотр данных измерения: T.1")
        .step("rows", {"DataView", "3"})
        .step("check-cell", {"DataView", "1", "0", "2.00"})
        .step("check-cell", {"DataView", "1", "1", "-1.10"})
        .close();
    const QPointF middle = view->visualRect(cell).center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, middle, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &event);
    }
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, UncheckedRowsGoToTheClipboard)
{
    openWells(write(wellFile))
        .set("OperatorCombo", "data:1")
        .press("BTNOperatorToAll")
        .press("CopyErrorsBtn")
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_EQ(QApplication::clipboard()->text(),
              "Нет данных\tТ-2 (ID: 2)\t1 - 01.01.21 - 31.01.21 - зима\tSN-1 - новая\tИванов Иван - "
              "Иванов\t\t\tНе задан критерий\n"
              "Имя Т-9 не найдено. Устройство SN SN-9 не найдено. Не определен цикл. \tТ-9 (ID: -1)\tНе "
              "установлено\tНе установлено\tИванов Иван - Иванов\t-5\tНет данных\tНеизвестная ошибка\n");
}

TEST_F(ImportDialogs, CataloguesOpenAndTheCombosFollow)
{
    openWells(write(wellFile)).set("CyclesCombo", "data:2").press("BTNCycleList");
    driver.expect("Циклы измерений")
        .step("rows", {"Cycles", "2"})
        .call([this](QWidget*) {
            database->exec("insert into cycles (cycle_id, number, date_start, date_end) overriding system value "
                           "values (9, 9, '2021-09-01', '2021-09-30')");
            return QString();
        })
        .press("OK")
        .check("CyclesCombo", "2 - 01.02.21 - 28.02.21 - ")
        .set("CyclesCombo", "data:9")
        .step("cell", {"measuresView", "2", "2", "9 - 01.09.21 - 30.09.21 - "})
        .press("BTNDevicesList");
    driver.expect("Оборудование").press("OK").press("BTNPerformersList");
    driver.expect("Исполнители")
        .step("rows", {"Performers", "1"})
        .press("OK")
        .step("check-cell", {"measuresView", "2", "2", "9 - 01.09.21 - 30.09.21 - "})
        .press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, AnImportWithoutRowsSaysThatNothingChanged)
{
    driver.expect(wellsTitle).press("ImportBtn").press("CloseBtn");
    importThermalWellMeasures();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_EQ(console.text(), "Импорт измерений завершен. Ничего не изменилось");
}

TEST_F(ImportDialogs, QuestionsHaveFourAnswers)
{
    const QPair<const char*, ImportAnswer> answers[] = {{"Да", ImportAnswer::Yes},
                                                        {"Да для всех", ImportAnswer::YesToAll},
                                                        {"Нет", ImportAnswer::No},
                                                        {"Нет для всех", ImportAnswer::NoToAll}};
    for (const auto& [caption, answer] : answers) {
        driver.expect("Внимание").text("вопрос").press(caption);
        EXPECT_EQ(int(askImport("вопрос", nullptr)), int(answer)) << caption;
    }
    driver.expect("Внимание").close();
    EXPECT_EQ(int(askImport("вопрос", nullptr)), int(ImportAnswer::No)) << "closed";
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(ImportDialogs, EscAnswersAQuestionWithNo)
{
    driver.expect("Внимание").text("вопрос").call([](QWidget* box) {
        QTest::keyClick(box, Qt::Key_Escape);
        return QString();
    });
    EXPECT_EQ(int(askImport("вопрос", nullptr)), int(ImportAnswer::No));
    EXPECT_TRUE(driver.done()) << driver.report().toStdString() << " the box stays open";
}

TEST_F(ImportDialogs, TheOtherFamiliesImportThroughTheSameFrame)
{
    const struct {
        void (*command)();
        const char* title;
        QByteArray file;
        const char* table;
    } cases[] = {
        {importBenchmarkMeasures, "Импорт измерений реперов",
         "Имя;Дата;Отметка;Точность;SN прибора\nТ-1;05.01.2021;1.5;0,25;SN-1\n", "rp_meas"},
        {importGroundwaterMeasures, "Импорт измерений гидрогеологических скважин",
         "Имя;Дата;Уровень ГВ;SN прибора\nТ-1;05.01.2021;1.5;SN-1\n", "ggs_meas"},
        {importThermostabiliserMeasures, "Импорт измерений термостабилизационных элементов.",
         "Имя;Дата;Температура воздуха;Температура конденсатора;SN прибора\nТ-1;05.01.2021;1.5;2;SN-1\n", "tsg_meas"},
        {importSnowPointMeasures, "Импорт измерений точек снегомерной съемки",
         "Имя;Дата;Плотность;Высота;SN прибора\nТ-1;05.01.2021;1.5;2;SN-1\n", "tss_meas"},
    };
    for (const auto& c : cases) {
        driver.expect(c.title).press("OpenFileBtn");
        driver.expect("Открыть файл")
            .files({write(c.file)})
            .set("OperatorCombo", "data:1")
            .press("BTNOperatorToAll")
            .press("ImportBtn")
            .press("CloseBtn");
        c.command();
        EXPECT_TRUE(driver.done()) << driver.report().toStdString();
        EXPECT_EQ(database->value(QString("select count(*) from %1").arg(c.table)), "1") << c.table;
    }
}
