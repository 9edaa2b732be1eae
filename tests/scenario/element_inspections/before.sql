-- include small_keys.sql
INSERT INTO states (state_id, note, colorindex) VALUES ('broken', 'Разрушен', 1);
INSERT INTO ts_elements (type_id, element_name, state_id, position_id)
    SELECT 'ts', 'ТС-' || n, 'exist', 1 FROM generate_series(1, 3) AS n;
INSERT INTO ts_inspection (element_id, cycle_id, inspectresult, state_id, depth, h) VALUES (2, 1, 0, 'broken', 9.5, 1);
