// AccountMasterData: master data as the account has it at the moment of the question. Centres,
// items, their names and their settlement are read over gEnv, keywords, elements, budgets and what
// lines are made of over gConn. Errors are thrown unless MasterData says otherwise.
#pragma once

#include "entries/master_data.h"

namespace kelvane::entries {

class AccountMasterData : public MasterData {
public:
    bool CenterAllowed(const std::string& centerCode) override;
    // Sets gRefCenterCode and gRefByCenter.
    bool ItemInCenter(const std::string& itemCode, const std::string& centerCode) override;
    bool ItemSettled(const std::string& itemCode, const std::string& key1,
                     const std::string& key2) override;
    std::string ItemName(const std::string& itemCode) override;
    std::vector<ItemKeywords> KeywordsOf(const std::string& itemCode,
                                         const std::string& centerCode) override;
    std::optional<std::int16_t> ElementDetail(const std::string& elementName) override;
    std::string ElementCode(const std::string& elementName) override;
    platform::DateTime OpeningBound() override;
    Budget BudgetOf(const std::string& itemCode, const std::string& elementCode,
                    const std::string& detailCode) override;
    platform::Money RecordedByOthers(const BudgetedEntry& entry,
                                     const std::string& elementCode) override;
    RecordedLines LinesOfOthers(const BudgetedEntry& entry, const std::string& elementCode,
                                const std::string& detailCode) override;
    std::optional<LineItem> FindLineItem(DetailKind kind, LineField by, const std::string& sought,
                                         const std::string& elementName,
                                         const std::string& ownCode) override;
};

}  // namespace kelvane::entries
