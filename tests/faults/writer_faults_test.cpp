// Every writer of files, each of its calls failing in turn, in the program itself: the file is the
// old one or the new one, and a run that wrote nothing did not end as if it had.
#include "scenario.h"
#include "support/test_database.h"
#include "support/write_faults.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <gtest/gtest.h>

namespace {

constexpr int mostCalls = 60;

struct Writer {
    const char* name;
    const char* scenario; // whose database it writes from
    const char* file;     // in the folder of results
    const char* script;   // behind the loading of the project; it ends where the writing is told to be done
};

const Writer writers[] = {
    {"project", "save_project", "copy.terva", R"(
command TERVA_SAVEPROJECT_AS
dialog "Файл проекта"
files ${OUT}/copy.terva
dialog "Внимание"
press "Да"
expect no "не записан"
)"},
    {"measures", "element_measures", "marks.csv", R"(
command TERVA_ELEMENT_MEASURES
dialog "Управление измерениями элементов ГМН"
press ExportMeasBTN
dialog "Сохранить измерения"
files ${OUT}/marks.csv
dialog "Внимание"
press "Да"
dialog "Успех"
press "OK"
press CloseBtn
)"},
    {"exchange", "inspections_there_and_back", "out.json.gz", R"(
command TERVA_EXPORT_INSPECTIONS
dialog "Массовый экспорт инспекций"
set CycleCombo index:1
set PathEdit ${OUT}/out.json
press ApplyBtn
expect "успешно завершен"
)"},
    {"states", "position_states", "states.csv", R"(
command TERVA_POSITION_SUMMARY
dialog "Геотехническое состояние сооружений"
set BaseCyclesCombo index:2
set CurrentCyclesCombo index:0
press RunBTN
press ExportCSVBTN
dialog "Экспорт в csv"
files ${OUT}/states.csv
dialog "Внимание"
press "Да"
press CloseBtn
)"},
    {"grounds", "ground_catalogue", "grounds.csv", R"(
command TERVA_EGE
dialog "Каталог ИГЭ"
press ExportBTN
dialog "Экспорт в CSV"
files ${OUT}/grounds.csv
dialog "Внимание"
press "Да"
press CloseBTN
)"},
    {"color_map", "color_map_stored", "map.cmp", R"(
command TERVA_MAP_LEGEND
dialog "Вставка легенды"
press SaveColorMapBtn
dialog "Сохранить цветовую палитру уровней"
files ${OUT}/map.cmp
dialog "Внимание"
press "Да"
press cancelButton
)"},
    {"drawing", "insert_deformation_marks", "plan.dxf", R"(
command LINE
point 0,0
point 10,20
esc
command EXPORT
string ${OUT}/plan.dxf
enter
)"},
    {"report", "reports_of_every_kind", "movements.docx", R"(
command TERVA_REPORTS
dialog "Генератор отчетов"
row DocumentList "Табл.верт.перемещений"
press GenerateBTN
dialog "Сохранить документ"
files ${OUT}/movements.docx
dialog "Внимание"
press "Да"
expect "Генерация документа '${OUT}/movements.docx' завершена"
press CancelBtn
)"},
    {"passports", "reports_of_every_kind", "Т7.docx", R"(
command TERVA_REPORTS
dialog "Генератор отчетов"
row DocumentList "Пасспорт термоскважины"
set PartSelector index:4
set ExportPath "${OUT}"
set FileOverWrite on
press GenerateBTN
expect "Создан файл '${OUT}/Т7.docx'"
press CancelBtn
)"},
    {"picture", "insert_deformation_marks", "plan.png", R"(
command LINE
point 0,0
point 10,20
esc
command EXPORT
string ${OUT}/plan.png
enter
)"},
};

void PrintTo(const Writer& writer, std::ostream* stream) { *stream << writer.name; }

class EveryWriter : public ::testing::TestWithParam<Writer> {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(TestServer::isKnown());
        ASSERT_TRUE(QDir(folder_.path()).mkpath("work"));
        ASSERT_TRUE(QDir(folder_.path()).mkpath("out"));
        variables_ = {
            {"HOST", TestServer::host()},
            {"PORT", TestServer::port()},
            {"USER", TestServer::user()},
            {"PASSWORD64", QString::fromLatin1(TestServer::password().toUtf8().toBase64())},
            {"DATABASE", database_.name()},
            {"FOLDER", work()},
            {"PROJECT", work() + "/project.terva"},
            {"COMMON", scenarioFolder("common")},
            {"OUT", out()},
            {"PROGRAM", QCoreApplication::applicationDirPath()},
        };
        database_.exec(readText(scenarioFolder("common") + "/base.sql", {}));
        const QString before =
            readStatements(scenarioFolder(GetParam().scenario) + QStringLiteral("/before.sql"), variables_);
        if (!before.isEmpty())
            database_.exec(before);
        QFile script(folder_.filePath("script"));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(("include " + scenarioFolder("common") + "/load.script" + GetParam().script).toUtf8());
    }

    QString work() const { return folder_.filePath("work"); }
    QString out() const { return folder_.filePath("out"); }
    QString file() const { return out() + '/' + GetParam().file; }
    QByteArray content() const
    {
        QFile found(file());
        return found.open(QIODevice::ReadOnly) ? found.readAll() : QByteArray();
    }
    void layOld() const
    {
        QDir(out()).removeRecursively();
        QDir().mkpath(out());
        QDir(work()).removeRecursively();
        ASSERT_TRUE(layFiles(GetParam().scenario, work(), variables_));
        QFile old(file());
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("old");
    }
    FaultRun run(int at, int error) const
    {
        QStringList words = {"--batch", folder_.filePath("script")};
        for (const char* name : {"FOLDER", "PROJECT", "COMMON", "OUT"})
            words << "--var" << QString(name) + '=' + variables_[name];
        return runWithFault(QCoreApplication::applicationDirPath() + "/terva", words, out(), at, error);
    }

    TestDatabase database_;
    QTemporaryDir folder_;
    Variables variables_;
};

} // namespace

TEST_P(EveryWriter, KeepsTheOldFileWhicheverCallFails)
{
    layOld();
    ASSERT_EQ(run(mostCalls, ENOSPC).exitCode, 0) << "undisturbed";
    const int whole = content().size();
    ASSERT_GT(whole, 30);
    int at = 0;
    for (bool reached = true; reached;) {
        ASSERT_LT(++at, mostCalls) << "it never ends";
        layOld();
        const FaultRun failed = run(at, ENOSPC);
        reached = failed.reached;
        const QByteArray found = content();
        EXPECT_TRUE(found == "old" || found.size() > whole * 9 / 10) << "call " << at << ": " << found.size();
        EXPECT_TRUE(found != "old" || failed.exitCode != 0) << "call " << at << " is not told";
        EXPECT_EQ(QDir(out()).entryList(QDir::Files | QDir::Hidden), QStringList(GetParam().file))
            << "call " << at << " leaves something beside";
    }
    EXPECT_GE(at, 4);
}

INSTANTIATE_TEST_SUITE_P(All, EveryWriter, ::testing::ValuesIn(writers),
                         [](const auto& writer) { return std::string(writer.param.name); });
