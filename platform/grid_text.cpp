#include "platform/grid_text.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace kelvane::platform {

namespace {

constexpr std::string_view kAlignments = "<^>";
constexpr std::string_view kKinds = "tnd";

std::string OneLine(std::string_view text, bool keepTabs) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(),
        [keepTabs](char c) { return c == '\n' || c == '\r' || (c == '\t' && !keepTabs); }, ' ');
    return line;
}

// Takes what stands before `separator` off the front of `rest`.
std::string_view TakeField(std::string_view& rest, char separator) {
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view field = rest.substr(0, end);
    rest.remove_prefix(std::min(rest.size(), end + 1));
    return field;
}

[[noreturn]] void Refuse() {
    throw std::invalid_argument("not the format text of a grid");
}

int WholeNumber(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < 0) Refuse();
    return number;
}

template <typename T>
T Marked(std::string_view marks, std::string_view mark) {
    const std::size_t place = mark.size() == 1 ? marks.find(mark.front()) : std::string_view::npos;
    if (place == std::string_view::npos) Refuse();
    return static_cast<T>(place);
}

}  // namespace

std::string EncodeColumns(const std::vector<ColumnText>& columns) {
    std::string text;
    for (const ColumnText& column : columns) {
        text += kAlignments[static_cast<std::size_t>(column.alignment)];
        text += '\t' + std::to_string(column.width) + '\t';
        text += kKinds[static_cast<std::size_t>(column.kind)];
        text += '\t' + std::to_string(column.decimals) + '\t' + OneLine(column.title, false) + '\n';
    }
    return text;
}

std::vector<ColumnText> DecodeColumns(std::string_view formatText) {
    std::vector<ColumnText> columns;
    while (!formatText.empty()) {
        std::string_view line = TakeField(formatText, '\n');
        ColumnText column;
        column.alignment = Marked<ColumnAlignment>(kAlignments, TakeField(line, '\t'));
        column.width = WholeNumber(TakeField(line, '\t'));
        column.kind = Marked<ColumnKind>(kKinds, TakeField(line, '\t'));
        column.decimals = WholeNumber(TakeField(line, '\t'));
        column.title = std::string(line);
        columns.push_back(std::move(column));
    }
    return columns;
}

void AppendRow(std::string& dataText, std::string_view cells) {
    dataText += OneLine(cells, true);
    dataText += '\n';
}

void SplitCells(std::string_view row, std::vector<std::string_view>& cells) {
    for (std::string_view& cell : cells) cell = TakeField(row, '\t');
}

bool RowReader::Next() {
    if (mRest.empty()) return false;
    SplitCells(TakeField(mRest, '\n'), mCells);
    return true;
}

std::vector<std::vector<std::string>> DecodeRows(std::string_view dataText, std::size_t columns) {
    std::vector<std::vector<std::string>> rows;
    for (RowReader reader(dataText, columns); reader.Next();) {
        rows.emplace_back(reader.Cells().begin(), reader.Cells().end());
    }
    return rows;
}

}  // namespace kelvane::platform
