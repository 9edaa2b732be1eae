-- include small_keys.sql
INSERT INTO ggs_elements (type_id, element_name, state_id, position_id) VALUES ('ggs', 'Г1', 'exist', 1), ('ggs', 'Г2', 'exist', 1);
