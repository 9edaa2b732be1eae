-- What no command of the module makes yet: the place of the sample's position
-- in its project, the survey cycles, the logger and the operator.
INSERT INTO objects (object_id, project_id, object, appearence)
    OVERRIDING SYSTEM VALUE SELECT 1, project_id, 'Ледник Тет-Рус', 1 FROM projects LIMIT 1;
INSERT INTO subobjects (subobject_id, object_id, subobject, appearence)
    OVERRIDING SYSTEM VALUE VALUES (1, 1, 'Центральная часть', 1);
INSERT INTO positions (position_id, subobject_id, position, appearence)
    OVERRIDING SYSTEM VALUE VALUES (1, 1, 'Термометрическая площадка', 1);
INSERT INTO positions_attributes (position_id, temperature_deep_min, temperature_deep_max, temperature_h)
    VALUES (1, 5, 15, -0.5);

INSERT INTO cycles (cycle_id, number, date_start, date_end, description, cycle_status)
    OVERRIDING SYSTEM VALUE VALUES
    (1, 1, '2010-09-01', '2010-09-30', 'Осень 2010', 2),
    (2, 2, '2015-11-01', '2015-11-30', 'Осень 2015', 2),
    (3, 3, '2016-07-01', '2016-07-31', 'Лето 2016', 2),
    (4, 4, '2016-09-01', '2016-09-30', 'Осень 2016', 2),
    (5, 5, '2017-08-01', '2017-08-31', 'Лето 2017', 2),
    (6, 6, '2018-11-01', '2018-11-30', 'Осень 2018', 2),
    (7, 7, '2019-10-01', '2019-10-31', 'Осень 2019', 2),
    (8, 8, '2022-12-01', '2022-12-31', 'Зима 2022', 2),
    (9, 9, '2023-07-01', '2023-07-31', 'Лето 2023', 1);

INSERT INTO devices (device_id, name, serial, description)
    OVERRIDING SYSTEM VALUE VALUES (1, 'Термокоса', 'SN-0001', 'Термокоса образца');
INSERT INTO performers (performer_id, fullname, name, post)
    OVERRIDING SYSTEM VALUE VALUES (1, 'Образцов Пётр Ильич', 'Образцов П.И.', 'Инженер-геокриолог');

-- Keys given by hand leave the generators behind them.
SELECT setval(pg_get_serial_sequence('objects', 'object_id'), 1),
       setval(pg_get_serial_sequence('subobjects', 'subobject_id'), 1),
       setval(pg_get_serial_sequence('positions', 'position_id'), 1),
       setval(pg_get_serial_sequence('cycles', 'cycle_id'), 9),
       setval(pg_get_serial_sequence('devices', 'device_id'), 1),
       setval(pg_get_serial_sequence('performers', 'performer_id'), 1);
