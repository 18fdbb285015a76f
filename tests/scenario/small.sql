-- A small account for scenarios: two centres with items, one without; an item that was settled
-- before the module's start (P03) and one that was closed after it (P04); one element of each
-- detail kind; five entries, two of them with detail lines. One entry an item, for the entries of
-- one item come in whatever order a server likes.
insert into PM_DutyCenter values ('D01', '工程一部');
insert into PM_DutyCenter values ('D02', '工程二部');
insert into PM_DutyCenter values ('D03', '工程三部');
insert into Host_Operator values ('zhang', '张三', 0);
insert into PM_UserAuth values ('zhang', 'D01');
insert into fitemss97 values ('P01', '一号楼');
insert into fitemss97 values ('P011', '一号楼配楼');
insert into fitemss97 values ('P02', '二号楼');
insert into fitemss97 values ('P03', '三号楼');
insert into fitemss97 values ('P04', '四号楼');
insert into fitemss97sub (citemcode, iclose, denddate, 标段) values ('P01', 0, null, '一标段');
insert into fitemss97sub (citemcode, iclose, denddate, 标段) values ('P01', 0, null, '二标段');
insert into fitemss97sub (citemcode, iclose, denddate, 标段) values ('P011', 0, null, '二标段');
insert into fitemss97sub (citemcode, iclose, denddate, 标段) values ('P02', 0, null, '一标段');
insert into fitemss97sub (citemcode, iclose, denddate, 标段) values ('P03', 1, '2003-12-20 00:00:00.000', '一标段');
insert into fitemss97sub (citemcode, iclose, denddate, 标段) values ('P04', 1, '2004-07-01 00:00:00.000', '一标段');
insert into PM_DutycenterSub values ('D01', 'P01', '一标段', null);
insert into PM_DutycenterSub values ('D01', 'P01', '二标段', null);
insert into PM_DutycenterSub values ('D01', 'P011', '二标段', null);
insert into PM_DutycenterSub values ('D01', 'P03', '一标段', null);
insert into PM_DutycenterSub values ('D01', 'P04', '一标段', null);
insert into PM_DutycenterSub values ('D02', 'P02', '一标段', null);
insert into PM_ItemElement values ('E01', '人工费', 0, '');
insert into PM_ItemElement values ('E02', '材料费', 1, '01');
insert into PM_ItemElement values ('E03', '机械费', 2, '');
insert into PM_ItemQC values (1, '2004-06-01 00:00:00.000', 'D01', 'P01', '一标段', '', 'E01', '一月人工', 1234.5000);
insert into PM_ItemQC values (2, '2004-06-02 00:00:00.000', 'D01', 'P011', '二标段', '', 'E02', '钢材', 300.0000);
insert into PM_ItemQC values (3, '2003-11-30 00:00:00.000', 'D01', 'P03', '一标段', '', 'E03', '吊车', 80.0000);
insert into PM_ItemQC values (4, '2004-05-15 00:00:00.000', 'D02', 'P02', '一标段', '', 'E01', '零', 0.0000);
insert into PM_ItemQC values (5, '2004-05-16 00:00:00.000', 'D01', 'P04', '一标段', '', 'E01', '待结', 15.0000);
insert into PM_ItemQCsub values (2, 'M01', 10.0000, 20.0, 200.0000);
insert into PM_ItemQCsub values (2, 'M02', 5.0000, 30.0, 150.0000);
insert into PM_ItemQCsub values (3, 'J01', 8.0000, 10.0, 80.0000);
update PM_SettingInf set cValue = '5' where cName = 'NumMax_EleQc';
