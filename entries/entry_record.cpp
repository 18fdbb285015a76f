#include "entries/entry_record.h"

#include <algorithm>
#include <array>
#include <utility>

#include "data/date_text.h"
#include "data/login_context.h"
#include "data/text_conversion.h"
#include "entries/entry_statements.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

using data::gConn;
using platform::RecordSet;
using platform::StatementText;

namespace {

std::int32_t IdentityIn(const RecordSet& row) {
    return static_cast<std::int32_t>(row.Field("iEleVid").ToInteger());
}

EntryRecord RecordIn(const RecordSet& row) {
    const auto text = [&](const char* field) { return row.Field(field).ToText(); };
    const platform::Value date = row.Field("dDate");
    EntryRecord record;
    record.entry = {
        .identity = IdentityIn(row),
        .date = date.IsNull() ? data::kNullDate : date.ToDateTime(),
        .centerCode = text("cCenterCode"),
        .itemCode = text("cItemCode"),
        .key1 = text("cKeyCode1"),
        .key2 = text("cKeyCode2"),
        .elementName = {},
        .digest = text("cDigest"),
        .amount = row.Field("mQC").ToMoney(),
    };
    record.elementCode = text("cElementCode");
    return record;
}

DetailLine LineIn(const RecordSet& row) {
    return {.code = row.Field("cCodeMx").ToText(),
            .price = row.Field("iUprice").ToMoney(),
            .quantity = row.Field("iNum").ToDouble(),
            .amount = row.Field("mQC").ToMoney()};
}

// Parts of a text that is summed up; no part can pass for the end of another.
class Summing {
public:
    void Add(const std::string& part) {
        AddBytes(std::to_string(part.size()) + ":");
        AddBytes(part);
    }

    std::string Digits() const {
        constexpr std::string_view kDigits = "0123456789abcdef";
        std::string digits;
        for (int shift = 60; shift >= 0; shift -= 4) digits += kDigits[(mSum >> shift) & 0xF];
        return digits;
    }

private:
    // Fowler, Noll and Vo's sum 1a.
    void AddBytes(std::string_view bytes) {
        for (const char byte : bytes) {
            mSum ^= static_cast<unsigned char>(byte);
            mSum *= 0x100000001B3U;
        }
    }

    std::uint64_t mSum = 0xCBF29CE484222325U;
};

std::array<std::string, 4> PartsOf(const DetailLine& line) {
    return {data::Trim(line.code), line.price.ToFixedText(),
            StatementText().Double(line.quantity).Text(), line.amount.ToFixedText()};
}

}  // namespace

std::map<std::string, std::string> ReadElementNames() {
    std::map<std::string, std::string> names;
    const auto elements =
        gConn->OpenRecordSet(StatementText("select cElementCode,cElementName from PM_ItemElement"));
    for (; !elements->EndOfFile(); elements->MoveNext()) {
        names.emplace(elements->Field(0).ToText(), elements->Field(1).ToText());
    }
    return names;
}

EntryRecords ReadEntryRecords() {
    const auto names = ReadElementNames();
    EntryRecords records;
    const auto entries = gConn->OpenRecordSet(StatementText("select * from PM_ItemQC"));
    for (; !entries->EndOfFile(); entries->MoveNext()) {
        EntryRecord record = RecordIn(*entries);
        const auto name = names.find(record.elementCode);
        if (name != names.end()) record.entry.elementName = name->second;
        records.emplace(record.entry.identity, std::move(record));
    }
    const auto lines = gConn->OpenRecordSet(StatementText("select * from PM_ItemQCsub"));
    for (; !lines->EndOfFile(); lines->MoveNext()) {
        const auto entry = records.find(IdentityIn(*lines));
        if (entry != records.end()) entry->second.lines.push_back(LineIn(*lines));
    }
    return records;
}

std::optional<EntryRecord> ReadHeldRecord(std::int32_t identity) {
    const auto entry = OpenHeldEntry(identity);
    if (entry->EndOfFile()) return std::nullopt;
    EntryRecord record = RecordIn(*entry);
    StatementText lineQuery("select * from PM_ItemQCsub where iEleVid=");
    const auto lines = gConn->OpenRecordSet(lineQuery.Number(identity));
    for (; !lines->EndOfFile(); lines->MoveNext()) record.lines.push_back(LineIn(*lines));
    return record;
}

std::string CheckValueOf(const EntryRecord& record) {
    Summing sum;
    const Entry& entry = record.entry;
    sum.Add(entry.date.DateText('-'));
    for (const std::string* text : {&entry.centerCode, &entry.itemCode, &entry.key1, &entry.key2,
                                    &record.elementCode, &entry.digest}) {
        sum.Add(data::Trim(*text));
    }
    sum.Add(entry.amount.ToFixedText());
    std::vector<std::array<std::string, 4>> lines;
    for (const DetailLine& line : record.lines) lines.push_back(PartsOf(line));
    std::sort(lines.begin(), lines.end());
    for (const auto& line : lines) {
        for (const std::string& part : line) sum.Add(part);
    }
    return sum.Digits();
}

}  // namespace kelvane::entries
