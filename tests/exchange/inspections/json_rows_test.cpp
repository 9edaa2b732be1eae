// Values on their way between the server and a document: the rules as tables.
#include "exchange/inspections/json_rows.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace {

QString asJson(const QJsonValue& value)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
}

} // namespace

TEST(FieldValue, FollowsTheColumnFirstAndTheTextThen)
{
    const struct {
        const char* column;
        const char* text;
        const char* json;
    } rules[] = {
        // names that end in "_id" or are "id" keep their text, numbers too
        {"element_id", "101", R"(["101"])"},
        {"state_id", "t", R"(["t"])"},
        {"id", "7", R"(["7"])"},
        {"identity", "7", "[7]"},
        {"inspect_idx", "7", "[7]"},
        // bytes come before ids
        {"photo_id", "ab", R"(["YWI="])"},
        {"photos", "ab", R"(["YWI="])"},
        {"content", "", R"([""])"},
        // numbers
        {"number", "3", "[3]"},
        {"number", "007", "[7]"},
        {"z", "-12.50", "[-12.5]"},
        {"z", ".5", "[0.5]"},
        {"z", "5.", "[5]"},
        {"lon", "129.7325461", "[129.7325461]"},
        {"element_name", "101", "[101]"},
        {"note", "-", R"(["-"])"},
        {"note", "1.2.3", R"(["1.2.3"])"},
        {"note", "1e5", R"(["1e5"])"},
        {"note", "+5", R"(["+5"])"},
        {"note", " 5", R"([" 5"])"},
        {"note", "NaN", R"(["NaN"])"},
        {"note", "inf", R"(["inf"])"},
        {"date", "2021-05-16", R"(["2021-05-16"])"},
        // bools
        {"is_current", "t", "[true]"},
        {"is_current", "f", "[false]"},
        {"element_name", "T", "[true]"},
        {"note", "TRUE", "[true]"},
        {"note", "False", "[false]"},
        {"note", "true ", R"(["true "])"},
        // texts
        {"note", "", R"([""])"},
        {"note", "Марка цела", R"(["Марка цела"])"},
    };
    for (const auto& rule : rules) {
        const QByteArray text(rule.text);
        EXPECT_EQ(asJson(fieldValue(rule.column, text, text)), rule.json) << rule.column << " " << rule.text;
    }
}

TEST(FieldValue, BytesThatDoNotUnescapeAreTakenAsTheyCame)
{
    EXPECT_EQ(fieldValue("photos", "\\x6162", "ab").toString(), "YWI=");
    EXPECT_EQ(fieldValue("photos", "ab", QByteArray()).toString(), "YWI=");
}

TEST(ValueStatement, EachKindHasItsText)
{
    const struct {
        const char* json;
        const char* text;
    } rules[] = {
        {"3", "3"},
        {"-0.25", "-0.25"},
        {"3.0", "3"},
        {"0.1", "0.1"},
        {"1234567.891", "1234567.891"},
        {"123456789012", "123456789012"},
        {"1e-7", "1e-07"},
        {"true", "1"},
        {"false", "0"},
        {"null", "NULL"},
        {R"("")", "''"},
        {R"("12")", "'12'"},
        {R"("O'Neil")", "'O''Neil'"},
        {R"("a'); DROP TABLE cycles; --")", "'a''); DROP TABLE cycles; --'"},
        {R"("%1 и %2")", "'%1 и %2'"},
        {R"([1, "a'b", null])", R"('[1,"a''b",null]')"},
        {R"({"b": 1, "a": [true]})", R"('{"a":[true],"b":1}')"},
    };
    for (const auto& rule : rules) {
        const QJsonArray values = QJsonDocument::fromJson(QByteArray("[") + rule.json + "]").array();
        ASSERT_EQ(values.size(), 1) << rule.json;
        EXPECT_EQ(valueStatement(values.first()).text(), QString::fromUtf8(rule.text));
        EXPECT_EQ(valueStatement(values.first()).refusal(), "");
    }
}

TEST(ValueStatement, AZeroCharacterIsNeverSent)
{
    EXPECT_NE(valueStatement(QString::fromLatin1("a\0b", 3)).refusal(), "");
}

TEST(Base64, OnlyWholeTextsOfTheAlphabetAreDecoded)
{
    const struct {
        const char* text;
        const char* bytes; ///< null: refused
    } rules[] = {
        {"YWI=", "ab"},      {"YWJj", "abc"},
        {"YQ==", "a"},       {"+/+/", "\xfb\xff\xbf"},
        {"", nullptr},       {"YWI", nullptr},
        {"YW=I", nullptr},   {"Y===", nullptr},
        {"====", nullptr},   {"YWI=YWI=", nullptr},
        {"YW\nI=", nullptr}, {"YWI= ", nullptr},
        {"-_-_", nullptr},   {"data:image/jpeg;base64,YWI=", nullptr},
        {"фото", nullptr},
    };
    for (const auto& rule : rules) {
        QByteArray bytes;
        EXPECT_EQ(decodeBase64(QString::fromUtf8(rule.text), bytes), rule.bytes != nullptr) << rule.text;
        EXPECT_EQ(bytes, QByteArray(rule.bytes)) << rule.text;
    }
}
