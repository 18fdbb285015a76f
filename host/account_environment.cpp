#include "host/account_environment.h"

#include <utility>

#include "platform/statement_text.h"

namespace kelvane::host {

namespace {

using platform::RecordSet;
using platform::StatementText;

// Never made: gives the data access a way to hand a checked text on to a connection.
class CheckedText : public platform::Connection {
public:
    static std::unique_ptr<RecordSet> Open(Connection& connection, const std::string& statement) {
        return ForwardOpenRecordSet(
            connection, statement,
            {.location = platform::CursorLocation::Client, .cursor = platform::CursorType::Static});
    }
};

std::string FirstText(platform::Connection& connection, const StatementText& statement) {
    const auto rows = connection.OpenRecordSet(statement);
    return rows->EndOfFile() ? std::string() : rows->Field(0).ToText();
}

}  // namespace

std::string ReadSetting(platform::Connection& connection, std::string_view module,
                        std::string_view name) {
    StatementText own("select cValue from Host_Setting where cModule = ");
    own.Quoted(module) << " and cName = ";
    own.Quoted(name);
    std::string value = FirstText(connection, own);
    if (!value.empty()) return value;
    StatementText shared("select cValue from AccInformation where cSysID = ");
    shared.Quoted(module) << " and cName = ";
    shared.Quoted(name);
    return FirstText(connection, shared);
}

AccountEnvironment::AccountEnvironment(Surroundings surroundings)
    : mHostPath(std::move(surroundings.hostPath)) {
    mUnit.name = std::move(surroundings.unitName);
    mOperator.name = std::move(surroundings.operatorName);
    mAccount.calendar = std::move(surroundings.calendar);
    mAccount.year = surroundings.year;
    mConnectedAccess.connection = std::move(surroundings.connection);
}

std::string AccountEnvironment::ModuleSetting(std::string_view module, std::string_view name) {
    return ReadSetting(*mConnectedAccess.connection, module, name);
}

std::unique_ptr<RecordSet> AccountEnvironment::ConnectedAccess::DoQuery(
    const std::string& statement, int /*option*/) {
    return CheckedText::Open(*connection, statement);
}

}  // namespace kelvane::host
