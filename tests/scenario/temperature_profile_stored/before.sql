-- include wells.sql
INSERT INTO termal_profiles (profile_id, position_id, profile_name, origx, origy, hscale, vscale, pkstep, byelevation, tofooter, geom)
    VALUES (5, 1, 'Диагональ', 0, 0, 5, 20, 200, 1, 0, ST_GeomFromText('LINESTRING(10 10,90 90)', 9999)),
           (6, 1, 'Без скважин', 0, 0, 5, 20, 200, 1, 0, ST_GeomFromText('LINESTRING(10 10,90 90)', 9999)),
           (7, 2, 'Чужой', 0, 0, 5, 20, 200, 1, 0, ST_GeomFromText('LINESTRING(10 10,90 90)', 9999));
INSERT INTO termal_profiles_points (profile_id, element_id, param, dist) VALUES (5, 1, 0, 0), (5, 5, 0.5, 56.57), (5, 3, 1, 113.14);
