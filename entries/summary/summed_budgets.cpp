#include "entries/summary/summed_budgets.h"

#include <algorithm>

#include "data/login_context.h"
#include "data/text_conversion.h"
#include "entries/unreadable_rows.h"
#include "platform/letter_case.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

using data::gConn;
using platform::ComparedText;
using platform::RecordSet;
using platform::StatementText;

namespace {

std::optional<ExactSum> BudgetIn(const RecordSet& line) {
    if (line.Field("iBudget").ToMoney() <= platform::Money()) return std::nullopt;
    return ExactSum(data::MoneyOfDisplay(line.Field("iMoneysum").ToText()));
}

}  // namespace

std::optional<std::size_t> PairLevel(std::span<const SummaryField> fields) {
    const auto item = std::ranges::find(fields, SummaryField::Item);
    const auto element = std::ranges::find(fields, SummaryField::Element);
    if (item == fields.end() || element == fields.end()) return std::nullopt;
    return static_cast<std::size_t>(std::max(item, element) - fields.begin()) + 1;
}

// What cannot be read is told where an entry has this item and element.
SummedBudgets::Line SummedBudgets::LineIn(const RecordSet& row) {
    Line line;
    line.isReadable = CanBeRead([&] { line.budget = BudgetIn(row); });
    return line;
}

void SummedBudgets::Read() {
    // With two of them the question for one budget fails, and with it nothing is granted or denied.
    const auto versions =
        gConn->OpenRecordSet(StatementText("select iverid from pm_BudgetVer where bControl=1"));
    std::size_t count = 0;
    for (; !versions->EndOfFile(); versions->MoveNext()) ++count;
    versions->Close();
    if (count > 1) {
        mNotes.push_back("有 " + std::to_string(count) +
                         " 个预算版本同时在控制，不列预算、已用和剩余");
        return;
    }
    const auto lines = gConn->OpenRecordSet(
        StatementText("select citemCode,cElementCode,iBudget,iMoneysum from pm_budget where "
                      "iVerID=(select iverid from pm_BudgetVer where bControl=1)"));
    for (; !lines->EndOfFile(); lines->MoveNext()) {
        mLines.emplace(Pair(ComparedText(lines->Field("citemCode").ToText()),
                            ComparedText(lines->Field("cElementCode").ToText())),
                       LineIn(*lines));
    }
}

std::optional<ExactSum> SummedBudgets::Find(std::string_view itemCode,
                                            std::string_view elementCode) {
    const std::string item = data::Trim(itemCode);
    const std::string element = data::Trim(elementCode);
    const auto line = mLines.find(Pair(ComparedText(item), ComparedText(element)));
    if (line == mLines.end()) return std::nullopt;
    if (!line->second.isReadable) {
        mNotes.push_back("项目 " + item + " 要素 " + element + " 的预算无法识别");
        return std::nullopt;
    }
    return line->second.budget;
}

}  // namespace kelvane::entries
