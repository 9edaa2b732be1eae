#include "group.h"

QString firstValue(const DxfGroups& groups, int code)
{
    for (const DxfGroup& group : groups) {
        if (group.code == code)
            return group.value.trimmed();
    }
    return {};
}

quint64 handleOf(const QString& text)
{
    bool ok = false;
    const quint64 handle = text.trimmed().toULongLong(&ok, 16);
    return ok ? handle : 0;
}

QString handleText(quint64 handle) { return QString::number(handle, 16).toUpper(); }

bool isReferenceCode(int code)
{
    return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || (code >= 480 && code <= 481) || code == 1005;
}

DxfGroups withoutReferences(const DxfGroups& groups)
{
    DxfGroups result;
    bool control = false;
    for (const DxfGroup& group : groups) {
        const bool brace = group.code == 102;
        control = brace ? !control : control;
        if (control || brace)
            continue;
        // A plot style or material of null is said by its absence.
        if (group.code == 390 || group.code == 347 || group.code == 348)
            continue;
        result.push_back(isReferenceCode(group.code) ? DxfGroup{group.code, QStringLiteral("0")} : group);
    }
    return result;
}

DxfGroups withoutSubclass(const DxfGroups& groups, const QString& subclass)
{
    DxfGroups result;
    bool inside = false;
    for (const DxfGroup& group : groups) {
        inside = group.code == 100 ? group.value == subclass : inside;
        if (!inside)
            result.push_back(group);
    }
    return result;
}
