#include "tests/windows/ado_server/ado_error.h"

#include <array>
#include <utility>

namespace kelvane::ado_server {
namespace {

constexpr std::array<std::pair<ErrorNumber, const char*>, 11> kDescriptions{{
    {ErrorNumber::InvalidArgument,
     "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one "
     "another."},
    {ErrorNumber::NoCurrentRecord,
     "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
     "requires a current record."},
    {ErrorNumber::IllegalOperation, "Operation is not allowed in this context."},
    {ErrorNumber::InTransaction,
     "Connection object cannot be explicitly closed while in a transaction."},
    {ErrorNumber::FeatureNotAvailable,
     "Current Recordset does not support updating. This may be a limitation of the provider, or "
     "of the selected locktype."},
    {ErrorNumber::ItemNotFound,
     "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    {ErrorNumber::DataConversion,
     "Application uses a value of the wrong type for the current operation."},
    {ErrorNumber::ObjectClosed, "Operation is not allowed when the object is closed."},
    {ErrorNumber::ObjectOpen, "Operation is not allowed when the object is open."},
    {ErrorNumber::ProviderNotFound, "Provider cannot be found. It may not be properly installed."},
    {ErrorNumber::InvalidConnection,
     "The connection cannot be used to perform this operation. It is either closed or invalid in "
     "this context."},
}};

}  // namespace

AutomationError MakeError(ErrorNumber number) {
    const auto code = static_cast<HRESULT>(0x800A0000U | static_cast<unsigned>(number));
    for (const auto& [known, description] : kDescriptions) {
        if (known == number) return {code, description};
    }
    return {code, {}};
}

}  // namespace kelvane::ado_server
