#include "entries/summary/summed_entries.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

#include "data/date_text.h"
#include "data/login_context.h"
#include "entries/unreadable_rows.h"
#include "platform/blanks.h"
#include "platform/letter_case.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

using data::gConn;
using platform::ComparedText;
using platform::RecordSet;
using platform::StatementText;
using platform::WithoutEndBlanks;

namespace {

// Between the keys of two keywords; before every character of a code.
constexpr char kKeyEnd = '\0';
constexpr std::string_view kKeywordSeparator = " / ";

// The same for a field's code: how groups are told apart, and how it is shown.
struct Keyed {
    std::string key;
    std::string code;
};

Keyed CodeIn(const RecordSet& row, const char* field) {
    const std::string code = row.Field(field).ToText();
    return {ComparedText(code), std::string(WithoutEndBlanks(code))};
}

Keyed KeywordsIn(const RecordSet& row) {
    Keyed first = CodeIn(row, "cKeyCode1");
    const Keyed second = CodeIn(row, "cKeyCode2");
    first.key.append(1, kKeyEnd).append(second.key);
    if (!second.code.empty()) first.code.append(kKeywordSeparator).append(second.code);
    return first;
}

// Empty where there is no date.
Keyed MonthIn(const RecordSet& row) {
    constexpr std::size_t kMonthLength = std::string_view("2025-01").size();
    std::string month;
    CanBeRead([&] {
        const platform::DateTime date = row.Field("dDate").ToDateTime();
        if (date.IsValid() && date != data::kNullDate) {
            month = date.DateText('-').substr(0, kMonthLength);
        }
    });
    return {month, month};
}

Keyed KeyedIn(const RecordSet& row, SummaryField field) {
    switch (field) {
        case SummaryField::Item:
            return CodeIn(row, "cItemCode");
        case SummaryField::Element:
            return CodeIn(row, "cElementCode");
        case SummaryField::Center:
            return CodeIn(row, "cCenterCode");
        case SummaryField::Keyword:
            return KeywordsIn(row);
        case SummaryField::Month:
            break;
    }
    return MonthIn(row);
}

// The codes of the field with their names; none where there are no names.
std::optional<StatementText> NamesQuery(SummaryField field) {
    switch (field) {
        case SummaryField::Item:
            return StatementText("select citemcode,citemname from fitemss97");
        case SummaryField::Element:
            return StatementText("select cElementCode,cElementName from PM_ItemElement");
        case SummaryField::Center:
            return StatementText("select cCenterCode,cCenterName from PM_DutyCenter");
        case SummaryField::Keyword:
        case SummaryField::Month:
            break;
    }
    return std::nullopt;
}

SummaryValues ReadNames(SummaryField field) {
    SummaryValues values;
    const auto query = NamesQuery(field);
    if (!query) return values;
    // The same spelling whatever order the rows come in.
    std::vector<SummaryValue> known;
    const auto rows = gConn->OpenRecordSet(*query);
    for (; !rows->EndOfFile(); rows->MoveNext()) {
        const auto text = [&](int column) {
            return std::string(WithoutEndBlanks(rows->Field(column).ToText()));
        };
        known.push_back({text(0), text(1)});
    }
    std::ranges::sort(known, {},
                      [](const SummaryValue& value) { return std::tie(value.code, value.name); });
    for (SummaryValue& value : known) {
        values.emplace(ComparedText(value.code), std::move(value));
    }
    return values;
}

std::string UnreadableAmounts(const UnreadableRows& found) {
    return "有 " + std::to_string(found.count) + " 行期初的金额无法识别，第一行是期初编号 " +
           found.firstIdentity + "，不能汇总";
}

struct ReadEntry {
    SummedEntry entry;
    std::vector<std::string> codes;
};

std::vector<ReadEntry> ReadEntries(std::span<const SummaryField> fields) {
    std::vector<ReadEntry> read;
    const auto rows = gConn->OpenRecordSet(
        StatementText("select iEleVid,dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,cElementCode,"
                      "mQC from PM_ItemQC"));
    try {
        for (; !rows->EndOfFile(); rows->MoveNext()) {
            ReadEntry& each = read.emplace_back();
            each.entry.identity = rows->Field("iEleVid").ToInteger();
            each.entry.amount = rows->Field("mQC").ToMoney();
            for (const SummaryField field : fields) {
                Keyed keyed = KeyedIn(*rows, field);
                each.entry.keys.push_back(std::move(keyed.key));
                each.codes.push_back(std::move(keyed.code));
            }
        }
    } catch (const std::exception&) {
        TellUnreadableRows(*rows, {"mQC"}, {}, UnreadableAmounts);
    }
    return read;
}

}  // namespace

SummedEntries ReadSummedEntries(std::span<const SummaryField> fields) {
    SummedEntries summed;
    for (const SummaryField field : fields) summed.values.push_back(ReadNames(field));
    std::vector<ReadEntry> read = ReadEntries(fields);
    const auto identity = [](const ReadEntry& each) { return each.entry.identity; };
    std::ranges::stable_sort(read, {}, identity);
    for (ReadEntry& each : read) {
        for (std::size_t place = 0; place < fields.size(); ++place) {
            summed.values[place].try_emplace(each.entry.keys[place],
                                             SummaryValue{std::move(each.codes[place]), {}});
        }
        summed.entries.push_back(std::move(each.entry));
    }
    std::ranges::stable_sort(summed.entries, {}, &SummedEntry::keys);
    return summed;
}

}  // namespace kelvane::entries
