// The entry list on a real account: gConn and gEnv are two connections to it, their statements
// recorded; a third one is another operator's. What the operator would see is kept.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/login_context.h"
#include "tests/support/acting_windows.h"
#include "tests/support/embedded_account.h"
#include "tests/support/login_context_reset.h"
#include "tests/support/memory_record_set.h"
#include "tests/support/recording_database.h"
#include "tests/support/recording_diagnostics.h"
#include "tests/support/recording_reference_list.h"
#include "tests/support/recording_registry.h"
#include "tests/support/test_host.h"
#include "ui/entry_list/entry_list.h"
#include "ui/windows.h"

namespace kelvane::ui {

// One keyword field, 标段; three entries in this order: 1 (plain element), 2 (kept in inventory
// lines, which do not come to its amount) and 3, of an item that was settled before the start.
class EntryListTest : public testing::Test {
protected:
    EntryListTest() : account(Name(), Tables()), other(account.Connect()) {
        services.windows = &windows;
        services.registry = &registry;
        services.diagnostics = &diagnostics;
        services.createReferenceList = [this] {
            return std::make_unique<support::RecordingReferenceList>(references);
        };
        data::gServices = &services;
        data::gLogin = &login;
        data::gEnv = &environment;
        data::gConn = std::make_shared<support::RecordingConnection>(account.Connect(), log);
        data::gColorWhite = 0xFFFFFF;
        data::gColorLocked = controls::Rgb(205, 208, 215);
        data::gColorPink = controls::Rgb(247, 237, 236);
        data::gNumPointQty = data::gNumPointPrice = 2;
        login.exempt = true;
        environment.startPeriod = "2004-07-01";
        ConnectWindows();
        for (const platform::FixedText& statement : kContent) Run(statement);
    }

    ~EntryListTest() override {
        frmPeriodItem& form = GetPeriodItemForm();
        log.failing.clear();
        windows.answers.assign(1, platform::MessageAnswer::Yes);
        form.Unload();
        form.FocusMoved = nullptr;
        support::ResetLoginContext();
    }

    static inline const std::vector<platform::FixedText> kContent{
        "insert into PM_SettingInf values('NumMax_EleQc','3')",
        "insert into AccInformation values('PM','dPMStartDate','2004-07-01')",
        "insert into AccInformation values('PM','dPMStartDatePeriod','2004-07-01')",
        "insert into fitemstructure values('97','citemname',3,0,0,'项目名称')",
        "insert into fitemstructure values('97','标段',3,1,1,'标段')",
        "insert into PM_DutyCenter values('D01','工程一部')",
        "insert into PM_DutyCenter values('D02','工程二部')",
        "insert into fitemss97 values('P01','一号楼')",
        "insert into fitemss97 values('P02','二号楼')",
        "insert into fitemss97 values('P03','三号楼')",
        "insert into fitemss97sub(citemcode,iclose,标段) values('P01',0,'一标段')",
        "insert into fitemss97sub(citemcode,iclose,标段) values('P02',0,'二标段')",
        "insert into fitemss97sub(citemcode,iclose,denddate,标段) "
        "values('P03',1,'2003-12-20','一标段')",
        "insert into PM_DutycenterSub values('D01','P01','一标段',null)",
        "insert into PM_DutycenterSub values('D01','P02','二标段',null)",
        "insert into PM_ItemElement values('E01','人工费',0,'')",
        "insert into PM_ItemElement values('E02','材料费',1,'01')",
        "insert into PM_ItemElement values('E03','机械费',2,'')",
        "insert into PM_ItemQC values(1,'2004-06-01','D01','P01','一标段','','E01','人工',1234.5)",
        "insert into PM_ItemQC values(2,'2004-06-02','D01','P02','二标段','','E02','钢材',300)",
        "insert into PM_ItemQC values(3,'2003-11-30','D01','P03','一标段','','E03','吊车',80)",
        "insert into PM_ItemQCsub values(2,'M01',10,20,200)",
        "insert into PM_ItemQCsub values(2,'M02',5,30,150)",
    };

    frmPeriodItem& Form() { return GetPeriodItemForm(); }
    controls::Grid& List() { return Form().GridPeriodItem; }
    frmPeriodItem& Open() {
        Form().Load();
        Form().Activate();
        log.statements.clear();
        return Form();
    }

    // What the operator does in the list.
    bool Go(int row, int col) { return List().MoveTo(row, col); }
    controls::GridAnswer Type(std::string_view text) {
        List().BeginEdit();
        List().ReplaceEditText(text);
        return List().FinishEdit();
    }
    // What the operator chooses in the next pick lists: a row of these texts.
    void Choose(const std::vector<std::string>& texts) {
        references.choose = [texts] {
            return std::make_unique<support::MemoryRecordSet>(
                std::vector<std::string>{"a", "b", "c", "d"},
                std::vector<support::MemoryRecordSet::Row>{support::TextRow(texts)});
        };
    }
    // A new row with everything that an entry needs, current in its last cell.
    int AddFilledRow(std::string_view amount = "1") {
        Form().AddEntryRow();
        const int row = List().Rows() - 1;
        Go(row, kCenterColumn);
        Type("D01");
        Go(row, kItemColumn);
        Choose({"P01", "一号楼", "一标段", ""});
        List().PressReference();
        references.choose = nullptr;
        Go(row, kElementColumn);
        Type("人工费");
        Go(row, kDigestColumn);
        Type("新");
        Go(row, kAmountColumn);
        Type(amount);
        return row;
    }

    // Runs a statement as another operator does.
    void Run(const platform::FixedText& statement) { other->Execute(statement); }
    // The first field of each row of a query, as another operator sees it.
    std::vector<std::string> Read(const platform::FixedText& query) {
        std::vector<std::string> texts;
        const auto rows = other->OpenRecordSet(query);
        for (; !rows->EndOfFile(); rows->MoveNext()) texts.push_back(rows->Field(0).ToText());
        return texts;
    }
    std::vector<std::string> Messages() const { return support::MessageLines(windows); }

    support::EmbeddedAccount account;
    std::shared_ptr<platform::Connection> other;
    support::StatementLog log;
    support::ActingWindows windows;
    support::RecordingRegistry registry;
    support::RecordingDiagnostics diagnostics;
    support::ReferenceListLog references;
    support::TestLogin login;
    platform::ConnectionDataAccess dataAccess{
        std::make_shared<support::RecordingConnection>(account.Connect(), log, "gEnv")};
    support::TestEnvironment environment{dataAccess};
    platform::Services services;

private:
    static std::string Name() {
        const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string(test->test_suite_name()) + "_" + test->name();
        for (char& letter : name) letter = letter == '/' ? '_' : letter;
        return name;
    }
    static std::vector<sqlite::TableDescription> Tables() {
        std::vector<sqlite::TableDescription> tables = support::EmbeddedTables();
        for (sqlite::TableDescription& table : tables) {
            if (table.name != data::kItemKeyTable) continue;
            for (const char* field : {"标段", "楼号"}) {
                table.columns.push_back({field, std::string(data::kItemKeyType), true});
            }
        }
        return tables;
    }
};

}  // namespace kelvane::ui
