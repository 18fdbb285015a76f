#include "entries/check/account_content.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <stdexcept>
#include <tuple>

#include "data/login_context.h"
#include "data/text_conversion.h"
#include "platform/database.h"

namespace kelvane::entries {

using data::gConn;
using platform::Money;
using platform::RecordSet;
using platform::StatementText;
using platform::Value;

namespace {

// What `read` gives; none when the value is not what its column says.
template <typename Read>
auto Tried(const Read& read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const platform::ConnectionLost&) {
        throw;
    } catch (const platform::DatabaseBusy&) {
        throw;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::string TextIn(const RecordSet& row, int field) {
    return Tried([&] { return row.Field(field).ToText(); }).value_or(std::string());
}

// None also for Null.
template <typename Read>
auto Readable(const RecordSet& row, int field, const Read& read)
    -> std::optional<decltype(read(Value()))> {
    return Tried([&] {
        const Value stored = row.Field(field);
        if (stored.IsNull()) throw std::invalid_argument("Null");
        return read(stored);
    });
}

std::optional<Money> AmountIn(const RecordSet& row, int field) {
    return Readable(row, field, [](const Value& value) {
        // An empty text is no amount, though it is read as 0.
        const auto* text = value.As<std::string>();
        return text == nullptr ? value.ToMoney() : Money::FromText(*text);
    });
}

std::optional<std::int64_t> IntegerIn(const RecordSet& row, int field) {
    return Readable(row, field, [](const Value& value) {
        if (value.As<std::string>() != nullptr) throw std::invalid_argument("a text");
        return value.ToInteger();
    });
}

std::optional<double> NumberIn(const RecordSet& row, int field) {
    return Readable(row, field, [](const Value& value) {
        if (value.As<std::string>() != nullptr) throw std::invalid_argument("a text");
        const double number = value.ToDouble();
        if (!std::isfinite(number)) throw std::range_error("infinite");
        return number;
    });
}

// Calls `take` for each row of a query.
template <typename Take>
void ForEachRow(const StatementText& query, const Take& take) {
    const auto rows = gConn->OpenRecordSet(query);
    for (; !rows->EndOfFile(); rows->MoveNext()) take(*rows);
}

std::vector<std::string> CodesOf(const StatementText& query) {
    std::vector<std::string> codes;
    ForEachRow(query, [&](const RecordSet& row) { codes.push_back(TextIn(row, 0)); });
    return codes;
}

std::vector<AccountEntry> ReadEntries() {
    std::vector<AccountEntry> entries;
    ForEachRow(
        StatementText("select iEleVid,dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,"
                      "cElementCode,cDigest,mQC from PM_ItemQC"),
        [&](const RecordSet& row) {
            entries.push_back({
                .identity = IntegerIn(row, 0).value_or(0),
                .date = Readable(row, 1, [](const Value& date) { return date.ToDateTime(); }),
                .center = TextIn(row, 2),
                .item = TextIn(row, 3),
                .key1 = TextIn(row, 4),
                .key2 = TextIn(row, 5),
                .element = TextIn(row, 6),
                .digest = TextIn(row, 7),
                .amount = AmountIn(row, 8),
            });
        });
    std::ranges::stable_sort(entries, {}, &AccountEntry::identity);
    return entries;
}

std::vector<StoredLine> ReadLines() {
    std::vector<StoredLine> lines;
    ForEachRow(StatementText("select iEleVid,cCodeMx,iUprice,iNum,mQC from PM_ItemQCsub"),
               [&](const RecordSet& row) {
                   lines.push_back({.identity = IntegerIn(row, 0),
                                    .code = TextIn(row, 1),
                                    .price = AmountIn(row, 2),
                                    .quantity = NumberIn(row, 3),
                                    .amount = AmountIn(row, 4)});
               });
    std::ranges::stable_sort(lines, [](const StoredLine& a, const StoredLine& b) {
        return std::tie(a.identity, a.code, a.amount) < std::tie(b.identity, b.code, b.amount);
    });
    return lines;
}

std::string EndOf(const Value& date) {
    return date.IsNull() ? std::string() : date.ToDateTime().DateText('.');
}

// The columns of the keywords are the account's own; one that is not there has no values.
std::vector<ItemPart> ReadItemParts() {
    std::vector<ItemPart> parts;
    ForEachRow(StatementText("select * from fitemss97sub"), [&](const RecordSet& row) {
        const auto key = [&](const std::string& name) {
            if (name.empty()) return Value();
            return Tried([&] { return row.Field(name); }).value_or(Value());
        };
        parts.push_back({
            .item = Tried([&] { return row.Field("citemcode").ToText(); }).value_or(std::string()),
            .closed = Tried([&] { return row.Field("iclose").ToInteger() != 0; }),
            .end = Tried([&] { return EndOf(row.Field("denddate")); }),
            .key1 = key(data::gItemKeyField1),
            .key2 = key(data::gItemKeyField2),
        });
    });
    return parts;
}

std::vector<std::int64_t> ReadVersions() {
    std::vector<std::int64_t> versions;
    ForEachRow(StatementText("select iverid,bControl from pm_BudgetVer"),
               [&](const RecordSet& row) {
                   if (IntegerIn(row, 1) == 1) versions.push_back(IntegerIn(row, 0).value_or(0));
               });
    std::ranges::sort(versions);
    return versions;
}

// A budget counts Null as 0 where the window does.
template <typename Number>
std::optional<Number> OrZero(const RecordSet& row, int field, std::optional<Number> value) {
    const bool isNull = Tried([&] { return row.Field(field).IsNull(); }).value_or(false);
    return isNull ? Number() : value;
}

std::optional<bool> ControlsIn(const RecordSet& row, int field) {
    const auto granted = OrZero(row, field, AmountIn(row, field));
    if (!granted) return std::nullopt;
    return *granted > Money();
}

void ReadBudgets(AccountContent& content) {
    const std::int64_t version = content.versions.size() == 1 ? content.versions.front() : 0;
    StatementText budgets(
        "select citemCode,cElementCode,iBudget,iMoneysum from pm_budget where iVerID=");
    ForEachRow(budgets.Number(version), [&](const RecordSet& row) {
        content.budgets.push_back({.item = TextIn(row, 0),
                                   .element = TextIn(row, 1),
                                   .code = {},
                                   .controls = ControlsIn(row, 2),
                                   .money = OrZero(row, 3, AmountIn(row, 3)),
                                   .quantity = 0});
    });
    StatementText lineBudgets(
        "select citemCode,cElementCode,cCodeMx,iBudget,imoneysum,inumberSum from pm_budgetsub "
        "where iVerID=");
    ForEachRow(lineBudgets.Number(version), [&](const RecordSet& row) {
        content.lineBudgets.push_back({.item = TextIn(row, 0),
                                       .element = TextIn(row, 1),
                                       .code = TextIn(row, 2),
                                       .controls = ControlsIn(row, 3),
                                       .money = OrZero(row, 4, AmountIn(row, 4)),
                                       .quantity = OrZero(row, 5, NumberIn(row, 5))});
    });
    if (content.versions.size() == 1) return;
    content.budgets.clear();
    content.lineBudgets.clear();
}

}  // namespace

AccountContent ReadAccountContent() {
    const platform::Snapshot snapshot(*gConn);
    AccountContent content;
    content.entries = ReadEntries();
    content.lines = ReadLines();
    content.items = CodesOf(StatementText("select citemcode from fitemss97"));
    content.centers = CodesOf(StatementText("select cCenterCode from PM_DutyCenter"));
    ForEachRow(
        StatementText("select cCenterCode,cItemCode,cKeyWord1,cKeyWord2 from PM_DutycenterSub"),
        [&](const RecordSet& row) {
            content.centerItems.push_back(
                {TextIn(row, 0), TextIn(row, 1), TextIn(row, 2), TextIn(row, 3)});
        });
    ForEachRow(StatementText("select cElementCode,iElementDetail from PM_ItemElement"),
               [&](const RecordSet& row) {
                   content.elements.push_back({TextIn(row, 0), OrZero(row, 1, IntegerIn(row, 1))});
               });
    content.equipment = CodesOf(StatementText("select cEquipCode from pm_equipment"));
    content.inventory = CodesOf(StatementText("select cInvCode from inventory"));
    content.itemParts = ReadItemParts();
    content.versions = ReadVersions();
    ReadBudgets(content);
    ForEachRow(StatementText("select cValue from PM_SettingInf where cName='NumMax_EleQc'"),
               [&](const RecordSet& row) { content.counter = TextIn(row, 0); });
    return content;
}

}  // namespace kelvane::entries
