#include "database/administration/administration_rules.h"

#include "base/placeholders.h"

QString refusalToDeleteRole(const QString& role, const QString& administrator)
{
    static const QStringList kept = {QStringLiteral("postgres"), QStringLiteral("reader"), QStringLiteral("edb")};
    if (kept.contains(role))
        return QStringLiteral("Нельзя удалить суперпользователя postgres,reader,edb");
    if (role == administrator)
        return QStringLiteral("Нельзя удалить пользователя, под которым выполнено подключение");
    return {};
}

QString refusalToDeleteDatabase(const QString& database)
{
    static const QStringList kept = {QStringLiteral("template0"), QStringLiteral("template1"),
                                     QStringLiteral("postgres")};
    return kept.contains(database) ? QStringLiteral("Нельзя удалить системную БД") : QString();
}

QString questionToDeleteRole(const QString& role)
{
    return QStringLiteral("Удалить пользователя ") + role + QLatin1Char('?');
}

// Users know the question without its closing quote.
QString questionToDeleteDatabase(const QString& database, const QString& rows)
{
    return fill(QStringLiteral("В БД '%1 содержится %2 записей.\nУдалить?"), database, rows);
}

QString otherAuditValue(const QString& shown)
{
    return shown == QLatin1String("on") ? QStringLiteral("off") : QStringLiteral("on");
}

// "%n" has stood in this message from the start.
QString auditSet(const QString& database, const QString& value, const QStringList& others)
{
    QString text = fill(QStringLiteral("Аудит для '%1' установлен: %2"), database, value);
    if (others.isEmpty())
        return text;
    return text + QStringLiteral("\n%nДля вступления  в силу необходимо  переоткрыть проект:\n")
        + others.join(QLatin1Char('\n'));
}
