-- What every scenario's database holds: a project of two positions, three
-- cycles, a logger and an operator.
INSERT INTO projects (project_id, name, owner, location, code)
    OVERRIDING SYSTEM VALUE VALUES (1, 'Город', 'Владелец', 'Место', 'Ш-1');
INSERT INTO objects (object_id, project_id, object, appearence) VALUES (1, 1, 'Объект', 1);
INSERT INTO subobjects (subobject_id, object_id, subobject, appearence) VALUES (1, 1, 'Подобъект', 1);
INSERT INTO positions (position_id, subobject_id, position, appearence) VALUES
    (1, 1, 'Позиция 1', 1), (2, 1, 'Позиция 2', 2);
INSERT INTO cycles (cycle_id, number, date_start, date_end, description) VALUES
    (1, 1, '2021-01-01', '2021-01-31', 'Зима'),
    (2, 2, '2021-05-01', '2021-05-31', 'Весна'),
    (3, 3, '2021-09-01', '2021-09-30', 'Осень');
INSERT INTO devices (device_id, name, serial, description) VALUES (1, 'Прибор', 'SN-1', 'Прибор испытаний');
INSERT INTO performers (performer_id, fullname, name, post) VALUES (1, 'Иванов Иван Иванович', 'Иванов И.И.', 'Инженер');
-- Keys given by hand leave the generators behind them.
ALTER TABLE objects ALTER object_id RESTART WITH 2;
ALTER TABLE subobjects ALTER subobject_id RESTART WITH 2;
ALTER TABLE positions ALTER position_id RESTART WITH 3;
ALTER TABLE cycles ALTER cycle_id RESTART WITH 4;
ALTER TABLE devices ALTER device_id RESTART WITH 2;
ALTER TABLE performers ALTER performer_id RESTART WITH 2;
