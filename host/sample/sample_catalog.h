// The master data of the sample company, a construction firm: fixed lists, the same for every seed.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kelvane::host {

struct SampleCenter {
    std::string_view code;
    std::string_view name;
};

struct SampleOperator {
    std::string_view userId;
    std::string_view name;
    bool exempt;
    std::size_t centers;  // authorised for this many of the duty centres, from the first
};

struct SampleProject {
    std::string_view code;
    std::string_view name;
};

// How a project ends. Projects that are not listed are open.
struct SampleClosing {
    std::string_view project;
    std::string_view endDate;  // empty: closed without a date
    bool firstSectionOnly;
};

enum class DetailKind : std::int8_t { None = 0, Inventory = 1, Equipment = 2 };

struct SampleElement {
    std::string_view code;
    std::string_view name;
    DetailKind detail;
    std::string_view inventoryClass;  // its beginning; kNoClass for any
};

inline constexpr std::string_view kNoClass = "无分类";

struct SampleUnit {
    std::string_view code;
    std::string_view name;
};

struct SampleInventory {
    std::string_view code;
    std::string_view name;
    std::string_view standard;
    std::int64_t cents;     // reference cost
    std::string_view unit;  // empty: none
    std::string_view inventoryClass;
};

struct SampleEquipment {
    std::string_view code;
    std::string_view name;
    std::string_view model;
    std::int64_t cents;  // price of a machine shift
    bool usable;
};

inline constexpr std::string_view kSampleUnitName = "华远建设集团有限公司";

std::span<const SampleCenter> SampleCenters();
std::span<const SampleOperator> SampleOperators();
std::span<const SampleProject> SampleProjects();
std::span<const SampleClosing> SampleClosings();
std::span<const SampleElement> SampleElements();
std::span<const SampleUnit> SampleUnits();
std::span<const SampleInventory> SampleInventories();
std::span<const SampleEquipment> SampleEquipments();
// What the entries were recorded for.
std::span<const std::string_view> SampleDigests();

}  // namespace kelvane::host
