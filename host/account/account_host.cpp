#include "host/account/account_host.h"

#include <utility>

#include "host/account/host_tables.h"
#include "platform/statement_text.h"

namespace kelvane::host {

namespace {

using platform::HostError;
using platform::StatementText;
using platform::Value;

int UsualYear(platform::Connection& connection) {
    return static_cast<int>(Value(ReadSetting(connection, kHostModule, kUsualYear)).ToInteger());
}

struct KnownOperator {
    std::string userId;
    std::string name;
    bool exempt;
};

KnownOperator FindOperator(platform::Connection& connection, const std::string& user) {
    StatementText statement("select cUserID,cName,bExempt from Host_Operator where cUserID = ");
    statement.Quoted(user);
    const std::string unknown = "帐套中没有操作员 " + user;
    if (statement.IsMalformed()) throw HostError(unknown);
    const auto rows = connection.OpenRecordSet(statement);
    if (rows->EndOfFile()) throw HostError(unknown);
    return {rows->Field(0).ToText(), rows->Field(1).ToText(), rows->Field(2).ToInteger() != 0};
}

std::string UnitName(platform::Connection& connection) {
    const auto rows = connection.OpenRecordSet(StatementText("select cUnitName from Host_Unit"));
    return rows->EndOfFile() ? std::string() : rows->Field(0).ToText();
}

}  // namespace

AccountHost::AccountHost(const LoginPlace& place, const LoginRequest& request) {
    auto connection = place.createConnection();
    connection->SetConnectionString(place.connectionString);
    connection->Open({}, {}, -1);

    auto calendar = AccountCalendar::Load(*connection);
    const auto known =
        FindOperator(*connection, request.user ? *request.user
                                               : ReadSetting(*connection, kHostModule, kUsualUser));
    mLogin.connectionString = place.connectionString;
    mLogin.userId = known.userId;
    mLogin.exempt = request.exempt.value_or(known.exempt);
    mLogin.year = request.year ? *request.year : UsualYear(*connection);
    calendar.YearStart(mLogin.year);

    const std::string unitName = UnitName(*connection);
    mEnvironment = std::make_unique<AccountEnvironment>(
        Surroundings{std::move(connection), std::move(calendar), unitName, known.name, mLogin.year,
                     place.hostPath});
}

}  // namespace kelvane::host
