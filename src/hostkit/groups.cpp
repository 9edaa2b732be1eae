#include "hostkit/groups.h"

#include "base/text.h"
#include "hostkit/model_space.h"

namespace {

Opened<NcDbDictionary> openGroups(NcOpenMode mode)
{
    NcDbDictionary* groups = nullptr;
    workingDatabase()->getGroupDictionary(groups, mode);
    return Opened<NcDbDictionary>(groups);
}

QString freeName(const NcDbDictionary& groups, const QString& prefix)
{
    qint64 stamp = secondsNow();
    while (groups.has(prefix + base36(stamp)))
        ++stamp;
    return prefix + base36(stamp);
}

} // namespace

NcDbObjectId groupEntities(const QString& prefix, const NcDbObjectIdArray& ids, const QString& description)
{
    const Opened<NcDbDictionary> groups = ids.empty() ? Opened<NcDbDictionary>() : openGroups(kForWrite);
    if (!groups)
        return {};
    NcDbObjectId id;
    const Made<NcDbGroup> group(new NcDbGroup(description));
    groups->setAt(freeName(*groups, prefix), group.get(), id);
    group->append(ids);
    return id;
}

QStringList groupNames(const QString& prefix)
{
    QStringList names;
    const Opened<NcDbDictionary> groups = openGroups(kForRead);
    for (const QString& name : groups ? groups->keys() : std::vector<QString>()) {
        if (name.startsWith(prefix))
            names.append(name);
    }
    return names;
}

NcDbObjectIdArray membersOfGroup(const QString& name)
{
    const Opened<NcDbDictionary> groups = openGroups(kForRead);
    NcDbObjectId id;
    if (groups)
        groups->getAt(name, id);
    const Opened<NcDbGroup> group(id, kForRead);
    return group ? group->allEntityIds() : NcDbObjectIdArray();
}
