INSERT INTO dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z)
    SELECT i, 'dm', 'ДМ.00' || i, 'exist', 1, 10 * i, 20, 1 FROM generate_series(1, 4) i;
INSERT INTO dm_dynprops (element_id, props) SELECT i, '' FROM generate_series(1, 4) i;
