-- include small_keys.sql
INSERT INTO dm_elements (type_id, element_name, state_id, position_id)
    SELECT 'dm', 'ДМ.' || n, 'exist', 1 FROM generate_series(1, 5) AS n;
INSERT INTO positions_attributes (position_id, averagediff) VALUES (1, 10);
INSERT INTO dm_meas (element_id, cycle_id, date, meas) VALUES (1, 1, '2021-01-15', 10.45), (2, 1, '2021-01-15', 0);
