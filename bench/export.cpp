// The list as a file: against the same cells written to the same kind of file by a bare loop.
#include "bench/export.h"

#include <unistd.h>
#include <xlsxwriter.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include "adapters/output/formats/file_printing.h"
#include "bench/accounts.h"
#include "bench/child.h"
#include "bench/entry_windows.h"
#include "bench/memory.h"
#include "bench/samples.h"
#include "host/account/session.h"

namespace kelvane::bench {

namespace {

using controls::Grid;

constexpr std::int64_t kEntries = 100'000;
constexpr double kLimit = 1.5;
constexpr double kLimitOfGrowth = 1.3;
// Forty pages a second.
constexpr double kSecondsOfPage = 0.025;

std::string FileBeside(const std::string& account, const std::string& name) {
    return std::filesystem::path(account).parent_path() / name;
}

// Shows the list of `account` and runs `work` with it; what it writes goes to `file`.
void WithList(const std::string& account, const std::string& file,
              const std::function<void(ui::frmPeriodItem&)>& work) {
    output::FilePrinting printing([&](const platform::FileQuestion&) { return file; });
    EntryWindows windows;
    windows.whileShown = [&](ui::frmPeriodItem& form) { work(form); };
    host::Session session(host::AccountPlace::File(account), windows, nullptr, &printing);
    session.LogIn({}, platform::DateTime{2004, 6, 30});
    session.Show();
}

double Export(ui::frmPeriodItem& form, const std::string& file) {
    std::filesystem::remove(file);
    const double start = Now();
    form.ExportList();
    const double seconds = Now() - start;
    if (!std::filesystem::exists(file)) throw std::runtime_error(file + " was not written");
    return seconds;
}

// "1,234.50" as "1234.50".
std::string PlainNumber(std::string text) {
    std::erase(text, ',');
    return text;
}

void Sync(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "r+"),
                                                               std::fclose);
    if (!file || fsync(fileno(file.get())) != 0) throw std::runtime_error("no file " + path);
}

std::vector<int> ShownColumns(const Grid& grid) {
    std::vector<int> shown;
    for (int col = 0; col < grid.Cols(); ++col) {
        if (grid.ColumnWidth(col) > 0) shown.push_back(col);
    }
    return shown;
}

void PlainCsv(const Grid& grid, const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) throw std::runtime_error("no file " + path);
    std::fputs("\xEF\xBB\xBF", file);
    const std::vector<int> shown = ShownColumns(grid);
    for (int row = 0; row < grid.Rows(); ++row) {
        for (const int col : shown) {
            std::string text = grid.Text(row, col);
            if (col == ui::kAmountColumn) text = PlainNumber(std::move(text));
            if (col != shown.front()) std::fputc(',', file);
            if (text.find_first_of(",\"\r\n") == std::string::npos) {
                std::fputs(text.c_str(), file);
            } else {
                std::fprintf(file, "\"%s\"", text.c_str());
            }
        }
        std::fputs("\r\n", file);
    }
    std::fclose(file);
    Sync(path);
}

void PlainXlsx(const Grid& grid, const std::string& path) {
    std::string folder = std::filesystem::path(path).parent_path();
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    lxw_workbook* book = workbook_new_opt(path.c_str(), &options);
    lxw_worksheet* sheet = workbook_add_worksheet(book, nullptr);
    lxw_format* date = workbook_add_format(book);
    format_set_num_format(date, "yyyy-mm-dd");
    lxw_format* amount = workbook_add_format(book);
    format_set_num_format(amount, "#,##0.00");
    const std::vector<int> shown = ShownColumns(grid);
    for (int row = 0; row < grid.Rows(); ++row) {
        lxw_col_t place = 0;
        for (const int col : shown) {
            const std::string text = grid.Text(row, col);
            const auto line = static_cast<lxw_row_t>(row);
            if (row > 0 && col == ui::kAmountColumn) {
                const double value = std::strtod(PlainNumber(text).c_str(), nullptr);
                worksheet_write_number(sheet, line, place, value, amount);
            } else if (row > 0 && col == ui::kDateColumn) {
                lxw_datetime day{};
                day.year = std::stoi(text.substr(0, 4));
                day.month = std::stoi(text.substr(5, 2));
                day.day = std::stoi(text.substr(8, 2));
                worksheet_write_datetime(sheet, line, place, &day, date);
            } else {
                worksheet_write_string(sheet, line, place, text.c_str(), nullptr);
            }
            ++place;
        }
    }
    if (workbook_close(book) != LXW_NO_ERROR) throw std::runtime_error("no file " + path);
    Sync(path);
}

