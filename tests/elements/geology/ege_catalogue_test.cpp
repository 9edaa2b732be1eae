// The catalogue of ground elements: its columns, its statements, its files.
#include "elements/geology/ege_catalogue.h"

#include "elements/geology/ege_files.h"
#include "elements/geology/ground_project.h"
#include "elements/geology/quoted_csv.h"
#include "support/statement_relay.h"

namespace {

const EgeColumn text{"name", "text", "Имя", false}, whole{"count", "integer", "Число", false},
    real{"d_sal", "double precision", "Засоление", false}, exact{"rho", "numeric(6,3)", "Плотность", false},
    shortText{"code", "character varying(20)", "Код", true};

class Catalogue : public GroundProject {
protected:
    QVector<QStringList> entries(const QString& columns = "code, name, rho, d_sal, project_id")
    {
        return database->rows("select " + columns + " from geology_ege_catalog order by code");
    }
    EgeImport import(const QString& text) { return importEgeFile(text, *loadEgeFileColumns()); }
};

QString textOf(const Statement& statement)
{
    EXPECT_EQ(statement.refusal(), "");
    return statement.text();
}

} // namespace

TEST(EgeColumn, KnowsItsKindByItsType)
{
    EXPECT_TRUE(text.isText() && shortText.isText());
    EXPECT_FALSE(text.isNumber() || whole.isNumber() || whole.isText());
    EXPECT_TRUE(real.isNumber() && exact.isNumber());
    EXPECT_EQ(shortText.caption(), "* Код");
    EXPECT_EQ(exact.caption(), "Плотность");
}

TEST(EgeColumn, WritesTextsBetweenQuotesAndNumbersPlainly)
{
    EXPECT_EQ(textOf(egeValue(text, "O'Нил")), "'O''Нил'");
    EXPECT_EQ(textOf(egeValue(shortText, "")), "''");
    EXPECT_EQ(textOf(egeValue(real, "")), "0");
    EXPECT_EQ(textOf(egeValue(exact, " ")), "NULL");
    EXPECT_EQ(textOf(egeValue(whole, "")), "NULL");
    EXPECT_EQ(textOf(egeValue(exact, " 1.75 ")), "1.75");
    EXPECT_NE(egeValue(exact, "1; DROP TABLE dm_elements").refusal(), "");
}

TEST(EgeColumn, NewEntriesStartWithTheseValues)
{
    EXPECT_EQ(startOfEgeColumn("hatch_scale"), "1.0");
    EXPECT_EQ(startOfEgeColumn("color_hex"), "#FFFFFF");
    EXPECT_EQ(startOfEgeColumn("d_sal"), "0.0");
    EXPECT_EQ(startOfEgeColumn("salinization_type"), "NON_SALINE");
    EXPECT_EQ(startOfEgeColumn("rho"), "");
}

TEST_F(Catalogue, StatementsNameTheColumnsThatHaveValues)
{
    const EgeColumns columns = {shortText, text, real, exact};
    const EgeValues values = {{"code", "3"}, {"d_sal", ""}, {"rho", "2.1"}, {"чужой", "x"}};
    EXPECT_EQ(textOf(egeUpdate(columns, values, 5)),
              "UPDATE geology_ege_catalog SET code = '3', d_sal = 0, rho = 2.1 WHERE ege_id = 5");
    EXPECT_EQ(
        textOf(egeInsert(columns, values, Returning::Key)),
        "INSERT INTO geology_ege_catalog (code, d_sal, rho, project_id) VALUES ('3', 0, 2.1, 1) RETURNING ege_id");
    EXPECT_EQ(textOf(egeInsert(columns, values, Returning::Nothing)),
              "INSERT INTO geology_ege_catalog (code, d_sal, rho, project_id) VALUES ('3', 0, 2.1, 1)");
}

