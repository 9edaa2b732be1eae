-- One row of everything, each with the key 1, and a second element of the
-- families that lines are drawn through. Coordinates lie in a real zone.
INSERT INTO spatial_ref_sys (srid, auth_name, auth_srid, proj4text) VALUES
    (9999, 'TERVA', 9999, '+proj=tmerc +lat_0=0 +lon_0=78.05 +k=1 +x_0=4500000 +y_0=-5811057.63 +ellps=krass +towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +units=m +no_defs +type=crs');
INSERT INTO projects (project_id, name, owner, location, code) OVERRIDING SYSTEM VALUE
    VALUES (1, 'Проект', 'Владелец', 'Место', 'К-1');
INSERT INTO objects (project_id, object) VALUES (1, 'Объект');
INSERT INTO subobjects (object_id, subobject) VALUES (1, 'Подобъект');
INSERT INTO positions (subobject_id, position) VALUES (1, 'Позиция');
INSERT INTO positions_files (position_id, content) VALUES (1, '\x0102');
INSERT INTO positions_attributes (position_id, temperature_h, norm_id) VALUES (1, -0.5, 1);
INSERT INTO cycles (number, date_start, date_end, description, cycle_status) VALUES
    (1, '2020-01-01', '2020-01-31', 'Первый', 0),
    (2, '2020-02-01', '2020-02-29', 'Второй', 1),
    (3, '2020-03-01', NULL, 'Без измерений', 0);
INSERT INTO positions_stat (position_id, base_cycle_id, current_cycle_id, content) VALUES (1, 1, 2, '<Position/>');
INSERT INTO devices (name, serial, description) VALUES ('Прибор', '00001', 'Коса'), ('Запасной', '00002', '');
INSERT INTO performers (fullname, name, post) VALUES
    ('Иванов Иван', 'Иванов И.', 'инженер'), ('Петров Петр', 'Петров П.', 'техник');
INSERT INTO states (state_id, note, colorindex) VALUES ('free', 'Свободное состояние', 1);
INSERT INTO levelmaps (levelmap_name, data) VALUES ('Карта', '0');
INSERT INTO ucs_data (ucs_name, ucs_data) VALUES ('ПСК', 'ПСК&0&0&0&1&0&0&0&1&0');

-- Keys of elements begin behind a placeholder; here they are small.
DO $$
DECLARE
    family text;
BEGIN
    FOREACH family IN ARRAY ARRAY['dm', 'ts', 'rp', 'ggs', 'tsg', 'tss', 'igs'] LOOP
        EXECUTE format('ALTER TABLE %s_elements ALTER element_id RESTART WITH 1', family);
    END LOOP;
END $$;

DO $$
DECLARE
    family record;
BEGIN
    FOR family IN
        SELECT * FROM (VALUES ('dm', 'dm', true), ('ts', 'ts', true), ('rp', 'rp_gl', true), ('ggs', 'ggs', true),
                              ('tsg', 'tsg', true), ('tss', 'tss_h', true), ('igs', 'skv', false))
            AS f (prefix, type, measured)
    LOOP
        EXECUTE format($f$
            INSERT INTO %1$s_elements (type_id, element_name, state_id, position_id, x, y, z, h) VALUES
                ('%2$s', 'Т-1', 'exist', 1, 4500100, 900100, 10, 1), ('%2$s', 'Т-2', 'exist', 1, 4500200, 900200, 11, 1);
            UPDATE %1$s_elements SET geom = ST_SetSRID(ST_MakePoint(x, y), 9999);
            INSERT INTO %1$s_dynprops (element_id, props) VALUES (1, 'Угол1:0');
        $f$, family.prefix, family.type);
        CONTINUE WHEN NOT family.measured;
        EXECUTE format($f$
            INSERT INTO %1$s_files (element_id, file_type, content) VALUES (1, 'photo', '\x0102');
            INSERT INTO %1$s_meas (element_id, cycle_id, device_id, date, performer_id) VALUES
                (1, 1, 1, '2020-01-15', 1), (1, 2, 1, '2020-02-15', 1);
            INSERT INTO %1$s_inspection (element_id, cycle_id, inspectresult, note, state_id)
                VALUES (1, 1, 1, 'Без замечаний', 'exist');
        $f$, family.prefix);
    END LOOP;
END
$$;
UPDATE dm_meas SET meas = 10.5;
UPDATE ts_meas SET meas = '0.50:-1.23';

INSERT INTO geology_ege_catalog (project_id, code, name) VALUES (1, 'ИГЭ-1', 'Суглинок'), (1, 'ИГЭ-9', 'Торф');
INSERT INTO igs_geology_elements (element_id, drilling_date) VALUES (1, '2019-12-31');
INSERT INTO igs_geology_layers (element_id, ege_id, depth_from, depth_to) VALUES (1, 1, 0, 2);
INSERT INTO ts_geology_layers (element_id, ege_id, depth_from, depth_to) VALUES (1, 1, 0, 2);
INSERT INTO tsg_catalog (name, note) VALUES ('СОУ', 'типовой');

INSERT INTO contours (position_id, contour_name) VALUES (1, 'Контур');
INSERT INTO contours_points (contour_id, x, y, param, dist) VALUES (1, 4500100, 900100, 0, 0), (1, 4500200, 900200, 1, 141.42);
INSERT INTO deformation_profiles (position_id, profile_name) VALUES (1, 'Профиль');
INSERT INTO deformation_profiles_points (profile_id, element_id, param, dist) VALUES (1, 1, 0, 0), (1, 2, 1, 141.42);
INSERT INTO termal_profiles (position_id, profile_name) VALUES (1, 'Разрез');
INSERT INTO termal_profiles_points (profile_id, element_id, param, dist) VALUES (1, 1, 0, 0), (1, 2, 1, 141.42);
UPDATE contours SET geom = ST_GeomFromText(build_contour_geometry(contour_id), 9999);
INSERT INTO geometries (geom) VALUES (ST_GeomFromText('LINESTRING(4500100 900100, 4500200 900200)', 9999));

INSERT INTO dm_predictions (name, prediction_date, begin_cycle_id, end_cycle_id) VALUES ('Прогноз', '2025-01-01', 1, 2);
INSERT INTO dm_predictions_data (element_id, prediction_id, prediction_date, meas) VALUES (1, 1, '2025-01-01', 10.4);
