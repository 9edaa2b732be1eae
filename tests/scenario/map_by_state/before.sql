-- include wells.sql
INSERT INTO states (state_id, note, colorindex) VALUES ('lost', 'Утерян', 1);
UPDATE ts_elements SET state_id = 'lost' WHERE element_id IN (1, 2, 7);
