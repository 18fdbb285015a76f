// A grid as two texts, for services that print it or write it to a file: its columns (the format
// text) and its rows (the data text). The same grid gives the same texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvane::platform {

enum class ColumnAlignment { Left, Center, Right };
enum class ColumnKind { Text, Number, Date };

struct ColumnText {
    std::string title;
    int width = 0;  // twips; 0 is hidden
    ColumnAlignment alignment = ColumnAlignment::Left;
    ColumnKind kind = ColumnKind::Text;
    int decimals = 0;

    friend bool operator==(const ColumnText&, const ColumnText&) = default;
};

// One line a column. A line break or tab in a title becomes a blank.
std::string EncodeColumns(const std::vector<ColumnText>& columns);

// Throws std::invalid_argument for a text that EncodeColumns does not write.
std::vector<ColumnText> DecodeColumns(std::string_view formatText);

// One line a row, its cells joined by a tab. A line break in a cell becomes a blank.
void AppendRow(std::string& dataText, std::string_view cells);

// The rows of a data text, each with exactly `columns` cells.
std::vector<std::vector<std::string>> DecodeRows(std::string_view dataText, std::size_t columns);

// The cells of one row that are joined by a tab, exactly as many as `cells` has room for.
void SplitCells(std::string_view row, std::vector<std::string_view>& cells);

// The same rows one after the other, where they stand in the text.
class RowReader {
public:
    // `dataText` outlives the reader.
    RowReader(std::string_view dataText, std::size_t columns) : mRest(dataText), mCells(columns) {}

    // False past the last row.
    bool Next();
    const std::vector<std::string_view>& Cells() const { return mCells; }

private:
    std::string_view mRest;
    std::vector<std::string_view> mCells;
};

}  // namespace kelvane::platform
