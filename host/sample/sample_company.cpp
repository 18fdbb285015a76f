#include "host/sample/sample_company.h"

#include <algorithm>
#include <array>

#include "host/account/item_class.h"
#include "host/sample/sample_catalog.h"
#include "host/sample/seeded_random.h"

namespace kelvane::host {

namespace {

using platform::DateTime;
using platform::Value;

constexpr std::array<std::string_view, 3> kSectionNames = {"一标段", "二标段", "三标段"};

void Close(SampleProjectPlan& plan) {
    const auto closings = SampleClosings();
    const auto closing =
        std::ranges::find(closings, SampleProjects()[plan.project].code, &SampleClosing::project);
    if (closing == closings.end()) return;
    for (SampleSection& section : plan.sections) {
        if (closing->firstSectionOnly && section.key1 != plan.sections.front().key1) continue;
        section.closed = true;
        DateTime endDate;
        if (DateTime::Parse(closing->endDate, endDate)) section.endDate = endDate;
    }
}

// A project of one part would leave nothing open when its first part closes.
bool NeedsSections(std::size_t project) {
    return std::ranges::any_of(SampleClosings(), [&](const SampleClosing& closing) {
        return closing.project == SampleProjects()[project].code && closing.firstSectionOnly;
    });
}

template <typename T>
Value ValueOrNull(const std::optional<T>& content) {
    return content ? Value(*content) : Value();
}

Value Flag(bool set) {
    return Value(std::int64_t{set ? 1 : 0});
}
Value Cents(std::int64_t cents) {
    return Value(platform::Money::FromUnits(cents * 100));
}

TableRows CenterRows() {
    TableRows rows{"PM_DutyCenter", {"cCenterCode", "cCenterName"}, {}};
    for (const auto& center : SampleCenters()) {
        rows.rows.push_back({Value(center.code), Value(center.name)});
    }
    return rows;
}

TableRows AuthorisationRows() {
    TableRows rows{"PM_UserAuth", {"cUserID", "cCenterCode"}, {}};
    for (const auto& user : SampleOperators()) {
        for (const auto& center : SampleCenters().first(user.centers)) {
            rows.rows.push_back({Value(user.userId), Value(center.code)});
        }
    }
    return rows;
}

TableRows ProjectRows() {
    TableRows rows{"fitemss97", {"citemcode", "citemname"}, {}};
    for (const auto& project : SampleProjects()) {
        rows.rows.push_back({Value(project.code), Value(project.name)});
    }
    return rows;
}

TableRows SectionRows(const std::vector<SampleProjectPlan>& plans, int keyFields) {
    TableRows rows{"fitemss97sub", {"citemcode", "iclose", "denddate"}, {}};
    for (const auto& field : ItemKeyFields(keyFields)) rows.columns.emplace_back(field.name);
    for (const auto& plan : plans) {
        for (const auto& section : plan.sections) {
            Row row = {Value(SampleProjects()[plan.project].code), Flag(section.closed),
                       ValueOrNull(section.endDate)};
            if (section.key1) row.emplace_back(*section.key1);
            if (section.key2) row.emplace_back(*section.key2);
            rows.rows.push_back(std::move(row));
        }
    }
    return rows;
}

TableRows AssignmentRows(const std::vector<SampleProjectPlan>& plans) {
    TableRows rows{"PM_DutycenterSub", {"cCenterCode", "cItemCode", "cKeyWord1", "cKeyWord2"}, {}};
    for (const auto& plan : plans) {
        for (const std::size_t center : plan.centers) {
            for (const auto& section : plan.sections) {
                rows.rows.push_back(
                    {Value(SampleCenters()[center].code),
                     Value(SampleProjects()[plan.project].code), ValueOrNull(section.key1),
                     section.key2 ? Value(std::to_string(*section.key2)) : Value()});
            }
        }
    }
    return rows;
}

TableRows ElementRows() {
    TableRows rows{
        "PM_ItemElement", {"cElementCode", "cElementName", "iElementDetail", "cInvCCode"}, {}};
    for (const auto& element : SampleElements()) {
        rows.rows.push_back({Value(element.code), Value(element.name),
                             Value(static_cast<std::int64_t>(element.detail)),
                             Value(element.inventoryClass)});
    }
    return rows;
}

TableRows UnitRows() {
    TableRows rows{"computationunit", {"cComUnitCode", "cComUnitName"}, {}};
    for (const auto& unit : SampleUnits()) {
        rows.rows.push_back({Value(unit.code), Value(unit.name)});
    }
    return rows;
}

TableRows InventoryRows() {
    TableRows rows{"inventory",
                   {"cInvCode", "cInvName", "cInvStd", "iInvRCost", "cSAComUnitCode", "cInvCCode"},
                   {}};
    for (const auto& inventory : SampleInventories()) {
        rows.rows.push_back({Value(inventory.code), Value(inventory.name),
                             Value(inventory.standard), Cents(inventory.cents),
                             inventory.unit.empty() ? Value() : Value(inventory.unit),
                             Value(inventory.inventoryClass)});
    }
    return rows;
}

TableRows EquipmentRows() {
    TableRows rows{"pm_equipment",
                   {"cEquipCode", "cEquipName", "cEquipModel", "dblTbUPrice", "bEquipEnd"},
                   {}};
    for (const auto& equipment : SampleEquipments()) {
        rows.rows.push_back({Value(equipment.code), Value(equipment.name), Value(equipment.model),
                             Value(static_cast<double>(equipment.cents) / 100.0),
                             Flag(equipment.usable)});
    }
    return rows;
}

}  // namespace

std::vector<SampleProjectPlan> PlanProjects(int keyFields, std::uint64_t seed) {
    SeededRandom random(seed);
    const std::size_t centers = SampleCenters().size();
    std::vector<SampleProjectPlan> plans;
    for (std::size_t project = 0; project < SampleProjects().size(); ++project) {
        SampleProjectPlan plan{project, {project % centers}, {}};
        const std::size_t other = random.Below(centers);
        if (random.Chance(40) && other != plan.centers.front()) plan.centers.push_back(other);
        const std::size_t fewest = NeedsSections(project) ? 2 : 1;
        const std::size_t sections = std::max(fewest, 1 + random.Below(kSectionNames.size()));
        const std::int64_t phases = random.Between(1, 2);
        for (std::size_t section = 0; section < (keyFields > 0 ? sections : 1); ++section) {
            for (std::int64_t phase = 1; phase <= (keyFields > 1 ? phases : 1); ++phase) {
                SampleSection part;
                if (keyFields > 0) part.key1 = kSectionNames.at(section);
                if (keyFields > 1) part.key2 = phase;
                plan.sections.push_back(std::move(part));
            }
        }
        Close(plan);
        plans.push_back(std::move(plan));
    }
    return plans;
}

std::vector<TableRows> MasterData(const std::vector<SampleProjectPlan>& plans, int keyFields) {
    return {
        CenterRows(),          AuthorisationRows(), ProjectRows(), SectionRows(plans, keyFields),
        AssignmentRows(plans), ElementRows(),       UnitRows(),    InventoryRows(),
        EquipmentRows()};
}

}  // namespace kelvane::host
