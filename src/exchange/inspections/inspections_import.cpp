#include "exchange/inspections/inspections_exchange.h"

#include "base/placeholders.h"
#include "exchange/inspections/gzip_file.h"
#include "exchange/inspections/inspection_record.h"
#include "exchange/inspections/json_rows.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QtEndian>

namespace {

sql::Parameter binaryInteger(int number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(qint32(number), bytes.data());
    return sql::binary(bytes);
}

bool readWhole(const QString& path, QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        say(fill("\nОшибка: Не удалось открыть файл %1\n", path));
        return false;
    }
    bytes = file.read(mostInspectionBytes + 1);
    if (file.error() == QFileDevice::NoError && bytes.size() <= mostInspectionBytes)
        return true;
    if (file.error() != QFileDevice::NoError)
        say(fill("\nОшибка: Файл %1 прочитан не до конца: %2\n", path, file.errorString()));
    else
        say(fill("\nОшибка: Файл %1 больше 256 МБ. Разделите его на части.\n", path));
    return false;
}

bool readPacked(const QString& path, QByteArray& bytes)
{
    const GzipOutcome outcome = readGzip(path, mostInspectionBytes, bytes);
    switch (outcome.state) {
    case GzipState::Done: return true;
    case GzipState::TooLarge:
        say(fill("\nОшибка: Файл %1 больше 256 МБ. Разделите его на части.\n", path));
        return false;
    case GzipState::NotOpened: say(fill("\nОшибка: Не удалось открыть файл %1\n", path)); return false;
    default: say(fill("\nОшибка: Файл %1 прочитан не до конца: %2\n", path, outcome.problem)); return false;
    }
}

bool readDocument(const QString& path, QJsonObject& groups)
{
    QByteArray bytes;
    const bool isPacked = QFileInfo(path).suffix().toLower() == QLatin1String("gz");
    if (!(isPacked ? readPacked(path, bytes) : readWhole(path, bytes)))
        return false;
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    groups = document.object();
    if (!document.isObject())
        say("\nОшибка: Некорректный формат JSON или файл пуст.\n");
    return document.isObject();
}

class Import {
public:
    Import(int cycleId, const ExchangeProgress& progress) : cycleId_(cycleId), progress_(progress) { }

    InspectionsImport run(const QJsonObject& groups)
    {
        for (const QJsonValue& group : groups)
            total_ += group.toArray().size();
        bool goesOn = true;
        for (auto group = groups.begin(); goesOn && group != groups.end(); ++group) {
            if (group.value().isArray())
                goesOn = importGroup(group.key(), group.value().toArray());
        }
        if (!goesOn)
            say("\nИмпорт прерван: записанное до этого остается в базе.\n");
        say(fill("\nИмпорт завершен. Успешно вставлено записей: %1, Ошибок: %2\n", counts_.written, counts_.errors));
        return counts_;
    }

private:
    bool importGroup(const QString& group, const QJsonArray& records)
    {
        say(fill("\nИмпорт группы: %1 (%2 записей)\n", group, records.size()));
        for (const QJsonValue& record : records) {
            if (progress_ && !progress_(done_, total_))
                return false;
            importRecord(group, ExchangedRecord(group, record.toObject(), cycleId_));
            ++done_;
        }
        return true;
    }

    void importRecord(const QString& group, const ExchangedRecord& record)
    {
        const sql::Result found = session().run(record.find());
        if (!found.isTuples()) // a second inspection would stand beside the first
            return tellError(group, record, found);
        const sql::Result written = session().run(found.hasRow() ? record.update(found.toInt(0, 0)) : record.insert());
        if (!written.isTuples())
            return tellError(group, record, written);
        ++counts_.written;
        if (record.tellsElement())
            updateElement(record);
        if (record.hasPhoto())
            storePhoto(record, written.toInt(0, 0));
    }

    void tellError(const QString& group, const ExchangedRecord& record, const sql::Result& refused)
    {
        say(fill(" Ошибка в %1 (element_id: %2): %3\n", group, record.elementId(), refused.errorMessage()));
        ++counts_.errors;
    }

    static void updateElement(const ExchangedRecord& record)
    {
        const sql::Result updated = session().run(record.updateElement());
        if (!updated.isCommand())
            say(fill(" Ошибка обновления ts_elements (element_id: %1): %2\n", record.elementId(),
                     updated.errorMessage()));
    }

    static void storePhoto(const ExchangedRecord& record, int inspectId)
    {
        say(fill(" - Сохранение фото для inspect_id: %1... ", inspectId));
        QByteArray bytes;
        if (!decodeBase64(record.photo(), bytes)) {
            say(" ОШИБКА: Не удалось декодировать base64.\n");
            return;
        }
        const sql::Result stored = session().run(record.storePhoto(), {sql::binary(bytes), binaryInteger(inspectId)});
        say(stored.isCommand() ? QStringLiteral("OK\n") : fill(" ОШИБКА: %1\n", stored.errorMessage()));
    }

    int cycleId_;
    const ExchangeProgress& progress_;
    InspectionsImport counts_;
    int total_ = 0;
    int done_ = 0;
};

} // namespace

InspectionsImport importInspections(const QString& path, int cycleId, const ExchangeProgress& progress)
{
    QJsonObject groups;
    if (!readDocument(path, groups))
        return {};
    return Import(cycleId, progress).run(groups);
}
