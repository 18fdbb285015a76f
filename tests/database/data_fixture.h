// The login context on a real account: gConn and gEnv are two connections to it, their statements
// recorded, and what the operator would see is kept.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "data/login_context.h"
#include "tests/support/login_context_reset.h"
#include "tests/support/recording_database.h"
#include "tests/support/recording_diagnostics.h"
#include "tests/support/recording_windows.h"
#include "tests/support/test_host.h"
#include "tests/support/test_place.h"
#include "tests/support/test_tables.h"

namespace kelvane::data {

using Lines = std::vector<std::string>;

class DataTest : public testing::Test {
protected:
    DataTest() : mPlace(MakePlace()), mOther(Connect()) {}

    void SetUp() override {
        mServices.windows = &mWindows;
        mServices.diagnostics = &mDiagnostics;
        gServices = &mServices;
        gLogin = &mLogin;
        gEnv = &mEnvironment;
        gConn = std::make_shared<support::RecordingConnection>(Connect(), mLog);
    }

    void TearDown() override { support::ResetLoginContext(); }

    // Runs a statement as another operator does.
    void Run(platform::FixedText statement) { mOther->Execute(statement); }

    // The first field of a query as another operator sees it.
    std::string Read(platform::FixedText query) {
        return mOther->OpenRecordSet(query)->Field(0).ToText();
    }

    Lines Messages() const { return support::MessageLines(mWindows); }

    std::shared_ptr<platform::Connection> Connect() const {
        auto connection = mPlace->NewConnection(kTimeout, support::ComponentTables());
        connection->Open("", "", -1);
        return connection;
    }

    std::unique_ptr<support::TestPlace> mPlace;
    std::shared_ptr<platform::Connection> mOther;
    support::StatementLog mLog;
    support::RecordingWindows mWindows;
    support::RecordingDiagnostics mDiagnostics;
    support::TestLogin mLogin;
    platform::ConnectionDataAccess mDataAccess{
        std::make_shared<support::RecordingConnection>(Connect(), mLog, "gEnv")};
    support::TestEnvironment mEnvironment{mDataAccess};
    platform::Services mServices;

private:
    static constexpr int kTimeout = 50;

    static std::unique_ptr<support::TestPlace> MakePlace() {
        auto place = support::MakeTestPlace();
        place->CreateTables(support::ComponentTables());
        return place;
    }
};

}  // namespace kelvane::data
