#include "base/statement.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

QString refusalOf(const Statement& statement)
{
    const QString start = "Запрос не отправлен: ";
    const QString& refusal = statement.refusal();
    EXPECT_TRUE(refusal.isEmpty() || refusal.startsWith(start)) << refusal;
    return refusal.mid(start.size());
}

// What the server's scanner would make of a statement: a letter a token, without
// looking into texts. Written for itself, so that it errs by itself.
QString tokensOf(const QString& sql)
{
    QString kinds;
    const auto isName = [](QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_'); };
    for (int at = 0; at < sql.size();) {
        const QChar c = sql.at(at);
        if (c.isSpace()) {
            ++at;
        } else if (c == QLatin1Char('\'') || c == QLatin1Char('"')) {
            int end = at + 1;
            while (end < sql.size() && (sql.at(end) != c || sql.mid(end, 2) == QString(2, c)))
                end += sql.at(end) == c ? 2 : 1;
            kinds += end < sql.size() ? (c == QLatin1Char('"') ? 'i' : 't') : '!';
            at = end + 1;
        } else if (sql.midRef(at, 2) == QLatin1String("--")) {
            const int end = sql.indexOf(QLatin1Char('\n'), at);
            at = end < 0 ? sql.size() : end;
            kinds += 'c';
        } else if (sql.midRef(at, 2) == QLatin1String("/*")) {
            const int end = sql.indexOf(QLatin1String("*/"), at);
            at = end < 0 ? sql.size() : end + 2;
            kinds += 'c';
        } else if (isName(c)) {
            while (at < sql.size() && isName(sql.at(at)))
                ++at;
            kinds += 'w';
        } else {
            kinds += c;
            ++at;
        }
    }
    return kinds;
}

QString randomText(std::mt19937& random)
{
    static const QStringList pieces = {"'", "''", "\"", "\\", "--", "/*",  "*/", ";", "a", "О'",   "%1", "%2",
                                       "$", "$$", "\n", " ",  "E'", "$a$", ",",  "(", ")", "''''", "1",  "\u202e"};
    QString text;
    for (int count = int(random() % 5); count > 0; --count)
        text += pieces.at(int(random() % unsigned(pieces.size())));
    return text;
}

} // namespace

TEST(Statements, AreFilledLikeAnyText)
{
    const Statement made = compose("update t set (a,b) = ('%1','%2') where id = %3", QString("a%2"), QString("%1"), 7);
    EXPECT_EQ(made.text(), QString("update t set (a,b) = ('a%2','%1') where id = 7"));
    EXPECT_EQ(made.refusal(), QString());
    EXPECT_EQ(Statement("select 1").text(), QString("select 1"));
}

TEST(Statements, ATextWithABareApostropheRefusesThem)
{
    EXPECT_EQ(refusalOf(compose("select '%1'", QString("О'Нил"))), QString("апостроф в тексте «О'Нил»"));
    EXPECT_EQ(refusalOf(compose("select '%1','%2'", QString("a"), QString("a' --"))),
              QString("апостроф в тексте «a' --»"));
    EXPECT_EQ(refusalOf(compose("select '%1'", QString("x'''"))), QString("апостроф в тексте «x'''»"));
    EXPECT_EQ(refusalOf(compose("select '%1'", QString("О''Нил"))), QString());
    // Two halves of one doubled apostrophe are two bare ones.
    EXPECT_NE(refusalOf(compose("select '%1%2'", QString("a'"), QString("'b"))), QString());
}

TEST(Statements, ATextOutsideQuotesRefusesThemWhateverItSays)
{
    EXPECT_EQ(refusalOf(compose("select %1", QString("1"))), QString("текст «1» стоит вне кавычек"));
    EXPECT_EQ(refusalOf(compose("select '%1' where a=%1", QString("b"))), QString("текст «b» стоит вне кавычек"));
    EXPECT_EQ(refusalOf(compose("select 'it''s' || %1", QString("b"))), QString("текст «b» стоит вне кавычек"));
}

TEST(Statements, NumbersStandOutsideQuotes)
{
    EXPECT_EQ(compose("%1 %2 %3", 1, Numeral(2.5, 2), Numeral(QString("1e-3"))).text(), QString("1 2.50 1e-3"));
    EXPECT_EQ(refusalOf(compose("%1", Numeral(QString("NULL")))), QString());
    for (const char* const wrong : {"", "nan", "inf", "1;", "1 2", "12 мм", "0x10", "1\n", "--1"})
        EXPECT_NE(refusalOf(compose("%1", Numeral(QString(wrong)))), QString()) << wrong;
    EXPECT_EQ(refusalOf(compose("%1", Numeral(std::numeric_limits<double>::quiet_NaN(), 2))),
              QString("«nan» не число"));
    EXPECT_NE(refusalOf(compose("a -%1", -5)), QString()); // would begin a comment
    EXPECT_EQ(compose("in (%1)", IdList(QVector<int>{1, -2, 3})).text(), QString("in (1,-2,3)"));
    EXPECT_NE(refusalOf(compose("in (%1)", IdList(QVector<int>()))), QString());
}

