#include "host/bulk/figure_file.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "adapters/output/files/named_files.h"
#include "adapters/output/files/safe_file.h"
#include "adapters/output/formats/table_file.h"
#include "adapters/output/output_print_control.h"
#include "adapters/output/style/style_service.h"
#include "data/login_context.h"
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/columns.h"
#include "host/surroundings/local_time.h"
#include "platform/ascii.h"
#include "platform/grid_text.h"
#include "platform/native_path.h"
#include "platform/one_line.h"
#include "platform/printing.h"
#include "platform/table_file.h"

namespace kelvane::host {

namespace {

constexpr std::string_view kPdf = ".pdf";
constexpr char kCellEnd = '\t';
constexpr int kNarrowest = 6;
constexpr int kWidest = 40;

// In columns of a terminal, of which one is a digit wide.
int WidthOf(const FigureTable& table, std::size_t column) {
    std::size_t width = ColumnsOf(table.titles[column]);
    for (const auto& row : table.rows) width = std::max(width, ColumnsOf(row[column]));
    const int all = static_cast<int>(std::min<std::size_t>(width, kWidest));
    // A figure stays on one line.
    return std::max(column < table.textColumns ? all : static_cast<int>(width), kNarrowest);
}

// "-1,234.50" without its commas.
std::string DigitsOf(std::string figure) {
    std::erase(figure, ',');
    return figure;
}

// A count has no decimals, an amount has.
platform::ColumnUse UseOf(const FigureTable& table, std::size_t column) {
    if (column < table.textColumns) return platform::ColumnUse::Text;
    const bool isAmount = std::ranges::any_of(
        table.rows, [&](const auto& row) { return row[column].find('.') != std::string::npos; });
    return isAmount ? platform::ColumnUse::Amount : platform::ColumnUse::Number;
}

platform::TableFile TableFileOf(const FigureTable& table) {
    platform::TableFileSheet sheet;
    sheet.name = table.title;
    for (std::size_t column = 0; column < table.titles.size(); ++column) {
        sheet.columns.push_back({.title = table.titles[column],
                                 .use = UseOf(table, column),
                                 .width = WidthOf(table, column) + 2,
                                 .choices = {}});
    }
    for (const auto& cells : table.rows) {
        auto& row = sheet.rows.emplace_back();
        for (std::size_t column = 0; column < cells.size(); ++column) {
            const int place = static_cast<int>(column) + 1;
            if (column < table.textColumns || cells[column].empty()) {
                row.push_back(platform::TextCell(place, cells[column]));
            } else {
                row.push_back(platform::NumberCell(place, DigitsOf(cells[column])));
            }
        }
    }
    return {{std::move(sheet)}, {}};
}

std::vector<platform::ColumnText> ColumnTextsOf(const FigureTable& table) {
    constexpr int kTwipsPerDigit = 110;
    constexpr int kMargin = 150;
    std::vector<platform::ColumnText> columns;
    for (std::size_t column = 0; column < table.titles.size(); ++column) {
        const bool isText = column < table.textColumns;
        columns.push_back({.title = table.titles[column],
                           .width = WidthOf(table, column) * kTwipsPerDigit + kMargin,
                           .alignment = isText ? platform::ColumnAlignment::Left
                                               : platform::ColumnAlignment::Right});
    }
    return columns;
}

// Each row's cells, joined by a tab.
std::vector<std::string> JoinedRows(const FigureTable& table) {
    std::vector<std::string> rows;
    for (const auto& cells : table.rows) {
        std::string& row = rows.emplace_back();
        for (std::size_t column = 0; column < cells.size(); ++column) {
            if (column > 0) row += kCellEnd;
            row += platform::OneLine(cells[column]);
        }
    }
    return rows;
}

// Nobody sees what the print control says, so it is told.
class TellingWindows : public AbsentWindows {
public:
    platform::MessageAnswer ShowMessage(const platform::Message& message) override {
        std::cerr << message.text << '\n';
        return platform::MessageAnswer::Ok;
    }
};

class OneFile : public output::NamedFiles {
public:
    explicit OneFile(const std::string& path)
        : NamedFiles([path](const platform::FileQuestion& /*question*/) { return path; }) {}

    void Failed(std::string_view reason) override { mReason = reason; }
    const std::string& Reason() const { return mReason; }

private:
    std::string mReason;
};

void WritePages(const std::string& path, const FigureTable& table) {
    const std::string columns = platform::EncodeColumns(ColumnTextsOf(table));
    const std::vector<std::string> rows = JoinedRows(table);
    std::string data;
    for (const std::string& row : rows) platform::AppendRow(data, row);
    output::StyleService style;
    style.Open("", table.title);
    style.SetTitle("0,200", "700");
    for (const platform::PrintItem& item :
         {platform::PrintItem{"年度", data::gAccountYear, "0,0", "500"},
          platform::PrintItem{"单位", data::gUnitName, "700,0", "500"},
          platform::PrintItem{"制表人", data::gOperatorName, "1350,0", "375"},
          platform::PrintItem{"打印日期", LocalNow().DateText('.'), "1350,200", "375"}}) {
        style.AddHeaderItem(item);
    }
    style.SetColumns("0,260", columns, true);
    style.SetRows(static_cast<int>(rows.size()),
                  [&rows](int row) { return rows[static_cast<std::size_t>(row)]; });
    TellingWindows windows;
    OneFile file(path);
    output::OutputPrintControl control({.windows = windows, .surroundings = file, .failed = {}});
    if (control.SetDataStyleXml(style, platform::kDefaultStyle) != 0) {
        throw output::FileFailure(path + ": " + style.ErrorText());
    }
    if (control.WriteToFile(data, columns) != 0) throw output::FileFailure(file.Reason());
}

}  // namespace

bool IsPdfFile(const std::string& path) {
    return platform::LowerAscii(platform::Utf8Of(platform::PathOf(path).extension())) == kPdf;
}

bool IsFigureFile(const std::string& path) {
    return IsPdfFile(path) || output::TableFormatOf(path).has_value();
}

void WriteFigureFile(const std::string& path, const FigureTable& table) {
    if (IsPdfFile(path)) {
        WritePages(path, table);
    } else {
        output::WriteTableFile(path, TableFileOf(table));
    }
}

}  // namespace kelvane::host
