-- A site of two positions: bolts in walls with their first and last levelling,
-- and stations that rise or sink for a year.
INSERT INTO projects (name, owner, location, code) VALUES ('Осадочные марки', 'Образец Терва', 'Амстердам, Альпы', 'ОМ-1');
INSERT INTO objects (project_id, object, appearence) SELECT project_id, 'Марки', 1 FROM projects;
INSERT INTO subobjects (object_id, subobject, appearence) SELECT object_id, 'Марки', 1 FROM objects;
INSERT INTO positions (position_id, subobject_id, position, appearence)
    SELECT n, subobject_id, name, n FROM subobjects, (VALUES (1, 'Амстердам'), (2, 'Альпы')) AS p (n, name);
INSERT INTO cycles (cycle_id, number, date_start, date_end, description) VALUES
    (1, 1, '1961-01-01', '2008-12-31', 'Первая нивелировка'), (2, 2, '1987-01-01', '2011-12-31', 'Последняя нивелировка');

CREATE TEMP TABLE bolts (name text, x float8, y float8, first_day date, first float8, last_day date, last float8);
\copy bolts FROM 'demo/marks/bolts.csv' WITH (FORMAT csv, DELIMITER ';', HEADER)
CREATE TEMP TABLE stations (name text, x float8, y float8, up float8);
\copy stations FROM 'demo/marks/alps.csv' WITH (FORMAT csv, DELIMITER ';', HEADER)

INSERT INTO dm_elements (type_id, element_name, state_id, position_id, x, y, z, h)
    SELECT 'dm', name, 'exist', 1, x, y, last, 0 FROM bolts
    UNION ALL SELECT 'dm', name, 'exist', 2, x, y, 100, 0 FROM stations;
INSERT INTO dm_meas (element_id, cycle_id, date, meas)
    SELECT element_id, 1, first_day, first FROM dm_elements JOIN bolts ON name = element_name AND position_id = 1
    UNION ALL
    SELECT element_id, 2, last_day, last FROM dm_elements JOIN bolts ON name = element_name AND position_id = 1
    UNION ALL
    SELECT element_id, 1, date '2008-01-01', 100 FROM dm_elements WHERE position_id = 2
    UNION ALL
    SELECT element_id, 2, date '2009-01-01', 100 + up / 1000
        FROM dm_elements JOIN stations ON name = element_name AND position_id = 2;
