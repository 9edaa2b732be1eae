-- include wells.sql
-- Half a degree warmer in autumn, a degree in the middle; the last well is new.
INSERT INTO ts_meas (element_id, cycle_id, meas) VALUES
    (1, 3, '1:2.5|2:3|4:4'), (2, 3, '1:-1.5|2:-2|4:-3'), (3, 3, '1:-1.5|2:-1.75|4:-2.5'), (4, 3, '1:2.5|2:2.75|4:3.5'),
    (5, 3, '1:1|3:1|4:1'), (7, 3, '1:0|2:0');
