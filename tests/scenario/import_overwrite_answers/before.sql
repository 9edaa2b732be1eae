-- include small_keys.sql
INSERT INTO rp_elements (type_id, element_name, state_id, position_id)
    SELECT 'rp_gl', 'Р' || n, 'exist', 1 FROM generate_series(1, 5) AS n;
INSERT INTO rp_meas (element_id, cycle_id, meas) SELECT n, 2, 0 FROM generate_series(1, 4) AS n;
