-- One mark was handed to another position, the row of one was deleted, and a
-- mark was added that no drawing shows.
update dm_elements set position_id = 2 where element_name = 'ДМ002';
delete from dm_elements where element_name = 'ДМ003';
insert into dm_elements (type_id, element_name, state_id, position_id, x, y, z)
    values ('dm', 'ДМ005', 'exist', 1, 120, 0, 0);
