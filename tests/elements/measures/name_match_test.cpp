#include "elements/measures/name_match.h"

#include <QRegularExpression>
#include <QStringList>
#include <gtest/gtest.h>
#include <random>

namespace {

const QStringList classTexts = {"AaАа",   "BbБб", "CcSsСс", "DdДд", "EeЕе", "FfФф", "GgГг", "HhХх", "IiИи",      "Jj",
                                "KkКк",   "LlЛл", "MmМм",   "NnНн", "OoОо", "PpПп", "Qq",   "RrРр", "TtТт",      "UuУу",
                                "VvWwВв", "WwВв", "XxХх",   "Yy",   "ZzЗз", "Ёё",   "Жж",   "Йй",   "Цц",        "Чч",
                                "Шш",     "Щщ",   "Ъъ",     "Ыы",   "Ьь",   "Ээ",   "Юю",   "Яя",   "1",         "2",
                                "3",      "4",    "5",      "6",    "7",    "8",    "9",    "0",    " \\.\\-\\_"};

// The same rule said with a regular expression, slow and literal.
bool matchByExpression(const QString& a, const QString& b)
{
    if (a == b)
        return true;
    const QString& source = a.size() > b.size() ? a : b;
    QString pattern;
    for (const QChar sign : source) {
        QString piece = QStringLiteral(".");
        for (const QString& group : classTexts) {
            if (group.contains(sign)) {
                piece = "[" + group + "]";
                break;
            }
        }
        pattern += piece;
    }
    const QRegularExpression expression(pattern);
    return expression.match(a).hasMatch() && expression.match(b).hasMatch();
}

struct Case {
    const char* a;
    const char* b;
    bool match;
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.a << " / " << c.b; }

class NamesMatch : public ::testing::TestWithParam<Case> { };

} // namespace

TEST_P(NamesMatch, Answers)
{
    const Case& c = GetParam();
    EXPECT_EQ(namesMatch(QString::fromUtf8(c.a), QString::fromUtf8(c.b)), c.match);
}

INSTANTIATE_TEST_SUITE_P(
    Table, NamesMatch,
    ::testing::Values(Case{"Т-1", "T-1", true}, Case{"T-1", "Т-1", true}, // Cyrillic and Latin T
                      Case{"Т-1", "Т1", false}, Case{"Т1", "Т-1", false}, // lengths
                      Case{"Т 1", "Т-1", true}, Case{"Т-1", "Т_1", true}, Case{"Т_1", "Т.1", true},
                      Case{"Т.1", "Т 1", true}, Case{"ТС-1", "tc_1", true}, Case{"TS-1", "ТС-1", true}, // S goes with C
                      Case{"№1", "Б1", false}, Case{"Б1", "№1", true}, // an unknown sign of b takes anything
                      Case{"Х1", "X1", true}, Case{"X1", "Х1", false}, // Cyrillic Х belongs to H
                      Case{"H1", "Х1", true}, Case{"H1", "X1", false}, Case{"W1", "V1", true}, Case{"V1", "W1", true},
                      Case{"В1", "W1", true}, Case{"Т1", "Т2", false}, Case{"", "", true}, Case{"", "Т", false},
                      Case{"а\\б", "а\\б", true}, Case{"а\\б", "a\\б", false}, Case{"а.б", "а\\б", false},
                      Case{"а\\б", "а.б", false}, Case{"Ё", "Е", false}, Case{"ё", "Ё", true}, Case{"#\n", "#\n", true},
                      Case{"1\n", "2\n", false}, Case{"a\n", "а\n", false}));

TEST(NamesMatchTable, EveryPairOfAGroupMatchesItsFirstSign)
{
    for (const QString& group : classTexts) {
        const QChar first = group[0];
        for (const QChar sign : group) {
            if (sign == '\\')
                continue;
            EXPECT_TRUE(namesMatch(QString(sign) + '1', QString(first) + '1')) << qPrintable(group);
        }
    }
}

TEST(NamesMatchTable, AgreesWithTheExpressionOnRandomNames)
{
    QString alphabet = QStringLiteral("№#/()[]^*+?$|\\\n\t{}é");
    for (const QString& group : classTexts)
        alphabet += group;
    alphabet += QString::fromUtf8("𝟙");
    std::mt19937 random(4711);
    std::uniform_int_distribution<int> sign(0, alphabet.size() - 1), length(0, 3);
    int matches = 0;
    for (int round = 0; round < 60000; ++round) {
        QString a, b;
        for (int i = length(random); i > 0; --i)
            a += alphabet[sign(random)];
        for (int i = length(random); i > 0; --i)
            b += alphabet[sign(random)];
        const bool expected = matchByExpression(a, b);
        matches += expected && a != b;
        ASSERT_EQ(namesMatch(a, b), expected) << a.toStdString() << " / " << b.toStdString();
    }
    EXPECT_GT(matches, 300);
}
