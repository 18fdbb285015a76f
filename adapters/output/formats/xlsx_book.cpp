#include "adapters/output/formats/xlsx_book.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "adapters/output/formats/xlsx_check.h"
#include "platform/native_path.h"
#include "platform/utf8.h"

namespace kelvane::output {

namespace {

constexpr std::size_t kLongList = 5'000;

// What a sheet may be called.
std::string SheetName(std::string_view title) {
    std::string name(platform::FirstCharacters(title, LXW_SHEETNAME_MAX));
    for (char& c : name) {
        if (std::string_view("[]:*?/\\'").find(c) != std::string_view::npos) c = ' ';
    }
    return name.empty() ? "Sheet1" : name;
}

// Where the library keeps what it has not packed yet, in files that nobody else sees. Killed
// between making one and hiding it, the program would leave it there: not among the operator's
// files.
std::string ScratchFolder() {
    std::error_code none;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(none);
    return none ? std::string() : platform::Utf8Of(folder);
}

}  // namespace

XlsxBook::XlsxBook(SafeFile& file, std::size_t rows) : mFile(file) {
    if (rows > kMaxRows) mFile.Fail("a spreadsheet has no room for so many rows");
    std::string folder = ScratchFolder();
    lxw_workbook_options options{};
    options.constant_memory = rows > kLongList ? LXW_TRUE : LXW_FALSE;
    options.tmpdir = folder.empty() ? nullptr : folder.data();
    mBook = workbook_new_opt(file.Draft().c_str(), &options);
    if (mBook == nullptr) file.Fail("the spreadsheet cannot be begun");
}

lxw_worksheet* XlsxBook::AddSheet(std::string_view name) {
    lxw_worksheet* sheet = workbook_add_worksheet(mBook, SheetName(name).c_str());
    if (sheet == nullptr) sheet = workbook_add_worksheet(mBook, nullptr);
    if (sheet == nullptr) mFile.Fail("the spreadsheet cannot be begun");
    return sheet;
}

lxw_format* XlsxBook::NewFormat() {
    lxw_format* format = workbook_add_format(mBook);
    if (format == nullptr) mFile.Fail("out of memory");
    return format;
}

lxw_format* XlsxBook::HeaderFormat() {
    if (mHeader != nullptr) return mHeader;
    mHeader = NewFormat();
    format_set_bold(mHeader);
    format_set_align(mHeader, LXW_ALIGN_CENTER);
    format_set_bg_color(mHeader, 0xEDEDED);
    format_set_border(mHeader, LXW_BORDER_THIN);
    return mHeader;
}

void XlsxBook::Close() {
    lxw_workbook* book = mBook;
    mBook = nullptr;
    Check(workbook_close(book));
    CheckXlsx(mFile);
}

}  // namespace kelvane::output
