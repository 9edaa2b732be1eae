-- A deformation profile over the marks in the order of their numbers.
INSERT INTO deformation_profiles (position_id, profile_name) VALUES (1, 'Профиль I-I');
INSERT INTO deformation_profiles_points (profile_id, element_id, param)
    SELECT profile_id, element_id, row_number() OVER (ORDER BY element_id) - 1
    FROM deformation_profiles, dm_elements WHERE profile_name = 'Профиль I-I';
