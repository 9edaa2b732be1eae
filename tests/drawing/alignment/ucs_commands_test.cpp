// TERVA_GET_UCS and TERVA_SET_UCS
#include "alignment_fixture.h"
#include "drawing/alignment/ucs_commands.h"
#include "hostkit/user_system.h"

#include <drawing/host_faults.h>
#include <script/modal_driver.h>

#include <QComboBox>

namespace {

const QString noConnection = "Не установлено соединение с базой данных\n";

class UcsCommands : public AlignmentFixture {
protected:
    UcsCommands() { session().currentPositionName = "Поз/1"; }
    ~UcsCommands() override { session().currentPositionName.clear(); }

    static NcDbUCSTable& table() { return *HostAccess::objectAs<NcDbUCSTable>(drawing().ucsTableId()); }
    static void addUcs(const QString& name, const NcGePoint3d& origin, const NcGeVector3d& x, const NcGeVector3d& y)
    {
        auto ucs = std::make_unique<NcDbUCSTableRecord>();
        HostAccess::origin(*ucs) = origin;
        HostAccess::xAxis(*ucs) = x;
        HostAccess::yAxis(*ucs) = y;
        HostAccess::addRecord(table(), std::move(ucs), name);
    }
    static NcDbUCSTableRecord* ucs(const QString& name)
    {
        return HostAccess::objectAs<NcDbUCSTableRecord>(HostAccess::recordId(drawing(), drawing().ucsTableId(), name));
    }
    QVector<QStringList> rows() { return database->rows("select ucs_name, ucs_data from ucs_data order by ucs_id"); }
    void store(const QString& name, const QString& data)
    {
        database->exec("insert into ucs_data (ucs_name, ucs_data) values ('" + name + "', '" + data + "')");
    }
    void SetUp() override { database->exec("truncate ucs_data restart identity"); }
    using AlignmentFixture::run;
    // The command with another answer to its box.
    static void run(const UcsChooser& chooser) { storeUcsOfDrawing(chooser); }
    static QString drawingLine() { return "\nТекущий чертеж: " + ncDocManagerPtr()->curDocument()->fileName() + "\n"; }
};

} // namespace

