// Why a file gave no row.
#include "exchange/empty_result.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>
#include <gtest/gtest.h>

namespace {

class EmptyResult : public ::testing::Test {
protected:
    QString cause(FamilyKey family, const QByteArray& bytes, const ReadingChoice& chosen)
    {
        QFile file(folder_.filePath("file.csv"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return emptyCause(*importFamily(family), file.fileName(), chosen);
    }
    static QByteArray windows(const QString& text)
    {
        return QTextCodec::codecForName("Windows-1251")->fromUnicode(text);
    }

    const ReadingChoice usual{0, ";", TextEncoding::Utf8};
    const QString marks = "Имя;Дата;Отметка;SN прибора\nТ-1;05.01.2021;1.5;SN-1\n";
    const QString loggers = "№;Дата\n\nДата замера;Время замера;№ Объекта;Зав.№ косы;1;2;a;b\n";

private:
    QTemporaryDir folder_;
};

} // namespace

TEST_F(EmptyResult, NamesTheOneSettingThatIsWrong)
{
    EXPECT_EQ(cause(FamilyKey::Ts, loggers.toUtf8(), usual),
              "Вероятная причина — шаблон: файл похож на «РусГеоТех CSV(*.csv)».");
    EXPECT_EQ(cause(FamilyKey::Dm, windows(marks), usual), "Вероятная причина — кодировка: в файле Windows 1251.");
    EXPECT_EQ(cause(FamilyKey::Dm, marks.toUtf8(), {0, ";", TextEncoding::Windows1251}),
              "Вероятная причина — кодировка: в файле UTF-8.");
    const QPair<const char*, const char*> separators[] = {{",", "запятая"}, {"\t", "табуляция"}, {"|", "«|»"}};
    for (const auto& [separator, name] : separators)
        EXPECT_EQ(cause(FamilyKey::Dm, QString(marks).replace(';', separator).toUtf8(), usual),
                  QString("Вероятная причина — разделитель: в файле %1.").arg(name));
    EXPECT_EQ(cause(FamilyKey::Dm, marks.toUtf8(), {0, "#", TextEncoding::Utf8}),
              "Вероятная причина — разделитель: в файле точка с запятой.");
}

TEST_F(EmptyResult, NamesSeveralSettingsThatAreWrong)
{
    EXPECT_EQ(cause(FamilyKey::Ts, windows(QString(loggers).replace(';', '\t')), usual),
              "Вероятная причина — шаблон: файл похож на «РусГеоТех CSV(*.csv)»; кодировка: в файле Windows 1251; "
              "разделитель: в файле табуляция.");
}

TEST_F(EmptyResult, AFileOfAnotherKindIsToldAsSuch)
{
    EXPECT_EQ(cause(FamilyKey::Dm, "a;b\nc;d\n", usual),
              "В файле нет строки заголовка: нужны ячейки «Имя», «Дата», «SN прибора».");
    EXPECT_EQ(cause(FamilyKey::Dm, windows("Марка;Когда"), usual),
              "Вероятная причина — кодировка: файл записан не в UTF-8.");
    EXPECT_EQ(cause(FamilyKey::Dm, "", usual), "");
}

TEST_F(EmptyResult, AHeaderWithoutRowsIsToldAsSuch)
{
    EXPECT_EQ(cause(FamilyKey::Dm, marks.section('\n', 0, 0).toUtf8() + "\nТ-1;05.01.2021\n", usual),
              "Под строкой заголовка нет строк с данными: в них меньше ячеек, чем нужно, или нет имени.");
}
