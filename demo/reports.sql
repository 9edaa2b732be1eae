-- What the reports tell beside the wells: marks and benchmarks on the sample's
-- position with three cycles of levelling, and inspections of the last cycle.
-- The numbers are made up.
INSERT INTO dm_elements (type_id, element_name, state_id, position_id, x, y, z, h)
    SELECT (SELECT min(type_id) FROM dm_types), 'ДМ-' || n, 'exist', 1, 330600 + 20 * n, 5080380 + 4 * n, 3150 + n, 0
    FROM generate_series(1, 14) n;
INSERT INTO rp_elements (type_id, element_name, state_id, position_id, x, y, z, h)
    SELECT (SELECT min(type_id) FROM rp_types), 'РП-' || n, 'exist', 1, 330580 + 160 * n, 5080350, 3148 + n, 0
    FROM generate_series(1, 2) n;
INSERT INTO dm_meas (element_id, cycle_id, meas)
    SELECT element_id, cycle_id, z - 0.0006 * (cycle_id - 7) * (element_id % 7) + 0.0002 * (cycle_id % 2)
    FROM dm_elements, cycles WHERE cycle_id IN (7, 8, 9);
INSERT INTO rp_meas (element_id, cycle_id, meas)
    SELECT element_id, cycle_id, z + 0.0001 * (cycle_id - 7) FROM rp_elements, cycles WHERE cycle_id IN (7, 8, 9);
INSERT INTO rp_inspection (element_id, cycle_id, fence, protectpit, protectpitcover, protectpipe, mark, inspectresult,
                           note, state_id, sealing)
    SELECT element_id, 9, 1, 1, 1, 1, 1, 1, 'замечаний нет', 'exist', 1 FROM rp_elements;
INSERT INTO dm_inspection (element_id, cycle_id, marknumber, markmark, constructintegrity, railset, inspectresult,
                           note, state_id, h_railset)
    SELECT element_id, 9, 1, 1, 1, (element_id % 4 <> 0)::integer, (element_id % 4 <> 0)::integer,
           CASE WHEN element_id % 4 = 0 THEN 'рейка не устанавливается' ELSE '' END, 'exist', 0 FROM dm_elements;
INSERT INTO ts_inspection (element_id, cycle_id, namemarked, protectcase, casecover, ttcover, insulation, iceinpipe,
                           waterinpipe, inspectresult, note, state_id, depth, h)
    SELECT element_id, 9, 1, 1, 1, 1, 1, 0, 0, 1, '', 'exist', 20, 0 FROM ts_elements;
-- A deformation profile over the marks in the order of their numbers.
INSERT INTO deformation_profiles (position_id, profile_name) VALUES (1, 'Профиль I-I');
INSERT INTO deformation_profiles_points (profile_id, element_id, param)
    SELECT profile_id, element_id, row_number() OVER (ORDER BY element_id) - 1
    FROM deformation_profiles, dm_elements WHERE profile_name = 'Профиль I-I';
