// A spreadsheet file while it is written: the library's workbook, which becomes the draft of a
// SafeFile, and what every such file has in common.
#pragma once

#include <xlsxwriter.h>

#include <string_view>

#include "adapters/output/files/safe_file.h"

namespace kelvane::output {

// A spreadsheet's numbers have no more exact digits; a longer one stays a text.
inline constexpr int kExactDigits = 15;
// Earlier days are none to a spreadsheet; they stay texts.
inline constexpr int kFirstYear = 1900;
// Rows below the one of the titles.
inline constexpr std::size_t kMaxRows = LXW_ROW_MAX - 1;

class XlsxBook {
public:
    // `rows`: of its longest sheet; a long one is written row by row and not kept in memory.
    // Everything here throws FileFailure.
    XlsxBook(SafeFile& file, std::size_t rows);
    ~XlsxBook() {
        if (mBook != nullptr) lxw_workbook_free(mBook);
    }
    XlsxBook(const XlsxBook&) = delete;
    XlsxBook& operator=(const XlsxBook&) = delete;

    lxw_workbook* Get() const { return mBook; }

    // `name`: perhaps shortened to what a sheet may be called.
    lxw_worksheet* AddSheet(std::string_view name);
    lxw_format* NewFormat();
    // The titles' look.
    lxw_format* HeaderFormat();
    void Check(lxw_error error) const {
        if (error != LXW_NO_ERROR) mFile.Fail(lxw_strerror(error));
    }
    // The draft is complete; nothing else may be called.
    void Close();

private:
    SafeFile& mFile;
    lxw_workbook* mBook = nullptr;
    lxw_format* mHeader = nullptr;
};

}  // namespace kelvane::output
