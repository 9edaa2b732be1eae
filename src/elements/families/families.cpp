#include "elements/families/families.h"

#include <algorithm>

namespace {

Family makeFamily(FamilyKey key, const QString& prefix, const QString& listName, const QVector<int>& kinds,
                  unsigned mask)
{
    Family family;
    family.key = key;
    family.shortKey = prefix.toUpper();
    family.listName = listName;
    family.kinds = kinds;
    family.elements = prefix + QLatin1String("_elements");
    family.dynprops = prefix + QLatin1String("_dynprops");
    family.types = prefix + QLatin1String("_types");
    if (key != FamilyKey::Igs) {
        family.measures = prefix + QLatin1String("_meas");
        family.inspections = prefix + QLatin1String("_inspection");
        family.files = prefix + QLatin1String("_files");
    }
    family.mask = mask;
    return family;
}

} // namespace

const std::array<Family, familyCount>& families()
{
    static const std::array<Family, familyCount> rows = {{
        makeFamily(FamilyKey::Dm, "dm", "Деформационные марки", {0, 12, 13, 11}, 1),
        makeFamily(FamilyKey::Ts, "ts", "Термоскважины", {2, 14}, 2),
        makeFamily(FamilyKey::Rp, "rp", "Репера", {8, 9, 10, 21}, 4),
        makeFamily(FamilyKey::Ggs, "ggs", "Гидрогеологические скважины", {3}, 8),
        makeFamily(FamilyKey::Igs, "igs", "Инженерно-геологические скважины", {17}, 16),
        makeFamily(FamilyKey::Tss, "tss", "Точки снегомерной съемки", {20, 15}, 32),
        makeFamily(FamilyKey::Tsg, "tsg", "Термостабилизационные элементы", {5, 18, 19}, 64),
    }};
    return rows;
}

const Family& family(FamilyKey key) { return families()[size_t(key)]; }

const Family* familyOfKind(int kind)
{
    const auto& rows = families();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [kind](const Family& row) { return row.kinds.contains(kind); });
    return found == rows.end() ? nullptr : &*found;
}

const Family* familyByShortKey(const QString& shortKey)
{
    const auto& rows = families();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const Family& row) { return row.shortKey == shortKey; });
    return found == rows.end() ? nullptr : &*found;
}

QString allFamiliesKey() { return QStringLiteral("ALL"); }

QString allFamiliesName() { return QStringLiteral("Все"); }