TEST_F(Catalogue, ColumnsAreThoseWithAComment)
{
    const auto dialog = loadEgeColumns(), file = loadEgeFileColumns();
    ASSERT_TRUE(dialog && file);
    ASSERT_EQ(dialog->size(), 34);
    EXPECT_EQ(dialog->first().name, "code");
    EXPECT_EQ(dialog->first().caption(), "* Код ИГЭ");
    EXPECT_EQ(dialog->at(2).caption(), "Описание");
    EXPECT_EQ(file->size(), dialog->size());
    database->exec(
        "alter table geology_ege_catalog add extra varchar(7); comment on column "
        "geology_ege_catalog.extra is 'Добавка'; comment on column geology_ege_catalog.project_id is 'Проект'");
    const auto more = loadEgeColumns();
    database->exec("alter table geology_ege_catalog drop extra; comment on column geology_ege_catalog.project_id is "
                   "null");
    ASSERT_EQ(more->size(), 35) << "keys get no field";
    EXPECT_EQ(more->last().type, "character varying(7)");
}

TEST_F(Catalogue, EntriesAreReadWithAllTheirColumns)
{
    EXPECT_EQ(loadEgeIds(), QVector<int>({loam, sand})) << "by code";
    const auto entry = loadEge(*loadEgeColumns(), sand);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->value("code"), "2");
    EXPECT_EQ(entry->value("hatch_scale"), "0.5");
    EXPECT_EQ(entry->value("salinization_type"), "NON_SALINE");
    EXPECT_FALSE(loadEge(*loadEgeColumns(), 999));
    EXPECT_FALSE(loadEge({}, sand));
}

TEST_F(Catalogue, ACodeIsTakenWithinItsProject)
{
    EXPECT_TRUE(isEgeCodeTaken("2", -1));
    EXPECT_FALSE(isEgeCodeTaken("2", sand)) << "its own";
    EXPECT_FALSE(isEgeCodeTaken("22", -1));
    EXPECT_FALSE(isEgeCodeTaken("O'Нил", -1));
    session().projectId = 2;
    EXPECT_FALSE(isEgeCodeTaken("2", -1)) << "another project's";
}

TEST_F(Catalogue, UsesAreCountedInAllWells)
{
    EXPECT_EQ(countEgeUses(sand), 2);
    database->exec("delete from ts_geology_layers; delete from igs_geology_layers");
    EXPECT_EQ(countEgeUses(sand), 0);
    database.disconnect();
    EXPECT_EQ(countEgeUses(sand), std::nullopt);
}

TEST(QuotedCsv, QuotesWhatWouldBreakALine)
{
    EXPECT_EQ(csvLine({"а", "б;в", "г\"д", "е\nж", ""}), "а;\"б;в\";\"г\"\"д\";\"е\nж\";\n");
}

TEST(QuotedCsv, ReadsWhatItWrote)
{
    const QStringList odd = {"а", "б;в", "\"", "\"\"г\"", "е\nж", "", "'", "%1"};
    EXPECT_EQ(csvRows(csvLine(odd) + csvLine({"x", "y"})), QVector<QStringList>({odd, {"x", "y"}}));
}

TEST(QuotedCsv, PassesEmptyLinesOverAndEndsAnOpenQuoteWithTheText)
{
    EXPECT_EQ(csvRows("\n;;\nа;б\r\n \n"), QVector<QStringList>({{"а", "б"}}));
    EXPECT_EQ(csvRows("а;\"б\nв"), QVector<QStringList>({{"а", "б\nв"}}));
    EXPECT_EQ(csvRows("а\"б;в"), QVector<QStringList>({{"а\"б", "в"}})) << "a quote inside of a word is a letter";
    EXPECT_EQ(csvRows(""), QVector<QStringList>());
}

