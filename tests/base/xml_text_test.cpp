// Texts for XML files.
#include "base/xml_text.h"

#include <gtest/gtest.h>

TEST(XmlText, KeepsWhatXmlCanHold)
{
    const QString text = QStringLiteral("Скважина №1\tа\r\nб 𝄞\uE000\uFFFD");
    EXPECT_EQ(storableInXml(text), text);
    EXPECT_EQ(storableInXml(QString()), QString());
}

TEST(XmlText, DropsControlSignsAndHalves)
{
    const QString high(QChar(0xd834)), low(QChar(0xdd1e));
    EXPECT_EQ(storableInXml(QString("а") + QChar(0) + QChar(0x0b) + QChar(0x1f) + "б"), QStringLiteral("аб"));
    EXPECT_EQ(storableInXml("а" + high + "б" + low + "в" + high), QStringLiteral("абв"));
    EXPECT_EQ(storableInXml(high + high + low), high + low);
    EXPECT_EQ(storableInXml(QString("а") + QChar(0xfffe) + QChar(0xffff)), QStringLiteral("а"));
}
