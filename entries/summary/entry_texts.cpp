#include "entries/summary/entry_texts.h"

#include <algorithm>
#include <exception>
#include <map>
#include <string>

#include "data/date_text.h"
#include "data/login_context.h"
#include "entries/summary/exact_sum.h"
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

std::string DateText(const RecordSet& row) {
    const platform::Value date = row.Field("dDate");
    if (date.IsNull()) return {};
    try {
        const platform::DateTime day = date.ToDateTime();
        if (day == data::kNullDate) return {};
        if (day.IsValid()) return day.DateText('-');
    } catch (const platform::DatabaseError&) {
        throw;
    } catch (const std::exception&) {
        // It is no date.
    }
    return date.ToText();
}

}  // namespace

std::vector<EntryTexts> ReadEntryTexts(std::span<const std::int64_t> identities) {
    const Names items = ReadNames(StatementText("select citemcode,citemname from fitemss97"));
    const Names elements =
        ReadNames(StatementText("select cElementCode,cElementName from PM_ItemElement"));
    std::vector<EntryTexts> entries;
    const auto rows = gConn->OpenRecordSet(
        StatementText("select iEleVid,dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,cElementCode,"
                      "cDigest,mQC from PM_ItemQC"));
    for (; !rows->EndOfFile(); rows->MoveNext()) {
        const auto identity = static_cast<std::int32_t>(rows->Field("iEleVid").ToInteger());
        if (!std::ranges::binary_search(identities, identity)) continue;
        EntryTexts& texts = entries.emplace_back();
        texts.identity = identity;
        texts[kDateColumn] = DateText(*rows);
        texts[kCenterColumn] = rows->Field("cCenterCode").ToText();
        texts[kItemColumn] = rows->Field("cItemCode").ToText();
        texts[kItemNameColumn] = NameIn(items, texts[kItemColumn]);
        texts[kKey1Column] = rows->Field("cKeyCode1").ToText();
        texts[kKey2Column] = rows->Field("cKeyCode2").ToText();
        texts[kElementColumn] = NameIn(elements, rows->Field("cElementCode").ToText());
        texts[kDigestColumn] = rows->Field("cDigest").ToText();
        texts[kAmountColumn] = ExactSum(rows->Field("mQC").ToMoney()).DisplayText();
    }
    std::ranges::sort(entries, {}, &EntryTexts::identity);
    return entries;
}

}  // namespace kelvane::entries
