-- include small_keys.sql
INSERT INTO states (state_id, note, colorindex) VALUES ('broken', 'Разрушена', 1);
INSERT INTO dm_elements (type_id, element_name, state_id, position_id, x, y, z, h) VALUES
    ('dm', 'ЧУЖАЯ', 'exist', 2, 0, 0, 0, 0);
INSERT INTO ts_elements (type_id, element_name, state_id, position_id, x, y, z, h, depth, depth_proj) VALUES
    ('ts', 'ТС-1', 'exist', 1, 40, 50, 100, 0.5, 9, 10);
INSERT INTO ts_meas (element_id, cycle_id, device_id, date, t_vozd, meas, performer_id) VALUES
    (1, 1, 1, '2021-01-10', -30, '0:-20|1:-12|3:-5|9:-2', 1), (1, 2, 1, '2021-05-10', 5, '0:2|1:-3|3:-4.5|9:-2.05', 1),
    (1, 3, 1, '2021-09-10', 8, '0:9|1:3|3:-1|9:-2', 1);
INSERT INTO ts_inspection (element_id, cycle_id, inspectresult, state_id, depth, h) VALUES (1, 1, 1, 'broken', 8.5, 0.4);
