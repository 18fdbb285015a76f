// The import window with many rows, about half of them refused: from the operator's key to the
// loaded window with all of its findings. The reading of the copied rows belongs to it.
#include <stdexcept>
#include <string>

#include "adapters/output/formats/file_printing.h"
#include "bench/accounts.h"
#include "bench/entry_windows.h"
#include "bench/samples.h"
#include "ui/import/import_window.h"

namespace kelvane::bench {

namespace {

constexpr std::int64_t kStoredEntries = 100;
constexpr int kRows = 10'000;
constexpr double kMostSeconds = 1;

// Rows of items that are there, of which every second one has some fault.
std::string CopiedRows(const ui::frmPeriodItem& form) {
    const auto cell = [&](int row, entries::EntryColumn col) {
        return form.GridPeriodItem.Text(row, col);
    };
    std::string text = "日期\t责任中心\t项目编号\t标段\t要素\t摘要\t未结转期初\n";
    for (int i = 0; i < kRows; ++i) {
        const int row = 1 + i % (form.GridPeriodItem.Rows() - 1);
        const bool isFaulty = i % 2 == 1;
        text += "2003-12-31\t" + cell(row, entries::kCenterColumn) + '\t' +
                cell(row, entries::kItemColumn) + '\t' + cell(row, entries::kKey1Column) + '\t' +
                (isFaulty ? "没有" : "人工费") + "\t期初 " + std::to_string(i) + '\t' +
                (isFaulty ? "没有" : "1.25") + '\n';
    }
    return text;
}

class ImportWindows : public EntryWindows {
public:
    std::string copied;
    double importSeconds = 0;
    int rows = 0;
    int findings = 0;

    std::string ClipboardText() const override { return copied; }

    void ShowModal(platform::Window& window) override {
        auto* import = dynamic_cast<ui::frmImport*>(&window.AsForm());
        if (import == nullptr) return EntryWindows::ShowModal(window);
        import->Load();
        importSeconds = Now() - mStart;
        rows = import->GridRows.Rows() - 1;
        for (int row = 1; row <= rows; ++row) {
            if (import->GridRows.HasFault(row, entries::kElementColumn)) ++findings;
        }
        import->Unload();
    }

    void Paste(ui::frmPeriodItem& form) {
        copied = CopiedRows(form);
        form.GridPeriodItem.SetFocus();
        for (const controls::WindowAction& action : form.Actions()) {
            if (action.caption != "粘贴并导入") continue;
            mStart = Now();
            form.Run(action);
        }
        if (rows != kRows || findings < kRows / 2) throw std::runtime_error("rows were lost");
    }

private:
    double mStart = 0;
};

void ImportWindow(benchmark::State& state) {
    const std::string account = AccountWith(kStoredEntries);
    Samples samples;
    for (auto _ : state) {
        ImportWindows windows;
        windows.whileShown = [&](ui::frmPeriodItem& form) { windows.Paste(form); };
        output::FilePrinting printing([](const platform::FileQuestion&) { return std::string(); });
        host::Session session(host::AccountPlace::File(account), windows, nullptr, &printing);
        session.LogIn({}, platform::DateTime{2004, 6, 30});
        session.Show();
        samples.Add(kMostSeconds, windows.importSeconds);
    }
    samples.Report(state, "the import window with 10,000 rows, ms", kMilliseconds, 1);
}

BENCHMARK(ImportWindow)->Iterations(5);

}  // namespace

}  // namespace kelvane::bench
