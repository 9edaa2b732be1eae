// What we write is opened by an office program and by an independent library.
#include "docx_maker.h"
#include "package_checker.h"
#include "real_files.h"

#include "reports/docx/docx_merger.h"
#include "reports/docx/docx_table.h"
#include "reports/docx/docx_template.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

/// The system's own place first: python-docx belongs to the system's Python.
QString program(const QString& name)
{
    const QString path = QStandardPaths::findExecutable(name, {"/usr/bin"});
    return path.isEmpty() ? QStandardPaths::findExecutable(name) : path;
}

QByteArray run(const QString& name, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::SeparateChannels);
    process.start(program(name), arguments);
    EXPECT_TRUE(process.waitForStarted()) << "not installed: " << name;
    EXPECT_TRUE(process.waitForFinished(540000)) << name;
    EXPECT_EQ(process.exitCode(), 0) << name << process.readAllStandardError().constData();
    return process.readAllStandardOutput();
}

QByteArray runIndependent(const QStringList& arguments)
{
    return run("python3", QStringList{TERVA_SOURCE_DIR "/tests/reports/docx/independent.py"} + arguments);
}

/// Files written once for all tests here: an office program is slow to start.
///   before/  the sources, filled by another program
///   after/   the same sources, filled by us
///   merged/  pairs of neighbours, all, and all merged twice
class OfficePrograms : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        folder_ = new Folder;
        for (const char* name : {"before", "after", "merged", "pdf", "back"})
            ASSERT_TRUE(QDir().mkpath(place(name)));
        writeFilled();
        writeMerged();
        writeReport();
        fillOfficeTemplate();
        convert("pdf", written("before") + written("after") + written("merged"));
        convert("docx", written("after") + written("merged"));
        readings_ = QJsonDocument::fromJson(
                        runIndependent(QStringList("read") + written("before") + written("after") + written("merged")))
                        .object();
    }

    static void TearDownTestSuite() { delete folder_; }

    static QString place(const QString& name) { return *folder_ / name; }

    static QStringList written(const QString& name)
    {
        QStringList paths;
        for (const QFileInfo& file : QDir(place(name)).entryInfoList(QDir::Files, QDir::Name))
            paths.append(file.filePath());
        return paths;
    }

    static void writeFilled()
    {
        QJsonObject values;
        QStringList arguments;
        for (const QString& name : soundDocuments()) {
            values[documentPath(name)] = fillOne(name);
            arguments << documentPath(name) << place("before/" + name);
        }
        writeFile(place("values.json"), QJsonDocument(values).toJson());
        runIndependent(QStringList{"fill", place("values.json")} + arguments);
    }

    /// Fills and saves one document; gives what was filled.
    static QJsonObject fillOne(const QString& name)
    {
        DocxTemplate docx;
        EXPECT_TRUE(docx.open(documentPath(name)));
        QJsonObject values;
        for (const QString& tag : docx.tags()) {
            if (docx.tagTypes[tag] == DocxTemplate::Picture)
                continue;
            const QString value = QString::fromUtf8(" Скважина <№ %1> & ").arg(values.size());
            EXPECT_TRUE(docx.setTag(tag, value));
            if (docx.applyText(tag))
                values[tag] = value.trimmed();
        }
        for (auto value = values.begin(); value != values.end(); ++value)
            EXPECT_TRUE(docx.setTag(value.key(), value.value().toString()));
        EXPECT_TRUE(docx.save(place("after/" + name)));
        return values;
    }

    static void writeMerged()
    {
        const QStringList names = soundDocuments();
        QStringList all;
        for (int i = 0; i < names.size(); ++i) {
            const QString path = documentPath(names[i]);
            all.append(path);
            const QString next = documentPath(names[(i + 1) % names.size()]);
            EXPECT_TRUE(DocxMerger({path, next}).merge(place("merged/pair-" + names[i]), false));
        }
        EXPECT_TRUE(DocxMerger(all).merge(place("merged/all.docx"), false));
        EXPECT_TRUE(
            DocxMerger({place("merged/all.docx"), place("merged/all.docx")}).merge(place("merged/twice.docx"), false));
    }

    /// A report as ours are: texts, a table with a merged head that grows, a
    /// photograph in PNG and one in JPEG, merged with itself.
    static void writeReport()
    {
        const QByteArray head =
            row({cell("No", "<w:vMerge w:val=\"restart\"/>"), cell("Depth", "<w:gridSpan w:val=\"2\"/>")});
        const QByteArray under = row({cell("", "<w:vMerge/>"), cell("from"), cell("to")});
        const QString source =
            DocxMaker(paragraph(textControl("name", "placeholder")) + paragraph(pictureControl("photo", "rId5"))
                      + ::table(3, {head, under, row({cell("a"), cell("b"), cell("c")})}) + "<w:p/><w:sectPr/>")
                .image("rId5", "media/a.jpeg", imageBytes("JPEG"))
                .declare("<Default Extension=\"jpeg\" ContentType=\"image/jpeg\"/>")
                .write(*folder_ / "source.docx");
        writeFile(*folder_ / "photo.jpg", imageBytes("JPEG", 0xffff0000, 64));
        DocxTemplate docx;
        ASSERT_TRUE(docx.open(source));
        EXPECT_TRUE(docx.setTag("name", QString::fromUtf8("Термоскважина")));
        EXPECT_TRUE(docx.setTag("photo", *folder_ / "photo.jpg"));
        DocxTable table(elements(docx.document, "w:tbl")[0]);
        table.insertColumn(2);
        for (int i = 0; i < 20; ++i) {
            const QDomElement added = table.appendRow();
            for (int c = 0; c < 4; ++c)
                table.setCellText(added, c, QString("r%1c%2").arg(i).arg(c));
            table.setCellColor(added, 1, 200, 10 * i, 0);
        }
        QPixmap picture(30, 20);
        picture.fill(Qt::blue);
        EXPECT_EQ(table.setCellImage(table.cellAt(5, 2), docx.addImage(picture), picture.size()), 1);
        table.mergeColumns(6, 0, 3);
        table.setRowAlignment(6, "center");
        ASSERT_TRUE(docx.save(place("merged/report.docx")));
        EXPECT_TRUE(DocxMerger({place("merged/report.docx"), place("merged/report.docx")})
                        .merge(place("merged/reports.docx"), false));
    }

    /// A template made in the office program itself, then filled.
    static void fillOfficeTemplate()
    {
        const QString path = *folder_ / "made.docx";
        tagSupport_ =
            run("python3",
                {TERVA_SOURCE_DIR "/tests/reports/docx/office_template.py", program("soffice"), *folder_ / "", path});
        DocxTemplate docx;
        ASSERT_TRUE(docx.open(path));
        EXPECT_EQ(docx.tags(), QStringList({"list", "project"}));
        EXPECT_EQ(docx.tagTypes["project"], DocxTemplate::Text);
        EXPECT_EQ(docx.tagValues["project"], "prompt");
        DocxTable table(elements(docx.document, "w:tbl").value(0));
        ASSERT_TRUE(table.containsTag("list"));
        for (int i = 0; i < 30; ++i) {
            const QDomElement added = i == 0 ? elements(table.element(), "w:tr")[1] : table.appendRow();
            for (int c = 0; c < 3; ++c)
                EXPECT_TRUE(table.setCellText(added, c, QString("made%1.%2").arg(i).arg(c)));
        }
        EXPECT_TRUE(docx.setTag("project", QString::fromUtf8("Мост")));
        EXPECT_TRUE(docx.setTag("list", ""));
        ASSERT_TRUE(docx.save(place("merged/made.docx")));
    }

    /// One start of the office program for all files. The names carry their
    /// folder, as all results go into one.
    static void convert(const QString& format, const QStringList& paths)
    {
        QStringList copies;
        const QString inbox = place("inbox-" + format);
        ASSERT_TRUE(QDir().mkpath(inbox));
        for (const QString& path : paths) {
            const QString copy = inbox + "/" + QFileInfo(path).dir().dirName() + "-" + QFileInfo(path).fileName();
            ASSERT_TRUE(QFile::copy(path, copy));
            copies.append(copy);
        }
        run("soffice",
            QStringList{"-env:UserInstallation=file://" + place("profile"), "--headless", "--convert-to", format,
                        "--outdir", place(format == "pdf" ? "pdf" : "back")}
                + copies);
    }

    static QString pdf(const QString& from, const QString& name)
    {
        return place("pdf/" + from + "-" + QString(name).replace(".docx", ".pdf"));
    }

    static QString pdfText(const QString& from, const QString& name)
    {
        const QString path = pdf(from, name);
        EXPECT_GT(QFileInfo(path).size(), 500) << path;
        return QString::fromUtf8(run("pdftotext", {"-layout", "-enc", "UTF-8", path, "-"}));
    }

    static int pages(const QString& from, const QString& name) { return pdfText(from, name).count(QChar('\f')); }

    static QJsonObject reading(const QString& from, const QString& name)
    {
        return readings_[place(from + "/" + name)].toObject();
    }

    static Folder* folder_;
    static QByteArray tagSupport_;
    static QJsonObject readings_;
};

