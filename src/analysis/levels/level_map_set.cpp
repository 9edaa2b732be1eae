#include "analysis/levels/level_map_set.h"

void LevelMapSet::read(bool connected)
{
    std::map<int, LevelMap> before;
    before.swap(maps_);
    list_.clear();
    for (int id : {LevelMap::Deformation, LevelMap::Temperature, LevelMap::User})
        offer(id, builtInLevelMapName(id), before);
    if (!connected)
        return;
    for (const auto& [id, name] : storedLevelMaps())
        offer(id, name, before);
}

void LevelMapSet::offer(int id, const QString& name, std::map<int, LevelMap>& before)
{
    list_.emplace_back(id, name);
    const auto known = before.find(id);
    // The user's own map is kept nowhere else.
    const bool stays = known != before.end() && (id == LevelMap::User || edited_.count(id) > 0);
    maps_.emplace(id, stays ? std::move(known->second) : LevelMap(id));
}

void LevelMapSet::keepAsUsers(LevelMap map)
{
    map.id = LevelMap::User;
    map.name = builtInLevelMapName(LevelMap::User);
    maps_.at(LevelMap::User) = std::move(map);
    forgetEdit(LevelMap::User);
}

bool LevelMapSet::gradientLosesEdits(int shown) const
{
    return edited_.count(shown) > 0 || edited_.count(LevelMap::User) > 0;
}
