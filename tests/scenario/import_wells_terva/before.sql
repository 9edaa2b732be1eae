-- include small_keys.sql
INSERT INTO ts_elements (type_id, element_name, state_id, position_id) VALUES ('ts', 'ТС.1', 'exist', 1), ('ts', 'ТС.2', 'exist', 1), ('ts', 'ТС.3', 'exist', 1), ('ts', 'ТС.4', 'exist', 1);
INSERT INTO positions_attributes (position_id, temperature_deep_min, temperature_deep_max) VALUES (1, 1, 4);
INSERT INTO ts_meas (element_id, cycle_id, date, t_vozd, meas) VALUES (1, 1, '2021-01-15', -20, '1:-1|2:-1.1|3:-1.2|4:-1.3'), (2, 1, '2021-01-15', -20, '1:-3|2:-3|3:-3|4:-3');
