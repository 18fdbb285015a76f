#include "entries/account_master_data.h"

#include "tests/database/data_fixture.h"

namespace kelvane::entries {
namespace {

using data::Lines;

class AccountMasterDataTest : public data::DataTest {
protected:
    void SetUp() override {
        DataTest::SetUp();
        Run("insert into PM_ItemElement values('E02','材料费',1,'01')");
        Run("insert into PM_ItemElement values('E03','杂费',1,'无分类')");
        Run("insert into computationunit values('01','吨')");
        Run("insert into inventory values('M01','钢筋','HRB335',10,'01','01')");
        Run("insert into inventory values('M02','钢筋','HRB400',12,'01','01')");
        Run("insert into inventory values('M03','砂','中砂',20,null,'0102')");
        Run("insert into inventory values('M04','玻璃','5mm',30,'01','02')");
        Run("insert into pm_equipment values('J01','吊车','QY25',8,1)");
        Run("insert into pm_equipment values('J02','设备','',9,0)");
    }

    std::string Found(DetailKind kind, LineField by, const std::string& sought,
                      const std::string& element = "材料费", const std::string& own = "") {
        const auto item = masterData.FindLineItem(kind, by, sought, element, own);
        if (!item) return "-";
        return item->code + "," + item->name + "," + item->model + "," +
               item->unit.value_or("none");
    }

    AccountMasterData masterData;
};

TEST_F(AccountMasterDataTest, InventoryByCodeIsOfTheElementsClassOrBelowIt) {
    EXPECT_EQ(Found(DetailKind::Inventory, LineField::Code, "M01"), "M01,钢筋,HRB335,吨");
    const Lines expected{
        "gConn: select cInvCCode from pm_itemelement where cElementName='材料费'",
        "gConn: select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from inventory a "
        "left join computationunit b on a.cSAComUnitCode=b.cComUnitCode where a.cInvCode='M01' and "
        "a.cInvCCode like '01%'"};
    EXPECT_EQ(mLog.Lines(), expected);
    EXPECT_EQ(Found(DetailKind::Inventory, LineField::Code, "M03"), "M03,砂,中砂,");
    EXPECT_EQ(Found(DetailKind::Inventory, LineField::Code, "M04"), "-");
    EXPECT_EQ(Found(DetailKind::Inventory, LineField::Code, "M04", "杂费"), "M04,玻璃,5mm,吨");
}

TEST_F(AccountMasterDataTest, InventoryByNameIsOfTheElementsVeryClass) {
    EXPECT_EQ(Found(DetailKind::Inventory, LineField::Name, "砂"), "-");
    EXPECT_EQ(mLog.Lines().back(),
              "gConn: select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from "
              "inventory a left join computationunit b on a.cSAComUnitCode=b.cComUnitCode where "
              "a.cInvName='砂' and a.cInvCCode='01'");
    EXPECT_EQ(Found(DetailKind::Inventory, LineField::Name, "钢筋", "材料费", "M02"),
              "M02,钢筋,HRB400,吨");
    EXPECT_EQ(Found(DetailKind::Inventory, LineField::Name, "砂", "杂费"), "M03,砂,中砂,");
}

TEST_F(AccountMasterDataTest, OnlyEquipmentOfTheLastLevelIsFound) {
    EXPECT_EQ(Found(DetailKind::Equipment, LineField::Code, "J01"), "J01,吊车,QY25,none");
    EXPECT_EQ(Found(DetailKind::Equipment, LineField::Name, "吊车"), "J01,吊车,QY25,none");
    EXPECT_EQ(Found(DetailKind::Equipment, LineField::Code, "J02"), "-");
    EXPECT_EQ(mLog.Lines().back(),
              "gConn: select * from pm_equipment where cEquipCode='J02' and bEquipEnd=1");
}

TEST_F(AccountMasterDataTest, LinesOfOtherEntriesCountByQuantityAndAmount) {
    Run("insert into PM_ItemQC(iEleVid,cItemCode,cElementCode,mQC) values(1,'P01','E02',300)");
    Run("insert into PM_ItemQC(iEleVid,cItemCode,cElementCode,mQC) values(2,'P01','E02',300)");
    Run("insert into PM_ItemQCsub values(1,'M01',10,20,200)");
    Run("insert into PM_ItemQCsub values(2,'M01',10,2.5,25)");
    const RecordedLines others = masterData.LinesOfOthers({2, "P01", "材料费"}, "E02", "M01");
    EXPECT_EQ(others.quantity, 20.0F);
    EXPECT_EQ(others.amount.ToText(), "200");
    const RecordedLines none = masterData.LinesOfOthers({1, "P01", "材料费"}, "E02", "M07");
    EXPECT_EQ(none.quantity, 0.0F);
    EXPECT_TRUE(none.amount.IsZero());
}

TEST_F(AccountMasterDataTest, ElementsAreKnownByName) {
    EXPECT_EQ(masterData.ElementDetail("材料费"), std::int16_t{1});
    EXPECT_FALSE(masterData.ElementDetail("没有"));
    EXPECT_EQ(masterData.ElementCode("材料费"), "E02");
    EXPECT_THROW(masterData.ElementCode("没有"), platform::DatabaseError);
}

TEST_F(AccountMasterDataTest, AnItemIsAskedForInItsCentre) {
    Run("insert into fitemss97 values('P01','一号楼')");
    Run("insert into PM_DutycenterSub values('D01','P01',null,null)");
    EXPECT_TRUE(masterData.ItemInCenter("P01", "D01"));
    EXPECT_EQ(data::gRefCenterCode, "D01");
    EXPECT_TRUE(data::gRefByCenter);
    EXPECT_FALSE(masterData.ItemInCenter("P01", "D02"));
    EXPECT_FALSE(masterData.ItemInCenter("p01", "D01"));
}

}  // namespace
}  // namespace kelvane::entries
