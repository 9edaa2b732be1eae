-- GNSS stations as deformation marks of a position of their own; see README.md. Read from the repository's root.
INSERT INTO positions (subobject_id, position, appearence) SELECT min(subobject_id), 'Станции Альп', 3 FROM subobjects;
CREATE TEMP TABLE stations (name text, x float8, y float8, up float8);
\copy stations FROM 'demo/stations/stations.csv' WITH (FORMAT csv, DELIMITER ';', HEADER)
WITH marks AS (
    INSERT INTO dm_elements (type_id, element_name, state_id, position_id, x, y, z, h)
        SELECT (SELECT min(type_id) FROM dm_types), name, 'exist', (SELECT max(position_id) FROM positions), x, y, 100, 0
        FROM stations RETURNING element_id, element_name)
INSERT INTO dm_meas (element_id, cycle_id, date, meas)
    SELECT element_id, 8, date '2012-01-01', 100 FROM marks
    UNION ALL SELECT element_id, 9, date '2013-01-01', 100 + up / 1000 FROM marks JOIN stations ON name = element_name;
