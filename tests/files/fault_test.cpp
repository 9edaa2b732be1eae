// Every single call of a save fails once, and the program is killed at every one.
#include "files/written_file.h"

#include "support/write_faults.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <gtest/gtest.h>

namespace {

struct Fault {
    int error; // 0: the program is killed
    int size;
};

void PrintTo(const Fault& fault, std::ostream* stream) { *stream << "error " << fault.error << ", " << fault.size; }

class FaultTest : public ::testing::TestWithParam<Fault> {
protected:
    QByteArray content() const
    {
        QFile file(path_);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder_;
    QString path_ = folder_.filePath("a.bin");
};

} // namespace

TEST_P(FaultTest, TheFileIsTheOldOrTheNewAndTheProgramKnowsWhich)
{
    const Fault fault = GetParam();
    const QByteArray old(30000, 'o');
    const QByteArray fresh(fault.size, 'n');
    const QString program = QCoreApplication::applicationDirPath() + "/write_once";
    int at = 0;
    for (bool reached = true; reached;) {
        ASSERT_LT(++at, 100) << "it never ends";
        ASSERT_TRUE(saveFile(path_, old));
        const FaultRun run =
            runWithFault(program, {path_, QString::number(fault.size), "n"}, folder_.path(), at, fault.error);
        reached = run.reached;
        const QByteArray found = content();
        EXPECT_TRUE(found == old || found == fresh) << "call " << at << ": " << found.size();
        EXPECT_TRUE(run.exitCode != 0 || found == fresh) << "call " << at;
        EXPECT_TRUE(run.exitCode != 1 || found == old) << "call " << at;
        EXPECT_NE(run.exitCode, 2);
        EXPECT_EQ(run.exitCode == -1, fault.error == 0 && reached) << "call " << at;
    }
    EXPECT_GE(at, 5); // making, rights, writing, moving at the least
}

INSTANTIATE_TEST_SUITE_P(Faults, FaultTest,
                         ::testing::Values(Fault{ENOSPC, 500}, Fault{EIO, 500}, Fault{ENOSPC, 100000},
                                           Fault{EDQUOT, 20000}, Fault{EACCES, 500}, Fault{0, 500}, Fault{0, 100000}));