TEST_F(Catalogue, IsWrittenWithItsColumnsAsHeaderAndReadBack)
{
    database->exec("update geology_ege_catalog set name = 'Песок; \"мелкий\"', description = E'раз\\nдва', rho = 1.75 "
                   "where ege_id = 101");
    const auto before = entries("*");
    const auto text = egeFileText(*loadEgeFileColumns());
    ASSERT_TRUE(text);
    EXPECT_TRUE(text->startsWith("code;name;description;hatch_pattern_name;hatch_scale;color_hex;rho;")) << *text;
    EXPECT_EQ(csvRows(*text).size(), 3);
    EXPECT_TRUE(text->contains("\n2;\"Песок; \"\"мелкий\"\"\";\"раз\nдва\";sand;0.5;#FFEEAA;1.75;")) << *text;

    const EgeImport again = import(*text);
    EXPECT_EQ(again.created, 0);
    EXPECT_EQ(again.updated, 2);
    EXPECT_EQ(again.problems, QStringList());
    EXPECT_EQ(
        entries("code, name, description, rho"),
        QVector<QStringList>({{"1а", "Суглинок", "", QString()}, {"2", "Песок; \"мелкий\"", "раз\nдва", "1.75"}}));
    EXPECT_EQ(before.size(), 2);
}

TEST_F(Catalogue, AnEmptyOneHasNoText)
{
    database->exec("delete from ts_geology_layers; delete from igs_geology_layers; delete from geology_ege_catalog");
    EXPECT_EQ(egeFileText(*loadEgeFileColumns()), QString(""));
    EXPECT_EQ(egeFileText({}), std::nullopt);
}

TEST_F(Catalogue, AFileUpdatesWhatItKnowsAndAddsTheRest)
{
    database->exec("update geology_ege_catalog set code = ' 2 ' where ege_id = 101");
    const EgeImport done = import("лишняя; code ;rho;d_sal\nx; 2;1,85;\ny;7;;0.5\n");
    EXPECT_EQ(done.refusal, "");
    EXPECT_EQ(done.created, 1);
    EXPECT_EQ(done.updated, 1);
    EXPECT_EQ(entries(),
              QVector<QStringList>({{" 2", "Песок", "1.85", "0", "1"},
                                    {"1а", "Суглинок", QString(), "0", "1"},
                                    {"7", "", QString(), "0.5", "1"}}))
        << "codes are compared without the blanks around them";
}

TEST_F(Catalogue, AFileWithoutCodesIsRefused)
{
    for (const char* file : {"", "\n", "name;rho\nПесок;2", "код;name\n1;Песок"})
        EXPECT_EQ(import(file).refusal, "В CSV файле не найдена колонка 'code'") << file;
    EXPECT_EQ(entries().size(), 2);
}

TEST_F(Catalogue, LinesThatCannotBeWrittenAreTold)
{
    const EgeImport done = import("code;rho\n;2\n3;плотный\n4;2.5\nO'Нил;\n");
    EXPECT_EQ(done.created, 2);
    EXPECT_EQ(done.updated, 0);
    ASSERT_EQ(done.problems.size(), 2);
    EXPECT_EQ(done.problems[0], "1 (): нет кода");
    EXPECT_TRUE(done.problems[1].startsWith("2 (3): Запрос не отправлен")) << done.problems[1];
}

TEST_F(Catalogue, AnImportCanBeGivenUp)
{
    QVector<int> told;
    const EgeImport done = importEgeFile("code\n5\n6\n7\n", *loadEgeFileColumns(), [&told](int done, int total) {
        told << done << total;
        return done < 2;
    });
    EXPECT_EQ(done.created, 2);
    EXPECT_EQ(told, QVector<int>({0, 3, 1, 3, 2, 3}));
}

TEST_F(Catalogue, EveryStatementOfAnImportThatFailsIsTold)
{
    const EgeColumns columns = *loadEgeFileColumns();
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    for (int statement = 1; statement <= 4; ++statement) {
        database->exec("delete from geology_ege_catalog where ege_id >= 200");
        relay.refuse(statement);
        const EgeImport done = importEgeFile("code;name\n2;Песок\n8;Ил\n", columns);
        EXPECT_TRUE(relay.hasRefused());
        EXPECT_EQ(done.problems.size(), 1) << statement;
        EXPECT_EQ(done.created + done.updated, 1) << statement;
    }
    relay.cutAfter(2);
    const EgeImport cut = importEgeFile("code;name\n2;Песок\n8;Ил\n9;Ил\n", columns);
    EXPECT_EQ(cut.updated, 1);
    EXPECT_EQ(cut.problems.size(), 2) << "every line that was not written";
    session().connection.finish();
}
