INSERT INTO tsg_catalog (catalog_id, name, note) VALUES (11, 'СОУ-1', 'первая'), (12, 'СОУ-2', 'вторая');
