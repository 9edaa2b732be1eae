// What fuzzing started from and what it found, taken again.
#include "docx_fuzz.h"
#include "docx_maker.h"

#include <QDir>
#include <gtest/gtest.h>

TEST(FuzzCorpus, isTakenWithoutAFault)
{
    const QDir corpus(TERVA_SOURCE_DIR "/tests/fuzz/docx/corpus");
    const QStringList files = corpus.entryList(QDir::Files);
    ASSERT_GE(files.size(), 5);
    for (const QString& file : files) {
        const QByteArray input = readFile(corpus.filePath(file));
        EXPECT_EQ(fuzzOpen(input), "") << file;
        EXPECT_EQ(fuzzMerge(input), "") << file;
    }
}
