#include <script/script_text.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

bool variable(const QString& name, QString& value)
{
    value = QStringLiteral("два слова");
    return name == QLatin1String("OUT");
}

QStringList words(const QString& line)
{
    QStringList read;
    QString error;
    EXPECT_TRUE(splitScriptWords(line, variable, read, error)) << error.toStdString();
    return read;
}

QString errorOf(const QString& line)
{
    QStringList read;
    QString error;
    EXPECT_FALSE(splitScriptWords(line, variable, read, error));
    return error;
}

} // namespace

TEST(ScriptText, LinesKeepTheirNumbersWithoutBlanksAndComments)
{
    const auto lines = scriptLines(QStringLiteral("\uFEFF# заголовок\r\n\r\n  command NEW  \r\n#\ncheck a b"),
                                   QStringLiteral("a.txt"));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].number, 3);
    EXPECT_EQ(lines[0].text, QStringLiteral("command NEW"));
    EXPECT_EQ(lines[1].number, 5);
    EXPECT_EQ(lines[1].file, QStringLiteral("a.txt"));
}

TEST(ScriptText, WordsAreSplitAtBlanksOutsideOfQuotes)
{
    EXPECT_EQ(words(QStringLiteral("set Имя \"ТС 1\"")),
              (QStringList{"set", QStringLiteral("Имя"), QStringLiteral("ТС 1")}));
    EXPECT_EQ(words(QStringLiteral("count 3 layer=\"Мой слой\"")),
              (QStringList{"count", "3", QStringLiteral("layer=Мой слой")}));
    EXPECT_EQ(words(QStringLiteral("set A \"\"")), (QStringList{"set", "A", ""}));
}

TEST(ScriptText, EscapesHoldOnlyInQuotes)
{
    EXPECT_EQ(words(QStringLiteral("text \"a\\nb\\t\\\"c\\\\\"")), (QStringList{"text", "a\nb\t\"c\\"}));
    EXPECT_EQ(words(QStringLiteral("open C:\\temp")), (QStringList{"open", "C:\\temp"}));
}

TEST(ScriptText, VariablesAreReplacedInAndOutOfQuotes)
{
    EXPECT_EQ(words(QStringLiteral("open ${OUT}/a \"${OUT}\" $$x $5")),
              (QStringList{"open", QStringLiteral("два слова/a"), QStringLiteral("два слова"), "$x", "$5"}));
}

TEST(ScriptText, HashBeginsACommentOnlyAtAWordsBeginning)
{
    EXPECT_EQ(words(QStringLiteral("point 1,2 # угол")), (QStringList{"point", "1,2"}));
    EXPECT_EQ(words(QStringLiteral("set a b#c \"#d\"")), (QStringList{"set", "a", "b#c", "#d"}));
}

TEST(ScriptText, MistakesAreNamed)
{
    EXPECT_TRUE(errorOf(QStringLiteral("set A \"b")).contains(QStringLiteral("кавычка")));
    EXPECT_TRUE(errorOf(QStringLiteral("set A ${NONE}")).contains(QStringLiteral("NONE")));
    EXPECT_TRUE(errorOf(QStringLiteral("set A ${OUT")).contains(QStringLiteral("переменной")));
    EXPECT_TRUE(errorOf(QStringLiteral("set A \"\\q\"")).contains(QStringLiteral("\\q")));
}

TEST(ScriptText, AFileThatIsNotUtf8IsRefused)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.txt"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("echo \xcf\xf0\xe8\xe2\xe5\xf2\n");
    file.close();
    std::vector<ScriptLine> lines;
    QString error;
    EXPECT_FALSE(readScriptFile(path, lines, error));
    EXPECT_TRUE(error.contains(QStringLiteral("UTF-8")));
    EXPECT_FALSE(readScriptFile(folder.filePath(QStringLiteral("none")), lines, error));
}
