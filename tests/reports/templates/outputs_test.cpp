// Files that cannot be written as they should: told, and nothing half-written stays.
#include "package_checker.h"
#include "report_table.h"

#include "reports/generator/report_run.h"
#include "reports/templates/template_description.h"
#include "support/session_database.h"

#include <QDir>
#include <QFileInfo>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

/// Somebody whom the rights of folders bind, also where tests run as the superuser.
class OrdinaryUser {
public:
#ifdef Q_OS_UNIX
    OrdinaryUser() { changed_ = geteuid() == 0 && seteuid(nobody) == 0; }
    ~OrdinaryUser()
    {
        if (changed_) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }

private:
    static constexpr uid_t nobody = 65534;
    bool changed_ = false;
#endif
};

class Outputs : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        ASSERT_TRUE(QDir().mkpath(folder / "templates") && QDir().mkpath(folder / "out"));
        session().templateDir = folder / "templates";
        DocxMaker(paragraph(textControl("name", "?")) + paragraph(pictureControl("chart", "rId7")))
            .declare("<Default Extension=\"png\" ContentType=\"image/png\"/>")
            .image("rId7", "media/a.png", imageBytes("PNG"))
            .write(folder / "templates/t.docx");
        // Everybody may read the folders of the test.
        for (const char* name : {"", "templates", "out"})
            ASSERT_TRUE(QFile::setPermissions(folder / name, QFile::Permissions(0x7755)));
    }

    ExportTemplateClass& load(ReportKey key, const QVector<Substitution>& substitutions)
    {
        ExportTemplateClass& kind = *classes[size_t(key)];
        const QString path = folder / "templates/t.xml";
        EXPECT_TRUE(writeDescription(path, {kind.documentKey, "Т", "t.xml", "t.docx", substitutions}));
        EXPECT_TRUE(kind.loadTemplate(path));
        kind.parameters = parameters;
        return kind;
    }
    ExportTemplateClass& passports(const QStringList& names)
    {
        for (const QString& name : names)
            session().run("insert into ts_elements (element_name, position_id) values ($1, 1)", {sql::text(name)});
        parameters.folder = folder / "out";
        for (const QStringList& row : database.rows("select element_id from ts_elements order by element_id"))
            parameters.elements << row[0].toInt();
        console.take();
        return load(ReportKey::WellPassport, {{"name", "10_ts_name", ""}, {"chart", "17_ts_temp_diagramm", ""}});
    }
    QStringList left() const { return QDir(folder / "out").entryList(QDir::Files | QDir::Hidden); }

    Folder folder;
    ReportParameters parameters;
    std::vector<std::unique_ptr<ExportTemplateClass>> classes = makeReportClasses();
};

} // namespace

TEST_F(Outputs, AFolderWithoutRightsIsToldAndNothingIsLeft)
{
    ExportTemplateClass& common = load(ReportKey::Common, {{"name", "00_project_name", ""}});
    const OrdinaryUser user;
    EXPECT_EQ(int(runReport(common, folder / "out/report.docx")), int(ReportOutcome::NotWritten));
    EXPECT_EQ(console.take(), "\nНе удалось записать файл '" + folder / "out/report.docx" + "'");
    EXPECT_EQ(left(), QStringList());
}

TEST_F(Outputs, ASeriesIntoAFolderWithoutRightsTellsEachDocument)
{
    ExportTemplateClass& kind = passports({"ТС-1", "ТС-2"});
    kind.parameters.merge = true;
    const OrdinaryUser user;
    EXPECT_EQ(int(runReport(kind, QString())), int(ReportOutcome::Missing));
    EXPECT_EQ(console.take(),
              "\nНачата генерация пасспортов ТС (Папка '" + folder / "out" + "')\nНе удалось записать файл '"
                  + folder / "out/ТС-1.docx" + "'\nНе удалось записать файл '" + folder / "out/ТС-2.docx"
                  + "'\nСоздано документов: 0 из 2\nЗавершена генерация пасспортов ТС");
    EXPECT_EQ(left(), QStringList());
}

