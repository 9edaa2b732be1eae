#include <script/answer_text.h>

#include <gtest/gtest.h>

namespace {

PromptRequest keywordRequest()
{
    PromptRequest request;
    request.kind = PromptRequest::Keyword;
    request.keywords = {{QStringLiteral("Да"), QStringLiteral("Yes")},
                        {QStringLiteral("Нет"), QStringLiteral("No")},
                        {QStringLiteral("Нигде"), QStringLiteral("Nowhere")}};
    return request;
}

PromptRequest requestOf(PromptRequest::Kind kind)
{
    PromptRequest request;
    request.kind = kind;
    return request;
}

QString keyword(const QString& typed)
{
    PromptReply reply;
    return parseAnswer(keywordRequest(), typed, reply) ? reply.text : QString();
}

} // namespace

TEST(AnswerText, AKeywordComesBackAsItsGlobalWord)
{
    EXPECT_EQ(keyword(QStringLiteral("Да")), QStringLiteral("Yes"));
    EXPECT_EQ(keyword(QStringLiteral("нет")), QStringLiteral("No"));
    EXPECT_EQ(keyword(QStringLiteral("no")), QStringLiteral("No"));
    EXPECT_EQ(keyword(QStringLiteral("_Yes")), QStringLiteral("Yes"));
}

TEST(AnswerText, ABeginningThatFitsOneWordIsEnough)
{
    EXPECT_EQ(keyword(QStringLiteral("д")), QStringLiteral("Yes"));
    EXPECT_EQ(keyword(QStringLiteral("Ни")), QStringLiteral("Nowhere"));
    EXPECT_TRUE(keyword(QStringLiteral("Н")).isNull());
    EXPECT_TRUE(keyword(QStringLiteral("_Да")).isNull());
    EXPECT_TRUE(keyword(QStringLiteral("Может")).isNull());
}

TEST(AnswerText, NothingTypedIsAnEmptyAnswer)
{
    PromptReply reply;
    EXPECT_TRUE(parseAnswer(keywordRequest(), QStringLiteral("  "), reply));
    EXPECT_EQ(reply.status, kPromptEmpty);
    EXPECT_TRUE(parseAnswer(requestOf(PromptRequest::String), QString(), reply));
    EXPECT_EQ(reply.status, kPromptEmpty);
}

TEST(AnswerText, PointsMayLackZAndBeRelative)
{
    PromptReply reply;
    PromptRequest request = requestOf(PromptRequest::Point);
    ASSERT_TRUE(parseAnswer(request, QStringLiteral("1.5,-2"), reply));
    EXPECT_EQ(reply.point, NcGePoint3d(1.5, -2.0, 0.0));
    ASSERT_TRUE(parseAnswer(request, QStringLiteral("1,2,3"), reply));
    EXPECT_EQ(reply.point, NcGePoint3d(1.0, 2.0, 3.0));
    EXPECT_FALSE(parseAnswer(request, QStringLiteral("@1,2"), reply));
    request.base = NcGePoint3d(10.0, 20.0, 30.0);
    ASSERT_TRUE(parseAnswer(request, QStringLiteral("@1,2"), reply));
    EXPECT_EQ(reply.point, NcGePoint3d(11.0, 22.0, 30.0));
    EXPECT_FALSE(parseAnswer(request, QStringLiteral("1"), reply));
    EXPECT_FALSE(parseAnswer(request, QStringLiteral("1,x"), reply));
    EXPECT_FALSE(parseAnswer(request, QStringLiteral("1,2,3,4"), reply));
}

TEST(AnswerText, NumbersMustConvertWhole)
{
    PromptReply reply;
    EXPECT_TRUE(parseAnswer(requestOf(PromptRequest::Real), QStringLiteral("-0.25"), reply));
    EXPECT_EQ(reply.real, -0.25);
    EXPECT_FALSE(parseAnswer(requestOf(PromptRequest::Real), QStringLiteral("5м"), reply));
    EXPECT_TRUE(parseAnswer(requestOf(PromptRequest::Integer), QStringLiteral("42"), reply));
    EXPECT_EQ(reply.integer, 42);
    EXPECT_FALSE(parseAnswer(requestOf(PromptRequest::Integer), QStringLiteral("4.2"), reply));
}

