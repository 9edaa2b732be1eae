-- include small_keys.sql
INSERT INTO dm_elements (type_id, element_name, state_id, position_id)
    SELECT 'dm', 'ДМ-' || n, 'exist', 1 FROM generate_series(1, 3) AS n;
INSERT INTO dm_meas (element_id, cycle_id, device_id, date, meas, performer_id) VALUES
    (1, 1, 1, '2021-01-05', 10.1234, 1), (2, 1, 1, '2021-01-06', 20.5, 1),
    (2, 2, 1, '2021-05-06', 20.25, 1), (3, 2, 1, '2021-05-07', 30, 1);
INSERT INTO ts_elements (type_id, element_name, state_id, position_id) VALUES ('ts', 'ТС-1', 'exist', 2);
INSERT INTO ts_meas (element_id, cycle_id, device_id, date, t_vozd, meas, performer_id) VALUES
    (1, 1, 1, '2021-01-09', -20, '0.00:-5.10|1.00:-1.25', 1), (1, 2, 1, '2021-05-09', 4.5, '0.00:0.10|2.50:-1.00', 1);
