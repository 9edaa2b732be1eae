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