TEST(AnswerText, BlanksBelongToAStringOnlyWhereTheyMay)
{
    PromptReply reply;
    PromptRequest request = requestOf(PromptRequest::String);
    EXPECT_FALSE(parseAnswer(request, QStringLiteral("два слова"), reply));
    request.spaces = true;
    ASSERT_TRUE(parseAnswer(request, QStringLiteral("два слова "), reply));
    EXPECT_EQ(reply.text, QStringLiteral("два слова "));
}

TEST(AnswerText, LettersThatLookAlikeAreEqual)
{
    PromptRequest request;
    request.kind = PromptRequest::Keyword;
    request.keywords = {
        {"Создать", "Make"}, {"Текущий", "Current"}, {"Вкл", "On"}, {"Откл", "Off"}, {"Отпереть", "Unlock"}};
    const auto answer = [&](const QString& typed) {
        PromptReply reply;
        return parseAnswer(request, typed, reply) ? reply.text : QString();
    };
    EXPECT_EQ(answer("T"), "Current") << "a Latin T for the Cyrillic one of the word shown";
    EXPECT_EQ(answer("B"), "On");
    EXPECT_EQ(answer("Bкл"), "On");
    EXPECT_EQ(answer("cоздать"), "Make") << "one letter of the wrong alphabet";
    EXPECT_EQ(answer("С"), "Make") << "a letter that fits as it is goes first";
    EXPECT_EQ(answer("C"), "Current");
    EXPECT_TRUE(answer("О").isNull()) << "two words begin so";
    EXPECT_TRUE(answer("O").isNull());
    EXPECT_EQ(answer("Отк"), "Off");
    EXPECT_TRUE(answer("_Текущий").isNull());
}

TEST(AnswerText, ADistanceAndAnAngleMakeAPoint)
{
    NcGePoint3d point;
    const NcGePoint3d base(10, 20, 0);
    ASSERT_TRUE(parsePointText("@5<90", &base, point));
    EXPECT_NEAR(point.x, 10.0, 1e-12);
    EXPECT_NEAR(point.y, 25.0, 1e-12);
    ASSERT_TRUE(parsePointText("2<180", nullptr, point));
    EXPECT_NEAR(point.x, -2.0, 1e-12);
    EXPECT_FALSE(parsePointText("@5<90", nullptr, point));
    for (const char* text : {"<90", "5<", "5<x", "5<1,2"})
        EXPECT_FALSE(parsePointText(text, &base, point)) << text;
}

TEST(AnswerText, AnAnswerThatDoesNotFitIsExplained)
{
    EXPECT_EQ(answerHint(requestOf(PromptRequest::Real), " 2,5"), "Дробная часть отделяется точкой: 2.5");
    EXPECT_EQ(answerHint(requestOf(PromptRequest::Real), "много"), "Нужно число.");
    EXPECT_EQ(answerHint(requestOf(PromptRequest::Point), "1,5,2,5"),
              "Координаты разделяет запятая, дробную часть отделяет точка: 1.5,2.5");
    EXPECT_EQ(answerHint(requestOf(PromptRequest::Point), "@1,2"),
              "Здесь не от чего отсчитывать: укажите точку как x,y.");
    EXPECT_EQ(answerHint(requestOf(PromptRequest::Point), "туда"),
              "Точка вводится как x,y, @dx,dy или @расстояние<угол.");
    EXPECT_EQ(answerHint(keywordRequest(), "Может"), "Такой ответ не подходит.");
}

TEST(AnswerText, WhatIsNotFiniteIsNoNumber)
{
    PromptReply reply;
    for (const char* text : {"nan", "NaN", "inf", "-inf", "infinity", "1e400"}) {
        EXPECT_FALSE(parseAnswer(requestOf(PromptRequest::Real), text, reply)) << text;
        EXPECT_FALSE(parseAnswer(requestOf(PromptRequest::Point), QString("1,") + text, reply)) << text;
    }
    EXPECT_TRUE(parseAnswer(requestOf(PromptRequest::Real), QStringLiteral("1e300"), reply));
}
