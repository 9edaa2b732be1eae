INSERT INTO geology_ege_catalog (ege_id, project_id, code, name, hatch_pattern_name, color_hex) VALUES
    (1, 1, '1а', 'Песок мелкий', 'sand.pat', '#FFE9A8'), (2, 1, '2', 'Суглинок', 'loam.pat', '#D9B38C');
INSERT INTO ts_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) VALUES
    (1, 'ts', 'Т-1', 'exist', 1, 0, 0, 100, 0);
INSERT INTO igs_elements (element_id, type_id, element_name, state_id, position_id, x, y, z) VALUES
    (1, 'skv', 'С-1', 'exist', 1, 30, 40, 101.5), (2, 'skv', 'С-2', 'exist', 2, 6, 8, 99);
INSERT INTO igs_geology_layers (element_id, ege_id, depth_from, depth_to, description) VALUES
    (1, 1, 0, 2, NULL), (2, 2, 0, 3.5, 'мёрзлый'), (2, 1, 3.5, 8, NULL);
