INSERT INTO states (state_id, note, colorindex) VALUES ('lost', 'Утрачен', 1);
INSERT INTO dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z) VALUES
    (1, 'dm', 'ДМ1', 'exist', 1, 10, 20, 1), (2, 'dm_t', 'ДМ2', 'lost', 1, 30, 20, 1), (3, 'dm', 'Чужая', 'exist', 2, 0, 0, 0);
INSERT INTO dm_dynprops (element_id, props) VALUES (1, ''), (2, 'Длина полки:8.5');
INSERT INTO rp_elements (element_id, type_id, element_name, state_id, position_id, x, y, z) VALUES
    (1, 'rp_gl', 'RP1', 'exist', 1, 50, 20, 1.5);
INSERT INTO tsg_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h, e) VALUES
    (1, 'tsg', 'ТСГ1', 'exist', 1, 70, 20, 1.5, 1.5, 1.5), (2, 'tsg', 'ТСГ2', 'exist', 1, 90, 20, 1.5, 1.5, 1.5);
INSERT INTO tsg_dynprops (element_id, props) VALUES (1, '');
