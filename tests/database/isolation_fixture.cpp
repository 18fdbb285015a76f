#include "tests/database/isolation_fixture.h"

namespace kelvane::database_test {

using platform::DatabaseBusy;
using platform::LockType;
using platform::StatementText;
using platform::Value;

void Operator::Begin() {
    mTransaction.emplace(*mConnection);
}

bool Operator::BeginSave(int entry) {
    try {
        Begin();
        StatementText statement("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=");
        mRow = mConnection->OpenRecordSet(
            statement.Number(entry),
            {.location = platform::CursorLocation::Client, .lock = LockType::Optimistic});
    } catch (const DatabaseBusy&) {
        mTransaction.reset();
        throw;
    }
    if (!mRow->EndOfFile()) return true;
    mRow.reset();
    mTransaction.reset();
    return false;
}

void Operator::WriteRow(const char* digest, int amount) {
    mRow->SetField("cDigest", Value(digest));
    mRow->SetField("mQC", Value(std::int64_t{amount}));
    mRow->Update();
}

void Operator::WriteLines(int entry, const std::vector<DetailLine>& lines) {
    StatementText script("delete from PM_ItemQCsub where iEleVid=");
    script.Number(entry);
    for (const DetailLine& line : lines) {
        script << " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(";
        script.Number(entry) << ",";
        script.Quoted(line.code) << ",";
        script.Number(line.amount) << ",1,";
        script.Number(line.amount) << ")";
    }
    mConnection->Execute(script);
}

void Operator::EndSave() {
    mRow.reset();
    mTransaction->Commit();
    mTransaction.reset();
}

bool Operator::Save(int entry, const char* digest, const std::vector<DetailLine>& lines) {
    if (!BeginSave(entry)) return false;
    int amount = 0;
    for (const DetailLine& line : lines) amount += line.amount;
    WriteRow(digest, amount);
    WriteLines(entry, lines);
    EndSave();
    return true;
}

void Operator::BeginDelete(int entry) {
    try {
        Begin();
        StatementText deleteEntry("delete from pm_itemQC where iEleVid=");
        StatementText deleteLines("delete from pm_itemQCSub where iEleVid=");
        mConnection->Execute(deleteEntry.Number(entry));
        mConnection->Execute(deleteLines.Number(entry));
    } catch (const DatabaseBusy&) {
        mTransaction.reset();
        throw;
    }
}

std::optional<int> Operator::TakeNumber() try {
    const auto counter = mConnection->OpenRecordSet(
        StatementText("select cValue from PM_SettingInf where cName='NumMax_EleQc'"),
        {platform::CursorLocation::Server, platform::CursorType::Static, LockType::Pessimistic});
    const int number = static_cast<int>(counter->Field("cValue").ToInteger()) + 1;
    counter->SetField("cValue", Value(std::to_string(number)));
    counter->Update();
    counter->Close();
    return number;
} catch (const DatabaseBusy&) {
    return {};
}

IsolationTest::IsolationTest() : mFirst(Connect()), mSecond(Connect()) {
    Execute(
        "insert into PM_SettingInf(cName,cValue) values('NumMax_EleQc','7')"
        " insert into PM_ItemQC(iEleVid,cItemCode,cElementCode,cDigest,mQC) "
        "values(1,'P01','E01','old',30)"
        " insert into PM_ItemQC(iEleVid,cItemCode,cElementCode,cDigest,mQC) "
        "values(2,'P01','E01','other',5)"
        " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(1,'A',10,1,10)"
        " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(1,'B',20,1,20)");
}

std::string IsolationTest::Entry(int entry) {
    StatementText row("select cDigest,mQC from PM_ItemQC where iEleVid=");
    const auto found = Open(row.Number(entry));
    std::string text =
        found->EndOfFile() ? "-" : found->Field(0).ToText() + ' ' + found->Field(1).ToText();
    StatementText lines("select cCodeMx from PM_ItemQCsub where iEleVid=");
    const auto codes = Open(lines.Number(entry) << " order by cCodeMx");
    for (; !codes->EndOfFile(); codes->MoveNext()) text += ' ' + codes->Field(0).ToText();
    return text;
}

}  // namespace kelvane::database_test
