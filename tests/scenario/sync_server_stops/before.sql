INSERT INTO ts_elements (element_id, type_id, element_name, state_id, position_id, x, y, z) VALUES
    (1, 'ts', 'ТС1', 'exist', 1, 10, 20, 1), (2, 'ts', 'ТС2', 'exist', 1, 30, 20, 1), (3, 'ts', 'ТС3', 'exist', 1, 50, 20, 1);
INSERT INTO ts_dynprops (element_id, props) VALUES (1, ''), (2, ''), (3, '');
