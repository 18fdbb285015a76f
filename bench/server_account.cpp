// An account on a server: opening the entry list and saving a row, beside a bare loop through ODBC,
// and over a network that takes its time. Measured where KELVANE_TEST_POSTGRES names an empty
// database, as scripts/with-postgres does.
#include <cstdlib>
#include <optional>
#include <utility>

#include "bench/entry_windows.h"
#include "bench/row_leaving.h"
#include "bench/samples.h"
#include "bench/server_floor.h"
#include "data/login_context.h"
#include "host/creation/server_account.h"
#include "tests/support/network_proxy.h"

namespace kelvane::bench {

namespace {

using host::AccountPlace;
using ui::frmPeriodItem;

constexpr std::int64_t kEntries = 10'000;
constexpr double kLimit = 1.3;
constexpr double kLimitOfReadingAhead = 0.05;
constexpr double kLimitFarAway = 1.0;
constexpr double kSecondsFarAway = 1.5;
constexpr std::chrono::milliseconds kLatency{1};

// The host's surroundings with a data access that ignores what is announced: every query is a round
// trip of its own.
class OneByOne : public platform::HostEnvironment {
public:
    explicit OneByOne(platform::HostEnvironment& inner)
        : mInner(inner), mAccess(inner.DataAccess()) {}

    platform::HostUnit& Unit() override { return mInner.Unit(); }
    platform::HostOperator& Operator() override { return mInner.Operator(); }
    platform::HostAccount& Account() override { return mInner.Account(); }
    platform::HostDataAccess& DataAccess() override { return mAccess; }
    std::string ModuleSetting(std::string_view module, std::string_view name) override {
        return mInner.ModuleSetting(module, name);
    }
    std::string HostPath() const override { return mInner.HostPath(); }

private:
    class Access : public platform::HostDataAccess {
    public:
        explicit Access(platform::HostDataAccess& inner) : mInner(inner) {}

    protected:
        std::unique_ptr<platform::RecordSet> DoQuery(const std::string& statement,
                                                     int option) override {
            return ForwardQuery(mInner, statement, option);
        }

    private:
        platform::HostDataAccess& mInner;
    };

