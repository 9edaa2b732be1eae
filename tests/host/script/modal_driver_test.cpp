// Forms driven by name, as tests of forms do it.
#include <script/modal_driver.h>

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QThread>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

// A form with one widget of each kind, and a record of the signals they send.
struct Form : QDialog {
    Form()
    {
        setWindowTitle(QStringLiteral("Форма"));
        auto* column = new QVBoxLayout(this);
        const auto add = [&](QWidget* widget, const char* name) {
            widget->setObjectName(QString::fromLatin1(name));
            column->addWidget(widget);
        };
        add(line, "line");
        add(text, "text");
        add(spin, "spin");
        add(combo, "combo");
        add(check, "check");
        add(radio, "radio");
        add(group, "group");
        add(slider, "slider");
        add(date, "date");
        add(list, "list");
        add(tabs, "tabs");
        add(table, "table");
        add(tree, "tree");
        add(ok, "okButton");
        combo->addItem(QStringLiteral("раз"), 10);
        combo->addItem(QStringLiteral("два"), 20);
        list->addItems({QStringLiteral("альфа"), QStringLiteral("бета")});
        group->setCheckable(true);
        group->setChecked(false);
        tabs->addTab(new QWidget, QStringLiteral("&Общее"));
        tabs->addTab(new QWidget, QStringLiteral("Пути"));
        spin->setDecimals(2);
        date->setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
        fillTable();
        connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    }

    void fillTable()
    {
        table->setHorizontalHeaderLabels({QStringLiteral("Имя"), QStringLiteral("Значение")});
        table->setItem(0, 0, new QTableWidgetItem(QStringLiteral("ТС.1")));
        table->setItem(0, 1, new QTableWidgetItem(QStringLiteral("1")));
        auto* marked = new QTableWidgetItem(QStringLiteral("ТС.2"));
        marked->setCheckState(Qt::Unchecked);
        table->setItem(1, 0, marked);
        table->setCellWidget(1, 1, cellBox);
        cellBox->addItems({QStringLiteral("нет"), QStringLiteral("да")});
        auto* object = new QTreeWidgetItem(tree, {QStringLiteral("Объект")});
        new QTreeWidgetItem(object, {QStringLiteral("Позиция")});
    }

    QLineEdit* line = new QLineEdit;
    QPlainTextEdit* text = new QPlainTextEdit;
    QDoubleSpinBox* spin = new QDoubleSpinBox;
    QComboBox* combo = new QComboBox;
    QCheckBox* check = new QCheckBox(QStringLiteral("Флажок"));
    QRadioButton* radio = new QRadioButton(QStringLiteral("Выбор"));
    QGroupBox* group = new QGroupBox(QStringLiteral("Рамка"));
    QSlider* slider = new QSlider(Qt::Horizontal);
    QDateEdit* date = new QDateEdit;
    QListWidget* list = new QListWidget;
    QTabWidget* tabs = new QTabWidget;
    QTableWidget* table = new QTableWidget(2, 2);
    QComboBox* cellBox = new QComboBox;
    QTreeWidget* tree = new QTreeWidget;
    QPushButton* ok = new QPushButton(QStringLiteral("&Готово"));
};

// Runs the form; the driver's own time limit ends it.
std::string ran(Form& form, ModalDriver& driver)
{
    driver.setStepTimeout(2.0);
    form.exec();
    return driver.report().toStdString();
}

} // namespace

