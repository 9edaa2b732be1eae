-- include small_keys.sql
INSERT INTO rp_elements (type_id, element_name, state_id, position_id, x, y, z, h)
    VALUES ('rp_gl', 'РП-1', 'exist', 2, 500005, 7000006, 7, 0);
INSERT INTO dm_elements (type_id, element_name, state_id, position_id, x, y, z, h)
    VALUES ('dm', 'ЧУЖАЯ', 'exist', 2, 500000, 7000000, 0, 0);
INSERT INTO dm_meas (element_id, cycle_id, date, meas) VALUES (1, 3, '2021-09-02', 1), (1, 1, '2021-01-02', 2);
