// The sample company's budgets: lines that the recorded entries keep within, some of them to the
// cent, some that do not control, and entries without a line.
#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "host/account/table_rows.h"
#include "host/sample/sample_entries.h"

namespace kelvane::host {

class SampleBudgets {
public:
    void Count(const SampleEntry& entry);

    // The budget versions, their lines and the lines' details. Version 2 is the one in control.
    std::vector<TableRows> Rows(std::uint64_t seed) const;

private:
    struct Recorded {
        platform::Money money;
        std::int64_t halfUnits = 0;
    };
    using Line = std::pair<std::size_t, std::size_t>;  // project, element

    std::map<Line, platform::Money> mLines;
    std::map<std::pair<Line, std::string_view>, Recorded> mDetails;
};

}  // namespace kelvane::host
