// Very large files in the window of an import: seconds, growth, memory, and for how long the window
// stood still.
#include "exchange/forms/measure_import_dialog.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <script/modal_driver.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <ctime>

namespace {

constexpr int sizes[] = {100000, 1000000};
constexpr double growthBound = 13.0;  // of the processor's seconds, ten times the rows
constexpr double bytesBound = 1500.0; // a row, at the peak
constexpr double stillBound = 1.0;    // seconds in which the window did not answer

// The longest stretch in which no event was served.
class Stillness {
public:
    Stillness()
    {
        timer_.setInterval(5);
        QObject::connect(&timer_, &QTimer::timeout, [this] { look(); });
        clock_.start();
        timer_.start();
    }
    double longest()
    {
        look();
        return double(longest_) / 1000.0;
    }

private:
    void look()
    {
        longest_ = qMax(longest_, clock_.elapsed());
        clock_.restart();
    }

    QTimer timer_;
    QElapsedTimer clock_;
    qint64 longest_ = 0;
};

double processorSeconds() { return double(std::clock()) / CLOCKS_PER_SEC; }

// The highest so far; the file's numbers are kibibytes.
double peakBytes()
{
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        return 0.0;
    const QByteArray text = status.readAll();
    const int at = text.indexOf("VmHWM:") + 6;
    return text.mid(at, text.indexOf("kB", at) - at).trimmed().toDouble() * 1024.0;
}

void writeRows(const QString& path, int rows)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return;
    QByteArray bytes = "Имя;Дата;Отметка;SN прибора\n";
    for (int row = 0; row < rows; ++row) {
        bytes += "М-" + QByteArray::number(row % 50) + ";15.05.2021;" + QByteArray::number(10.0 + row * 1e-6, 'f', 6)
            + ";SN-1\n";
        if (bytes.size() > (1 << 20)) {
            file.write(bytes);
            bytes.clear();
        }
    }
    file.write(bytes);
}

struct Reading {
    double seconds = 0.0;
    double bytes = 0.0;
    double still = 0.0;
    int rows = 0;
};

Reading read(const QString& path, int rows)
{
    MeasureImportDialog dialog(*importFamily(FamilyKey::Dm));
    dialog.show();
    ModalDriver driver;
    driver.expect("Открыть файл").files({path});
    const double before = peakBytes();
    const double start = processorSeconds();
    Stillness still;
    dialog.findChild<QPushButton*>("OpenFileBtn")->click();
    const double spent = processorSeconds() - start;
    return {spent, (peakBytes() - before) / rows, still.longest(),
            dialog.findChild<QTableView*>("measuresView")->model()->rowCount()};
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    PositionSession database;
    database->exec(
        "insert into dm_elements (element_name, state_id, position_id) select 'М-' || i, 'exist', 7 from "
        "generate_series(0, 49) i; insert into cycles (cycle_id, number, date_start, date_end) values (1, 1, "
        "'2021-05-01', '2021-05-31'); insert into devices (name, serial) values ('Нивелир', 'SN-1')");
    const ConsoleCapture console;
    const QTemporaryDir folder;
    const QString path = folder.filePath("rows.csv");
    double before = 0.0;
    bool kept = true;
    for (const int rows : sizes) {
        writeRows(path, rows);
        const Reading reading = read(path, rows);
        const double growth = before > 0.0 ? reading.seconds / before : 10.0;
        before = reading.seconds;
        const bool good =
            reading.rows == rows && growth <= growthBound && reading.bytes <= bytesBound && reading.still <= stillBound;
        kept = kept && good;
        std::printf("%8d rows (%d read): %.2f s, %.1f times those of a tenth, %.0f bytes a row at the peak, the window "
                    "stood still for %.2f s at most%s\n",
                    rows, reading.rows, reading.seconds, growth, reading.bytes, reading.still, good ? "" : "   MISSED");
        std::fflush(stdout);
    }
    return kept ? 0 : 1;
}
