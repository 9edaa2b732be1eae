// What the whole database knows of a file's names, and what is shown of it.
#include "exchange/elements/element_preview.h"

#include "elements/element_block.h"

#include "support/console_capture.h"
#include "support/element_drawing.h"
#include "support/position_session.h"

#include <gtest/gtest.h>

namespace {

QStringList texts(const QVector<PreviewCell>& cells)
{
    QStringList all;
    for (const PreviewCell& cell : cells)
        all << cell.text;
    return all;
}

class AttributeUpdate : public ::testing::Test {
protected:
    void SetUp() override
    {
        drawing.addAllKinds();
        database->exec(
            "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h, "
            "marker_rotation) overriding system value values (1, 'dm', 'М-1', 'exist', 7, 10, 20, 100, 1, 0), "
            "(2, 'dm', 'Два', 'exist', 7, 0, 0, 0, 0, 0);"
            "insert into rp_elements (element_id, type_id, element_name, state_id, position_id) "
            "overriding system value values (5, 'rp_gr', 'Два', 'exist', 8);"
            "insert into dm_dynprops (element_id, props) values (1, ''), (2, '')");
        EXPECT_TRUE(base.load());
    }
    static ElementRecord named(const QString& name)
    {
        ElementRecord record;
        record.name = name;
        return record;
    }

    ElementDrawing drawing;
    PositionSession database;
    ConsoleCapture console;
    BaseElements base;
};

} // namespace

TEST(ElementPreview, ARecordIsShownWithTheIdOfAKnownName)
{
    ElementRecord record;
    record.name = "М-1";
    record.x = 1.5;
    EXPECT_EQ(texts(importPreview(record, {{"М-1", 7}})),
              QStringList({"М-1 (ID:7)", "1.5000", "", "", "", "", "", "", "", "Ошибка"}));
    EXPECT_EQ(importPreview(record, {}).last().tone, PreviewCell::Bad);
    record.y = -2;
    EXPECT_EQ(texts(importPreview(record, {})).last(), "ОК");
    EXPECT_EQ(importPreview(record, {}).size(), importTitles().size());
}

TEST_F(AttributeUpdate, WhatChangesIsShownBesideWhatIs)
{
    ElementRecord record = named("М-1");
    record.x = 11;
    record.y = 20;
    record.absoluteMark = 101.5;
    record.height = 1;
    record.position = "Другая";
    record.rotation = 0.25;
    const auto cells = updatePreview(record, base);
    EXPECT_EQ(texts(cells),
              QStringList({"1", "М-1", "dm", "11.0000<-10.0000", "20.0000", "101.5000 <- 100.0000", "", "1.0000",
                           "Другая (8) <- Позиция (7)", "0.2500 <- 0.0000", "ОК", ""}));
    EXPECT_EQ(cells[3].tone, PreviewCell::Good);
    EXPECT_EQ(cells[4].tone, PreviewCell::Plain);
    EXPECT_EQ(cells.size(), updateTitles().size());
}

TEST_F(AttributeUpdate, NamesThatOneRowAloneBearsAreGood)
{
    ElementRecord lost = named("М-1");
    lost.position = "Нигде";
    const struct {
        ElementRecord record;
        const char* status;
    } rules[] = {{named("М-1"), "ОК"},
                 {named("Два"), "Дубликат имени"},
                 {named("Три"), "Имя не найдено"},
                 {named(""), "Имя не найдено"},
                 {lost, "Нет позиции"}};
    for (const auto& rule : rules) {
        const auto cells = updatePreview(rule.record, base);
        EXPECT_EQ(cells[10].text, rule.status);
        EXPECT_EQ(cells[10].tone == PreviewCell::Bad, QString(rule.status) != "ОК");
    }
    EXPECT_EQ(updatePreview(lost, base)[8].text, "Нет позиции");
}

TEST_F(AttributeUpdate, TheFilesColumnsGoIntoRowAndBlock)
{
    ElementBlock block(0);
    block.setAttribute("element_id", "1");
    block.setAttribute("name", "М-1");
    ASSERT_TRUE(block.insertBlock());
    ElementRecord record = named("М-1");
    record.y = 25;
    record.position = "Другая";
    EXPECT_EQ(updateElements({named("Два"), record, named("Три")}, base), 1);
    EXPECT_EQ(console.text(), "Обновлен элемент М-1  (ID 1)");
    EXPECT_EQ(database->rows("select x, y, z, h, position_id from dm_elements where element_id = 1"),
              QVector<QStringList>({{"10", "25", "100", "1", "8"}}));
    EXPECT_EQ(drawing.reference(drawing.references()[0]).position().y, 25.0);
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(AttributeUpdate, WhatTheServerRefusesLeavesTheBlock)
{
    ElementBlock block(0);
    block.setAttribute("element_id", "1");
    ASSERT_TRUE(block.insertBlock());
    database->exec("alter table dm_elements add constraint near check (x < 100)");
    ElementRecord record = named("М-1");
    record.x = 500;
    EXPECT_EQ(updateElements({record}, base), 0);
    database->exec("alter table dm_elements drop constraint near");
    EXPECT_TRUE(console.text().contains("\nОшибка: элемент М-1 не записан в базу данных: ")) << console.text();
    EXPECT_EQ(drawing.reference(drawing.references()[0]).position().x, 0.0);
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(AttributeUpdate, WithoutAServerNothingIsKnown)
{
    database.disconnect();
    EXPECT_FALSE(base.load());
    EXPECT_EQ(updateState(named("М-1"), base), UpdateState::NoName);
}
