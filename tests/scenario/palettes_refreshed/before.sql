INSERT INTO spatial_ref_sys (srid, auth_name, auth_srid, proj4text) VALUES (9999, 'TERVA', 9999, '+proj=longlat +datum=WGS84');
