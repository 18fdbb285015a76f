-- An account whose item class has no keyword fields.
insert into PM_DutyCenter values ('D01', '工程一部');
insert into fitemss97 values ('P01', '一号楼');
insert into fitemss97 values ('P02', '二号楼');
insert into fitemss97sub (citemcode, iclose, denddate) values ('P01', 0, null);
insert into fitemss97sub (citemcode, iclose, denddate) values ('P02', 0, null);
insert into PM_DutycenterSub values ('D01', 'P01', null, null);
insert into PM_DutycenterSub values ('D01', 'P02', null, null);
insert into PM_ItemElement values ('E01', '人工费', 0, '');
insert into PM_ItemQC values (1, '2004-06-01 00:00:00.000', 'D01', 'P01', '', '', 'E01', '一月人工', 1234.5000);
update PM_SettingInf set cValue = '1' where cName = 'NumMax_EleQc';
