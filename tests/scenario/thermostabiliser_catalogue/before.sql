INSERT INTO tsg_catalog (catalog_id, name, note, vaporizer_length, heat_exchange_params) VALUES
    (1, 'ТК-32', 'Типовой', 10, '0:5.1|2:9.4');
ALTER TABLE tsg_catalog ALTER catalog_id RESTART WITH 10;
