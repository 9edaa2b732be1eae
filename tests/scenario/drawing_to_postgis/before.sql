INSERT INTO geometries (name, geom) VALUES ('прежняя', ST_GeomFromText('POINT(1 1)', 9999));
