#include "elements/families/families.h"

#include <algorithm>

namespace {

// What a family has beside its elements.
struct Holdings {
    bool records = true; // measures, inspections and files
    bool depth = false;
    bool profile = false;
};

constexpr Holdings usual = {};
constexpr Holdings profiles = {true, false, true};
constexpr Holdings depths = {true, true, false};
constexpr Holdings elementsAlone = {false, false, false};

Family makeFamily(FamilyKey key, const QString& prefix, const QString& listName, const QVector<int>& kinds,
                  unsigned mask, const Holdings& has)
{
    Family family;
    family.key = key;
    family.shortKey = prefix.toUpper();
    family.listName = listName;
    family.kinds = kinds;
    family.elements = prefix + QLatin1String("_elements");
    family.dynprops = prefix + QLatin1String("_dynprops");
    family.types = prefix + QLatin1String("_types");
    if (has.records) {
        family.measures = prefix + QLatin1String("_meas");
        family.inspections = prefix + QLatin1String("_inspection");
        family.files = prefix + QLatin1String("_files");
    }
    family.mask = mask;
    family.hasDepth = has.depth;
    family.hasProfile = has.profile;
    return family;
}

} // namespace

const FamilyTable<Family>& families()
{
    static const FamilyTable<Family> rows = {
        makeFamily(FamilyKey::Dm, "dm", "Деформационные марки", {0, 12, 13, 11}, 1, usual),
        makeFamily(FamilyKey::Ts, "ts", "Термоскважины", {2, 14}, 2, profiles),
        makeFamily(FamilyKey::Rp, "rp", "Репера", {8, 9, 10, 21}, 4, usual),
        makeFamily(FamilyKey::Ggs, "ggs", "Гидрогеологические скважины", {3}, 8, usual),
        makeFamily(FamilyKey::Igs, "igs", "Инженерно-геологические скважины", {17}, 16, elementsAlone),
        makeFamily(FamilyKey::Tss, "tss", "Точки снегомерной съемки", {20, 15}, 32, usual),
        makeFamily(FamilyKey::Tsg, "tsg", "Термостабилизационные элементы", {5, 18, 19}, 64, depths),
    };
    return rows;
}

const Family& family(FamilyKey key) { return families()[key]; }

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
