// Real logs through the dialog: what is stored equals the file. And files that
// are no logs at all: an empty table.
#include "exchange/forms/dialog_fixture.h"

#include "base/text.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableView>
#include <QTextCodec>
#include <QTextStream>
#include <random>

namespace {

struct RealFile {
    const char* folder;
    const char* name;
    int rows;     // of data
    int profiles; // with a reading and a temperature of the air
    int stored;   // of different wells or dates
};

QString dataFolder(const QString& folder)
{
    return folder == "tete-rousse" ? QStringLiteral(TERVA_SOURCE_DIR "/demo/boreholes")
                                   : QStringLiteral(TERVA_SOURCE_DIR "/tests/data/boreholes/") + folder;
}

// What must stand in the database: by well and day, the air and the profile. The
// file is read here by rules of its own: plain cells, a comma for a point.
struct Expected {
    int rows = 0, profiles = 0;
    QMap<QPair<QString, QDate>, QPair<QString, QString>> stored;
    QSet<QDate> days;
};

QString number(QString cell) { return fixed(cell.replace(',', '.').toDouble(), 2); }

Expected expectedOf(const QString& path, bool windows1251)
{
    Expected expected;
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QTextStream stream(&file);
    stream.setCodec(windows1251 ? "Windows-1251" : "UTF-8");
    QStringList header;
    while (!stream.atEnd()) {
        const QStringList cells = stream.readLine().split(';');
        if (cells[0] == "Имя") {
            header = cells;
            continue;
        }
        ++expected.rows;
        QStringList pairs;
        for (int i = 5; i < cells.size(); ++i) {
            if (!cells[i].isEmpty())
                pairs << number(QString(header[i]).remove('-')) + ':' + number(cells[i]);
        }
        const QDate day = QDate::fromString(cells[2], "dd.MM.yyyy");
        expected.days << day;
        if (cells[4].isEmpty() || pairs.isEmpty())
            continue;
        ++expected.profiles;
        expected.stored[{cells[0], day}] = {number(cells[4]), pairs.join('|')};
    }
    return expected;
}

class RealLogs : public ImportDialogs, public ::testing::WithParamInterface<RealFile> {
protected:
    void makeProject(const QString& folder, const QSet<QDate>& days)
    {
        database->exec("delete from ts_elements; delete from cycles; delete from devices");
        database->exec("insert into devices (serial) values ('SN-0001')");
        QFile elements(folder + "/elements.csv");
        ASSERT_TRUE(elements.open(QIODevice::ReadOnly));
        for (const QString& line : QString::fromUtf8(elements.readAll()).split('\n', Qt::SkipEmptyParts)) {
            const QStringList cells = line.trimmed().split(';');
            database->exec(QString("insert into ts_elements (element_name, state_id, position_id, x, y, z, h) values "
                                   "('%1', 'exist', 7, %2, %3, %4, %5)")
                               .arg(cells[0], cells[1], cells[2], cells[3], cells[4]));
        }
        QStringList cycles;
        for (const QDate& day : days) {
            const QString text = day.toString("yyyy-MM-dd");
            cycles << QString("(%1, '%2', '%2')").arg(cycles.size() + 1).arg(text);
        }
        database->exec("insert into cycles (number, date_start, date_end) values " + cycles.join(", "));
    }
};

} // namespace

