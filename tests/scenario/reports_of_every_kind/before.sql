-- include wells.sql
-- include marks.sql
-- include norms.sql
INSERT INTO rp_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) VALUES
    (1, 'rp_gl', 'Р1', 'exist', 2, 5, 5, 100, 0);
INSERT INTO rp_meas (element_id, cycle_id, meas) VALUES (1, 1, 10), (1, 2, 10.002);
INSERT INTO dm_inspection (element_id, cycle_id, marknumber, inspectresult, note, state_id) VALUES
    (4, 2, 1, 1, 'Осмотрена', 'exist');
