-- The greatest number of ДМ.041 and ДМ.7 is 41; a well without a digit counts as none.
INSERT INTO dm_elements (type_id, element_name, state_id, position_id)
    VALUES ('dm', 'ДМ.041', 'exist', 1), ('dm', 'ДМ.7', 'exist', 1), ('dm', 'ДМ.900', 'exist', 2);
INSERT INTO ts_elements (type_id, element_name, state_id, position_id) VALUES ('ts', 'Скважина', 'exist', 1);
