-- include small_keys.sql
INSERT INTO dm_elements (type_id, element_name, state_id, position_id) SELECT 'dm', 'ДМ.' || n, 'exist', 1 FROM generate_series(1, 3) AS n;
