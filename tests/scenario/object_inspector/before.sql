INSERT INTO states (state_id, note, colorindex) VALUES ('broken', 'Разрушена', 1);
