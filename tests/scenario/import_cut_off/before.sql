-- include small_keys.sql
INSERT INTO ggs_elements (type_id, element_name, state_id, position_id) SELECT 'ggs', 'Г' || n, 'exist', 1 FROM generate_series(1, 3) AS n;
-- The second row that is written never arrives.
CREATE SEQUENCE rows_written;
CREATE FUNCTION cut_off() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
    IF nextval('rows_written') = 2 THEN
        PERFORM pg_terminate_backend(pg_backend_pid());
        PERFORM pg_sleep(5);
    END IF;
    RETURN NEW;
END
$$;
CREATE TRIGGER cut_off BEFORE INSERT ON ggs_meas FOR EACH ROW EXECUTE FUNCTION cut_off();
