#include <string_view>

#include "entries/summary/summary.h"
#include "entries/summary/summed_budgets.h"

namespace kelvane::entries {

namespace {

constexpr std::string_view kSubtotal = "小计";
constexpr std::string_view kTotal = "合计";

}  // namespace

std::vector<std::string> SummaryTitles(const Summary& summary) {
    std::vector<std::string> titles;
    // The grand total by itself still says what it is.
    if (summary.fields.empty()) titles.emplace_back("范围");
    for (const SummaryField field : summary.fields) {
        const DeclaredSummaryField& declared = Declared(field);
        titles.emplace_back(declared.codeTitle);
        if (!declared.nameTitle.empty()) titles.emplace_back(declared.nameTitle);
    }
    for (const char* title : {"笔数", "未结转期初"}) titles.emplace_back(title);
    if (PairLevel(summary.fields)) {
        for (const char* title : {"预算", "已用", "剩余"}) titles.emplace_back(title);
    }
    return titles;
}

std::size_t SummaryTextColumns(const Summary& summary) {
    if (summary.fields.empty()) return 1;
    std::size_t columns = 0;
    for (const SummaryField field : summary.fields) {
        columns += Declared(field).nameTitle.empty() ? 1U : 2U;
    }
    return columns;
}

std::vector<std::string> SummaryTexts(const Summary& summary, const SummaryRow& row) {
    std::vector<std::string> texts;
    for (std::size_t place = 0; place < row.values.size(); ++place) {
        texts.push_back(row.values[place].code);
        if (!Declared(summary.fields[place]).nameTitle.empty()) {
            texts.push_back(row.values[place].name);
        }
    }
    if (row.values.empty()) {
        texts.emplace_back(kTotal);
    } else if (row.values.size() < summary.fields.size()) {
        texts.emplace_back(kSubtotal);
    }
    texts.resize(SummaryTextColumns(summary));
    texts.push_back(std::to_string(row.entries));
    texts.push_back(row.sum.DisplayText());
    if (!PairLevel(summary.fields)) return texts;
    if (row.budget) {
        const SummaryBudget& budget = *row.budget;
        for (const ExactSum* sum : {&budget.budget, &budget.used, &budget.left}) {
            texts.push_back(sum->DisplayText());
        }
    } else {
        constexpr std::size_t kFigures = 3;
        texts.resize(texts.size() + kFigures);
    }
    return texts;
}

}  // namespace kelvane::entries