TEST(ModalDriver, SetsEveryKindOfField)
{
    Form form;
    int chosen = -1;
    QObject::connect(form.combo, QOverload<int>::of(&QComboBox::activated), [&](int index) { chosen = index; });
    ModalDriver driver;
    driver.expect("Форма")
        .set("line", "строка")
        .set("text", "много\nстрок")
        .set("spin", "2.5")
        .set("combo", "два")
        .set("check", "on")
        .set("radio", "on")
        .set("group", "on")
        .set("slider", "7")
        .set("date", "14.05.2021")
        .set("list", "бета")
        .set("tabs", "Пути")
        .press("Готово");
    EXPECT_EQ(ran(form, driver), "");
    EXPECT_TRUE(driver.done());
    EXPECT_EQ(form.line->text(), QStringLiteral("строка"));
    EXPECT_EQ(form.text->toPlainText(), QStringLiteral("много\nстрок"));
    EXPECT_EQ(form.spin->value(), 2.5);
    EXPECT_EQ(form.combo->currentIndex(), 1);
    EXPECT_EQ(chosen, 1);
    EXPECT_TRUE(form.check->isChecked() && form.radio->isChecked() && form.group->isChecked());
    EXPECT_EQ(form.slider->value(), 7);
    EXPECT_EQ(form.date->date(), QDate(2021, 5, 14));
    EXPECT_EQ(form.list->currentRow(), 1);
    EXPECT_EQ(form.tabs->currentIndex(), 1);
    EXPECT_EQ(form.result(), int(QDialog::Accepted));
}

TEST(ModalDriver, ItemsGoByIndexAndByData)
{
    Form form;
    ModalDriver driver;
    driver.expect("Форма")
        .set("combo", "data:20")
        .check("combo", "два")
        .set("combo", "index:0")
        .check("combo", "раз")
        .step("items", {"combo", "раз", "два"})
        .step("items", {"tabs", "Общее", "Пути"})
        .press("okButton");
    EXPECT_EQ(ran(form, driver), "");
}

TEST(ModalDriver, CellsAreEditedThroughTheirEditors)
{
    Form form;
    ModalDriver driver;
    driver.expect("Форма")
        .step("rows", {"table", "2"})
        .step("cell", {"table", "ТС.1", "Значение", "5.5"})
        .step("check-cell", {"table", "0", "1", "5.5"})
        .step("cell", {"table", "1", "0", "checked"})
        .step("check-cell", {"table", "1", "0", "checked"})
        .step("cell", {"table", "ТС.2", "Значение", "да"})
        .step("row", {"tree", "Объект/Позиция"})
        .press("okButton");
    EXPECT_EQ(ran(form, driver), "");
    EXPECT_EQ(form.table->item(0, 1)->text(), QStringLiteral("5.5"));
    EXPECT_EQ(form.cellBox->currentText(), QStringLiteral("да"));
    ASSERT_NE(form.tree->currentItem(), nullptr);
    EXPECT_EQ(form.tree->currentItem()->text(0), QStringLiteral("Позиция"));
}

TEST(ModalDriver, ACellThatIsNotEditedRefuses)
{
    Form form;
    form.table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ModalDriver driver;
    driver.expect("Форма").step("cell", {"table", "0", "1", "5"});
    EXPECT_NE(ran(form, driver).find("ячейка не правится"), std::string::npos);
    EXPECT_EQ(form.table->item(0, 1)->text(), QStringLiteral("1"));
}

TEST(ModalDriver, AFieldThatIsOffRefuses)
{
    for (const char* name : {"line", "combo", "check", "spin"}) {
        Form form;
        form.findChild<QWidget*>(QString::fromLatin1(name))->setEnabled(false);
        ModalDriver driver;
        driver.expect("Форма").set(QString::fromLatin1(name), "1");
        EXPECT_NE(ran(form, driver).find("недоступно"), std::string::npos) << name;
        EXPECT_FALSE(form.isVisible());
    }
}

TEST(ModalDriver, AWrongValueIsReported)
{
    Form form;
    form.line->setText(QStringLiteral("a"));
    ModalDriver driver;
    driver.expect("Форма").check("line", "b");
    EXPECT_NE(ran(form, driver).find("ожидалось «b», встречено «a»"), std::string::npos);
    EXPECT_FALSE(driver.done());
}

TEST(ModalDriver, AnUnexpectedBoxIsClosedAndRecorded)
{
    ModalDriver driver;
    EXPECT_NE(QMessageBox::question(nullptr, QStringLiteral("Внимание"), QStringLiteral("Удалить?")), QMessageBox::Yes);
    EXPECT_FALSE(driver.done());
    EXPECT_NE(driver.report().toStdString().find("«Внимание» с текстом «Удалить?»"), std::string::npos);
}

