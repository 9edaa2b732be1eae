// The entries in memory and on the disk, their table and its filter.
#include "database/audit/audit_log_proxy.h"

#include "database/audit/audit_filters.h"
#include "database/audit/audit_log.h"
#include "support/full_disk.h"

#include <gtest/gtest.h>

namespace {

AuditEntries::Texts entry(const char* table, const char* operation, const char* time = "2026-01-01 00:00:00",
                          const char* oldData = "", const char* newData = "")
{
    return {table, operation, "postgres", time, oldData, newData};
}

std::unique_ptr<AuditEntries> entriesOf(const QVector<AuditEntries::Texts>& all)
{
    auto entries = std::make_unique<AuditEntries>();
    for (const AuditEntries::Texts& texts : all)
        entries->add(texts);
    EXPECT_TRUE(entries->finish());
    return entries;
}

class Shown : public ::testing::Test {
protected:
    Shown() { proxy_.setLog(&model_); }
    QStringList column(int column) const
    {
        QStringList texts;
        for (int row = 0; row < proxy_.rowCount(); ++row)
            texts << proxy_.index(row, column).data().toString();
        return texts;
    }
    AuditLogModel model_;
    AuditLogViewerProxyModel proxy_;
};

} // namespace

TEST(AuditEntries, GiveTheirTextsBack)
{
    const auto entries = entriesOf({entry("devices", "INSERT", "2026-01-02 03:04:05", "", "{\"name\": \"Коса\"}"),
                                    entry("devices", "DELETE", "2026-01-02 03:04:06", "{}", "")});
    ASSERT_EQ(entries->count(), 2);
    EXPECT_EQ(entries->text(0, AuditEntries::Table), QString("devices"));
    EXPECT_EQ(entries->text(0, AuditEntries::User), QString("postgres"));
    EXPECT_EQ(entries->text(0, AuditEntries::Time), QString("2026-01-02 03:04:05"));
    EXPECT_EQ(entries->text(0, AuditEntries::OldData), QString());
    EXPECT_EQ(entries->text(0, AuditEntries::NewData), QString("{\"name\": \"Коса\"}"));
    EXPECT_EQ(entries->text(1, AuditEntries::OldData), QString("{}"));
    EXPECT_EQ(entries->text(1, AuditEntries::NewData), QString());
}

TEST(AuditEntries, KeepATextThatRepeatsOnce)
{
    const auto entries = entriesOf({entry("a", "INSERT"), entry("b", "INSERT"), entry("a", "DELETE")});
    EXPECT_EQ(entries->number(0, AuditEntries::Table), entries->number(2, AuditEntries::Table));
    EXPECT_NE(entries->number(0, AuditEntries::Table), entries->number(1, AuditEntries::Table));
    EXPECT_EQ(entries->textOfNumber(entries->number(2, AuditEntries::Operation)), QString("DELETE"));
}

TEST(AuditEntries, CompareAsTheirTextsDo)
{
    const auto entries = entriesOf({entry("b", "INSERT", "2026-01-02 00:00:00", "{1", ""),
                                    entry("a", "INSERT", "2026-01-01 00:00:00", "{12", "")});
    EXPECT_GT(entries->compare(AuditEntries::Table, 0, 1), 0);
    EXPECT_EQ(entries->compare(AuditEntries::Operation, 0, 1), 0);
    EXPECT_GT(entries->compare(AuditEntries::Time, 0, 1), 0);
    EXPECT_LT(entries->compare(AuditEntries::Time, 1, 0), 0);
    EXPECT_LT(entries->compare(AuditEntries::OldData, 0, 1), 0) << "a beginning comes first";
    EXPECT_EQ(entries->compare(AuditEntries::NewData, 0, 1), 0);
}

TEST(AuditEntries, NoneIsGoodAndAFullDiskIsNot)
{
    AuditEntries none;
    EXPECT_TRUE(none.finish());
    EXPECT_EQ(none.count(), 0);
    const QByteArray json(500, 'x');
    AuditEntries many;
    const FileSizeLimit limit(10000);
    for (int i = 0; i < 100; ++i)
        many.add(entry("a", "INSERT", "2026-01-01 00:00:00", json.constData()));
    EXPECT_FALSE(many.finish());
}

TEST_F(Shown, TheTableHasItsTitlesAndIsReadOnly)
{
    model_.show(entriesOf({entry("devices", "INSERT")}));
    QStringList titles;
    for (int section = 0; section < proxy_.columnCount(); ++section)
        titles << proxy_.headerData(section, Qt::Horizontal).toString();
    EXPECT_EQ(titles, (QStringList{"Таблица", "Операция", "Пользователь", "Время", "Старые данные", "Новые данные"}));
    for (int section = 0; section < proxy_.columnCount(); ++section)
        EXPECT_FALSE(proxy_.flags(proxy_.index(0, section)) & Qt::ItemIsEditable);
    EXPECT_EQ(model_.rowCount(model_.index(0, 0)), 0);
}

TEST_F(Shown, BothPatternsMustMatchSomewhere)
{
    model_.show(entriesOf({entry("subobjects", "INSERT"), entry("objects", "UPDATE"), entry("devices", "UPDATE")}));
    EXPECT_EQ(column(0), (QStringList{"subobjects", "objects", "devices"})) << "empty patterns";
    proxy_.setTablePattern("objects");
    EXPECT_EQ(column(0), (QStringList{"subobjects", "objects"}));
    proxy_.setOperationPattern("UPD");
    EXPECT_EQ(column(0), QStringList("objects"));
    proxy_.setTablePattern(QString());
    EXPECT_EQ(column(0), (QStringList{"objects", "devices"}));
    proxy_.setOperationPattern(".*");
    EXPECT_EQ(proxy_.rowCount(), 3);
}

