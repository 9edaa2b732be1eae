// What fuzzing of the readers started from and what it found, taken again.
#include "reader_fuzz.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <random>

namespace {

struct Corpus {
    const char* folder;
    QString (*step)(const QByteArray& input);
};

class ReaderCorpora : public ::testing::TestWithParam<Corpus> {
protected:
    QVector<QByteArray> inputs() const
    {
        const QDir folder(TERVA_SOURCE_DIR "/tests/fuzz/readers/corpus/" + QString(GetParam().folder));
        QVector<QByteArray> found;
        for (const QString& name : folder.entryList(QDir::Files)) {
            QFile file(folder.filePath(name));
            EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
            found << file.readAll();
        }
        return found;
    }
};

// A few changes of the kinds that files suffer: bytes, numbers, lines lost, doubled and moved, an end cut off, a
// piece of another file.
QByteArray changed(QByteArray bytes, const QVector<QByteArray>& others, std::mt19937& random)
{
    static const QVector<QByteArray> pieces = {"-1",   "0",  "1e308", "2147483648", "nan",  ";;;;",
                                               "\n",   "\r", "\"",    "<a>",        "&#0;", "\xEF\xBB\xBF",
                                               "\xD0", "%1", "  0\n", "\xFF\xFE"};
    const auto below = [&random](int size) { return size > 0 ? int(random() % unsigned(size)) : 0; };
    for (int change = 1 + below(6); change > 0; --change) {
        const int at = below(bytes.size());
        const int end = bytes.indexOf('\n', at) + 1;
        switch (below(7)) {
        case 0: bytes.insert(at, pieces[below(pieces.size())]); break;
        case 1: bytes.replace(at, 1 + below(4), pieces[below(pieces.size())]); break;
        case 2: bytes.remove(at, end > at ? end - at : 1); break;
        case 3: bytes.insert(below(bytes.size()), bytes.mid(at, end > at ? end - at : 8)); break;
        case 4: bytes.truncate(at); break;
        case 5: bytes.insert(at, others[below(others.size())].mid(0, below(400))); break;
        default:
            if (!bytes.isEmpty())
                bytes[at] = char(random());
        }
    }
    return bytes;
}

} // namespace

// TERVA_FUZZ_TURNS asks for more of them, and TERVA_FUZZ_SEED for others.
TEST_P(ReaderCorpora, ChangedAtRandomAreTakenWithoutAFault)
{
    const QVector<QByteArray> seeds = inputs();
    bool given = false;
    const int turns = qEnvironmentVariableIntValue("TERVA_FUZZ_TURNS", &given);
    std::mt19937 random(unsigned(qEnvironmentVariableIntValue("TERVA_FUZZ_SEED")));
    for (int turn = 0; turn < (given ? turns : 200); ++turn) {
        const QByteArray input = changed(seeds[int(random() % unsigned(seeds.size()))], seeds, random);
        if (given) { // what brings the program down is found there
            QFile last(QDir::temp().filePath(QString("terva-fuzz-") + GetParam().folder));
            if (last.open(QIODevice::WriteOnly))
                last.write(input);
        }
        ASSERT_EQ(GetParam().step(input), "") << "turn " << turn << ":\n" << input.toPercentEncoding("\n ;").data();
    }
}

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
