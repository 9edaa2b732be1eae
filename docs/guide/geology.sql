-- Grounds, two geological wells and the types of thermostabilisers that the
-- guide's pictures show; values as survey reports write them.
INSERT INTO geology_ege_catalog (ege_id, project_id, code, name, description, hatch_pattern_name, hatch_scale,
    color_hex, rho, w_tot, i_tot, t_bf, lambda_th, lambda_f) VALUES
    (1, 1, '1', 'Насыпной грунт', 'Песок с гравием, отсыпка', 'fill.pat', 1, '#E6DCC8', 1.9, 0.12, 0.02, -0.1, 1.6, 1.8),
    (2, 1, '2', 'Торф', 'Слабо разложившийся', 'peat.pat', 1, '#A98467', 1.05, 2.4, 0.55, -0.1, 0.7, 1.2),
    (3, 1, '3', 'Суглинок', 'Тугопластичный, при промерзании пучинистый', 'loam.pat', 1, '#D9B38C', 1.95, 0.24, 0.18,
     -0.2, 1.4, 1.6),
    (4, 1, '4', 'Супесь', 'Пластичномёрзлая, слоистой криотекстуры', 'sandyloam.pat', 1, '#EAD7A4', 1.88, 0.28, 0.3, -0.3,
     1.5, 1.7),
    (5, 1, '5', 'Песок мелкий', 'Твёрдомёрзлый, массивной криотекстуры', 'sand.pat', 1, '#FFE9A8', 1.92, 0.2, 0.1, -0.1,
     2.0, 2.3);
ALTER TABLE geology_ege_catalog ALTER ege_id RESTART WITH 6;
UPDATE ts_elements SET z = 100.9, h = 0.5;
INSERT INTO igs_elements (element_id, type_id, element_name, state_id, position_id, x, y, z) OVERRIDING SYSTEM VALUE VALUES
    (900, 'skv', 'С-1', 'exist', 1, 45, -30, 100.4), (901, 'skv', 'С-2', 'exist', 1, -60, 15, 101.2);
INSERT INTO igs_geology_layers (element_id, ege_id, depth_from, depth_to, description) VALUES
    (900, 1, 0, 1.2, ''), (900, 2, 1.2, 1.9, 'с корнями'), (900, 3, 1.9, 4.6, 'кровля мерзлоты на 2.3 м'),
    (900, 4, 4.6, 9.1, 'прослои льда до 2 см'), (900, 5, 9.1, 15, ''), (901, 3, 0, 6, '');
INSERT INTO tsg_catalog (name, note, condensator_area, condensator_radius, condensatot_eff, vaporizer_area,
    vaporizer_length, vaporizer_radius, vaporizer_eff, exchanger_area, exchanger_length, exchanger_radius,
    exchanger_switch, heat_exchange_params) VALUES
    ('СОУ 10-32', 'Вертикальный, 10 м', 2.43, 0.0168, 0.9, 1.05, 10, 0.0168, 1, 0, 0, 0, 0,
     '0:2.1|1:6.4|2:9.8|3:12.7|5:17.8|8:24.3|10:28.1'),
    ('СОУ 12-38', 'Наклонный, 12 м', 3.1, 0.019, 0.9, 1.43, 12, 0.019, 1, 0, 0, 0, 0, '0:2.3|2:10.4|5:19|10:30.2');
