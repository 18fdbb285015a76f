// ReferenceListService: the pick-list service for hosts that bring none. It runs the statement it
// is handed, shows the rows in a ReferenceWindow and gives the chosen row back.
#pragma once

#include "adapters/reference/reference_lists.h"
#include "adapters/reference/reference_window.h"

namespace kelvane::reference {

// Lists known by key or by name: "Pm_Dutyref", "Pm_Eleref"; "PM_Equipment". Any other is a
// DatabaseError. The options are of no effect: every list is a choice of one row.
class ReferenceListService : public platform::ReferenceList {
public:
    explicit ReferenceListService(ListSurroundings surroundings)
        : mSurroundings(std::move(surroundings)) {}

    void OpenOn(std::string_view present) override { mPresent = present; }

    std::unique_ptr<platform::RecordSet> ListByKey(
        platform::HostLogin& login, const platform::StatementText& statement,
        std::string_view referenceKey, const platform::ReferenceListOptions& options) override;
    std::unique_ptr<platform::RecordSet> ListByStatement(
        platform::HostLogin& login, const platform::StatementText& statement,
        std::string_view titles, std::string_view widths,
        const platform::ReferenceListOptions& options) override;
    std::unique_ptr<platform::RecordSet> ListByName(
        platform::HostLogin& login, std::string_view name,
        const platform::ReferenceListOptions& options) override;
    // The connection stays as it is.
    std::unique_ptr<platform::RecordSet> ListOnConnection(
        std::shared_ptr<platform::Connection>& connection, const platform::StatementText& statement,
        std::string_view titles, std::string_view widths, bool& chosen) override;

private:
    platform::StatementText Completed(const platform::StatementText& statement) const;
    std::unique_ptr<platform::RecordSet> Show(std::unique_ptr<platform::RecordSet> source,
                                              std::string_view titles, std::string_view widths);
    std::unique_ptr<platform::RecordSet> Show(std::unique_ptr<platform::RecordSet> source,
                                              PickRows rows, ListLayout layout);

    ListSurroundings mSurroundings;
    std::string mPresent;
};

}  // namespace kelvane::reference
