#include "host/sample/sample_entries.h"

#include <algorithm>
#include <array>

namespace kelvane::host {

namespace {

using platform::DateTime;
using platform::Money;

struct SettledEntry {
    std::int64_t identity;
    std::string_view project;
};
constexpr std::array<SettledEntry, 3> kSettledEntries = {{{5, "P007"}, {18, "P013"}, {24, "P022"}}};
constexpr std::int64_t kZeroEntry = 10;
constexpr std::int64_t kWrongSumEntry = 12;

constexpr DateTime kFirstDate{.year = 2003, .month = 1, .day = 6};
constexpr std::int64_t kMinCents = 100000;
constexpr std::int64_t kMaxCents = 50000000;
constexpr std::int64_t kCentsOfRoundAmounts = 100000;
constexpr std::int64_t kMaxDetails = 4;

Money FromCents(std::int64_t cents) {
    return Money::FromUnits(cents * 100);
}

DetailKind KindOf(std::int64_t identity) {
    if (identity % 3 != 0) return DetailKind::None;
    return identity % 6 == 0 ? DetailKind::Equipment : DetailKind::Inventory;
}

struct Priced {
    std::string_view code;
    std::int64_t cents;
};

// What a detail line of the element may name.
std::vector<Priced> Usable(const SampleElement& element) {
    std::vector<Priced> usable;
    if (element.detail == DetailKind::Equipment) {
        for (const auto& equipment : SampleEquipments()) {
            if (equipment.usable) usable.push_back({equipment.code, equipment.cents});
        }
        return usable;
    }
    for (const auto& inventory : SampleInventories()) {
        if (element.inventoryClass != kNoClass &&
            !inventory.inventoryClass.starts_with(element.inventoryClass)) {
            continue;
        }
        usable.push_back({inventory.code, inventory.cents});
    }
    return usable;
}

}  // namespace

SampleEntrySource::SampleEntrySource(const std::vector<SampleProjectPlan>& plans,
                                     std::uint64_t seed)
    : mPlans(plans), mRandom(~seed) {}

SampleEntry SampleEntrySource::Next() {
    const auto digests = SampleDigests();
    SampleEntry entry{};
    entry.identity = ++mIdentity;
    const long days = kSampleStart.DayNumber() - kFirstDate.DayNumber();
    entry.date = kFirstDate.AddDays(static_cast<long>(mRandom.Between(0, days - 1)));
    ChoosePlace(entry);
    entry.element = ChooseElement(KindOf(entry.identity));
    entry.digest = mRandom.Pick(digests);
    if (SampleElements()[entry.element].detail != DetailKind::None) {
        AddDetails(entry);
        return entry;
    }
    std::int64_t cents = mRandom.Between(kMinCents, kMaxCents);
    if (mRandom.Chance(50)) cents -= cents % kCentsOfRoundAmounts;
    entry.stored = FromCents(entry.identity == kZeroEntry ? 0 : cents);
    entry.total = entry.stored;
    return entry;
}

void SampleEntrySource::ChoosePlace(SampleEntry& entry) {
    const auto settled =
        std::ranges::find(kSettledEntries, entry.identity, &SettledEntry::identity);
    const bool wantsSettled = settled != kSettledEntries.end();
    for (;;) {
        const auto& plan = mRandom.Pick(mPlans);
        const auto& section = mRandom.Pick(plan.sections);
        if (section.IsSettled() != wantsSettled) continue;
        if (wantsSettled && SampleProjects()[plan.project].code != settled->project) continue;
        entry.project = plan.project;
        entry.center = mRandom.Pick(plan.centers);
        entry.section = &section;
        return;
    }
}

std::size_t SampleEntrySource::ChooseElement(DetailKind kind) {
    for (;;) {
        const std::size_t element = mRandom.Below(SampleElements().size());
        if (SampleElements()[element].detail == kind) return element;
    }
}

void SampleEntrySource::AddDetails(SampleEntry& entry) {
    auto usable = Usable(SampleElements()[entry.element]);
    const auto wanted = static_cast<std::size_t>(mRandom.Between(1, kMaxDetails));
    while (entry.details.size() < wanted && !usable.empty()) {
        const std::size_t chosen = mRandom.Below(usable.size());
        SampleDetail detail{usable[chosen].code, usable[chosen].cents, 0, {}};
        usable.erase(usable.begin() + static_cast<std::ptrdiff_t>(chosen));
        detail.cents = std::max<std::int64_t>(1, detail.cents * mRandom.Between(95, 105) / 100);
        detail.halfUnits = mRandom.Between(2, 240);
        // Half a unit of an odd price would not be a whole number of cents.
        if (detail.cents % 2 != 0) detail.halfUnits += detail.halfUnits % 2;
        detail.amount = FromCents(detail.cents * detail.halfUnits / 2);
        entry.total += detail.amount;
        entry.details.push_back(detail);
    }
    entry.stored = entry.total;
    if (entry.identity == kWrongSumEntry) entry.stored = entry.total + FromCents(100000);
}

}  // namespace kelvane::host
