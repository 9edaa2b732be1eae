INSERT INTO ts_elements (type_id, element_name, state_id, position_id, x, y) VALUES ('ts', 'Т1', 'exist', 1, 500000, 7000000);
INSERT INTO contours (contour_id, position_id, contour_name) VALUES (1, 1, 'Контур');
INSERT INTO contours_points (contour_id, x, y, param) VALUES (1, 0, 1, 0), (1, 2, 3, 1);
