#include "command_table.h"

#include <QCoreApplication>
#include <QFile>

namespace {

const struct {
    const char *menu, *command, *caption, *icon, *bar, *tip, *keys;
} kHostRows[] = {
    {"Правка", "U", "&Отменить", "undo", "Правка", "Отменить последнее изменение чертежа", "Ctrl+Z"},
    {"Правка", "REDO", "&Вернуть", "redo", "Правка", "Вернуть отменённое", "Ctrl+Shift+Z"},
    {"Правка", "", "", "", "", "", ""},
    {"Правка", "CUTCLIP", "В&ырезать", "cut", "", "Убрать выбранное в буфер обмена", "Ctrl+X"},
    {"Правка", "COPYCLIP", "&Копировать", "copy", "", "Скопировать выбранное в буфер обмена", "Ctrl+C"},
    {"Правка", "PASTECLIP", "Вст&авить", "paste", "", "Вставить из буфера в указанную точку", "Ctrl+V"},
    {"Правка", "PASTEORIG", "Вставить на &место", "paste", "", "Вставить из буфера туда, откуда взято", "Ctrl+Shift+V"},
    {"Правка", "ERASE", "&Удалить", "delete", "Правка", "Удалить выбранные объекты", "Del"},
    {"Правка", "", "", "", "", "", ""},
    {"Правка", "SELECTALL", "Выбрать в&сё", "select-all", "", "Выбрать все объекты чертежа", "Ctrl+A"},
    {"Правка", "QSELECT", "&Быстрый выбор…", "quick-select", "", "Выбрать по блоку, слою, атрибуту или классу", ""},
    {"Правка", "", "", "", "", "", ""},
    {"Правка", "MOVE", "&Перенести", "move", "Правка", "Перенести выбранное", ""},
    {"Правка", "COPY", "Скопировать со сдви&гом", "copy", "Правка", "Поставить копии выбранного", ""},
    {"Правка", "ROTATE", "Поверну&ть", "rotate", "Правка", "Повернуть выбранное вокруг точки", ""},
    {"Правка", "SCALE", "Мас&штабировать", "scale", "", "Увеличить или уменьшить выбранное", ""},
    {"Правка", "MIRROR", "&Зеркало", "mirror", "", "Отразить выбранное относительно оси", ""},
    {"Правка", "OFFSET", "По&добие", "offset", "", "Провести параллельную линию", ""},
    {"Правка", "EXPLODE", "Рас&членить", "explode", "", "Разобрать блок или полилинию на части", ""},
    {"Чертёж/По&строить", "LINE", "&Отрезок", "line", "Чертёж", "Начертить отрезки", ""},
    {"Чертёж/По&строить", "PLINE", "&Полилиния", "polyline", "Чертёж", "Начертить ломаную, например границу карты", ""},
    {"Чертёж/По&строить", "CIRCLE", "О&кружность", "circle", "Чертёж", "Начертить окружность", ""},
    {"Чертёж/По&строить", "TEXT", "&Текст", "text", "Чертёж", "Написать текст", ""},
    {"Чертёж/&Измерить", "DIST", "&Расстояние", "distance", "Чертёж", "Расстояние и направление между точками", ""},
    {"Чертёж/&Измерить", "ID", "&Координаты точки", "coordinates", "", "Координаты указанной точки", ""},
    {"Чертёж/&Измерить", "AREA", "&Площадь", "area", "", "Площадь и периметр", ""},
    {"Чертёж", "", "", "", "", "", ""},
};

} // namespace

QVector<MenuRow> parseMenuTable(const QString& text)
{
    QVector<MenuRow> rows;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QStringList parts = line.trimmed().split(QLatin1Char(';'));
        if (parts.size() < 3 || parts[0].isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        if (parts[1] == QLatin1String("-"))
            rows.append({parts[0], {}, {}, {}, {}, {}, {}});
        else if (!parts[1].isEmpty() && !parts[2].isEmpty())
            rows.append({parts[0], parts[1], parts[2], parts.value(3), parts.value(4), parts.value(5), {}});
    }
    return rows;
}

QVector<MenuRow> readMenuTable()
{
    QFile file(QCoreApplication::applicationDirPath() + QStringLiteral("/config/menu.csv"));
    return file.open(QIODevice::ReadOnly) ? parseMenuTable(QString::fromUtf8(file.readAll())) : QVector<MenuRow>();
}

QVector<MenuRow> hostMenuTable()
{
    QVector<MenuRow> rows;
    const auto text = [](const char* words) { return QString::fromUtf8(words); };
    for (const auto& row : kHostRows)
        rows.append({text(row.menu), text(row.command), text(row.caption), text(row.icon), text(row.bar), text(row.tip),
                     text(row.keys)});
    return rows;
}
