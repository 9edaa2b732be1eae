// Very large files in the window of an import: seconds, growth, memory, and for how long the window
// stood still while the file was read, a value given to all rows, and the table looked through.
#include "exchange/forms/measure_import_dialog.h"
#include "spent_time.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <script/modal_driver.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
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
        timer_.start();
    }
    SpentTime longest()
    {
        look();
        return longest_;
    }

private:
    void look()
    {
        const SpentTime now = timerOfStretch_.spent();
        const SpentTime stretch = {now.clock - before_.clock, now.own - before_.own, now.server - before_.server};
        if (stretch.judged() > longest_.judged())
            longest_ = stretch;
        before_ = now;
    }

    QTimer timer_;
    SpentTimer timerOfStretch_;
    SpentTime before_;
    SpentTime longest_;
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
    SpentTime still;
    SpentTime stillLater;
    int rows = 0;
};

// What a user does next.
void useTable(MeasureImportDialog& dialog)
{
    dialog.findChild<QComboBox*>("DeviceCombo")->setCurrentIndex(1);
    dialog.findChild<QPushButton*>("BTNToolToAll")->click();
    auto* view = dialog.findChild<QTableView*>("measuresView");
    for (const double part : {0.5, 1.0, 0.0}) {
        view->verticalScrollBar()->setValue(int(part * view->verticalScrollBar()->maximum()));
        QApplication::processEvents();
    }
    view->scrollToBottom();
    QApplication::processEvents();
    dialog.findChild<QTabWidget*>()->setCurrentIndex(1);
    QApplication::processEvents();
    view = dialog.findChild<QTableView*>("RawInput");
    view->scrollToBottom();
    QApplication::processEvents();
}

Reading read(const QString& path, int rows)
{
    MeasureImportDialog dialog(*importFamily(FamilyKey::Dm));
    dialog.show();
    ModalDriver driver;
    driver.expect("Открыть файл").files({path});
    const double before = peakBytes();
    const double start = processorSeconds();
    Reading reading;
    {
        Stillness still;
        dialog.findChild<QPushButton*>("OpenFileBtn")->click();
        reading.seconds = processorSeconds() - start;
        reading.still = still.longest();
    }
    reading.bytes = (peakBytes() - before) / rows;
    reading.rows = dialog.findChild<QTableView*>("measuresView")->model()->rowCount();
    Stillness still;
    useTable(dialog);
    reading.stillLater = still.longest();
    return reading;
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
        const bool good = reading.rows == rows && growth <= growthBound && reading.bytes <= bytesBound
            && reading.still.judged() <= stillBound && reading.stillLater.judged() <= stillBound;
        kept = kept && good;
        std::printf("%8d rows (%d read): %.2f s, %.1f times those of a tenth, %.0f bytes a row at the peak\n", rows,
                    reading.rows, reading.seconds, growth, reading.bytes);
        for (const auto& [when, still] : {std::make_pair("is read", reading.still), {"is used", reading.stillLater}})
            std::printf("         the window stands still while it %s for %.2f s at most, of which %.2f of the "
                        "processor\n",
                        when, still.clock, still.own + still.server);
        std::printf("%s", good ? "" : "   MISSED\n");
        std::fflush(stdout);
    }
    return kept ? 0 : 1;
}
