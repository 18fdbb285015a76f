#include "entries/summary/summary.h"

#include <algorithm>
#include <map>
#include <utility>

#include "data/login_context.h"
#include "entries/summary/summed_budgets.h"
#include "entries/summary/summed_entries.h"
#include "platform/database.h"

namespace kelvane::entries {

namespace {

using Entries = std::span<const SummedEntry>;

class Summing {
public:
    Summing(const SummedEntries& summed, Summary& summary) : mSummed(summed), mSummary(summary) {}

    // The groups of `entries`, which have the first `level` fields in common, and behind them their
    // sum.
    void Append(Entries entries, std::size_t level) {
        for (Entries rest = entries; level < mSummary.fields.size() && !rest.empty();) {
            const std::string& key = rest.front().keys[level];
            const auto end = std::ranges::find_if(
                rest, [&](const SummedEntry& each) { return each.keys[level] != key; });
            const auto count = static_cast<std::size_t>(end - rest.begin());
            Append(rest.first(count), level + 1);
            rest = rest.subspan(count);
        }
        mSummary.rows.push_back(RowOf(entries, level));
    }

private:
    SummaryRow RowOf(Entries entries, std::size_t level) const {
        SummaryRow row;
        for (std::size_t place = 0; place < level; ++place) {
            row.values.push_back(mSummed.values[place].at(entries.front().keys[place]));
        }
        row.entries = entries.size();
        for (const SummedEntry& each : entries) {
            row.sum += ExactSum(each.amount);
            row.identities.push_back(each.identity);
        }
        std::ranges::sort(row.identities);
        return row;
    }

    const SummedEntries& mSummed;
    Summary& mSummary;
};

// Gives every row of one item and element its budget, unless other rows share in it.
void AddBudgets(Summary& summary, std::size_t level) {
    const auto placeOf = [&](SummaryField field) {
        return static_cast<std::size_t>(std::ranges::find(summary.fields, field) -
                                        summary.fields.begin());
    };
    const std::size_t item = placeOf(SummaryField::Item);
    const std::size_t element = placeOf(SummaryField::Element);
    // A value is spelt in one way, so its code tells it from the others.
    std::map<std::pair<std::string, std::string>, std::vector<SummaryRow*>> pairs;
    for (SummaryRow& row : summary.rows) {
        if (row.values.size() != level) continue;
        pairs[{row.values[item].code, row.values[element].code}].push_back(&row);
    }
    SummedBudgets budgets;
    budgets.Read();
    for (const auto& [pair, rows] : pairs) {
        const auto budget = budgets.Find(pair.first, pair.second);
        if (!budget || rows.size() > 1) continue;
        SummaryRow& row = *rows.front();
        row.budget = {.budget = *budget, .used = row.sum, .left = *budget - row.sum};
    }
    summary.notes = budgets.Notes();
}

}  // namespace

Summary SummarizeAccount(std::span<const SummaryField> fields) {
    Summary summary;
    summary.fields.assign(fields.begin(), fields.end());
    const platform::Snapshot snapshot(*data::gConn);
    const SummedEntries summed = ReadSummedEntries(fields);
    Summing(summed, summary).Append(summed.entries, 0);
    if (const auto level = PairLevel(fields)) AddBudgets(summary, *level);
    return summary;
}

}  // namespace kelvane::entries
