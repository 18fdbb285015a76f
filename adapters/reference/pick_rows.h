// PickRows: the rows of a list as they are shown, read once from a record set and kept close
// together: a list has tens of thousands of them and is open for seconds.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"

namespace kelvane::reference {

class PickRows {
public:
    // Reads all rows of `source`: the columns named, or the first `count`. Throws DatabaseError.
    PickRows(platform::RecordSet& source, const std::vector<std::string>& columns);
    PickRows(platform::RecordSet& source, int count);

    std::size_t Count() const { return mEnds.size(); }
    int Columns() const { return static_cast<int>(mNumeric.size()); }

    // A row's texts joined by a tab, and one of them.
    std::string_view Cells(std::size_t row) const;
    std::string_view Cell(std::size_t row, int column) const;

    // True when a column holds numbers, by the kind of its values: a code of digits is a text.
    bool IsNumeric(int column) const { return mNumeric[static_cast<std::size_t>(column)]; }

private:
    template <typename ColumnKey>
    void Read(platform::RecordSet& source, const std::vector<ColumnKey>& columns);

    std::string mTexts;
    std::vector<std::size_t> mEnds;  // of each row in mTexts
    std::vector<bool> mNumeric;
};

}  // namespace kelvane::reference
