#include "drawing/alignment/ucs_record.h"

#include "base/file_name.h"
#include "base/text.h"

#include <QStringList>
#include <cmath>

namespace {

const QChar separator = QLatin1Char('&');

} // namespace

UcsRecord::UcsRecord(const QString& ucsName, const NcGePoint3d& origin, const NcGeVector3d& x, const NcGeVector3d& y)
    : name(ucsName), numbers{origin.x, origin.y, origin.z, x.x, x.y, x.z, y.x, y.y, y.z}
{ }

QString UcsRecord::text() const
{
    QStringList fields{name};
    for (const double number : numbers)
        fields.append(fixed(number, 6));
    return fields.join(separator);
}

std::optional<UcsRecord::Numbers> ucsNumbers(const QString& text)
{
    const QStringList fields = text.split(separator);
    UcsRecord::Numbers numbers{};
    if (fields.size() != int(numbers.size()) + 1)
        return {};
    for (size_t i = 0; i < numbers.size(); ++i) {
        bool ok = false;
        numbers[i] = fields[int(i) + 1].toDouble(&ok);
        if (!ok || !std::isfinite(numbers[i]))
            return {};
    }
    return numbers;
}

QString cleanUcsName(const QString& name) { return plainName(name); }

QString storableUcsName(const QString& name) { return cleanUcsName(name).replace(separator, QLatin1Char(' ')); }
