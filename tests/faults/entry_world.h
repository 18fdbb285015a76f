// The entry list on an account every call of whose database services can fail. A test makes one for
// each call that is to fail.
#pragma once

#include <memory>

#include "tests/faults/entry_desk.h"
#include "tests/faults/failing_connection.h"

namespace kelvane::faults {

class EntryWorld : public EntryDesk {
public:
    EntryWorld() {
        MendContent();
        data::gConn = std::make_shared<FailingConnection>(account.Connect(), calls);
        mEnvironment.startPeriod = environment.startPeriod;
        data::gEnv = &mEnvironment;
    }
    ~EntryWorld() override {
        calls.Heal();
        LeaveDesk();
    }

    FailingCalls calls;

private:
    platform::ConnectionDataAccess mAccess{
        std::make_shared<FailingConnection>(account.Connect(), calls)};
    support::TestEnvironment mEnvironment{mAccess};
};

}  // namespace kelvane::faults