TEST_F(Shown, ThePatternsHoldForNewEntries)
{
    model_.show(entriesOf({entry("devices", "INSERT"), entry("states", "INSERT")}));
    proxy_.setTablePattern("states");
    EXPECT_EQ(column(0), QStringList("states"));
    model_.show(entriesOf({entry("states", "UPDATE"), entry("cycles", "UPDATE"), entry("states", "DELETE")}));
    EXPECT_EQ(column(1), (QStringList{"UPDATE", "DELETE"}));
}

TEST_F(Shown, SortsByAnyColumnAndBackToTheLog)
{
    model_.show(entriesOf({entry("b", "INSERT", "2026-01-03 00:00:00", "", "{\"a\": 2}"),
                           entry("a", "UPDATE", "2026-01-01 00:00:00", "", "{\"a\": 1}"),
                           entry("c", "DELETE", "2026-01-02 00:00:00", "", "{\"a\": 3}")}));
    proxy_.sort(AuditEntries::Time, Qt::AscendingOrder);
    EXPECT_EQ(column(0), (QStringList{"a", "c", "b"}));
    proxy_.sort(AuditEntries::NewData, Qt::DescendingOrder);
    EXPECT_EQ(column(0), (QStringList{"c", "b", "a"}));
    proxy_.setOperationPattern("INSERT|DELETE");
    EXPECT_EQ(column(0), (QStringList{"c", "b"})) << "the order stays";
    proxy_.sort(-1);
    EXPECT_EQ(column(0), (QStringList{"b", "c"}));
}

TEST_F(Shown, AViewHearsOfAFilterOnce)
{
    QVector<AuditEntries::Texts> many;
    for (int i = 0; i < 1000; ++i)
        many << entry(i % 2 ? "devices" : "states", "INSERT");
    model_.show(entriesOf(many));
    EXPECT_EQ(proxy_.rowCount(), 1000);
    int removed = 0, changed = 0;
    QObject::connect(&proxy_, &QAbstractItemModel::rowsRemoved, [&removed] { ++removed; });
    QObject::connect(&proxy_, &QAbstractItemModel::layoutChanged, [&changed] { ++changed; });
    proxy_.setTablePattern("states");
    EXPECT_EQ(proxy_.rowCount(), 500);
    EXPECT_EQ(removed, 0);
    EXPECT_EQ(changed, 1);
}

TEST_F(Shown, TheGroupsTakeTheirTables)
{
    const char* const tables[] = {
        "projects", "objects",     "subobjects",     "positions", "positions_files", "positions_attributes",
        "cycles",   "devices",     "performers",     "states",    "levelmaps",       "geology_ege_catalog",
        "contours", "dm_elements", "dm_meas",        "ts_files",  "ts_types",        "ts_geology_layers",
        "rp_meas",  "ggs_meas",    "igs_elements",   "tss_meas",  "tsg_meas",        "tsg_catalog",
        "ucs_data", "geometries",  "spatial_ref_sys"};
    QVector<AuditEntries::Texts> all;
    for (const char* table : tables)
        all << entry(table, "INSERT");
    model_.show(entriesOf(all));
    const QStringList expected = {
        "ALL 27",
        "STRUCT projects objects subobjects",
        "SERVICE cycles devices performers states levelmaps geology_ege_catalog ucs_data geometries spatial_ref_sys",
        "POSITION positions positions_files positions_attributes contours",
        "DM dm_elements dm_meas",
        "TS ts_files ts_types ts_geology_layers",
        "RP rp_meas",
        "GGS ggs_meas",
        "IGS igs_elements",
        "TSS tss_meas",
        "TSG tsg_meas tsg_catalog",
    };
    QStringList met;
    for (const AuditFilter& group : auditTableGroups()) {
        proxy_.setTablePattern(group.pattern);
        const QStringList names = column(0);
        met << QString(group.key) + " " + (names.size() == 27 ? QString::number(27) : names.join(' '));
    }
    EXPECT_EQ(met, expected);
}

TEST(AuditFilters, AreShownByTheirNames)
{
    QStringList names;
    for (const AuditFilter& filter : auditTableGroups())
        names << filter.name;
    EXPECT_EQ(
        names,
        (QStringList{"Все", "Структура", "Служебные", "Позиция", "Деформационные марки", "Термометрические скважины",
                     "Реперы", "Гидрогеологические скважины", "Инженерно-геологические скважины",
                     "Точки снегомерной съемки", "Термостабилизационные элементы"}));
    names.clear();
    for (const AuditFilter& filter : auditOperations())
        names << QString(filter.key) + " " + filter.name;
    EXPECT_EQ(names, (QStringList{"ALL Все", "INSERT Вставка", "UPDATE Обновление", "DELETE Удаление"}));
}

namespace {

QStringList written(const QString& json)
{
    QStringList lines;
    for (const AuditField& field : auditFields(json))
        lines << field.name + "=" + field.value;
    return lines;
}

} // namespace

TEST(AuditFields, AreTheFieldsOfTheRow)
{
    EXPECT_EQ(written("{\"name\": \"Коса\", \"device_id\": 5, \"z\": -1.25, \"on\": true}"),
              (QStringList{"device_id=5", "name=Коса", "on=true", "z=-1.25"}));
    EXPECT_EQ(written("{\"a\": null, \"b\": {\"c\": 1}, \"d\": [1, 2]}"), (QStringList{"a=", "b=", "d="}));
}

TEST(AuditFields, OfWhatIsNoObjectThereAreNone)
{
    for (const char* text : {"", "null", "[1]", "5", "{\"a\": ", "нет", "{}"})
        EXPECT_EQ(written(text), QStringList()) << text;
}
