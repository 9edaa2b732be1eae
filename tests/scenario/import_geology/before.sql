INSERT INTO igs_elements (element_id, element_name, state_id, position_id, z) VALUES
    (1, 'С-1', 'exist', 1, 10), (2, 'С-2', 'exist', 1, 20);
INSERT INTO geology_ege_catalog (ege_id, project_id, code, name) VALUES (1, 1, '1а', 'Песок'), (2, 1, '2', 'Суглинок');
INSERT INTO igs_geology_layers (element_id, ege_id, depth_from, depth_to) VALUES (1, 2, 0, 99);
