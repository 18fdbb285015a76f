// Reading a workbook: against the libraries below it with nothing behind them, against another
// reader that is known for reading large ones in little room, and the memory that it takes.
#include "bench/tables.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <minizip/unzip.h>
#include <xlsxwriter.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include "adapters/tables/open_table.h"
#include "bench/accounts.h"
#include "bench/child.h"
#include "bench/entry_windows.h"
#include "bench/memory.h"
#include "bench/samples.h"

namespace kelvane::bench {

namespace {

constexpr int kRows = 100'000;
constexpr int kColumns = 10;
constexpr double kLimit = 2;
constexpr double kLimitOfOther = 0.15;
constexpr double kMostMegabytes = 60;
constexpr double kMegabyte = 1024.0 * 1024.0;

// A workbook of entries, with texts shared by its cells, as spreadsheet programs save them.
std::string WorkbookOf(int rows) {
    const std::filesystem::path file =
        std::filesystem::path(AccountWith(0)).parent_path() / (std::to_string(rows) + " rows.xlsx");
    if (std::filesystem::exists(file)) return file.string();
    lxw_workbook* book = workbook_new(file.c_str());
    lxw_worksheet* sheet = workbook_add_worksheet(book, nullptr);
    lxw_format* date = workbook_add_format(book);
    format_set_num_format(date, "yyyy-mm-dd");
    for (int row = 0; row < rows; ++row) {
        const auto line = static_cast<lxw_row_t>(row);
        worksheet_write_number(sheet, line, 0, 37'000 + row % 900, date);
        for (int column = 1; column < kColumns - 2; ++column) {
            const std::string text =
                "编码" + std::to_string(column) + "-" + std::to_string(row % (500 * column));
            worksheet_write_string(sheet, line, static_cast<lxw_col_t>(column), text.c_str(),
                                   nullptr);
        }
        const std::string digest = "期初余额 第 " + std::to_string(row) + " 行";
        worksheet_write_string(sheet, line, kColumns - 2, digest.c_str(), nullptr);
        worksheet_write_number(sheet, line, kColumns - 1, 1.25 * row, nullptr);
    }
    if (workbook_close(book) != LXW_NO_ERROR) throw std::runtime_error("no file " + file.string());
    return file.string();
}

// The cells of its first sheet.
long ReadCells(const std::string& file) {
    const auto reader = tables::OpenTable(file);
    long cells = 0;
    reader->Read(0, [&](const platform::TableRow& row) {
        cells += static_cast<long>(row.cells.size());
        return true;
    });
    return cells;
}

double ReadingTime(const std::string& file) {
    const double start = Now();
    const long cells = ReadCells(file);
    const double seconds = Now() - start;
    if (cells != long{kRows} * kColumns) throw std::runtime_error("cells were lost");
    return seconds;
}

void CountElement(void* count, const xmlChar* /*name*/, const xmlChar* /*prefix*/,
                  const xmlChar* /*space*/, int /*spaces*/, const xmlChar** /*declared*/,
                  int /*attributes*/, int /*defaulted*/, const xmlChar** /*values*/) {
    ++*static_cast<long*>(count);
}

int ReadPart(void* book, char* to, int count) {
    return unzReadCurrentFile(book, to, static_cast<unsigned>(count));
}

// How long it takes to inflate the sheet and its shared texts and to tell their elements apart.
double TimeOfLibraries(const std::string& file) {
    const double start = Now();
    const std::unique_ptr<void, int (*)(void*)> book(unzOpen64(file.c_str()), unzClose);
    long elements = 0;
    for (const char* part : {"xl/sharedStrings.xml", "xl/worksheets/sheet1.xml"}) {
        if (unzLocateFile(book.get(), part, 1) != UNZ_OK ||
            unzOpenCurrentFile(book.get()) != UNZ_OK) {
            throw std::runtime_error("no part " + std::string(part));
        }
        xmlParserCtxt* context = xmlCreateIOParserCtxt(nullptr, nullptr, ReadPart, nullptr,
                                                       book.get(), XML_CHAR_ENCODING_NONE);
        *context->sax = {};
        context->sax->initialized = XML_SAX2_MAGIC;
        context->sax->startElementNs = CountElement;
        context->userData = &elements;
        xmlParseDocument(context);
        xmlFreeParserCtxt(context);
        unzCloseCurrentFile(book.get());
    }
    if (elements < long{kRows} * kColumns) throw std::runtime_error("elements were lost");
    return Now() - start;
}

// How long openpyxl takes, without its start; 0: it is not there.
double TimeOfPython(const std::string& file) {
    const std::string command =
        "/usr/bin/python3 -c '\n"
        "import sys, time\n"
        "try:\n"
        "    import openpyxl\n"
        "except ImportError:\n"
        "    sys.exit(\"openpyxl is not there\")\n"
        "start = time.perf_counter()\n"
        "book = openpyxl.load_workbook(sys.argv[1], read_only=True)\n"
        "cells = sum(len(row) for row in book.worksheets[0].iter_rows(values_only=True))\n"
        "print(time.perf_counter() - start, cells)\n"
        "' '" +
        file + "'";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"),
                                                                 pclose);
    double seconds = 0;
    long cells = 0;
    if (!output || std::fscanf(output.get(), "%lf %ld", &seconds, &cells) != 2) return 0;
    if (cells != long{kRows} * kColumns) throw std::runtime_error("openpyxl read other cells");
    return seconds;
}

void Reading(benchmark::State& state) {
    const std::string file = WorkbookOf(kRows);
    Samples samples;
    for (auto _ : state) {
        const double floor = TimeOfLibraries(file);
        samples.Add(floor, ReadingTime(file));
    }
    samples.Report(state, "reading 100,000 x 10 cells, ms", kMilliseconds, kLimit);
}

void ReadingBeside(benchmark::State& state) {
    const std::string file = WorkbookOf(kRows);
    Samples samples;
    for (auto _ : state) {
        const double other = TimeOfPython(file);
        if (other == 0) return state.SkipWithError("python3-openpyxl is not installed");
        samples.Add(other, ReadingTime(file));
    }
    samples.Report(state, "reading 100,000 x 10 cells (openpyxl), ms", kMilliseconds,
                   kLimitOfOther);
}

void ReadingMemory(benchmark::State& state) {
    Samples samples;
    for (auto _ : state) {
        const double small = AskChild(kTableOption, WorkbookOf(1), 2)[0];
        const auto large = AskChild(kTableOption, WorkbookOf(kRows), 2);
        if (large[1] != kRows * kColumns) throw std::runtime_error("cells were lost");
        samples.Add(kMostMegabytes, (large[0] - small) / kMegabyte);
    }
    samples.Report(state, "memory while reading 100,000 x 10 cells, MB", 1, 1);
}

BENCHMARK(Reading)->Iterations(9);
BENCHMARK(ReadingBeside)->Iterations(3);
BENCHMARK(ReadingMemory)->Iterations(3);

}  // namespace

int WriteMemoryOfTable(const std::string& file) {
    const long cells = ReadCells(file);
    std::printf("%.0f %ld\n", StatusBytes("VmHWM:"), cells);
    return 0;
}

}  // namespace kelvane::bench
