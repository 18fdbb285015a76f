// The opening entries of the sample company, one after the other: any number of them, the same for
// the same seed, and the shorter list always the beginning of the longer one.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "host/sample/sample_catalog.h"
#include "host/sample/sample_company.h"
#include "host/sample/seeded_random.h"
#include "platform/money.h"

namespace kelvane::host {

struct SampleDetail {
    std::string_view code;
    std::int64_t cents;      // unit price
    std::int64_t halfUnits;  // quantity, in halves
    platform::Money amount;
};

struct SampleEntry {
    std::int64_t identity;
    platform::DateTime date;
    std::size_t center;
    std::size_t project;
    const SampleSection* section;
    std::size_t element;
    std::string_view digest;
    platform::Money stored;  // as the entry says
    platform::Money total;   // as its detail lines say; the stored amount when it has none
    std::vector<SampleDetail> details;
};

// Every entry passes the entry list's checks for an exempt operator, but for those of settled
// projects. Entry 5, 18 and 24 belong to settled projects, entry 10 is of amount 0, and entry 12
// has a stored amount that is not the sum of its detail lines.
class SampleEntrySource {
public:
    // `plans` outlives the source and the entries it gives.
    SampleEntrySource(const std::vector<SampleProjectPlan>& plans, std::uint64_t seed);

    SampleEntry Next();

private:
    void ChoosePlace(SampleEntry& entry);
    void AddDetails(SampleEntry& entry);
    std::size_t ChooseElement(DetailKind kind);

    const std::vector<SampleProjectPlan>& mPlans;
    SeededRandom mRandom;
    std::int64_t mIdentity = 0;
};

}  // namespace kelvane::host
