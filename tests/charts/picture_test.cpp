// Whole pictures: the same as those kept in docs/charts, and the same at any
// language of the machine.
#include "charts/sample_charts.h"

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const SampleChart& sampleOf(const QString& name)
{
    static const std::vector<SampleChart> all = sampleCharts();
    for (const SampleChart& sample : all) {
        if (name == QString::fromUtf8(sample.name))
            return sample;
    }
    ADD_FAILURE() << "no sample " << name;
    return all.front();
}

// The part of pixels that differ clearly: letters are drawn a little
// differently by each version of the font library.
double differingPart(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return 1.0;
    int differing = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (qAbs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 48)
                ++differing;
        }
    }
    return double(differing) / (a.width() * a.height());
}

class KeptPicture : public ::testing::TestWithParam<const char*> { };

} // namespace

TEST_P(KeptPicture, IsDrawnAgain)
{
    const QString name = QString::fromUtf8(GetParam());
    const QImage kept(QStringLiteral(TERVA_SOURCE_DIR "/docs/charts/") + name + ".png");
    ASSERT_FALSE(kept.isNull());
    const QImage drawn = sampleOf(name).draw().picture.toImage();
    EXPECT_LT(differingPart(kept, drawn), 0.01);
    // The tolerance tells pictures apart.
    EXPECT_GT(differingPart(kept, sampleOf("edge-one-point").draw().picture.toImage().scaled(kept.size())), 0.01);
}

INSTANTIATE_TEST_SUITE_P(Charts, KeptPicture,
                         ::testing::Values("deformation-bolt", "thermostabiliser", "snow-12", "profile-sedov",
                                           "temperatures-geology", "temperatures-ratio-2"));

TEST(Language, ThePictureIsTheSameUnderEveryLocale)
{
    const QLocale before;
    const QImage first = sampleOf("deformation-gnss").draw().picture.toImage();
    for (const char* name : {"ru_RU", "de_DE", "ar_EG", "fa_IR", "C"}) {
        QLocale::setDefault(QLocale(QString::fromUtf8(name)));
        EXPECT_EQ(sampleOf("deformation-gnss").draw().picture.toImage(), first) << name;
    }
    QLocale::setDefault(before);
}

TEST(Language, ThePictureIsTheSameAtEveryLang)
{
    const QImage here = sampleOf("temperatures-geology").draw().picture.toImage();
    for (const char* lang : {"C", "ru_RU.UTF-8", "ar_EG.UTF-8", "ja_JP.UTF-8"}) {
        QTemporaryDir folder;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LANG", lang);
        environment.insert("LC_ALL", lang);
        environment.insert("TERVA_CHART_SHEET", folder.path());
        environment.remove("GTEST_OUTPUT");
        QProcess other;
        other.setProcessEnvironment(environment);
        other.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=*/temperatures_geology"});
        ASSERT_TRUE(other.waitForFinished(120000));
        EXPECT_EQ(other.exitCode(), 0) << other.readAll().toStdString();
        const QImage there(QDir(folder.path()).filePath("temperatures-geology.png"));
        ASSERT_FALSE(there.isNull());
        EXPECT_EQ(there.convertToFormat(QImage::Format_RGB32), here.convertToFormat(QImage::Format_RGB32)) << lang;
    }
}
