// What the host program hands to the component: who has logged in, and the surroundings. The
// objects are the host's; the component only reads them, on the user-interface thread. A member
// that the host cannot answer throws platform::HostError.
#pragma once

#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "platform/database.h"
#include "platform/date_time.h"

namespace kelvane::platform {

// The host refused or could not answer; names the object and the member.
class HostError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class HostLogin {
public:
    virtual ~HostLogin() = default;
    virtual std::string ConnectionString() const = 0;
    virtual std::string UserId() const = 0;
    // True when the operator is not checked against the duty centres' authorisations.
    virtual bool IsExemptFromCenterAuth() const = 0;
    // The account year of the login.
    virtual int Year() const = 0;
};

class HostUnit {
public:
    virtual ~HostUnit() = default;
    virtual std::string Name() const = 0;
};

class HostOperator {
public:
    virtual ~HostOperator() = default;
    virtual std::string Name() const = 0;
};

// The account: its current year and its calendar. Periods are numbered 1 to 12 (or 13) in a year.
class HostAccount {
public:
    virtual ~HostAccount() = default;
    virtual int Year() const = 0;
    // The first day of account year `year`.
    virtual DateTime YearStart(int year) const = 0;
    // The number of the period in which `date` lies.
    virtual int PeriodOf(const DateTime& date) const = 0;
    // The first day of the period in which `date` lies.
    virtual DateTime PeriodStart(const DateTime& date) const = 0;
};

// The host's own way to the account database. A statement that returns no rows gives an empty set.
class HostDataAccess {
public:
    virtual ~HostDataAccess() = default;

    // `option`: 2, as the component always passes. Never returns null: the record set belongs to
    // the caller, and the connection behind it stays open until it is gone. Throws DatabaseError,
    // and MalformedStatement before anything reaches the database.
    std::unique_ptr<RecordSet> Query(const StatementText& statement, int option = 2) {
        return DoQuery(statement.Checked(), option);
    }

    // A hint that these are the next queries, with everything that Connection::ReadAhead() says.
    virtual void ReadAhead(std::span<const StatementText> /*queries*/) {}
    // The same of Connection::AnnounceChanges().
    virtual void AnnounceChanges(ChangeBehind /*changeOf*/) {}

protected:
    virtual std::unique_ptr<RecordSet> DoQuery(const std::string& statement, int option) = 0;

    // For a data access that stands in front of another one: hands a checked text on to `inner`.
    static std::unique_ptr<RecordSet> ForwardQuery(HostDataAccess& inner,
                                                   const std::string& statement, int option) {
        return inner.DoQuery(statement, option);
    }
};

// A data access over a connection of the host's own, which is open.
class ConnectionDataAccess : public HostDataAccess {
public:
    explicit ConnectionDataAccess(std::shared_ptr<Connection> connection)
        : mConnection(std::move(connection)) {}

    void ReadAhead(std::span<const StatementText> queries) override {
        mConnection->ReadAhead(queries, kOptions);
    }
    void AnnounceChanges(ChangeBehind changeOf) override {
        mConnection->AnnounceChanges(std::move(changeOf));
    }

protected:
    std::unique_ptr<RecordSet> DoQuery(const std::string& statement, int /*option*/) override {
        return mConnection->DoOpenRecordSet(statement, kOptions);
    }

private:
    static constexpr RecordSetOptions kOptions{.location = CursorLocation::Client,
                                               .cursor = CursorType::Static};

    std::shared_ptr<Connection> mConnection;
};

class HostEnvironment {
public:
    virtual ~HostEnvironment() = default;
    // The parts stay the environment's and live as long as it.
    virtual HostUnit& Unit() = 0;
    virtual HostOperator& Operator() = 0;
    virtual HostAccount& Account() = 0;
    virtual HostDataAccess& DataAccess() = 0;
    // A setting of module `module` ("PM"); empty text when it is not set. docs/settings.md lists
    // those that are asked for.
    virtual std::string ModuleSetting(std::string_view module, std::string_view name) = 0;
    // The host program's folder; help files lie below it.
    virtual std::string HostPath() const = 0;
};

}  // namespace kelvane::platform