Folder* OfficePrograms::folder_ = nullptr;
QByteArray OfficePrograms::tagSupport_;
QJsonObject OfficePrograms::readings_;

QString merged(const QString& name) { return "pair-" + name; }

} // namespace

TEST_F(OfficePrograms, showTheSameTextInAndOutsideTheControls)
{
    int withText = 0;
    for (const QString& name : soundDocuments()) {
        const QString before = pdfText("before", name);
        EXPECT_EQ(before, pdfText("after", name)) << name;
        withText += before.trimmed().isEmpty() ? 0 : 1;
    }
    EXPECT_GE(withText, 24);
    EXPECT_TRUE(pdfText("after", "pt-solar-system.docx").contains(QString::fromUtf8("Скважина <№ 10> &")));
}

TEST_F(OfficePrograms, readTheSameInFilledDocumentsAsInThoseOfAnotherProgram)
{
    for (const QString& name : soundDocuments()) {
        const QJsonObject before = reading("before", name);
        ASSERT_FALSE(before.isEmpty()) << name;
        EXPECT_EQ(before, reading("after", name)) << name;
    }
}

TEST_F(OfficePrograms, openMergedDocuments)
{
    const QStringList names = soundDocuments();
    for (int i = 0; i < names.size(); ++i) {
        const QString next = names[(i + 1) % names.size()];
        const QJsonObject pair = reading("merged", merged(names[i]));
        ASSERT_FALSE(pair.isEmpty()) << names[i];
        EXPECT_GE(pages("merged", merged(names[i])), 2) << names[i];
        EXPECT_GE(pair["sections"].toInt(), reading("before", names[i])["sections"].toInt()) << names[i];
    }
    EXPECT_GE(pages("merged", "all.docx"), names.size());
    EXPECT_GE(pages("merged", "twice.docx"), 2 * names.size());
}

