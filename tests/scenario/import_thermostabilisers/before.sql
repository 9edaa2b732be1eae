-- include small_keys.sql
INSERT INTO tsg_elements (type_id, element_name, state_id, position_id) VALUES ('tsg', 'Т1', 'exist', 1), ('tsg', 'Т2', 'exist', 1);
