INSERT INTO dm_elements (type_id, element_name, state_id, position_id, x, y) VALUES ('dm', 'ДМ.1', 'exist', 1, 500000, 7000000);
