#include "entries/check/check.h"

#include <algorithm>
#include <exception>
#include <optional>

#include "data/text_conversion.h"
#include "entries/check/account_content.h"
#include "entries/check/budget_check.h"
#include "entries/check/entry_check.h"
#include "entries/check/line_check.h"
#include "entries/check/master_codes.h"

namespace kelvane::entries {

namespace {

// The number that was given out last; none when the text is no number. No text: nothing was.
std::optional<std::int64_t> NumberOf(const std::string& counter) {
    if (data::Trim(counter).empty()) return 0;
    if (!data::IsNumericText(counter)) return std::nullopt;
    try {
        return data::RoundHalfEven(data::LeadingNumber(counter));
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

void CheckCounter(const AccountContent& content, FoundList& found) {
    const std::int64_t greatest = content.entries.empty() ? 0 : content.entries.back().identity;
    const std::string identity = std::to_string(greatest);
    if (!content.counter) {
        found.Add(greatest, Rule::CheckCounterMissing, {identity});
        return;
    }
    const auto number = NumberOf(*content.counter);
    if (!number) {
        found.Add(greatest, Rule::CheckCounterValue, {*content.counter, identity});
    } else if (*number < greatest) {
        found.Add(greatest, Rule::CheckCounter, {std::to_string(*number), identity});
    }
}

// Calls `check` for the lines of each identity, with the entry that has it.
template <typename Check>
void ForLinesOfEach(const AccountContent& content, const Check& check) {
    auto entry = content.entries.begin();
    for (auto first = content.lines.begin(); first != content.lines.end();) {
        const auto last = std::find_if(first, content.lines.end(), [&](const StoredLine& line) {
            return line.identity != first->identity;
        });
        while (entry != content.entries.end() && entry->identity < first->identity) ++entry;
        const bool isThere = entry != content.entries.end() && entry->identity == first->identity;
        check(isThere ? &*entry : nullptr, std::span(first, last));
        first = last;
    }
}

}  // namespace

CheckResult CheckAccount() {
    const AccountContent content = ReadAccountContent();
    FoundList found;
    MasterCodes codes(content);
    EntryCheck entryCheck(codes, found);
    for (const AccountEntry& entry : content.entries) entryCheck.Check(entry);
    LineCheck lineCheck(codes, found);
    ForLinesOfEach(content, [&](const AccountEntry* entry, std::span<const StoredLine> lines) {
        lineCheck.Check(entry, lines);
    });
    CheckBudgets(content, codes, found);
    CheckCounter(content, found);
    CheckResult result;
    result.entries = content.entries.size();
    result.findings = found.Take();
    for (const CheckFinding& each : result.findings) {
        ++(IsWarning(each.finding.rule) ? result.warnings : result.errors);
    }
    return result;
}

}  // namespace kelvane::entries
