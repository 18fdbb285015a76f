// Master data of which a test knows every answer: centre D01 with items P01 and P02, of which P02
// is settled with keyword "完"; elements 人工费 (E01, plain), 材料费 (E02, inventory) and 机械费
// (E03, equipment); entries before 2004-07-01. What was asked is kept.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "entries/master_data.h"

namespace kelvane::entries {

class KnownMasterData : public MasterData {
public:
    Budget entryBudget;
    Budget lineBudget;
    platform::Money recorded;
    RecordedLines recordedLines;
    std::string unreadable;  // why no budget can be read; empty: it can
    std::vector<std::string> asked;

    bool CenterAllowed(const std::string& centerCode) override {
        asked.push_back("center " + centerCode);
        return centerCode == "D01";
    }
    bool ItemInCenter(const std::string& itemCode, const std::string& centerCode) override {
        asked.push_back("item " + itemCode + " in " + centerCode);
        return centerCode == "D01" && (itemCode == "P01" || itemCode == "P02");
    }
    bool ItemSettled(const std::string& itemCode, const std::string& key1,
                     const std::string& /*key2*/) override {
        return itemCode == "P02" && key1 == "完";
    }
    std::string ItemName(const std::string& itemCode) override { return "项目" + itemCode; }
    std::vector<ItemKeywords> KeywordsOf(const std::string& itemCode,
                                         const std::string& /*centerCode*/) override {
        if (itemCode == "P02") return {{"", ""}, {"完", ""}};
        return {{"", ""}, {"一标段", "1"}, {"二标段", "1"}};
    }
    std::optional<std::int16_t> ElementDetail(const std::string& elementName) override {
        static const std::map<std::string, std::int16_t> kDetails{
            {"人工费", std::int16_t{0}}, {"材料费", std::int16_t{1}}, {"机械费", std::int16_t{2}}};
        const auto found = kDetails.find(elementName);
        if (found == kDetails.end()) return std::nullopt;
        return found->second;
    }
    std::string ElementCode(const std::string& elementName) override {
        return elementName == "人工费" ? "E01" : "E02";
    }
    platform::DateTime OpeningBound() override { return {2004, 7, 1}; }
    Budget BudgetOf(const std::string& itemCode, const std::string& elementCode,
                    const std::string& detailCode) override {
        asked.push_back("budget " + itemCode + " " + elementCode + " " + detailCode);
        if (!unreadable.empty()) throw BudgetUnreadable(unreadable);
        return detailCode.empty() ? entryBudget : lineBudget;
    }
    platform::Money RecordedByOthers(const BudgetedEntry& entry,
                                     const std::string& elementCode) override {
        asked.push_back("recorded beside " + std::to_string(entry.identity) + " " + elementCode);
        return recorded;
    }
    RecordedLines LinesOfOthers(const BudgetedEntry& /*entry*/, const std::string& /*element*/,
                                const std::string& /*detailCode*/) override {
        return recordedLines;
    }
    std::optional<LineItem> FindLineItem(DetailKind /*kind*/, LineField /*by*/,
                                         const std::string& sought,
                                         const std::string& /*elementName*/,
                                         const std::string& /*ownCode*/) override {
        if (sought != "M01" && sought != "M02") return std::nullopt;
        return LineItem{sought, "钢筋", "HRB335", platform::Value("10"), "吨"};
    }
};

}  // namespace kelvane::entries
