#include "elements/geology/layer_sources.h"

#include "base/placeholders.h"
#include "session/project_session.h"

#include <algorithm>
#include <cmath>

QString LayerSource::text() const
{
    return fill("%1 на расстоянии %2 м. dZ - %3 м.", name, fixed(distance, 0), fixed(dz, 2));
}

std::optional<QVector<LayerSource>> loadLayerSources(int thermalWellId)
{
    const sql::Result well =
        session().run(compose("select x, y, z from ts_elements where element_id=%1", thermalWellId));
    if (!well.hasRow())
        return {};
    enum Column { Id, Name, X, Y, Z, Position };
    const sql::Result rows = session().run(
        "select element_id, element_name, x, y,z, position_id from (select count(layer_id) as layers_count, "
        "element_id, "
        "element_name, x, y,z, position_id from igs_elements left join igs_geology_layers using (element_id) group by "
        "element_id) as well where layers_count > 0 ");
    if (!rows.isTuples())
        return {};
    QVector<LayerSource> sources;
    for (int row = 0; row < rows.ntuples(); ++row) {
        const double alongX = rows.toDouble(row, X) - well.toDouble(0, 0);
        const double alongY = rows.toDouble(row, Y) - well.toDouble(0, 1);
        sources.append({rows.toInt(row, Id), rows.getvalue(row, Name), std::hypot(alongX, alongY),
                        rows.toDouble(row, Z) - well.toDouble(0, 2)});
    }
    std::stable_sort(sources.begin(), sources.end(),
                     [](const LayerSource& a, const LayerSource& b) { return a.distance < b.distance; });
    return sources;
}
