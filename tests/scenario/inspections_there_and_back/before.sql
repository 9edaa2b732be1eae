INSERT INTO dm_elements (type_id, element_name, state_id, position_id)
    SELECT 'dm', 'ДМ.' || n, 'exist', 1 FROM generate_series(1, 3) AS n;
UPDATE dm_elements SET element_id = element_id - 1001;
INSERT INTO dm_inspection (element_id, cycle_id, inspectresult, note) VALUES (1, 2, 1, 'до поля');
