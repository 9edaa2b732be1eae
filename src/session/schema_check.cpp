#include "session/schema_check.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QSet>

namespace {

struct TableRow {
    const char* name;
    const char* columns; ///< with one blank between
};

// What database.sql lays; a test compares the two.
constexpr TableRow tables[] = {
    {"audit_log", "audit_id table_name operation changed_by changed_at old_data new_data"},
    {"contours", "contour_id position_id contour_name geom"},
    {"contours_points", "point_id contour_id x y param dist"},
    {"cycles", "cycle_id number date_start date_end description cycle_status"},
    {"deformation_profiles", "profile_id position_id profile_name geom"},
    {"deformation_profiles_points", "profile_id element_id param dist"},
    {"devices", "device_id name serial description"},
    {"dm_dynprops", "element_id props"},
    {"dm_elements",
     "element_id type_id element_name state_id position_id x y z h block_rotation marker_rotation "
     "scale geom"},
    {"dm_files", "file_id element_id file_type content"},
    {"dm_inspection",
     "inspect_id element_id cycle_id marknumber markmark constructintegrity railset h_railset "
     "inspectresult note state_id photos"},
    {"dm_meas", "meas_dm_id element_id cycle_id device_id date meas performer_id"},
    {"dm_predictions", "prediction_id name prediction_date begin_cycle_id end_cycle_id"},
    {"dm_predictions_data", "meas_id element_id prediction_id prediction_date meas"},
    {"dm_types", "type_id name"},
    {"geology_ege_catalog",
     "ege_id project_id code name description hatch_pattern_name hatch_scale color_hex rho rho_s "
     "rho_d e_void n_porosity w_tot sr w_l w_p ip il e_mod c_coh phi t_bf lambda_th lambda_f c_th_vol "
     "c_f_vol q_ph salinization_type d_sal i_tot i_i raf_exp r_c_exp soil_type_sp25 sand_granularity"},
    {"geology_layers", "family layer_id element_id ege_id depth_from depth_to description"},
    {"geometries", "id name geom"},
    {"ggs_dynprops", "element_id props"},
    {"ggs_elements",
     "element_id type_id element_name state_id position_id x y z h block_rotation marker_rotation "
     "scale geom"},
    {"ggs_files", "file_id element_id file_type content"},
    {"ggs_inspection",
     "inspect_id element_id cycle_id namemarked protectcase casecover ttcover insulation iceinpipe "
     "waterinpipe h meas inspectresult note state_id photos"},
    {"ggs_meas", "meas_id element_id cycle_id device_id date meas performer_id"},
    {"ggs_types", "type_id name"},
    {"igs_dynprops", "element_id props"},
    {"igs_elements",
     "element_id type_id element_name state_id position_id x y z h block_rotation marker_rotation "
     "scale geom"},
    {"igs_geology_elements", "geology_id element_id description drilling_date ground_water_level"},
    {"igs_geology_layers", "layer_id element_id ege_id depth_from depth_to description"},
    {"igs_types", "type_id name"},
    {"levelmaps", "levelmap_id levelmap_name data"},
    {"norm_sp22_13330", "norm_id code description relativediff averagediff roll"},
    {"objects", "object_id project_id object appearence"},
    {"performers", "performer_id fullname name post"},
    {"positions", "position_id subobject_id position appearence position_type"},
    {"positions_attributes",
     "attr_id position_id temperature_deep_min temperature_deep_max temperature_h relativediff "
     "averagediff roll constr_height temperature_bf base_depth norm_id"},
    {"positions_counts",
     "position_id dm_count rp_count ts_count tss_count tsg_count ggs_count igs_count def_prof_count "
     "term_prof_count contour_count"},
    {"positions_files", "file_id position_id content"},
    {"positions_stat", "stat_id position_id base_cycle_id current_cycle_id created_at content"},
    {"projects", "project_id name owner location code"},
    {"rp_dynprops", "element_id props"},
    {"rp_elements",
     "element_id type_id element_name state_id position_id x y z h block_rotation marker_rotation "
     "scale geom"},
    {"rp_files", "file_id element_id file_type content"},
    {"rp_inspection",
     "inspect_id element_id cycle_id fence protectpit protectpitcover protectpipe mark sealing "
     "inspectresult note state_id photos"},
    {"rp_meas", "meas_rp_id element_id cycle_id device_id date meas precis performer_id"},
    {"rp_types", "type_id name"},
    {"states", "state_id note colorindex"},
    {"subobjects", "subobject_id object_id subobject appearence"},
    {"termal_profiles",
     "profile_id position_id profile_name origx origy hscale vscale pkstep byelevation tofooter geom"},
    {"termal_profiles_points", "profile_id element_id param dist"},
    {"ts_dynprops", "element_id props"},
    {"ts_elements",
     "element_id type_id element_name state_id position_id x y z h block_rotation marker_rotation "
     "scale geom depth_proj depth"},
    {"ts_files", "file_id element_id file_type content"},
    {"ts_geology_layers", "layer_id element_id ege_id depth_from depth_to description"},
    {"ts_inspection",
     "inspect_id element_id cycle_id namemarked protectcase casecover ttcover insulation iceinpipe "
     "waterinpipe depth h inspectresult note state_id photos"},
    {"ts_meas", "meas_ts_id element_id cycle_id device_id date t_vozd meas performer_id"},
    {"ts_types", "type_id name"},
    {"tsg_catalog",
     "catalog_id name note condensator_area condensator_radius condensatot_eff vaporizer_area "
     "vaporizer_length vaporizer_radius vaporizer_eff exchanger_area exchanger_length "
     "exchanger_radius exchanger_switch heat_exchange_params"},
    {"tsg_dynprops", "element_id props"},
    {"tsg_elements",
     "element_id type_id element_name state_id position_id x y z h block_rotation marker_rotation "
     "scale geom e catalog_id"},
    {"tsg_files", "file_id element_id file_type content"},
    {"tsg_inspection", "inspect_id element_id cycle_id integrity inspectresult note state_id photos"},
    {"tsg_meas", "meas_id element_id cycle_id device_id date env_temp exchanger_temp performer_id"},
    {"tsg_types", "type_id name"},
    {"tss_dynprops", "element_id props"},
    {"tss_elements",
     "element_id type_id element_name state_id position_id x y z h block_rotation marker_rotation "
     "scale geom"},
    {"tss_files", "file_id element_id file_type content"},
    {"tss_inspection", "inspect_id element_id cycle_id inspectresult note state_id photos"},
    {"tss_meas", "meas_id element_id cycle_id device_id date meas_density meas_heigth performer_id"},
    {"tss_types", "type_id name"},
    {"ucs_data", "ucs_id ucs_name ucs_data"},
    {"work_schedule", "work_id name date_start date_end note"},
};

// Catalogues of the server that every role may read: those of the standard hide
// what the role has no right to.
constexpr const char* presentColumns =
    "select c.relname, a.attname from pg_class c join pg_attribute a on a.attrelid = c.oid where c.relkind in "
    "('r', 'p', 'v', 'm', 'f') and a.attnum > 0 and not a.attisdropped and pg_table_is_visible(c.oid)";

} // namespace