TEST_F(OfficePrograms, showTheReport)
{
    const QString text = pdfText("merged", "report.docx");
    for (const char* word : {"Термоскважина", "from", "r0c0", "r19c3"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(word))) << word;
    EXPECT_FALSE(text.contains("placeholder"));
    EXPECT_EQ(reading("merged", "report.docx")["images"].toInt(), 3) << "the prompt's picture stays in the package";
    EXPECT_EQ(reading("merged", "reports.docx")["images"].toInt(), 6);
    EXPECT_EQ(pdfText("merged", "reports.docx").count("r19c3"), 2);
    EXPECT_TRUE(QString::fromLatin1(run("pdfimages", {"-list", pdf("merged", "report.docx")})).count("image") >= 3);
}

TEST_F(OfficePrograms, makeTemplatesThatAreFilled)
{
    EXPECT_TRUE(tagSupport_.trimmed() == "tags" || tagSupport_.trimmed() == "no tags") << tagSupport_.constData();
    const QString text = pdfText("merged", "made.docx");
    EXPECT_TRUE(text.contains(QString::fromUtf8("Name of the project: Мост"))) << text;
    EXPECT_TRUE(text.contains("made0.0"));
    EXPECT_TRUE(text.contains("made29.2"));
    EXPECT_FALSE(text.contains("prompt"));
    EXPECT_FALSE(text.contains("sample"));
    EXPECT_EQ(findFaults(place("merged/made.docx")), QStringList());
}

TEST_F(OfficePrograms, writeBackSoundPackages)
{
    const QStringList back = written("back");
    EXPECT_EQ(back.size(), written("after").size() + written("merged").size());
    for (const QString& path : back)
        EXPECT_EQ(findFaults(path), QStringList()) << path;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(place("back/merged-report.docx")));
    EXPECT_TRUE(textOf(docx.document.documentElement()).contains(QString::fromUtf8("Термоскважина")));
    // Only an office program that knows tags writes them back.
    EXPECT_EQ(docx.tags().contains("name"), tagSupport_.trimmed() == "tags");
}

TEST_F(OfficePrograms, leaveTheResultsSound)
{
    for (const QString& name : soundDocuments()) {
        const QString source = documentPath(name);
        EXPECT_EQ(newFaults(place("after/" + name), source), QStringList()) << name;
        EXPECT_EQ(newFaults(place("merged/" + merged(name)), source), QStringList()) << name;
    }
    for (const char* name : {"all.docx", "twice.docx", "report.docx", "reports.docx"})
        EXPECT_EQ(findFaults(place("merged/") + name), QStringList()) << name;
}
