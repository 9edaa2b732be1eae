#include "formkit/table_items.h"

#include "files/written_file.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "formkit/boxes.h"
#include "formkit/file_questions.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QHeaderView>
#include <cmath>

namespace formkit {

namespace {

constexpr int kNumberRole = Qt::UserRole + 100;
constexpr int kNumberType = QTableWidgetItem::UserType + 1;
constexpr auto kReadOnly = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
const QString kSuffix = QStringLiteral(".csv");
// Without it spreadsheets take the text for one of the local encoding.
const QByteArray kByteOrderMark = "\xEF\xBB\xBF";

class NumberItem final : public QTableWidgetItem {
public:
    explicit NumberItem(const QString& text) : QTableWidgetItem(text, kNumberType) { }
    bool operator<(const QTableWidgetItem& other) const override
    {
        return data(kNumberRole).toDouble() < other.data(kNumberRole).toDouble();
    }
};

// The point of a date in a name is no suffix.
QString csvPath(QWidget* parent, const QString& path)
{
    if (path.isEmpty() || path.endsWith(kSuffix, Qt::CaseInsensitive))
        return path;
    const QString whole = path + kSuffix;
    const bool isThere = QFileInfo::exists(whole);
    return !isThere || confirm(parent, fill("Файл '%1' уже существует.\nЗаменить его?", whole)) ? whole : QString();
}

} // namespace

QTableWidgetItem* textItem(const QString& text)
{
    auto* item = new QTableWidgetItem(text);
    item->setFlags(kReadOnly);
    return item;
}

QTableWidgetItem* numberItem(double number, int decimals, const QString& missing)
{
    const bool known = std::isfinite(number);
    auto* item = new NumberItem(known ? fixed(number, decimals) : missing);
    item->setData(kNumberRole, known ? number : -HUGE_VAL);
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    item->setFlags(kReadOnly);
    return item;
}

QTableWidgetItem* figureItem(const QString& text)
{
    auto* item = new QTableWidgetItem(text, kNumberType);
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    item->setFlags(kReadOnly);
    return item;
}

QTableWidgetItem* checkItem(bool on)
{
    auto* item = new QTableWidgetItem;
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    item->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    return item;
}

void fitColumns(QTableWidget* table)
{
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true);
}

// A title may stand in two lines on the screen; in a file a line is a row.
static QString inOneLine(const QString& title)
{
    QStringList lines = title.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = lines.size() > 1 ? line.trimmed() : line;
    return lines.join(QLatin1Char(' '));
}

QString tableText(const QTableWidget* table, QChar separator, TextPart parts)
{
    const auto textOf = [](const QTableWidgetItem* item) { return item ? item->text() : QString(); };
    const auto cellText = [&](const QTableWidgetItem* item) {
        const bool isNumber = parts & DecimalComma && item && item->type() == kNumberType;
        return isNumber ? item->text().replace(QLatin1Char('.'), QLatin1Char(',')) : textOf(item);
    };
    QString text;
    const auto addLine = [&](const QStringList& cells) { text += cells.join(separator) + QLatin1Char('\n'); };
    if (parts & WithTitles) {
        QStringList titles;
        for (int column = 0; column < table->columnCount(); ++column)
            titles << inOneLine(textOf(table->horizontalHeaderItem(column)));
        addLine(parts & WithRowTitles ? QStringList(QString()) + titles : titles);
    }
    for (int row = 0; row < table->rowCount(); ++row) {
        QStringList cells;
        if (parts & WithRowTitles)
            cells << textOf(table->verticalHeaderItem(row));
        for (int column = 0; column < table->columnCount(); ++column)
            cells << cellText(table->item(row, column));
        addLine(cells);
    }
    return text;
}

void exportCsv(QWidget* parent, const QTableWidget* table, TextPart parts, const QString& title, const QString& filter)
{
    const QString path = csvPath(parent, askFileToSave(parent, {title, filter}));
    if (path.isEmpty())
        return;
    QString problem;
    if (!saveFile(path, kByteOrderMark + tableText(table, QLatin1Char(';'), parts).toUtf8(), &problem))
        warn(parent, QStringLiteral("Не удалось записать файл ") + path + QStringLiteral(": ") + problem);
}

void copyTable(const QTableWidget* table, TextPart parts) { copyText(tableText(table, QLatin1Char('\t'), parts)); }

void copyText(const QString& text) { QApplication::clipboard()->setText(text); }

} // namespace formkit
