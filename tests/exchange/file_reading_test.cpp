// Numbers, lines and cells of survey files.
#include "exchange/number_text.h"
#include "exchange/raw_lines.h"
#include "exchange/text_file.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <atomic>
#include <chrono>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <thread>

namespace {

class Files : public ::testing::Test {
protected:
    QString write(const QByteArray& bytes)
    {
        QFile file(folder_.filePath("file.csv"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

private:
    QTemporaryDir folder_;
};

double numberIn(const QString& text, SignOf sign = SignOf::Number)
{
    double number = -777.0;
    return findNumber(text, sign, number) ? number : -777.0;
}

} // namespace

TEST(NumberText, TakesTheFirstNumberWithACommaOrAPoint)
{
    EXPECT_EQ(numberIn("-1,234 м"), -1.234);
    EXPECT_EQ(numberIn("1.5 м"), 1.5);
    EXPECT_EQ(numberIn("1,5"), 1.5);
    EXPECT_EQ(numberIn(",5"), 0.5);
    EXPECT_EQ(numberIn("-,5"), -0.5);
    EXPECT_EQ(numberIn("+2"), 2.0);
    EXPECT_EQ(numberIn("T=+2.25C 7"), 2.25);
    EXPECT_EQ(numberIn("5."), 5.0);
    EXPECT_EQ(numberIn("--5"), -5.0);
    EXPECT_EQ(numberIn("1.2.3"), 1.2);
    EXPECT_EQ(numberIn("1 234,5"), 1.0);
}

TEST(NumberText, FindsNothingWithoutADigit)
{
    for (const char* text : {"", "-", "нет", ",", "-.", "+-,"})
        EXPECT_EQ(numberIn(text), -777.0) << text;
}

TEST(NumberText, DepthsHaveNoSign)
{
    EXPECT_EQ(numberIn("-0,3", SignOf::Text), 0.3);
    EXPECT_EQ(numberIn("глубина -1.5 м", SignOf::Text), 1.5);
}

TEST(NumberText, ANumberBeyondDoublesIsInfinite) { EXPECT_TRUE(std::isinf(numberIn(QString(400, '9')))); }

TEST(NumberText, TellsWhatOfTheNumberIsLeftOut)
{
    const struct {
        const char* text;
        double number;
        int losses;
    } cases[] = {
        {"-1,5", -1.5, nothingLost},
        {"T-1.5 м", -1.5, nothingLost},
        {"5.", 5.0, nothingLost},
        {"12 м", 12.0, nothingLost},
        {"1.5 и 2", 1.5, nothingLost},
        {"5 1234", 5.0, nothingLost},
        {"2x4", 2.0, nothingLost},
        {"5 eV", 5.0, nothingLost},
        {"\u22121,5", 1.5, signLost},
        {"\u2013 1,5", 1.5, signLost},
        {"- 5", 5.0, signLost},
        {"\u2212,5", 0.5, signLost},
        {"1 234,5", 1.0, groupLost},
        {"1\u00A0234", 1.0, groupLost},
        {"1'234.5", 1.0, groupLost},
        {"1,234.5", 1.234, groupLost},
        {"1.5e-3", 1.5, exponentLost},
        {"1.5E+3", 1.5, exponentLost},
        {"5.e3", 5.0, exponentLost},
        {"1,5\u00B710-3", 1.5, exponentLost},
        {"1.5 * 10^3", 1.5, exponentLost},
        {"\u22121 000e3", 1.0, signLost | groupLost},
    };
    for (const auto& c : cases) {
        double number = 0.0;
        int losses = -1;
        EXPECT_TRUE(findNumber(c.text, SignOf::Number, number, &losses)) << c.text;
        EXPECT_EQ(number, c.number) << c.text;
        EXPECT_EQ(losses, c.losses) << c.text;
    }
    double depth = 0.0;
    int losses = -1;
    EXPECT_TRUE(findNumber("\u22121,5", SignOf::Text, depth, &losses));
    EXPECT_EQ(losses, nothingLost) << "depths go down";
    EXPECT_EQ(lossText(" \u22121 234 ", 1.0, signLost | groupLost),
              QString("«\u22121 234» прочитано как 1: не учтено — знак, разряды"));
}

// The scanner is written by hand since a logger file has millions of cells.
TEST(NumberText, FindsWhatTheExpressionsFind)
{
    const QRegularExpression withSign("([+-]?(\\d*[\\.\\,])?\\d+)");
    const QRegularExpression withoutSign("((\\d*[\\.\\,])?\\d+)");
    const QString letters = "0159+-.,  x";
    std::mt19937 random(20);
    for (int i = 0; i < 50000; ++i) {
        QString text;
        for (int length = int(random() % 9); length > 0; --length)
            text += letters[int(random() % unsigned(letters.size()))];
        for (const SignOf sign : {SignOf::Number, SignOf::Text}) {
            const auto match = (sign == SignOf::Number ? withSign : withoutSign).match(text);
            const double expected = match.hasMatch() ? match.captured(0).replace(",", ".").toDouble() : -777.0;
            ASSERT_EQ(numberIn(text, sign), expected) << text.toStdString();
        }
    }
}

TEST_F(Files, LinesLoseTheirEndsAndTheByteOrderMark)
{
    EXPECT_EQ(readLines(write("\xEF\xBB\xBF"
                              "a;b\r\nc\n\nd"),
                        TextEncoding::Utf8),
              QStringList({"a;b", "c", "", "d"}));
    EXPECT_EQ(readLines(write("a\r\n"), TextEncoding::Utf8), QStringList({"a"}));
    EXPECT_TRUE(readLines(write(""), TextEncoding::Utf8).isEmpty());
}

TEST_F(Files, BothEncodingsAreRead)
{
    EXPECT_EQ(readLines(write("\xC8\xEC\xFF;1"), TextEncoding::Windows1251), QStringList("Имя;1"));
    EXPECT_EQ(readLines(write("Имя;1"), TextEncoding::Utf8), QStringList("Имя;1"));
    EXPECT_NE(readLines(write("\xC8\xEC\xFF;1"), TextEncoding::Utf8), QStringList("Имя;1"));
}

TEST_F(Files, AByteOrderMarkSetsTheEncoding)
{
    const QString path = write("\xEF\xBB\xBFИмя;1\n");
    const TextFile text = readTextFile(path, TextEncoding::Windows1251);
    EXPECT_EQ(text.lines, QStringList("Имя;1"));
    EXPECT_EQ(text.encoding, TextEncoding::Utf8);
    EXPECT_EQ(text.remarks, QStringList("Файл начинается с метки порядка байтов: его кодировка UTF-8."));
    EXPECT_EQ(readTextFile(write("Имя;1\n"), TextEncoding::Windows1251).encoding, TextEncoding::Windows1251);
}

TEST_F(Files, ReadingTellsKibibytesAndStopsWithoutLines)
{
    const QString path = write(QByteArray("a;1234567890123\n").repeated(64 * 1024)); // a mebibyte
    int last = 0;
    const TextFile whole = readTextFile(path, TextEncoding::Utf8, [&](int done, int total) {
        EXPECT_GT(done, last);
        EXPECT_EQ(total, 1024);
        last = done;
        return true;
    });
    EXPECT_EQ(last, 1024);
    EXPECT_EQ(whole.lines.size(), 64 * 1024);
    const TextFile stopped = readTextFile(path, TextEncoding::Utf8, [](int done, int) { return done < 500; });
    EXPECT_EQ(stopped.lines.size(), 0);
    EXPECT_EQ(stopped.remarks, QStringList("Чтение файла остановлено."));
    EXPECT_EQ(readFirstLines(path, TextEncoding::Utf8, 3), whole.lines.mid(0, 3));
}

TEST_F(Files, AFileThatCannotBeReadHasNoLines)
{
    EXPECT_TRUE(readLines("/nowhere/file.csv", TextEncoding::Utf8).isEmpty());
    EXPECT_TRUE(readLines(QString(), TextEncoding::Utf8).isEmpty());
}

TEST_F(Files, AnEndlessLineIsPassedAndTheNextOneRead)
{
    QByteArray bytes(50 << 20, ';');
    bytes += "\nnext;line\n";
    EXPECT_EQ(readLines(write(bytes), TextEncoding::Utf8), QStringList({"", "next;line"}));
    const QByteArray longest = QByteArray(1 << 20, 'x').left((1 << 20) - 1);
    EXPECT_EQ(readLines(write(longest + "\nb"), TextEncoding::Utf8).first().size(), longest.size());
}

TEST_F(Files, BinaryJunkIsSomeLines)
{
    QByteArray junk;
    std::mt19937 random(7);
    for (int i = 0; i < 100000; ++i)
        junk += char(random());
    const QString path = write(junk);
    junk.replace("\r\n", "\n");
    const int ends = junk.count('\n') + junk.count('\r');
    for (const TextEncoding encoding : {TextEncoding::Utf8, TextEncoding::Windows1251})
        EXPECT_EQ(readLines(path, encoding).size(), ends + !(junk.endsWith('\n') || junk.endsWith('\r')));
}

TEST_F(Files, SoundFilesGoWithoutARemark)
{
    EXPECT_EQ(readTextFile(write("\xEF\xBB\xBF"
                                 "Имя;1\r\nx;2\n"),
                           TextEncoding::Utf8)
                  .remarks,
              QStringList());
    EXPECT_EQ(readTextFile(write(""), TextEncoding::Utf8).remarks, QStringList());
    EXPECT_EQ(readTextFile(QString(), TextEncoding::Utf8).remarks, QStringList()) << "nothing was chosen yet";
}

TEST_F(Files, AReturnAloneEndsALineToo)
{
    const QStringList rows{"a;1", "b;2", "c;3"};
    for (const char* bytes : {"a;1\rb;2\rc;3\r", "a;1\rb;2\rc;3", "a;1\r\nb;2\rc;3\n"}) {
        const TextFile text = readTextFile(write(bytes), TextEncoding::Utf8);
        EXPECT_EQ(text.lines, rows) << bytes;
        EXPECT_EQ(text.remarks, QStringList("Строки файла разделены одним знаком возврата каретки (CR)."));
    }
    EXPECT_EQ(readTextFile(write("a;1\r\nb;2\nc;3"), TextEncoding::Utf8).lines, rows);
}

TEST_F(Files, ZeroBytesAreRemarkedOnAndStay)
{
    const TextFile text = readTextFile(write(QByteArray("имя;1\nсква\0жина;2\nx\ny\0\n", 34)), TextEncoding::Utf8);
    ASSERT_EQ(text.lines.size(), 4);
    EXPECT_EQ(text.lines[1].size(), 11) << "a name with a zero byte is no name that is known";
    EXPECT_EQ(text.remarks, QStringList("Нулевые байты в строках: 2, 4."));
    QByteArray many;
    for (int i = 0; i < 7; ++i)
        many += QByteArray("aaaaaaaaaaaaa\0b\n", 16);
    EXPECT_EQ(readTextFile(write(many), TextEncoding::Utf8).remarks,
              QStringList("Нулевые байты в строках: 1, 2, 3, 4, 5 и другие."));
}

TEST_F(Files, Utf16IsNamedAndNotRead)
{
    const QString sample = "Имя;Дата\nts-1;01.02.2024\n";
    const QByteArray little(reinterpret_cast<const char*>(sample.utf16()), sample.size() * 2);
    QByteArray big = little;
    for (int i = 0; i + 1 < big.size(); i += 2)
        qSwap(big.data()[i], big.data()[i + 1]);
    for (const QByteArray& bytes : {little, big, QByteArray("\xFF\xFE") + little, QByteArray("\xFE\xFF") + big}) {
        const TextFile text = readTextFile(write(bytes), TextEncoding::Utf8);
        EXPECT_TRUE(text.lines.isEmpty());
        EXPECT_EQ(text.remarks,
                  QStringList("Файл записан в кодировке UTF-16. Сохраните его в кодировке UTF-8 или Windows-1251."));
    }
}

TEST_F(Files, ALineOfMebibytesIsRemarkedOn)
{
    const TextFile text = readTextFile(write("a\n" + QByteArray(3 << 20, 'x') + "\nb\n"), TextEncoding::Windows1251);
    EXPECT_EQ(text.lines, QStringList({"a", "", "b"}));
    EXPECT_EQ(text.remarks, QStringList("Пропущены строки длиннее 1 МиБ: 2."));
}

// The encoding is chosen after the file: it is read again then.
TEST_F(Files, AFileThatIsGoneIsNamed)
{
    const QString path = write("a;b");
    ASSERT_EQ(readTextFile(path, TextEncoding::Utf8).lines.size(), 1);
    ASSERT_TRUE(QFile::remove(path));
    const TextFile text = readTextFile(path, TextEncoding::Windows1251);
    EXPECT_TRUE(text.lines.isEmpty());
    EXPECT_EQ(text.remarks, QStringList("Файл не открывается: " + path + "."));
    EXPECT_EQ(readTextFile("/proc/self/mem", TextEncoding::Utf8).remarks.value(0).left(25),
              QString("Файл прочитан не до конца"))
        << "a device that stops in the middle";
}

TEST_F(Files, AFileThatIsBeingWrittenHasNoLinesAndSaysSo)
{
    const QString path = write(QByteArray(20 << 20, 'x').replace("xxxxxxxxx", "1;2;3;45\n"));
    std::atomic<bool> enough{false};
    std::thread logger([&] {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::Append | QIODevice::Unbuffered));
        while (!enough) {
            file.write("6;7");
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    });
    const TextFile text = readTextFile(path, TextEncoding::Utf8);
    enough = true;
    logger.join();
    EXPECT_EQ(text.lines.size(), 0);
    EXPECT_TRUE(text.remarks.value(0).startsWith("Файл изменился во время чтения")) << text.remarks.join('|');
    EXPECT_GT(readTextFile(path, TextEncoding::Utf8).lines.size(), 1000000) << "all of it, once it is done";
}

TEST(Cells, KeepEmptyOnesAndSurviveAnEmptySeparator)
{
    EXPECT_EQ(splitCells("a;;b;", ";"), QStringList({"a", "", "b", ""}));
    EXPECT_EQ(splitCells("a||b", "||"), QStringList({"a", "b"}));
    EXPECT_EQ(splitCells("a;b", ""), QStringList({"a;b"}));
    for (const char* separator : {";", "||", ""})
        EXPECT_EQ(countCells("a||b;c", separator), splitCells("a||b;c", separator).size());
}

TEST(RawLines, ShowTheCellsOfTheLongestRow)
{
    RawLines raw;
    raw.setLines({"a;b", "", "c;d;e"}, ";");
    EXPECT_EQ(raw.rowCount(), 3);
    EXPECT_EQ(raw.columnCount(), 3);
    EXPECT_EQ(raw.index(2, 2).data().toString(), "e");
    EXPECT_EQ(raw.index(0, 1).data().toString(), "b");
    EXPECT_EQ(raw.index(0, 2).data().toString(), "");
    raw.setLines({QString(5000, ';')}, ";");
    EXPECT_EQ(raw.columnCount(), 1000);
    raw.setLines({}, ";");
    EXPECT_EQ(raw.rowCount(), 0);
    EXPECT_EQ(raw.columnCount(), 0);
}

TEST(RawLines, NewTitlesAreToldOfEachSection)
{
    using Sections = std::tuple<Qt::Orientation, int, int>;
    RawLines raw;
    std::vector<Sections> told;
    QObject::connect(&raw, &RawLines::headerDataChanged, [&](Qt::Orientation direction, int first, int last) {
        told.emplace_back(direction, first, last);
    });
    raw.setTitles(Qt::Horizontal, {{1, "Имя"}});
    EXPECT_TRUE(told.empty()) << "there is no section";
    raw.setLines({"a;b", "c;d;e"}, ";");
    raw.setTitles(Qt::Horizontal, {{1, "Имя"}});
    EXPECT_EQ(raw.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Имя");
    // A view passes over a change of sections that it does not have.
    EXPECT_EQ(told, (std::vector<Sections>{{Qt::Horizontal, 0, 2}, {Qt::Vertical, 0, 1}}));
}
