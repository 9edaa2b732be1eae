#include "drawing/sync/row_statement.h"

#include "base/statement.h"

namespace {

struct LevelJoin {
    const char* join;
    const char* condition;
};

// From the position upwards; a level joins what stands before it.
const std::array<LevelJoin, 4>& levelJoins()
{
    static const std::array<LevelJoin, 4> joins = {{
        {"left join positions using(position_id) ", "where position_id ="},
        {"left join subobjects using (subobject_id) ", "where subobject_id ="},
        {"left join objects using (object_id) ", "where object_id ="},
        {"left join projects using (project_id) ", "where project_id ="},
    }};
    return joins;
}

Statement selection(const Family& family, SyncLevel level)
{
    if (family.hasDepth)
        return compose("select element_id, type_id, element_name, state_id, position_id, x, y,z, h,e,block_rotation,"
                       "marker_rotation,scale, props from %1 ",
                       Identifier(family.elements))
            + compose("join %1 using (element_id) ", Identifier(family.dynprops));
    const Statement end = level <= SyncLevel::Object ? " " : "";
    return compose("select element_id, type_id, element_name, state_id, position_id, x, y,z, h,block_rotation,"
                   "marker_rotation,scale, props from %1 ",
                   Identifier(family.elements))
        + end + compose("left join %1 using (element_id) ", Identifier(family.dynprops));
}

} // namespace

Statement rowStatement(const Family& family, int id, SyncLevel level)
{
    Statement statement = selection(family, level);
    const size_t steps = size_t(SyncLevel::Position) - size_t(level);
    for (size_t step = 0; step <= steps; ++step)
        statement += levelJoins()[step].join;
    return statement + levelJoins()[steps].condition + compose("%1", id);
}
