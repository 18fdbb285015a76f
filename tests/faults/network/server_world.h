// The entry list on a server's account behind a network that breaks; what another operator finds is
// found without it. A test makes one for each cut, one after the other.
#pragma once

#include <memory>
#include <regex>
#include <stdexcept>
#include <string>

#include "tests/faults/entry_desk.h"
#include "tests/support/network_proxy.h"
#include "tests/support/server_place.h"
#include "tests/support/test_place.h"
#include "tests/support/test_tables.h"

namespace kelvane::faults {

// The account's tables, empty.
class ServerPlace {
public:
    ServerPlace() {
        mPlace->CreateTables(Tables());
        other = Connect(Port());
    }

    std::string ConnectionString() const { return mPlace->ConnectionString(); }
    int Port() const {
        std::smatch found;
        const std::string text = ConnectionString();
        if (!std::regex_search(text, found, std::regex("Port=(\\d+)"))) {
            throw std::runtime_error("no port is named");
        }
        return std::stoi(found[1]);
    }
    // `port`: the server's own or one that leads there.
    std::shared_ptr<platform::Connection> Connect(int port) const {
        auto connection = mPlace->NewConnection(kLockTimeout, Tables());
        connection->SetConnectionString(
            support::WithKeyword(ConnectionString(), "Port", std::to_string(port)));
        connection->SetCursorLocation(platform::CursorLocation::Client);
        connection->Open("", "", -1);
        return connection;
    }
    void Clear() const {
        platform::Transaction transaction(*other);
        for (const auto& table : Tables()) {
            platform::StatementText all("delete from ");
            all.Identifier(table.name);
            other->Execute(all);
        }
        transaction.Commit();
    }

    std::shared_ptr<platform::Connection> other;

private:
    // A server finishes what a broken connection has left before another one gets its locks.
    static constexpr int kLockTimeout = 60000;

    static std::vector<tsql::TableDescription> Tables() {
        return support::ComponentTables({"标段", "楼号"});
    }

    std::unique_ptr<support::TestPlace> mPlace = support::MakeTestPlace();
};

class ServerWorld : public EntryDesk {
public:
    explicit ServerWorld(const ServerPlace& place, std::chrono::microseconds delay = {})
        : network(place.Port(), delay),
          mAccess(place.Connect(network.Port())),
          mEnvironment(mAccess) {
        other = place.other;
        place.Clear();
        for (const platform::FixedText& statement : kContent) Run(statement);
        MendContent();
        data::gConn = place.Connect(network.Port());
        mEnvironment.startPeriod = environment.startPeriod;
        data::gEnv = &mEnvironment;
    }
    ~ServerWorld() override {
        network.Mend();
        LeaveDesk();
    }

    support::NetworkProxy network;

private:
    platform::ConnectionDataAccess mAccess;
    support::TestEnvironment mEnvironment;
};

}  // namespace kelvane::faults
