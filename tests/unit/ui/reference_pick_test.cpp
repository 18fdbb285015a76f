#include "ui/common/reference_pick.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "data/login_context.h"
#include "tests/support/login_context_reset.h"
#include "tests/support/memory_record_set.h"
#include "tests/support/recording_diagnostics.h"
#include "tests/support/recording_reference_list.h"
#include "tests/support/test_host.h"

namespace kelvane::ui {
namespace {

using platform::Money;
using platform::Value;
using support::MemoryRecordSet;
using support::TextRow;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kCaptionQuery =
    "select ctext  from fitemstructure where citem_class = '97' and cfield_name = 'citemname' and "
    "isubitem = '0'";

// The host's way to the account: answers every query with the caption it was given, or fails.
class CaptionAccess : public platform::HostDataAccess {
public:
    std::vector<std::string> queries;
    std::vector<std::string> captions{"项目名称"};
    bool fails = false;

protected:
    std::unique_ptr<platform::RecordSet> DoQuery(const std::string& statement,
                                                 int option) override {
        queries.push_back(statement + " / " + std::to_string(option));
        if (fails) throw platform::DatabaseError("no such table");
        std::vector<MemoryRecordSet::Row> rows;
        for (const std::string& caption : captions) rows.push_back(TextRow({caption}));
        return std::make_unique<MemoryRecordSet>(std::vector<std::string>{"ctext"}, rows);
    }
};

class SelectReferenceTest : public testing::Test {
protected:
    SelectReferenceTest() {
        mServices.diagnostics = &diagnostics;
        mServices.createReferenceList = [this] {
            return std::make_unique<support::RecordingReferenceList>(log);
        };
        data::gLogin = &login;
        data::gEnv = &mEnvironment;
        data::gServices = &mServices;
    }
    ~SelectReferenceTest() override { support::ResetLoginContext(); }

    void Offer(std::vector<std::string> names, MemoryRecordSet::Row row) {
        log.choose = [names = std::move(names), row = std::move(row)] {
            return std::make_unique<MemoryRecordSet>(names, std::vector<MemoryRecordSet::Row>{row});
        };
    }
    void Select(int kind) {
        SelectReference(static_cast<std::int16_t>(kind), code, description, present);
    }
    void ExpectNothingTaken() const {
        EXPECT_EQ(code, "旧编码");
        EXPECT_EQ(description, "旧名称");
    }

