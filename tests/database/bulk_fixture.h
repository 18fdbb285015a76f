// An account for tests of what is written many rows at once: centre D01 with item P01, elements
// 人工费 (plain) and 机械费 (equipment), entries 1 and 2 of which 2 has a line, the next number 10.
#pragma once

#include <algorithm>
#include <string>

#include "entries/account_master_data.h"
#include "entries/bulk/import.h"
#include "tests/database/data_fixture.h"
#include "tests/support/memory_journal.h"

namespace kelvane::entries {

using data::Lines;

class BulkFixture : public data::DataTest {
protected:
    void SetUp() override {
        DataTest::SetUp();
        mLogin.exempt = true;
        mEnvironment.startPeriod = "2004-07";
        data::gPmStartDate = {2004, 7, 1};
        data::gPmStartYear = 2004;
        data::gNumPointMoney = data::gNumPointPrice = data::gNumPointQty = 2;
        Run("insert into PM_SettingInf values('NumMax_EleQc','9')");
        Run("insert into PM_DutyCenter values('D01','一分公司')");
        Run("insert into fitemss97 values('P01','一号楼')");
        Run("insert into PM_DutycenterSub values('D01','P01','一标段',null)");
        Run("insert into PM_ItemElement values('E01','人工费',0,null)");
        Run("insert into PM_ItemElement values('E02','机械费',2,null)");
        Run("insert into pm_equipment values('J01','吊车','QY25',8,1)");
        Run("insert into PM_ItemQC values(1,'2004-06-01','D01','P01','','','E01','旧',300)");
        Run("insert into PM_ItemQC values(2,'2004-06-02','D01','P01','','','E02','吊车',80)");
        Run("insert into PM_ItemQCsub values(2,'J01',8,10,80)");
        request.journal = &journal;
        request.head.kind = "import";
        request.head.hash = "abc";
        request.head.user = "demo";
        request.head.time = {2026, 11, 22, 8, 30, 0};
    }

    BulkEntry& Add(const std::string& digest, const std::string& amount,
                   const std::string& element = "人工费") {
        BulkEntry entry;
        entry.row = static_cast<int>(file.entries.size()) + 2;
        entry.texts.cells = {"", "2004-06-30", "D01", "P01", "", "", "", element, digest, amount};
        file.entries.push_back(entry);
        return file.entries.back();
    }
    // The stored entry as a file that was written from the account has it.
    BulkEntry& AddStored(std::int32_t identity) {
        const EntryRecord stored = ReadEntryRecords().at(identity);
        const Entry& values = stored.entry;
        BulkEntry& entry = Add(values.digest, values.amount.ToText(), values.elementName);
        entry.texts[kDateColumn] = values.date.DateText('-');
        entry.identity = std::to_string(identity);
        entry.check = CheckValueOf(stored);
        for (const DetailLine& line : stored.lines) {
            AddLine(entry, line.code, line.price.ToText(), "10");
        }
        return entry;
    }
    static void AddLine(BulkEntry& entry, const std::string& code, const std::string& price,
                        const std::string& quantity) {
        BulkLine line;
        line.row = static_cast<int>(entry.lines.size()) + 2;
        line.texts = {code, "", price, quantity, ""};
        entry.lines.push_back(line);
    }

    Lines Import() {
        mLog.statements.clear();
        result = RunImport(file, masterData, request);
        Lines told;
        for (const BulkFinding& each : result.plan.findings) {
            told.push_back(std::to_string(each.row) + "." + std::to_string(each.column) + " " +
                           std::string(each.finding.id) + " " + each.finding.text);
        }
        return told;
    }
    std::string Counts() const {
        std::string counts;
        for (const RowFate fate : {RowFate::New, RowFate::Changed, RowFate::Deleted,
                                   RowFate::Unchanged, RowFate::Refused}) {
            counts += std::to_string(result.plan.Count(fate)) + " ";
        }
        return counts;
    }
    // The statements of the transaction alone.
    Lines Written() const {
        const Lines all = mLog.Lines();
        const auto begin = std::ranges::find(all, "gConn: begin");
        return {begin, all.end()};
    }
    std::string Counter() {
        return Read("select cValue from PM_SettingInf where cName='NumMax_EleQc'");
    }
    std::string Stored() {
        std::string stored;
        const auto rows = mOther->OpenRecordSet(
            platform::StatementText("select iEleVid,cDigest,mQC from PM_ItemQC order by iEleVid"));
        for (; !rows->EndOfFile(); rows->MoveNext()) {
            stored += rows->Field(0).ToText() + rows->Field(1).ToText() +
                      rows->Field(2).ToMoney().ToText() + " ";
        }
        return stored;
    }

    AccountMasterData masterData;
    support::MemoryJournal journal;
    BulkEntries file;
    ImportRequest request;
    ImportResult result;
};

// What is stored before anything is imported.
inline constexpr const char* kBefore = "1旧300 2吊车80 ";

}  // namespace kelvane::entries