TEST(Statements, NamesOfTablesStandOutsideQuotes)
{
    EXPECT_EQ(refusalOf(compose("select 1 from %1", Identifier("dm_elements"))), QString());
    EXPECT_EQ(refusalOf(compose("select 1 from %1", Identifier("таблица_1"))), QString());
    for (const char* const wrong : {"", "a b", "a;", "a'", "1a", "a-b", "a\"", "a.b", "a\n"})
        EXPECT_NE(refusalOf(compose("select 1 from %1", Identifier(wrong))), QString()) << wrong;
}

TEST(Statements, AZeroCharacterWouldCutThem)
{
    const QString text = QString("a") + QChar(QChar::Null) + "b";
    EXPECT_NE(refusalOf(compose("select '%1'", text)), QString());
}

TEST(Statements, OtherKindsOfQuotesHaveTheirOwnRule)
{
    EXPECT_EQ(refusalOf(compose("select \"%1\"", QString("a'b"))), QString());
    EXPECT_NE(refusalOf(compose("select \"%1\"", QString("a\"b"))), QString());
    EXPECT_NE(refusalOf(compose("select E'%1'", QString("a\\"))), QString());
    EXPECT_EQ(refusalOf(compose("select date'%1'", QString("a\\"))), QString());
    EXPECT_NE(refusalOf(compose("select $$%1$$", QString("a$"))), QString());
    EXPECT_EQ(refusalOf(compose("select $x$'$x$, '%1'", QString("a"))), QString());
    EXPECT_NE(refusalOf(compose("select 1 -- %1\n", QString("a"))), QString());
    EXPECT_NE(refusalOf(compose("select /* /* */ ' %1 */ 1", QString("a"))), QString());
    EXPECT_EQ(refusalOf(compose("select /* ' */ '%1'", QString("a"))), QString());
    EXPECT_EQ(refusalOf(compose("select $1::integer, '%1'", QString("a"))), QString());
}

TEST(Statements, PiecesGoThroughTheSameCheck)
{
    const Statement good = compose("a='%1'", QString("x"));
    const Statement bad = compose("a='%1'", QString("x'"));
    EXPECT_EQ((good + " or " + good).text(), QString("a='x' or a='x'"));
    EXPECT_EQ((good + " or " + good).refusal(), QString());
    EXPECT_EQ((good + bad).refusal(), bad.refusal());
    EXPECT_EQ((bad + good).refusal(), bad.refusal());
    EXPECT_EQ(compose("select 1 where %1", bad).refusal(), bad.refusal());
    EXPECT_EQ(joined({good, good, good}, " or ").text(), QString("a='x' or a='x' or a='x'"));
    EXPECT_EQ(joined({good, bad}, " or ").refusal(), bad.refusal());
    EXPECT_EQ(joined({}, " or ").text(), QString());
    // A piece cannot hold open what the next one closes.
    EXPECT_NE((Statement("a = '") + "b'").refusal(), QString());
    EXPECT_NE((Statement("select 1 -- ") + "b").refusal(), QString());
    EXPECT_NE((Statement("'a'") + "'b'").refusal(), QString());
    EXPECT_NE(refusalOf(compose("select 'a'%1", Statement("'b'"))), QString());
    EXPECT_NE(refusalOf(compose("select %1 'b'", Statement("'a"))), QString());
}

// Whatever the texts: what is sent has the tokens that it has with plain letters
// in their place.
TEST(Statements, KeepTheirTokensWhateverTheTexts)
{
    const char* const templates[] = {"select '%1', '%2' from t where a = '%1'", "update t set (a) = ('%1%2')-- note\n",
                                     "select 'it''s %1', \"%2\", '' || '%1'''", "insert into t values ('%1','''%2')",
                                     "select '%1' || N'%2' || '''%1'''"};
    std::mt19937 random(20261122);
    int sent = 0;
    int refused = 0;
    for (int round = 0; round < 40000; ++round) {
        const char* const text = templates[random() % std::size(templates)];
        const QString first = randomText(random);
        const QString second = randomText(random);
        const Statement made = compose(text, first, second);
        if (!made.refusal().isEmpty()) {
            ++refused;
            continue;
        }
        ++sent;
        const Statement plain = compose(text, QString("a"), QString("b"));
        ASSERT_EQ(tokensOf(made.text()), tokensOf(plain.text())) << made.text();
    }
    EXPECT_GT(sent, 3000);
    EXPECT_GT(refused, 3000);
}
