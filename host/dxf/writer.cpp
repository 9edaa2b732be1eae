#include "writer.h"

#include "text_coding.h"

#include <QLocale>
#include <cmath>

QString realText(double value)
{
    if (!std::isfinite(value))
        return QStringLiteral("0.0");
    const QString text = QString::number(value, 'g', QLocale::FloatingPointShortest);
    const bool plain = !text.contains(QLatin1Char('.')) && !text.contains(QLatin1Char('e'));
    return plain ? text + QLatin1String(".0") : text;
}

void DxfWriter::group(int code, const QString& value)
{
    bytes_ += QByteArray::number(code).rightJustified(3);
    bytes_ += '\n';
    bytes_ += value.toUtf8();
    bytes_ += '\n';
}

void DxfWriter::groups(const DxfGroups& groups)
{
    for (const DxfGroup& each : groups)
        group(each.code, each.value);
}

void DxfWriter::text(int code, const QString& value) { group(code, toCaretCoding(value)); }

void DxfWriter::real(int code, double value) { group(code, realText(value)); }

void DxfWriter::integer(int code, qint64 value) { group(code, QString::number(value)); }

void DxfWriter::handle(int code, quint64 value) { group(code, handleText(value)); }

void DxfWriter::point(int code, const NcGePoint3d& p)
{
    real(code, p.x);
    real(code + 10, p.y);
    real(code + 20, p.z);
}

void DxfWriter::point2d(int code, double x, double y)
{
    real(code, x);
    real(code + 10, y);
}

void DxfWriter::record(const DxfRecord& record)
{
    group(0, record.type);
    groups(record.groups);
}

DxfGroups withoutDeadReferences(const DxfGroups& groups, const DxfIsDead& isDead)
{
    DxfGroups result;
    DxfGroups inside;
    bool open = false;
    for (const DxfGroup& group : groups) {
        if (group.code == 102 && !open) {
            open = true;
            inside = {group};
        } else if (group.code == 102) {
            inside.push_back(group);
            if (inside.size() > 2)
                result.insert(result.end(), inside.begin(), inside.end());
            open = false;
        } else if (open) {
            if (!isReferenceCode(group.code) || !isDead(handleOf(group.value)))
                inside.push_back(group);
        } else {
            result.push_back(group);
        }
    }
    if (open)
        result.insert(result.end(), inside.begin(), inside.end());
    return result;
}
