-- Wells on a square with one in the middle, colder to the east; one well more
-- belongs to the other position, another stands outside of the border.
INSERT INTO ts_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) VALUES
    (1, 'ts', 'Т1', 'exist', 1, 10, 10, 100, 0.5), (2, 'ts', 'Т2', 'exist', 1, 90, 10, 100, 0.5),
    (3, 'ts', 'Т3', 'exist', 1, 90, 90, 101, 0.5), (4, 'ts', 'Т4', 'exist', 1, 10, 90, 101, 0.5),
    (5, 'ts', 'Т5', 'exist', 1, 50, 50, 100, 1), (6, 'ts', 'Т6', 'exist', 1, 40, 60, 100, 0),
    (7, 'ts', 'Т7', 'exist', 2, 60, 40, 100, 0), (8, 'ts', 'Т8', 'exist', 1, 500, 500, 100, 0);
INSERT INTO ts_meas (element_id, cycle_id, meas) VALUES
    (1, 1, '1:2|2:2.5|4:3.5'), (2, 1, '1:-2|2:-2.5|4:-3.5'), (3, 1, '1:-2|2:-2.25|4:-3'), (4, 1, '1:2|2:2.25|4:3'),
    (5, 1, '1:0|2:0|4:0'), (6, 1, '3:1|4:2'), (7, 1, '1:-0.5|2:-1|4:-1.5'), (8, 1, '1:9|2:9|4:9'),
    (1, 2, '1:1|2:1');