TEST(ModalDriver, FurtherExpectationsStandAfterAFailure)
{
    ModalDriver driver;
    driver.expect("Первое").text("не то").press("ОК");
    driver.expect("Второе").press("ОК");
    QMessageBox::information(nullptr, QStringLiteral("Первое"), QStringLiteral("то"));
    QMessageBox::information(nullptr, QStringLiteral("Второе"), QStringLiteral("то"));
    EXPECT_EQ(driver.failures().size(), 1);
    EXPECT_EQ(driver.report().count(QStringLiteral("не сделано")), 0) << driver.report().toStdString();
}

TEST(ModalDriver, WhatWasNotMetIsReported)
{
    ModalDriver driver;
    driver.expect("Никогда").press("ОК");
    EXPECT_FALSE(driver.done());
    EXPECT_NE(driver.report().toStdString().find("не сделано: dialog Никогда"), std::string::npos);
}

TEST(ModalDriver, StandardButtonsAnswerToBothLanguages)
{
    const auto ask = [](const QString& button) {
        ModalDriver driver;
        driver.expect("Вопрос").press(button);
        const auto pressed =
            QMessageBox::question(nullptr, QStringLiteral("Вопрос"), QString(),
                                  QMessageBox::Yes | QMessageBox::No | QMessageBox::YesToAll | QMessageBox::NoToAll);
        EXPECT_TRUE(driver.done()) << driver.report().toStdString();
        return pressed;
    };
    EXPECT_EQ(ask(QStringLiteral("Да")), QMessageBox::Yes);
    EXPECT_EQ(ask(QStringLiteral("No")), QMessageBox::No);
    EXPECT_EQ(ask(QStringLiteral("Да для всех")), QMessageBox::YesToAll);
    EXPECT_EQ(ask(QStringLiteral("Нет для всех")), QMessageBox::NoToAll);
}

