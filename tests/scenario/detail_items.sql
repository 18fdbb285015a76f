-- More that detail lines may name, beside what small_details.sql has: an item of a sub-class, two
-- items of one name, an item of another class, equipment that is only a group; an element whose
-- inventory has no class, and an entry kept in equipment lines. Each entry has an item of its own.
insert into inventory values ('M11', '角钢', 'L50', 3.4567, '01', '0101');
insert into inventory values ('M12', '水泥', '52.5', 6.0000, '01', '01');
insert into inventory values ('M21', '木材', '红松', 7.0000, null, '02');
insert into pm_equipment values ('J0', '起重类', '', 0.0, 0);
insert into pm_equipment values ('J04', '履带吊', 'QUY50', 1234.5, 1);
insert into PM_ItemElement values ('E04', '其他材料费', 1, '无分类');
insert into fitemss97 values ('P012', '一号楼地库');
insert into fitemss97 values ('P013', '一号楼门厅');
insert into fitemss97sub (citemcode, iclose, denddate, 标段) values ('P012', 0, null, '一标段');
insert into fitemss97sub (citemcode, iclose, denddate, 标段) values ('P013', 0, null, '一标段');
insert into PM_DutycenterSub values ('D01', 'P012', '一标段', null);
insert into PM_DutycenterSub values ('D01', 'P013', '一标段', null);
insert into PM_ItemQC values (6, '2004-05-20 00:00:00.000', 'D01', 'P012', '一标段', '', 'E03', '吊装', 2549.0000);
insert into PM_ItemQC values (7, '2004-05-21 00:00:00.000', 'D01', 'P013', '一标段', '', 'E04', '杂项', 0.0000);
insert into PM_ItemQCsub values (6, 'J04', 1234.5000, 2.0, 2469.0000);
insert into PM_ItemQCsub values (6, 'J01', 8.0000, 10.0, 80.0000);
update PM_SettingInf set cValue = '7' where cName = 'NumMax_EleQc';
