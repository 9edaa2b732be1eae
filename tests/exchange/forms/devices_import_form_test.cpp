#include "exchange/forms/devices_import_form.h"

#include "database/catalogues/forms/catalogue_forms.h"
#include "exchange/forms/dialog_fixture.h"
#include "exchange/forms/import_commands.h"
#include "exchange/forms/role_view.h"
#include "support/pictures.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

namespace {

class DevicesForm : public ImportDialogs {
protected:
    void SetUp() override
    {
        ImportDialogs::SetUp();
        database->exec("select setval(pg_get_serial_sequence('devices', 'device_id'), 100)");
    }
    void TearDown() override { session().importColumns = ProjectSession().importColumns; }

    void open(DevicesImportForm& form, const QByteArray& bytes)
    {
        driver.expect("Открыть файл").files({write(bytes)});
        form.findChild<QPushButton*>("OpenFileBtn")->click();
        EXPECT_TRUE(driver.done()) << driver.report();
    }
    static QTableWidget* preview(DevicesImportForm& form) { return form.findChild<QTableWidget*>("ImportPreview"); }
    static QStringList cells(DevicesImportForm& form, int row)
    {
        QStringList texts;
        for (int i = 0; i < 4; ++i)
            texts << preview(form)->item(row, i)->text();
        return texts;
    }
};

} // namespace

TEST_F(DevicesForm, CaptionsAndStartingValues)
{
    DevicesImportForm form;
    QStringList captions = {form.windowTitle()};
    for (const char* name : {"OpenFileBtn", "ImportBtn", "CloseBtn"})
        captions << form.findChild<QPushButton*>(name)->text();
    const auto* pages = form.findChild<QTabWidget*>("Pages");
    captions << form.findChild<QComboBox*>("ImportTemplate")->currentText() << pages->tabText(0) << pages->tabText(1);
    for (int i = 0; i < 4; ++i)
        captions << preview(form)->horizontalHeaderItem(i)->text();
    EXPECT_EQ(captions,
              QStringList({"Импорт устройств", "Открыть", "Импорт", "Закрыть", "По умолчанию(*.csv)", "Файл",
                           "Просмотр", "Имя", "Серийный номер", "Описание", "Статус"}));
    const ColumnRoles& roles = form.findChild<RoleView*>("RawInput")->roles();
    EXPECT_EQ(roles.columnOf(DeviceRole::Name), 0);
    EXPECT_EQ(roles.columnOf(DeviceRole::Serial), 1);
    EXPECT_EQ(roles.columnOf(DeviceRole::Description), 2);
}

TEST_F(DevicesForm, TheUserSaysWhatAColumnHolds)
{
    DevicesImportForm form;
    open(form, "SN-7;коса;новая\n;коса;без номера\n");
    EXPECT_EQ(cells(form, 0), QStringList({"SN-7", "коса", "новая", "ОК"}));
    auto* raw = form.findChild<RoleView*>("RawInput");
    ColumnRoles roles = raw->roles();
    roles.give(DeviceRole::Serial, 0);
    roles.give(DeviceRole::Name, 1);
    raw->setRoles(roles);
    EXPECT_EQ(raw->model()->headerData(0, Qt::Horizontal).toString(), "Серийный номер");
    EXPECT_EQ(raw->model()->headerData(3, Qt::Horizontal).toString(), "4");
    EXPECT_EQ(cells(form, 0), QStringList({"коса", "SN-7", "новая", "ОК"}));
    EXPECT_EQ(cells(form, 1), QStringList({"коса", "", "без номера", "Ошибка"}));
    EXPECT_EQ(preview(form)->item(1, 3)->foreground().color(), QColor(Qt::red));
    form.findChild<QTabWidget*>("Pages")->setCurrentIndex(1);
    EXPECT_TRUE(takePicture(form, "devices-import"));
    form.findChild<QPushButton*>("ImportBtn")->click();
    EXPECT_EQ(database->value("select count(*) from devices where serial = 'SN-7' and name = 'коса'"), "1");
    EXPECT_EQ(DevicesImportForm().findChild<RoleView*>("RawInput")->roles().columnOf(DeviceRole::Serial), 0)
        << "the session remembers";
}

TEST_F(DevicesForm, TheHeadersMenuGivesRoles)
{
    DevicesImportForm form;
    open(form, "SN-7;коса;новая\n");
    form.show();
    auto* header = form.findChild<RoleView*>("RawInput")->horizontalHeader();
    QStringList offered;
    QTimer::singleShot(0, [&offered] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        for (QAction* action : menu->actions())
            offered << action->text();
        menu->setActiveAction(menu->actions().value(1));
        QTest::keyClick(menu, Qt::Key_Return);
    });
    emit header->customContextMenuRequested(QPoint(header->sectionViewportPosition(0) + 3, 3));
    EXPECT_EQ(offered, QStringList({"Имя", "Серийный номер", "Описание", "Убрать"}));
    EXPECT_EQ(form.findChild<RoleView*>("RawInput")->roles().columnOf(DeviceRole::Serial), 0);
}

TEST_F(DevicesForm, RolesAreForColumnsThatAreThere)
{
    DevicesImportForm form;
    open(form, "SN-7;коса;новая\n");
    form.show();
    auto* raw = form.findChild<RoleView*>("RawInput");
    bool opened = false;
    // A menu would wait for its user.
    QTimer menus;
    QObject::connect(&menus, &QTimer::timeout, [&opened] {
        if (QWidget* menu = QApplication::activePopupWidget()) {
            opened = true;
            menu->close();
        }
    });
    menus.start(0);
    emit raw->verticalHeader()->customContextMenuRequested(QPoint(3, 3));
    EXPECT_FALSE(opened) << "rows hold no role here";
    auto* header = raw->horizontalHeader();
    emit header->customContextMenuRequested(QPoint(header->length() + 3, 3));
    EXPECT_FALSE(opened) << "there is no column";
}

TEST_F(DevicesForm, AKnownSerialAsksWithItsFourAnswers)
{
    DevicesImportForm form;
    open(form, "коса;SN-1;x\n");
    driver.expect("Внимание")
        .text("Устройство с SN SN-1 уже есть в базе .                \n Обновить данные замену?")
        .press("Да (все)");
    form.findChild<QPushButton*>("ImportBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database->value("select description from devices where device_id = 1"), "x");
}

TEST_F(DevicesForm, IsOpenedByTheCatalogueOfDevices)
{
    setDevicesImport({});
    EXPECT_FALSE(DevicesListForm().findChild<QPushButton*>("ImportBTN")->isEnabled()) << "nobody reads files";
    installDevicesImport();
    DevicesListForm catalogue;
    int changes = 0;
    QObject::connect(&catalogue, &formkit::CatalogueList::changed, [&changes] { ++changes; });
    auto* fromFile = catalogue.findChild<QPushButton*>("ImportBTN");
    EXPECT_EQ(fromFile->text(), QString("Импорт из .csv"));
    driver.expect("Импорт устройств").press("OpenFileBtn");
    driver.expect("Открыть файл").files({write("Рейка;SN-77;3 м\n")});
    driver.expect("Импорт устройств").press("ImportBtn").press("CloseBtn");
    fromFile->click();
    setDevicesImport({});
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(changes, 1);
    const auto* list = catalogue.findChild<QListWidget*>("Devices");
    EXPECT_EQ(list->findItems("Рейка - SN-77 - 3 м", Qt::MatchExactly).size(), 1) << "it is shown at once";
}
