-- Norms of the first position, a profile along its marks, logs in a later cycle.
-- Goes with marks.sql and wells.sql.
INSERT INTO positions_attributes (attr_id, position_id, temperature_deep_min, temperature_deep_max, temperature_h,
    temperature_bf, base_depth, averagediff, relativediff) OVERRIDING SYSTEM VALUE VALUES
    (100, 1, 1, 3, -1, -0.5, 2, 60, 0.004);
INSERT INTO deformation_profiles (profile_id, position_id, profile_name) VALUES (1, 1, 'Ось А');
INSERT INTO deformation_profiles_points (profile_id, element_id, param, dist) VALUES (1, 1, 0, 0), (1, 2, 1, 10);
