// ColumnChoice: which column of a sheet stands for which of ours, as its titles say it and as the
// operator changes it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entries/bulk/table_reading.h"
#include "entries/bulk/table_shape.h"
#include "platform/table.h"

namespace kelvane::ui {

class ColumnChoice {
public:
    // `shape` outlives the object.
    explicit ColumnChoice(const entries::TableShape& shape) : mShape(shape) {}

    // Begins with a sheet's first rows: as `known` says, or else as their titles do.
    void Take(std::vector<platform::TableRow> rows,
              const std::optional<entries::GivenColumns>& known);

    // Ours, in the order in which the operator sees them. Those that only a table of the program's
    // own has are there when the titles name them.
    const std::vector<entries::TableColumn>& Columns() const { return mColumns; }
    // Where each of them stands; 0: nowhere.
    const std::vector<int>& Places() const { return mPlaces; }
    void SetPlace(std::size_t at, int place) { mPlaces.at(at) = place; }

    // The rows in which titles may stand, by their numbers, and the one in which they do; 0: none.
    std::vector<int> Rows() const;
    int TitleRow() const { return mTitleRow; }
    // The places stay, unless there are none yet.
    void SetTitleRow(int number);

    // The sheet's columns: how many, what one is called ("B 工程编号", "B" without titles), which
    // one a text means (0: none), and what the first row below the titles has in one.
    int Width() const { return mWidth; }
    std::string NameOf(int place) const;
    int PlaceNamed(std::string_view text) const;
    std::string SampleOf(int place) const;

    entries::GivenColumns Given() const;

private:
    const platform::TableRow* Titles() const;
    bool IsNamed(const entries::TableColumn& column) const;
    void OfferColumns();
    void ProposeTitleRow();
    void ProposePlaces();

    const entries::TableShape& mShape;
    std::vector<platform::TableRow> mRows;
    std::vector<entries::TableColumn> mColumns;
    std::vector<int> mPlaces;  // by mColumns
    int mWidth = 0;
    int mTitleRow = 0;
};

// What a spreadsheet calls the column of that number: "B" for 2.
std::string ColumnLetters(int column);

}  // namespace kelvane::ui
