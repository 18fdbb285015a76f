// The pick-list service: shows the rows of a query and lets the operator choose one. The component
// asks for a new service object for each list.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/database.h"
#include "platform/host.h"

namespace kelvane::platform {

// The trailing options that every call carries.
struct ReferenceListOptions {
    int first = 0;
    int second = 1;
    int third = 1;
};

// Its four forms differ in who knows what:
//
// - ListByKey: the statement is the caller's, titles and widths are the service's.
// - ListByStatement: the statement, the titles and the widths are the caller's.
// - ListByName: the statement, the titles and the widths are the service's.
// - ListOnConnection: as ListByStatement, over a connection of the caller's; the others read the
//   account of the login.
//
// The rows of a list have the statement's columns, of which the first ones have titles; the chosen
// row has all of them under the statement's names. The record set belongs to the caller and may
// outlive the service.
class ReferenceList {
public:
    virtual ~ReferenceList() = default;

    // The text that is in the cell or field now: the next list opens on the first row that has it
    // as one of its texts. A service that does not know how opens on the first row.
    virtual void OpenOn(std::string_view /*present*/) {}

    // Each shows the list modally and returns the chosen row as a record set of one row, or null
    // when nothing was chosen. Throws DatabaseError (and MalformedStatement) when the query fails.

    // A list whose titles and widths the service knows under `referenceKey` ("Pm_Dutyref",
    // "Pm_Eleref").
    virtual std::unique_ptr<RecordSet> ListByKey(HostLogin& login, const StatementText& statement,
                                                 std::string_view referenceKey,
                                                 const ReferenceListOptions& options) = 0;

    // `titles` and `widths` (twips) are comma-separated.
    virtual std::unique_ptr<RecordSet> ListByStatement(HostLogin& login,
                                                       const StatementText& statement,
                                                       std::string_view titles,
                                                       std::string_view widths,
                                                       const ReferenceListOptions& options) = 0;

    // A list that the service knows by name ("PM_Equipment").
    virtual std::unique_ptr<RecordSet> ListByName(HostLogin& login, std::string_view name,
                                                  const ReferenceListOptions& options) = 0;

    // A list over a connection of the caller's. `chosen` tells whether the operator took a row; the
    // service may replace `connection` by another one to the same account.
    virtual std::unique_ptr<RecordSet> ListOnConnection(std::shared_ptr<Connection>& connection,
                                                        const StatementText& statement,
                                                        std::string_view titles,
                                                        std::string_view widths, bool& chosen) = 0;
};

}  // namespace kelvane::platform
