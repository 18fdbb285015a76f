#include "entries/entry_statements.h"

#include "data/login_context.h"

namespace kelvane::entries {

using platform::CursorLocation;
using platform::LockType;
using platform::RecordSet;
using platform::StatementText;
using platform::Value;

StatementText InsertionOf(const Entry& entry, const std::string& elementCode) {
    StatementText insert(
        "insert into PM_ItemQC(dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,cElementCode,"
        "cDigest,mQC,iEleVid) values ");
    insert << "( '";
    insert.Inside(entry.date.DateText('-'));
    for (const std::string* text : {&entry.centerCode, &entry.itemCode, &entry.key1, &entry.key2,
                                    &elementCode, &entry.digest}) {
        insert << "','";
        insert.Inside(*text);
    }
    insert << "',";
    insert.Amount(entry.amount) << ",";
    insert.Number(entry.identity) << ") ";
    return insert;
}

StatementText DeletionOf(std::int32_t identity) {
    StatementText statement("delete from pm_itemQC where iEleVid=");
    return statement.Number(identity);
}

StatementText LinesDeletionOf(std::int32_t identity) {
    StatementText statement("delete from pm_itemQCSub where iEleVid=");
    return statement.Number(identity);
}

std::unique_ptr<RecordSet> OpenHeldEntry(std::int32_t identity) {
    StatementText statement("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=");
    return data::gConn->OpenRecordSet(
        statement.Number(identity),
        {.location = CursorLocation::Client, .lock = LockType::Optimistic});
}

void SetFields(RecordSet& stored, const Entry& entry, const std::string& elementCode) {
    stored.SetField("dDate", Value(entry.date));
    stored.SetField("cCenterCode", Value(entry.centerCode));
    stored.SetField("citemcode", Value(entry.itemCode));
    stored.SetField("cKeyCode1", Value(entry.key1));
    stored.SetField("cKeyCode2", Value(entry.key2));
    stored.SetField("cElementCode", Value(elementCode));
    stored.SetField("cDigest", Value(entry.digest));
    stored.SetField("mQC", Value(entry.amount));
}

}  // namespace kelvane::entries