QVector<SchemaTable> expectedSchema()
{
    QVector<SchemaTable> schema;
    for (const TableRow& row : tables)
        schema.append({QString::fromLatin1(row.name), QString::fromLatin1(row.columns).split(QLatin1Char(' '))});
    return schema;
}

QStringList missingInSchema(const ProjectSession& session)
{
    const sql::Result rows = session.run(presentColumns);
    if (!rows.isTuples())
        return {};
    QSet<QString> present;
    for (int i = 0; i < rows.ntuples(); ++i) {
        const QString table = rows.getvalue(i, 0);
        present << table << table + QLatin1Char('.') + rows.getvalue(i, 1);
    }
    QStringList missing;
    for (const SchemaTable& table : expectedSchema()) {
        if (!present.contains(table.name)) {
            missing << QStringLiteral("таблица ") + table.name;
            continue;
        }
        for (const QString& column : table.columns) {
            const QString name = table.name + QLatin1Char('.') + column;
            if (!present.contains(name))
                missing << QStringLiteral("столбец ") + name;
        }
    }
    return missing;
}

void tellMissingInSchema(const ProjectSession& session)
{
    const QStringList missing = missingInSchema(session);
    if (!missing.isEmpty())
        say(fill(QStringLiteral("\nСхема базы данных отличается от ожидаемой, часть команд работать не будет. "
                                "Не найдено: %1\n"),
                 missing.join(QStringLiteral(", "))));
}
