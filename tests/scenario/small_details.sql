-- What the detail lines of the small account may name.
insert into computationunit values ('01', '吨');
insert into inventory values ('M01', '钢筋', 'HRB335', 10.0000, '01', '01');
insert into inventory values ('M02', '水泥', '42.5', 5.0000, '01', '01');
insert into inventory values ('M03', '砂', '中砂', 20.0000, null, '01');
insert into pm_equipment values ('J01', '吊车', 'QY25', 8.0, 1);
insert into pm_equipment values ('J03', '塔吊', 'QTZ63', 50.0, 1);
