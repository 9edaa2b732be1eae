#include <script/console.h>

#include <gtest/gtest.h>

TEST(Console, CommandsAndAnswersBeginTheirOwnLines)
{
    Console console;
    console.print(QStringLiteral("Модуль загружен"));
    console.command(QStringLiteral("NEW"));
    console.prompt(QStringLiteral("\nШаблон: "));
    console.answer(QStringLiteral("a.dwt"));
    console.print(QStringLiteral("\nГотово"));
    console.prompt(QStringLiteral("Ещё?"));
    console.answer(QStringLiteral("Нет"));
    EXPECT_EQ(console.text(), QStringLiteral("Модуль загружен\nКоманда: NEW\nШаблон: a.dwt\n\nГотово\nЕщё? Нет\n"));
}

TEST(Console, SinceCommandLeavesOutWhatCameBefore)
{
    Console console;
    QString sunk;
    console.setSink([&](const QString& text) { sunk += text; });
    console.command(QStringLiteral("A"));
    console.print(QStringLiteral("первое\n"));
    console.command(QStringLiteral("B"));
    console.print(QStringLiteral("второе\n"));
    EXPECT_FALSE(console.sinceCommand().contains(QStringLiteral("первое")));
    EXPECT_TRUE(console.sinceCommand().contains(QStringLiteral("второе")));
    EXPECT_EQ(sunk, console.text());
}
