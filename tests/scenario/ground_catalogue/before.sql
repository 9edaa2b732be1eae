INSERT INTO geology_ege_catalog (ege_id, project_id, code, name, hatch_pattern_name, color_hex) VALUES
    (1, 1, '1а', 'Песок мелкий', 'sand.pat', '#FFE9A8'), (2, 1, '2', 'Суглинок', 'loam.pat', '#D9B38C');
INSERT INTO igs_elements (element_id, element_name, state_id, position_id) VALUES (1, 'С-1', 'exist', 1);
INSERT INTO igs_geology_layers (element_id, ege_id, depth_from, depth_to) VALUES (1, 2, 0, 5);
ALTER TABLE geology_ege_catalog ALTER ege_id RESTART WITH 10;
