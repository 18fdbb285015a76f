#!/usr/bin/env python3
"""Checks that the expected transcripts cover what the operator can be told and what is run.

Every message box and every statement below has to stand whole, as a line of its own, in at least
one expected transcript. A message has its caption and icon before it, a statement the path on
which it runs.
"""

import sys
from pathlib import Path

NOTE = "[提示信息|information] "
MODULE_NOTE = "[项目管理|information] "
INVENTORY = (
    "gConn select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from inventory a"
    " left join computationunit b on a.cSAComUnitCode=b.cComUnitCode where "
)

MESSAGES = [
    NOTE + "出现冲突，请稍后再试！",
    MODULE_NOTE + "金额超出项目预算中的项目期初发生额",
    NOTE + "不存在可用的项目要素，请先设置项目要素！",
    # a cell
    NOTE + "日期不能为空",
    NOTE + "日期非法",
    NOTE + "期初录入时间应在本年度帐套启用期间第一天(2004-07-01)之前",
    NOTE + "期初录入时间录入有误！",
    NOTE + "责任中心不能为空",
    NOTE + "此责任中心不存在或操作员没有权限，须重新输入！",
    NOTE + "项目编号不能为空",
    NOTE + "该责任中心下不包括此项目，须重新输入！",
    "[提示|information] 项目已经完工结算，不能在启用后对该项目录入期初！",
    NOTE + "项目要素不能为空",
    NOTE + "输入的项目要素不存在，须重新输入！",
    NOTE + "摘要不能为空",
    NOTE + "期初不能为空",
    NOTE + "请输入数字",
    # saving and deleting
    NOTE + "此项目已经结算，不能删除 ！",
    "[删除确认|none] 是否删除当前行？ -> yes",
    "[删除确认|none] 是否删除当前行？ -> no",
    MODULE_NOTE + "该行记录已经被他人删除",
    # before a cell is filled
    NOTE + "责任中心不能为空！",
    MODULE_NOTE + "请先填充要素",
    NOTE + "责任中心不存在，请先设置责任中心！",
    NOTE + "请先输入责任中心，然后再输入项目！",
    NOTE + "项目要素不存在，请先设置项目要素！",
    # searching and closing
    NOTE + "没有找到符合条件的数据",
    NOTE + "项目不能为空！",
    NOTE + "所填项目不存在! ",
    "[提示信息|exclamation] 如果你修改了项目期初的数据，请重新做分配计算，以免计算结果出现数据错误！",
    "[项目管理|question] 数据尚未保存,确认退出吗? -> yes",
    "[项目管理|question] 数据尚未保存,确认退出吗? -> no",
    # detail lines
    MODULE_NOTE + "编码不能重复",
    MODULE_NOTE + "设备编码不存在或不是末级",
    MODULE_NOTE + "设备名称不存在或不是末级",
    MODULE_NOTE + "存货编码不存在或所属分类不正确",
    MODULE_NOTE + "存货名称不存在或所属分类不正确",
    MODULE_NOTE + "非法金额数量",
    MODULE_NOTE + "编码不能为空",
    MODULE_NOTE + "名称不能为空",
    MODULE_NOTE + "单价不能为空或0",
    MODULE_NOTE + "数量不能为空或0",
    MODULE_NOTE + "数量超出项目预算中的项目期初数量",
    MODULE_NOTE + "期初余额不能为空,只剩一行不能删除",
    "[项目管理|question] 确实要删除当前行吗? -> yes",
    "[项目管理|question] 确实要删除当前行吗? -> no",
    # printing and writing to files
    "[提示|information] 没有数据！",
    MODULE_NOTE + "表格没有可打印的列！",
    "[保存提示|question] 确定要保存现有的打印设置？ -> yes",
    "[保存提示|question] 确定要保存现有的打印设置？ -> no",
    "[提示|information] 格式保存成功！",
    "[输出成功信息|information] 成功输出到文件。",
    "[输出失败信息|information] 输出到文件失败！",
]

