#include "adapters/reference/reference_list_service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/acting_windows.h"
#include "tests/support/embedded_account.h"
#include "tests/support/recording_database.h"
#include "tests/support/test_host.h"

namespace kelvane::reference {
namespace {

using platform::Connection;
using platform::DatabaseError;
using platform::RecordSet;
using platform::StatementText;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kRestricted =
    "select distinct PM_DutycenterSub.cItemCode,Fitemss97.citemname from PM_DutycenterSub left "
    "join Fitemss97 on PM_DutycenterSub.cItemCode = Fitemss97.citemcode  where cCenterCode = '";

// What a list showed when the operator saw it.
struct SeenList {
    std::string caption;
    std::vector<std::string> titles;
    std::vector<int> widths;
    std::vector<std::vector<std::string>> rows;
};

class ReferenceListServiceTest : public testing::Test {
protected:
    ReferenceListServiceTest()
        : mAccount(testing::UnitTest::GetInstance()->current_test_info()->name()),
          mPlain(mAccount.Connect()),
          connection(std::make_shared<support::RecordingConnection>(mPlain, log)),
          mAccess(std::make_shared<support::RecordingConnection>(mPlain, log, "gEnv")),
          service({windows, [this]() -> platform::HostDataAccess& { return mAccess; },
                   [this] { return center; }}) {
        for (const StatementText& statement :
             {StatementText("insert into PM_DutyCenter (cCenterCode,cCenterName) values "
                            "('D01','工程一部')"),
              StatementText("insert into PM_DutyCenter (cCenterCode,cCenterName) values "
                            "('D02','工程二部')"),
              StatementText("insert into PM_DutycenterSub (cCenterCode,cItemCode) values "
                            "('D02','P002')"),
              StatementText("insert into PM_DutycenterSub (cCenterCode,cItemCode) values "
                            "('D01','P001')"),
              StatementText("insert into Fitemss97 (citemcode,citemname) values "
                            "('P001','滨江花园')"),
              StatementText("insert into Fitemss97 (citemcode,citemname) values "
                            "('P002','南湖大桥')"),
              StatementText("insert into pm_equipment (cEquipCode,cEquipName,cEquipModel,"
                            "dblTbUPrice,bEquipEnd) values ('Q01','塔吊','QTZ80',1250.5,1)"),
              StatementText("insert into pm_equipment (cEquipCode,cEquipName,cEquipModel,"
                            "dblTbUPrice,bEquipEnd) values ('Q02','旧塔吊','QTZ40',900,0)")}) {
            mPlain->Execute(statement);
        }
    }

    // What the operator does in the next list; it is kept in `seen`.
    void Next(std::optional<std::size_t> choice) {
        windows.acts.emplace_back([this, choice](controls::Form& form) {
            auto& list = dynamic_cast<ReferenceWindow&>(form);
            seen = {list.Caption(), list.Titles(), {}, list.ShownRows()};
            for (int column = 0; column < list.GridReference.Cols(); ++column) {
                seen.widths.push_back(list.GridReference.ColumnWidth(column));
            }
            list.Choose(choice);
        });
    }