    support::TestLogin login;
    CaptionAccess access;
    support::ReferenceListLog log;
    support::RecordingDiagnostics diagnostics;
    std::string code = "旧编码";
    std::string description = "旧名称";
    std::string present = "D07";

private:
    support::TestEnvironment mEnvironment{access};
    platform::Services mServices;
};

TEST_F(SelectReferenceTest, CentersOfAnOperatorAreTheAuthorisedOnes) {
    login.userId = "zhang";
    Offer({"x", "cCenterCode", "cCenterName"}, TextRow({"", "D01", "工程一部"}));
    Select(kCenterReference);
    EXPECT_THAT(log.calls,
                ElementsAre("[by key][zhang][select * from PM_DutyCenter inner join  PM_UserAuth "
                            "on PM_DutyCenter.cCenterCode = PM_UserAuth.cCenterCode where "
                            "PM_UserAuth.cUserID = 'zhang'][Pm_Dutyref][0,1,1]"));
    EXPECT_EQ(code, "D01");
    EXPECT_EQ(description, "工程一部");
    EXPECT_THAT(access.queries, IsEmpty());
}

TEST_F(SelectReferenceTest, AnExemptOperatorSeesEveryCenter) {
    login.exempt = true;
    Select(kCenterReference);
    EXPECT_EQ(log.present, "D07");
    EXPECT_THAT(log.calls,
                ElementsAre("[by key][demo][select * from PM_DutyCenter][Pm_Dutyref][0,1,1]"));
}

TEST_F(SelectReferenceTest, ItemsHaveTheCaptionOfTheirNameField) {
    access.captions = {"工程名称"};
    Offer({"cItemCode", "citemname"}, TextRow({"P001", "滨江花园"}));
    Select(kItemReference);
    EXPECT_THAT(access.queries, ElementsAre(std::string(kCaptionQuery) + " / 2"));
    EXPECT_THAT(log.calls, ElementsAre("[by statement][demo][select cItemCode,citemname from  "
                                       "Fitemss97 ][项目编码,工程名称][2500,3000][0,1,1]"));
    EXPECT_EQ(code, "P001");
    EXPECT_EQ(description, "滨江花园");
}

TEST_F(SelectReferenceTest, RestrictedItemsAreHandedOverWithoutTheirSource) {
    data::gRefByCenter = true;
    data::gRefCenterCode = "D01";
    Select(kItemReference);
    EXPECT_THAT(access.queries, ElementsAre(std::string(kCaptionQuery) + " / 2"));
    EXPECT_THAT(log.calls,
                ElementsAre("[by statement][demo][select distinct PM_DutycenterSub.cItemCode,"
                            "Fitemss97.citemname][项目编码,项目名称][2500,3000][0,1,1]"));
}

TEST_F(SelectReferenceTest, ItemsOpenWithoutACaptionWhenThereIsNone) {
    const std::string expected =
        "[by statement][demo][select cItemCode,citemname from  Fitemss97 ][项目编码,][2500,3000]"
        "[0,1,1]";
    access.captions.clear();
    Select(kItemReference);
    access.fails = true;
    Select(kItemReference);
    EXPECT_THAT(log.calls, ElementsAre(expected, expected));
    EXPECT_THAT(diagnostics.details, ElementsAre("no such table"));
}

TEST_F(SelectReferenceTest, Elements) {
    Offer({"cElementCode", "cElementName", "iElementDetail"}, TextRow({"E01", "人工费", "0"}));
    Select(kElementReference);
    EXPECT_THAT(log.calls,
                ElementsAre("[by key][demo][select * from pm_itemelement][Pm_Eleref][0,1,1]"));
    EXPECT_EQ(code, "E01");
    EXPECT_EQ(description, "人工费");
}

TEST_F(SelectReferenceTest, EquipmentIsDescribedByNameModelAndPrice) {
    Offer({"cEquipCode", "cEquipName", "cEquipModel", "dblTbUPrice"},
          {Value("Q01"), Value("塔吊"), Value("QTZ80"), Value(1250.5)});
    Select(kEquipmentReference);
    EXPECT_THAT(log.calls, ElementsAre("[by name][demo][PM_Equipment][0,1,1]"));
    EXPECT_EQ(code, "Q01");
    EXPECT_EQ(description, "塔吊,QTZ80,1250.5");
}

TEST_F(SelectReferenceTest, InventoryIsDescribedByNameKindPriceAndUnit) {
    Offer({"cInvCode", "cInvName", "cInvStd", "iInvRCost", "cComUnitName"},
          {Value("010101"), Value("螺纹钢"), Value("Φ12"), Value(Money::FromText("3850.5")),
           Value("吨")});
    Select(kInventoryReference);
    EXPECT_THAT(
        log.calls,
        ElementsAre("[by statement][demo][select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,"
                    "b.cComUnitName from inventory a left join computationunit b on "
                    "a.cSAComUnitCode=b.cComUnitCode][存货编码,存货名称,存货规格,存货单价,存货单位]"
                    "[1000,1000,1000,1000,1000][0,1,1]"));
    EXPECT_EQ(code, "010101");
    EXPECT_EQ(description, "螺纹钢,Φ12,3850.5,吨");
}

TEST_F(SelectReferenceTest, InventoryWithoutAUnitEndsInAComma) {
    Offer({"cInvCode", "cInvName", "cInvStd", "iInvRCost", "cComUnitName"},
          {Value("010101"), Value("螺纹钢"), Value("Φ12"), Value(3850.5), Value()});
    Select(kInventoryReference);
    EXPECT_EQ(description, "螺纹钢,Φ12,3850.5,");
}

TEST_F(SelectReferenceTest, EmptyPartsOfADescriptionKeepTheirCommas) {
    Offer({"cEquipCode", "cEquipName", "cEquipModel", "dblTbUPrice"},
          {Value("Q01"), Value(), Value(), Value()});
    Select(kEquipmentReference);
    EXPECT_EQ(description, ",,");
}

// One service a call, in whatever way it ends.
TEST_F(SelectReferenceTest, NothingChosenLeavesTheOutputs) {
    const auto noRows = [] {
        return std::make_unique<MemoryRecordSet>(std::vector<std::string>{"cCenterCode"},
                                                 std::vector<MemoryRecordSet::Row>{});
    };
    const std::vector<std::function<std::unique_ptr<platform::RecordSet>()>> outcomes{
        [] { return nullptr; }, noRows,
        []() -> std::unique_ptr<platform::RecordSet> {
            throw platform::DatabaseError("malformed query");
        },
        []() -> std::unique_ptr<platform::RecordSet> { throw 1; }};
    for (const auto& outcome : outcomes) {
        log.choose = outcome;
        for (const int kind : {0, 1, 2, 108, 110}) Select(kind);
        ExpectNothingTaken();
    }
    EXPECT_EQ(log.created, 20);
    EXPECT_EQ(log.calls.size(), 20U);
}

TEST_F(SelectReferenceTest, AMissingColumnLeavesItsOwnOutputAlone) {
    Offer({"cCenterCode"}, TextRow({"D01"}));
    Select(kCenterReference);
    EXPECT_EQ(code, "D01");
    EXPECT_EQ(description, "旧名称");
    Offer({"cCenterName"}, TextRow({"工程一部"}));
    Select(kCenterReference);
    EXPECT_EQ(code, "D01");
    EXPECT_EQ(description, "工程一部");
    EXPECT_THAT(diagnostics.places, ElementsAre("SelectReference", "SelectReference"));
}

TEST_F(SelectReferenceTest, AnotherKindAsksNobody) {
    Offer({"a", "b"}, TextRow({"1", "2"}));
    for (const int kind : {-1, 3, 107, 109, 111}) Select(kind);
    ExpectNothingTaken();
    EXPECT_EQ(log.created, 0);
    EXPECT_THAT(access.queries, IsEmpty());
}

TEST_F(SelectReferenceTest, AUserWithAnApostropheGetsNoList) {
    login.userId = "o'brien";
    Offer({"cCenterCode", "cCenterName"}, TextRow({"D01", "工程一部"}));
    Select(kCenterReference);
    ExpectNothingTaken();
    EXPECT_THAT(log.calls, IsEmpty());
    EXPECT_THAT(diagnostics.places, ElementsAre("SelectReference"));
}

TEST_F(SelectReferenceTest, WithoutAServiceNothingHappens) {
    data::gServices->createReferenceList = nullptr;
    Select(kCenterReference);
    ExpectNothingTaken();
}

}  // namespace
}  // namespace kelvane::ui
