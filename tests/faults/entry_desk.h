// One operator in front of the entry list on an account in which nothing is wrong: what he does
// there, what he is told, and what another one finds. Where the account lies, and what fails below
// it, is for who derives from this.
#pragma once

#include <string>
#include <vector>

#include "entries/check/check.h"
#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::faults {

using namespace ui;

class EntryDesk : public EntryListTest {
public:
    void TestBody() override {}

    // Opens the list anew. Returns whether all went well, as far as the operator can see.
    bool OpenList() {
        Form().Unload();
        windows.messages.clear();
        Form().Load();
        Form().Activate();
        return Form().Notice().empty();
    }

    // The operator has made two lines for the row with lines, and for a new one, and has not left
    // it yet.
    void ChangeRowWithLines(const std::string& digest) {
        Go(2, kDigestColumn);
        Type(digest);
        List().SetText(2, kAmountColumn, "25");
        Form().mDetailSql = LinesScript();
    }
    void AddRowWithLines() {
        const int row = AddFilledRow();
        Go(row, kElementColumn);
        Type("材料费");
        List().SetText(row, kAmountColumn, "25");
        Form().mDetailSql = LinesScript();
    }

    // All entries and their lines as another operator finds them, without the identities of new
    // ones: a number can be used up by a save that failed.
    std::string Content() {
        std::string content;
        const auto entries = other->OpenRecordSet(
            platform::StatementText("select dDate,cCenterCode,cItemCode,cKeyCode1,cElementCode,"
                                    "cDigest,mQC,iEleVid from PM_ItemQC order by iEleVid"));
        for (; !entries->EndOfFile(); entries->MoveNext()) {
            content += RowText(*entries, kIdentityField) + ":";
            platform::StatementText lines("select cCodeMx,mQC from PM_ItemQCsub where iEleVid=");
            lines.Number(entries->Field(kIdentityField).ToInteger()) << " order by cCodeMx";
            const auto found = other->OpenRecordSet(lines);
            for (; !found->EndOfFile(); found->MoveNext()) content += RowText(*found, 2) + ";";
            content += "\n";
        }
        return content + Read("select count(*) from PM_ItemQCsub").at(0);
    }
    // What the check of the account finds wrong, a line each.
    static std::string Findings() {
        std::string findings;
        for (const entries::CheckFinding& each : entries::CheckAccount().findings) {
            findings += std::to_string(each.identity) + " " + each.finding.text + "\n";
        }
        return findings;
    }
    // What the operator was told since the last call, on the notice line and in messages.
    std::string TakeTold() {
        std::string told = Form().Notice();
        for (const platform::Message& message : windows.messages) {
            if (message.buttons == platform::MessageButtons::Ok) told += message.text;
        }
        windows.messages.clear();
        return told;
    }

    // Another row can be saved, and nothing is left to be told of what was before.
    void ExpectUsable() {
        Go(1, kDigestColumn);
        Type("还能用");
        EXPECT_TRUE(List().LeaveRow()) << TakeTold();
        EXPECT_EQ(TakeTold(), "");
        EXPECT_EQ(Read("select cDigest from PM_ItemQC where iEleVid=1").at(0), "还能用");
    }

    // What stands in the list.
    std::string Shown() {
        std::string shown;
        for (int row = 1; row < List().Rows(); ++row) {
            for (int col = 0; col < List().Cols(); ++col) shown += List().Text(row, col) + "|";
            shown += "\n";
        }
        return shown;
    }

    using EntryListTest::AddFilledRow;
    using EntryListTest::Form;
    using EntryListTest::Go;
    using EntryListTest::List;
    using EntryListTest::Open;
    using EntryListTest::other;
    using EntryListTest::Read;
    using EntryListTest::Run;
    using EntryListTest::services;
    using EntryListTest::Type;
    using EntryListTest::windows;

protected:
    // Besides what the list's tests have: what lines can name, and nothing that is wrong.
    void MendContent() {
        Run("insert into inventory values('M01','钢筋','',10,null,'01')");
        Run("insert into inventory values('M02','钢板','',5,null,'01')");
        Run("update PM_ItemQC set mQC=350 where iEleVid=2");
        Run("delete from PM_ItemQC where iEleVid=3");
    }
    // Before what the desk stands on goes away.
    void LeaveDesk() {
        windows.answers.assign(1, platform::MessageAnswer::Yes);
        Form().Unload();
        data::gConn = account.Connect();
        data::gEnv = &environment;
    }

private:
    static constexpr int kIdentityField = 7;

    static platform::StatementText LinesScript() {
        platform::StatementText script("delete from PM_ItemQCsub where iEleVid=");
        script.EntryPlaceholder()
            << " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(";
        script.EntryPlaceholder() << ",'M01',10,2,20) insert into "
                                     "PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(";
        script.EntryPlaceholder() << ",'M02',5,1,5)";
        return script;
    }
    static std::string RowText(const platform::RecordSet& row, int fields) {
        std::string text;
        for (int i = 0; i < fields; ++i) text += row.Field(i).ToText() + " ";
        return text;
    }
};

}  // namespace kelvane::faults