    support::StatementLog log;
    support::ActingWindows windows;
    support::TestLogin login;
    std::string center = "D01";
    SeenList seen;

private:
    support::EmbeddedAccount mAccount;
    std::shared_ptr<Connection> mPlain;

protected:
    std::shared_ptr<Connection> connection;

private:
    platform::ConnectionDataAccess mAccess;

protected:
    ReferenceListService service;
};

TEST_F(ReferenceListServiceTest, KeysHaveTheirOwnTitlesAndWidths) {
    Next(1);
    const auto row = service.ListByKey(
        login, StatementText("select * from PM_DutyCenter order by cCenterCode"), "Pm_Dutyref", {});
    EXPECT_EQ(seen.caption, "责任中心参照");
    EXPECT_THAT(seen.titles, ElementsAre("责任中心编码", "责任中心名称"));
    EXPECT_THAT(seen.widths, ElementsAre(2500, 3000));
    EXPECT_THAT(seen.rows,
                ElementsAre(ElementsAre("D01", "工程一部"), ElementsAre("D02", "工程二部")));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->RecordCount(), 1);
    EXPECT_EQ(row->Field("cCenterCode").ToText(), "D02");
    EXPECT_EQ(row->Field("cCenterName").ToText(), "工程二部");
    EXPECT_THAT(log.Lines(), ElementsAre("gEnv: select * from PM_DutyCenter order by cCenterCode"));
}

TEST_F(ReferenceListServiceTest, AnEmptyElementListIsShownEmpty) {
    Next(0);
    EXPECT_EQ(
        service.ListByKey(login, StatementText("select * from pm_itemelement"), "Pm_Eleref", {}),
        nullptr);
    EXPECT_EQ(seen.caption, "要素参照");
    EXPECT_THAT(seen.titles, ElementsAre("要素编码", "要素名称"));
    EXPECT_THAT(seen.rows, IsEmpty());
}

TEST_F(ReferenceListServiceTest, EquipmentIsKnownByName) {
    Next(0);
    const auto row = service.ListByName(login, "PM_Equipment", {});
    EXPECT_THAT(log.Lines(), ElementsAre("gEnv: select cEquipCode,cEquipName,cEquipModel,"
                                         "dblTbUPrice from pm_equipment where bEquipEnd=1"));
    EXPECT_THAT(seen.titles, ElementsAre("设备编码", "设备名称", "规格型号", "台班单价"));
    EXPECT_THAT(seen.rows, ElementsAre(ElementsAre("Q01", "塔吊", "QTZ80", "1250.5")));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->Field("dblTbUPrice").ToText(), "1250.5");
}

TEST_F(ReferenceListServiceTest, UnknownKeysAndNamesAreErrors) {
    const StatementText statement("select * from PM_DutyCenter");
    EXPECT_THROW(service.ListByKey(login, statement, "Pm_Other", {}), DatabaseError);
    EXPECT_THROW(service.ListByName(login, "Pm_Dutyref", {}), DatabaseError);
    EXPECT_THROW(service.ListByName(login, "", {}), DatabaseError);
    EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(ReferenceListServiceTest, ListsByStatementTakeTitlesAndWidths) {
    Next(1);
    const auto row =
        service.ListByStatement(login, StatementText("select cItemCode,citemname from  Fitemss97 "),
                                "项目编码,项目名称", "2500,3000", {});
    EXPECT_EQ(seen.caption, "参照");
    EXPECT_THAT(seen.titles, ElementsAre("项目编码", "项目名称"));
    EXPECT_THAT(seen.widths, ElementsAre(2500, 3000));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->Field(0).ToText(), "P002");
    EXPECT_EQ(row->Field(1).ToText(), "南湖大桥");
    EXPECT_THAT(log.Lines(), ElementsAre("gEnv: select cItemCode,citemname from  Fitemss97 "));
}

TEST_F(ReferenceListServiceTest, TitlesAndWidthsThatDoNotFitTheQuery) {
    const StatementText statement("select cItemCode,citemname from  Fitemss97 ");
    const std::vector<
        std::tuple<std::string, std::string, std::vector<std::string>, std::vector<int>>>
        cases{{"项目编码,", "2500,3000", {"项目编码", ""}, {2500, 3000}},
              {"a,b,c", "1100,1200,300", {"a", "b"}, {1100, 1200}},
              {"a", "2500,3000", {"a"}, {2500}},
              {"", "", {""}, {2000}},
              {"a,b", "", {"a", "b"}, {2000, 2000}},
              {"a,b", "1150,x", {"a", "b"}, {1150, 2000}},
              {"a,b", "-5,70", {"a", "b"}, {2000, 2000}},
              {"a,b", "99999999999,7", {"a", "b"}, {2000, 2000}},
              {"a,b", "999999,1107", {"a", "b"}, {20000, 1107}}};
    for (const auto& [titles, widths, shownTitles, shownWidths] : cases) {
        Next(std::nullopt);
        EXPECT_EQ(service.ListByStatement(login, statement, titles, widths, {}), nullptr);
        EXPECT_EQ(seen.titles, shownTitles) << titles;
        EXPECT_EQ(seen.widths, shownWidths) << widths;
    }
}

