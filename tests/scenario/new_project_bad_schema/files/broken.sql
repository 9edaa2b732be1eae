create table t (a integer); selekt 1;
