-- include small_keys.sql
INSERT INTO tss_elements (type_id, element_name, state_id, position_id) VALUES ('tss_h', 'С1', 'exist', 1), ('tss_h', 'С2', 'exist', 1);
