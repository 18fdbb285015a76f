// The sample company's projects: their parts, which of them are settled, and the duty centres that
// carry them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/account/table_rows.h"
#include "platform/date_time.h"

namespace kelvane::host {

// The first day on which project management is in use; opening entries lie before it.
inline constexpr platform::DateTime kSampleStart{.year = 2004, .month = 7, .day = 1};

// One part of a project: a row of the item class's sub-table.
struct SampleSection {
    std::optional<std::string> key1;
    std::optional<std::int64_t> key2;
    bool closed = false;
    std::optional<platform::DateTime> endDate;

    // Finished before the start, so that no opening entry may be recorded for it any more.
    bool IsSettled() const { return closed && (!endDate || *endDate < kSampleStart); }
};

struct SampleProjectPlan {
    std::size_t project;               // index in SampleProjects()
    std::vector<std::size_t> centers;  // indexes in SampleCenters()
    std::vector<SampleSection> sections;
};

// The plans of all projects, in their order. `keyFields`: 0, 1 or 2.
std::vector<SampleProjectPlan> PlanProjects(int keyFields, std::uint64_t seed);

// The rows of all master data: centres, authorisations, projects with their parts and assignments,
// elements, units, inventory, equipment.
std::vector<TableRows> MasterData(const std::vector<SampleProjectPlan>& plans, int keyFields);

}  // namespace kelvane::host