TEST_F(Outputs, AFileThatIsOpenElsewhereStaysWhatItIsForItsReader)
{
    ExportTemplateClass& common = load(ReportKey::Common, {{"name", "00_project_name", ""}});
    QFile reader(folder / "out/report.docx");
    ASSERT_TRUE(reader.open(QIODevice::ReadWrite) && reader.write("old") == 3 && reader.seek(0));
    const ReportOutcome outcome = runReport(common, reader.fileName());
    EXPECT_EQ(reader.readAll(), "old");
    if (outcome == ReportOutcome::Made) {
        EXPECT_EQ(findFaults(reader.fileName()), QStringList());
    } else { // a system that does not let go of it
        EXPECT_TRUE(console.text().contains("\nНе удалось записать файл"));
        EXPECT_EQ(QFileInfo(reader.fileName()).size(), 3);
    }
    EXPECT_EQ(left(), QStringList("report.docx"));
}

TEST_F(Outputs, WhatCannotBeReplacedIsToldAndStays)
{
    ExportTemplateClass& kind = passports({"ТС-1", "ТС-2"});
    ASSERT_TRUE(QDir().mkpath(folder / "out/ТС-1.docx/inside"));
    kind.parameters.overwrite = true;
    EXPECT_EQ(int(runReport(kind, QString())), int(ReportOutcome::Missing));
    EXPECT_TRUE(console.text().contains("\nНе удалось записать файл '" + folder / "out/ТС-1.docx" + "'\nСоздан файл '"))
        << console.text();
    EXPECT_TRUE(QFileInfo::exists(folder / "out/ТС-1.docx/inside"));
    EXPECT_EQ(left(), QStringList("ТС-2.docx"));
}

TEST_F(Outputs, ForbiddenSignsLeaveTheNamesOfFilesOnly)
{
    ExportTemplateClass& kind = passports({"а\\б/в:г*д?е\"ж<з>и|к", "..", "ТС%1"});
    EXPECT_EQ(int(runReport(kind, QString())), int(ReportOutcome::Made)) << console.text();
    QStringList expected{"...docx", "ТС%1.docx", "абвгдежзик.docx"};
    QStringList found = left();
    expected.sort();
    found.sort();
    EXPECT_EQ(found, expected);
    QDomDocument read;
    tablesOf(folder / "out/абвгдежзик.docx", read);
    EXPECT_EQ(textOf(read.documentElement()), "а\\б/в:г*д?е\"ж<з>и|к");
}

TEST_F(Outputs, ANameThatIsTooLongIsToldAndTheRunGoesOn)
{
    const QString tooLong(400, QChar(0x416));
    ExportTemplateClass& kind = passports({tooLong, "ТС-2"});
    EXPECT_EQ(int(runReport(kind, QString())), int(ReportOutcome::Missing));
    EXPECT_TRUE(console.text().contains("\nНе удалось записать файл '" + folder / "out/" + tooLong + ".docx'"));
    EXPECT_TRUE(console.text().contains("\nСоздано документов: 1 из 2"));
    EXPECT_EQ(left(), QStringList("ТС-2.docx"));
}

TEST_F(Outputs, APathOfManyFoldersIsWrittenOrTold)
{
    // Systems differ in how long a path may be: 260, 4096.
    QString deep = folder / "out";
    while (deep.size() < 300)
        deep += "/папка с длинным именем";
    if (!QDir().mkpath(deep))
        GTEST_SKIP() << "no such folder can be made here";
    ExportTemplateClass& common = load(ReportKey::Common, {{"name", "00_project_name", ""}});
    const QString path = deep + "/report.docx";
    if (runReport(common, path) == ReportOutcome::Made)
        EXPECT_EQ(findFaults(path), QStringList());
    else
        EXPECT_TRUE(console.text().contains("\nНе удалось записать файл"));
    const QStringList found = QDir(deep).entryList(QDir::Files | QDir::Hidden);
    EXPECT_LE(found.size(), 1);
}

TEST_F(Outputs, StatementsThatFailedAreToldAtTheEnd)
{
    ExportTemplateClass& kind = passports({"ТС-1"});
    EXPECT_EQ(int(runReport(kind, QString())), int(ReportOutcome::Made));
    EXPECT_FALSE(console.take().contains("не прочитана"));
    // The measures cannot be read: the passport is made without them and says nothing of it.
    database.exec("alter table ts_meas rename to gone");
    kind.parameters.overwrite = true;
    EXPECT_EQ(int(runReport(kind, QString())), int(ReportOutcome::Made));
    EXPECT_TRUE(
        console.text().endsWith("\nЗавершена генерация пасспортов ТС\nЧасть данных не прочитана из базы: отказов "
                                "1. Проверьте документы"))
        << console.text();
}
