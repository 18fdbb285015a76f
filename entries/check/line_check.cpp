#include "entries/check/line_check.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "data/number_format.h"
#include "entries/detail_line.h"

namespace kelvane::entries {

using platform::Money;
using platform::Value;

namespace {

// What can be read of the lines' amounts.
ExactSum SumOf(std::span<const StoredLine> lines) {
    ExactSum sum;
    for (const StoredLine& line : lines) {
        if (line.amount) sum += ExactSum(*line.amount);
    }
    return sum;
}

std::string CodesOf(std::span<const StoredLine> lines) {
    std::vector<std::string> codes;
    for (const StoredLine& line : lines) codes.push_back(line.code);
    return CodesText(codes);
}

std::int64_t IdentityOf(const StoredLine& line) {
    return line.identity.value_or(0);
}

// What a line comes to, exactly and as the editor saves it.
struct Product {
    Money exact;
    Money saved;

    static std::optional<Product> Of(const StoredLine& line) {
        try {
            const Money exact = *line.price * Money::FromText(Value(*line.quantity).ToText());
            return Product{exact, Money::FromText(data::DisplayOfMoney(exact))};
        } catch (const std::exception&) {
            return std::nullopt;  // more than an amount can be
        }
    }
};

}  // namespace

void LineCheck::Check(const AccountEntry* entry, std::span<const StoredLine> lines) {
    for (const StoredLine& line : lines) {
        CheckValues(line);
        CheckProduct(line);
    }
    const ExactSum sum = SumOf(lines);
    const std::string count = std::to_string(lines.size());
    const std::int64_t identity = IdentityOf(lines.front());
    if (entry == nullptr) {
        if (!lines.front().identity) return;
        mFound.Add(identity, Rule::CheckLinesOrphan,
                   {std::to_string(identity), count, CodesOf(lines), sum.DisplayText()});
        return;
    }
    const auto detail = mCodes.DetailOf(entry->element);
    if (detail == 0) {
        mFound.Add(identity, Rule::CheckLinesKind,
                   {entry->element, count, CodesOf(lines), sum.DisplayText(),
                    entry->amount ? AmountText(*entry->amount) : "（无法读取）"});
        return;
    }
    if (detail) {
        for (const StoredLine& line : lines) {
            CheckCode(*entry, line, *detail == kEquipmentDetail);
        }
    }
    const bool isReadable = entry->amount && std::ranges::all_of(lines, [](const StoredLine& line) {
                                return line.amount.has_value();
                            });
    if (!isReadable || ExactSum(*entry->amount) == sum) return;
    mFound.Add(identity, Rule::CheckLinesSum,
               {entry->item, entry->element, AmountText(*entry->amount), sum.DisplayText(),
                (ExactSum(*entry->amount) - sum).DisplayText()});
}

void LineCheck::CheckValues(const StoredLine& line) {
    const std::int64_t identity = IdentityOf(line);
    if (!line.identity) mFound.Add(identity, Rule::CheckLineEntryValue, {line.code});
    if (!line.price) mFound.Add(identity, Rule::CheckLinePriceValue, {line.code});
    if (!line.quantity) mFound.Add(identity, Rule::CheckLineQuantityValue, {line.code});
    if (!line.amount) mFound.Add(identity, Rule::CheckLineAmountValue, {line.code});
}

void LineCheck::CheckProduct(const StoredLine& line) {
    if (!line.price || !line.quantity || !line.amount) return;
    const auto product = Product::Of(line);
    if (product && (*line.amount == product->saved || *line.amount == product->exact)) return;
    mFound.Add(
        IdentityOf(line), Rule::CheckLinesProduct,
        {line.code, AmountText(*line.amount), AmountText(*line.price), QuantityText(*line.quantity),
         product ? AmountText(product->saved) : "超出金额范围"});
}

void LineCheck::CheckCode(const AccountEntry& entry, const StoredLine& line, bool equipment) {
    const auto match = (equipment ? mCodes.Equipment() : mCodes.Inventory()).Find(line.code);
    const Rule unknown = equipment ? Rule::CheckEquipment : Rule::CheckInventory;
    if (match.known == nullptr) mFound.Add(entry.identity, unknown, {entry.element, line.code});
    if (match.similar == nullptr) return;
    mFound.Add(entry.identity, Rule::CheckLineBlank,
               {equipment ? "设备" : "存货", line.code, *match.similar});
}

}  // namespace kelvane::entries
