#include "host/account/account_environment.h"

#include <utility>

#include "platform/statement_text.h"

namespace kelvane::host {

namespace {

using platform::StatementText;

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
    : mConnection(std::move(surroundings.connection)),
      mConnectedAccess(mConnection),
      mHostPath(std::move(surroundings.hostPath)) {
    mUnit.name = std::move(surroundings.unitName);
    mOperator.name = std::move(surroundings.operatorName);
    mAccount.calendar = std::move(surroundings.calendar);
    mAccount.year = surroundings.year;
}

std::string AccountEnvironment::ModuleSetting(std::string_view module, std::string_view name) {
    return ReadSetting(*mConnection, module, name);
}

}  // namespace kelvane::host
