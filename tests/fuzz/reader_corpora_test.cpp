// What fuzzing of the readers started from and what it found, taken again.
#include "reader_fuzz.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

struct Corpus {
    const char* folder;
    QString (*step)(const QByteArray& input);
};

class ReaderCorpora : public ::testing::TestWithParam<Corpus> { };

} // namespace

TEST_P(ReaderCorpora, AreTakenWithoutAFault)
{
    const QDir folder(TERVA_SOURCE_DIR "/tests/fuzz/readers/corpus/" + QString(GetParam().folder));
    const QStringList files = folder.entryList(QDir::Files);
    ASSERT_GE(files.size(), 5);
    for (const QString& name : files) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        EXPECT_EQ(GetParam().step(file.readAll()), "") << name;
    }
}

INSTANTIATE_TEST_SUITE_P(All, ReaderCorpora,
                         ::testing::Values(Corpus{"drawing", fuzzDrawing}, Corpus{"project", fuzzProject},
                                           Corpus{"table", fuzzTable}),
                         [](const auto& corpus) { return std::string(corpus.param.folder); });
