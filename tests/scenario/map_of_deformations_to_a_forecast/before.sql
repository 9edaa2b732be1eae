-- include marks.sql
UPDATE dm_elements SET y = 40 WHERE element_id = 2;
INSERT INTO dm_predictions (prediction_id, name, prediction_date, begin_cycle_id, end_cycle_id) VALUES
    (1, 'На зиму', '2022-01-05', 1, 3);
INSERT INTO dm_predictions_data (element_id, prediction_id, prediction_date, meas) VALUES
    (1, 1, '2022-01-05', 99.97), (3, 1, '2022-01-05', 99.25);
