-- include wells.sql
INSERT INTO contours (contour_id, position_id, contour_name) VALUES (1, 1, 'Малый'), (2, 1, 'Большой'), (3, 2, 'Чужой');
INSERT INTO contours_points (contour_id, x, y, param, dist) VALUES
    (1, 40, 40, 0, 0), (1, 60, 40, 1, 20), (1, 60, 60, 2, 40), (1, 40, 60, 3, 60),
    (2, 0, 0, 0, 0), (2, 100, 0, 1, 100), (2, 100, 100, 2, 200), (2, 0, 100, 3, 300);
