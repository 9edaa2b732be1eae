-- include marks.sql
-- A mark a metre beside the line, one of them measured twice, and a forecast.
INSERT INTO dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) VALUES
    (5, 'dm', 'М5', 'exist', 1, 15, 1, 100, 0);
INSERT INTO dm_meas (element_id, cycle_id, date, meas) VALUES
    (5, 1, '2021-01-10', 100), (5, 3, '2021-09-07', 99.99), (2, 3, '2021-09-08', 7);
INSERT INTO dm_predictions (prediction_id, name, prediction_date, begin_cycle_id, end_cycle_id) VALUES
    (1, 'На зиму', '2022-01-05', 1, 3);
INSERT INTO dm_predictions_data (element_id, prediction_id, prediction_date, meas) VALUES (1, 1, '2022-01-05', 99.96);
ALTER TABLE dm_elements ALTER element_id RESTART WITH 6;
