-- Marks measured in three cycles; the third one only twice, the last one of
-- another position.
INSERT INTO dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) VALUES
    (1, 'dm', 'М1', 'exist', 1, 0, 0, 100, 0), (2, 'dm', 'М2', 'exist', 1, 10, 0, 100, 0),
    (3, 'dm', 'М3', 'exist', 1, 20, 0, 100, 0), (4, 'dm', 'М4', 'exist', 2, 30, 0, 100, 0);
INSERT INTO dm_meas (element_id, cycle_id, date, meas) VALUES
    (1, 1, '2021-01-10', 100), (1, 2, '2021-05-10', 99.99), (1, 3, '2021-09-07', 99.98),
    (2, 1, '2021-01-10', 100), (2, 2, '2021-05-10', 100), (2, 3, '2021-09-07', 100),
    (3, 1, '2021-01-10', 100), (3, 3, '2021-09-07', 99.5),
    (4, 1, '2021-01-10', 50), (4, 2, '2021-05-10', 50.01), (4, 3, '2021-09-07', 50.02);