void ExportTo(benchmark::State& state, const std::string& extension,
              void (*plain)(const Grid&, const std::string&)) {
    const std::string account = AccountWith(kEntries);
    const std::string file = FileBeside(account, "list." + extension);
    Samples samples;
    WithList(account, file, [&](ui::frmPeriodItem& form) {
        for (auto _ : state) {
            const double start = Now();
            plain(form.GridPeriodItem, FileBeside(account, "plain." + extension));
            const double floorSeconds = Now() - start;
            samples.Add(floorSeconds, Export(form, file));
        }
    });
    samples.Report(state, "100,000 entries to " + extension + ", ms", kMilliseconds, kLimit);
}

double PagesOf(const std::string& file) {
    const std::string command = "pdfinfo '" + file + "' | sed -n 's/^Pages: *//p'";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"),
                                                                 pclose);
    std::array<char, 32> answer{};
    const bool answered =
        output && std::fread(answer.data(), 1, answer.size() - 1, output.get()) > 0;
    const double pages = answered ? std::strtod(answer.data(), nullptr) : 0;
    if (pages < 1) throw std::runtime_error("no answer from: " + command);
    return pages;
}

void ExportToPdf(benchmark::State& state) {
    const std::string account = AccountWith(10'000);
    const std::string file = FileBeside(account, "list.pdf");
    Samples samples;
    WithList(account, file, [&](ui::frmPeriodItem& form) {
        for (auto _ : state) {
            const double seconds = Export(form, file);
            samples.Add(kSecondsOfPage, seconds / PagesOf(file));
        }
    });
    samples.Report(state, "10,000 entries to pdf: a page, ms", kMilliseconds, 1);
}

double MemoryOf(const std::string& extension, std::int64_t entries) {
    const std::string account = AccountWith(entries);
    return AskChild(kExportOption, FileBeside(account, "memory." + extension) + ":" + account,
                    1)[0];
}

// A row more takes as much memory in a long list as in a short one, whatever becomes of it.
void MemoryOfExport(benchmark::State& state, const std::string& extension) {
    constexpr std::array<std::int64_t, 3> kSizes{1'000, 10'000, 100'000};
    Samples samples;
    for ([[maybe_unused]] auto _ : state) {
        std::array<double, 3> bytes{};
        for (std::size_t at = 0; at < 3; ++at) bytes[at] = MemoryOf(extension, kSizes[at]);
        samples.Add((bytes[1] - bytes[0]) / static_cast<double>(kSizes[1] - kSizes[0]),
                    (bytes[2] - bytes[1]) / static_cast<double>(kSizes[2] - kSizes[1]));
    }
    samples.Report(state, extension + ": a row of 10,000, and of 100,000, bytes", 1,
                   kLimitOfGrowth);
}

BENCHMARK_CAPTURE(ExportTo, xlsx, std::string("xlsx"), PlainXlsx)->Iterations(9);
BENCHMARK_CAPTURE(ExportTo, csv, std::string("csv"), PlainCsv)->Iterations(15);
BENCHMARK(ExportToPdf)->Iterations(3);
BENCHMARK_CAPTURE(MemoryOfExport, xlsx, std::string("xlsx"))->Iterations(1);
BENCHMARK_CAPTURE(MemoryOfExport, csv, std::string("csv"))->Iterations(1);
BENCHMARK_CAPTURE(MemoryOfExport, pdf, std::string("pdf"))->Iterations(1);

}  // namespace

int WriteMemoryOfExport(const std::string& fileAndAccount) {
    const std::size_t colon = fileAndAccount.find(':');
    const std::string file = fileAndAccount.substr(0, colon);
    WithList(fileAndAccount.substr(colon + 1), file,
             [&](ui::frmPeriodItem& form) { Export(form, file); });
    std::printf("%.0f\n", StatusBytes("VmHWM:"));
    return 0;
}

}  // namespace kelvane::bench
