// The delivered list of projections: each line is a name and a definition that
// the server takes, with the false easting on the meridian that the name tells.
#include "base/placeholders.h"
#include "support/test_database.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace {

QVector<QStringList> readList()
{
    QFile file(QStringLiteral(TERVA_SOURCE_DIR "/share/config/msk_proj.csv"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QVector<QStringList> lines;
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts))
        lines.append(line.split(';'));
    return lines;
}

QString captured(const QString& text, const char* pattern)
{
    return QRegularExpression(pattern).match(text).captured(1);
}

TEST(Projections, EachLineHasAnUnusedNameAndADefinition)
{
    const auto lines = readList();
    EXPECT_EQ(lines.size(), 233);
    QSet<QString> names, definitions;
    for (const QStringList& line : lines) {
        ASSERT_EQ(line.size(), 2) << line.join(';');
        names.insert(line[0]);
        definitions.insert(line[1]);
        EXPECT_TRUE(line[1].startsWith("+proj=")) << line[1];
    }
    EXPECT_EQ(names.size(), lines.size());
    EXPECT_EQ(definitions.size(), lines.size());
}

TEST(Projections, TheServerPlacesTheFalseEastingOnTheNamedMeridian)
{
    TestDatabase database;
    for (const QStringList& line : readList()) {
        QString meridian = captured(line[0], "\\((?:осевой меридиан )?([0-9]+)°");
        if (line[0].contains("03'"))
            meridian += ".05";
        if (line[0].contains("з.д."))
            meridian.prepend('-');
        const QString easting = line[1].contains("utm") ? QString("500000") : captured(line[1], "\\+x_0=([0-9]+)");
        const QString origin = line[1].contains("y_0=-") ? QString("1000000") : QString("7000000");
        // Datums differ from WGS 84 by some hundred metres, which at these latitudes is below 0.005 of a degree.
        const QString apart = database.value(fill("select abs(mod((ST_X(ST_Transform(ST_MakePoint(%1, %2), '%3', "
                                                  "4326)) - (%4) + 540)::numeric, 360) - 180) < 0.005",
                                                  easting, origin, line[1], meridian));
        EXPECT_EQ(apart, QString("t")) << line.join(';');
    }
}

} // namespace
