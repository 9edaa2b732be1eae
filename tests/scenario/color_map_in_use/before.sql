INSERT INTO levelmaps (levelmap_id, levelmap_name, data) VALUES (5, 'Моя', '-1.0000|0.0000|0|0|255&0.0000|1.0000|255|0|0');