TEST_F(ReferenceListServiceTest, TheRestrictedItemListIsCompletedWithTheCurrentCenter) {
    const StatementText handed("select distinct PM_DutycenterSub.cItemCode,Fitemss97.citemname");
    Next(0);
    const auto row = service.ListByStatement(login, handed, "项目编码,项目名称", "2500,3000", {});
    EXPECT_THAT(log.Lines(), ElementsAre("gEnv: " + std::string(kRestricted) + "D01'"));
    EXPECT_THAT(seen.rows, ElementsAre(ElementsAre("P001", "滨江花园")));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->Field(0).ToText(), "P001");
}

TEST_F(ReferenceListServiceTest, ACenterWithAnApostropheNeverReachesTheAccount) {
    const StatementText handed("select distinct PM_DutycenterSub.cItemCode,Fitemss97.citemname");
    center = "D01' or '1'='1";
    EXPECT_THROW(service.ListByStatement(login, handed, "a,b", "1,1", {}),
                 platform::MalformedStatement);
    EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(ReferenceListServiceTest, WithoutACurrentCenterTheRestrictedListIsAFailingQuery) {
    const auto access = std::make_shared<platform::ConnectionDataAccess>(connection);
    ReferenceListService bare(
        {windows, [&]() -> platform::HostDataAccess& { return *access; }, {}});
    const StatementText handed("select distinct PM_DutycenterSub.cItemCode,Fitemss97.citemname");
    EXPECT_THROW(bare.ListByStatement(login, handed, "a,b", "1,1", {}), DatabaseError);
}

TEST_F(ReferenceListServiceTest, AFailingQueryShowsNoList) {
    bool chosen = true;
    const StatementText broken("select cNothing from PM_DutyCenter");
    EXPECT_THROW(service.ListByKey(login, broken, "Pm_Dutyref", {}), DatabaseError);
    EXPECT_THROW(service.ListByStatement(login, broken, "a", "1", {}), DatabaseError);
    EXPECT_THROW(service.ListOnConnection(connection, broken, "a", "1", chosen), DatabaseError);
    EXPECT_FALSE(chosen);
    StatementText malformed("select * from PM_DutyCenter where cCenterCode = '");
    malformed.Inside("'") << "'";
    EXPECT_THROW(service.ListByStatement(login, malformed, "a", "1", {}),
                 platform::MalformedStatement);
    const StatementText otherColumns("select cItemCode,citemname from  Fitemss97 ");
    EXPECT_THROW(service.ListByKey(login, otherColumns, "Pm_Dutyref", {}), DatabaseError);
}

TEST_F(ReferenceListServiceTest, OnAConnectionTheListTellsWhetherARowWasChosen) {
    const StatementText statement(
        "select a.citemcode,b.citemname from pm_dutycentersub a,fitemss97 b where ccentercode='D02'"
        " and a.citemcode=b.citemcode order by a.citemcode");
    const auto before = connection;
    bool chosen = false;
    Next(0);
    const auto row =
        service.ListOnConnection(connection, statement, "项目编码,项目名称", "2500,3000", chosen);
    EXPECT_TRUE(chosen);
    EXPECT_EQ(connection, before);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->Field(0).ToText(), "P002");
    EXPECT_EQ(row->Field(1).ToText(), "南湖大桥");
    EXPECT_THAT(log.Lines(), ElementsAre("gConn: " + statement.Text()));
    Next(std::nullopt);
    EXPECT_EQ(service.ListOnConnection(connection, statement, "a,b", "", chosen), nullptr);
    EXPECT_FALSE(chosen);
}

TEST_F(ReferenceListServiceTest, ClosingTheWindowChoosesNothing) {
    windows.acts.emplace_back([](controls::Form&) {});
    EXPECT_EQ(service.ListByName(login, "PM_Equipment", {}), nullptr);
}

}  // namespace
}  // namespace kelvane::reference
