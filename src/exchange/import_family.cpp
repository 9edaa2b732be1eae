#include "exchange/import_family.h"

namespace {

const QString dates = QStringLiteral("dd.MM.yyyy;;dd.MM.yy");
const QString wellDates = QStringLiteral("dd.MM.yy;;dd.MM.yyyy");
// No delivered format of numbers has a column of its own for the time.
const TemplateField noTime = {QStringLiteral("Time"), QStringLiteral("hh:mm:ss"), -1};

TemplateField column(const char* caption, int index) { return {QString::fromUtf8(caption), QString(), index}; }

// The only format of a family of numbers: name, date, values, serial.
QVector<ImportTemplate> numberTemplate(const char* value, const char* second, int serial, int lastRequired)
{
    ImportTemplate format;
    format.filter = QStringLiteral("По умолчанию(*.csv)");
    format.name = column("Имя", 0);
    format.date = {QStringLiteral("Дата"), dates, 1};
    format.time = noTime;
    format.value = column(value, 2);
    format.second = second ? column(second, 3) : TemplateField();
    format.serial = column("SN прибора", serial);
    format.lastRequired = lastRequired;
    return {format};
}

ImportTemplate wellTemplate(const char* filter, int lastRequired, ProfileColumns profile)
{
    ImportTemplate format;
    format.filter = QString::fromUtf8(filter);
    format.lastRequired = lastRequired;
    format.holdsProfile = true;
    format.profile = profile;
    return format;
}

ImportTemplate englishLogger()
{
    ImportTemplate format = wellTemplate("Термостатика CSV(*.csv)", 12, {13, 1});
    format.name = column("Label", 0);
    format.value = column("Temp", 1);
    format.date = {QStringLiteral("Date"), wellDates, 4};
    format.time = {QStringLiteral("Time"), QStringLiteral("hh:mm:ss;;hh:mm"), 5};
    format.serial = column("SN", 8);
    return format;
}

// Without the temperature of the air.
ImportTemplate russianLogger()
{
    ImportTemplate format = wellTemplate("РусГеоТех CSV(*.csv)", 3, {4, 2});
    format.name = column("№ Объекта", 2);
    format.date = {QStringLiteral("Дата замера"), wellDates, 0};
    format.time = {QStringLiteral("Время замера"), QStringLiteral("hh:mm;;hh:mm:ss"), 1};
    format.serial = column("Зав.№ косы", 3);
    return format;
}

// The format in which the system itself writes profiles.
ImportTemplate ownFormat()
{
    ImportTemplate format = wellTemplate("Terva CSV(*.csv)", 4, {5, 0});
    format.name = column("Имя", 0);
    format.serial = column("Серийный номер", 1);
    format.date = {QStringLiteral("Дата замера"), wellDates, 2};
    format.time = {QStringLiteral("Время замера"), QStringLiteral("hh:mm;;hh:mm:ss"), 3};
    format.value = column("Темп.возд", 4);
    return format;
}

QVector<ImportColumn> columnsOf(const char* status, const QVector<ImportColumn>& own)
{
    QVector<ImportColumn> columns = {
        {ImportContent::Status, QString::fromUtf8(status)},
        {ImportContent::Element, QStringLiteral("Имя элемента")},
        {ImportContent::Cycle, QStringLiteral("Цикл измерений")},
        {ImportContent::Device, QStringLiteral("Прибор")},
        {ImportContent::Performer, QStringLiteral("Исполнитель")},
    };
    return columns + own;
}

} // namespace

const FamilyTable<ImportFamily, measuredFamilyCount>& importFamilies()
{
    using C = ImportContent;
    static const FamilyTable<ImportFamily, measuredFamilyCount> rows = {
        {FamilyKey::Dm, "DMImportCmdDialog", "Импорт измерений деформационных марок",
         numberTemplate("Отметка", nullptr, 3, 3),
         columnsOf("Статус", {{C::Value, "Значение"}, {C::Validity, "Валидность"}}), "Деформационная марка ",
         "\nИмпорт измерений для деформационной марки %1 завершен",
         "\nОшибка импорта измерений для деформационной марки %1", &settlementCheck(), 3},
        {FamilyKey::Rp, "RPImportCmdDialog", "Импорт измерений реперов", numberTemplate("Отметка", "Точность", 4, 4),
         columnsOf("Импорт", {{C::Value, "Измерение"}, {C::Second, "Точность"}}), "Репер ",
         "\nИмпорт измерений для репера %1 завершен", "\nОшибка импорта измерений для репера %1", nullptr, 1},
        {FamilyKey::Ggs, "GGSImportCmdDialog", "Импорт измерений гидрогеологических скважин",
         numberTemplate("Уровень ГВ", nullptr, 3, 3), columnsOf("Импорт", {{C::Value, "Уровень воды"}}),
         "Гидрогеологическая скважина ", "\nИмпорт измерений для гидрогеологической скважины %1 завершен",
         "\nОшибка импорта измерений для гидрогеологической скважины %1", nullptr, 1},
        {FamilyKey::Tsg, "TSGImportCmdDialog", "Импорт измерений термостабилизационных элементов.",
         numberTemplate("Температура воздуха", "Температура конденсатора", 4, 4),
         columnsOf("Импорт", {{C::Value, "Температура\n воздуха"}, {C::Second, "Температура\n теплообменника"}}),
         "Термостабилизационный элемент ", "\nИмпорт измерений для термостабилизационного элемента %1 завершен",
         "\nОшибка импорта измерений для термостабилизационного элемента %1", nullptr, 1},
        // A row may end before its serial number, which then is not found.
        {FamilyKey::Tss, "TSSImportCmdDialog", "Импорт измерений точек снегомерной съемки",
         numberTemplate("Плотность", "Высота", 4, 3),
         columnsOf("Импорт", {{C::Value, "Плотность снега"}, {C::Second, "Высота снега"}}), "Точка снегомерной съемки ",
         "\nИмпорт измерений для точки снегомерной съемки %1 завершен",
         "\nОшибка импорта измерений для точки снегомерной съемки %1", nullptr, 1},
        // The line of success repeats the deformation marks' words; users know it so.
        {FamilyKey::Ts,
         "TSImportCmdDialog",
         "Импорт измерений термоскважин",
         {englishLogger(), russianLogger(), ownFormat()},
         columnsOf("Статус",
                   {{C::Value, "Температура\n воздуха"}, {C::Profile, "Данные"}, {C::Validity, "Валидность"}}),
         "Термоскважина ",
         "\nИмпорт измерений для деформационной марки %1 завершен",
         "\nОшибка импорта измерений термоскважины  %1",
         &profileCheck(),
         1},
    };
    return rows;
}

const ImportFamily* importFamily(FamilyKey family) { return importFamilies().find(family); }
