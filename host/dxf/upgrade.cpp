#include "upgrade.h"

#include <algorithm>

namespace {

struct Subclass {
    const char* name;
    std::vector<int> codes; // groups of this subclass; empty: all that are left
};

struct Upgrade {
    const char* type;
    std::vector<Subclass> subclasses;
};

const std::vector<int> kOfEveryEntity = {6, 8, 48, 60, 62, 67};

const std::vector<Upgrade>& upgrades()
{
    static const std::vector<Upgrade> rows = {
        {"POINT", {{"AcDbPoint", {}}}},
        {"LINE", {{"AcDbLine", {}}}},
        {"CIRCLE", {{"AcDbCircle", {}}}},
        {"ARC", {{"AcDbCircle", {10, 20, 30, 39, 40, 210, 220, 230}}, {"AcDbArc", {}}}},
        {"TEXT", {{"AcDbText", {}}}},
        {"ATTRIB", {{"AcDbAttribute", {2, 70, 73, 74}}, {"AcDbText", {}}}},
        {"ATTDEF", {{"AcDbAttributeDefinition", {2, 3, 70, 73, 74}}, {"AcDbText", {}}}},
        {"INSERT", {{"AcDbBlockReference", {}}}},
        {"SOLID", {{"AcDbTrace", {}}}},
        {"TRACE", {{"AcDbTrace", {}}}},
        {"3DFACE", {{"AcDbFace", {}}}},
        {"SHAPE", {{"AcDbShape", {}}}},
        {"VIEWPORT", {{"AcDbViewport", {}}}},
        {"DIMENSION",
         {{"AcDbRotatedDimension", {50}},
          {"AcDbAlignedDimension", {12, 13, 14, 22, 23, 24, 32, 33, 34, 52}},
          {"AcDbDimension", {}}}},
        {"LTYPE", {{"AcDbSymbolTableRecord", {-1}}, {"AcDbLinetypeTableRecord", {}}}},
        {"LAYER", {{"AcDbSymbolTableRecord", {-1}}, {"AcDbLayerTableRecord", {}}}},
        {"STYLE", {{"AcDbSymbolTableRecord", {-1}}, {"AcDbTextStyleTableRecord", {}}}},
        {"VIEW", {{"AcDbSymbolTableRecord", {-1}}, {"AcDbViewTableRecord", {}}}},
        {"UCS", {{"AcDbSymbolTableRecord", {-1}}, {"AcDbUCSTableRecord", {}}}},
        {"VPORT", {{"AcDbSymbolTableRecord", {-1}}, {"AcDbViewportTableRecord", {}}}},
        {"APPID", {{"AcDbSymbolTableRecord", {-1}}, {"AcDbRegAppTableRecord", {}}}},
        {"DIMSTYLE", {{"AcDbSymbolTableRecord", {-1}}, {"AcDbDimStyleTableRecord", {}}}},
        {"BLOCK", {{"AcDbBlockBegin", {}}}},
    };
    return rows;
}

bool contains(const std::vector<int>& codes, int code)
{
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

DxfGroups takeGroups(DxfGroups& from, const std::vector<int>& codes)
{
    const auto split = std::stable_partition(from.begin(), from.end(), [&](const DxfGroup& group) {
        return !codes.empty() && !contains(codes, group.code);
    });
    DxfGroups taken(split, from.end());
    from.erase(split, from.end());
    return taken;
}

void append(DxfGroups& groups, const char* subclass, const DxfGroups& more)
{
    groups.push_back({100, QLatin1String(subclass)});
    groups.insert(groups.end(), more.begin(), more.end());
}

// Subclasses are listed with the narrowest first, written with the widest first.
void appendSubclasses(const std::vector<Subclass>& subclasses, DxfGroups groups, DxfGroups& result)
{
    std::vector<DxfGroups> parts;
    const bool widestLast = subclasses.size() > 1 && subclasses.back().codes.empty()
        && !contains(subclasses.front().codes, -1) && qstrcmp(subclasses.front().name, "AcDbCircle") != 0;
    for (const Subclass& subclass : subclasses)
        parts.push_back(takeGroups(groups, subclass.codes));
    for (size_t i = 0; i < subclasses.size(); ++i) {
        const size_t at = widestLast ? subclasses.size() - 1 - i : i;
        append(result, subclasses[at].name, parts[at]);
    }
}

std::vector<Subclass> vertexSubclasses(int polylineFlags, const DxfRecord& record)
{
    if (polylineFlags & 8)
        return {{"AcDbVertex", {-1}}, {"AcDb3dPolylineVertex", {}}};
    if (polylineFlags & 16)
        return {{"AcDbVertex", {-1}}, {"AcDbPolygonMeshVertex", {}}};
    if (!(polylineFlags & 64))
        return {{"AcDbVertex", {-1}}, {"AcDb2dVertex", {}}};
    if (firstValue(record.groups, 70).toInt() & 64)
        return {{"AcDbVertex", {-1}}, {"AcDbPolyFaceMeshVertex", {}}};
    return {{"AcDbFaceRecord", {}}};
}

std::vector<Subclass> polylineSubclasses(int flags)
{
    if (flags & 8)
        return {{"AcDb3dPolyline", {}}};
    if (flags & 16)
        return {{"AcDbPolygonMesh", {}}};
    if (flags & 64)
        return {{"AcDbPolyFaceMesh", {}}};
    return {{"AcDb2dPolyline", {}}};
}

bool isMarked(const DxfRecord& record)
{
    return std::any_of(record.groups.begin(), record.groups.end(), [](const DxfGroup& g) { return g.code == 100; });
}

void upgradeRecord(DxfRecord& record, const std::vector<Subclass>& subclasses, bool isEntity)
{
    if (isMarked(record))
        return;
    DxfGroups groups = std::move(record.groups);
    const auto end =
        std::find_if(groups.begin(), groups.end(), [](const DxfGroup& group) { return group.code >= 1000; });
    const DxfGroups xdata(end, groups.end());
    groups.erase(end, groups.end());
    record.groups = takeGroups(groups, {5, 105});
    if (isEntity)
        append(record.groups, "AcDbEntity", takeGroups(groups, kOfEveryEntity));
    appendSubclasses(subclasses, std::move(groups), record.groups);
    record.groups.insert(record.groups.end(), xdata.begin(), xdata.end());
}

const std::vector<Subclass>* subclassesOf(const QString& type)
{
    for (const Upgrade& upgrade : upgrades()) {
        if (type == QLatin1String(upgrade.type))
            return &upgrade.subclasses;
    }
    return nullptr;
}

void upgradeEntity(DxfEntity& entity)
{
    const int flags = firstValue(entity.main.groups, 70).toInt();
    const bool polyline = entity.main.type == QLatin1String("POLYLINE");
    for (DxfRecord& part : entity.parts) {
        if (part.type == QLatin1String("VERTEX"))
            upgradeRecord(part, vertexSubclasses(flags, part), true);
        else if (part.type == QLatin1String("ATTRIB"))
            upgradeRecord(part, *subclassesOf(part.type), true);
        else
            upgradeRecord(part, {}, true);
    }
    if (polyline)
        upgradeRecord(entity.main, polylineSubclasses(flags), true);
    else if (const std::vector<Subclass>* subclasses = subclassesOf(entity.main.type))
        upgradeRecord(entity.main, *subclasses, true);
}

// Groups that later versions say otherwise.
void upgradeTableRecord(DxfRecord& record)
{
    if (isMarked(record))
        return;
    if (record.type == QLatin1String("DIMSTYLE")) {
        DxfGroups& groups = record.groups;
        groups.erase(std::remove_if(groups.begin(), groups.end(),
                                    [](const DxfGroup& group) { return group.code >= 5 && group.code <= 7; }),
                     groups.end());
    }
    if (const std::vector<Subclass>* subclasses = subclassesOf(record.type))
        upgradeRecord(record, *subclasses, false);
    if (record.type != QLatin1String("LTYPE"))
        return;
    DxfGroups dashes;
    for (const DxfGroup& group : record.groups) {
        dashes.push_back(group);
        if (group.code == 49)
            dashes.push_back({74, QStringLiteral("0")});
    }
    record.groups = std::move(dashes);
}

} // namespace

void upgradeDocument(DxfDocument& document)
{
    if (document.version() >= QLatin1String("AC1012"))
        return;
    for (DxfTable& table : document.tables) {
        for (DxfRecord& record : table.records)
            upgradeTableRecord(record);
    }
    for (DxfBlock& block : document.blocks) {
        upgradeRecord(block.begin, *subclassesOf(QStringLiteral("BLOCK")), true);
        for (DxfEntity& entity : block.entities)
            upgradeEntity(entity);
    }
    for (DxfEntity& entity : document.entities)
        upgradeEntity(entity);
}
