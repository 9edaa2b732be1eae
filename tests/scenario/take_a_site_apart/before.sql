-- include wells.sql
DELETE FROM ts_meas;
