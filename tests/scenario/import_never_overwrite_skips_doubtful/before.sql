-- include small_keys.sql
INSERT INTO dm_elements (type_id, element_name, state_id, position_id)
    SELECT 'dm', 'ДМ.' || n, 'exist', 1 FROM generate_series(1, 3) AS n;
INSERT INTO positions_attributes (position_id, averagediff) VALUES (1, 10);
INSERT INTO dm_meas (element_id, cycle_id, meas) VALUES (1, 1, 1), (2, 1, 1), (3, 1, 1), (1, 2, 1);
