-- include small_keys.sql
-- Numbers of marks go by family: the same key stands for another element in each.
INSERT INTO dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h, block_rotation, marker_rotation, scale)
    OVERRIDING SYSTEM VALUE VALUES (50, 'dm', 'ЧУЖАЯ', 'exist', 2, 0, 0, 0, 0, 0, 0, 1);
