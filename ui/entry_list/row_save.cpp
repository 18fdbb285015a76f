// Writing a row to the account, and deleting one.
#include <cstdint>
#include <limits>

#include "data/date_text.h"
#include "data/entry_counter.h"
#include "data/login_context.h"
#include "data/messages.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using data::gConn;
using platform::CursorLocation;
using platform::LockType;
using platform::Money;
using platform::StatementText;
using platform::Transaction;
using platform::Value;

namespace {

constexpr const char* kCounterName = "NumMax_EleQc";
constexpr std::int32_t kLargestIdentity = std::numeric_limits<std::int16_t>::max();

constexpr const char* kExhausted =
    "期初编号已经用完（最大 32767），当前行没有保存，没有写入数据库。";

}  // namespace

// What the operator is told of a write that failed in a way of its own.
struct frmPeriodItem::WriteSentences {
    const char* busy;
    const char* inDoubt;
};

std::string frmPeriodItem::ElementCodeOf(const std::string& elementName) {
    StatementText statement("select cElementCode from PM_ItemElement where cElementName = '");
    statement.Inside(elementName) << "'";
    return data::gEnv->DataAccess().Query(statement)->Field(0).ToText();
}

bool frmPeriodItem::SaveRow(int row, StatementText& detailSql) {
    try {
        const std::int32_t identity = GridPeriodItem.RowData(row);
        const bool saved =
            identity != 0 ? UpdateEntry(row, identity, detailSql) : InsertEntry(row, detailSql);
        if (!saved) return false;
        mEntriesInDoubt.erase(GridPeriodItem.RowData(row));
        detailSql = {};
        GridPeriodItem.SetRowTouched(false);
        mFailureNotice.Succeeded(Work::Save);
        return true;
    } catch (...) {
        TellFailedWrite(
            "SaveRow",
            {.busy = "数据库正被他人占用，当前行没有保存，请稍后再离开该行重试。",
             .inDoubt =
                 "保存当前行时没有收到数据库的答复，不能确定是否已经保存，请重新打开核对。"});
    }
    return false;
}

void frmPeriodItem::TellFailedWrite(std::string_view place, const WriteSentences& sentences) {
    data::ReportTrapped(place);
    try {
        throw;
    } catch (const data::CounterExhausted&) {
        mFailureNotice.FailedSave(kExhausted);
    } catch (const platform::CommitInDoubt&) {
        mFailureNotice.FailedSave(sentences.inDoubt);
    } catch (const platform::DatabaseBusy&) {
        mFailureNotice.FailedSave(sentences.busy);
    } catch (...) {
        // The report has said it.
    }
}

bool frmPeriodItem::UpdateEntry(int row, std::int32_t identity, StatementText& detailSql) {
    Transaction transaction(*gConn);
    StatementText statement("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=");
    const auto entry =
        gConn->OpenRecordSet(statement.Number(identity),
                             {.location = CursorLocation::Client, .lock = LockType::Optimistic});
    if (entry->EndOfFile()) {
        transaction.RollBack();
        if (mEntriesInDoubt.count(identity) != 0) {
            WriteNewEntry(row, identity, detailSql);
            return true;
        }
        data::ShowInformation("该行记录已经被他人删除", data::kModuleCaption);
        return false;
    }
    const auto setText = [&](const char* field, int col) {
        entry->SetField(field, Value(CellText(row, col)));
    };
    entry->SetField("dDate", Value(data::DateTextToDate(CellText(row, kDateColumn))));
    setText("cCenterCode", kCenterColumn);
    setText("citemcode", kItemColumn);
    setText("cKeyCode1", kKey1Column);
    setText("cKeyCode2", kKey2Column);
    entry->SetField("cElementCode", Value(ElementCodeOf(CellText(row, kElementColumn))));
    setText("cDigest", kDigestColumn);
    entry->SetField("mQC", Value(Money::FromText(CellText(row, kAmountColumn))));
    entry->Update();
    if (!detailSql.IsEmpty()) gConn->Execute(detailSql.WithEntry(identity));
    entry->Close();
    transaction.Commit();
    return true;
}

bool frmPeriodItem::InsertEntry(int row, StatementText& detailSql) {
    const std::int32_t identity = data::NextSettingNumber(kCounterName, *gConn, kLargestIdentity);
    if (identity == data::kNoNumber) return false;
    WriteNewEntry(row, identity, detailSql);
    return true;
}

void frmPeriodItem::WriteNewEntry(int row, std::int32_t identity, StatementText& detailSql) {
    const std::string elementCode = ElementCodeOf(CellText(row, kElementColumn));

    StatementText insert(
        "insert into PM_ItemQC(dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,cElementCode,"
        "cDigest,mQC,iEleVid) values ");
    insert << "( '";
    insert.Inside(data::DateTextToDate(CellText(row, kDateColumn)).DateText('-'));
    for (const int col : {kCenterColumn, kItemColumn, kKey1Column, kKey2Column}) {
        insert << "','";
        insert.Inside(CellText(row, col));
    }
    insert << "','";
    insert.Inside(elementCode) << "','";
    insert.Inside(CellText(row, kDigestColumn)) << "',";
    insert.Amount(Money::FromText(CellText(row, kAmountColumn))) << ",";
    insert.Number(identity) << ") ";

    Transaction transaction(*gConn);
    if (!detailSql.IsEmpty()) gConn->Execute(detailSql.WithEntry(identity));
    gConn->Execute(insert);
    try {
        transaction.Commit();
    } catch (const platform::CommitInDoubt&) {
        // The entry may be there: saved once more under another identity it would be there twice.
        TakeIdentity(row, identity);
        mEntriesInDoubt.insert(identity);
        throw;
    }
    TakeIdentity(row, identity);
}

void frmPeriodItem::TakeIdentity(int row, std::int32_t identity) {
    const std::int16_t flag = ElementDetailFlag(row);
    GridPeriodItem.SetRowData(row, identity);
    if (data::CollectionHasKey("0", mElementDetails)) mElementDetails.Remove("0");
    mElementDetails.Replace(std::to_string(identity), flag);
}

bool frmPeriodItem::CheckRowDeletable(int row) {
    if (!CheckItemSettled(CellText(row, kItemColumn), CellText(row, kKey1Column),
                          CellText(row, kKey2Column))) {
        return true;
    }
    data::ShowInformation("此项目已经结算，不能删除 ！");
    return false;
}

bool frmPeriodItem::AskDelete() {
    return data::AskQuestion("是否删除当前行？", "删除确认", platform::MessageIcon::None,
                             platform::MessageAnswer::No);
}

void frmPeriodItem::DeleteRow() {
    try {
        const int row = GridPeriodItem.Row();
        SelectRow(row);
        if (!AskDelete()) return;

        const std::int32_t identity = GridPeriodItem.RowData(row);
        StatementText deleteEntry("delete from pm_itemQC where iEleVid=");
        StatementText deleteLines("delete from pm_itemQCSub where iEleVid=");
        Transaction transaction(*gConn);
        gConn->Execute(deleteEntry.Number(identity));
        gConn->Execute(deleteLines.Number(identity));
        transaction.Commit();

        // What was kept for the deleted row must not be saved with another one.
        mDetailSql = {};
        GridPeriodItem.RemoveItem(row);
        mFailureNotice.Succeeded(Work::Save);
    } catch (...) {
        TellFailedWrite(
            "DeleteRow",
            {.busy = "数据库正被他人占用，当前行没有删除，请稍后重试。",
             .inDoubt =
                 "删除当前行时没有收到数据库的答复，不能确定是否已经删除，请重新打开核对。"});
    }
}

}  // namespace kelvane::ui