STATEMENTS = [
    # logging in and opening the list
    "gConn select cname, cValue from PM_SettingInf  where cName like 'NumPoint%' ",
    "gEnv SELECT cValue From AccInformation WHERE cSysID = 'PM' and cName = 'dPMStartDate'",
    "gEnv SELECT cValue From AccInformation WHERE cSysID = 'PM' and cName = 'dPMStartDatePeriod'",
    "gEnv  SELECT * From fitemstructure WHERE (citem_class = '97') AND (iSubItem = '1')"
    " AND (bPrimaryKey = '1')",
    "gEnv select ctext from fitemstructure where cfield_name='citemname' and citem_class='97'",
    "gEnv Select distinct iEleVid from PM_ItemQC",
    "gEnv Select sum(mQc) from pm_itemqcsub where iEleVid = '2'",
    "gEnv Update PM_ItemQC set mQC = 350 where iEleVid = '2'",
    "gEnv select PM_ItemQC.iEleVid,PM_ItemQC.dDate,PM_ItemQC.cItemCode,fitemss97.citemname,"
    "cKeyCode1,cKeyCode2,cCenterCode,cDigest,cElementCode,mQC from PM_ItemQC inner join fitemss97"
    " on fitemss97.citemcode = PM_ItemQC.cItemCode order by PM_ItemQC.cItemCode asc",
    "gEnv select cElementName,iElementDetail from PM_ItemElement where cElementCode = 'E01'",
    # what locks
    "gEnv select bflag_PM from Gl_mend where iperiod > = '7' and bflag_PM = '1'",
    "gEnv select count(*) from PM_TranControl where  IYear = '2004'",
    "gEnv select iclose,denddate from fitemss97sub where citemcode = 'P02'",
    "gEnv select iclose,denddate from fitemss97sub where citemcode = 'P01'"
    " and isnull(标段,'') = '二标段'",
    "gEnv select iclose,denddate from fitemss97sub where citemcode = 'P01'"
    " and isnull(标段,'') = '二标段' and isnull(期次,'') = 2",
    # before a row or a cell is filled
    "gEnv select count(*) from PM_ItemElement",
    "gConn select * from PM_DutyCenter",
    "gConn select PM_DutycenterSub.cItemCode,Fitemss97.citemname from PM_DutycenterSub inner join"
    " Fitemss97 on PM_DutycenterSub.cItemCode = Fitemss97.citemcode  where cCenterCode = 'D01'",
    "gConn select * from PM_ItemElement",
    # pick lists and drop-down lists
    "gEnv select * from PM_DutyCenter",
    "gEnv select * from PM_DutyCenter inner join  PM_UserAuth on PM_DutyCenter.cCenterCode ="
    " PM_UserAuth.cCenterCode where PM_UserAuth.cUserID = 'zhang'",
    "gEnv select ctext  from fitemstructure where citem_class = '97' and cfield_name ="
    " 'citemname' and isubitem = '0'",
    "gEnv select cItemCode,citemname from  Fitemss97 ",
    "gEnv select * from pm_itemelement",
    "gConn select a.citemcode,b.citemname from pm_dutycentersub a,fitemss97 b where"
    " ccentercode='D01' and a.citemcode=b.citemcode order by a.citemcode",
    "gConn select a.citemcode,b.citemname,ckeyword1 from pm_dutycentersub a,fitemss97 b where"
    " ccentercode='D01' and a.citemcode=b.citemcode order by a.citemcode",
    "gConn select a.citemcode,b.citemname,ckeyword1,ckeyword2 from pm_dutycentersub a,fitemss97 b"
    " where ccentercode='D01' and a.citemcode=b.citemcode order by a.citemcode",
    "gConn select cKeyWord1 from PM_DutycenterSub where cCenterCode = 'D01' and cItemCode = 'P01'",
    "gConn select  cKeyWord2 from PM_DutycenterSub where cCenterCode = 'D01'"
    " and  cItemCode = 'P01'",
    # checking a row
    "gEnv select cCenterCode from PM_DutyCenter where cCenterCode = 'D01'",
    "gEnv select PM_DutyCenter.cCenterCode from PM_DutyCenter inner join  PM_UserAuth on"
    " PM_DutyCenter.cCenterCode = PM_UserAuth.cCenterCode where PM_UserAuth.cUserID = 'zhang'and"
    "  PM_DutyCenter.cCenterCode = 'D01'",
    "gEnv select PM_DutycenterSub.cItemCode,Fitemss97.citemname from PM_DutycenterSub inner join"
    " Fitemss97 on PM_DutycenterSub.cItemCode = Fitemss97.citemcode  where cCenterCode = 'D01'",
    "gConn select cElementCode,iElementDetail from PM_ItemElement where cElementName ='人工费'",
    "gConn delete from pm_itemQCSub where iEleVid=2",
    # the budget
    "gConn select cElementCode from PM_ItemElement where cElementName = '人工费'",
    "gConn select iBudget,iMoneysum from pm_budget where iVerID=(select iverid from pm_BudgetVer"
    " where bControl=1) and citemCode='P01' and cElementCode='E01'",
    "gConn select sum(mQc) as sumQC from pm_itemqc where citemcode='P01' and celementcode='E01'"
    " and iEleVid<>1",
    # saving and deleting
    "gConn select * from PM_ItemQC with (HOLDLOCK) where iEleVid=1",
    "gEnv select cElementCode from PM_ItemElement where cElementName = '人工费'",
    "gConn select cValue from PM_SettingInf where cName='NumMax_EleQc'",
    "gConn insert into PM_ItemQC(dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,cElementCode,"
    "cDigest,mQC,iEleVid) values ( '2004-06-30','D01','P01','二标段','','E01','基础工程',2500.5,6) ",
    "gConn delete from pm_itemQC where iEleVid=2",
    # detail lines
    "gConn select a.cEquipCode,a.cEquipName,a.cEquipModel,convert(varchar,b.iuprice,1),b.iNum,"
    "convert(varchar,b.mQC,1) from pm_equipment a,pm_itemQCSub b where a.cEquipCode=b.cCodeMx"
    " and b.iEleVid=6",
    "gConn select a.cInvCode,a.cInvName,a.cInvStd,b.cComUnitName,c.iuprice,c.iNum,c.mQC from"
    " inventory a left join computationUnit b on a.cSAComUnitCode=b.cComUnitCode inner join"
    " pm_itemQCSub c on a.cInvCode=c.cCodeMx and c.iEleVid=2",
    "gConn select * from pm_equipment where cEquipCode='J03' and bEquipEnd=1",
    "gConn select * from pm_equipment where cEquipName='塔吊' and bEquipEnd=1",
    "gConn select cInvCCode from pm_itemelement where cElementName='材料费'",
    INVENTORY + "a.cInvCode='M11' and a.cInvCCode like '01%'",
    INVENTORY + "a.cInvCode='M21'",
    INVENTORY + "a.cInvName='水泥' and a.cInvCCode='01'",
    INVENTORY + "a.cInvName='角钢'",
    "gConn select iBudget,imoneysum,inumberSum from pm_budgetsub where iVerID=(select iverid from"
    " pm_BudgetVer where bControl=1) and citemCode='P011' and cElementCode='E02'and cCodeMx='M01'",
    "gConn select sum(a.inum) as SumAmount,sum(a.mQc) as sumQC  from pm_itemqcsub a inner join"
    " pm_itemqc b on a.ielevid=b.ielevid  where b.citemcode='P011' and b.celementcode='E02'"
    " and a.ielevid<>2 and a.cCodeMx='M01'",
    "gConn delete from PM_ItemQCsub where iEleVid=6"
    " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(6,'J04',1234.5,2,2469)"
    " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(6,'J01',8,10,80)"
    " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(6,'J03',50,4,200)",
    # the find dialog
    "gEnv select cItemCode from Fitemss97",
    "gConn select * from fitemss97sub where cItemCode = 'P01'",
]


def main():
    folder = Path(__file__).resolve().parent
    lines = set()
    for transcript in folder.glob("*.expected"):
        lines.update(transcript.read_text(encoding="utf-8").split("\n"))
    missing = [text for text in MESSAGES + STATEMENTS if text not in lines]
    for text in missing:
        print("in no expected transcript: " + text)
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