TEST_F(UcsCommands, StoresTheChosenSystemOfTheDrawing)
{
    addUcs("Юг", {1, 2, 3}, {0, 1, 0}, {-1, 0, 0});
    addUcs("Север", {4.5, 0, 0}, {1, 0, 0}, {0, 1, 0});
    ModalDriver driver;
    driver.expect("Сохранить ПСК")
        .text("Имя")
        .step("items", {"input", "Поз 1-Юг", "Поз 1-Север"})
        .check("input", "Поз 1-Юг")
        .set("input", "Поз 1-Север")
        .press("OK");
    run("TERVA_GET_UCS");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(host.console,
              drawingLine()
                  + "Юг;1.000000;2.000000;3.000000;0.000000;1.000000;0.000000;-1.000000;0.000000;0.000000\n"
                    "Север;4.500000;0.000000;0.000000;1.000000;0.000000;0.000000;0.000000;1.000000;0.000000\n"
                    "ПСК Поз 1-Север сохранена с ID:1");
    EXPECT_EQ(rows(),
              (QVector<QStringList>{{"Поз 1-Север",
                                     "Поз 1-Север&4.500000&0.000000&0.000000&1.000000&0.000000&0.000000&"
                                     "0.000000&1.000000&0.000000"}}));
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(UcsCommands, AnEditedNameStandsForTheItemItWasMadeOf)
{
    addUcs("А", {1, 0, 0}, {1, 0, 0}, {0, 1, 0});
    addUcs("Б", {2, 0, 0}, {1, 0, 0}, {0, 1, 0});
    ModalDriver driver;
    driver.expect("Сохранить ПСК").set("input", "Поз 1-Б").set("input", "O'кей & <новая>").press("OK");
    run("TERVA_GET_UCS");
    EXPECT_TRUE(driver.done()) << driver.report();
    ASSERT_EQ(rows().size(), 1);
    EXPECT_EQ(rows()[0][0], "O кей    новая ");
    EXPECT_EQ(rows()[0][1].section('&', 0, 1), "O кей    новая &2.000000");
    EXPECT_TRUE(host.console.endsWith("ПСК O кей    новая  сохранена с ID:1"));
}

TEST_F(UcsCommands, OfNamesThatBecomeEqualTheChosenOneIsStored)
{
    addUcs("А*1", {1, 0, 0}, {1, 0, 0}, {0, 1, 0});
    addUcs("Б", {2, 0, 0}, {1, 0, 0}, {0, 1, 0});
    addUcs("А?1", {3, 0, 0}, {1, 0, 0}, {0, 1, 0});
    const QString equal = "\nИмена ПСК А*1 и А?1 становятся одинаковыми: Поз 1-А 1\n";
    run([](const QStringList& names) { return UcsChoice{2, names[2]}; });
    EXPECT_TRUE(host.console.contains(equal)) << host.console;
    ASSERT_EQ(rows().size(), 1);
    EXPECT_EQ(rows()[0][1].section('&', 0, 1), "Поз 1-А 1&3.000000");

    // In the box the third item is taken for itself, not for the first.
    ModalDriver driver;
    driver.expect("Сохранить ПСК")
        .call([](QWidget* box) {
            box->findChild<QComboBox*>()->setCurrentIndex(2);
            return QString();
        })
        .press("OK");
    run("TERVA_GET_UCS");
    EXPECT_TRUE(driver.done()) << driver.report();
    ASSERT_EQ(rows().size(), 2);
    EXPECT_EQ(rows()[1][1].section('&', 0, 1), "Поз 1-А 1&3.000000");
}

TEST_F(UcsCommands, ARefusedInsertTellsWhatTheServerSays)
{
    addUcs("А", {1, 0, 0}, {1, 0, 0}, {0, 1, 0});
    database->exec("alter table ucs_data rename to hidden");
    run([](const QStringList& names) { return UcsChoice{0, names[0]}; });
    database->exec("alter table hidden rename to ucs_data");
    EXPECT_TRUE(host.console.contains("\nОшибка: ПСК Поз 1-А не сохранена: ERROR:  relation \"ucs_data\""))
        << host.console;
    EXPECT_FALSE(host.console.contains(noConnection));
}

TEST_F(UcsCommands, ATableThatGivesNoIteratorIsTold)
{
    addUcs("А", {1, 0, 0}, {1, 0, 0}, {0, 1, 0});
    hostFaults().tableIterators = true;
    run("TERVA_GET_UCS");
    hostFaults() = HostFaults();
    EXPECT_EQ(host.console, drawingLine() + "Ошибка при создании итератора UCS.\n");
}

TEST_F(UcsCommands, ClosingTheBoxStoresNothing)
{
    addUcs("А", {1, 0, 0}, {1, 0, 0}, {0, 1, 0});
    ModalDriver driver;
    driver.expect("Сохранить ПСК").close();
    driver.expect("Сохранить ПСК").set("input", "  ").press("OK");
    run("TERVA_GET_UCS");
    run("TERVA_GET_UCS");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(rows().size(), 0);
    EXPECT_FALSE(host.console.contains("сохранена"));
}

TEST_F(UcsCommands, AnEmptyTableIsTold)
{
    run("TERVA_GET_UCS");
    EXPECT_EQ(host.console, drawingLine() + "Таблица UCS пуста. В чертеже нет ни одной именованной ПСК!\n");
}

TEST_F(UcsCommands, AnErasedSystemIsNoneOfTheDrawings)
{
    addUcs("А", {1, 0, 0}, {1, 0, 0}, {0, 1, 0});
    {
        const Opened<NcDbUCSTableRecord> record(ucs("А")->objectId(), kForWrite);
        ASSERT_TRUE(isOk(record->erase()));
    }
    run("TERVA_GET_UCS");
    EXPECT_TRUE(host.console.endsWith("нет ни одной именованной ПСК!\n"));
}

TEST_F(UcsCommands, ADrawingWithoutAFileOrATableIsTold)
{
    {
        const Opened<NcDbUCSTable> held(drawing().ucsTableId(), kForWrite);
        run("TERVA_GET_UCS");
        EXPECT_EQ(host.console, drawingLine() + "Ошибка при получении таблицы UCS.\n");
    }
    host.console.clear();
    {
        const ElementDrawing side;
        run("TERVA_GET_UCS");
        EXPECT_EQ(host.console, "Ошибка: не удалось получить имя файла чертежа.\n");
    }
    host.console.clear();
    closeAllDocuments();
    run("TERVA_GET_UCS");
    EXPECT_EQ(host.console, "Ошибка: не удалось получить активную базу данных.\n");
}

TEST_F(UcsCommands, BothNeedAConnection)
{
    database.disconnect();
    run("TERVA_GET_UCS");
    EXPECT_EQ(host.console, noConnection);
    run("TERVA_SET_UCS");
    EXPECT_EQ(host.console, noConnection + noConnection);
}

TEST_F(UcsCommands, AServerLostInTheBoxIsTold)
{
    addUcs("А", {1, 0, 0}, {1, 0, 0}, {0, 1, 0});
    ModalDriver driver;
    driver.expect("Сохранить ПСК")
        .call([this](QWidget*) {
            database.disconnect();
            return QString();
        })
        .press("OK");
    run("TERVA_GET_UCS");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(host.console.endsWith(noConnection));
    database.connect();
    EXPECT_EQ(rows().size(), 0);
}

TEST_F(UcsCommands, AppliesTheChosenSystem)
{
    store("А", "А&0&0&0&1&0&0&0&1&0");
    store("Б", "Б&10&20&0&0&1&0&-1&0&0");
    ModalDriver driver;
    driver.expect("Выбор ПСК").set("UCSList", "Б").press("OkBtn");
    run("TERVA_SET_UCS");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(host.console, "\nПСК 'Б' успешно добавлен и применен");
    ASSERT_NE(ucs("Б"), nullptr);
    EXPECT_EQ(ucs("Б")->origin(), NcGePoint3d(10, 20, 0));
    EXPECT_EQ(ucs("Б")->xAxis(), NcGeVector3d(0, 1, 0));
    EXPECT_EQ(ucs("А"), nullptr);
    EXPECT_NEAR(userSystemAngle(), quarterTurn, 1e-12);
    NcGePoint3d world;
    EXPECT_TRUE(ncdbUcs2Wcs({1, 0, 0}, world));
    EXPECT_NEAR(world.x, 10, 1e-12);
    EXPECT_NEAR(world.y, 21, 1e-12);
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(UcsCommands, TheFieldsAreAppliedAsTheyAreShown)
{
    store("А", "А&0&0&0&1&0&0&0&1&0");
    ModalDriver driver;
    driver.expect("Выбор ПСК").set("OrigX", "7.5").press("OkBtn");
    run("TERVA_SET_UCS");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(ucs("А")->origin(), NcGePoint3d(7.5, 0, 0));
    EXPECT_EQ(rows()[0][1], "А&0&0&0&1&0&0&0&1&0") << "applying stores nothing";
}

TEST_F(UcsCommands, ASystemThatTheDrawingHasIsTakenAsItIs)
{
    addUcs("А", {5, 5, 0}, {0, 1, 0}, {-1, 0, 0});
    store("А", "А&0&0&0&1&0&0&0&1&0");
    ModalDriver driver;
    driver.expect("Выбор ПСК").press("OkBtn");
    run("TERVA_SET_UCS");
    EXPECT_EQ(host.console, "\nПСК 'А' успешно добавлен и применен");
    EXPECT_EQ(ucs("А")->origin(), NcGePoint3d(5, 5, 0));
    EXPECT_NEAR(userSystemAngle(), quarterTurn, 1e-12);
    EXPECT_EQ(HostAccess::records(table()).size(), 1U);
}

TEST_F(UcsCommands, ClosingTheFormChangesNothing)
{
    store("А", "А&9&0&0&0&1&0&-1&0&0");
    ModalDriver driver;
    driver.expect("Выбор ПСК").press("CancelBtn");
    driver.expect("Выбор ПСК").close();
    run("TERVA_SET_UCS");
    run("TERVA_SET_UCS");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(host.console, "");
    EXPECT_EQ(ucs("А"), nullptr);
    EXPECT_EQ(userSystemAngle(), 0.0);
}

TEST_F(UcsCommands, AxesThatSpanNoPlaneMakeNoSystem)
{
    applyUcs({"А", {0, 0, 0, 1, 0, 0, 2, 0, 0}});
    applyUcs({"Б", {0, 0, 0, 0, 0, 0, 0, 0, 0}});
    EXPECT_EQ(host.console, "Ошибка: не удалось создать объект UCS.\nОшибка: не удалось создать объект UCS.\n");
    EXPECT_EQ(ucs("А"), nullptr);
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(UcsCommands, EveryFailedStepOfApplyingIsTold)
{
    const UcsRecord wanted("А", {0, 0, 0, 0, 1, 0, -1, 0, 0});
    {
        const Opened<NcDbUCSTable> held(drawing().ucsTableId(), kForWrite);
        applyUcs(wanted);
        EXPECT_EQ(host.console, "Ошибка: не удалось создать объект UCS.\n");
    }
    host.console.clear();
    {
        const Opened<NcDbViewportTable> held(drawing().viewportTableId(), kForWrite);
        applyUcs(wanted);
        EXPECT_EQ(host.console, "\nFailed to get vport table");
    }
    const NcDbObjectId active = HostAccess::recordId(drawing(), drawing().viewportTableId(), "*Active");
    host.console.clear();
    {
        const Opened<NcDbViewportTableRecord> held(active, kForWrite);
        applyUcs(wanted);
        EXPECT_EQ(host.console, "\nFailed to get vport table record");
    }
    EXPECT_EQ(userSystemAngle(), 0.0);
    host.console.clear();
    auto& view = *HostAccess::objectAs<NcDbViewportTableRecord>(active);
    const QString name = HostAccess::plainName(view);
    HostAccess::plainName(view).clear(); // the table still finds it, as in a damaged drawing
    applyUcs(wanted);
    EXPECT_EQ(host.console, "\nFailed to get name from vport table");
    EXPECT_EQ(userSystemAngle(), 0.0);
    HostAccess::plainName(view) = name;
    host.console.clear();
    auto& views = *HostAccess::objectAs<NcDbViewportTable>(drawing().viewportTableId());
    HostAccess::setName(view, "Иной");
    HostAccess::updateName(views, view);
    applyUcs(wanted);
    EXPECT_EQ(host.console, "\nFailed to load vport info into vport table records");
}