TEST(ModalDriver, FileDialogsTakePaths)
{
    QTemporaryDir folder;
    for (const char* name : {"a.csv", "б.csv"})
        QFile(folder.filePath(QString::fromUtf8(name))).open(QIODevice::WriteOnly);
    const QString a = folder.filePath(QStringLiteral("a.csv")), b = folder.filePath(QStringLiteral("б.csv"));
    const auto none = QFileDialog::DontUseNativeDialog;
    ModalDriver driver;
    driver.expect("Открыть").files({b});
    EXPECT_EQ(QFileDialog::getOpenFileName(nullptr, QStringLiteral("Открыть"), {}, {}, nullptr, none), b);
    driver.expect("Несколько").files({a, b});
    EXPECT_EQ(QFileDialog::getOpenFileNames(nullptr, QStringLiteral("Несколько"), {}, {}, nullptr, none),
              (QStringList{a, b}));
    driver.expect("Сохранить").files({folder.filePath(QStringLiteral("c.csv"))});
    EXPECT_EQ(QFileDialog::getSaveFileName(nullptr, QStringLiteral("Сохранить"), {}, {}, nullptr, none),
              folder.filePath(QStringLiteral("c.csv")));
    driver.expect("Папка").files({folder.path()});
    EXPECT_EQ(QFileDialog::getExistingDirectory(nullptr, QStringLiteral("Папка"), {}, QFileDialog::ShowDirsOnly | none),
              folder.path());
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST(ModalDriver, AFileThatIsNotThereIsAFailure)
{
    ModalDriver driver;
    driver.expect("Открыть").files({QStringLiteral("/нет/такого")});
    EXPECT_TRUE(QFileDialog::getOpenFileName(nullptr, QStringLiteral("Открыть"), {}, {}, nullptr,
                                             QFileDialog::DontUseNativeDialog)
                    .isEmpty());
    EXPECT_NE(driver.report().toStdString().find("нет файла"), std::string::npos);
}

TEST(ModalDriver, ColoursAndInputsAreAnswered)
{
    ModalDriver driver;
    driver.expect("Цвет").color("10,20,30");
    EXPECT_EQ(QColorDialog::getColor(Qt::white, nullptr, QStringLiteral("Цвет"), QColorDialog::DontUseNativeDialog),
              QColor(10, 20, 30));
    driver.expect("Число").text("Сколько").set("input", "12").press("OK");
    EXPECT_EQ(QInputDialog::getInt(nullptr, QStringLiteral("Число"), QStringLiteral("Сколько")), 12);
    driver.expect("Слой").set("input", "два").press("OK");
    EXPECT_EQ(QInputDialog::getItem(nullptr, QStringLiteral("Слой"), QString(), {"раз", "два"}), QStringLiteral("два"));
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST(ModalDriver, AWidgetIsDoubleClicked)
{
    Form form;
    auto* line = new QLineEdit(QStringLiteral("слово"), &form);
    line->setObjectName("word");
    form.layout()->addWidget(line);
    ModalDriver driver;
    driver.expect("Форма").step("double", {"word"}).press("okButton");
    EXPECT_EQ(ran(form, driver), "");
    EXPECT_EQ(line->selectedText(), "слово");
}

TEST(ModalDriver, AContextMenuIsChosenFrom)
{
    Form form;
    QStringList chosen;
    form.table->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(form.table, &QWidget::customContextMenuRequested, [&](const QPoint& at) {
        QMenu menu;
        menu.addAction(QStringLiteral("Первый"));
        menu.addAction(QStringLiteral("&Удалить"));
        if (const QAction* action = menu.exec(form.table->mapToGlobal(at)))
            chosen << action->text() << QString::number(form.table->currentRow());
    });
    ModalDriver driver;
    driver.expect("Форма").step("menu", {"table", "ТС.2", "0"}).step("choose", {"Удалить"}).press("okButton");
    EXPECT_EQ(ran(form, driver), "");
    EXPECT_EQ(chosen, (QStringList{"&Удалить", "1"}));
}

TEST(ModalDriver, AFormAtWorkIsLeftAloneUnlessNowIsSaid)
{
    Form form;
    auto* start = new QPushButton(QStringLiteral("Начать"), &form);
    auto* stop = new QPushButton(QStringLiteral("Прервать работу"), &form);
    form.layout()->addWidget(start);
    form.layout()->addWidget(stop);
    bool stopped = false;
    int turns = 0;
    QObject::connect(stop, &QPushButton::clicked, [&] { stopped = true; });
    QObject::connect(start, &QPushButton::clicked, [&] {
        for (; turns < 500 && !stopped; ++turns) {
            QApplication::processEvents();
            QThread::msleep(2);
        }
    });
    ModalDriver driver;
    driver.expect("Форма").press("Начать").step("press", {"Прервать работу", "now"}).press("okButton");
    EXPECT_EQ(ran(form, driver), "");
    EXPECT_TRUE(stopped);
    EXPECT_LT(turns, 500);
}

TEST(ModalDriver, WorkThatMovesAProgressBarMayTakeLongerThanAStep)
{
    Form form;
    auto* start = new QPushButton(QStringLiteral("Начать"), &form);
    auto* bar = new QProgressBar(&form);
    form.layout()->addWidget(start);
    form.layout()->addWidget(bar);
    QObject::connect(start, &QPushButton::clicked, [&] {
        for (int i = 0; i < 60; ++i) {
            bar->setValue(i);
            QApplication::processEvents();
            QThread::msleep(10);
        }
    });
    ModalDriver driver;
    driver.expect("Форма").press("Начать").press("okButton");
    driver.setStepTimeout(0.2);
    form.exec();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_EQ(bar->value(), 59);
}

TEST(ModalDriver, PicturesOfFormsAreTaken)
{
    QTemporaryDir folder;
    Form form;
    ModalDriver driver;
    const QString path = folder.filePath(QStringLiteral("sub/form.png"));
    driver.expect("Форма").screenshot(path).press("okButton");
    EXPECT_EQ(ran(form, driver), "");
    const QImage image(path);
    EXPECT_GT(image.width(), 100);
    EXPECT_GT(image.height(), 100);
}

TEST(ModalDriver, AWindowThatIsNotModalIsPlayed)
{
    Form form;
    form.show();
    ModalDriver driver;
    driver.setStepTimeout(2.0);
    driver.window("Форма").set("line", "x").press("okButton");
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_EQ(form.line->text(), QStringLiteral("x"));
    EXPECT_FALSE(form.isVisible());
}