TEST_P(RealLogs, AreStoredAsTheyStandInTheFile)
{
    const RealFile& file = GetParam();
    const QString folder = dataFolder(file.folder);
    const QString path = folder + '/' + file.name;
    const bool windows1251 = QString(file.name).contains("1251");
    const Expected expected = expectedOf(path, windows1251);
    ASSERT_EQ(expected.rows, file.rows);
    ASSERT_EQ(expected.profiles, file.profiles);
    ASSERT_EQ(expected.stored.size(), file.stored);
    ASSERT_NO_FATAL_FAILURE(makeProject(folder, expected.days));

    openWells(path)
        .set(windows1251 ? "EncodingCP1251" : "EncodingUTF8", "on")
        .step("rows", {"measuresView", QString::number(file.rows)})
        .set("OperatorCombo", "data:1")
        .press("BTNOperatorToAll")
        .check("SummaryLabel",
               QString("Всего: %1 | Без данных: %2 | Верифицированных: %3 (из них валидных 0, с "
                       "предупреждениями 0, с ошибками %3)")
                   .arg(file.rows)
                   .arg(file.rows - file.profiles)
                   .arg(file.profiles))
        .press("ImportBtn");
    ExpectedWindow box = driver.expect("Внимание");
    box.textContains("содержит невалидные данные").press("Да для всех");
    if (file.stored < file.profiles)
        driver.expect("Внимание").textContains("уже содержит измерения").press("Да для всех");
    box.press("CloseBtn");
    TSImportCmdDialog().exec();
    ASSERT_TRUE(driver.done()) << driver.report().toStdString();

    QMap<QPair<QString, QDate>, QPair<QString, QString>> stored;
    for (const QStringList& row :
         database->rows("select element_name, date, t_vozd::numeric(8,2), meas from ts_meas join ts_elements using "
                        "(element_id) join cycles using (cycle_id) where date = date_start"))
        stored[{row[0], QDate::fromString(row[1], Qt::ISODate)}] = {row[2], row[3]};
    EXPECT_EQ(stored.size(), expected.stored.size());
    EXPECT_EQ(database->value("select count(*) from ts_meas").toInt(), file.stored);
    for (auto row = expected.stored.begin(); row != expected.stored.end(); ++row)
        EXPECT_EQ(stored.value(row.key()), row.value()) << row.key().first.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Boreholes, RealLogs,
                         ::testing::Values(RealFile{"sedov", "terva.csv", 50, 50, 49},
                                           RealFile{"sedov", "terva_cp1251.csv", 50, 50, 49},
                                           RealFile{"sedov", "terva_negative_depths.csv", 16, 16, 16},
                                           RealFile{"storglaciaren", "terva.csv", 181, 181, 181},
                                           RealFile{"corvatsch", "terva.csv", 36, 36, 36},
                                           RealFile{"tete-rousse", "terva.csv", 41, 41, 41},
                                           RealFile{"jarvis-logger", "terva.csv", 752, 752, 752},
                                           RealFile{"yakutsk", "terva.csv", 86, 75, 75},
                                           RealFile{"yakutsk", "terva_sentinel.csv", 86, 86, 86}));

TEST_F(ImportDialogs, FilesThatAreNoLogsGiveAnEmptyTable)
{
    QByteArray junk;
    std::mt19937 random(3);
    for (int i = 0; i < 200000; ++i)
        junk += char(random());
    const QByteArray header = wellFile.left(wellFile.indexOf('\n') + 1);
    const QByteArray rows = wellFile.mid(header.size());
    const QPair<const char*, QByteArray> files[] = {
        {"nothing", ""},
        {"another encoding", QTextCodec::codecForName("Windows-1251")->fromUnicode(QString::fromUtf8(wellFile))},
        {"UTF-16", QTextCodec::codecForName("UTF-16")->fromUnicode(QString::fromUtf8(wellFile))},
        {"no header", rows},
        {"only a header", header},
        {"a header behind the rows", rows + header},
        {"half a header", header.left(40)},
        {"rows too short", header + "Т-1;SN-1;05.01.2021\nТ-2\n;;;;;;;\n\n"},
        {"binary junk", junk},
        {"a line of 50 MB", QByteArray(50 << 20, ';')},
        {"a header of 50 MB", header.trimmed() + QByteArray(50 << 20, ';') + '\n' + rows},
        {"line ends only", QByteArray(100000, '\n')},
    };
    TSImportCmdDialog dialog;
    dialog.show();
    dialog.findChild<QComboBox*>("ImportTemplate")->setCurrentIndex(2);
    auto* view = dialog.findChild<QTableView*>("measuresView");
    auto* name = dialog.findChild<QLineEdit*>("FileName");
    for (const auto& [what, bytes] : files) {
        name->setText(write(bytes));
        dialog.findChild<QRadioButton*>("EncodingCP1251")->setChecked(true);
        dialog.findChild<QRadioButton*>("EncodingUTF8")->setChecked(true);
        EXPECT_EQ(view->model()->rowCount(), 0) << what;
        EXPECT_EQ(dialog.findChild<QLabel*>("SummaryLabel")->text(), "Всего: 0 | Без данных: 0 | Верифицированных: 0")
            << what;
    }
    name->setText(write("\xEF\xBB\xBF" + header + "Т-1;SN-1;05.01.2021;12:00;1;,5;1,5;\n" + header + rows));
    dialog.findChild<QRadioButton*>("EncodingCP1251")->setChecked(true);
    dialog.findChild<QRadioButton*>("EncodingUTF8")->setChecked(true);
    EXPECT_EQ(view->model()->rowCount(), 4) << "the dialog has come through all of them";
    name->setText("/nowhere/file.csv");
    dialog.findChild<QRadioButton*>("SeparatorTab")->setChecked(true);
    EXPECT_EQ(view->model()->rowCount(), 0) << "a file that is gone";
}
