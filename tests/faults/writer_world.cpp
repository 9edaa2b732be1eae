#include "writer_world.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

void PrintTo(const Writer& writer, std::ostream* stream) { *stream << writer.name; }

const std::vector<Writer>& writers()
{
    static const std::vector<Writer> rows = {
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
    return rows;
}

namespace {

void lay(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path;
    file.write(bytes);
}

} // namespace

WriterWorld::WriterWorld(const QString& scenario, const QString& script) : scenario_(scenario)
{
    variables_ = {
        {"HOST", TestServer::host()},
        {"PORT", TestServer::port()},
        {"USER", TestServer::user()},
        {"PASSWORD64", QString::fromLatin1(TestServer::password().toUtf8().toBase64())},
        {"DATABASE", database_.name()},
        {"FOLDER", work()},
        {"PROJECT", work() + "/project.terva"},
        {"COMMON", scenarioFolder("common")},
        {"SCENARIO", scenarioFolder(scenario)},
        {"OUT", out()},
        {"PROGRAM", QCoreApplication::applicationDirPath()},
    };
    database_.exec(readText(scenarioFolder("common") + "/base.sql", {}));
    const QString before = readStatements(scenarioFolder(scenario) + "/before.sql", variables_);
    if (!before.isEmpty())
        database_.exec(before);
    lay(start(), "# here it begins\n");
    lay(folder_.filePath("script"),
        ("include " + scenarioFolder("common") + "/load.script\ninclude " + start() + '\n' + script).toUtf8());
}

void WriterWorld::layOld()
{
    for (const QString& folder : {out(), work()}) {
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
    }
    EXPECT_TRUE(layFiles(scenario_, work(), variables_));
}

void WriterWorld::layOld(const QString& file)
{
    layOld();
    lay(out() + '/' + file, "old");
}

QByteArray WriterWorld::content(const QString& file) const
{
    QFile found(out() + '/' + file);
    return found.open(QIODevice::ReadOnly) ? found.readAll() : QByteArray();
}

QStringList WriterWorld::results() const { return QDir(out()).entryList(QDir::Files | QDir::Hidden); }

QString WriterWorld::program() { return QCoreApplication::applicationDirPath() + "/terva"; }

QStringList WriterWorld::arguments() const
{
    QStringList words = {"--batch", folder_.filePath("script")};
    for (const char* name : {"FOLDER", "PROJECT", "COMMON", "SCENARIO", "OUT"})
        words << "--var" << QString(name) + '=' + variables_[name];
    return words;
}
