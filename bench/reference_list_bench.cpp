// A pick list of 50,000 items: opening it, typing in its search field, sorting it.
#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "adapters/reference/reference_list_service.h"
#include "bench/accounts.h"
#include "bench/entry_windows.h"
#include "bench/floor.h"
#include "bench/samples.h"
#include "host/account/account_host.h"
#include "host/account/account_place.h"
#include "platform/search_key.h"

namespace kelvane::bench {

namespace {

namespace fs = std::filesystem;
using reference::ReferenceWindow;

constexpr int kItems = 50'000;
constexpr int kRowsOfAPage = 20;
// What an operator takes for at once, in seconds.
constexpr double kAtOnce = 0.1;

constexpr const char* kManyItems =
    "delete from Fitemss97;"
    "with recursive n(i) as (select 1 union all select i + 1 from n where i < 50000)"
    "insert into Fitemss97 (citemcode, citemname)"
    " select printf('P%05d', i), '工程' || i || '号' ||"
    " substr('住宅楼道路桥梁管沟厂房仓库泵站隧道', 1 + i % 16, 2) from n";

// An account with so many items, made once in a run.
std::string AccountWithItems() {
    const fs::path empty = AccountWith(0);
    const fs::path path = empty.parent_path() / "items.kelvane";
    if (fs::exists(path)) return path.string();
    fs::copy_file(empty, path);
    sqlite3* handle = nullptr;
    const bool done = sqlite3_open(path.c_str(), &handle) == SQLITE_OK &&
                      sqlite3_exec(handle, kManyItems, nullptr, nullptr, nullptr) == SQLITE_OK;
    const std::string problem = done ? "" : sqlite3_errmsg(handle);
    sqlite3_close(handle);
    if (!done) throw std::runtime_error(path.string() + ": " + problem);
    return path.string();
}

// The texts that a screen shows first.
std::size_t ReadPage(const controls::Grid& grid) {
    std::size_t length = 0;
    for (int row = 0; row < grid.Rows() && row <= kRowsOfAPage; ++row) {
        for (int column = 0; column < grid.Cols(); ++column)
            length += grid.Text(row, column).size();
    }
    return length;
}

// Opens the item list as the component does and lets `work` have it. Returns the seconds from the
// call to the first page.
class ListWindows : public EntryWindows {
public:
    std::function<void(ReferenceWindow&)> work;
    double openedAt = 0;

    void ShowModal(platform::Window& window) override {
        auto& list = dynamic_cast<ReferenceWindow&>(window);
        list.Load();
        list.Activate();
        benchmark::DoNotOptimize(ReadPage(list.GridReference));
        openedAt = Now();
        if (list.GridReference.Rows() != kItems + 1) throw std::runtime_error("items are missing");
        if (work) work(list);
        list.Choose(std::nullopt);
    }
};

double ShowItems(std::function<void(ReferenceWindow&)> work = {}) {
    const std::string account = AccountWithItems();
    host::AccountHost login({host::NewConnection, host::ConnectionStringOf(account), ""}, {});
    ListWindows windows;
    windows.work = std::move(work);
    reference::ReferenceListService service(
        {windows,
         [&]() -> platform::HostDataAccess& { return login.Environment().DataAccess(); },
         {}});
    const double start = Now();
    service.ListByStatement(login.Login(),
                            platform::StatementText("select cItemCode,citemname from  Fitemss97 "),
                            "项目编码,项目名称", "2500,3000", {});
    return windows.openedAt - start;
}

void PickListOpening(benchmark::State& state) {
    Floor floor(AccountWithItems());
    Samples samples;
    for (auto _ : state) {
        const double floorSeconds =
            floor.Run({{Path::Environment, "select cItemCode,citemname from Fitemss97"}});
        const double ourSeconds = ShowItems();
        state.SetIterationTime(ourSeconds);
        samples.Add(floorSeconds, ourSeconds);
    }
    samples.Report(state, "pick list of 50,000: opening, ms", kMilliseconds, 4);
}

// Against the limit of what is taken for at once: `act` in a list that was just opened.
void AtOnce(benchmark::State& state, const std::string& metric,
            const std::function<void(ReferenceWindow&)>& act) {
    Samples samples;
    for (auto _ : state) {
        double seconds = 0;
        ShowItems([&](ReferenceWindow& list) {
            const double start = Now();
            act(list);
            benchmark::DoNotOptimize(ReadPage(list.GridReference));
            seconds = Now() - start;
        });
        state.SetIterationTime(seconds);
        samples.Add(kAtOnce, seconds);
    }
    samples.Report(state, metric, kMilliseconds, 1);
}

void PickListFirstLetter(benchmark::State& state) {
    AtOnce(state, "pick list of 50,000: first letter, ms",
           [](ReferenceWindow& list) { list.txtSearch.SetText("g"); });
}

void PickListSorting(benchmark::State& state) {
    AtOnce(state, "pick list of 50,000: sorting by name, ms",
           [](ReferenceWindow& list) { list.GridReference.HeaderClick(1); });
}

std::vector<std::string> SearchKeys() {
    std::vector<std::string> keys;
    ShowItems([&](ReferenceWindow& list) {
        for (const auto& row : list.ShownRows()) {
            auto& key = keys.emplace_back();
            for (const std::string& cell : row) platform::AppendSearchKey(key, cell);
        }
    });
    return keys;
}

// Every letter of a search word that is typed and taken back, against a bare loop over the rows.
void PickListNarrowing(benchmark::State& state) {
    const std::vector<std::string> keys = SearchKeys();
    const std::vector<std::string> typed{"g",  "gc",  "gc4", "gc49", "gc4",  "gc", "g", "p",
                                         "p1", "p12", "p1",  "桥",   "桥梁", "桥", "zz"};
    Samples samples;
    ShowItems([&](ReferenceWindow& list) {
        list.txtSearch.SetText("-");
        for (auto _ : state) {
            double floorSeconds = 0;
            double ourSeconds = 0;
            for (const std::string& needle : typed) {
                const double start = Now();
                std::vector<std::size_t> found;
                for (std::size_t row = 0; row < keys.size(); ++row) {
                    if (keys[row].find(needle) != std::string::npos) found.push_back(row);
                }
                const double middle = Now();
                list.txtSearch.SetText(needle);
                benchmark::DoNotOptimize(ReadPage(list.GridReference));
                ourSeconds += Now() - middle;
                floorSeconds += middle - start;
                if (list.GridReference.Rows() != static_cast<int>(found.size()) + 1) {
                    throw std::runtime_error("other rows are found for " + needle);
                }
            }
            state.SetIterationTime(ourSeconds);
            const auto letters = static_cast<double>(typed.size());
            samples.Add(floorSeconds / letters, ourSeconds / letters);
        }
    });
    samples.Report(state, "pick list of 50,000: a letter, ms", kMilliseconds, 1.5);
}

BENCHMARK(PickListOpening)->UseManualTime()->Iterations(30);
BENCHMARK(PickListFirstLetter)->UseManualTime()->Iterations(20);
BENCHMARK(PickListNarrowing)->UseManualTime()->Iterations(50);
BENCHMARK(PickListSorting)->UseManualTime()->Iterations(20);

}  // namespace

}  // namespace kelvane::bench
