// How long the Word engine takes, beside python-docx doing the same edits.
#include "reports/docx/docx_merger.h"
#include "reports/docx/docx_table.h"
#include "reports/docx/docx_template.h"
#include "reports/docx/xml_walk.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cstdio>
#include <ctime>
#include <functional>

namespace {

constexpr int tags = 200;
constexpr int rows = 1000;
constexpr int columns = 6;
constexpr double fillBound = 0.5;      // seconds
constexpr int memoryBound = 200;       // megabytes
constexpr double advantageBound = 5.0; // times as fast as python-docx
constexpr double refusalBound = 1.0;   // seconds
constexpr int refusalMemory = 400;     // megabytes
constexpr double growthBound = 2.6;    // of time when the files double; 2 is linear

bool missed = false;

void report(const char* what, double value, const char* unit, bool within = true)
{
    std::printf("%-58s %9s %s%s\n", what, qPrintable(QString::number(value, 'f', 3)), unit, within ? "" : "   MISSED");
    std::fflush(stdout);
    missed = missed || !within;
}

/// The least seconds of several runs. Seconds of the processor, here and in the
/// Python script: the machine may be shared.
double best(int times, const std::function<bool()>& work)
{
    double seconds = -1;
    for (int i = 0; i < times; ++i) {
        const std::clock_t start = std::clock();
        if (!work())
            qFatal("the work itself failed");
        const double now = double(std::clock() - start) / CLOCKS_PER_SEC;
        seconds = seconds < 0 ? now : qMin(seconds, now);
    }
    return seconds;
}

QByteArray runPython(const QStringList& arguments)
{
    QString python = QStandardPaths::findExecutable("python3", {"/usr/bin"});
    if (python.isEmpty())
        python = QStandardPaths::findExecutable("python3");
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(python, QStringList(TERVA_SOURCE_DIR "/bench/docx/same_edits.py") + arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("python-docx (Debian: python3-docx) is needed");
    return process.readAllStandardOutput().trimmed();
}

double pythonSeconds(int times, const QStringList& arguments)
{
    double seconds = -1;
    for (int i = 0; i < times; ++i) {
        const double now = runPython(arguments).toDouble();
        seconds = seconds < 0 ? now : qMin(seconds, now);
    }
    return seconds;
}

/// The peak of this process since the last reset.
double peakMegabytes()
{
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    }
    return -1;
}

bool fillTemplate(const QString& source, const QString& result, bool byColumn)
{
    DocxTemplate docx;
    if (!docx.open(source))
        return false;
    for (const QString& tag : docx.tags())
        docx.setTag(tag, "value of " + tag);
    DocxTable table(docx::firstDescendant(docx.document.documentElement(), "w:tbl"));
    for (int r = 0; r < rows; ++r) {
        const QDomElement row = table.appendRow();
        for (int c = 0; c < columns; ++c) {
            const QString text = "row " + QString::number(r) + " column " + QString::number(c);
            const bool set = byColumn ? table.setCellText(r + 2, c, text) : table.setCellText(row, c, text);
            if (!set)
                return false;
        }
    }
    return docx.save(result);
}

void benchFill(const QTemporaryDir& folder)
{
    const QString source = folder.filePath("template.docx");
    const QString result = folder.filePath("filled.docx");
    runPython({"make-template", source, QString::number(tags)});

    const double ours = best(5, [&] { return fillTemplate(source, result, false); });
    const double memory = peakMegabytes();
    const double byColumn = best(3, [&] { return fillTemplate(source, result, true); });
    const QStringList fill{"fill", source, result, QString::number(rows)};
    const double elements = pythonSeconds(5, fill + QStringList("elements"));
    const double library = pythonSeconds(1, fill + QStringList("library"));

    std::printf("200 tags and a table of 1,000 rows and 6 columns\n");
    report("  Terva, cells of the appended row", ours, "s", ours < fillBound);
    report("  Terva, cells by row and grid column", byColumn, "s", byColumn < fillBound);
    report("  Terva, peak memory of the process", memory, "MB", memory < memoryBound);
    report("  python-docx, rows and cells by the library", library, "s");
    report("  python-docx, its tree walked by hand", elements, "s");
    report("  times as fast as the library", library / ours, "", library / ours >= advantageBound);
    report("  times as fast as its tree walked by hand", elements / ours, "");
}

void benchMerge(const QTemporaryDir& folder)
{
    const int most = 400;
    runPython({"make-parts", folder.path(), QString::number(most)});
    QStringList files;
    for (int i = 0; i < most; ++i)
        files.append(folder.filePath("part" + QString::number(i).rightJustified(4, '0') + ".docx"));
    const QString result = folder.filePath("merged.docx");

    std::printf("merging documents of 42 paragraphs and a picture of 30 KB\n");
    double before = 0;
    double ours = 0;
    for (int count = 50; count <= most; count *= 2) {
        const double seconds = best(3, [&] { return DocxMerger(files.mid(0, count)).merge(result, true); });
        const bool linear = before <= 0 || seconds / before < growthBound;
        report(qPrintable("  Terva, " + QString::number(count) + " documents"), seconds, "s", linear);
        before = seconds;
        if (count == 200)
            ours = seconds;
    }
    const double python = pythonSeconds(2, QStringList{"merge", result} + files.mid(0, 200));
    report("  python-docx, 200 documents", python, "s");
    report("  times as fast", python / ours, "", python / ours >= advantageBound);
    report("  Terva, peak memory of the process", peakMegabytes(), "MB");
}

/// Files made to hurt: each must be refused.
void benchHostile(const QTemporaryDir& folder)
{
    runPython({"make-hostile", folder.path()});
    std::printf("refusing hostile files\n");
    for (const QString& name : QDir(folder.path()).entryList({"hostile-*.docx"}, QDir::Files)) {
        const double seconds = best(3, [&] { return !DocxTemplate().open(folder.filePath(name)); });
        report(qPrintable("  " + name), seconds, "s", seconds < refusalBound);
    }
    report("  Terva, peak memory of the process", peakMegabytes(), "MB", peakMegabytes() < refusalMemory);
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QTemporaryDir folder;
    benchFill(folder);
    benchHostile(folder);
    benchMerge(folder);
    return missed ? 1 : 0;
}
