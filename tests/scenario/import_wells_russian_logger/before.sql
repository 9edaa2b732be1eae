-- include small_keys.sql
INSERT INTO ts_elements (type_id, element_name, state_id, position_id) VALUES ('ts', 'ТС.1', 'exist', 1), ('ts', 'ТС.2', 'exist', 1), ('ts', 'ТС.3', 'exist', 1), ('ts', 'ТС.4', 'exist', 1);
INSERT INTO positions_attributes (position_id, temperature_deep_min, temperature_deep_max) VALUES (1, 1, 4);
