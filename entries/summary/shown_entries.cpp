#include "entries/summary/shown_entries.h"

#include <algorithm>
#include <map>
#include <string>

#include "data/date_text.h"
#include "data/login_context.h"
#include "entries/summary/exact_sum.h"
#include "entries/unreadable_rows.h"
#include "platform/database.h"
#include "platform/letter_case.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

using data::gConn;
using platform::ComparedText;
using platform::RecordSet;
using platform::StatementText;

namespace {

using Names = std::map<std::string, std::string>;

// Of codes and names.
Names ReadNames(const StatementText& query) {
    Names names;
    const auto rows = gConn->OpenRecordSet(query);
    for (; !rows->EndOfFile(); rows->MoveNext()) {
        names.emplace(ComparedText(rows->Field(0).ToText()), rows->Field(1).ToText());
    }
    return names;
}

std::string NameIn(const Names& names, const std::string& code) {
    const auto known = names.find(ComparedText(code));
    return known == names.end() ? std::string() : known->second;
}

// What `read` gives; a stored value that cannot be read says so.
template <typename Read>
std::string Readable(const Read& read) {
    std::string text;
    return CanBeRead([&] { text = read(); }) ? text : "（无法读取）";
}

std::string TextIn(const RecordSet& row, const char* field) {
    return Readable([&] { return row.Field(field).ToText(); });
}

std::string DateIn(const RecordSet& row) {
    return Readable([&] {
        const platform::Value date = row.Field("dDate");
        const platform::DateTime day = date.IsNull() ? data::kNullDate : date.ToDateTime();
        return day == data::kNullDate ? std::string() : day.DateText('-');
    });
}

}  // namespace

std::vector<ShownEntry> ReadShownEntries(std::span<const std::int64_t> identities) {
    const platform::Snapshot snapshot(*gConn);
    const Names items = ReadNames(StatementText("select citemcode,citemname from fitemss97"));
    const Names elements =
        ReadNames(StatementText("select cElementCode,cElementName from PM_ItemElement"));
    std::vector<ShownEntry> entries;
    const auto rows = gConn->OpenRecordSet(
        StatementText("select iEleVid,dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,cElementCode,"
                      "cDigest,mQC from PM_ItemQC"));
    for (; !rows->EndOfFile(); rows->MoveNext()) {
        const std::int64_t identity = rows->Field("iEleVid").ToInteger();
        if (!std::ranges::binary_search(identities, identity)) continue;
        entries.push_back({identity, {}});
        EntryTexts& texts = entries.back().texts;
        texts[kDateColumn] = DateIn(*rows);
        texts[kCenterColumn] = TextIn(*rows, "cCenterCode");
        texts[kItemColumn] = TextIn(*rows, "cItemCode");
        texts[kItemNameColumn] = NameIn(items, texts[kItemColumn]);
        texts[kKey1Column] = TextIn(*rows, "cKeyCode1");
        texts[kKey2Column] = TextIn(*rows, "cKeyCode2");
        texts[kElementColumn] = NameIn(elements, TextIn(*rows, "cElementCode"));
        texts[kDigestColumn] = TextIn(*rows, "cDigest");
        texts[kAmountColumn] =
            Readable([&] { return ExactSum(rows->Field("mQC").ToMoney()).DisplayText(); });
    }
    std::ranges::sort(entries, {}, &ShownEntry::identity);
    return entries;
}

}  // namespace kelvane::entries
