// The font inside of an SVG.
#include "scene.h"

#include <render/picture_export.h>
#include <render/text_painting.h>
#include <render/web_font.h>

#include <QFile>
#include <QRawFont>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtSvg/QSvgRenderer>
#include <gtest/gtest.h>

namespace {

const QString kTexts = QStringLiteral("Скважина ТС-1 йё Å");

QByteArray exported(Scene& scene)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a.svg")));
    EXPECT_EQ(exportPicture(scene.drawing, file.fileName()).toStdString(), "");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QByteArray between(const QByteArray& text, const char* from, const char* to)
{
    const int begin = text.indexOf(from) + int(qstrlen(from));
    return text.mid(begin, text.indexOf(to, begin) - begin);
}

QPainterPath shape(const QRawFont& font, QChar character)
{
    const QVector<quint32> glyphs = font.glyphIndexesForString(QString(character));
    return glyphs.isEmpty() || glyphs.first() == 0 ? QPainterPath() : font.pathForGlyph(glyphs.first());
}

// The tables of the file, each with its sum told and made anew.
void expectSoundTables(const QByteArray& woff)
{
    ASSERT_TRUE(woff.startsWith("wOFF"));
    const auto number = [&woff](int at) { return qFromBigEndian<quint32>(woff.constData() + at); };
    EXPECT_EQ(number(8), quint32(woff.size()));
    const int count = qFromBigEndian<quint16>(woff.constData() + 12);
    QByteArray before;
    for (int i = 0; i < count; ++i) {
        const int entry = 44 + 20 * i;
        const QByteArray name = woff.mid(entry, 4);
        EXPECT_LT(before, name) << "tables stand in the order of their names";
        before = name;
        const int from = int(number(entry + 4)), packed = int(number(entry + 8)), plain = int(number(entry + 12));
        EXPECT_EQ(from % 4, 0) << name.toStdString();
        ASSERT_LE(from + packed, woff.size()) << name.toStdString();
        QByteArray bytes = woff.mid(from, packed);
        if (packed < plain) {
            QByteArray length(4, '\0');
            qToBigEndian(quint32(plain), length.data());
            bytes = qUncompress(length + bytes);
        }
        ASSERT_EQ(bytes.size(), plain) << name.toStdString();
        bytes.append(QByteArray((4 - plain % 4) % 4, '\0'));
        quint32 sum = 0;
        for (int at = 0; at < bytes.size(); at += 4)
            sum += qFromBigEndian<quint32>(bytes.constData() + at);
        EXPECT_EQ(sum, number(entry + 16)) << name.toStdString();
    }
}

} // namespace

TEST(WebFontTest, ItHoldsTheGlyphsOfTheTextsAlone)
{
    const QRawFont whole = textFont();
    const QByteArray bytes = webFont(whole, kTexts);
    expectSoundTables(bytes);
    EXPECT_LT(bytes.size(), 60000);
    const QRawFont part(bytes, whole.pixelSize(), QFont::PreferNoHinting);
    ASSERT_TRUE(part.isValid());
    EXPECT_EQ(part.familyName(), whole.familyName());
    EXPECT_NEAR(part.ascent(), whole.ascent(), 1e-6);
    for (const QChar character : kTexts) {
        const QPainterPath known = shape(whole, character), kept = shape(part, character);
        EXPECT_EQ(known.elementCount(), kept.elementCount()) << character.unicode();
        EXPECT_EQ(known.boundingRect(), kept.boundingRect()) << character.unicode();
        const QVector<quint32> glyph = whole.glyphIndexesForString(QString(character));
        EXPECT_EQ(whole.advancesForGlyphIndexes(glyph), part.advancesForGlyphIndexes(glyph)) << character.unicode();
    }
    EXPECT_GT(shape(part, QChar(0x0419 + 32)).elementCount(), 8) << "a letter made of two glyphs";
    EXPECT_TRUE(shape(part, QLatin1Char('Z')).isEmpty());
}

TEST(WebFontTest, NothingIsTakenOfWhatIsNoTrueType) { EXPECT_TRUE(webFont(QRawFont(), kTexts).isEmpty()); }

TEST(WebFontTest, AnSvgBringsItsFontAlong)
{
    Scene scene;
    scene.add(new NcDbText({1, 1, 0}, QStringLiteral("Скважина"), 1.0));
    const QByteArray svg = exported(scene);
    const QByteArray family = between(svg, "font-family: '", "'");
    EXPECT_EQ(family, textFontName().toUtf8());
    EXPECT_TRUE(svg.contains("font-family=\"" + family + "\"")) << "the texts are in it";
    const QByteArray font = QByteArray::fromBase64(between(svg, "url(data:font/woff;base64,", ")"));
    const QRawFont part(font, 100.0);
    ASSERT_TRUE(part.isValid());
    EXPECT_FALSE(shape(part, QChar(0x0421)).isEmpty());
    EXPECT_TRUE(QSvgRenderer(svg).isValid());
}

TEST(WebFontTest, ADrawingWithoutTextsNeedsNone)
{
    Scene scene;
    scene.add(new NcDbLine({0, 0, 0}, {10, 10, 0}));
    EXPECT_FALSE(exported(scene).contains("@font-face"));
}
