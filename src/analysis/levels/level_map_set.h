// The colour maps that an editor offers, and which of them were edited without
// being written.
#pragma once

#include "analysis/levels/level_map.h"

#include <map>
#include <set>

class LevelMapSet {
public:
    // Built-in maps and, with a connection, the stored ones, each as it is kept;
    // an edited one stays as it was edited, and so does the user's own.
    void read(bool connected);
    // Ids and names in the order of the list.
    const std::vector<std::pair<int, QString>>& list() const { return list_; }

    LevelMap& at(int id) { return maps_.at(id); }
    const LevelMap& at(int id) const { return maps_.at(id); }

    void noteEdit(int id) { edited_.insert(id); }
    // Written or removed: the next read takes it as it is kept.
    void forgetEdit(int id) { edited_.erase(id); }

    // Becomes the user's own map, in place of the one before.
    void keepAsUsers(LevelMap map);
    // Whether a map made up while `shown` is looked at ends somebody's edits:
    // those of the map shown, or of the user's own.
    bool gradientLosesEdits(int shown) const;

private:
    void offer(int id, const QString& name, std::map<int, LevelMap>& before);

    std::vector<std::pair<int, QString>> list_;
    std::map<int, LevelMap> maps_;
    std::set<int> edited_;
};
