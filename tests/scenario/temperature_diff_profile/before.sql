-- include wells.sql
INSERT INTO ts_meas (element_id, cycle_id, meas) VALUES (2, 2, '1:-3|2:-3|4:-3'), (5, 2, '1:1|2:1|4:1');
