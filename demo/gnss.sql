-- Nine GNSS stations as deformation marks of a position of their own: from the public repository
-- helmsman-sun/gnss-station-neu-timeseries, licence CC BY 4.0 (https://creativecommons.org/licenses/by/4.0/); see
-- tests/data/settlement/README.md for what was changed. The source tells no places, so the marks have none. The sample
-- has no cycles of those years: its nine cycles hold the nine autumns of 2009 to 2017, each measure with its own date.
-- Read from the repository's root.
INSERT INTO positions (subobject_id, position, appearence) SELECT min(subobject_id), 'Станции ГНСС', 4 FROM subobjects;
CREATE TEMP TABLE epochs (name text, day text, mark text, serial text);
\copy epochs FROM 'tests/data/settlement/gnss-vertical.csv' WITH (FORMAT csv, DELIMITER ';', HEADER)
WITH marks AS (
    INSERT INTO dm_elements (type_id, element_name, state_id, position_id)
        SELECT (SELECT min(type_id) FROM dm_types), name, 'exist', (SELECT max(position_id) FROM positions)
        FROM (SELECT DISTINCT name FROM epochs ORDER BY name) AS stations RETURNING element_id, element_name)
INSERT INTO dm_meas (element_id, cycle_id, date, meas)
    SELECT element_id, cycle_id, to_date(day, 'DD.MM.YYYY'), mark::float8
    FROM marks JOIN epochs ON name = element_name
        JOIN (SELECT cycle_id, 2008 + row_number() OVER (ORDER BY date_start) AS year FROM cycles) AS autumns
            ON day = '01.10.' || year;
