INSERT INTO dm_elements (element_id, type_id, element_name, state_id, position_id, x, y) VALUES (1, 'dm', 'ДМ.1', 'exist', 1, 5, 7);
UPDATE dm_elements SET element_name = 'ДМ.2';
UPDATE audit_log SET changed_at = '2026-01-10 12:00:00' WHERE table_name = 'dm_elements';
UPDATE audit_log SET changed_at = '2026-01-11 12:00:00' WHERE table_name <> 'dm_elements';
