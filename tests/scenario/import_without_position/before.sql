-- include small_keys.sql
INSERT INTO ggs_elements (type_id, element_name, state_id, position_id) VALUES ('ggs', 'Д1', 'exist', 2);