    platform::HostEnvironment& mInner;
    Access mAccess;
};

// The server's connection string with an account in its database, made once in a run.
const std::string& ServerAccount() {
    static const std::string connectionString = [] {
        const std::string text = std::getenv("KELVANE_TEST_POSTGRES");
        host::CreateAccountDatabase(AccountPlace::Database(text),
                                    {.sample = true, .entries = kEntries, .replaceExisting = true});
        return text;
    }();
    return connectionString;
}

// Where the port is in the connection string, and how long.
std::pair<std::size_t, std::size_t> PortIn(const std::string& connectionString) {
    static constexpr std::string_view kWord = "Port=";
    const std::size_t start = connectionString.find(kWord) + kWord.size();
    return {start, connectionString.find(';', start) - start};
}

// The same account behind a slow network.
class SlowAccount {
public:
    SlowAccount() : mConnectionString(ServerAccount()) {
        const auto [start, length] = PortIn(mConnectionString);
        mProxy.emplace(std::stoi(mConnectionString.substr(start, length)), kLatency);
        mConnectionString.replace(start, length, std::to_string(mProxy->Port()));
    }
    const std::string& ConnectionString() const { return mConnectionString; }

private:
    std::string mConnectionString;
    std::optional<support::NetworkProxy> mProxy;
};

double Open(const std::string& connectionString, bool oneByOne) {
    std::optional<OneByOne> surroundings;
    const auto ignoreAnnouncements = [&] {
        if (oneByOne && !surroundings) data::gEnv = &surroundings.emplace(*data::gEnv);
    };
    return ShowList(AccountPlace::Database(connectionString), kEntries, {}, nullptr,
                    ignoreAnnouncements);
}

std::vector<ServerStatement> StatementsOfOpening(const std::string& connectionString) {
    drive::StatementLog log;
    std::vector<std::string> noted;
    const auto take = [&](frmPeriodItem&, EntryWindows&) { noted = log.Take(); };
    ShowList(AccountPlace::Database(connectionString), kEntries, take, &log);
    return ServerStatementsOf(connectionString, noted);
}

void Opening(benchmark::State& state, bool oneByOne) {
    const std::string& account = ServerAccount();
    const std::vector<ServerStatement> statements = StatementsOfOpening(account);
    Samples samples;
    for (auto _ : state) {
        ServerFloor floor(account);
        const double floorSeconds = floor.Run(statements);
        const double ourSeconds = Open(account, oneByOne);
        state.SetIterationTime(ourSeconds);
        samples.Add(floorSeconds, ourSeconds);
    }
    samples.Report(
        state,
        std::string("server: opening 10,000 entries") + (oneByOne ? " one by one, ms" : ", ms"),
        kMilliseconds, kLimit);
}

// Here the floor is ours, one by one.
void OpeningEachFarAway(benchmark::State& state) {
    const SlowAccount account;
    Samples samples;
    for (auto _ : state) {
        const double slowSeconds = Open(account.ConnectionString(), true);
        const double ourSeconds = Open(account.ConnectionString(), false);
        state.SetIterationTime(ourSeconds);
        samples.Add(slowSeconds, ourSeconds);
    }
    samples.Report(state, "1 ms away: 10,000 entries against one by one, ms", kMilliseconds,
                   kLimitOfReadingAhead);
}

void OpeningFarAway(benchmark::State& state) {
    const SlowAccount account;
    Samples samples;
    for (auto _ : state) {
        const double ourSeconds = Open(account.ConnectionString(), false);
        state.SetIterationTime(ourSeconds);
        samples.Add(kSecondsFarAway, ourSeconds);
    }
    samples.Report(state, "1 ms away: opening 10,000 entries, ms", kMilliseconds, kLimitFarAway);
}

std::string Literal(const std::string& text) {
    std::string literal = "'";
    for (const char character : text) literal.append(character == '\'' ? 2 : 1, character);
    return literal + "'";
}

// What is sent once the row to be saved has been read.
ServerStatement SavingOf(const controls::Grid& grid, int row) {
    const auto text = [&](int col) { return Literal(grid.Text(row, col)); };
    const std::string update =
        "update \"PM_ItemQC\" set \"dDate\" = " + text(ui::kDateColumn) +
        ", \"cCenterCode\" = " + text(ui::kCenterColumn) +
        ", \"cItemCode\" = " + text(ui::kItemColumn) +
        ", \"cKeyCode1\" = " + text(ui::kKey1Column) +
        ", \"cKeyCode2\" = " + text(ui::kKey2Column) +
        ", \"cElementCode\" = " + Literal(ElementCode(grid.Text(row, ui::kElementColumn))) +
        ", \"cDigest\" = " + text(ui::kDigestColumn) +
        ", \"mQC\" = 1 where \"iEleVid\" = " + std::to_string(grid.RowData(row));
    return {.path = Path::Connection, .text = update, .commits = true};
}

void Saving(benchmark::State& state, const std::string& connectionString, const std::string& metric,
            double limit) {
    drive::StatementLog log;
    Samples samples;
    const auto measure = [&](frmPeriodItem& form, const EntryWindows& windows) {
        const int row = PlainRow(form);
        log.Take();
        std::int64_t amount = 1;
        LeaveChanged(form, windows, row, amount);
        std::vector<ServerStatement> statements = ServerStatementsOf(connectionString, log.Take());
        statements.push_back(SavingOf(form.GridPeriodItem, row));
        ServerFloor floor(connectionString);
        for (auto _ : state) {
            const double floorSeconds = floor.Run(statements);
            const double ourSeconds = LeaveChanged(form, windows, row, ++amount);
            state.SetIterationTime(ourSeconds);
            samples.Add(floorSeconds, ourSeconds);
        }
    };
    ShowList(AccountPlace::Database(connectionString), kEntries, measure, &log);
    samples.Report(state, metric, kMicroseconds, limit);
}

void SavingNear(benchmark::State& state) {
    Saving(state, ServerAccount(), "server: leaving an existing row, us", kLimit);
}

void SavingFarAway(benchmark::State& state) {
    const SlowAccount account;
    Saving(state, account.ConnectionString(), "1 ms away: leaving an existing row, us",
           kLimitFarAway);
}

const bool kRegistered = [] {
    if (std::getenv("KELVANE_TEST_POSTGRES") == nullptr) return false;
    const auto add = [](const char* name, auto function, int iterations) {
        benchmark::RegisterBenchmark(name, function)->UseManualTime()->Iterations(iterations);
    };
    add(
        "Server/Opening/each", [](benchmark::State& state) { Opening(state, true); }, 3);
    add(
        "Server/Opening/ahead", [](benchmark::State& state) { Opening(state, false); }, 3);
    add("Server/Leaving", SavingNear, 100);
    add("Far/Opening/each", OpeningEachFarAway, 1);
    add("Far/Opening/ahead", OpeningFarAway, 3);
    add("Far/Leaving", SavingFarAway, 20);
    return true;
}();

}  // namespace

}  // namespace kelvane::bench
